// A fresh folder of its own for a test's files, removed with everything in
// it when the test is done: parallel test processes never share a name.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>

namespace velora_test {

class TempFolder
{
public:
	TempFolder()
	{
		const std::string pattern =
		    (std::filesystem::temp_directory_path() / "velora_XXXXXX").string();
		std::string name = pattern;
		if (mkdtemp(name.data()))
			folder = std::filesystem::canonical(name).string();
	}
	~TempFolder()
	{
		std::error_code ignored;
		if (!folder.empty())
			std::filesystem::remove_all(folder, ignored);
	}
	TempFolder(const TempFolder&) = delete;
	TempFolder& operator=(const TempFolder&) = delete;

	// The folder itself, empty when it could not be made.
	const std::string& path() const { return folder; }
	// A path inside the folder.
	std::string path(const std::string& name) const { return folder + "/" + name; }

private:
	std::string folder;
};

} // namespace velora_test
