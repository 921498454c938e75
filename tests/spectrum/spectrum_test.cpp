// The analysis against signals of known frequency and power made here, and
// against what it cannot analyse.
#include "spectral_peaks.h"
#include "spectrum_analyser.h"
#include "spectrum_failure.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>
#include <sndfile.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <random>
#include <tuple>

namespace velora_spectrum {
namespace {

using Signal = std::function<double(std::int64_t frame, int channel)>;

double sine(std::int64_t i, int rate, double hz, double db)
{
	return std::pow(10.0, db / 20.0) * std::sin(2.0 * M_PI * hz * static_cast<double>(i) / rate);
}

class SpectrumTest : public ::testing::Test
{
protected:
	// A file of `frames` frames written a second at a time: the memory test's
	// child would otherwise inherit the whole file's samples.
	std::string write(const std::string& name, std::int64_t frames, int rate, int channels,
	                  const Signal& signal, int format = SF_FORMAT_WAV | SF_FORMAT_FLOAT)
	{
		const std::string path = scratch.path(name);
		SF_INFO info = {0, rate, channels, format, 0, 0};
		SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
		EXPECT_NE(file, nullptr) << sf_strerror(nullptr);
		std::vector<float> block; // a second at a time
		for (std::int64_t i = 0; file && i < frames; ++i)
		{
			for (int c = 0; c < channels; ++c)
				block.push_back(static_cast<float>(signal(i, c)));
			const auto n = static_cast<sf_count_t>(block.size());
			if (i + 1 == frames || n == rate * channels)
			{
				EXPECT_EQ(sf_write_float(file, block.data(), n), n);
				block.clear();
			}
		}
		sf_close(file);
		return path;
	}

	velora_test::TempFolder scratch;
};

TEST_F(SpectrumTest, TonesReadAtTheirFrequencyAndLevelInTheirOwnChannel)
{
	const struct
	{
		int rate, fftSize, format;
		double leftHz, leftDb, rightHz, rightDb;
	} table[] = {
	    {44100, 1024, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 1000.0, 0.0, 5512.5, 0.0},
	    {48000, 8192, SF_FORMAT_WAV | SF_FORMAT_FLOAT, 997.3, -3.0, 15001.7, -40.0},
	    {96000, 65536, SF_FORMAT_WAV | SF_FORMAT_PCM_24, 12345.6, -20.0, 40.2, -1.0},
	    {8000, 64, SF_FORMAT_FLAC | SF_FORMAT_PCM_16, 1234.5, -10.0, 3210.9, -12.0},
	};
	for (const auto& t : table)
	{
		const std::string path = write(
		    "tones.wav", std::max(3 * t.rate, 4 * t.fftSize), t.rate, 2,
		    [&](std::int64_t i, int c) {
			    return c ? sine(i, t.rate, t.rightHz, t.rightDb)
			             : sine(i, t.rate, t.leftHz, t.leftDb);
		    },
		    t.format);
		const auto spectra = SpectrumAnalyser({t.fftSize}).analyse(path);
		const double bin = double(t.rate) / t.fftSize;
		const double hz[] = {t.leftHz, t.rightHz}, db[] = {t.leftDb, t.rightDb};
		for (int c = 0; c < 2; ++c)
		{
			const auto peak = findPeaks(spectra.at(c), 1).at(0);
			EXPECT_NEAR(peak.frequencyHz, hz[c], 0.1 * bin) << spectra[c].label;
			EXPECT_NEAR(peak.levelDb, db[c], 0.1) << spectra[c].label;
		}
	}
}

TEST_F(SpectrumTest, WhiteNoiseReadsItsPower)
{
	for (const auto& [fftSize, rms] : {std::pair{256, 0.3}, {8192, 0.01}})
	{
		std::mt19937 rng(7);
		std::normal_distribution<double> normal(0.0, rms);
		const auto spectra = SpectrumAnalyser({fftSize}).analyse(write(
		    "noise.wav", 10 * 48000, 48000, 1, [&](std::int64_t, int) { return normal(rng); }));
		double sum = 0.0;
		for (int k = 1; k < fftSize / 2; ++k)
			sum += std::pow(10.0, spectra[0].levelDb[k] / 10.0);
		// A sine reads as its amplitude squared, twice its mean square; a Hann
		// window passes noise from 1.5 bins into each bin.
		const double expected = 2.0 * rms * rms * 1.5 / (fftSize / 2);
		EXPECT_NEAR(10.0 * std::log10(sum / (fftSize / 2 - 1) / expected), 0.0, 0.5);
	}
}

TEST_F(SpectrumTest, APartOfTheFileIsAnalysedAlone)
{
	// 1 kHz for two seconds, then 3 kHz.
	const std::string path = write("switch.wav", 4 * 8000, 8000, 1, [](std::int64_t i, int) {
		return std::sin(2.0 * M_PI * (i < 16000 ? 1000.0 : 3000.0) * i / 8000);
	});
	for (const auto& [from, to, hz] : {std::tuple{0.0, 2.0, 1000.0}, {2.5, INFINITY, 3000.0}})
	{
		const auto peaks = findPeaks(SpectrumAnalyser({256, from, to}).analyse(path)[0], 2);
		EXPECT_NEAR(peaks[0].frequencyHz, hz, 3.0) << from;
		EXPECT_LT(peaks[1].levelDb, peaks[0].levelDb - 100.0) << from;
	}
}

TEST_F(SpectrumTest, PeaksComeStrongestFirstAndSilenceHasNone)
{
	const std::string path = write("three.wav", 48000, 48000, 1, [](std::int64_t i, int) {
		return sine(i, 48000, 500.5, -20.0) + sine(i, 48000, 7000.0, -3.0) +
		       sine(i, 48000, 2000.0, -9.0);
	});
	const auto peaks = findPeaks(SpectrumAnalyser({4096}).analyse(path)[0], 3);
	const double strongestFirst[] = {7000.0, 2000.0, 500.5};
	for (std::size_t i = 0; i < 3; ++i)
		EXPECT_NEAR(peaks.at(i).frequencyHz, strongestFirst[i], 1.0);

	const std::vector<float> silence(1000, 0.0f);
	const auto quiet = SpectrumAnalyser({1024}).analyse(silence.data(), 1000, 1, 48000, "")[0];
	EXPECT_EQ(quiet.levelDb, std::vector<double>(513, -200.0));
	EXPECT_TRUE(findPeaks(quiet, 5).empty());
}

TEST_F(SpectrumTest, WhatCannotBeAnalysedSaysWhyInOneLine)
{
	std::ofstream(scratch.path("text.wav")) << "not audio\n";
	write("no_frames.wav", 0, 8000, 1, nullptr);
	write("short.wav", 800, 8000, 1, [](std::int64_t, int) { return 0.5; });
	write("nan.wav", 800, 8000, 1, [](std::int64_t, int) { return NAN; });
	const std::pair<const char*, SpectrumOptions> table[] = {
	    {"missing.wav", {}}, {"text.wav", {}}, {"no_frames.wav", {}},
	    {"nan.wav", {}},     {"", {}},         {"short.wav", {1024, 0.2}}};
	for (const auto& [name, options] : table)
	{
		const std::string path = scratch.path(name);
		try
		{
			SpectrumAnalyser(options).analyse(path);
			ADD_FAILURE() << path;
		}
		catch (const SpectrumFailure& failure)
		{
			const std::string message = failure.what();
			EXPECT_NE(message.find("'" + path + "'"), std::string::npos) << message;
			EXPECT_EQ(message.find('\n'), std::string::npos) << message;
		}
	}
	const SpectrumOptions unusable[] = {{1000}, {8}, {1 << 20}, {1024, -1.0}, {1024, 2.0, 1.0}};
	for (const auto& options : unusable)
		EXPECT_THROW(SpectrumAnalyser{options}, SpectrumFailure) << options.fftSize;
}

// The peak memory of a child process that analyses the file, in KiB.
long peakKbAnalysing(const std::string& path)
{
	const pid_t child = fork();
	if (child == 0)
		_exit(SpectrumAnalyser().analyse(path).size() == 1 ? 0 : 1);
	int status = 0;
	rusage usage = {};
	EXPECT_EQ(wait4(child, &status, 0, &usage), child);
	EXPECT_EQ(status, 0);
	return usage.ru_maxrss;
}

TEST_F(SpectrumTest, TenMinutesTakeNoMoreMemoryThanTenSeconds)
{
	// Ten minutes at 8 kHz held in memory would take over 18 MiB of floats.
	const auto noise = [](std::int64_t i, int) { return std::sin(double(i * i % 1009)); };
	const long shortKb = peakKbAnalysing(
	    write("short.wav", 10 * 8000, 8000, 1, noise, SF_FORMAT_WAV | SF_FORMAT_PCM_16));
	const long longKb = peakKbAnalysing(
	    write("long.wav", 600 * 8000, 8000, 1, noise, SF_FORMAT_WAV | SF_FORMAT_PCM_16));
	std::printf("peak memory: %ld KiB for ten seconds, %ld KiB for ten minutes\n", shortKb, longKb);
	EXPECT_LT(longKb, shortKb + 1024);
}

} // namespace
} // namespace velora_spectrum
