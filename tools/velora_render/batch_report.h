// What became of each file of a batch, and the batch's summary: printed at the
// end, and with --report written as JSON, one record per file.
#pragma once

#include "batch_plan.h"

#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace velora_render {

struct FileOutcome
{
	enum class Status
	{
		pending, // not reached: the batch was interrupted first
		rendered,
		skipped, // up to date
		failed,
	};
	BatchFile file;
	Status status = Status::pending;
	std::string reason; // why it failed
	std::int64_t frames = 0;
	double sampleRate = 0.0;
	double peaks[2] = {0.0, 0.0};
	double seconds = 0.0;
};

struct BatchSummary
{
	int files = 0;
	int rendered = 0;
	int skipped = 0;
	int failed = 0;
	double audioSeconds = 0.0; // of the rendered files
	double wallSeconds = 0.0;
};

BatchSummary summarise(const std::vector<FileOutcome>& outcomes, double wallSeconds);

// The summary and the failed files with their reasons.
void printSummary(std::FILE* out, const BatchSummary& summary,
                  const std::vector<FileOutcome>& outcomes);

// The report as JSON; a runtime failure if it cannot be written.
void writeJsonReport(const std::string& path, const BatchSummary& summary,
                     const std::vector<FileOutcome>& outcomes);

} // namespace velora_render
