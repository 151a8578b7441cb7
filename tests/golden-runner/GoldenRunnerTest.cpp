// The golden runner's own parts: the visible diff, the scheme layering of a
// case, the tree check, the case names, and the checks a case is judged by.
// Each test that needs a tree builds one in a temporary directory.
#include "GoldenDiff.h"
#include "GoldenRun.h"
#include "GoldenTree.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace Golden;

// ---- the visible diff ----

TEST(GoldenDiffTest, VisibleLineShowsTabsCarriageReturnsAndTrailingBlanks)
{
    EXPECT_EQ(visibleLine("\tint a;  \r", true), "^Iint a;  ^M$");
    EXPECT_EQ(visibleLine("x", false), "x");
    EXPECT_EQ(visibleLine(std::string("a\0b\x1b\x7f", 5), false), "a^@b^[^?");
    EXPECT_EQ(visibleLine("caf\xc3\xa9", true), "caf\xc3\xa9$");
}

TEST(GoldenDiffTest, FirstDifferenceCountsLinesAndColumns)
{
    EXPECT_EQ(firstDifference("same", "same"), "");
    EXPECT_EQ(firstDifference("ab\ncd\n", "ab\nc d\n"), "line 2, column 2");
    EXPECT_EQ(firstDifference("ab", "abc"), "line 1, column 3");
}

TEST(GoldenDiffTest, EqualTextsHaveNoDiff)
{
    EXPECT_EQ(visibleDiff("a\nb\n", "a\nb\n"), "");
}

TEST(GoldenDiffTest, ChangedLineWithContext)
{
    const std::string expected = "1\n2\n3\n4\n5\n6\n7\n8\n9\n";
    const std::string actual = "1\n2\n3\n4\n\t5 \n6\n7\n8\n9\n";
    EXPECT_EQ(visibleDiff(expected, actual, 2),
              "@@ expected line 3, actual line 3 @@\n"
              "    3    3  3$\n"
              "    4    4  4$\n"
              "-   5       5$\n"
              "+        5  ^I5 $\n"
              "    6    6  6$\n"
              "    7    7  7$\n");
}

TEST(GoldenDiffTest, AddedAndRemovedLinesAndSeparateHunks)
{
    const std::string expected = "a\nb\nc\nd\ne\nf\ng\nh\n";
    const std::string actual = "a\nB\nb\nc\nd\ne\nf\nh\n";
    EXPECT_EQ(visibleDiff(expected, actual, 1),
              "@@ expected line 1, actual line 1 @@\n"
              "    1    1  a$\n"
              "+        2  B$\n"
              "    2    3  b$\n"
              "@@ expected line 6, actual line 7 @@\n"
              "    6    7  f$\n"
              "-   7       g$\n"
              "    8    8  h$\n");
}

TEST(GoldenDiffTest, LineEndingsAndAMissingFinalBreakShow)
{
    EXPECT_EQ(visibleDiff("a\r\n", "a\n", 0),
              "@@ expected line 1, actual line 1 @@\n"
              "-   1       a^M$\n"
              "+        1  a$\n");
    EXPECT_EQ(visibleDiff("a\n", "a", 0),
              "@@ expected line 1, actual line 1 @@\n"
              "-   1       a$\n"
              "+        1  a  (no line break at the end)\n");
    EXPECT_EQ(visibleDiff("", "\n", 0),
              "@@ expected line 1, actual line 1 @@\n"
              "+        1  $\n");
}

// ---- trees in a temporary directory ----

class GoldenTreeTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path()
            / ("tw-golden-" + std::to_string(::getpid()) + "-"
               + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_dir);
        fs::create_directories(m_dir / "golden");
        fs::create_directories(m_dir / "schemes");
        m_roots = {m_dir / "golden", m_dir / "schemes"};
        put("golden/base.tws", scheme("base", "1 LINE_WRAP 0\n2 TAB_SIZE 4\n3 WS_AFTER_CS_KEY \" \"\n"));
        put("schemes/K&R.tws", scheme("K&R", "2 TAB_SIZE 8\n3 GLOBAL_INDENT_CONTENT \"\\t\"\n"));
    }
    void TearDown() override { fs::remove_all(m_dir); }

    static std::string scheme(const std::string& name, const std::string& entries)
    {
        return "Kempt::PropertySet\n1\n\"" + name + "\"\n" + entries;
    }

    void put(const std::string& relative, const std::string& text)
    {
        fs::create_directories((m_dir / relative).parent_path());
        ASSERT_TRUE(writeFile(m_dir / relative, text));
    }

    Case onlyCase()
    {
        const std::vector<Case> cases = findCases(m_roots.golden);
        EXPECT_EQ(cases.size(), 1u);
        return cases.empty() ? Case() : cases.front();
    }

    Kempt::PropertySet schemeOfOnlyCase()
    {
        Kempt::PropertySet set;
        std::string error;
        EXPECT_TRUE(schemeOf(m_roots, onlyCase(), set, error)) << error;
        return set;
    }

    static std::int32_t intOf(const Kempt::PropertySet& set, const char* name)
    {
        std::int32_t value = -1;
        set.getInt(name, value);
        return value;
    }

    static std::string stringOf(const Kempt::PropertySet& set, const char* name)
    {
        std::string value = "<unset>";
        set.getString(name, value);
        return value;
    }

    fs::path m_dir;
    Roots m_roots;
};

TEST_F(GoldenTreeTest, CasesAreFoundSortedWithTheirIds)
{
    put("golden/b/two.in.cpp", "");
    put("golden/a/one.in.cpp", "");
    put("golden/a/one.out.cpp", "");
    put("golden/a/deeper/three.in.cpp", "");
    const std::vector<Case> cases = findCases(m_roots.golden);
    ASSERT_EQ(cases.size(), 3u);
    EXPECT_EQ(cases[0].id, "a/deeper/three");
    EXPECT_EQ(cases[1].id, "a/one");
    EXPECT_EQ(cases[2].id, "b/two");
    EXPECT_TRUE(cases[1].expected().has_value());
    EXPECT_FALSE(cases[2].expected().has_value());
    EXPECT_TRUE(findCases(m_dir / "missing").empty());
}

TEST_F(GoldenTreeTest, ACaseStartsFromTheBase)
{
    put("golden/area/x.in.cpp", "");
    const Kempt::PropertySet set = schemeOfOnlyCase();
    EXPECT_EQ(intOf(set, "TAB_SIZE"), 4);
    EXPECT_EQ(stringOf(set, "WS_AFTER_CS_KEY"), " ");
}

TEST_F(GoldenTreeTest, FolderAndCaseSchemesLayOverTheBaseInOrder)
{
    put("golden/area/_scheme.tws", scheme("area", "2 TAB_SIZE 2\n3 WS_AFTER_FN_NAME \"\"\n"));
    put("golden/area/sub/_scheme.tws", scheme("sub", "2 TAB_SIZE 3\n"));
    put("golden/area/sub/x.tws", scheme("x", "3 WS_AFTER_CS_KEY \"\\n\"\n"));
    put("golden/area/sub/x.in.cpp", "");
    const Kempt::PropertySet set = schemeOfOnlyCase();
    EXPECT_EQ(intOf(set, "TAB_SIZE"), 3);
    EXPECT_EQ(stringOf(set, "WS_AFTER_FN_NAME"), "");
    EXPECT_EQ(stringOf(set, "WS_AFTER_CS_KEY"), "\n");
    bool wrap = true;
    EXPECT_TRUE(set.getBool("LINE_WRAP", wrap));
    EXPECT_FALSE(wrap);
}

TEST_F(GoldenTreeTest, AFolderBuiltInReplacesTheSchemeSoFarAndItsOverlayStillApplies)
{
    put("golden/area/_builtin", "K&R\n");
    put("golden/area/_scheme.tws", scheme("area", "2 RIGHT_MARGIN 60\n"));
    put("golden/area/x.in.cpp", "");
    const Kempt::PropertySet set = schemeOfOnlyCase();
    EXPECT_EQ(intOf(set, "TAB_SIZE"), 8);
    EXPECT_EQ(intOf(set, "RIGHT_MARGIN"), 60);
    EXPECT_EQ(stringOf(set, "GLOBAL_INDENT_CONTENT"), "\t");
    EXPECT_EQ(stringOf(set, "WS_AFTER_CS_KEY"), "<unset>"); // the base is gone
}

TEST_F(GoldenTreeTest, ACaseBuiltInAndTheEmptyScheme)
{
    put("golden/area/_builtin", "K&R");
    put("golden/area/x.builtin", "(empty)\r\n");
    put("golden/area/x.in.cpp", "");
    const Kempt::PropertySet set = schemeOfOnlyCase();
    EXPECT_EQ(set.count(), 0u);
}

TEST_F(GoldenTreeTest, UnknownBuiltInAndBadSchemeFileAreErrorsNamingTheFile)
{
    put("golden/area/x.builtin", "No such scheme\n");
    put("golden/area/x.in.cpp", "");
    Kempt::PropertySet set;
    std::string error;
    EXPECT_FALSE(schemeOf(m_roots, onlyCase(), set, error));
    EXPECT_NE(error.find("x.builtin"), std::string::npos) << error;
    EXPECT_NE(error.find("No such scheme"), std::string::npos) << error;

    fs::remove(m_dir / "golden/area/x.builtin");
    put("golden/area/x.tws", "not a scheme\n");
    EXPECT_FALSE(schemeOf(m_roots, onlyCase(), set, error));
    EXPECT_NE(error.find("x.tws: not a valid scheme file"), std::string::npos) << error;
}

TEST_F(GoldenTreeTest, TreeCheckAcceptsTheConvention)
{
    put("golden/README.md", "");
    put("golden/area/_scheme.tws", scheme("area", ""));
    put("golden/area/_builtin", "K&R\n");
    put("golden/area/a.in.cpp", "");
    put("golden/area/a.out.cpp", "");
    put("golden/area/a.tws", scheme("a", ""));
    put("golden/area/b.in.cpp", "");
    put("golden/area/b.messages", "");
    put("golden/area/b.builtin", "(empty)");
    EXPECT_EQ(checkTree(m_roots), std::vector<std::string>());
}

TEST_F(GoldenTreeTest, TreeCheckReportsEveryStrayFile)
{
    put("golden/root-case.in.cpp", "");
    put("golden/area/a.in.cpp", "");
    put("golden/area/a.out.cpp", "");
    put("golden/area/a.messages", "");
    put("golden/area/orphan.out.cpp", "");
    put("golden/area/typo.in.cc", "");
    put("golden/area/bad.tws", "garbage");
    put("golden/area/bad.in.cpp", "");
    put("golden/area/c d.in.cpp", "");
    put("golden/area/_builtin", "Nope\n");
    const std::vector<std::string> problems = checkTree(m_roots);
    const std::string all = ::testing::PrintToString(problems);
    ASSERT_EQ(problems.size(), 7u) << all;
    EXPECT_NE(all.find("root-case.in.cpp: a case belongs in an area folder"), std::string::npos) << all;
    EXPECT_NE(all.find("area/a.messages: a case with messages has no .out.cpp"), std::string::npos) << all;
    EXPECT_NE(all.find("area/orphan.out.cpp: no orphan.in.cpp beside it"), std::string::npos) << all;
    EXPECT_NE(all.find("area/typo.in.cc: not part of the golden convention"), std::string::npos) << all;
    EXPECT_NE(all.find("bad.tws: not a valid scheme file"), std::string::npos) << all;
    EXPECT_NE(all.find("area/c d.in.cpp: case names take"), std::string::npos) << all;
    EXPECT_NE(all.find("no built-in scheme \\\"Nope\\\""), std::string::npos) << all;
}

TEST_F(GoldenTreeTest, TreeCheckWantsTheBase)
{
    fs::remove(m_dir / "golden/base.tws");
    const std::vector<std::string> problems = checkTree(m_roots);
    ASSERT_EQ(problems.size(), 1u);
    EXPECT_NE(problems[0].find("base.tws: cannot be read"), std::string::npos);
}

TEST(GoldenNamesTest, TestNamesAreGoogleTestNamesAndUnique)
{
    std::vector<Case> cases(4);
    cases[0].id = "parse-failures/a-b";
    cases[1].id = "parse-failures/a_b";
    cases[2].id = "parse_failures/a_b";
    cases[3].id = "x/K+R.1";
    EXPECT_EQ(testNames(cases),
              (std::vector<std::string>{"parse_failures__a_b", "parse_failures__a_b_2", "parse_failures__a_b_3",
                                        "x__K_R_1"}));
}

TEST(GoldenNamesTest, MessageLines)
{
    Kempt::FormatMessageList messages;
    messages.push_back(Kempt::FormatMessage::coded(1, {4, 2}));
    messages.push_back(Kempt::FormatMessage::composed("Odd.", {}));
    EXPECT_EQ(messageLines(messages), (std::vector<std::string>{"4:2: Unexpected EOF found.", "0:0: Odd."}));
    EXPECT_EQ(parseMessageLines("4:2: a\r\n\n  \n5:1: b"), (std::vector<std::string>{"4:2: a", "5:1: b"}));
}

// ---- the checks of a case ----

LoadedCase loadedCase(const std::string& input, const std::string& expected)
{
    LoadedCase loaded;
    loaded.input = input;
    loaded.expected = expected;
    loaded.hasExpectedFile = expected != input;
    return loaded;
}

TEST(GoldenCheckTest, ATextThatComesOutAsItWentInPasses)
{
    EXPECT_EQ(checkCase(loadedCase("int x;\n", "int x;\n")), std::vector<std::string>());
}

TEST(GoldenCheckTest, WrongExpectedOutputFailsWithAVisibleDiffAndATokenReport)
{
    // The pipeline gives "int  x;\n" back; an expectation with another token is wrong twice.
    const std::vector<std::string> failures = checkCase(loadedCase("int  x;\n", "int  y;\n"));
    ASSERT_EQ(failures.size(), 2u);
    EXPECT_NE(failures[0].find("output differs from .out.cpp: first difference at line 1, column 6"),
              std::string::npos)
        << failures[0];
    EXPECT_NE(failures[0].find("-   1       int  y;$\n+        1  int  x;$\n"), std::string::npos) << failures[0];
    EXPECT_EQ(failures[1], "the expected output changes tokens of the input: line 1:6 -> line 1:6: "
                           "token \"x\" became \"y\"");
}

TEST(GoldenCheckTest, ATextThatDoesNotParseFailsUnlessMessagesAreExpected)
{
    const std::string input = "void f() {\n";
    const std::vector<std::string> failures = checkCase(loadedCase(input, input));
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("the input did not format:\n    1:10: Unexpected EOF found."), std::string::npos)
        << failures[0];

    LoadedCase expecting = loadedCase(input, input);
    expecting.hasMessages = true;
    expecting.expectedMessages = {"1:10: Unexpected EOF found."};
    EXPECT_EQ(checkCase(expecting), std::vector<std::string>());

    expecting.expectedMessages = {"1:1: Something else."};
    const std::vector<std::string> wrong = checkCase(expecting);
    ASSERT_EQ(wrong.size(), 1u);
    EXPECT_NE(wrong[0].find("messages differ\n  expected:\n    1:1: Something else.\n  actual:\n"
                            "    1:10: Unexpected EOF found.\n"),
              std::string::npos)
        << wrong[0];
}

TEST(GoldenCheckTest, MessagesExpectedFromATextThatFormatsFail)
{
    LoadedCase loaded = loadedCase("int x;\n", "int x;\n");
    loaded.hasMessages = true;
    const std::vector<std::string> failures = checkCase(loaded);
    ASSERT_EQ(failures.size(), 1u);
    EXPECT_NE(failures[0].find("the text formatted, but the case expects it to fail"), std::string::npos);
}

TEST(GoldenCheckTest, BraceRewritingSchemesExcuseOnlyTheBracesTheRewriterChanged)
{
    const std::string input = "void f()\n{\n    if (a) {\n        b();\n    }\n}\n";
    Kempt::PropertySet scheme;
    scheme.setInt("IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE", 2);
    const FormatRun run = formatText(input, scheme);
    ASSERT_TRUE(run.succeeded()) << run.explain();
    ASSERT_EQ(run.output.find("{\n        b"), std::string::npos) << run.output;

    LoadedCase good = loadedCase(input, run.output);
    good.scheme = scheme;
    EXPECT_EQ(checkCase(good), std::vector<std::string>());

    // The function's own braces are no business of the rewriter.
    std::string tampered = run.output;
    tampered.erase(tampered.rfind('}'), 1);
    LoadedCase bad = loadedCase(input, tampered);
    bad.scheme = scheme;
    const std::vector<std::string> failures = checkCase(bad);
    ASSERT_FALSE(failures.empty());
    bool toldTokens = false;
    for (const std::string& f : failures)
        toldTokens = toldTokens || f.find("the expected output changes tokens of the input") != std::string::npos;
    EXPECT_TRUE(toldTokens);
}

} // namespace
