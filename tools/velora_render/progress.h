// A progress bar on stderr for renders long enough to wait for; drawn only
// when stderr is a terminal, unless asked for anyway.
#pragma once

#include <chrono>
#include <cstdint>

namespace velora_render {

class Progress
{
public:
	static constexpr double kMinSeconds = 5.0; // shorter renders show no bar

	Progress(bool wanted, bool offTerminal, std::int64_t totalFrames, double sampleRate);
	~Progress();

	void update(std::int64_t framesDone);
	// Clears the bar's line.
	void finish();

private:
	void draw(std::int64_t framesDone);

	bool shown = false;
	bool drawn = false;
	std::int64_t total;
	double rate;
	std::chrono::steady_clock::time_point lastDraw;
};

} // namespace velora_render
