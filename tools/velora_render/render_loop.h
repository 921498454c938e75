// Streams a source through the hosted plug-in into the output file, one block
// at a time, so that memory stays the same whatever the length.
#pragma once

#include "audio_file.h"
#include "audio_source.h"
#include "host_session.h"
#include "pan_curve.h"
#include "progress.h"
#include "stereo_stats.h"

namespace velora_render {

// The pan is sent per block as its value at the block's end; before the first
// block, two parameter flushes put the processor still on the start angle.
// A caught interruption ends the render with a runtime failure.
void renderThrough(AudioSource& source, HostSession& session, const PanCurve& pan,
                   OutputFile& output, int blockSize, StereoStats& levels, Progress& progress);

} // namespace velora_render
