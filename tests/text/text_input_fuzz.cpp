// Arbitrary bytes as typed and scanned numbers, free text holding a number, a
// number to print, and a numeric text file (first line the layout).
#include "osi/text/osidecimalnumber.h"
#include "osi/text/osinumbertostring.h"
#include "osi/text/osiparsenumber.h"
#include "osi/text/osistringtonumber.h"
#include "osi/text/ositextinput.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

void check(bool condition, const char* what)
{
	if (!condition)
	{
		std::fprintf(stderr, "broken: %s\n", what);
		std::abort();
	}
}

// The file's bytes live in an anonymous memory file, reached through its path.
struct MemoryFile
{
	int fd = memfd_create("text_input_fuzz", 0);
	std::string path = "/proc/self/fd/" + std::to_string(fd);
};

void fuzzNumbers(const std::string& text)
{
	OsiStringToNumber number(-1e6, 1e6);
	number.convert(text.c_str());
	check(number.errorMessage != nullptr, "a message");

	double ours = 0;
	double theirs = 0;
	const bool scanned = OsiDecimalNumber::scan(text.c_str(), ours);
	check(scanned == (std::sscanf(text.c_str(), "%lg", &theirs) == 1),
	      "a number where sscanf has one");
	check(!scanned || std::memcmp(&ours, &theirs, sizeof ours) == 0, "the number sscanf reads");

	OsiParseNumber parser;
	const char* start = nullptr;
	const char* end = nullptr;
	const char* begin = text.c_str();
	const char* stop = begin + std::strlen(begin);
	if (parser.parse(begin, start, end))
	{
		check(start >= begin && start < stop, "number start inside the text");
		check(end > start && end <= stop, "number end inside the text");
		check(!parser.mantissa.empty(), "a mantissa");
	}
}

void fuzzPrinting(const uint8_t* data, size_t size)
{
	if (size < sizeof(double) + 2)
		return;
	double value = 0;
	std::memcpy(&value, data, sizeof value);
	const int precision = int(int8_t(data[sizeof value]));
	const int exponent = int(int8_t(data[sizeof value + 1]));
	const OsiNumberToString number(data[0] & 1);
	number.format(value, precision);
	number.engineeringFormat(value, exponent, precision);
	check(number.text().size() < 2000, "a short number");
}

void fuzzTextInput(const std::string& bytes)
{
	const size_t newline = bytes.find('\n');
	if (newline == std::string::npos)
		return;
	const std::string layout = bytes.substr(0, newline), body = bytes.substr(newline + 1);
	static const MemoryFile file;
	check(file.fd >= 0 && ftruncate(file.fd, 0) == 0 &&
	          pwrite(file.fd, body.data(), body.size(), 0) == ssize_t(body.size()),
	      "memory file written");

	OsiTextInput input;
	if (!input.open(file.path.c_str(), layout.c_str()))
		return;
	check(input.fileLength() == static_cast<long long>(body.size()), "length");
	OsiTextInputState middle;
	double value = 0;
	for (int i = 0; i < 2000 && input.read(value); ++i)
	{
		check(input.line() >= 1 && input.column() >= 1, "line and column");
		if (i == 3)
			middle = input.getState();
	}
	if (input.hasError())
	{
		const OsiTextInputState stopped = input.getState();
		check(input.read() == 0, "nothing after an error");
		check(input.getState().filePosition == stopped.filePosition, "no reading after an error");
		check(input.errorMessage().compare(0, 27, "ERROR : Cannot convert data") == 0, "message");
	}
	input.setState(middle);
	input.read();
	input.range();
	input.reset();
	input.skipLines(int(bytes.size() % 5));
	input.read();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
	const std::string bytes(reinterpret_cast<const char*>(data), size);
	fuzzNumbers(bytes);
	fuzzPrinting(data, size);
	fuzzTextInput(bytes);
	return 0;
}
