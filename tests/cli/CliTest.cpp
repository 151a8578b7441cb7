// The tidewright command, run as a program: arguments, output, messages and
// exit codes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
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
        fs::create_directories(m_dir / "home");
        // No test reads or writes the user's real home: the scheme directory
        // is the test's own, and so is HOME.
        m_env = {{"HOME", (m_dir / "home").string()},
                 {"TIDEWRIGHT_SCHEME_DIR", schemeDir().string()},
                 {"XDG_DATA_HOME", std::nullopt},
                 {"TIDEWRIGHT_TRACE", std::nullopt}};
    }
    void TearDown() override { fs::remove_all(m_dir); }

    fs::path file(const std::string& name, const std::string& text)
    {
        const fs::path p = m_dir / name;
        writeFile(p, text);
        return p;
    }

    fs::path schemeDir() const { return m_dir / "schemes"; }

    Result run(const std::vector<std::string>& args, const std::string& input = "")
    {
        return runTo(m_dir / "stdout.txt", args, input);
    }

    // Runs with standard output going to `out` (such as /dev/full); the
    // result's `out` is what that file holds afterwards.
    Result runTo(const fs::path& out, const std::vector<std::string>& args, const std::string& input = "")
    {
        const fs::path in = file("stdin.txt", input);
        std::string cmd = "env";
        for (const auto& [name, value] : m_env) // options first, then assignments
            cmd += value ? "" : " -u " + quote(name);
        for (const auto& [name, value] : m_env)
            cmd += value ? " " + quote(name + "=" + *value) : "";
        cmd += " " + quote(TW_CLI_PATH);
        for (const std::string& a : args)
            cmd += " " + quote(a);
        cmd += " < " + quote(in.string()) + " > " + quote(out.string()) + " 2> "
            + quote((m_dir / "stderr.txt").string());
        const int raw = std::system(cmd.c_str());
        // A device such as /dev/full reads without end: only files are read back.
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, fs::is_regular_file(out) ? readFile(out) : std::string(),
                readFile(m_dir / "stderr.txt")};
    }

    fs::path m_dir;
    // Variables of the command's environment: a value, or nullopt to unset.
    std::map<std::string, std::optional<std::string>> m_env;
};

const std::string DATA = TW_TEST_DATA_DIR;

TEST_F(CliTest, VersionAndHelp)
{
    const Result version = run({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_EQ(version.out, "tidewright 1.5.0\n");
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

TEST_F(CliTest, StandardInputIsFormatted)
{
    // The default scheme indents a function body by four blanks; the text
    // keeps its CR LF line breaks.
    const Result r = run({}, "int main()\r\n{\r\n\treturn 0;\r\n}\r\n");
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "int main()\r\n{\r\n    return 0;\r\n}\r\n");
    EXPECT_EQ(r.err, "");
}

TEST_F(CliTest, StandardInputPassesUnchanged)
{
    // Texts the default scheme leaves as they are, bytes and line breaks.
    for (const std::string& text : {std::string("int main()\r\n{\r\n    return 0;\r\n}\r\n"), std::string(""),
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
    // More than one file: a header line before each.
    EXPECT_EQ(r.out, "==> " + a.string() + " <==\nint a;\n\n==> " + b.string() + " <==\nint b;\r\n");
}

TEST_F(CliTest, BadFileAmongGoodOnesIsReportedAndTheRestFormatted)
{
    const fs::path a = file("a.cpp", "int a;\n");
    const Result r = run({a.string(), (m_dir / "gone.cpp").string(), a.string()});
    EXPECT_EQ(r.status, 2);
    // A file named twice is formatted once.
    EXPECT_EQ(r.out, "==> " + a.string() + " <==\nint a;\n");
    EXPECT_NE(r.err.find("gone.cpp"), std::string::npos);
}

// examples/sample.default.cpp is the bundled sample as the default scheme
// lays it out (the README shows both); laying it out again changes nothing.
TEST_F(CliTest, BundledSampleIsLaidOutByTheDefaultScheme)
{
    const std::string sample = std::string(TW_EXAMPLES_DIR) + "/sample.cpp";
    const std::string laidOut = std::string(TW_EXAMPLES_DIR) + "/sample.default.cpp";
    const Result r = run({sample});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.err, "");
    EXPECT_NE(r.out, readFile(sample));
    EXPECT_EQ(r.out, readFile(laidOut));
    EXPECT_EQ(run({laidOut}).out, readFile(laidOut));
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
    EXPECT_EQ(r.out, "==> " + b.string() + " <==\nint b;\n");
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

// ---------------------------------------------------------------------------
// Schemes of the scheme directory.

const std::string SCHEMES = TW_SCHEMES_DIR;
const std::string BUILT_IN_LIST = "GNU (built-in)\nK&R (built-in)\nLeave as is (built-in)\nLinux kernel (built-in)\n"
                                  "Stroustrup (built-in)\nWhitesmiths (built-in)\ndefault (built-in)\n";
const fs::perms READ_ONLY = fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read;

std::string scheme(const std::string& name, const std::string& properties)
{
    return "Kempt::PropertySet\n1\n\"" + name + "\"\n" + properties;
}

std::map<std::string, std::string> contentsOf(const fs::path& dir)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::directory_iterator(dir))
        files[entry.path().filename().string()] =
            readFile(entry.path()) + " mode " + std::to_string(static_cast<int>(fs::status(entry.path()).permissions()));
    return files;
}

TEST_F(CliTest, ListSchemesOnAFreshAccountShowsTheBuiltInSchemesReadOnly)
{
    m_env["TIDEWRIGHT_SCHEME_DIR"] = std::nullopt; // only an empty home
    const Result r = run({"--list-schemes"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, BUILT_IN_LIST);
    EXPECT_EQ(r.err, "");
    const fs::path store = m_dir / "home" / ".local" / "share" / "tidewright" / "schemes";
    EXPECT_EQ((fs::status(store / "default.tws").permissions() & fs::perms::mask), READ_ONLY);
    EXPECT_EQ(readFile(store / "K&R.tws"), readFile(SCHEMES + "/K&R.tws"));
}

TEST_F(CliTest, ListSchemesInANewSchemeDirectory)
{
    const Result r = run({"--list-schemes"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, BUILT_IN_LIST);
    EXPECT_TRUE(fs::exists(schemeDir() / "Linux kernel.tws"));
    EXPECT_FALSE(fs::exists(m_dir / "home" / ".local"));
}

TEST_F(CliTest, SchemeDirectoryFromXdgDataHomeAndFromTheOption)
{
    m_env["TIDEWRIGHT_SCHEME_DIR"] = std::nullopt;
    m_env["XDG_DATA_HOME"] = (m_dir / "data").string();
    EXPECT_EQ(run({"--list-schemes"}).out, BUILT_IN_LIST);
    EXPECT_TRUE(fs::exists(m_dir / "data" / "tidewright" / "schemes" / "default.tws"));
    m_env["TIDEWRIGHT_SCHEME_DIR"] = (m_dir / "from-variable").string();
    EXPECT_EQ(run({"--scheme-dir", (m_dir / "from-option").string(), "--list-schemes"}).out, BUILT_IN_LIST);
    EXPECT_TRUE(fs::exists(m_dir / "from-option" / "default.tws"));
    EXPECT_FALSE(fs::exists(m_dir / "from-variable"));
}

TEST_F(CliTest, ListMarksOnlyReadOnlySchemesAsBuiltIn)
{
    fs::create_directories(schemeDir());
    file("schemes/mine.tws", scheme("Mine", "3 TIDEWRIGHT_VERSION \"1.3.0\"\n"));
    const Result r = run({"--list-schemes"});
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.out.find("\nMine\nStroustrup (built-in)\n"), std::string::npos) << r.out;
}

TEST_F(CliTest, SchemePicksASchemeOfTheDirectoryByExactName)
{
    fs::create_directories(schemeDir());
    file("schemes/broken.tws", scheme("Broken", "2 FOR_CS_SINGLE_STMT_BRACE_STYLE 5\n3 TIDEWRIGHT_VERSION \"1.3.0\"\n"));
    const Result broken = run({"--scheme", "Broken"}, "int x;\n");
    EXPECT_EQ(broken.status, 1); // the scheme's bad value reached the engine
    EXPECT_NE(broken.err.find("DBC Violation"), std::string::npos) << broken.err;
    const Result leave = run({"--scheme", "Leave as is"}, "int  x ;\n");
    EXPECT_EQ(leave.status, 0);
    EXPECT_EQ(leave.out, "int  x ;\n");
}

TEST_F(CliTest, UnknownSchemeListsTheAvailableOnesAndExitsTwo)
{
    const Result r = run({"--scheme", "Default"}, "int x;\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "tidewright: no scheme named 'Default'; available schemes:\n  GNU (built-in)\n  K&R (built-in)\n"
                     "  Leave as is (built-in)\n  Linux kernel (built-in)\n  Stroustrup (built-in)\n"
                     "  Whitesmiths (built-in)\n  default (built-in)\n");
}

TEST_F(CliTest, WithoutASchemeOptionTheDefaultSchemeIsUsed)
{
    // A user's scheme named "default" in a file listed before default.tws
    // takes the name; its bad value shows that it was the one used.
    fs::create_directories(schemeDir());
    file("schemes/a-default.tws",
         scheme("default", "2 FOR_CS_SINGLE_STMT_BRACE_STYLE 5\n3 TIDEWRIGHT_VERSION \"1.3.0\"\n"));
    const Result r = run({}, "int x;\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("DBC Violation"), std::string::npos) << r.err;
}

TEST_F(CliTest, SchemeAndSchemeFileExcludeEachOther)
{
    const Result r = run({"--scheme", "default", "--scheme-file", DATA + "/schemes/minimal.tws"}, "int x;\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
}

TEST_F(CliTest, PrintSchemeWritesTheSchemeFile)
{
    const Result r = run({"--print-scheme", "K&R"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, readFile(SCHEMES + "/K&R.tws"));
    EXPECT_EQ(r.err, "");
    const Result unknown = run({"--print-scheme", "k&r"});
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.out, "");
    EXPECT_NE(unknown.err.find("no scheme named 'k&r'"), std::string::npos);
}

TEST_F(CliTest, CorruptSchemeFileGivesTheReadErrorAndLeavesTheDirectoryAlone)
{
    ASSERT_EQ(run({"--list-schemes"}).status, 0); // the built-in schemes are in place
    file("schemes/broken.tws", "this is not a scheme\n");
    file("schemes/old.tws", scheme("Old", "")); // would be converted and written
    const auto before = contentsOf(schemeDir());
    const Result r = run({}, "int x;\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.out, "");
    const std::string path = (schemeDir() / "broken.tws").string();
    EXPECT_EQ(r.err, "tidewright: Tidewright C++ encountered an error while trying to read the scheme file \"" + path
                         + "\". To correct the problem, you should delete this file before restarting Tidewright C++ "
                           "and attempting this operation again.\n");
    EXPECT_EQ(contentsOf(schemeDir()), before);
}

TEST_F(CliTest, ConversionTextGoesToStandardError)
{
    fs::create_directories(schemeDir());
    const fs::path frozen = file("schemes/frozen.tws", scheme("Frozen", "3 TIDEWRIGHT_VERSION \"1.2.2\"\n"));
    fs::permissions(frozen, READ_ONLY, fs::perm_options::replace);
    file("schemes/old.tws", scheme("Old", ""));
    const Result r = run({"--list-schemes"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.err, "The scheme 'Frozen' was created using a previous version of Tidewright C++. The file is marked "
                     "read-only and so cannot be converted. Please ensure the file is read-write and run Tidewright "
                     "C++ again. Once the scheme has been converted, the file can be set read-only again.\n");
    EXPECT_NE(r.out.find("Frozen (built-in)\n"), std::string::npos);
    EXPECT_NE(readFile(schemeDir() / "old.tws").find("3 TIDEWRIGHT_VERSION \"1.3.0\"\r\n"), std::string::npos);
    // Converted once: the next start has nothing new to say about "Old".
    EXPECT_EQ(run({"--list-schemes"}).err, r.err);
}

TEST_F(CliTest, ASchemeDirectoryThatCannotBeMadeIsAUsageError)
{
    file("blocker", "");
    const Result r = run({"--scheme-dir", (m_dir / "blocker" / "schemes").string()}, "int x;\n");
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("cannot create the scheme directory"), std::string::npos) << r.err;
}

TEST_F(CliTest, HelpNamesTheSchemeOptions)
{
    const Result help = run({"--help"});
    for (const char* option : {"--scheme ", "--scheme-dir", "--list-schemes", "--print-scheme"})
        EXPECT_NE(help.out.find(option), std::string::npos) << option;
}

TEST_F(CliTest, HelpShowsOptionalValuesAsTyped)
{
    const Result help = run({"--help"});
    EXPECT_NE(help.out.find("--backup [=EXT]"), std::string::npos) << help.out;
    EXPECT_EQ(help.out.find("{}"), std::string::npos) << help.out;
}

TEST_F(CliTest, LeaveAsIsGivesTheSampleBackUnchanged)
{
    const std::string sample = std::string(TW_EXAMPLES_DIR) + "/sample.cpp";
    const Result r = run({"--scheme", "Leave as is", sample});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, readFile(sample));
}

TEST_F(CliTest, AFullOutputIsAFailureWithAMessage)
{
    // A script that formats into a temporary file and moves it over the
    // source must see the failure.
    const std::string sample = std::string(TW_EXAMPLES_DIR) + "/sample.cpp";
    for (const std::vector<std::string>& args :
         {std::vector<std::string>{sample}, {"--dump-tree", sample}, {"--dump-tokens", sample}, {"--list-schemes"},
          {"--print-scheme", "default"}}) {
        const Result r = runTo("/dev/full", args);
        EXPECT_EQ(r.status, 1) << args.front();
        EXPECT_EQ(r.err.substr(r.err.find("tidewright: cannot")),
                  "tidewright: cannot write to standard output: No space left on device\n")
            << args.front() << r.err;
    }
}

TEST_F(CliTest, AFullOutputStopsBeforeTheNextInput)
{
    const fs::path a = file("a.cpp", "int a;\n");
    const Result r = runTo("/dev/full", {a.string(), (m_dir / "missing.cpp").string()});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "tidewright: cannot write to standard output: No space left on device\n");
}

TEST_F(CliTest, EveryMessageStaysOnOneLine)
{
    for (const std::string text : {"void f() { switch (x) { default /* multi\n line */ : ; } }\n",
                                   "class A { public /* x\ny */ : int a; };\n"}) {
        const Result r = run({}, text);
        EXPECT_EQ(r.status, 1);
        EXPECT_EQ(r.out, "");
        ASSERT_FALSE(r.err.empty());
        EXPECT_EQ(std::count(r.err.begin(), r.err.end(), '\n'), 1) << r.err;
        EXPECT_EQ(r.err.rfind("<stdin>(1) : error: col ", 0), 0u) << r.err;
    }
    EXPECT_NE(run({}, "class A { public /* x\ny */ : int a; };\n").err.find("Found: /* x\\ny */\n"),
              std::string::npos);
}

TEST_F(CliTest, AnImpossiblePureSpecifierFailsWithNothingOnStandardOutput)
{
    const Result r = run({}, "int f() = 1;\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "<stdin>(1) : error: col 9: Expected '= 0' to indicate a pure virtual function. Got: \n");
}

TEST_F(CliTest, AStrayClosingBraceComesOutUnchanged)
{
    const std::string text = "int a;\n}\nint b;\n";
    for (const std::string scheme : {"default", "Leave as is"}) {
        const Result r = run({"--scheme", scheme}, text);
        EXPECT_EQ(r.status, 0) << scheme << r.err;
        EXPECT_EQ(r.out, text) << scheme;
    }
}

TEST_F(CliTest, TooDeepNestingIsToldOnceInWords)
{
    const Result r = run({}, "void f() " + std::string(10000, '{') + std::string(10000, '}') + "\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "<stdin>(1) : error: col 521: nesting deeper than 512 levels is not supported\n");
}

TEST_F(CliTest, ALongElseIfChainFormats)
{
    std::string text = "void f(int x)\n{\n";
    for (int i = 0; i < 10000; ++i)
        text += "    if (x == " + std::to_string(i) + ")\n        g();\n    else\n";
    text += "        h();\n}\n";
    const Result r = run({"--scheme", "Leave as is"}, text);
    EXPECT_EQ(r.status, 0) << r.err.substr(0, 200);
    EXPECT_EQ(r.out, text);
}

TEST_F(CliTest, SchemeFileNeedsNoSchemeDirectory)
{
    // A corrupt file in the scheme directory stops the commands that read the
    // directory, and no other.
    fs::create_directories(schemeDir());
    file("schemes/broken.tws", "this is not a scheme\n");
    const Result r = run({"--scheme-file", DATA + "/schemes/current.tws"}, "int x;\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "int x;\n");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(run({"--dump-tree"}, "int x;\n").status, 0);
    EXPECT_EQ(run({"--dump-tokens"}, "int x;\n").status, 0);
    EXPECT_EQ(run({}, "int x;\n").status, 2);
    EXPECT_EQ(run({"--list-schemes"}).status, 2);
}

TEST_F(CliTest, AnOldSchemeFileIsConvertedInMemoryWithANote)
{
    const fs::path old = file("old.tws", "Kempt::PropertySet\n1\n\"Old\"\n2 SPACES_PER_TAB 3\n"
                                         "3 TIDEWRIGHT_VERSION \"1.2.1\"\n");
    const std::string before = readFile(old);
    const Result r = run({"--scheme-file", old.string()}, "int x;\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "int x;\n");
    EXPECT_EQ(r.err, "tidewright: note: the scheme file '" + old.string()
                         + "' was made by version 1.2.1 of Tidewright C++; it has been converted to version 1.3.0 for "
                           "this run (the file itself is unchanged)\n");
    EXPECT_EQ(readFile(old), before);
}

TEST_F(CliTest, ASchemeFileWithAnInvalidVersionIsUsedAsItStandsWithAWarning)
{
    const fs::path odd = file("odd.tws", "Kempt::PropertySet\n1\n\"Odd\"\n3 TIDEWRIGHT_VERSION \"1.3\"\n");
    const Result r = run({"--scheme-file", odd.string()}, "int x;\n");
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "int x;\n");
    EXPECT_EQ(r.err, "tidewright: warning: The scheme: 'Odd' has the invalid value: 1.3 for the option: "
                     "TIDEWRIGHT_VERSION.\nThe scheme file may have become corrupted.\nThe scheme file '"
                         + odd.string() + "' is used as it stands.\n");
}

} // namespace
