#include "cursor_keys.h"

#include "vgui/vguidatacursor.h"
#include "vgui/vguidatagaincursor.h"
#include "vgui/vguidatashelvingcursor.h"
#include "vgui/vguidifferentialdatacursor.h"
#include "vgui/vguigraphcontrol.h"
#include "vgui/vguiharmonicdatacursor.h"
#include "vgui/vguiintegraldatacursor.h"
#include "vgui/vguimarkerdatacursor.h"
#include "vgui/vguimarkererasedatacursor.h"
#include "vgui/vguipancursor.h"
#include "vgui/vguizoomincursor.h"
#include "vgui/vguizoomoutcursor.h"

#include <algorithm>

namespace velora_scope {
namespace {

// Data cursors read between bins, with cross-hairs: spectra are dense.
template <typename Cursor> VGuiGraphCursor* dataCursor(VGuiGraphControl& c)
{
	return new Cursor(c.graph(), true, true);
}

template <typename Cursor> VGuiGraphCursor* graphCursor(VGuiGraphControl& c)
{
	return new Cursor(c.graph());
}

} // namespace

const std::vector<CursorKey>& cursorKeys()
{
	static const std::vector<CursorKey> keys = {
	    {U'z', "zoom in", graphCursor<VGuiZoomInCursor>},
	    {U'x', "zoom out", graphCursor<VGuiZoomOutCursor>},
	    {U'p', "pan", graphCursor<VGuiPanCursor>},
	    {U'd', "data", dataCursor<VGuiDataCursor>},
	    {U'h', "harmonic",
	     [](VGuiGraphControl& c) -> VGuiGraphCursor* {
		     return new VGuiHarmonicDataCursor(c.graph(), false);
	     }},
	    {U'i', "integral", dataCursor<VGuiIntegralDataCursor>},
	    {U'f', "differential", dataCursor<VGuiDifferentialDataCursor>},
	    {U'm', "marker", dataCursor<VGuiMarkerDataCursor>},
	    {U'e', "erase marker", dataCursor<VGuiMarkerEraseDataCursor>},
	    {U'g', "gain filter",
	     [](VGuiGraphControl& c) -> VGuiGraphCursor* {
		     return new VGuiDataGainCursor(c.graph(), &c);
	     }},
	    {U's', "shelving filter",
	     [](VGuiGraphControl& c) -> VGuiGraphCursor* {
		     return new VGuiDataShelvingCursor(c.graph(), &c, true);
	     }},
	};
	return keys;
}

const CursorKey* cursorKey(char32_t key)
{
	const auto& keys = cursorKeys();
	const auto found =
	    std::find_if(keys.begin(), keys.end(), [&](const CursorKey& k) { return k.key == key; });
	return found == keys.end() ? nullptr : &*found;
}

std::string keyHelp()
{
	std::string text;
	for (const auto& k : cursorKeys())
		text += "  " + std::string(1, static_cast<char>(k.key)) + "  " + k.name + "\n";
	text += "  " + std::string(1, static_cast<char>(kZoomAllKey)) + "  zoom to show all\n";
	text += "  " + std::string(1, static_cast<char>(kQuitKey)) +
	        "  quit (as does closing the window)\n";
	return text;
}

} // namespace velora_scope
