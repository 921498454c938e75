#include "vgui/vguifont.h"

#include <utility>

VGuiFont::VGuiFont(const char* name, const double& size, int style)
: desc(new VSTGUI::CFontDesc(name ? name : "", size, style))
{}

VGuiFont::VGuiFont(const VSTGUI::CFontDesc& other)
: VGuiFont(other.getName().data(), other.getSize(), other.getStyle())
{}

VGuiFont::VGuiFont(const VGuiFont& other) : VGuiFont(*other.desc) {}

VGuiFont& VGuiFont::operator=(const VGuiFont& other)
{
	VGuiFont copy(other);
	std::swap(desc, copy.desc);
	return *this;
}

VGuiFont::~VGuiFont()
{
	desc->forget();
}
