// Axes: kinds, mapping, decibels, label texts, and tick labels laid out in a real context.
#include "graph_host.h"

#include "vgui/vguidecibelaxis.h"
#include "vgui/vguigfxtext.h"
#include "vgui/vguilogaxis.h"

#include "vstgui/lib/coffscreencontext.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>

namespace velora_test {
namespace {

struct KindCase
{
	std::function<VGuiGraphAxis*()> make;
	int type;
	const char* name;
	bool logScale;
	double value;
	const char* formatted;
};

const OsiCompositeUnitLabel kVolts{OsiUnitLabel("V")};

template <typename Axis, typename... Args> std::function<VGuiGraphAxis*()> maker(Args... args)
{
	return [=] {
		auto* a = new Axis(args...);
		a->units = kVolts;
		return a;
	};
}

const KindCase kKinds[] = {
    {maker<VGuiLinearAxis>(true), 0, "Linear Axis", false, 1500, "1.5 kV"},
    {maker<VGuiLogAxis>(true), 1, "Log Axis", true, 0.25, "250 mV"},
    {maker<VGuiDecibelAxis>(true, false), 2, "dB Axis", true, 2, "6.02 dB[re 1 V]"},
    {maker<VGuiDecibelAxis>(true, true), 3, "dB Axis", false, -12, "-12 dB[re 1 V]"},
};

TEST(VGuiGraphAxis, KindsNameThemselvesAndFormatTheirValues)
{
	for (const KindCase& c : kKinds)
	{
		auto axis = made(c.make());
		EXPECT_EQ(axis->type(), c.type);
		EXPECT_STREQ(axis->name(), c.name);
		EXPECT_EQ(axis->isLogScale(), c.logScale) << c.type;
		EXPECT_EQ(axis->createValueFormat()->format(c.value, 3), c.formatted);
		auto copy = made(axis->copy());
		EXPECT_EQ(copy->type(), c.type);
	}
}

TEST(VGuiGraphAxis, LogarithmicAxesRefuseWhatTheyCannotShow)
{
	auto log = made(new VGuiLogAxis(true));
	log->place({0, 0, 300, 100}, 0);
	log->range(1000, 10);
	for (double v : {0.0, -1.0})
	{
		VGuiPoint p(7, 7);
		EXPECT_FALSE(log->map(p, v));
		EXPECT_EQ(p, VGuiPoint(7, 7));
	}
	VGuiPoint p;
	EXPECT_TRUE(log->map(p, 100));
	EXPECT_DOUBLE_EQ(p.x, 150);
	EXPECT_NEAR(log->inverseMap({225, 0}), std::pow(10, 2.5), 1e-9);
	EXPECT_FALSE(log->map(p, 5000));

	// Beyond the maximum, constrain pulls the point back onto it.
	VGuiPoint beyond(420, 33);
	EXPECT_DOUBLE_EQ(log->constrain(beyond), 1000);
	EXPECT_EQ(beyond, VGuiPoint(300, 33));
}

struct SpanCase
{
	bool power;
	double ratio;
	double stored; // decibel span afterwards, from 60
};

const SpanCase kSpans[] = {
    {false, 10, 60},    {false, 0.001, 60}, {false, 0.1, 20},
    {false, 1e-11, 60}, {true, 0.001, 30},  {true, 1, 0},
};

TEST(VGuiGraphAxis, TakesDecibelSpansOfRatiosBelowOne)
{
	for (const SpanCase& c : kSpans)
	{
		auto axis = made(new VGuiLogAxis(false));
		axis->power = c.power;
		axis->span(c.ratio);
		EXPECT_DOUBLE_EQ(axis->decibelSpan(), c.stored) << c.ratio;
	}
	auto axis = made(new VGuiLogAxis(false));
	axis->span(0.5);
	EXPECT_DOUBLE_EQ(axis->span(), 0.5) << "kept in decibels, read back as a ratio";
}

TEST(VGuiGraphAxis, MeasuresDecibelsBetweenValues)
{
	auto amplitude = made(new VGuiDecibelAxis(true, false));
	auto power = made(new VGuiDecibelAxis(true, false));
	power->power = true;
	auto levels = made(new VGuiDecibelAxis(true, true));
	EXPECT_NEAR(amplitude->calculateDecibelSpan(2, 1), 6.0206, 1e-4);
	EXPECT_NEAR(power->calculateDecibelSpan(1, 2), 3.0103, 1e-4);
	EXPECT_DOUBLE_EQ(levels->calculateDecibelSpan(2, 1), 1);
	EXPECT_DOUBLE_EQ(amplitude->calculateDecibelSpan(-1, 2), 0);
}

TEST(VGuiGraphAxis, WritesUnitsAndReferences)
{
	EXPECT_EQ(VGuiGraphAxis::unitsText(3, "Hz"), "\xc3\x97 +1 kHz");
	EXPECT_EQ(VGuiGraphAxis::unitsText(-6, ""), "\xc3\x97 +1 u");
	EXPECT_EQ(VGuiGraphAxis::unitsText(0, "Hz"), "Hz");
	EXPECT_EQ(VGuiGraphAxis::dBReferenceText(1, "V"), "dB [re 1 V]");
	EXPECT_EQ(VGuiGraphAxis::dBReferenceText(0.002, "V"), "dB [re 2 mV]");
	EXPECT_EQ(VGuiGraphAxis::dBReferenceText(20e-6, ""), "dB [re 20 u]");
}

// A tick label's number, with its engineering suffix; NaN for other texts.
double labelValue(const char* text)
{
	char* end = nullptr;
	const double v = std::strtod(text, &end);
	const char* letters = "munpfkMGT";
	const double scales[] = {1e-3, 1e-6, 1e-9, 1e-12, 1e-15, 1e3, 1e6, 1e9, 1e12};
	if (end == text)
		return NAN;
	if (!*end)
		return v;
	const char* letter = std::strchr(letters, *end);
	return letter && !end[1] ? v * scales[letter - letters] : NAN;
}

template <typename Axis> struct Exposed : Axis
{
	using Axis::Axis;
	using Axis::group;
};

struct LayoutCase
{
	std::function<VGuiGraphAxis*(bool horizontal)> make;
	double min, max;
	// Labels in label units: dB for decibel axes.
	double labelMin, labelMax;
	bool logarithmic;
};

template <typename Axis> std::function<VGuiGraphAxis*(bool)> exposed()
{
	return [](bool horizontal) { return new Exposed<Axis>(horizontal); };
}

const LayoutCase kLayouts[] = {
    {exposed<VGuiLinearAxis>(), 0, 1, 0, 1, false},
    {exposed<VGuiLinearAxis>(), -3.7, 12.2, -3.7, 12.2, false},
    {exposed<VGuiLinearAxis>(), 0, 20000, 0, 20, false},
    {exposed<VGuiLogAxis>(), 20, 20000, 20, 20000, true},
    {exposed<VGuiLogAxis>(), 300, 700, 300, 700, false},
    {[](bool h) { return new Exposed<VGuiDecibelAxis>(h, false); }, std::pow(10, -96 / 20.0), 1,
     -96, 0, false},
};

TEST(VGuiGraphAxis, LaysOutIncreasingEvenlySteppedLabelsThatDoNotOverlap)
{
	RecordingView hostInitialisingVstgui;
	const auto context = VSTGUI::COffscreenContext::create(VSTGUI::CPoint(10, 10));
	for (const LayoutCase& c : kLayouts)
	{
		for (bool horizontal : {true, false})
		{
			auto axis = made(c.make(horizontal));
			axis->title = "";
			axis->place({60, 20, 760, 420}, 4);
			axis->range(c.max, c.min);
			axis->realize(context);
			std::vector<double> values;
			std::vector<VGuiRect> boxes;
			static_cast<Exposed<VGuiLinearAxis>*>(axis.get())->group.list().forEach([&](auto* o) {
				auto* text = dynamic_cast<VGuiGfxText*>(o);
				if (text && !std::isnan(labelValue(text->text())))
				{
					values.push_back(labelValue(text->text()));
					boxes.push_back(text->extent());
				}
			});
			const std::string where = std::to_string(c.min) + ".." + std::to_string(c.max) +
			                          (horizontal ? " across" : " upwards");
			ASSERT_GE(values.size(), 3u) << where;
			EXPECT_LE(values.size(), 12u) << where;
			for (size_t i = 0; i < values.size(); ++i)
			{
				EXPECT_GE(values[i], c.labelMin - 1e-9) << where;
				EXPECT_LE(values[i], c.labelMax + 1e-9) << where;
				if (i == 0)
					continue;
				EXPECT_GT(values[i], values[i - 1]) << where;
				EXPECT_TRUE(boxes[i].intersect(boxes[i - 1]).isNull()) << where << " " << i;
				// Steps of 1-2-5 on logarithmic scales, all alike on linear ones.
				const double ratio = values[i] / values[i - 1];
				const bool even =
				    c.logarithmic
				        ? std::fabs(ratio - 2) < 1e-9 || std::fabs(ratio - 2.5) < 1e-9
				        : std::fabs(values[i] - values[i - 1] - (values[1] - values[0])) < 1e-9;
				EXPECT_TRUE(even) << where << " " << values[i];
			}
		}
	}
}

TEST(VGui2dGraph, LeavesRoomForEveryLabelAndTitleInsideItsExtent)
{
	for (const VSTGUI::CRect size : {VSTGUI::CRect(0, 0, 400, 300), VSTGUI::CRect(0, 0, 240, 160)})
	{
		RecordingView view;
		view.setViewSize(size);
		auto x = made(new Exposed<VGuiLogAxis>(true));
		auto y = made(new Exposed<VGuiDecibelAxis>(false, false));
		x->title = "Frequency";
		x->units = OsiCompositeUnitLabel(OsiUnitLabel("Hz"));
		y->title = "Level";
		y->units = kVolts;
		auto graph = made<VGuiGraph>(new VGui2dGraph(nullptr, x.get(), y.get(), nullptr));
		graph->title = "Spectrum";
		graph->range({20000, 1, 0}, {20, 1e-5, 0}, {});
		view.show(graph.get());
		std::vector<VGuiRect> texts;
		for (const VGuiGfxGroup* group : {&x->group, &y->group})
			group->list().forEach([&](auto* o) {
				if (dynamic_cast<VGuiGfxText*>(o))
					texts.push_back(o->extent());
			});
		const VGuiRect& extent = graph->extent();
		const VGuiRect& area = graph->plotArea();
		ASSERT_GE(texts.size(), 8u);
		for (size_t i = 0; i < texts.size(); ++i)
		{
			const VGuiRect& t = texts[i];
			EXPECT_EQ(t.join(extent), extent) << size.getWidth() << " text " << i;
			EXPECT_TRUE(t.intersect(area).isNull()) << size.getWidth() << " text " << i;
			for (size_t j = 0; j < i; ++j)
				EXPECT_TRUE(t.intersect(texts[j]).isNull()) << size.getWidth() << " " << i << j;
		}
	}
}

} // namespace
} // namespace velora_test
