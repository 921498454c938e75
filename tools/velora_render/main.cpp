// velora-render: renders audio through the Torvik Velora VST3 plug-in from the
// command line, hosting it as a DAW does. See --help.
#include "batch_render.h"
#include "bundle_location.h"
#include "failure.h"
#include "file_render.h"
#include "host_session.h"
#include "interruption.h"
#include "options.h"
#include "pending_file.h"
#include "progress.h"
#include "report.h"
#include "run_tool.h"
#include "spectrum_plot.h"
#include "state_file.h"

#include <cstdio>
#include <optional>

namespace velora_render {
namespace {

void notice(const Options& options, const std::string& text)
{
	if (!options.quiet)
		std::fprintf(stderr, "velora-render: %s\n", text.c_str());
}

// The processor's record into the pending state file; refused when the
// plug-in saves nothing.
void writeState(PendingFile& file, HostSession& session)
{
	const std::vector<char> saved = session.saveState();
	if (saved.empty())
		throw runtimeError("the plug-in saved no state; '" + file.target() + "' was not written");
	file.write(saved.data(), saved.size());
}

void render(const Options& options)
{
	catchInterruptions();

	// Everything that can be refused is checked before anything is written.
	const std::string input = options.inputPaths.empty() ? "" : options.inputPaths.front();
	std::optional<std::vector<char>> record;
	if (!options.loadStatePath.empty())
		record = readStateFile(options.loadStatePath);
	const std::string bundle = bundlePathFor(options.pluginPath);
	HostSession session(bundle);
	FileRender file(options, input, options.outputPath, record, session);
	for (const std::string& text : file.notices())
		notice(options, text);
	std::optional<PendingFile> stateOut;
	if (!options.saveStatePath.empty())
		stateOut.emplace(options.saveStatePath, "state");
	std::optional<PendingFile> plotOut;
	if (!options.plotPath.empty())
		plotOut.emplace(options.plotPath, "plot");

	const AudioSource& source = file.source();
	Progress progress(!options.quiet, options.progress, source.frames(), source.sampleRate());
	file.run([&progress](std::int64_t done) { progress.update(done); });
	progress.finish();

	if (stateOut)
		writeState(*stateOut, session);
	file.commit();
	if (stateOut)
		stateOut->commit();
	if (plotOut)
		writeSpectrumPlot(*plotOut, options, file.panDescription());

	if (file.clipped())
		notice(options, "the output went past full scale and was clipped to fit " +
		                    file.format().description);
	if (options.quiet)
		return;
	RenderReport report;
	report.input = source.description();
	report.output = options.outputPath + " (" + file.format().description + ")";
	report.plugin = session.pluginName() + " (" + bundle + ")";
	report.pan = file.panDescription();
	report.sampleRate = source.sampleRate();
	report.blockSize = options.blockSize;
	report.elapsedSeconds = file.seconds();
	report.levels = file.levels();
	printReport(stdout, report);
}

int run(int argc, const char* const* argv)
{
	const Options options = parseArguments(argc, argv);
	if (options.help)
		std::fputs(usageText().c_str(), stdout);
	else if (options.version)
		std::printf("velora-render %s\n", VELORA_VERSION);
	else if (isBatch(options))
		return renderBatch(options);
	else
		render(options);
	return 0;
}

} // namespace
} // namespace velora_render

int main(int argc, char** argv)
{
	return velora_render::runTool("velora-render", velora_render::run, argc, argv);
}
