// Where the editor's parts sit, in pixels from the window's top left corner.
// The editor places its controls by it; the picture tool draws the panel and
// the knob to fit. Plain numbers, so that the tool needs no VSTGUI.
#pragma once

namespace Steinberg {
namespace Vst {
namespace EditorLayout {

struct Box
{
	double left, top, right, bottom;
};

// The two pictures: the panel sets the window's size, the knob picture the
// knob control's.
constexpr int kPanelWidth = 240;
constexpr int kPanelHeight = 150;
constexpr int kKnobSize = 64;

// The knob control sits centred on this point.
constexpr double kKnobCentreX = 49;
constexpr double kKnobCentreY = 94;
// The knob's pointer turns through 270 degrees clockwise from the lower left
// (radians from the positive x axis, y pointing down); the panel's scale is
// printed along the same sweep.
constexpr double kKnobStartAngle = 0.75 * 3.14159265358979323846;
constexpr double kKnobRangeAngle = 1.5 * 3.14159265358979323846;

// The angle's value display and the word "degrees" beside it.
constexpr Box kDisplayBox{110, 82, 160, 106};
constexpr Box kLabelBox{170, 82, 225, 106};

} // namespace EditorLayout
} // namespace Vst
} // namespace Steinberg
