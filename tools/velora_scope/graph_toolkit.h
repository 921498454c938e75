// What drawing graphs needs for as long as a program draws them: VSTGUI
// initialised and the process-wide graph properties, whose colour categories
// the traces take.
#pragma once

#include "vgui/vguiglobalgraphproperties.h"
#include "vgui/vguireference.h"

namespace velora_scope {

class GraphToolkit
{
public:
	GraphToolkit();
	~GraphToolkit();
	GraphToolkit(const GraphToolkit&) = delete;
	GraphToolkit& operator=(const GraphToolkit&) = delete;

private:
	VGuiReference<VGuiGlobalGraphProperties> properties;
};

} // namespace velora_scope
