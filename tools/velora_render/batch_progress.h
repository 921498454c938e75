// The console of a batch, shared by the threads that render its files: a line
// per finished file on stdout, and one progress line for the whole batch on
// stderr (files done of all, audio done, speed as a multiple of real time,
// time left), drawn when stderr is a terminal or when asked for.
#pragma once

#include <atomic>
#include <chrono>
#include <mutex>
#include <string>

namespace velora_render {

class BatchProgress
{
public:
	BatchProgress(bool quiet, bool offTerminal, int files, double audioSeconds);
	~BatchProgress();
	BatchProgress(const BatchProgress&) = delete;
	BatchProgress& operator=(const BatchProgress&) = delete;

	// Audio rendered since the last call, from any thread.
	void addAudio(double seconds);
	// A file is finished: its line (nothing with --quiet).
	void fileDone(const std::string& line);
	// Clears the progress line.
	void finish();

private:
	void drawLocked();
	void clearLocked();

	const bool lines;
	const bool shown;
	const int totalFiles;
	const double totalAudio;
	const std::chrono::steady_clock::time_point started;
	std::atomic<double> audioDone{0.0};
	std::mutex console;
	int filesDone = 0;
	bool drawn = false;
	std::chrono::steady_clock::time_point lastDraw;
};

} // namespace velora_render
