#include "scope_input.h"

#include "failure.h"
#include "spectral_peaks.h"
#include "spectrum_analyser.h"
#include "spectrum_failure.h"

#include <cstdio>

namespace velora_scope {

std::vector<velora_spectrum::ChannelSpectrum> analyseFiles(const ScopeOptions& options)
{
	std::vector<velora_spectrum::ChannelSpectrum> spectra;
	try
	{
		const velora_spectrum::SpectrumAnalyser analyser(options.analysis);
		for (const auto& file : options.files)
		{
			auto channels = analyser.analyse(file);
			spectra.insert(spectra.end(), channels.begin(), channels.end());
		}
	}
	catch (const velora_spectrum::SpectrumFailure& failure)
	{
		throw velora_render::runtimeError(failure.what());
	}
	return spectra;
}

void printPeaks(const std::vector<velora_spectrum::ChannelSpectrum>& spectra, int count)
{
	for (const auto& spectrum : spectra)
		for (const auto& peak : velora_spectrum::findPeaks(spectrum, count))
			std::printf("%s\t%.2f Hz\t%.2f dB\n", spectrum.label.c_str(), peak.frequencyHz,
			            peak.levelDb);
}

} // namespace velora_scope
