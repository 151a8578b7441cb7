// The tidewright command, run as a program: arguments, output, messages and
// exit codes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>

namespace {

namespace fs = std::filesystem;

struct Result {
    int status;
    std::string out;
    std::string err;
};

std::string readFile(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

void writeFile(const fs::path& path, const std::string& text)
{
    std::ofstream out(path, std::ios::binary);
    out << text;
}

std::string quote(const std::string& arg)
{
    std::string q = "'";
    for (char c : arg)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

class CliTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path() / ("tw-cli-" + std::to_string(::getpid()) + "-"
                                             + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(m_dir);
    }
    void TearDown() override { fs::remove_all(m_dir); }

    fs::path file(const std::string& name, const std::string& text)
    {
        const fs::path p = m_dir / name;
        writeFile(p, text);
        return p;
    }

    Result run(const std::vector<std::string>& args, const std::string& input = "")
    {
        const fs::path in = file("stdin.txt", input);
        std::string cmd = quote(TW_CLI_PATH);
        for (const std::string& a : args)
            cmd += " " + quote(a);
        cmd += " < " + quote(in.string()) + " > " + quote((m_dir / "stdout.txt").string()) + " 2> "
            + quote((m_dir / "stderr.txt").string());
        const int raw = std::system(cmd.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readFile(m_dir / "stdout.txt"),
                readFile(m_dir / "stderr.txt")};
    }

    fs::path m_dir;
};

const std::string DATA = TW_TEST_DATA_DIR;

TEST_F(CliTest, VersionAndHelp)
{
    const Result version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tidewright 1.3.0\n");
    const Result help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_NE(help.out.find("--scheme-file"), std::string::npos);
    EXPECT_NE(help.out.find("--dump-tokens"), std::string::npos);
    EXPECT_NE(help.out.find("--dump-tree"), std::string::npos);
}

TEST_F(CliTest, UnknownOptionIsUsageError)
{
    const Result r = run({"--no-such-option"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("--no-such-option"), std::string::npos);
}

TEST_F(CliTest, UnreadableFileIsUsageErrorNamingIt)
{
    const Result r = run({(m_dir / "missing.cpp").string()});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("missing.cpp"), std::string::npos);
    const Result dir = run({m_dir.string()});
    EXPECT_EQ(dir.status, 2);
    EXPECT_NE(dir.err.find("directory"), std::string::npos);
}

TEST_F(CliTest, StandardInputPassesUnchanged)
{
    for (const std::string& text : {std::string("int main()\r\n{\r\n\treturn 0;\r\n}\r\n"), std::string(""),
                                    std::string("#if 0\n\x01\x02\xff\xfe junk \"unterminated\n'\n#endif\n"),
                                    std::string("x;")}) {
        const Result r = run({}, text);
        EXPECT_EQ(r.status, 0);
        EXPECT_EQ(r.out, text);
        EXPECT_EQ(r.err, "");
        EXPECT_EQ(run({"-"}, text).out, text);
    }
}

TEST_F(CliTest, FilesAreFormattedInOrder)
{
    const fs::path a = file("a.cpp", "int a;\n");
    const fs::path b = file("b.h", "int b;\r\n");
    const Result r = run({a.string(), b.string()});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "int a;\nint b;\r\n");
}

TEST_F(CliTest, BadFileAmongGoodOnesIsReportedAndTheRestFormatted)
{
    const fs::path a = file("a.cpp", "int a;\n");
    const Result r = run({a.string(), (m_dir / "gone.cpp").string(), a.string()});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "int a;\nint a;\n");
    EXPECT_NE(r.err.find("gone.cpp"), std::string::npos);
}

TEST_F(CliTest, BundledSampleComesOutUnchanged)
{
    const std::string sample = std::string(TW_EXAMPLES_DIR) + "/sample.cpp";
    const Result r = run({sample});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, readFile(sample));
}

TEST_F(CliTest, DumpTokensPrintsExactTokens)
{
    EXPECT_EQ(run({"--dump-tokens"}, "A :: B").out,
              "1:1 1:1 120 IDENTIFIER \"A\"\n1:3 1:6 120 IDENTIFIER \"::B\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "::operator new").out,
              "1:1 1:10 82 OPERATOR_KEY \"::operator\"\n1:12 1:14 84 NEW_KEY \"new\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "X::~X").out, "1:1 1:5 120 IDENTIFIER \"X::~X\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "a?b::c:d").out,
              "1:1 1:1 120 IDENTIFIER \"a\"\n1:2 1:2 50 QUESTION \"?\"\n1:3 1:6 120 IDENTIFIER \"b::c\"\n"
              "1:7 1:7 7 COLON \":\"\n1:8 1:8 120 IDENTIFIER \"d\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "#define A /* x */\n").out,
              "1:1 2:0 1 PREPROC_DIRECTIVE \"#define A /* x *//\\n\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "1.2.3").out,
              "1:1 1:3 3 NUMBER_LITERAL \"1.2\"\n1:4 1:4 19 DOT \".\"\n1:5 1:5 3 NUMBER_LITERAL \"3\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "123abc").out, "1:4 1:6 120 IDENTIFIER \"abc\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "x = \"abc\ny").out,
              "1:1 1:1 120 IDENTIFIER \"x\"\n1:3 1:3 13 EQUALS \"=\"\n2:1 2:1 120 IDENTIFIER \"y\"\n");
    EXPECT_EQ(run({"--dump-tokens"}, "a\r\n\tb\r\n").out,
              "1:1 1:1 120 IDENTIFIER \"a\"\n2:2 2:2 120 IDENTIFIER \"b\"\n");
}

TEST_F(CliTest, DumpTokensOfAFile)
{
    const fs::path a = file("a.cpp", "int x;\n");
    const Result r = run({"--dump-tokens", a.string()});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "1:1 1:3 113 INT_KEY \"int\"\n1:5 1:5 120 IDENTIFIER \"x\"\n1:6 1:6 6 SEMICOLON \";\"\n");
}

TEST_F(CliTest, SchemeFile)
{
    const Result good = run({"--scheme-file", DATA + "/schemes/minimal.tws"}, "int x;\n");
    EXPECT_EQ(good.status, 0);
    EXPECT_EQ(good.out, "int x;\n");
    for (const std::string name : {"missing.tws", "version2.tws", "garbage.tws"}) {
        const Result bad = run({"--scheme-file", DATA + "/schemes/" + name}, "int x;\n");
        EXPECT_EQ(bad.status, 2) << name;
        EXPECT_EQ(bad.out, "") << name;
        EXPECT_NE(bad.err.find(name), std::string::npos) << bad.err;
    }
}

TEST_F(CliTest, ContractViolationIsReportedAndTheInputFails)
{
    const Result r = run({"--scheme-file", DATA + "/schemes/bad-brace-style.tws"}, "int x;\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("DBC Violation: Kempt/src/Kempt_FormatEngine.cpp("), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("): false"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("<stdin>"), std::string::npos) << r.err;
}

TEST_F(CliTest, FileThatDoesNotParsePrintsMessageLinesOnStandardError)
{
    // A failed run prints nothing on standard output; the message lines have
    // the form path(line) : severity: col N: text.
    const fs::path a = file("a.cpp", "void f()\n{\n    public:\n}\n");
    const fs::path b = file("b.cpp", "int b;\n");
    const Result r = run({a.string(), b.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "int b;\n");
    EXPECT_EQ(r.err, a.string() + "(3) : error: col 5: public: protected: private: labels are not allowed inside block "
                                  "statements.\n");
}

TEST_F(CliTest, DumpTreeShowsTheShapeOfEachInput)
{
    EXPECT_EQ(run({"--dump-tree"}, "foo(a, b);").out, "RootNode 1:1-1:10\n"
                                                      "  FunctionDeclNode 1:1-1:10\n"
                                                      "    FunctionHeadNode 1:1-1:10\n"
                                                      "      IdNode 1:1-1:3 text=\"foo\"\n"
                                                      "      ParameterListNode 1:4-1:9\n"
                                                      "        ParameterNode 1:5-1:5\n"
                                                      "        ParameterNode 1:8-1:8\n");
    EXPECT_EQ(run({"--dump-tree"}, "int x = f(1);").out, "RootNode 1:1-1:13\n"
                                                         "  DataDeclNode 1:1-1:13\n"
                                                         "    TypeNode 1:1-1:3\n"
                                                         "    IdNode 1:5-1:5 text=\"x\"\n"
                                                         "    ExprNode 1:7-1:13\n");
    EXPECT_EQ(run({"--dump-tree"}, "int (*f)(int);").out, "RootNode 1:1-1:14\n"
                                                          "  FunctionPtrDeclNode 1:1-1:14\n"
                                                          "    TypeNode 1:1-1:3\n"
                                                          "    IdNode 1:5-1:8 text=\"( * f )\"\n"
                                                          "    ParameterListNode 1:9-1:13\n"
                                                          "      ParameterNode 1:10-1:12\n");
    EXPECT_EQ(run({"--dump-tree"}, "#if 0\n} junk {\n#endif\n").out, "RootNode 1:1-4:0\n"
                                                                     "  PreprocDirectiveNode 1:1-4:0\n");
    EXPECT_EQ(run({"--dump-tree"}, "/* TIDEWRIGHT-OFF */ {{ /* TIDEWRIGHT-ON */").out,
              "RootNode 1:1-1:43\n"
              "  CommentNode 1:1-1:43 protected=1\n");
    EXPECT_EQ(run({"--dump-tree"}, "class A {\npublic:\n};").out,
              "RootNode 1:1-3:2\n"
              "  ClassDeclNode 1:1-3:2\n"
              "    ClassHeadNode 1:1-1:7\n"
              "      ClassNameNode 1:1-1:7 type=CLASS_KEY text=\"class A\"\n"
              "    ClassBodyNode 1:9-3:1\n"
              "      AccessSpecNode 2:1-2:7 kind=1 text=\"public\"\n");
    const std::string ifElse = run({"--dump-tree"}, "void f() { if (a) b; else c; }").out;
    EXPECT_NE(ifElse.find("      CtrlStmtNode 1:12-1:28\n"
                          "        CtrlSubStmtNode 1:12-1:20\n"),
              std::string::npos)
        << ifElse;
    EXPECT_NE(ifElse.find("        CtrlSubStmtNode 1:22-1:28\n"), std::string::npos) << ifElse;
}

TEST_F(CliTest, DumpTreeAndDumpTokensExcludeEachOther)
{
    const Result r = run({"--dump-tree", "--dump-tokens"}, "int x;");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
}

TEST_F(CliTest, DumpTreeFoldsFencedRegions)
{
    EXPECT_EQ(run({"--dump-tree"}, "// TW-FORMAT-OFF\nint   x;\n// TW-FORMAT-ON\n").out,
              "RootNode 1:1-4:0\n"
              "  CommentNode 1:1-4:0 protected=1\n");
}

TEST_F(CliTest, DumpTreeOfAFileThatDoesNotParse)
{
    const fs::path bad = file("bad.cpp", "void f() { public: x; }\n");
    const fs::path good = file("good.cpp", "int x;\n");
    const Result r = run({"--dump-tree", bad.string(), good.string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "RootNode 1:1-1:6\n"
                     "  DataDeclNode 1:1-1:6\n"
                     "    TypeNode 1:1-1:3\n"
                     "    IdNode 1:5-1:5 text=\"x\"\n");
    EXPECT_EQ(r.err, bad.string()
                         + "(1) : error: col 12: public: protected: private: labels are not allowed inside block "
                           "statements.\n");
}

} // namespace
