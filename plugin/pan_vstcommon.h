// The module's common static data: class identifiers, class-table strings and
// the pan parameter, shared by the factory, processor, controller, editor and
// self-test.
#pragma once

#include "pluginterfaces/base/funknown.h"
#include "pluginterfaces/vst/vsttypes.h"

namespace Steinberg {
namespace Vst {

// The three classes' identifiers, each one object in the module, built by a
// static initialiser when the module loads.
inline const FUID NxVeloraProcessorUID(0xC356A247, 0xA696417F, 0xBA6DB95A, 0x1B8DDC69);
inline const FUID NxVeloraControllerUID(0x79E776E5, 0xECD64C06, 0xBB7F0A47, 0x69541053);
inline const FUID NxVeloraTestFactoryUID(0x74731DBC, 0x99E64A00, 0x91362418, 0xE7301087);

constexpr const char* kVeloraVersion = "1.0.1.1";
constexpr const char* kVeloraSdkVersion = "VST 3.6.0";

// The one parameter: the pan angle in degrees.
constexpr ParamID kPanParamId = 100;
constexpr double kPanMinDegrees = -90.0;
constexpr double kPanMaxDegrees = 90.0;
constexpr double kPanDefaultDegrees = 0.0;

} // namespace Vst
} // namespace Steinberg
