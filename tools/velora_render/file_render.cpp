#include "file_render.h"

#include "failure.h"
#include "test_signal.h"

#include <chrono>

namespace velora_render {
namespace {

std::unique_ptr<AudioSource> openSource(const std::string& path, std::vector<std::string>& notices)
{
	if (path.empty())
		return std::make_unique<TestSignal>();
	auto file = std::make_unique<InputFile>(path);
	if (file->channels() > 1)
		notices.push_back("'" + path + "' has " + std::to_string(file->channels()) +
		                  " channels; mixing them to mono for the plug-in's one input");
	return file;
}

} // namespace

FileRender::FileRender(const Options& options, const std::string& inputPath,
                       const std::string& outputPath,
                       const std::optional<std::vector<char>>& stateRecord, HostSession& host)
: session(host),
  blockSize(options.blockSize),
  input(openSource(inputPath, messages))
{
	const OutputFormat named = outputFormatFor(outputPath, options.encoding);
	outputFormat = formatForLength(named, input->frames());
	if (outputFormat.sndfileFormat != named.sndfileFormat)
		messages.push_back("'" + outputPath + "' is written as " + outputFormat.description);
	if (stateRecord && !session.restoreState(*stateRecord))
		throw runtimeError("'" + options.loadStatePath + "' is not a saved state of " +
		                   session.pluginName());
	pan = choosePan(options, inputPath.empty(), *input, session);
	output.emplace(outputPath, outputFormat, input->sampleRate());
	// Last: a constructor that fails after this would leave the session started.
	session.start(input->sampleRate(), blockSize);
}

FileRender::~FileRender()
{
	session.stop();
}

void FileRender::run(const RenderProgress& progress)
{
	const auto started = std::chrono::steady_clock::now();
	renderThrough(*input, session, pan->curve, *output, blockSize, stats, progress);
	elapsed = std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
	session.stop();
}

void FileRender::commit()
{
	output->commit();
}

bool FileRender::clipped() const
{
	return output->holdsIntegers() && (stats.peak(0) > 1.0 || stats.peak(1) > 1.0);
}

} // namespace velora_render
