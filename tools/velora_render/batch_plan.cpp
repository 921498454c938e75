#include "batch_plan.h"

#include "failure.h"
#include "output_format.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace velora_render {
namespace {

namespace fs = std::filesystem;

// The output for an input at `relative` under the input folder.
std::string outputFor(const Options& options, fs::path relative)
{
	if (!options.format.empty())
		relative.replace_extension(options.format);
	return (fs::path(options.outputFolder) / relative).lexically_normal().string();
}

bool isHidden(const fs::path& path)
{
	const std::string name = path.filename().string();
	return !name.empty() && name[0] == '.';
}

std::vector<fs::path> audioFilesUnder(const Options& options)
{
	const fs::path folder = options.inputFolder;
	std::error_code error;
	if (!fs::is_directory(folder, error))
		throw usageError("--in-dir: '" + options.inputFolder + "' is not a folder");
	const fs::path outputs = fs::weakly_canonical(options.outputFolder, error);
	std::vector<fs::path> found;
	fs::recursive_directory_iterator entry(folder, error), end;
	for (; !error && entry != end; entry.increment(error))
	{
		const bool skipped =
		    isHidden(entry->path()) || fs::weakly_canonical(entry->path(), error) == outputs;
		if (entry->is_directory(error))
		{
			if (skipped || !options.recursive)
				entry.disable_recursion_pending();
		}
		else if (!skipped && hasAudioExtension(entry->path().string()))
			found.push_back(entry->path().lexically_relative(folder));
	}
	if (error)
		throw usageError("--in-dir: cannot list '" + options.inputFolder + "': " + error.message());
	std::sort(found.begin(), found.end());
	return found;
}

} // namespace

std::vector<BatchFile> planBatch(const Options& options)
{
	std::vector<BatchFile> files;
	for (const std::string& input : options.inputPaths)
		files.push_back({input, outputFor(options, fs::path(input).filename())});
	if (!options.inputFolder.empty())
		for (const fs::path& relative : audioFilesUnder(options))
			files.push_back({(fs::path(options.inputFolder) / relative).string(),
			                 outputFor(options, relative)});

	std::set<std::string> outputs;
	for (const BatchFile& file : files)
	{
		outputFormatFor(file.output, options.encoding);
		if (!outputs.insert(file.output).second)
			throw usageError("two inputs would both be rendered to '" + file.output + "'");
	}
	return files;
}

} // namespace velora_render
