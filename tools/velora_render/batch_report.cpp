#include "batch_report.h"

#include "pending_file.h"

#include <cstdint>
#include <sstream>

namespace velora_render {
namespace {

const char* statusName(FileOutcome::Status status)
{
	switch (status)
	{
	case FileOutcome::Status::rendered:
		return "rendered";
	case FileOutcome::Status::skipped:
		return "skipped";
	case FileOutcome::Status::failed:
		return "failed";
	case FileOutcome::Status::pending:
		break;
	}
	return "not done";
}

std::string jsonString(const std::string& text)
{
	std::string quoted = "\"";
	for (const char c : text)
	{
		if (c == '"' || c == '\\')
			quoted += std::string("\\") + c;
		else if (static_cast<unsigned char>(c) < 0x20)
		{
			char escape[8];
			std::snprintf(escape, sizeof escape, "\\u%04x", c);
			quoted += escape;
		}
		else
			quoted += c;
	}
	return quoted + "\"";
}

double speedOf(const BatchSummary& summary)
{
	return summary.wallSeconds > 0.0 ? summary.audioSeconds / summary.wallSeconds : 0.0;
}

} // namespace

BatchSummary summarise(const std::vector<FileOutcome>& outcomes, double wallSeconds)
{
	BatchSummary summary;
	summary.files = static_cast<int>(outcomes.size());
	summary.wallSeconds = wallSeconds;
	for (const FileOutcome& outcome : outcomes)
	{
		summary.rendered += outcome.status == FileOutcome::Status::rendered;
		summary.skipped += outcome.status == FileOutcome::Status::skipped;
		summary.failed += outcome.status == FileOutcome::Status::failed;
		if (outcome.status == FileOutcome::Status::rendered)
			summary.audioSeconds += static_cast<double>(outcome.frames) / outcome.sampleRate;
	}
	return summary;
}

void printSummary(std::FILE* out, const BatchSummary& summary,
                  const std::vector<FileOutcome>& outcomes)
{
	std::fprintf(out, "%-9s %d: %d rendered, %d up to date, %d failed\n", "files:", summary.files,
	             summary.rendered, summary.skipped, summary.failed);
	std::fprintf(out, "%-9s %.3f h\n", "audio:", summary.audioSeconds / 3600.0);
	std::fprintf(out, "%-9s %.3f s (%.1fx real time)\n", "time:", summary.wallSeconds,
	             speedOf(summary));
	for (const FileOutcome& outcome : outcomes)
		if (outcome.status == FileOutcome::Status::failed)
			std::fprintf(out, "failed:   %s: %s\n", outcome.file.input.c_str(),
			             outcome.reason.c_str());
}

void writeJsonReport(const std::string& path, const BatchSummary& summary,
                     const std::vector<FileOutcome>& outcomes)
{
	std::ostringstream json;
	json.precision(9);
	json << "{\n  \"files\": [";
	const char* separator = "\n";
	for (const FileOutcome& o : outcomes)
	{
		json << separator << "    {\"input\": " << jsonString(o.file.input)
		     << ", \"output\": " << jsonString(o.file.output) << ", \"status\": \""
		     << statusName(o.status) << "\"";
		if (o.status == FileOutcome::Status::failed)
			json << ", \"reason\": " << jsonString(o.reason);
		if (o.status == FileOutcome::Status::rendered)
			json << ", \"frames\": " << o.frames << ", \"rate\": " << o.sampleRate
			     << ", \"peak\": [" << o.peaks[0] << ", " << o.peaks[1]
			     << "], \"seconds\": " << o.seconds;
		json << "}";
		separator = ",\n";
	}
	json << "\n  ],\n  \"summary\": {\"files\": " << summary.files
	     << ", \"rendered\": " << summary.rendered << ", \"skipped\": " << summary.skipped
	     << ", \"failed\": " << summary.failed
	     << ", \"audio_hours\": " << summary.audioSeconds / 3600.0
	     << ", \"wall_seconds\": " << summary.wallSeconds << ", \"speed\": " << speedOf(summary)
	     << "}\n}\n";
	const std::string text = json.str();
	PendingFile file(path, "report");
	file.write(text.data(), text.size());
	file.commit();
}

} // namespace velora_render
