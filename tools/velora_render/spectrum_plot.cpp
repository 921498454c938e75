#include "spectrum_plot.h"

#include "failure.h"
#include "graph_toolkit.h"
#include "spectrum_analyser.h"
#include "spectrum_failure.h"
#include "spectrum_picture.h"
#include "test_signal.h"

#include <vector>

namespace velora_render {
namespace {

constexpr int kWidth = 1000;
constexpr int kHeight = 600;

std::vector<velora_spectrum::ChannelSpectrum>
inputSpectra(const velora_spectrum::SpectrumAnalyser& analyser, const Options& options)
{
	if (!options.inputPaths.empty())
		return analyser.analyse(options.inputPaths.front());
	// The test signal is short and made on the fly: it is analysed in memory.
	TestSignal signal;
	std::vector<float> samples(static_cast<size_t>(signal.frames()));
	const int read = signal.read(samples.data(), static_cast<int>(samples.size()));
	return analyser.analyse(samples.data(), read, 1, signal.sampleRate(), "test signal");
}

} // namespace

void writeSpectrumPlot(PendingFile& plot, const Options& options, const std::string& panDescription)
{
	std::vector<velora_spectrum::ChannelSpectrum> spectra;
	try
	{
		const velora_spectrum::SpectrumAnalyser analyser;
		spectra = inputSpectra(analyser, options);
		const auto output = analyser.analyse(options.outputPath);
		spectra.insert(spectra.end(), output.begin(), output.end());
	}
	catch (const velora_spectrum::SpectrumFailure& failure)
	{
		throw runtimeError(failure.what());
	}
	const velora_scope::GraphToolkit toolkit;
	velora_scope::writePicture(
	    plot, velora_scope::spectrumPicture(spectra, "velora-render, pan " + panDescription, kWidth,
	                                        kHeight));
}

} // namespace velora_render
