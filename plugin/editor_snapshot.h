// Renders the editor offscreen, without a window: VSTGUI draws the frame
// into a cairo bitmap, which comes back as PNG bytes. Used by the picture
// tool and by tests.
#pragma once

#include <string>
#include <vector>

namespace Steinberg {
namespace Vst {

// Prepares VSTGUI for drawing outside a host: the module's initialisers run
// and the editor's pictures are looked up in resourceDir.
void initEditorGraphics(const std::string& resourceDir);
void exitEditorGraphics();

// The editor's picture as PNG, one panel per pan angle in degrees, side by
// side: the editor opens at the first angle, and the host sets each next one
// while it stays open, each panel drawn after the editor's idle tick. Empty
// on failure.
std::vector<unsigned char> renderEditorPng(const std::vector<double>& degrees);

} // namespace Vst
} // namespace Steinberg
