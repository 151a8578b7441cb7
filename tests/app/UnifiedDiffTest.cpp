// The unified diff of --diff: its form, and that patch -p0 applies it to give
// the formatted text.
#include "App_UnifiedDiff.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <cstdlib>

namespace {

namespace fs = std::filesystem;
using tw_test::readBytes;
using tw_test::TempDir;
using tw_test::writeBytes;

TEST(UnifiedDiffTest, EqualTextsGiveNothing)
{
    EXPECT_EQ(App::unifiedDiff("a.cpp", "int x;\n", "int x;\n"), "");
    EXPECT_EQ(App::unifiedDiff("a.cpp", "", ""), "");
}

TEST(UnifiedDiffTest, OneChangedLineWithItsContext)
{
    const std::string before = "1\n2\n3\n4\n5\n6\n7\n8\n9\n";
    const std::string after = "1\n2\n3\n4\nfive\n6\n7\n8\n9\n";
    EXPECT_EQ(App::unifiedDiff("src/a.cpp", before, after),
              "--- src/a.cpp\t(original)\n+++ src/a.cpp\t(formatted)\n"
              "@@ -2,7 +2,7 @@\n 2\n 3\n 4\n-5\n+five\n 6\n 7\n 8\n");
}

TEST(UnifiedDiffTest, ChangesFarApartMakeTwoHunksAndNearOnesOne)
{
    std::string before;
    for (int i = 1; i <= 30; ++i)
        before += std::to_string(i) + "\n";
    std::string far = before;
    far.replace(far.find("\n2\n") + 1, 1, "two");
    far.replace(far.find("\n29\n") + 1, 2, "twenty-nine");
    const std::string d = App::unifiedDiff("a", before, far);
    EXPECT_EQ(std::count(d.begin(), d.end(), '@'), 8) << d; // two heads of four "@"
    std::string near = before;
    near.replace(near.find("\n10\n") + 1, 2, "ten");
    near.replace(near.find("\n16\n") + 1, 2, "sixteen");
    const std::string one = App::unifiedDiff("a", before, near);
    EXPECT_EQ(std::count(one.begin(), one.end(), '@'), 4) << one;
}

TEST(UnifiedDiffTest, ALastLineWithoutNewlineIsMarked)
{
    EXPECT_EQ(App::unifiedDiff("a", "x", "y"),
              "--- a\t(original)\n+++ a\t(formatted)\n@@ -1,1 +1,1 @@\n-x\n\\ No newline at end of file\n+y\n"
              "\\ No newline at end of file\n");
}

TEST(UnifiedDiffTest, ColoursWhenAsked)
{
    const std::string d = App::unifiedDiff("a", "x\n", "y\n", {.colour = true});
    EXPECT_NE(d.find("\x1b[31m-x\x1b[0m\n"), std::string::npos) << d;
    EXPECT_NE(d.find("\x1b[32m+y\x1b[0m\n"), std::string::npos);
    EXPECT_NE(d.find("\x1b[36m@@ -1,1 +1,1 @@\x1b[0m\n"), std::string::npos);
    EXPECT_EQ(App::unifiedDiff("a", "x\n", "y\n").find('\x1b'), std::string::npos);
}

// Writes `before` to NAME in a fresh directory, applies the diff there with
// `patch -p0`, and returns what the file then holds.
std::string patched(const fs::path& dir, const std::string& name, const std::string& before, const std::string& after)
{
    fs::remove_all(dir);
    fs::create_directories(dir / fs::path(name).parent_path());
    writeBytes(dir / name, before);
    writeBytes(dir / "change.diff", App::unifiedDiff(name, before, after));
    const std::string cmd = "cd '" + dir.string() + "' && patch -p0 --quiet --batch < change.diff > patch.log 2>&1";
    const int status = std::system(cmd.c_str());
    EXPECT_EQ(status, 0) << readBytes(dir / "patch.log") << readBytes(dir / "change.diff");
    return readBytes(dir / name);
}

// Thousands of changed lines: the line matcher then works in several rounds,
// and the diff must still be exact.
std::string manyLines(bool squeezed)
{
    std::string text;
    for (int i = 0; i < 6000; ++i)
        text += "#define NAME_" + std::to_string(i) + (squeezed ? " " : "        ") + std::to_string(i % 97) + "\n";
    return text;
}

TEST(UnifiedDiffTest, PatchAppliesTheDiffToGiveTheFormattedText)
{
    TempDir tmp;
    const fs::path dir = tmp.path() / "tree";
    struct Case {
        std::string before;
        std::string after;
    };
    std::string longText;
    for (int i = 0; i < 200; ++i)
        longText += "int  v" + std::to_string(i) + "  =  " + std::to_string(i) + ";\n";
    std::string longSqueezed;
    for (int i = 0; i < 200; ++i)
        longSqueezed += (i % 7 == 0 ? "int v" : "int  v") + std::to_string(i) + (i % 7 == 0 ? " = " : "  =  ")
            + std::to_string(i) + ";\n";
    const std::vector<Case> cases = {
        {"int  x;\nint y;\n", "int x;\nint y;\n"},
        {"a\nb\nc\n", "a\nc\n"},
        {"a\nb\n", "a\nb\nc\nd\n"},
        {"", "int x;\n"},
        {"int x;\n", ""},
        {"int x;", "int x;\n"},
        {"int x;\n", "int x;"},
        {"if (a)\r\n{\r\n    b();\r\n}\r\n", "if (a) {\r\n  b();\r\n}\r\n"},
        {"crlf\r\nline\r\n", "crlf\nline\n"},
        {"\tint\tx;\n#define A  1\n", "    int x;\n#define A 1\n"},
        {longText, longSqueezed},
        {manyLines(false), manyLines(true)},
    };
    for (const Case& c : cases)
        EXPECT_EQ(patched(dir, "src/a file.cpp", c.before, c.after), c.after) << c.before;
}

} // namespace
