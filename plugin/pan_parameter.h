// The pan parameter as the host sees it: the angle in degrees, automatable.
// The controller publishes it and the processor keeps its own copy.
#pragma once

#include "public.sdk/source/vst/vstparameters.h"

namespace Steinberg {
namespace Vst {

class PanParameter : public RangeParameter
{
public:
	PanParameter();
};

} // namespace Vst
} // namespace Steinberg
