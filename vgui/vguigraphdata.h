// A data set of a graph: an array of points in graph coordinates with a name
// and an identifier (the one cursor read-outs report). Reference counted:
// plots, cursors and markers that follow the data each hold a reference.
#pragma once

#include "vgui/vguigraphparameterisedfunction.h"
#include "vgui/vguigraphpoint.h"

#include "osi/base/referencecount.h"
#include "osi/base/string_ext.h"

#include <vector>

class VGuiGraphData : public OsiReferenceCount
{
public:
	// size points, filled from f when given (see size()).
	VGuiGraphData(int size, int identifier, const VGuiGraphParameterisedFunction* f = nullptr);

	// A new array of n points (none for n < 0): point i is f at
	// t = i / (n - 1) (t = 0 for a single point), or (0, 0, 0) without f.
	void size(int n, const VGuiGraphParameterisedFunction* f = nullptr);
	// n points: the array grows to n + extra, keeping its points, only when n
	// exceeds its capacity. With f the n points are then filled as by size().
	void reSize(int n, int extra, const VGuiGraphParameterisedFunction* f = nullptr);

	// Componentwise over all points; (0, 0, 0) without points.
	VGuiGraphPoint maximum() const;
	VGuiGraphPoint minimum() const;
	// Componentwise, the smallest value above 0, or fallback where no point
	// has one.
	VGuiGraphPoint minimumPositive(double fallback) const;

	int count() const { return number; }
	int capacity() const { return static_cast<int>(points.size()); }
	// The first point; count() points follow it.
	VGuiGraphPoint* data() { return points.data(); }
	const VGuiGraphPoint* data() const { return points.data(); }
	VGuiGraphPoint& operator[](int i) { return points[static_cast<size_t>(i)]; }
	const VGuiGraphPoint& operator[](int i) const { return points[static_cast<size_t>(i)]; }
	int identifier() const { return id; }
	bool isValid() const { return valid; }

	string_ext<char> name;

private:
	void fill(const VGuiGraphParameterisedFunction& f);
	// Calls reduce(result, point) for every point after the first.
	template <typename Reduce> VGuiGraphPoint reduced(Reduce reduce) const;

	std::vector<VGuiGraphPoint> points;
	int number = 0;
	int id;
	bool valid = false;
};
