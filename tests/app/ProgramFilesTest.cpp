// Version text, help and the file tests.
#include "App_ProgramFiles.h"
#include "App_SchemeStore.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using tw_test::TempDir;
using tw_test::writeBytes;

TEST(ProgramFilesTest, VersionTextIsThreeNumbersWithLargeOnesDividedByAThousand)
{
    EXPECT_EQ(App::getVersionText(), "1.5.0");
    EXPECT_EQ(App::versionText("1.3.0"), "1.3.0");
    EXPECT_EQ(App::versionText("2.1003.0"), "2.1.0");
    EXPECT_EQ(App::versionText("1.1000.2000"), "1.1000.2");
    EXPECT_EQ(App::versionText("4.5"), "0.0.0");
}

TEST(ProgramFilesTest, HelpIsTheDocumentationDirectory)
{
    const std::string help = App::helpFilePath();
    ASSERT_FALSE(help.empty());
    EXPECT_TRUE(fs::exists(fs::path(help) / "command-line.md"));
}

TEST(ProgramFilesTest, SchemeDirectoryWithoutOverrideIsTheUsualOne)
{
    EXPECT_EQ(App::schemeDirectory(), App::schemeDirectory(std::string()));
}

TEST(ProgramFilesTest, FileTests)
{
    TempDir dir;
    const fs::path f = dir.path() / "f.cpp";
    const fs::path empty = dir.path() / "e.cpp";
    writeBytes(f, "int x;\n");
    writeBytes(empty, "");
    EXPECT_TRUE(App::fileExists(f.string()));
    EXPECT_FALSE(App::fileExists((dir.path() / "none").string()));
    EXPECT_TRUE(App::canRead(f.string()));
    EXPECT_TRUE(App::canWrite(f.string()));
    EXPECT_TRUE(App::isNotEmpty(f.string()));
    EXPECT_FALSE(App::isNotEmpty(empty.string()));
    EXPECT_TRUE(App::isDirectory(dir.path().string()));
    EXPECT_FALSE(App::isDirectory(f.string()));
    ::chmod(f.c_str(), 0444); // read-only for everyone, root included
    EXPECT_FALSE(App::canWrite(f.string()));
    EXPECT_TRUE(App::canRead(f.string()));
    EXPECT_FALSE(App::canWrite((dir.path() / "none").string()));
}

} // namespace
