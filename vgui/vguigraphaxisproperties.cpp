#include "vgui/vguigraphaxisproperties.h"

namespace {

// Labels of a horizontal axis sit side by side and need a wider gap than
// the stacked labels of a vertical one.
constexpr VGuiGraphAxisAttributes kHorizontal{5.0f, 3.0f, 3.0f, 16.0f};
constexpr VGuiGraphAxisAttributes kVertical{5.0f, 3.0f, 4.0f, 8.0f};

} // namespace

VGuiGraphAxisProperties::VGuiGraphAxisProperties()
: titleFont("Arial", 12.0, VSTGUI::kBoldFace),
  labelFont("Arial", 10.0, VSTGUI::kNormalFace),
  horizontal(kHorizontal),
  vertical(kVertical)
{}
