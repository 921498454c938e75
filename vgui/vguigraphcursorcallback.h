// The listeners of a cursor's read-outs: a ring of callbacks, each called
// with the message (a VGuiGraphCursorMsg*), and the label that the data
// messages built here carry.
#pragma once

#include "vgui/vguigraphcursormsg.h"
#include "vgui/vguigraphpoint.h"
#include "vgui/vguipoint.h"

#include "osi/runtime/cocallback.h"

#include <memory>

class VGuiGraph;

class VGuiGraphCursorCallback
{
public:
	explicit VGuiGraphCursorCallback(const char* label = "") : label(label) {}

	// Listeners are called newest first, until one claims the message.
	void link(const OsiCallbackInstance* listener) { listeners.link(listener); }
	void send(std::unique_ptr<VGuiGraphCursorMsg> message) const;
	// A data message for a graph point, or for a screen point mapped back.
	void notifyDataCursorMsg(VGuiGraph* graph, int precision, const VGuiGraphPoint& p,
	                         int dataId) const;
	void notifyDataCursorMsg(VGuiGraph* graph, int precision, const VGuiPoint& p, int dataId) const;

	string_ext<char> label;

private:
	mutable OsiCallbackInstance listeners;
};
