// Exclusion patterns and the extension list: what a batch leaves out and
// what it takes.
#include "App_ExtensionList.h"
#include "App_FileJob.h"
#include "App_PathGlob.h"

#include <gtest/gtest.h>

namespace {

using App::PathGlob;

TEST(ExtensionListTest, PiecesAreCutAtBlanksSemicolonsAndCommasTrimmedAndLoseTheirPoints)
{
    // c, then .H, then cpp, separated by a semicolon and a comma.
    EXPECT_EQ(App::parseExtensionList("c;.H,cpp"), (std::vector<std::string>{"c", "H", "cpp"}));
    EXPECT_EQ(App::parseExtensionList(" c ; ..hpp,, ,\tinl "), (std::vector<std::string>{"c", "hpp", "inl"}));
    EXPECT_TRUE(App::parseExtensionList("").empty());
    EXPECT_TRUE(App::parseExtensionList(" ;,. ").empty());
}

TEST(ExtensionListTest, MatchingIgnoresCase)
{
    const std::vector<std::string> list = App::parseExtensionList("c;.H,cpp");
    EXPECT_TRUE(App::isFormattableFile("src/a.h", list));
    EXPECT_TRUE(App::isFormattableFile("src/A.C", list));
    EXPECT_TRUE(App::isFormattableFile("Widget.CPP", list));
    EXPECT_FALSE(App::isFormattableFile("a.hpp", list));
    EXPECT_FALSE(App::isFormattableFile("a.cc", list));
}

TEST(ExtensionListTest, AFileWithoutAPointIsNeverFormattable)
{
    EXPECT_FALSE(App::isFormattableFile("Makefile", {"c", "Makefile", ""}));
    EXPECT_FALSE(App::isFormattableFile("src/cpp", {"cpp", "src/cpp"}));
    EXPECT_FALSE(App::isFormattableFile("", {""}));
}

TEST(PathGlobTest, APatternWithoutASlashMatchesANameAtAnyDepth)
{
    const PathGlob glob("*.gen.cpp");
    EXPECT_TRUE(glob.matches("a.gen.cpp", false));
    EXPECT_TRUE(glob.matches("src/deep/b.gen.cpp", false));
    EXPECT_FALSE(glob.matches("src/a.cpp", false));
    EXPECT_TRUE(PathGlob("build").matches("sub/build", true));
}

TEST(PathGlobTest, APatternWithASlashMatchesFromTheBase)
{
    const PathGlob glob("src/*.c");
    EXPECT_TRUE(glob.matches("src/a.c", false));
    EXPECT_FALSE(glob.matches("lib/src/a.c", false));
    EXPECT_FALSE(glob.matches("src/sub/a.c", false)); // * stays within one name
    EXPECT_TRUE(PathGlob("/src/a.c").matches("src/a.c", false));
    EXPECT_TRUE(PathGlob("./src/a.c").matches("src/a.c", false));
}

TEST(PathGlobTest, DoubleStarCrossesDirectories)
{
    const PathGlob glob("third_party/**");
    EXPECT_TRUE(glob.matches("third_party/zlib/inflate.c", false));
    EXPECT_TRUE(glob.matches("third_party/a.h", false));
    EXPECT_FALSE(glob.matches("src/third_party.c", false));
    const PathGlob middle("src/**/test_*.cpp");
    EXPECT_TRUE(middle.matches("src/test_a.cpp", false)); // ** may stand for no directory
    EXPECT_TRUE(middle.matches("src/x/y/test_b.cpp", false));
    EXPECT_FALSE(middle.matches("lib/x/test_b.cpp", false));
    EXPECT_TRUE(PathGlob("**/gen/*.h").matches("a/b/gen/x.h", false));
}

TEST(PathGlobTest, ClassesAndQuestionMarks)
{
    EXPECT_TRUE(PathGlob("file?.[ch]").matches("file1.c", false));
    EXPECT_TRUE(PathGlob("file?.[ch]").matches("dir/fileX.h", false));
    EXPECT_FALSE(PathGlob("file?.[ch]").matches("file12.c", false));
    EXPECT_FALSE(PathGlob("[!a]*.c").matches("abc.c", false));
    EXPECT_TRUE(PathGlob("[!a]*.c").matches("bbc.c", false));
}

TEST(PathGlobTest, ATrailingSlashMatchesDirectoriesOnly)
{
    const PathGlob glob("generated/");
    EXPECT_TRUE(glob.matches("generated", true));
    EXPECT_TRUE(glob.matches("a/generated", true));
    EXPECT_FALSE(glob.matches("generated", false));
}

TEST(PathGlobTest, ADirectoryThatMatchesExcludesEverythingBeneathIt)
{
    const std::vector<PathGlob> globs{PathGlob("build"), PathGlob("*.pb.h")};
    EXPECT_TRUE(App::isExcluded(globs, "build/x/a.c"));
    EXPECT_TRUE(App::isExcluded(globs, "src/build/a.c"));
    EXPECT_TRUE(App::isExcluded(globs, "src/msg.pb.h"));
    EXPECT_FALSE(App::isExcluded(globs, "src/builder.c"));
    EXPECT_FALSE(App::isExcluded({}, "build/a.c"));
    EXPECT_FALSE(App::isExcluded({PathGlob("")}, "a.c"));
}

} // namespace
