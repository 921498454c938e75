#include "report.h"

namespace velora_render {
namespace {

void printChannel(std::FILE* out, const char* name, const StereoStats& levels, int channel)
{
	std::fprintf(out, "%-13s peak %s dBFS, RMS %s dBFS\n", name, dbfs(levels.peak(channel)).c_str(),
	             dbfs(levels.rms(channel)).c_str());
}

} // namespace

void printReport(std::FILE* out, const RenderReport& report)
{
	const double audioSeconds =
	    report.sampleRate > 0.0 ? static_cast<double>(report.levels.frames()) / report.sampleRate
	                            : 0.0;
	std::fprintf(out, "%-13s %s\n", "input:", report.input.c_str());
	std::fprintf(out, "%-13s %s\n", "output:", report.output.c_str());
	std::fprintf(out, "%-13s %s\n", "plug-in:", report.plugin.c_str());
	std::fprintf(out, "%-13s %s\n", "pan:", report.pan.c_str());
	std::fprintf(out, "%-13s %lld (%.3f s)\n",
	             "frames:", static_cast<long long>(report.levels.frames()), audioSeconds);
	std::fprintf(out, "%-13s %.0f Hz\n", "sample rate:", report.sampleRate);
	std::fprintf(out, "%-13s %d frames\n", "block size:", report.blockSize);
	if (report.elapsedSeconds > 0.0)
		std::fprintf(out, "%-13s %.3f s (%.1fx real time)\n", "time:", report.elapsedSeconds,
		             audioSeconds / report.elapsedSeconds);
	else
		std::fprintf(out, "%-13s %.3f s\n", "time:", report.elapsedSeconds);
	printChannel(out, "left:", report.levels, 0);
	printChannel(out, "right:", report.levels, 1);
	if (const auto r = report.levels.correlation())
		std::fprintf(out, "%-13s %.3f\n", "correlation:", *r);
	else
		std::fprintf(out, "%-13s undefined (a channel is silent)\n", "correlation:");
}

} // namespace velora_render
