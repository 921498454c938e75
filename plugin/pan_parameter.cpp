#include "pan_parameter.h"

#include "pan_vstcommon.h"

namespace Steinberg {
namespace Vst {

// Continuous, though flagged as a list: hosts have always seen it so.
PanParameter::PanParameter()
: RangeParameter(STR16("Pan"), kPanParamId, STR16(""), kPanMinDegrees, kPanMaxDegrees,
                 kPanDefaultDegrees, 0, ParameterInfo::kCanAutomate | ParameterInfo::kIsList,
                 kRootUnitId)
{}

} // namespace Vst
} // namespace Steinberg
