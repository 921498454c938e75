// The absolute path of an existing file.
#include "osi/runtime/cofile.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <climits>
#include <filesystem>
#include <fstream>
#include <string>

namespace {

TEST(WorkingDirectory, FindsExistingFilesAgainstTheWorkingDirectory)
{
	const velora_test::TempFolder folder;
	std::filesystem::create_directory(folder.path("sub"));
	std::ofstream(folder.path("file.txt")) << "x";
	char previous[PATH_MAX];
	ASSERT_NE(getcwd(previous, sizeof previous), nullptr);
	ASSERT_EQ(chdir(folder.path().c_str()), 0);
	const std::string file = folder.path("file.txt");
	for (const std::string& path :
	     {std::string("file.txt"), std::string("./sub/../file.txt"), file})
	{
		std::string result;
		EXPECT_TRUE(OsiWorkingDir::findAbsoluteFilePath(path.c_str(), result)) << path;
		EXPECT_EQ(result, file);
	}
	std::string result = "unchanged";
	for (const char* missing : {"missing.txt", "sub", ""})
		EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath(missing, result)) << missing;
	EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath(nullptr, result));
	EXPECT_EQ(result, "unchanged");
	EXPECT_EQ(chdir(previous), 0);
}

} // namespace
