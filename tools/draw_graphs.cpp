// Draws the graph toolkit's three example graphs through VSTGUI's offscreen
// drawing context to PNG files in a folder: a sine on linear axes
// (graph-sine.png), the measured spectrum of a test signal on a logarithmic
// frequency axis and a decibel axis (graph-spectrum.png), and a scatter plot
// of correlated noise (graph-scatter.png).
//
// usage: draw_graphs OUTPUT_FOLDER
#include "vgui/vgui2dgraph.h"
#include "vgui/vguidecibelaxis.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphpictureview.h"
#include "vgui/vguilinearaxis.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguilogaxis.h"
#include "vgui/vguiscatterplot.h"
#include "vgui/vguisimplescatterplotmarker.h"

#include "osi/numerics/osiapproximatenormaldeviate.h"
#include "osi/numerics/osifourier.h"

#include "vstgui/lib/vstguiinit.h"

#include <cmath>
#include <cstdio>
#include <fstream>
#include <string>

namespace {

constexpr double kWidth = 800;
constexpr double kHeight = 500;
// Pixels per unit of the graph, for a crisp picture.
constexpr double kScale = 2.0;
const double kPi = std::acos(-1.0);

template <typename T> VGuiReference<T> made(T* object)
{
	return VGuiReference<T>::adopt(object);
}

OsiCompositeUnitLabel unit(const char* name)
{
	return OsiCompositeUnitLabel(OsiUnitLabel(name));
}

template <typename Axis>
VGuiReference<VGuiGraphAxis> axis(Axis* a, const char* title, const char* units)
{
	a->title = title;
	a->units = unit(units);
	return made<VGuiGraphAxis>(a);
}

VGuiReference<VGuiGraph> graph(const char* title, VGuiGraphAxis* x, VGuiGraphAxis* y,
                               const VGuiGraphPoint& max, const VGuiGraphPoint& min)
{
	auto g = made<VGuiGraph>(new VGui2dGraph(nullptr, x, y, nullptr));
	g->title = title;
	g->autoScale(false, false);
	g->range(max, min, VGuiGraphPoint());
	return g;
}

bool write(VGuiGraph* g, VGuiGraphPlot* plot, const std::string& path)
{
	const auto view = VSTGUI::owned(new VGuiGraphPictureView(g, kWidth, kHeight));
	g->addPlot(plot, false);
	const std::vector<unsigned char> png = view->png(kScale);
	if (png.empty())
		return false;
	std::ofstream out(path, std::ios::binary);
	out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
	return static_cast<bool>(out.flush());
}

// 2.5 periods of a 250 Hz sine of 1 V.
bool drawSine(const std::string& path)
{
	constexpr int kPoints = 1001;
	auto data = made(new VGuiGraphData(kPoints, 1));
	for (int i = 0; i < kPoints; ++i)
	{
		const double t = 0.01 * i / (kPoints - 1);
		(*data)[i] = VGuiGraphPoint(t, std::sin(2 * kPi * 250 * t), 0);
	}
	auto g = graph("A 250 Hz sine", axis(new VGuiLinearAxis(true), "Time", "s").get(),
	               axis(new VGuiLinearAxis(false), "Amplitude", "V").get(),
	               VGuiGraphPoint(0.01, 1.25, 0), VGuiGraphPoint(0, -1.25, 0));
	auto plot = made(new VGuiLinePlot(1, data.get()));
	return write(g.get(), plot.get(), path);
}

// The amplitude spectrum, Hann-windowed, of 8192 samples at 48 kHz: a 1 kHz
// tone of 0.5 V with its 2nd and 3rd harmonics 40 and 50 dB down, in noise.
bool drawSpectrum(const std::string& path)
{
	constexpr int kOrder = 13;
	constexpr double kRate = 48000;
	OsiFourier fourier(kOrder);
	const int n = fourier.size();
	OsiApproximateNormalDeviate noise(1e-10, 0, 7);
	double windowSum = 0;
	for (int i = 0; i < n; ++i)
	{
		const double t = i / kRate;
		const double window = 0.5 - 0.5 * std::cos(2 * kPi * i / n);
		const double s = 0.5 * std::sin(2 * kPi * 1000 * t) + 0.005 * std::sin(2 * kPi * 2000 * t) +
		                 0.0016 * std::sin(2 * kPi * 3000 * t) + noise.deviate();
		fourier.data()[i] = OsiComplex{s * window, 0};
		windowSum += window;
	}
	fourier.fourierTransform(true);
	auto data = made(new VGuiGraphData(n / 2 - 1, 1));
	for (int k = 1; k < n / 2; ++k)
	{
		const OsiComplex& c = fourier.data()[k];
		(*data)[k - 1] = VGuiGraphPoint(k * kRate / n, 2 * std::hypot(c.re, c.im) / windowSum, 0);
	}
	auto y = axis(new VGuiDecibelAxis(false, false), "Level", "V");
	auto g = graph("Spectrum of a 1 kHz tone with harmonics",
	               axis(new VGuiLogAxis(true), "Frequency", "Hz").get(), y.get(),
	               VGuiGraphPoint(20000, 1, 0), VGuiGraphPoint(20, 1e-7, 0));
	auto plot = made(new VGuiLinePlot(1, data.get()));
	return write(g.get(), plot.get(), path);
}

// 400 pairs of noise samples whose correlation is 0.6.
bool drawScatter(const std::string& path)
{
	constexpr int kPoints = 400;
	OsiApproximateNormalDeviate left(1, 0, 11);
	OsiApproximateNormalDeviate independent(1, 0, 23);
	auto data = made(new VGuiGraphData(kPoints, 1));
	for (int i = 0; i < kPoints; ++i)
	{
		const double l = left.deviate();
		(*data)[i] = VGuiGraphPoint(l, 0.6 * l + 0.8 * independent.deviate(), 0);
	}
	auto g = graph("Correlated noise, left against right",
	               axis(new VGuiLinearAxis(true), "Left", "V").get(),
	               axis(new VGuiLinearAxis(false), "Right", "V").get(), VGuiGraphPoint(4, 4, 0),
	               VGuiGraphPoint(-4, -4, 0));
	auto marker = made(new VGuiSimpleScatterPlotMarker(VGuiScatterCircle, 7));
	auto properties = made(new VGuiGraphPlotProperties(
	    VGuiColour(255, 200, 40), VGuiColour(255, 200, 40, 80), VSTGUI::kLineSolid, 1.0));
	auto plot = made(new VGuiScatterPlot(1, data.get(), marker.get(), properties.get()));
	return write(g.get(), plot.get(), path);
}

} // namespace

int main(int argc, char** argv)
{
	if (argc != 2)
	{
		std::fprintf(stderr, "usage: %s OUTPUT_FOLDER\n", argv[0]);
		return 2;
	}
	VSTGUI::init(nullptr);
	const std::string folder = argv[1];
	const bool written = drawSine(folder + "/graph-sine.png") &&
	                     drawSpectrum(folder + "/graph-spectrum.png") &&
	                     drawScatter(folder + "/graph-scatter.png");
	VSTGUI::exit();
	if (!written)
	{
		std::fprintf(stderr, "draw_graphs: cannot write the pictures to %s\n", argv[1]);
		return 1;
	}
	return 0;
}
