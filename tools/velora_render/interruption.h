// Ctrl-C and termination requests end a render between two blocks, so that
// the pending output is removed instead of left half written.
#pragma once

namespace velora_render {

void catchInterruptions();
// The signal that asked the render to stop, or 0.
int interruption();

} // namespace velora_render
