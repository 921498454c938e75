// A console reporter that also keeps each benchmark's real time per
// iteration (nanoseconds), so that a benchmark program can print ratios
// against its reference once the table is out. Of repeated runs it keeps the
// fastest: the one least disturbed by other work on the machine.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <string>

class TimeReporter : public benchmark::ConsoleReporter
{
public:
	void ReportRuns(const std::vector<Run>& runs) override
	{
		for (const auto& run : runs)
		{
			if (run.run_type != Run::RT_Iteration)
				continue;
			const auto [it, added] = times.emplace(run.benchmark_name(), run.GetAdjustedRealTime());
			if (!added && run.GetAdjustedRealTime() < it->second)
				it->second = run.GetAdjustedRealTime();
		}
		ConsoleReporter::ReportRuns(runs);
	}

	// Nanoseconds per iteration of the named benchmark; 0 if it did not run.
	double nanoseconds(const std::string& name) const
	{
		const auto it = times.find(name);
		return it == times.end() ? 0.0 : it->second;
	}

private:
	std::map<std::string, double> times;
};
