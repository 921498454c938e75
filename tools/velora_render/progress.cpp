#include "progress.h"

#include <unistd.h>

#include <cstdio>
#include <string>

namespace velora_render {
namespace {

constexpr int kBarWidth = 40;
constexpr auto kRedrawInterval = std::chrono::milliseconds(100);

} // namespace

Progress::Progress(bool wanted, bool offTerminal, std::int64_t totalFrames, double sampleRate)
: total(totalFrames),
  rate(sampleRate)
{
	shown = wanted && (offTerminal || isatty(STDERR_FILENO)) && totalFrames > 0 &&
	        static_cast<double>(totalFrames) / sampleRate > kMinSeconds;
}

Progress::~Progress()
{
	finish();
}

void Progress::update(std::int64_t framesDone)
{
	if (!shown)
		return;
	const auto now = std::chrono::steady_clock::now();
	if (drawn && now - lastDraw < kRedrawInterval)
		return;
	lastDraw = now;
	draw(framesDone);
}

void Progress::draw(std::int64_t framesDone)
{
	const double fraction = static_cast<double>(framesDone) / static_cast<double>(total);
	const int filled = static_cast<int>(fraction * kBarWidth);
	const std::string bar = std::string(filled, '#') + std::string(kBarWidth - filled, '.');
	std::fprintf(stderr, "\r[%s] %3d%%  %.1f / %.1f s", bar.c_str(),
	             static_cast<int>(fraction * 100.0), static_cast<double>(framesDone) / rate,
	             static_cast<double>(total) / rate);
	std::fflush(stderr);
	drawn = true;
}

void Progress::finish()
{
	if (drawn)
		std::fprintf(stderr, "\r\033[K");
	drawn = false;
	shown = false;
}

} // namespace velora_render
