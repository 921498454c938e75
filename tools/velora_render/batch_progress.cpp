#include "batch_progress.h"

#include <unistd.h>

#include <cstdio>

namespace velora_render {
namespace {

constexpr auto kRedrawInterval = std::chrono::milliseconds(200);

std::string duration(double seconds)
{
	char text[32];
	const long whole = static_cast<long>(seconds + 0.5);
	if (whole >= 3600)
		std::snprintf(text, sizeof text, "%ld h %02ld min", whole / 3600, whole / 60 % 60);
	else
		std::snprintf(text, sizeof text, "%ld min %02ld s", whole / 60, whole % 60);
	return text;
}

} // namespace

BatchProgress::BatchProgress(bool quiet, bool offTerminal, int files, double audioSeconds)
: lines(!quiet),
  shown(!quiet && (offTerminal || isatty(STDERR_FILENO))),
  totalFiles(files),
  totalAudio(audioSeconds),
  started(std::chrono::steady_clock::now())
{}

BatchProgress::~BatchProgress()
{
	finish();
}

void BatchProgress::addAudio(double seconds)
{
	double done = audioDone.load(std::memory_order_relaxed);
	while (!audioDone.compare_exchange_weak(done, done + seconds, std::memory_order_relaxed))
	{}
	if (!shown)
		return;
	// Whoever finds the console free draws; the others go on rendering.
	std::unique_lock<std::mutex> lock(console, std::try_to_lock);
	if (lock && std::chrono::steady_clock::now() - lastDraw >= kRedrawInterval)
		drawLocked();
}

void BatchProgress::fileDone(const std::string& line)
{
	std::lock_guard<std::mutex> lock(console);
	++filesDone;
	if (!lines)
		return;
	clearLocked();
	std::fprintf(stdout, "%s\n", line.c_str());
	std::fflush(stdout);
	if (shown)
		drawLocked();
}

void BatchProgress::finish()
{
	std::lock_guard<std::mutex> lock(console);
	clearLocked();
}

void BatchProgress::drawLocked()
{
	const auto now = std::chrono::steady_clock::now();
	lastDraw = now;
	const double audio = audioDone.load(std::memory_order_relaxed);
	const double wall = std::chrono::duration<double>(now - started).count();
	const double speed = wall > 0.0 ? audio / wall : 0.0;
	const std::string left =
	    speed > 0.0 && totalAudio > audio ? duration((totalAudio - audio) / speed) : "-";
	std::fprintf(stderr, "\r\033[K%d of %d files, %s of %s audio, %.1fx real time, %s left",
	             filesDone, totalFiles, duration(audio).c_str(), duration(totalAudio).c_str(),
	             speed, left.c_str());
	std::fflush(stderr);
	drawn = true;
}

void BatchProgress::clearLocked()
{
	if (drawn)
		std::fprintf(stderr, "\r\033[K");
	drawn = false;
}

} // namespace velora_render
