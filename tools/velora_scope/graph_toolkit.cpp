#include "graph_toolkit.h"

#include "vstgui/lib/vstguiinit.h"

namespace velora_scope {

GraphToolkit::GraphToolkit()
{
	VSTGUI::init(nullptr);
	properties = VGuiReference<VGuiGlobalGraphProperties>::adopt(new VGuiGlobalGraphProperties);
	VGuiGlobalGraphProperties::instance(properties.get());
}

GraphToolkit::~GraphToolkit()
{
	VGuiGlobalGraphProperties::instance(nullptr);
	properties = VGuiReference<VGuiGlobalGraphProperties>();
	VSTGUI::exit();
}

} // namespace velora_scope
