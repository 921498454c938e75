// velora-scope: shows the spectra of audio files in a window of the graph
// toolkit, draws them to a picture, or prints their peaks. See --help.
#include "failure.h"
#include "graph_toolkit.h"
#include "pending_file.h"
#include "run_tool.h"
#include "scope_input.h"
#include "scope_options.h"
#include "scope_window.h"
#include "spectrum_picture.h"
#include "spectrum_traces.h"

#include <cstdio>

namespace velora_scope {
namespace {

std::string titleFor(const ScopeOptions& options)
{
	std::string title = "velora-scope:";
	for (const auto& file : options.files)
		title += " " + file;
	return title;
}

void show(const ScopeOptions& options, const std::vector<velora_spectrum::ChannelSpectrum>& spectra)
{
	const GraphToolkit toolkit;
	const std::string title = titleFor(options);
	if (!options.pngPath.empty())
	{
		velora_render::PendingFile picture(options.pngPath, "picture");
		writePicture(picture, spectrumPicture(spectra, title, options.width, options.height));
		return;
	}
	const SpectrumTraces traces(spectra);
	ScopeWindow window(traces, title, options.width, options.height);
	if (!window.problem().empty())
		throw velora_render::runtimeError(window.problem());
	window.run();
}

int run(int argc, const char* const* argv)
{
	const ScopeOptions options = parseScopeArguments(argc, argv);
	if (options.help)
		std::fputs(scopeUsageText().c_str(), stdout);
	else if (options.version)
		std::printf("velora-scope %s\n", VELORA_VERSION);
	else
	{
		const auto spectra = analyseFiles(options);
		if (options.peaks > 0)
			printPeaks(spectra, options.peaks);
		else
			show(options, spectra);
	}
	return 0;
}

} // namespace
} // namespace velora_scope

int main(int argc, char** argv)
{
	return velora_render::runTool("velora-scope", velora_scope::run, argc, argv);
}
