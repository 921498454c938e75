// Many files in one call: the batch's files rendered in parallel on the
// framework's thread pool, each worker with a plug-in instance of its own.
// Files that are up to date are skipped, one that fails is reported and does
// not stop the others, and an interruption lets the files being rendered go
// (leaving nothing of them) while those finished stay.
#pragma once

#include "options.h"

namespace velora_render {

// The exit status: 0 when every file rendered or was up to date, 1 when any
// failed. Usage failures come before any work; an interruption ends with a
// failure that says how far the batch came and how to resume it.
int renderBatch(const Options& options);

} // namespace velora_render
