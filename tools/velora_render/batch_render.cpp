#include "batch_render.h"

#include "batch_plan.h"
#include "batch_progress.h"
#include "batch_report.h"
#include "bundle_location.h"
#include "failure.h"
#include "file_render.h"
#include "host_session.h"
#include "interruption.h"
#include "numbers.h"
#include "render_record.h"
#include "state_file.h"

#include "osi/pool/coparallel.h"

#include <sndfile.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>

namespace velora_render {
namespace {

struct Batch
{
	const Options& options;
	std::optional<std::vector<char>> stateRecord;
	std::string settings;
	std::vector<FileOutcome> outcomes;
	std::vector<std::size_t> toRender;                  // indices into outcomes
	std::vector<std::unique_ptr<HostSession>> sessions; // one per worker
	std::unique_ptr<BatchProgress> progress;
};

// The input's length from its header, for the progress line; 0 if unreadable.
double audioSeconds(const std::string& path)
{
	SF_INFO info = {};
	SNDFILE* file = sf_open(path.c_str(), SFM_READ, &info);
	if (!file)
		return 0.0;
	sf_close(file);
	return info.samplerate > 0 ? static_cast<double>(info.frames) / info.samplerate : 0.0;
}

void renderOne(Batch& batch, FileOutcome& outcome, HostSession& session)
{
	if (interruption())
		return;
	const BatchFile& file = outcome.file;
	try
	{
		std::error_code error;
		std::filesystem::create_directories(std::filesystem::path(file.output).parent_path(),
		                                    error);
		FileRender render(batch.options, file.input, file.output, batch.stateRecord, session);
		const double rate = render.source().sampleRate();
		std::int64_t reported = 0;
		render.run([&](std::int64_t done) {
			batch.progress->addAudio(static_cast<double>(done - reported) / rate);
			reported = done;
		});
		render.commit();
		recordSettings(file.output, batch.settings);
		outcome.status = FileOutcome::Status::rendered;
		outcome.frames = render.levels().frames();
		outcome.sampleRate = rate;
		outcome.peaks[0] = render.levels().peak(0);
		outcome.peaks[1] = render.levels().peak(1);
		outcome.seconds = render.seconds();
		const double audio = static_cast<double>(outcome.frames) / rate;
		batch.progress->fileDone("done     " + file.input + " -> " + file.output + " (" +
		                         formatNumber(audio) + " s)");
	}
	catch (const std::exception& failure)
	{
		// An interrupted file is not a failed one: it is simply not done.
		if (interruption())
			return;
		outcome.status = FileOutcome::Status::failed;
		outcome.reason = failure.what();
		batch.progress->fileDone("failed   " + file.input + ": " + outcome.reason);
	}
}

void renderBody(void* data, int index, int threadIndex, string_ext<char>&)
{
	Batch& batch = *static_cast<Batch*>(data);
	renderOne(batch, batch.outcomes[batch.toRender[static_cast<std::size_t>(index)]],
	          *batch.sessions[static_cast<std::size_t>(threadIndex)]);
}

// Marks what is up to date; returns the audio still to render, in seconds.
double sortOut(Batch& batch)
{
	double audio = 0.0;
	for (std::size_t i = 0; i < batch.outcomes.size(); ++i)
	{
		FileOutcome& outcome = batch.outcomes[i];
		if (!batch.options.force && isUpToDate(outcome.file, batch.options, batch.settings))
			outcome.status = FileOutcome::Status::skipped;
		else
		{
			batch.toRender.push_back(i);
			audio += audioSeconds(outcome.file.input);
		}
	}
	return audio;
}

void renderAll(Batch& batch)
{
	const int count = static_cast<int>(batch.toRender.size());
	const int jobs = batch.options.jobs > 0 ? batch.options.jobs : numberOfCores();
	// One worker per core at most, and never more than there are files.
	const int workers = std::max(1, std::min({jobs, count, numberOfCores()}));
	// The plug-ins load before any thread starts: a bundle that cannot be
	// used ends the batch before it begins.
	const std::string bundle = bundlePathFor(batch.options.pluginPath);
	for (int i = 0; i < workers; ++i)
		batch.sessions.push_back(std::make_unique<HostSession>(bundle));
	const bool serial = workers == 1;
	if (!serial && !openThreadPool(workers))
		throw runtimeError("cannot start " + std::to_string(workers) + " worker threads");
	parallelFor(&batch, renderBody, 0, count, serial);
	if (!serial)
		closeThreadPool();
}

} // namespace

int renderBatch(const Options& options)
{
	catchInterruptions();
	Batch batch{options, {}, renderSettings(options), {}, {}, {}, {}};
	for (BatchFile& file : planBatch(options))
	{
		FileOutcome outcome;
		outcome.file = std::move(file);
		batch.outcomes.push_back(std::move(outcome));
	}
	if (!options.loadStatePath.empty())
		batch.stateRecord = readStateFile(options.loadStatePath);

	const auto started = std::chrono::steady_clock::now();
	const double audio = sortOut(batch);
	batch.progress = std::make_unique<BatchProgress>(
	    options.quiet, options.progress, static_cast<int>(batch.toRender.size()), audio);
	if (!batch.toRender.empty())
		renderAll(batch);
	batch.progress->finish();

	const BatchSummary summary = summarise(
	    batch.outcomes,
	    std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count());
	if (!options.quiet)
		printSummary(stdout, summary, batch.outcomes);
	if (!options.reportPath.empty())
		writeJsonReport(options.reportPath, summary, batch.outcomes);
	if (const int signal = interruption())
		throw Failure(128 + signal,
		              std::string("interrupted (") + strsignal(signal) +
		                  "): " + std::to_string(summary.rendered + summary.skipped) + " of " +
		                  std::to_string(summary.files) +
		                  " files done; run the same command again to render the rest");
	return summary.failed > 0 ? kExitRuntime : 0;
}

} // namespace velora_render
