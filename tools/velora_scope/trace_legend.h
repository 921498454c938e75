// The legend of a graph of spectra: each trace's label beside a stroke of
// its colour, one row each, on a dark box in the plot area's top right
// corner. Drawn after the graph, over it.
#pragma once

#include "spectrum_traces.h"

#include "vgui/vguirect.h"

#include "vstgui/lib/cfont.h"

namespace VSTGUI {
class CDrawContext;
}

namespace velora_scope {

class TraceLegend
{
public:
	explicit TraceLegend(const SpectrumTraces& traces);

	void draw(VSTGUI::CDrawContext* context, const VGuiRect& plotArea) const;

private:
	const SpectrumTraces& traces;
	VSTGUI::SharedPointer<VSTGUI::CFontDesc> font;
};

} // namespace velora_scope
