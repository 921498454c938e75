// How the pan moves over a render, from the pan options, the source's length
// and the plug-in's own angle, with a description for the report.
#pragma once

#include "audio_source.h"
#include "host_session.h"
#include "options.h"
#include "pan_curve.h"

#include <string>

namespace velora_render {

struct PanChoice
{
	PanCurve curve;
	std::string description;
};

// Without a pan option, the test signal (`testSignal`) is swept unless a
// state was loaded; a file keeps the plug-in's angle.
PanChoice choosePan(const Options& options, bool testSignal, const AudioSource& source,
                    const HostSession& session);

} // namespace velora_render
