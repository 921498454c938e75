// Pan automation files: one "seconds degrees" point per line, in time order;
// '#' starts a comment, blank lines are skipped.
#pragma once

#include "pan_curve.h"

#include <istream>
#include <string>

namespace velora_render {

// Reads the points; a runtime failure names the file and line of the first
// fault ("moves.txt:3: ...").
PanCurve readAutomation(const std::string& path);
PanCurve parseAutomation(std::istream& in, const std::string& name);

} // namespace velora_render
