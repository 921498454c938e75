#include "options.h"

#include "failure.h"
#include "numbers.h"

#include <functional>
#include <map>
#include <utility>

namespace velora_render {
namespace {

// An option's long name ("--pan"), or a short alias resolved to it.
std::string canonicalName(const std::string& argument)
{
	static const std::map<std::string, std::string> aliases = {
	    {"-i", "--in"}, {"-o", "--out"}, {"-q", "--quiet"}, {"-h", "--help"}, {"-V", "--version"}};
	const auto alias = aliases.find(argument);
	return alias == aliases.end() ? argument : alias->second;
}

double degreesFor(const std::string& option, const std::string& text)
{
	double degrees = 0.0;
	const std::string problem = degreesProblem(text, degrees);
	if (!problem.empty())
		throw usageError(option + ": " + problem);
	return degrees;
}

void setPan(Options& options, PanOption pan, const std::string& option)
{
	if (options.pan.kind != PanOption::Kind::none)
		throw usageError(option + ": give only one of --pan, --sweep and --automation");
	options.pan = std::move(pan);
}

PanOption sweepFrom(const std::string& text)
{
	// The first ':' after the first character: "-90:90" splits after "-90".
	const auto colon = text.find(':', 1);
	if (colon == std::string::npos)
		throw usageError("--sweep: '" + text + "' is not FROM:TO in degrees (for example -90:90)");
	PanOption pan;
	pan.kind = PanOption::Kind::sweep;
	pan.from = degreesFor("--sweep", text.substr(0, colon));
	pan.to = degreesFor("--sweep", text.substr(colon + 1));
	return pan;
}

int countFrom(const std::string& option, const std::string& text, int most, const char* what)
{
	const auto value = parseInteger(text);
	if (!value || *value < 1 || *value > most)
		throw usageError(option + ": '" + text + "' is not " + what + " from 1 to " +
		                 std::to_string(most));
	return static_cast<int>(*value);
}

// What a batch cannot take, and what one file cannot; all before any work.
void checkBatch(const Options& o)
{
	if (!isBatch(o))
	{
		if (!o.inputFolder.empty() || o.inputPaths.size() > 1)
			throw usageError("several inputs need --out-dir DIR (see --help)");
		const std::pair<const char*, bool> batchOnly[] = {{"--recursive", o.recursive},
		                                                  {"--format", !o.format.empty()},
		                                                  {"--jobs", o.jobs > 0},
		                                                  {"--force", o.force},
		                                                  {"--report", !o.reportPath.empty()}};
		for (const auto& [option, given] : batchOnly)
			if (given)
				throw usageError(std::string(option) + " is for a batch: give --out-dir DIR");
		return;
	}
	if (!o.outputPath.empty())
		throw usageError("give --out FILE or --out-dir DIR, not both");
	if (o.inputPaths.empty() && o.inputFolder.empty())
		throw usageError("--out-dir needs inputs: --in FILE or --in-dir DIR");
	if (o.recursive && o.inputFolder.empty())
		throw usageError("--recursive needs --in-dir DIR");
	if (!o.saveStatePath.empty())
		throw usageError("--save-state takes the state after one render: not with --out-dir");
	if (!o.format.empty())
		outputFormatFor("batch." + o.format, o.encoding);
}

void setOnce(std::string& field, const std::string& value, const std::string& option)
{
	if (!field.empty())
		throw usageError(option + " is given more than once");
	if (value.empty())
		throw usageError(option + " needs a file name");
	field = value;
}

using ValueHandler = std::function<void(Options&, const std::string&)>;
using FlagHandler = std::function<void(Options&)>;

const std::map<std::string, ValueHandler>& valueOptions()
{
	static const std::map<std::string, ValueHandler> handlers = {
	    {"--in",
	     [](Options& o, const std::string& v) {
		     if (v.empty())
			     throw usageError("--in needs a file name");
		     o.inputPaths.push_back(v);
	     }},
	    {"--out-dir",
	     [](Options& o, const std::string& v) { setOnce(o.outputFolder, v, "--out-dir"); }},
	    {"--in-dir",
	     [](Options& o, const std::string& v) { setOnce(o.inputFolder, v, "--in-dir"); }},
	    {"--format", [](Options& o, const std::string& v) { setOnce(o.format, v, "--format"); }},
	    {"--jobs",
	     [](Options& o, const std::string& v) {
		     o.jobs = countFrom("--jobs", v, kMaxJobs, "a number of files at once");
	     }},
	    {"--report",
	     [](Options& o, const std::string& v) { setOnce(o.reportPath, v, "--report"); }},
	    {"--out", [](Options& o, const std::string& v) { setOnce(o.outputPath, v, "--out"); }},
	    {"--plugin",
	     [](Options& o, const std::string& v) { setOnce(o.pluginPath, v, "--plugin"); }},
	    {"--block",
	     [](Options& o, const std::string& v) {
		     o.blockSize = countFrom("--block", v, kMaxBlockSize, "a block size in frames");
	     }},
	    {"--pan",
	     [](Options& o, const std::string& v) {
		     PanOption pan;
		     pan.kind = PanOption::Kind::constant;
		     pan.from = degreesFor("--pan", v);
		     setPan(o, pan, "--pan");
	     }},
	    {"--sweep", [](Options& o, const std::string& v) { setPan(o, sweepFrom(v), "--sweep"); }},
	    {"--automation",
	     [](Options& o, const std::string& v) {
		     if (v.empty())
			     throw usageError("--automation needs a file name");
		     PanOption pan;
		     pan.kind = PanOption::Kind::automation;
		     pan.automationPath = v;
		     setPan(o, pan, "--automation");
	     }},
	    {"--load-state",
	     [](Options& o, const std::string& v) { setOnce(o.loadStatePath, v, "--load-state"); }},
	    {"--save-state",
	     [](Options& o, const std::string& v) { setOnce(o.saveStatePath, v, "--save-state"); }},
	    {"--plot", [](Options& o, const std::string& v) { setOnce(o.plotPath, v, "--plot"); }},
	    {"--encoding", [](Options& o, const std::string& v) { o.encoding = parseEncoding(v); }},
	};
	return handlers;
}

const std::map<std::string, FlagHandler>& flagOptions()
{
	static const std::map<std::string, FlagHandler> handlers = {
	    {"--quiet", [](Options& o) { o.quiet = true; }},
	    {"--recursive", [](Options& o) { o.recursive = true; }},
	    {"--force", [](Options& o) { o.force = true; }},
	    {"--progress", [](Options& o) { o.progress = true; }},
	    {"--help", [](Options& o) { o.help = true; }},
	    {"--version", [](Options& o) { o.version = true; }},
	};
	return handlers;
}

} // namespace

Options parseArguments(int argc, const char* const* argv)
{
	Options options;
	for (int i = 1; i < argc; ++i)
	{
		std::string name = argv[i];
		std::string value;
		bool inlineValue = false;
		const auto equals = name.find('=');
		if (name.rfind("--", 0) == 0 && equals != std::string::npos)
		{
			value = name.substr(equals + 1);
			name = name.substr(0, equals);
			inlineValue = true;
		}
		name = canonicalName(name);

		if (const auto flag = flagOptions().find(name); flag != flagOptions().end())
		{
			if (inlineValue)
				throw usageError(name + " takes no value");
			flag->second(options);
			continue;
		}
		const auto handler = valueOptions().find(name);
		if (handler == valueOptions().end())
		{
			if (name.rfind("-", 0) == 0 && name.size() > 1)
				throw usageError("unknown option '" + name + "' (see --help)");
			throw usageError("unexpected argument '" + name +
			                 "': name files with --in and --out (see --help)");
		}
		if (!inlineValue)
		{
			if (i + 1 >= argc)
				throw usageError(name + " needs a value");
			value = argv[++i];
		}
		handler->second(options, value);
	}
	if (options.help || options.version)
		return options;
	if (options.outputPath.empty() && options.outputFolder.empty())
		throw usageError("no output file: give --out FILE (see --help)");
	checkBatch(options);
	return options;
}

std::string usageText()
{
	return R"(usage: velora-render --out FILE [options]

Renders audio through the Torvik Velora VST3 plug-in, as a host does: the
input (mono, or mixed to mono) is panned to a stereo output file.

  -i, --in FILE           input audio file (any format libsndfile reads);
                          without it, a built-in test signal (pulsed tone and
                          band-limited noise) is rendered
  -o, --out FILE          output file; the extension picks the format (wav,
                          rf64, w64, aiff, aif, caf, au, flac, ogg, oga, opus,
                          mp3; none: wav); 32-bit float where the format has it
      --encoding ENC      output samples: float, pcm16, pcm24 or pcm32
      --pan DEG           constant pan angle, -90 (left) to 90 (right)
      --sweep FROM:TO     pan linearly from FROM to TO degrees over the file
      --automation FILE   pan from a file of "seconds degrees" lines, linear
                          between points; '#' starts a comment
      --load-state FILE   restore the plug-in from a saved state before
                          rendering (its angle is used unless a pan option
                          is given)
      --save-state FILE   save the plug-in's state after rendering
      --plot FILE.png     draw the spectra of the input and of both output
                          channels on one graph, after rendering
      --plugin PATH       the TorvikVelora.vst3 bundle (default: the one built
                          next to this tool, then ~/.vst3/TorvikVelora.vst3)
      --block N           frames per process call, 1 to 65536 (default 512)

A batch: many files in one call, rendered in parallel.
      --out-dir DIR       render every input into DIR, mirroring the inputs'
                          tree (with --in, each file by its name)
      --in-dir DIR        render the audio files in DIR (by extension)
      --recursive         and in its subfolders
      --format EXT        the outputs' format (default: each input's own)
      --jobs N            files at once, 1 to 127 (default: one per core)
      --force             render again what is up to date: an output newer
                          than its input, made with the same options
      --report FILE       one JSON record per file, and the summary
      --progress          the progress line also when stderr is no terminal
  -q, --quiet             no report, notices or progress; errors only
  -h, --help              this text
  -V, --version           the tool's version

Without a pan option, the test signal is swept from -90 to 90 degrees and a
file keeps the plug-in's angle (0 degrees, or the one restored).
Exit status: 0 on success, 1 when a file or the plug-in fails, 2 for a wrong
command line. The output (and saved state) appear only when all went well.
)";
}

} // namespace velora_render
