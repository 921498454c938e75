// Spectra as the graph toolkit draws them: one line plot per channel, power
// against frequency, in the colour categories of the global graph
// properties, and the ranges that show them all.
#pragma once

#include "channel_spectrum.h"

#include "vgui/vguicolour.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguireference.h"

#include <string>
#include <vector>

class VGuiGraph;

namespace velora_scope {

struct Trace
{
	std::string label;
	VGuiColour colour;
	VGuiReference<VGuiLinePlot> plot;
};

class SpectrumTraces
{
public:
	// Trace n's data carry the identifier n + 1, which the cursors' read-outs
	// name. Needs the global graph properties for the colours.
	explicit SpectrumTraces(const std::vector<velora_spectrum::ChannelSpectrum>& spectra);

	// A logarithmic frequency axis in Hz and a power decibel axis.
	static VGuiGraphControlTypeInfo graphType();

	void addTo(VGuiGraph* graph) const;
	// The trace whose data carry the identifier; null for none.
	const Trace* withId(int identifier) const;

	const std::vector<Trace>& traces() const { return all; }
	// Every trace's frequencies, from the lowest worth a logarithmic axis,
	// and levels from 10 dB over the loudest down to a floor.
	VGuiGraphPoint maximum() const { return top; }
	VGuiGraphPoint minimum() const { return bottom; }

private:
	std::vector<Trace> all;
	VGuiGraphPoint top;
	VGuiGraphPoint bottom;
};

} // namespace velora_scope
