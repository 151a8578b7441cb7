// tw-invariants, run as a program: the table on the bundled samples, each
// kind of failure it must catch (through its fault simulation: a hang, a
// crash, an exception, a lost token, an unstable output), usage errors, and
// the real corpus named by TW_CORPUS_DIR (skipped when it is not set).
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

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

std::string quote(const std::string& arg)
{
    std::string q = "'";
    for (char c : arg)
        q += c == '\'' ? std::string("'\\''") : std::string(1, c);
    return q + "'";
}

class InvariantsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = fs::temp_directory_path() / ("tw-invariants-" + std::to_string(::getpid()) + "-"
                                             + ::testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::remove_all(m_dir);
        fs::create_directories(m_dir / "corpus" / "sub");
    }
    void TearDown() override { fs::remove_all(m_dir); }

    void put(const std::string& name, const std::string& text)
    {
        std::ofstream out(m_dir / "corpus" / name, std::ios::binary);
        out << text;
    }

    Result run(const std::vector<std::string>& args)
    {
        std::string cmd = quote(TW_INVARIANTS_PATH) + " --schemes-dir " + quote(TW_SCHEMES_DIR);
        for (const std::string& a : args)
            cmd += " " + quote(a);
        cmd += " > " + quote((m_dir / "out.txt").string()) + " 2> " + quote((m_dir / "err.txt").string());
        const int raw = std::system(cmd.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readFile(m_dir / "out.txt"), readFile(m_dir / "err.txt")};
    }

    // Three files that parse, one marked for the fault, and one that does not parse.
    void smallCorpus()
    {
        put("a.cpp", "int a; // FAULT\n");
        put("b.h", "int b;\n");
        put("sub/c.c", "int c;\n");
        put("broken.cpp", "void f() {\n");
        put("notes.txt", "not a source file\n");
        put("MANIFEST", "files: 4\n");
    }

    std::string corpus() const { return (m_dir / "corpus").string(); }

    fs::path m_dir;
};

bool has(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

// The fields of the table row of a scheme, after its name: corpus, files,
// parsed, parsed%, token-identical, stable, stable%, byte-identical, unparsable,
// pairing, crashes, hangs.
std::string row(const std::string& out, const std::string& scheme)
{
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(scheme + " ", 0) != 0)
            continue;
        std::istringstream fields(line.substr(scheme.size()));
        std::string joined;
        for (std::string field; fields >> field;)
            joined += (joined.empty() ? "" : " ") + field;
        return joined;
    }
    return "<no row for " + scheme + ">";
}

TEST_F(InvariantsTest, SamplesHoldUnderEveryBuiltInScheme)
{
    const Result r = run({TW_EXAMPLES_DIR});
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "scheme ")) << r.out;
    for (const char* scheme : {"default", "K&R", "GNU", "Linux kernel", "Stroustrup", "Whitesmiths", "Leave as is",
                               "(no white space)"})
        EXPECT_TRUE(has(r.out, std::string(scheme) + " ")) << scheme << "\n" << r.out;
    EXPECT_TRUE(has(r.out, "no failures")) << r.out;
}

TEST_F(InvariantsTest, CountsFilesParsesAndSourceNamesOnly)
{
    smallCorpus();
    const Result r = run({"--scheme", "Leave as is", corpus()});
    EXPECT_EQ(r.status, 0) << r.out << r.err;
    // files, parsed, parsed%, token-identical, stable, stable%, byte-identical, unparsable, pairing, crashes,
    // hangs
    EXPECT_EQ(row(r.out, "Leave as is"), "corpus 4 3 75.0% 3 3 100.00% 3 0 0 0 0") << r.out;
}

// A scheme of the repository's default with all three brace styles at `style`.
std::string braceScheme(const fs::path& dir, int style)
{
    std::ifstream in(fs::path(TW_SCHEMES_DIR) / "default.tws");
    std::string text((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    // The file has CR LF line breaks; the value is the digit behind the name.
    for (const char* name : {"IF_ELSE", "FOR", "WHILE"}) {
        const std::string setting = std::string("2 ") + name + "_CS_SINGLE_STMT_BRACE_STYLE ";
        const std::size_t at = text.find(setting);
        EXPECT_NE(at, std::string::npos) << name;
        if (at != std::string::npos)
            text.replace(at + setting.size(), 1, std::to_string(style));
    }
    const fs::path path = dir / ("braces-" + std::to_string(style) + ".tws");
    std::ofstream(path) << text;
    return path.string();
}

TEST_F(InvariantsTest, UnderBraceStylesEveryElseKeepsItsIf)
{
    put("d.cpp", "void f(int a, int b)\n{\n    if (a) { if (b) a++; } else b++;\n    if (a) b++; else a++;\n"
                 "    for (;;) { if (a) break; }\n}\n");
    for (int style : {1, 2}) {
        const Result r = run({"--scheme-file", braceScheme(m_dir, style), corpus()});
        EXPECT_EQ(r.status, 0) << r.out << r.err;
        EXPECT_TRUE(has(r.out, "no failures")) << r.out;
    }
}

TEST_F(InvariantsTest, ARewriteThatHandsAnElseToAnotherIfIsReported)
{
    put("d.cpp", "void f(int a, int b)\n{\n    if (a) /* FAULT */ { if (b) a++; } else b++;\n}\n");
    const Result r = run({"--scheme-file", braceScheme(m_dir, 2), "--simulate-fault", "unbrace:FAULT", corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "d.cpp: [braces-2] tokens:")) << r.out;
    // corpus, files, parsed, parsed%, token-identical, stable, stable%, byte-identical, unparsable, pairing
    std::istringstream fields(row(r.out, "braces-2"));
    std::vector<std::string> f;
    for (std::string field; fields >> field;)
        f.push_back(field);
    ASSERT_GE(f.size(), 10u) << r.out;
    EXPECT_EQ(f[4], "0") << r.out;
    EXPECT_EQ(f[8], "0") << r.out;
    EXPECT_EQ(f[9], "1") << r.out;
}

TEST_F(InvariantsTest, AHangIsReportedAndTheRunGoesOn)
{
    smallCorpus();
    const Result r = run({"--scheme", "default", "--timeout", "1", "--jobs", "1", "--simulate-fault", "hang:FAULT",
                          corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "a.cpp: [default] hang: no result within 1 s")) << r.out;
    EXPECT_EQ(row(r.out, "default"), "corpus 4 2 50.0% 2 2 100.00% - 0 0 0 1") << r.out;
}

TEST_F(InvariantsTest, ACrashIsReportedAndTheRunGoesOn)
{
    smallCorpus();
    const Result r = run({"--scheme", "default", "--jobs", "1", "--simulate-fault", "crash:FAULT", corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "a.cpp: [default] crash: killed by signal")) << r.out;
    EXPECT_EQ(row(r.out, "default"), "corpus 4 2 50.0% 2 2 100.00% - 0 0 1 0") << r.out;
}

TEST_F(InvariantsTest, AnExceptionCountsAsACrash)
{
    smallCorpus();
    const Result r = run({"--scheme", "default", "--simulate-fault", "throw:FAULT", corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "a.cpp: [default] crash: exception: simulated fault")) << r.out;
}

TEST_F(InvariantsTest, ALostTokenIsReportedWithItsPlace)
{
    smallCorpus();
    const Result r = run({"--scheme", "K&R", "--simulate-fault", "drop:FAULT", corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "a.cpp: [K&R] tokens: line 1:8: token \"// FAULT\\n\" became \"// \\n\"")) << r.out;
    EXPECT_EQ(row(r.out, "K&R"), "corpus 4 3 75.0% 2 3 100.00% - 0 0 0 0") << r.out;
}

TEST_F(InvariantsTest, AnUnstableOutputAndAChangedByteAreReported)
{
    smallCorpus();
    const Result r = run({"--scheme", "default", "--scheme", "(no white space)", "--simulate-fault",
                          "unstable:FAULT", corpus()});
    EXPECT_EQ(r.status, 1) << r.out << r.err;
    EXPECT_TRUE(has(r.out, "a.cpp: [default] unstable: not stable: a second run changes line 3, column 1")) << r.out;
    EXPECT_TRUE(has(r.out, "a.cpp: [(no white space)] bytes: output differs from the input at line 2, column 1"))
        << r.out;
    EXPECT_EQ(row(r.out, "default"), "corpus 4 3 75.0% 3 2 66.67% - 0 0 0 0") << r.out;
    EXPECT_EQ(row(r.out, "(no white space)"), "corpus 4 3 75.0% 3 2 66.67% 2 0 0 0 0") << r.out;
    // --max-listed 0 lists every failing file; 1 lists one and counts the rest.
    const Result all = run({"--scheme", "default", "--scheme", "(no white space)", "--max-listed", "0",
                            "--simulate-fault", "unstable:FAULT", corpus()});
    EXPECT_EQ(all.status, 1) << all.err;
    EXPECT_FALSE(has(all.out, "more (--max-listed 0 lists all)")) << all.out;
    const Result one = run({"--scheme", "default", "--scheme", "(no white space)", "--max-listed", "1",
                            "--simulate-fault", "unstable:FAULT", corpus()});
    EXPECT_TRUE(has(one.out, "... and 1 more (--max-listed 0 lists all)")) << one.out;
}

TEST_F(InvariantsTest, UsageErrors)
{
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"--no-such-option", corpus()}).status, 2);
    EXPECT_EQ(run({"--timeout", "soon", corpus()}).status, 2);
    EXPECT_EQ(run({"--simulate-fault", "melt:X", corpus()}).status, 2);
    const Result missing = run({(m_dir / "missing").string()});
    EXPECT_EQ(missing.status, 2);
    EXPECT_TRUE(has(missing.err, "missing: no such file or directory")) << missing.err;
    const Result scheme = run({"--scheme", "No such scheme", corpus()});
    EXPECT_EQ(scheme.status, 2);
    EXPECT_TRUE(has(scheme.err, "No such scheme")) << scheme.err;
    EXPECT_EQ(run({"--help"}).status, 0);
}

// Every built-in scheme over the corpus of TW_CORPUS_DIR.
TEST_F(InvariantsTest, Corpus)
{
    const char* dir = std::getenv("TW_CORPUS_DIR");
    if (!dir || !*dir)
        GTEST_SKIP() << "TW_CORPUS_DIR is not set";
    const Result r = run({dir});
    std::cout << r.out;
    EXPECT_EQ(r.status, 0) << r.err;
}

} // namespace
