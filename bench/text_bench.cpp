// Text against the C library: string_ext::sprintf (measured by the C
// library, then formatted into storage of that size) against sizing with
// snprintf(nullptr, 0) and formatting again into a std::string; and
// OsiTextInput reading a two-column file under "d,dN" against an fscanf loop
// over the same file. The ratios of the times are printed at the end.
#include "osi/base/string_ext.h"
#include "osi/text/ositextinput.h"

#include "time_reporter.h"

#include <benchmark/benchmark.h>

#include <unistd.h>

#include <cstdio>
#include <map>
#include <string>
#include <vector>

namespace {

struct Case
{
	const char* name;
	void (*ours)(string_ext<char>&);
	void (*reference)(std::string&);
};

template <typename... A> void twoPass(std::string& text, const char* format, A... args)
{
	const int length = std::snprintf(nullptr, 0, format, args...);
	text.resize(size_t(length));
	std::snprintf(&text[0], size_t(length) + 1, format, args...);
}

const Case kCases[] = {
    {"number", [](string_ext<char>& t) { t.sprintf("%.*g %c", 3, 1.2345, 'k'); },
     [](std::string& t) { twoPass(t, "%.*g %c", 3, 1.2345, 'k'); }},
    {"label", [](string_ext<char>& t) { t.sprintf("%s = %d", "channel", 12); },
     [](std::string& t) { twoPass(t, "%s = %d", "channel", 12); }},
    {"mixed",
     [](string_ext<char>& t) { t.sprintf("%-12s|%8.3f|%#x|%e", "gain", -3.25, 255u, 1e-9); },
     [](std::string& t) { twoPass(t, "%-12s|%8.3f|%#x|%e", "gain", -3.25, 255u, 1e-9); }},
};

void BM_StringExt(benchmark::State& state, const Case* c)
{
	string_ext<char> text;
	for (auto _ : state)
	{
		c->ours(text);
		benchmark::DoNotOptimize(text.data());
	}
}

void BM_TwoPassSnprintf(benchmark::State& state, const Case* c)
{
	std::string text;
	for (auto _ : state)
	{
		c->reference(text);
		benchmark::DoNotOptimize(text.data());
	}
}

constexpr int kRows = 100000;

const std::string& columnFile()
{
	static const std::string path = [] {
		char pattern[] = "/tmp/velora_text_bench_XXXXXX";
		close(mkstemp(pattern));
		std::FILE* file = std::fopen(pattern, "w");
		for (int i = 0; i < kRows; ++i)
			std::fprintf(file, "%d,%.6g\n", i, i * 0.001);
		std::fclose(file);
		return std::string(pattern);
	}();
	return path;
}

void BM_TextInput(benchmark::State& state)
{
	for (auto _ : state)
	{
		OsiTextInput input;
		input.open(columnFile().c_str(), "d,dN");
		double sum = 0;
		double value = 0;
		while (input.read(value))
			sum += value;
		benchmark::DoNotOptimize(sum);
	}
	state.SetItemsProcessed(state.iterations() * kRows * 2);
}

void BM_Fscanf(benchmark::State& state)
{
	for (auto _ : state)
	{
		std::FILE* file = std::fopen(columnFile().c_str(), "r");
		double sum = 0;
		double a = 0;
		double b = 0;
		while (std::fscanf(file, "%lg,%lg\n", &a, &b) == 2)
			sum += a + b;
		std::fclose(file);
		benchmark::DoNotOptimize(sum);
	}
	state.SetItemsProcessed(state.iterations() * kRows * 2);
}

void printRatio(const TimeReporter& reporter, const std::string& what, const std::string& ours,
                const std::string& reference)
{
	const double a = reporter.nanoseconds(ours);
	const double b = reporter.nanoseconds(reference);
	if (b > 0)
		std::printf("  %-28s %5.2fx  (%.1f vs %.1f ns)\n", what.c_str(), a / b, a, b);
}

} // namespace

int main(int argc, char** argv)
{
	for (const Case& c : kCases)
	{
		benchmark::RegisterBenchmark(("string_ext/" + std::string(c.name)).c_str(), BM_StringExt,
		                             &c);
		benchmark::RegisterBenchmark(("two_pass_snprintf/" + std::string(c.name)).c_str(),
		                             BM_TwoPassSnprintf, &c);
	}
	benchmark::RegisterBenchmark("text_input/d,dN", BM_TextInput);
	benchmark::RegisterBenchmark("fscanf/d,dN", BM_Fscanf);
	benchmark::Initialize(&argc, argv);
	TimeReporter reporter;
	benchmark::RunSpecifiedBenchmarks(&reporter);
	std::printf("\nTime against the C library's (lower is better):\n");
	for (const Case& c : kCases)
		printRatio(reporter, std::string("sprintf ") + c.name, "string_ext/" + std::string(c.name),
		           "two_pass_snprintf/" + std::string(c.name));
	printRatio(reporter, "read 100000 rows", "text_input/d,dN", "fscanf/d,dN");
	std::remove(columnFile().c_str());
	benchmark::Shutdown();
	return 0;
}
