#include "scope_window.h"

#include "cursor_keys.h"

#include "vgui/vguigenericfiltersection.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguigraphcursor.h"
#include "vgui/vguigraphcursormsg.h"
#include "vgui/vguiploteditmsg.h"

#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/events.h"

#include <cmath>
#include <cstdio>
#include <functional>

namespace velora_scope {
namespace {

constexpr double kLine = 20.0;
const VSTGUI::CColor kWindowGrey(192, 192, 192);

VSTGUI::CTextLabel* statusLine(double top, double width)
{
	auto* label = new VSTGUI::CTextLabel(VSTGUI::CRect(6, top, width - 6, top + kLine));
	label->setHoriAlign(VSTGUI::kLeftText);
	label->setBackColor(kWindowGrey);
	label->setFontColor(VSTGUI::kBlackCColor);
	label->setStyle(VSTGUI::CParamDisplay::kNoFrame);
	label->setFont(VSTGUI::makeOwned<VSTGUI::CFontDesc>("Arial", 12));
	label->setAutosizeFlags(VSTGUI::kAutosizeLeft | VSTGUI::kAutosizeRight |
	                        VSTGUI::kAutosizeBottom);
	label->setMouseEnabled(false);
	return label;
}

void setLine(VSTGUI::CTextLabel* label, const std::string& text)
{
	label->setText(VSTGUI::UTF8String(text));
	label->invalid();
}

void printLine(const std::string& text)
{
	std::printf("%s\n", text.c_str());
	std::fflush(stdout);
}

std::string number(double value)
{
	char text[32];
	std::snprintf(text, sizeof text, "%.5g", value);
	return text;
}

std::string keyList()
{
	std::string keys;
	for (const auto& k : cursorKeys())
		keys += std::string(1, static_cast<char>(k.key)) + " ";
	return keys + "pick the cursor, a shows all, q quits";
}

} // namespace

// The graph control that draws the legend over its graph and tells when a
// drag has ended, after the graph has acted on it.
class ScopeWindow::Control : public VGuiGraphControl
{
public:
	Control(const VSTGUI::CRect& size, const SpectrumTraces& traces, std::function<void()> released)
	: VGuiGraphControl(size, nullptr, 0, nullptr),
	  legend(traces),
	  released(std::move(released))
	{}

	void draw(VSTGUI::CDrawContext* context) override
	{
		VGuiGraphControl::draw(context);
		if (graph())
			legend.draw(context, graph()->plotArea());
	}

	VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
	                                    const VSTGUI::CButtonState& buttons) override
	{
		const auto result = VGuiGraphControl::onMouseUp(where, buttons);
		if (buttons.isLeftButton())
			released();
		return result;
	}

private:
	TraceLegend legend;
	std::function<void()> released;
};

ScopeWindow::ScopeWindow(const SpectrumTraces& traces, const std::string& title, int width,
                         int height)
: traces(traces),
  window(title, width, height)
{
	VSTGUI::CFrame* frame = window.frame();
	if (!problem().empty() || !frame)
		return;
	frame->setBackgroundColor(kWindowGrey);
	const double graphHeight = height - 2 * kLine;
	control = new Control(VSTGUI::CRect(0, 0, width, graphHeight), traces, [this] { dragEnded(); });
	control->setAutosizeFlags(VSTGUI::kAutosizeAll);
	frame->addView(control);
	control->create(SpectrumTraces::graphType(), traces.maximum().x, traces.minimum().x,
	                traces.maximum().y, traces.minimum().y, 1.0, 200.0);
	control->graph()->title = title;
	traces.addTo(control->graph());
	control->refresh();
	control->plotEditCallbacks.link(&editListener);
	cursorLine = statusLine(graphHeight, width);
	readOutLine = statusLine(graphHeight + kLine, width);
	frame->addView(cursorLine);
	frame->addView(readOutLine);
	frame->setFocusView(control);
	frame->registerKeyboardHook(this);
	pick(cursorKeys().front());
	showReadOut(false);
}

ScopeWindow::~ScopeWindow()
{
	if (auto* frame = window.frame())
		frame->unregisterKeyboardHook(this);
}

void ScopeWindow::onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame*)
{
	// A drag in progress keeps its keys (a filter's Q, a harmonic's number).
	const auto* cursor = control ? control->graph()->graphCursor() : nullptr;
	if (event.type != VSTGUI::EventType::KeyDown || (cursor && cursor->isDragging()) ||
	    event.modifiers.has(VSTGUI::ModifierKey::Control) ||
	    event.modifiers.has(VSTGUI::ModifierKey::Alt))
		return;
	if (const CursorKey* key = cursorKey(event.character))
		pick(*key);
	else if (event.character == kZoomAllKey)
		showAll();
	else if (event.character == kQuitKey)
		window.quit();
	else
		return;
	event.consumed = true;
}

void ScopeWindow::pick(const CursorKey& key)
{
	VGuiGraphCursor* cursor = key.make(*control);
	dataListener.unlink();
	measurementListener.unlink();
	cursor->dataMessages.link(&dataListener);
	cursor->measurementMessages.link(&measurementListener);
	control->graph()->graphCursor(cursor);
	cursor->release();
	const std::string name = std::string("cursor: ") + key.name;
	setLine(cursorLine, name + "    (" + keyList() + ")");
	printLine(name);
}

void ScopeWindow::showAll()
{
	VGuiGraph* graph = control->graph();
	graph->autoScale(false, false);
	graph->range(traces.maximum(), traces.minimum(), VGuiGraphPoint());
	showReadOut(true);
}

void ScopeWindow::showReadOut(bool print)
{
	const VGuiGraph* graph = control->graph();
	const std::string view = "view " + number(graph->minimum().x) + " Hz to " +
	                         number(graph->maximum().x) + " Hz, " +
	                         number(10.0 * std::log10(graph->minimum().y)) + " dB to " +
	                         number(10.0 * std::log10(graph->maximum().y)) + " dB";
	const std::string line = readOut.empty() ? view : readOut + "  |  " + view;
	setLine(readOutLine, line);
	if (print)
		printLine(line);
}

bool ScopeWindow::heardCursor(void* self, void* message)
{
	auto* scope = static_cast<ScopeWindow*>(self);
	const auto* msg = static_cast<VGuiGraphCursorMsg*>(message);
	const Trace* trace = scope->traces.withId(msg->dataId());
	scope->readOut = (trace ? trace->label + ": " : std::string()) + msg->text();
	scope->showReadOut(false);
	return false;
}

bool ScopeWindow::heardEdit(void*, void* message)
{
	const auto* edit = static_cast<VGuiPlotEditMsg*>(message);
	if (edit->cancelled || !edit->section)
		return false;
	string_ext<char> text = "filter";
	edit->section->description(text);
	printLine(text);
	return false;
}

} // namespace velora_scope
