// velora-render at scale, run as a user runs it (a child process), against
// references measured in the same run:
// - one 15-minute file (48 kHz mono 16-bit) against a plain conversion of it
//   to 32-bit float stereo: libsndfile's own read-and-write loop in chunks of
//   64k frames, its output fsynced as the renderer's is (goal: 1.2x or less);
// - a folder of 16 one-minute files (shorter than a quarter of an hour so that
//   the benchmark stays within minutes) with --jobs 2 against --jobs 1 (goal:
//   1.8x the files per second or more on 2 cores), rendered to 32-bit float
//   WAV, where each file's 23 MB written and fsynced make the disk the limit,
//   and to FLAC, where the work is the processor's; beside them, the plain
//   conversion of the same 16 files one after another, which is the floor the
//   disk sets for WAV whatever the number of workers;
// - the peak memory of the child for a one-hour file and, per worker, for the
//   folder with --jobs 2 (goal: under 32 MB each), and the one-hour file's
//   peak over the 15-minute file's (1.0 when memory does not grow with length).
#include "time_reporter.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sndfile.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kRate = 48000;
constexpr int kChunk = 65536;
constexpr int kRepetitions = 3;
constexpr int kFolderFiles = 16;
constexpr double kMegabyte = 1024.0 * 1024.0;
const char* const kFolderFormats[] = {"wav", "flac"};

fs::path scratch;

void writeMono16(const fs::path& path, double seconds)
{
	SF_INFO info = {};
	info.samplerate = kRate;
	info.channels = 1;
	info.format = SF_FORMAT_WAV | SF_FORMAT_PCM_16;
	SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
	std::vector<short> samples(kChunk);
	const auto frames = static_cast<sf_count_t>(seconds * kRate);
	for (sf_count_t start = 0; start < frames; start += kChunk)
	{
		const sf_count_t n = std::min<sf_count_t>(kChunk, frames - start);
		for (sf_count_t i = 0; i < n; ++i)
			samples[static_cast<std::size_t>(i)] =
			    static_cast<short>(12000.0 * std::sin(0.0576 * static_cast<double>(start + i)));
		sf_writef_short(file, samples.data(), n);
	}
	sf_close(file);
}

// The plain conversion: mono in, the same sample on both channels out.
void convert(const fs::path& in, const fs::path& out)
{
	SF_INFO info = {};
	SNDFILE* source = sf_open(in.c_str(), SFM_READ, &info);
	const int fd = open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
	SF_INFO outInfo = {};
	outInfo.samplerate = info.samplerate;
	outInfo.channels = 2;
	outInfo.format = SF_FORMAT_WAV | SF_FORMAT_FLOAT;
	SNDFILE* target = sf_open_fd(fd, SFM_WRITE, &outInfo, SF_FALSE);
	std::vector<float> mono(kChunk);
	std::vector<float> stereo(2 * kChunk);
	for (sf_count_t n; (n = sf_readf_float(source, mono.data(), kChunk)) > 0;)
	{
		for (sf_count_t i = 0; i < n; ++i)
			stereo[static_cast<std::size_t>(2 * i)] = stereo[static_cast<std::size_t>(2 * i + 1)] =
			    mono[static_cast<std::size_t>(i)];
		sf_writef_float(target, stereo.data(), n);
	}
	sf_close(target);
	fsync(fd);
	close(fd);
	sf_close(source);
}

// Runs velora-render with `args`; the child's peak resident memory in bytes.
double renderTool(const std::vector<std::string>& args)
{
	std::vector<char*> argv = {const_cast<char*>(VELORA_RENDER)};
	for (const auto& a : args)
		argv.push_back(const_cast<char*>(a.c_str()));
	argv.push_back(nullptr);
	const pid_t pid = fork();
	if (pid == 0)
	{
		execv(VELORA_RENDER, argv.data());
		_exit(127);
	}
	int status = 0;
	struct rusage usage = {};
	wait4(pid, &status, 0, &usage);
	if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
	{
		std::fprintf(stderr, "velora-render failed (status %d)\n", status);
		std::exit(1);
	}
	return static_cast<double>(usage.ru_maxrss) * 1024.0;
}

std::vector<std::string> fileRender(const std::string& input)
{
	return {"-q", "-i", (scratch / input).string(), "-o", (scratch / "rendered.wav").string()};
}

std::vector<std::string> folderRender(int jobs, const std::string& format)
{
	return {"-q",
	        "--in-dir",
	        (scratch / "folder").string(),
	        "--out-dir",
	        (scratch / "outputs").string(),
	        "--force",
	        "--jobs",
	        std::to_string(jobs),
	        "--format",
	        format};
}

void BM_Conversion(benchmark::State& state)
{
	for (auto _ : state)
		convert(scratch / "15min.wav", scratch / "converted.wav");
}

void BM_FolderConversion(benchmark::State& state)
{
	for (auto _ : state)
		for (int i = 0; i < kFolderFiles; ++i)
			convert(scratch / "folder" / ("file" + std::to_string(i) + ".wav"),
			        scratch / "converted.wav");
}

void BM_Render(benchmark::State& state)
{
	for (auto _ : state)
		renderTool(fileRender("15min.wav"));
}

void BM_Folder(benchmark::State& state, int jobs, const char* format)
{
	for (auto _ : state)
		renderTool(folderRender(jobs, format));
}

std::string folderName(int jobs, const std::string& format)
{
	return "folder_" + format + "_jobs" + std::to_string(jobs);
}

TimeReporter reporter;

double measured(const std::string& name)
{
	return reporter.nanoseconds(name + "/iterations:1/repeats:" + std::to_string(kRepetitions) +
	                            "/real_time");
}

void registerOnce(benchmark::internal::Benchmark* benchmark)
{
	benchmark->Iterations(1)
	    ->Repetitions(kRepetitions)
	    ->UseRealTime()
	    ->Unit(benchmark::kMillisecond);
}

} // namespace

int main(int argc, char** argv)
{
	const char* tmp = std::getenv("TMPDIR");
	std::string pattern = std::string(tmp ? tmp : "/tmp") + "/render-bench.XXXXXX";
	if (!mkdtemp(pattern.data()))
		return 1;
	scratch = pattern;
	writeMono16(scratch / "15min.wav", 15 * 60);
	writeMono16(scratch / "1h.wav", 3600);
	fs::create_directory(scratch / "folder");
	for (int i = 0; i < kFolderFiles; ++i)
		writeMono16(scratch / "folder" / ("file" + std::to_string(i) + ".wav"), 60);

	registerOnce(benchmark::RegisterBenchmark("conversion_15min", BM_Conversion));
	registerOnce(benchmark::RegisterBenchmark("render_15min", BM_Render));
	registerOnce(benchmark::RegisterBenchmark("conversion_folder", BM_FolderConversion));
	for (const char* format : kFolderFormats)
		for (int jobs : {1, 2})
			registerOnce(benchmark::RegisterBenchmark(folderName(jobs, format).c_str(), BM_Folder,
			                                          jobs, format));
	benchmark::Initialize(&argc, argv);
	benchmark::RunSpecifiedBenchmarks(&reporter);

	const double quarterPeak = renderTool(fileRender("15min.wav"));
	const double hourPeak = renderTool(fileRender("1h.wav"));
	const double folderPeak = renderTool(folderRender(2, "wav"));
	const double conversion = measured("conversion_15min");
	const double render = measured("render_15min");
	if (conversion > 0 && render > 0)
		std::printf("\n15-minute file: render / plain conversion (fsynced): %.2fx (goal <= 1.2)\n",
		            render / conversion);
	for (const char* format : kFolderFormats)
	{
		const double jobs1 = measured(folderName(1, format));
		const double jobs2 = measured(folderName(2, format));
		if (jobs1 > 0 && jobs2 > 0)
			std::printf("%d one-minute files to %s: files per second --jobs 2 / --jobs 1: %.2fx "
			            "(goal >= 1.8)\n",
			            kFolderFiles, format, jobs1 / jobs2);
	}
	const double folderConversion = measured("conversion_folder");
	const double folderWav = measured(folderName(2, "wav"));
	if (folderConversion > 0 && folderWav > 0)
		std::printf("%d one-minute files to wav: --jobs 2 / plain conversions one after another: "
		            "%.2fx (the disk's floor when near 1)\n",
		            kFolderFiles, folderWav / folderConversion);
	std::printf("peak memory: 1-hour file %.1f MB, per worker of --jobs 2 %.1f MB (goal < 32); "
	            "1 hour / 15 minutes: %.2fx\n",
	            hourPeak / kMegabyte, folderPeak / 2 / kMegabyte, hourPeak / quarterPeak);
	// Speed-ups from a second worker need a second core that is free.
	double load[1] = {0.0};
	if (getloadavg(load, 1) == 1)
		std::printf("load average over the last minute: %.2f on %ld processors\n", load[0],
		            sysconf(_SC_NPROCESSORS_ONLN));
	fs::remove_all(scratch);
	benchmark::Shutdown();
	return 0;
}
