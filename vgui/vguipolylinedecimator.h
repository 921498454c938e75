// Thins a polyline down to what a screen can show before it reaches a
// polyline builder: of each run of consecutive points within one pixel
// column it passes on the first, the lowest, the highest and the last, in
// their order. The line drawn covers the same pixels, while a plot of a
// hundred thousand points costs no more to draw than one of a few thousand.
#pragma once

#include "vgui/vguigfxpolylinebuilder.h"
#include "vgui/vguipoint.h"

class VGuiPolylineDecimator
{
public:
	explicit VGuiPolylineDecimator(VGuiGfxPolylineBuilder& builder) : builder(builder) {}

	// Starts a new line at p; a move to where the line stands does nothing.
	void moveTo(const VGuiPoint& p);
	void lineTo(const VGuiPoint& p);
	// Passes on the points still held back.
	void finish();

private:
	struct Held
	{
		VGuiPoint point;
		int order;
	};

	void start(const VGuiPoint& p);
	void flush();

	VGuiGfxPolylineBuilder& builder;
	bool drawing = false;
	double column = 0.0;
	int count = 0;
	// The column's first point has been passed on; these wait for its end.
	Held lowest{};
	Held highest{};
	Held last{};
};
