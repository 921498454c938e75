// Runs a fuzz target's check once on each seed file (the files named, or
// those in the folders named), so that its seeds guard every build as plain
// tests. The check aborts on a fault; the last name printed is the culprit.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int argc, char** argv)
{
	namespace fs = std::filesystem;
	std::vector<fs::path> seeds;
	for (int i = 1; i < argc; ++i)
	{
		std::error_code error;
		if (!fs::is_directory(argv[i], error))
			seeds.emplace_back(argv[i]);
		for (fs::directory_iterator at(argv[i], error), end; !error && at != end;
		     at.increment(error))
			seeds.push_back(at->path());
	}
	std::sort(seeds.begin(), seeds.end());
	for (const fs::path& seed : seeds)
	{
		std::ifstream file(seed, std::ios::binary);
		const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
		if (!file.good() && !file.eof())
		{
			std::fprintf(stderr, "cannot read %s\n", seed.c_str());
			return 1;
		}
		std::printf("%s\n", seed.c_str());
		std::fflush(stdout);
		LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
	}
	std::printf("%zu seeds replayed\n", seeds.size());
	return seeds.empty() ? 1 : 0;
}
