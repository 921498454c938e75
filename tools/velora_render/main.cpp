// velora-render: renders audio through the Torvik Velora VST3 plug-in from the
// command line, hosting it as a DAW does. See --help.
#include "audio_file.h"
#include "automation_file.h"
#include "bundle_location.h"
#include "failure.h"
#include "host_session.h"
#include "interruption.h"
#include "numbers.h"
#include "options.h"
#include "output_format.h"
#include "pending_file.h"
#include "progress.h"
#include "render_loop.h"
#include "report.h"
#include "state_file.h"
#include "test_signal.h"

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>

namespace velora_render {
namespace {

void notice(const Options& options, const std::string& text)
{
	if (!options.quiet)
		std::fprintf(stderr, "velora-render: %s\n", text.c_str());
}

std::unique_ptr<AudioSource> openSource(const Options& options)
{
	if (options.inputPath.empty())
		return std::make_unique<TestSignal>();
	auto file = std::make_unique<InputFile>(options.inputPath);
	if (file->channels() > 1)
		notice(options, "'" + options.inputPath + "' has " + std::to_string(file->channels()) +
		                    " channels; mixing them to mono for the plug-in's one input");
	return file;
}

struct PanChoice
{
	PanCurve curve;
	std::string description;
};

PanChoice choosePan(const Options& options, const AudioSource& source, const HostSession& session)
{
	const PanOption& pan = options.pan;
	switch (pan.kind)
	{
	case PanOption::Kind::constant:
		return {PanCurve::constant(pan.from), "constant " + formatNumber(pan.from) + " degrees"};
	case PanOption::Kind::sweep:
		return {PanCurve::line(pan.from, pan.to,
		                       static_cast<double>(source.frames()) / source.sampleRate()),
		        "sweep " + formatNumber(pan.from) + " to " + formatNumber(pan.to) + " degrees"};
	case PanOption::Kind::automation:
	{
		PanCurve curve = readAutomation(pan.automationPath);
		const std::string points = std::to_string(curve.size());
		return {std::move(curve), "automation " + pan.automationPath + " (" + points +
		                              (curve.size() == 1 ? " point)" : " points)")};
	}
	case PanOption::Kind::none:
		break;
	}
	if (options.inputPath.empty() && options.loadStatePath.empty())
		return {PanCurve::line(-90.0, 90.0, TestSignal::kSeconds), "sweep -90 to 90 degrees"};
	const double degrees = session.panDegrees();
	std::string text = "constant " + formatNumber(degrees) + " degrees";
	if (!options.loadStatePath.empty())
		text += " (restored from " + options.loadStatePath + ")";
	return {PanCurve::constant(degrees), text};
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
	const OutputFormat named = outputFormatFor(options.outputPath, options.encoding);
	catchInterruptions();

	// Everything that can be refused is checked before anything is written.
	auto source = openSource(options);
	const OutputFormat format = formatForLength(named, source->frames());
	if (format.sndfileFormat != named.sndfileFormat)
		notice(options, "'" + options.outputPath + "' is written as " + format.description);
	const std::vector<char> record =
	    options.loadStatePath.empty() ? std::vector<char>() : readStateFile(options.loadStatePath);
	const std::string bundle =
	    options.pluginPath.empty() ? defaultBundlePath() : options.pluginPath;
	HostSession session(bundle);
	if (!options.loadStatePath.empty() && !session.restoreState(record))
		throw runtimeError("'" + options.loadStatePath + "' is not a saved state of " +
		                   session.pluginName());
	const PanChoice pan = choosePan(options, *source, session);

	session.start(source->sampleRate(), options.blockSize);
	OutputFile output(options.outputPath, format, source->sampleRate());
	std::optional<PendingFile> stateOut;
	if (!options.saveStatePath.empty())
		stateOut.emplace(options.saveStatePath, "state");

	RenderReport report;
	Progress progress(!options.quiet, source->frames(), source->sampleRate());
	const auto started = std::chrono::steady_clock::now();
	renderThrough(*source, session, pan.curve, output, options.blockSize, report.levels,
	              [&progress](std::int64_t done) { progress.update(done); });
	report.elapsedSeconds =
	    std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
	progress.finish();
	session.stop();

	if (stateOut)
		writeState(*stateOut, session);
	output.commit();
	if (stateOut)
		stateOut->commit();

	if (output.holdsIntegers() && (report.levels.peak(0) > 1.0 || report.levels.peak(1) > 1.0))
		notice(options,
		       "the output went past full scale and was clipped to fit " + format.description);
	if (options.quiet)
		return;
	report.input = source->description();
	report.output = options.outputPath + " (" + format.description + ")";
	report.plugin = session.pluginName() + " (" + bundle + ")";
	report.pan = pan.description;
	report.sampleRate = source->sampleRate();
	report.blockSize = options.blockSize;
	printReport(stdout, report);
}

int run(int argc, const char* const* argv)
{
	const Options options = parseArguments(argc, argv);
	if (options.help)
		std::fputs(usageText().c_str(), stdout);
	else if (options.version)
		std::printf("velora-render %s\n", VELORA_VERSION);
	else
		render(options);
	return 0;
}

} // namespace
} // namespace velora_render

int main(int argc, char** argv)
{
	try
	{
		return velora_render::run(argc, argv);
	}
	catch (const velora_render::Failure& failure)
	{
		std::fprintf(stderr, "velora-render: %s\n", failure.what());
		return failure.status();
	}
	catch (const std::exception& error)
	{
		std::fprintf(stderr, "velora-render: %s\n", error.what());
		return velora_render::kExitRuntime;
	}
}
