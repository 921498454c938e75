#include "scope_options.h"

#include "cursor_keys.h"
#include "failure.h"
#include "numbers.h"

#include <functional>
#include <map>

namespace velora_scope {
namespace {

using velora_render::usageError;

long integerFor(const std::string& option, const std::string& text, long low, long high,
                const std::string& what)
{
	const auto value = velora_render::parseInteger(text);
	if (!value || *value < low || *value > high)
		throw usageError(option + ": '" + text + "' is not " + what);
	return *value;
}

double secondsFor(const std::string& option, const std::string& text)
{
	const auto value = velora_render::parseReal(text);
	if (!value || *value < 0.0)
		throw usageError(option + ": '" + text + "' is not a time in seconds from 0");
	return *value;
}

int fftSizeFrom(const std::string& text)
{
	using Limits = velora_spectrum::SpectrumOptions;
	const std::string what = "a power of two from " + std::to_string(Limits::kMinFftSize) + " to " +
	                         std::to_string(Limits::kMaxFftSize);
	const long size = integerFor("--fft", text, Limits::kMinFftSize, Limits::kMaxFftSize, what);
	if ((size & (size - 1)) != 0)
		throw usageError("--fft: '" + text + "' is not " + what);
	return static_cast<int>(size);
}

void sizeFrom(const std::string& text, ScopeOptions& options)
{
	const auto x = text.find('x');
	const std::string what = "WIDTHxHEIGHT in pixels, each from " +
	                         std::to_string(kMinPictureSide) + " to " +
	                         std::to_string(kMaxPictureSide);
	if (x == std::string::npos)
		throw usageError("--size: '" + text + "' is not " + what);
	options.width = static_cast<int>(
	    integerFor("--size", text.substr(0, x), kMinPictureSide, kMaxPictureSide, what));
	options.height = static_cast<int>(
	    integerFor("--size", text.substr(x + 1), kMinPictureSide, kMaxPictureSide, what));
}

using ValueHandler = std::function<void(ScopeOptions&, const std::string&)>;

const std::map<std::string, ValueHandler>& valueOptions()
{
	static const std::map<std::string, ValueHandler> handlers = {
	    {"--fft",
	     [](ScopeOptions& o, const std::string& v) { o.analysis.fftSize = fftSizeFrom(v); }},
	    {"--from", [](ScopeOptions& o,
	                  const std::string& v) { o.analysis.fromSeconds = secondsFor("--from", v); }},
	    {"--to", [](ScopeOptions& o,
	                const std::string& v) { o.analysis.toSeconds = secondsFor("--to", v); }},
	    {"--png",
	     [](ScopeOptions& o, const std::string& v) {
		     if (v.empty())
			     throw usageError("--png needs a file name");
		     o.pngPath = v;
	     }},
	    {"--size", [](ScopeOptions& o, const std::string& v) { sizeFrom(v, o); }},
	    {"--peaks",
	     [](ScopeOptions& o, const std::string& v) {
		     o.peaks = static_cast<int>(integerFor(
		         "--peaks", v, 1, kMaxPeaks, "a count from 1 to " + std::to_string(kMaxPeaks)));
	     }},
	};
	return handlers;
}

void check(const ScopeOptions& options)
{
	if (options.help || options.version)
		return;
	if (options.files.empty())
		throw usageError("no input file: name one or more audio files (see --help)");
	if (options.analysis.toSeconds <= options.analysis.fromSeconds)
		throw usageError("--to must be later than --from");
	if (!options.pngPath.empty() && options.peaks > 0)
		throw usageError("give only one of --png and --peaks");
}

} // namespace

ScopeOptions parseScopeArguments(int argc, const char* const* argv)
{
	ScopeOptions options;
	for (int i = 1; i < argc; ++i)
	{
		std::string name = argv[i];
		if (name == "-h" || name == "--help")
		{
			options.help = true;
			continue;
		}
		if (name == "-V" || name == "--version")
		{
			options.version = true;
			continue;
		}
		if (name.rfind("-", 0) != 0 || name == "-")
		{
			options.files.push_back(name);
			continue;
		}
		std::string value;
		const auto equals = name.find('=');
		const bool inlineValue = name.rfind("--", 0) == 0 && equals != std::string::npos;
		if (inlineValue)
		{
			value = name.substr(equals + 1);
			name = name.substr(0, equals);
		}
		const auto handler = valueOptions().find(name);
		if (handler == valueOptions().end())
			throw usageError("unknown option '" + name + "' (see --help)");
		if (!inlineValue)
		{
			if (i + 1 >= argc)
				throw usageError(name + " needs a value");
			value = argv[++i];
		}
		handler->second(options, value);
	}
	check(options);
	return options;
}

std::string scopeUsageText()
{
	return R"(usage: velora-scope [options] FILE...

Shows the averaged power spectrum of every channel of the audio files
(any format libsndfile reads) on one graph in a window: frequency on a
logarithmic axis, power in dB relative to full scale.

      --fft N             transform size, a power of two (default 8192)
      --from SECONDS      analyse from this time on (default: the start)
      --to SECONDS        analyse up to this time (default: the end)
      --png FILE          draw the graph to a PNG file and exit; no window
                          and no X server needed
      --size WxH          the window's or picture's size in pixels (default
                          1000x600)
      --peaks N           print the N strongest peaks of each channel
                          (frequency in Hz, level in dB) and exit
  -h, --help              this text
  -V, --version           the tool's version

Keys in the window pick what a drag does:
)" + keyHelp() +
	       R"(
A gain or shelving drag shows the filtered spectrum while it lasts and, on
release, prints the section (",Q=...,Fo=...Hz,G=...dB") on standard output.
Exit status: 0 on success, 1 when a file cannot be read or written, 2 for a
wrong command line.
)";
}

} // namespace velora_scope
