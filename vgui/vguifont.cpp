#include "vgui/vguifont.h"

VGuiFont::VGuiFont(const char* name, const double& size, int style)
: desc(new VSTGUI::CFontDesc(name, size, style))
{}

VGuiFont::VGuiFont(const VSTGUI::CFontDesc& other)
: VGuiFont(other.getName().data(), other.getSize(), other.getStyle())
{}

VGuiFont::VGuiFont(const VGuiFont& other) : VGuiFont(*other.desc) {}

VGuiFont& VGuiFont::operator=(const VGuiFont& other)
{
	if (this != &other)
	{
		desc->setName(other.desc->getName());
		desc->setSize(other.desc->getSize());
		desc->setStyle(other.desc->getStyle());
	}
	return *this;
}

VGuiFont::~VGuiFont()
{
	desc->forget();
}
