// Streams a source through the hosted plug-in into the output file. The file
// is read and written in chunks of many blocks, a system call each, and the
// plug-in runs block by block inside them, so that memory stays the same
// whatever the length.
#pragma once

#include "audio_file.h"
#include "audio_source.h"
#include "host_session.h"
#include "pan_curve.h"
#include "stereo_stats.h"

#include <cstdint>
#include <functional>

namespace velora_render {

// Called after every chunk with the frames rendered so far.
using RenderProgress = std::function<void(std::int64_t framesDone)>;

// The pan is sent per block as its value at the block's end; before the first
// block, two parameter flushes put the processor still on the start angle.
// A caught interruption ends the render with a runtime failure.
void renderThrough(AudioSource& source, HostSession& session, const PanCurve& pan,
                   OutputFile& output, int blockSize, StereoStats& levels,
                   const RenderProgress& progress);

} // namespace velora_render
