// Draws the graph toolkit's example graphs through VSTGUI's offscreen
// drawing context to PNG files in a folder: a sine on linear axes
// (graph-sine.png), the measured spectrum of a test signal on a logarithmic
// frequency axis and a decibel axis (graph-spectrum.png), and a scatter plot
// of correlated noise (graph-scatter.png). Then the same spectrum in a graph
// control on a window-like frame, driven by mouse and key events entering
// at the frame: a data cursor being dragged (graph-data-cursor.png), a
// harmonic cursor's read-out over pinned markers (graph-harmonics.png), and a
// peaking filter being drawn, with the adjusted spectrum (graph-gain.png).
//
// usage: draw_graphs OUTPUT_FOLDER
#include "vgui/vgui2dgraph.h"
#include "vgui/vguidatacursor.h"
#include "vgui/vguidatagaincursor.h"
#include "vgui/vguidecibelaxis.h"
#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcontroltypeinfo.h"
#include "vgui/vguigraphcursormsg.h"
#include "vgui/vguigraphdata.h"
#include "vgui/vguigraphpictureview.h"
#include "vgui/vguigraphplotproperties.h"
#include "vgui/vguiharmonicdatacursor.h"
#include "vgui/vguilinearaxis.h"
#include "vgui/vguilineplot.h"
#include "vgui/vguilogaxis.h"
#include "vgui/vguimarkerdatacursor.h"
#include "vgui/vguimarkerharmonicdatacursor.h"
#include "vgui/vguiscatterplot.h"
#include "vgui/vguisimplescatterplotmarker.h"

#include "osi/numerics/osiapproximatenormaldeviate.h"
#include "osi/numerics/osifourier.h"

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/events.h"
#include "vstgui/lib/platform/iplatformframecallback.h"
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

bool save(const std::vector<unsigned char>& png, const std::string& path)
{
	if (png.empty())
		return false;
	std::ofstream out(path, std::ios::binary);
	out.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
	return static_cast<bool>(out.flush());
}

bool write(VGuiGraph* g, VGuiGraphPlot* plot, const std::string& path)
{
	const auto view = VSTGUI::owned(new VGuiGraphPictureView(g, kWidth, kHeight));
	g->addPlot(plot, false);
	return save(view->png(kScale), path);
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
VGuiReference<VGuiGraphData> spectrum()
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
	return data;
}

bool drawSpectrum(const std::string& path)
{
	auto data = spectrum();
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

// The spectrum in a graph control between a title bar and a read-out line,
// on a frame without a window that is drawn offscreen. Events enter at the
// frame as a window hands them on; the read-out shows the cursor's last
// message.
class SpectrumWindow
{
public:
	static constexpr double kTitle = 26;
	static constexpr double kReadOut = 26;

	explicit SpectrumWindow(const char* title)
	{
		const VGuiColour face = properties->colours[VGuiGlobalGraphProperties::WindowBackground];
		frame->setBackgroundColor(face.toCColor());
		frame->addView(label(VSTGUI::CRect(0, 0, kWidth, kTitle), title,
		                     VSTGUI::CColor(40, 60, 110), VSTGUI::kWhiteCColor));
		frame->addView(readOut);
		// The scheme of the process: the graph's colours, and the filter
		// adjustment's.
		VGuiGlobalGraphProperties::instance(properties.get());
		VGuiGraphControlTypeInfo info(VGuiGraphLogAxis, VGuiGraphDecibelAxis, "Frequency", "Level");
		info.xUnits = unit("Hz");
		info.yUnits = unit("V");
		control->create(info, 20000, 20, 1, 1e-7, 1, 0);
		control->graph()->autoScale(false, false);
		plot->properties(
		    properties->plotProperties[VGuiGlobalGraphProperties::PowerSpectrum].get());
		control->graph()->addPlot(plot.get(), false);
		frame->addView(control);
		frame->attached(frame);
		// Keys go to the focus view of the active window.
		static_cast<VSTGUI::IPlatformFrameCallback*>(frame)->platformOnActivate(true);
		frame->setFocusView(control);
	}
	~SpectrumWindow()
	{
		frame->forget();
		VGuiGlobalGraphProperties::instance(nullptr);
	}

	// Installs a cursor (taking over the creator's reference) whose read-out
	// is shown.
	template <typename Cursor> Cursor* use(Cursor* cursor)
	{
		control->graph()->graphCursor(cursor);
		cursor->release();
		cursor->dataMessages.link(&heard);
		return cursor;
	}
	// The window point of a graph point (the graph lies where its control
	// does).
	VSTGUI::CPoint at(double x, double y) const
	{
		VGuiPoint p;
		control->graph()->map(p, VGuiGraphPoint(x, y, 0), true);
		return p.toCPoint();
	}
	// The data point nearest to frequency f.
	VGuiGraphPoint nearest(double f) const
	{
		const VGuiGraphData& d = *data;
		int best = 0;
		for (int i = 1; i < d.count(); ++i)
			if (std::fabs(d[i].x - f) < std::fabs(d[best].x - f))
				best = i;
		return d[best];
	}
	// Presses at a and drags to b, holding the button.
	void hold(VSTGUI::CPoint a, VSTGUI::CPoint b)
	{
		VSTGUI::MouseDownEvent down(a, VSTGUI::MouseButton::Left);
		enter(down);
		for (int step = 1; step <= 4; ++step)
		{
			VSTGUI::MouseMoveEvent move(a + (b - a) * (step / 4.0), VSTGUI::MouseButton::Left);
			enter(move);
		}
	}
	void release(VSTGUI::CPoint p)
	{
		VSTGUI::MouseUpEvent up(p, VSTGUI::MouseButton::Left);
		enter(up);
	}
	void show(const std::string& text) { readOut->setText(text.c_str()); }
	void keyDown(char32_t character)
	{
		VSTGUI::KeyboardEvent key(VSTGUI::EventType::KeyDown);
		key.character = character;
		enter(key);
	}

	bool write(const std::string& path)
	{
		return save(VGuiGraphPictureView::png(*frame, kScale), path);
	}

	VGuiGraphControl* control = new VGuiGraphControl(
	    VSTGUI::CRect(0, kTitle, kWidth, kTitle + kHeight), nullptr, 0, nullptr);

private:
	static VSTGUI::CTextLabel* label(const VSTGUI::CRect& r, const char* text,
	                                 const VSTGUI::CColor& face, const VSTGUI::CColor& ink)
	{
		auto* l = new VSTGUI::CTextLabel(r, text);
		l->setBackColor(face);
		l->setFontColor(ink);
		l->setFrameColor(face);
		l->setHoriAlign(VSTGUI::kLeftText);
		l->setTextInset(VSTGUI::CPoint(8, 0));
		return l;
	}
	static bool show(void* self, void* message)
	{
		auto* window = static_cast<SpectrumWindow*>(self);
		window->readOut->setText(static_cast<VGuiGraphCursorMsg*>(message)->text().c_str());
		return false;
	}
	void enter(VSTGUI::Event& e)
	{
		static_cast<VSTGUI::IPlatformFrameCallback*>(frame)->platformOnEvent(e);
	}

	VGuiReference<VGuiGlobalGraphProperties> properties = made(new VGuiGlobalGraphProperties);
	VSTGUI::CFrame* frame =
	    new VSTGUI::CFrame(VSTGUI::CRect(0, 0, kWidth, kTitle + kHeight + kReadOut), nullptr);
	VSTGUI::CTextLabel* readOut =
	    label(VSTGUI::CRect(0, kTitle + kHeight, kWidth, kTitle + kHeight + kReadOut), "",
	          VSTGUI::CColor(24, 24, 24), VSTGUI::CColor(36, 244, 36));
	VGuiReference<VGuiGraphData> data = spectrum();
	VGuiReference<VGuiLinePlot> plot = made(new VGuiLinePlot(1, data.get()));
	OsiCallbackInstance heard{&SpectrumWindow::show, this};
};

// A data cursor dragged onto the 1 kHz tone, its cross-hairs on the peak.
bool drawDataCursor(const std::string& path)
{
	SpectrumWindow w("Spectrum: data cursor");
	w.use(new VGuiDataCursor(w.control->graph(), false, true));
	const VGuiGraphPoint peak = w.nearest(1000);
	w.hold(w.at(700, 1e-3), w.at(peak.x, peak.y));
	return w.write(path);
}

// A harmonic marker pinned on the tone and a data marker on its third
// harmonic, with the harmonic cursor held on the tone and the "3" key down.
bool drawHarmonics(const std::string& path)
{
	SpectrumWindow w("Spectrum: harmonic cursor and markers");
	VGuiGraph* g = w.control->graph();
	const VGuiGraphPoint tone = w.nearest(1000);
	const VGuiGraphPoint third = w.nearest(3000);
	w.use(new VGuiMarkerHarmonicDataCursor(g, false));
	w.hold(w.at(700, 1e-3), w.at(tone.x, tone.y));
	w.release(w.at(tone.x, tone.y));
	w.use(new VGuiMarkerDataCursor(g, false, false));
	w.hold(w.at(4000, 1e-2), w.at(third.x, third.y));
	w.release(w.at(third.x, third.y));
	w.use(new VGuiHarmonicDataCursor(g, false));
	w.hold(w.at(700, 1e-3), w.at(tone.x, tone.y));
	w.keyDown(U'3');
	return w.write(path);
}

// A peaking section being drawn at 6 kHz, 20 dB up; the read-out shows the
// section (its description begins with a separating comma).
bool drawGain(const std::string& path)
{
	SpectrumWindow w("Spectrum: drawing a peaking filter");
	auto* cursor = w.use(new VGuiDataGainCursor(w.control->graph(), w.control));
	w.hold(w.at(6000, 1e-4), w.at(7000, 1e-3));
	w.show(std::string("Peaking section: ") + (cursor->text.c_str() + 1));
	return w.write(path);
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
	const bool written =
	    drawSine(folder + "/graph-sine.png") && drawSpectrum(folder + "/graph-spectrum.png") &&
	    drawScatter(folder + "/graph-scatter.png") &&
	    drawDataCursor(folder + "/graph-data-cursor.png") &&
	    drawHarmonics(folder + "/graph-harmonics.png") && drawGain(folder + "/graph-gain.png");
	VSTGUI::exit();
	if (!written)
	{
		std::fprintf(stderr, "draw_graphs: cannot write the pictures to %s\n", argv[1]);
		return 1;
	}
	return 0;
}
