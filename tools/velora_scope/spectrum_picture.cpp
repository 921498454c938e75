#include "spectrum_picture.h"

#include "failure.h"
#include "spectrum_traces.h"
#include "trace_legend.h"

#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphpictureview.h"

namespace velora_scope {
namespace {

// The graph's picture view, with the legend painted over the plot area.
class LegendPictureView : public VGuiGraphPictureView
{
public:
	LegendPictureView(VGuiGraph* graph, const SpectrumTraces& traces, int width, int height)
	: VGuiGraphPictureView(graph, width, height),
	  legend(traces)
	{}

	void draw(VSTGUI::CDrawContext* context) override
	{
		VGuiGraphPictureView::draw(context);
		legend.draw(context, graph()->plotArea());
	}

private:
	TraceLegend legend;
};

} // namespace

std::vector<unsigned char>
spectrumPicture(const std::vector<velora_spectrum::ChannelSpectrum>& spectra,
                const std::string& title, int width, int height)
{
	const SpectrumTraces traces(spectra);
	// The graph that velora-scope's window shows, made by the same control.
	const auto control = VSTGUI::makeOwned<VGuiGraphControl>(VSTGUI::CRect(0, 0, width, height),
	                                                         nullptr, 0, nullptr);
	control->create(SpectrumTraces::graphType(), traces.maximum().x, traces.minimum().x,
	                traces.maximum().y, traces.minimum().y, 1.0, 200.0);
	VGuiGraph* graph = control->graph();
	graph->title = title;
	const auto view = VSTGUI::makeOwned<LegendPictureView>(graph, traces, width, height);
	traces.addTo(graph);
	return view->png();
}

void writePicture(velora_render::PendingFile& file, const std::vector<unsigned char>& png)
{
	if (png.empty())
		throw velora_render::runtimeError("cannot draw the picture for '" + file.target() + "'");
	file.write(png.data(), png.size());
	file.commit();
}

} // namespace velora_scope
