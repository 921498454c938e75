// velora-scope's window: the graph control with the spectra and their
// legend, a line naming the cursor and a read-out line fed by the cursors'
// messages and the view's ranges. Keys pick the cursor (see cursor_keys.h).
// What a user may carry elsewhere is printed on standard output as well: the
// cursor picked, the read-out when a drag ends, and each filter section drawn.
#pragma once

#include "spectrum_traces.h"
#include "standalone_window.h"
#include "trace_legend.h"

#include "osi/runtime/cocallback.h"

#include "vstgui/lib/cframe.h"

#include <string>

namespace VSTGUI {
class CTextLabel;
}
class VGuiGraphControl;

namespace velora_scope {

struct CursorKey;

class ScopeWindow : public VSTGUI::IKeyboardHook
{
public:
	// The traces must outlive the window.
	ScopeWindow(const SpectrumTraces& traces, const std::string& title, int width, int height);
	~ScopeWindow() override;

	// Why the window could not be opened; empty when it is open.
	const std::string& problem() const { return window.problem(); }
	// Serves the window until q or its close button.
	void run() { window.run(); }

	void onKeyboardEvent(VSTGUI::KeyboardEvent& event, VSTGUI::CFrame* frame) override;

private:
	class Control;

	void pick(const CursorKey& key);
	void showAll();
	// The read-out and the view's ranges, in the window and on standard output.
	void showReadOut(bool print);
	void dragEnded() { showReadOut(true); }

	static bool heardCursor(void* self, void* message);
	static bool heardEdit(void* self, void* message);

	const SpectrumTraces& traces;
	velora_frame::StandaloneWindow window;
	VGuiGraphControl* control = nullptr;
	VSTGUI::CTextLabel* cursorLine = nullptr;
	VSTGUI::CTextLabel* readOutLine = nullptr;
	std::string readOut;
	OsiCallbackInstance dataListener{&ScopeWindow::heardCursor, this};
	OsiCallbackInstance measurementListener{&ScopeWindow::heardCursor, this};
	OsiCallbackInstance editListener{&ScopeWindow::heardEdit, this};
};

} // namespace velora_scope
