#include "spectrum_traces.h"

#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraph.h"
#include "vgui/vguigraphdata.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace velora_scope {
namespace {

using Properties = VGuiGlobalGraphProperties;

// Colour categories that stand apart on the graph's black, in the order
// traces take them; the filter adjustment's own colour is left out.
constexpr Properties::Category kTraceCategories[] = {
    Properties::PowerSpectrum,           Properties::PeakPowerSpectrum,
    Properties::RealtimePowerSpectrum,   Properties::SegmentRefPowerSpectrum,
    Properties::UnfilteredPowerSpectrum, Properties::RefPowerSpectrum};

// Silence has no level: it sits far below any floor the graph shows.
constexpr double kSilentDb = -300.0;
// Levels shown below the loudest, and the lowest frequency worth showing.
constexpr double kShownSpanDb = 140.0;
constexpr double kLowestHz = 10.0;

double power(double levelDb)
{
	return std::pow(10.0, std::max(levelDb, kSilentDb) / 10.0);
}

VGuiReference<VGuiLinePlot> plotOf(const velora_spectrum::ChannelSpectrum& spectrum, int id,
                                   Properties::Category category)
{
	// Bin 0 has no place on a logarithmic axis.
	const int bins = std::max(static_cast<int>(spectrum.levelDb.size()) - 1, 0);
	auto data = VGuiReference<VGuiGraphData>::adopt(new VGuiGraphData(bins, id));
	for (int k = 1; k <= bins; ++k)
		(*data)[k - 1] = VGuiGraphPoint(k * spectrum.binWidthHz(), power(spectrum.levelDb[k]), 0.0);
	auto plot = VGuiReference<VGuiLinePlot>::adopt(new VGuiLinePlot(id, data.get()));
	plot->properties(Properties::instance()->plotProperties[category].get());
	return plot;
}

} // namespace

SpectrumTraces::SpectrumTraces(const std::vector<velora_spectrum::ChannelSpectrum>& spectra)
{
	double lowestHz = std::numeric_limits<double>::max();
	double highestHz = 0.0;
	double loudestDb = kSilentDb;
	for (const auto& spectrum : spectra)
	{
		const int id = static_cast<int>(all.size()) + 1;
		const auto category = kTraceCategories[all.size() % std::size(kTraceCategories)];
		all.push_back({spectrum.label, Properties::instance()->colours[category],
		               plotOf(spectrum, id, category)});
		lowestHz = std::min(lowestHz, std::max(spectrum.binWidthHz(), kLowestHz));
		highestHz = std::max(highestHz, spectrum.sampleRate / 2.0);
		for (size_t k = 1; k < spectrum.levelDb.size(); ++k)
			loudestDb = std::max(loudestDb, spectrum.levelDb[k]);
	}
	if (highestHz <= lowestHz)
	{
		lowestHz = kLowestHz;
		highestHz = 24000.0;
	}
	const double topDb = 10.0 * std::ceil(loudestDb / 10.0) + 10.0;
	top = VGuiGraphPoint(highestHz, power(topDb), 0.0);
	bottom = VGuiGraphPoint(lowestHz, power(topDb - kShownSpanDb), 0.0);
}

VGuiGraphControlTypeInfo SpectrumTraces::graphType()
{
	VGuiGraphControlTypeInfo type(VGuiGraphLogAxis, VGuiGraphPowerDecibelAxis, "Frequency",
	                              "Power");
	type.xUnits = OsiCompositeUnitLabel(OsiUnitLabel("Hz"));
	type.yUnits = OsiCompositeUnitLabel(OsiUnitLabel("FS"));
	type.yAxisPower = true;
	return type;
}

void SpectrumTraces::addTo(VGuiGraph* graph) const
{
	graph->beginUpdate();
	for (const auto& trace : all)
		graph->addPlot(trace.plot.get(), false);
	graph->endUpdate();
}

const Trace* SpectrumTraces::withId(int identifier) const
{
	const bool known = identifier >= 1 && identifier <= static_cast<int>(all.size());
	return known ? &all[static_cast<size_t>(identifier - 1)] : nullptr;
}

} // namespace velora_scope
