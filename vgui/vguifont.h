// A font of the graph toolkit: it owns one VSTGUI font description, whose
// reference it gives back when it goes.
#pragma once

#include "vstgui/lib/cfont.h"

class VGuiFont
{
public:
	VGuiFont(const char* name, const double& size, int style);
	// A font description of its own with the same name, size and style.
	VGuiFont(const VGuiFont& other);
	explicit VGuiFont(const VSTGUI::CFontDesc& desc);
	VGuiFont& operator=(const VGuiFont& other);
	virtual ~VGuiFont();

	VSTGUI::CFontDesc* fontDesc() const { return desc; }
	const char* name() const { return desc->getName().data(); }
	double size() const { return desc->getSize(); }
	int style() const { return desc->getStyle(); }

private:
	VSTGUI::CFontDesc* desc;
};
