// The absolute path of an existing file.
#include "osi/runtime/cofile.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <climits>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace {

class WorkingDirectory : public testing::Test
{
protected:
	void SetUp() override
	{
		char pattern[] = "/tmp/velora_file_test_XXXXXX";
		ASSERT_NE(mkdtemp(pattern), nullptr);
		char resolved[PATH_MAX];
		ASSERT_NE(realpath(pattern, resolved), nullptr);
		directory = resolved;
		ASSERT_EQ(mkdir((directory + "/sub").c_str(), 0700), 0);
		std::FILE* file = std::fopen((directory + "/file.txt").c_str(), "w");
		ASSERT_NE(file, nullptr);
		std::fclose(file);
		ASSERT_NE(getcwd(previous, sizeof previous), nullptr);
		ASSERT_EQ(chdir(directory.c_str()), 0);
	}
	void TearDown() override
	{
		EXPECT_EQ(chdir(previous), 0);
		std::remove((directory + "/file.txt").c_str());
		rmdir((directory + "/sub").c_str());
		rmdir(directory.c_str());
	}

	std::string directory;
	char previous[PATH_MAX];
};

TEST_F(WorkingDirectory, RelativePathsAreTakenAgainstTheWorkingDirectory)
{
	std::string result;
	ASSERT_TRUE(OsiWorkingDir::findAbsoluteFilePath("file.txt", result));
	EXPECT_EQ(result, directory + "/file.txt");
	result.clear();
	ASSERT_TRUE(OsiWorkingDir::findAbsoluteFilePath("./sub/../file.txt", result));
	EXPECT_EQ(result, directory + "/file.txt");
	ASSERT_TRUE(OsiWorkingDir::findAbsoluteFilePath((directory + "/file.txt").c_str(), result));
	EXPECT_EQ(result, directory + "/file.txt");
}

TEST_F(WorkingDirectory, MissingFilesAndDirectoriesFail)
{
	std::string result = "unchanged";
	EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath("missing.txt", result));
	EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath("sub", result));
	EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath("", result));
	EXPECT_FALSE(OsiWorkingDir::findAbsoluteFilePath(nullptr, result));
	EXPECT_EQ(result, "unchanged");
}

} // namespace
