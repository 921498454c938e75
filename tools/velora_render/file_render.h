// One input rendered into one output file by a hosted plug-in: what can be
// refused is checked when it is made, the audio goes through in run, and the
// output takes its name only in commit. The session is stopped again when the
// render ends, however it ends, so that it can take the next file.
#pragma once

#include "audio_file.h"
#include "audio_source.h"
#include "host_session.h"
#include "options.h"
#include "output_format.h"
#include "pan_choice.h"
#include "render_loop.h"
#include "stereo_stats.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velora_render {

class FileRender
{
public:
	// `input` empty: the built-in test signal; no `stateRecord`: the plug-in
	// as it is. Runtime failures: the input, the record, the output.
	FileRender(const Options& options, const std::string& input, const std::string& output,
	           const std::optional<std::vector<char>>& stateRecord, HostSession& session);
	~FileRender();
	FileRender(const FileRender&) = delete;
	FileRender& operator=(const FileRender&) = delete;

	void run(const RenderProgress& progress);
	void commit();

	const AudioSource& source() const { return *input; }
	const OutputFormat& format() const { return outputFormat; }
	const std::string& panDescription() const { return pan->description; }
	const StereoStats& levels() const { return stats; }
	double seconds() const { return elapsed; }
	// Integer samples that went past full scale were clipped.
	bool clipped() const;
	// What a user may want to know: mixed channels, a format changed for length.
	const std::vector<std::string>& notices() const { return messages; }

private:
	HostSession& session;
	int blockSize;
	std::vector<std::string> messages;
	std::unique_ptr<AudioSource> input;
	OutputFormat outputFormat;
	std::optional<PanChoice> pan; // chosen once a state is restored
	std::optional<OutputFile> output;
	StereoStats stats;
	double elapsed = 0.0;
};

} // namespace velora_render
