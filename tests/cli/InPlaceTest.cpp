// The command's file modes, run as a program: -i (in place), --check, --diff,
// --assume-filename, the project scheme file, the settings file, message
// levels and exit statuses; and kill -9 in the middle of an in-place batch.
// Most tests run tidewright-fake, whose stand-in formatter squeezes blanks so
// that there is something to write, check and diff.
#include "CliTestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <sys/stat.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;

using tw_test::quote;
using tw_test::readFile;
using tw_test::Result;
using tw_test::squeezed;
using tw_test::writeFile;

class InPlaceTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = tw_test::freshTestFolder("tw-inplace-");
        m_env = tw_test::isolatedEnvironment(m_dir);
    }
    void TearDown() override { fs::remove_all(m_dir); }

    fs::path work() const { return m_dir / "work"; }

    fs::path file(const std::string& name, const std::string& text)
    {
        const fs::path p = work() / name;
        fs::create_directories(p.parent_path());
        writeFile(p, text);
        return p;
    }

    void settings(const std::string& text)
    {
        fs::create_directories(m_dir / "config" / "tidewright");
        writeFile(m_dir / "config" / "tidewright" / "tidewright.ini", text);
    }

    std::set<std::string> entries(const fs::path& dir) const
    {
        std::set<std::string> names;
        for (const auto& e : fs::directory_iterator(dir))
            names.insert(e.path().filename().string());
        return names;
    }

    std::string command(const std::string& program, const std::vector<std::string>& args) const
    {
        std::string cmd = "cd " + quote(work().string()) + " && env";
        for (const auto& [name, value] : m_env)
            cmd += value ? "" : " -u " + quote(name);
        for (const auto& [name, value] : m_env)
            cmd += value ? " " + quote(name + "=" + *value) : "";
        cmd += " " + quote(program);
        for (const std::string& a : args)
            cmd += " " + quote(a);
        return cmd;
    }

    Result runWith(const std::string& program, const std::vector<std::string>& args, const std::string& input = "")
    {
        writeFile(m_dir / "stdin.txt", input);
        const std::string cmd = command(program, args) + " < " + quote((m_dir / "stdin.txt").string()) + " > "
            + quote((m_dir / "stdout.txt").string()) + " 2> " + quote((m_dir / "stderr.txt").string());
        const int raw = std::system(cmd.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readFile(m_dir / "stdout.txt"),
                readFile(m_dir / "stderr.txt")};
    }

    // The command over the stand-in formatter.
    Result run(const std::vector<std::string>& args, const std::string& input = "")
    {
        return runWith(TW_FAKE_CLI_PATH, args, input);
    }
    // The real command, over the engine.
    Result runReal(const std::vector<std::string>& args, const std::string& input = "")
    {
        return runWith(TW_CLI_PATH, args, input);
    }

    fs::path m_dir;
    std::map<std::string, std::optional<std::string>> m_env;
};

const std::string MESSY = "int  main()\n{\n\treturn  0;   \n}\n";
const std::string TIDY = "int main()\n{\n return 0;\n}\n";

TEST_F(InPlaceTest, InPlaceFormatsEachFileAndBacksItUpAsTheSettingsSay)
{
    const fs::path a = file("a.cpp", MESSY);
    const fs::path b = file("sub/b.h", "int  b;\r\n");
    const Result r = run({"-i", "a.cpp", "sub/b.h"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(readFile(a), TIDY);
    EXPECT_EQ(readFile(b), "int b;\r\n");
    // CreateBackups is on by default.
    EXPECT_EQ(readFile(work() / "a.cpp.bak"), MESSY);
    EXPECT_EQ(readFile(work() / "sub" / "b.h.bak"), "int  b;\r\n");
    // A second run changes nothing.
    EXPECT_EQ(run({"--in-place", "a.cpp", "sub/b.h"}).status, 0);
    EXPECT_EQ(readFile(a), TIDY);
}

TEST_F(InPlaceTest, BackupOptionsOverrideTheSettings)
{
    settings("[Options]\nCreateBackups=0\nBackupExtension=orig\n");
    file("a.cpp", MESSY);
    EXPECT_EQ(run({"-i", "a.cpp"}).status, 0);
    EXPECT_EQ(entries(work()), std::set<std::string>{"a.cpp"});
    file("a.cpp", MESSY);
    EXPECT_EQ(run({"-i", "--backup", "a.cpp"}).status, 0);
    EXPECT_EQ(entries(work()), (std::set<std::string>{"a.cpp", "a.cpp.orig"}));
    file("a.cpp", MESSY);
    EXPECT_EQ(run({"-i", "--backup=old", "a.cpp"}).status, 0);
    EXPECT_EQ(readFile(work() / "a.cpp.old"), MESSY);
    settings("[Options]\nCreateBackups=1\n");
    fs::remove(work() / "a.cpp.orig");
    fs::remove(work() / "a.cpp.old");
    file("a.cpp", MESSY);
    EXPECT_EQ(run({"-i", "--no-backup", "a.cpp"}).status, 0);
    EXPECT_EQ(entries(work()), std::set<std::string>{"a.cpp"});
}

TEST_F(InPlaceTest, UsageErrors)
{
    file("a.cpp", MESSY);
    for (const std::vector<std::string>& args : std::vector<std::vector<std::string>>{
             {"-i"},
             {"-i", "-"},
             {"--backup", "a.cpp"},
             {"-i", "--backup", "--no-backup", "a.cpp"},
             {"-i", "--check", "a.cpp"},
             {"--check", "--diff", "a.cpp"},
             {"--assume-filename", "x.cpp", "a.cpp"},
             {"-i", "--backup=a/b", "a.cpp"},
             {"--color=sometimes", "--diff", "a.cpp"},
             {"--max-size", "lots", "a.cpp"},
             {"-v", "-q", "a.cpp"},
             {"--dump-tree", "-i", "a.cpp"}}) {
        const Result r = run(args);
        EXPECT_EQ(r.status, 2) << args.front() << " " << args.back();
        EXPECT_NE(r.err, "");
    }
    EXPECT_EQ(readFile(work() / "a.cpp"), MESSY);
}

TEST_F(InPlaceTest, MessagesByLevel)
{
    file("a.cpp", MESSY);
    Result r = run({"-i", "-v", "--no-backup", "a.cpp", "gone.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "Formatting \"a.cpp\".\nFormatting \"gone.cpp\".\nThe file \"gone.cpp\" cannot be found.\n");
    r = run({"-i", "--no-backup", "a.cpp", "gone.cpp"});
    EXPECT_EQ(r.err, "The file \"gone.cpp\" cannot be found.\n");
    r = run({"-i", "-q", "--no-backup", "a.cpp", "gone.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "");
}

TEST_F(InPlaceTest, AFileThatDoesNotParseIsLeftWithPositionedMessages)
{
    const std::string bad = "void f() {\n  public: x();\n}\n";
    file("bad.cpp", bad);
    const Result r = runReal({"-i", "--no-backup", "bad.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(readFile(work() / "bad.cpp"), bad);
    EXPECT_EQ(r.err.rfind("bad.cpp(2) : error: col 3: public: protected: private: labels are not allowed inside "
                          "block statements.\nTidewright C++ could not successfully parse the file bad.cpp. ",
                          0),
              0u)
        << r.err;
}

TEST_F(InPlaceTest, BadInputIsRefusedAndLeftAsItWas)
{
    using namespace std::string_literals;
    file("nul.c", "int x;\0"s);
    file("wide.c", "\xFF\xFEi\0"s);
    file("big.c", std::string(2000, ' ') + "x;\n");
    fs::create_directories(work() / "dir.c");
    const Result r = run({"-i", "--no-backup", "--max-size", "1K", "nul.c", "wide.c", "big.c", "dir.c"});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("\"nul.c\" looks like a binary file"), std::string::npos) << r.err;
    EXPECT_NE(r.err.find("\"wide.c\" is UTF-16LE text"), std::string::npos);
    EXPECT_NE(r.err.find("\"big.c\" is 2003 bytes long, more than the limit of 1024 bytes"), std::string::npos);
    EXPECT_NE(r.err.find("\"dir.c\" is not a regular file (it is a directory)"), std::string::npos);
    EXPECT_EQ(readFile(work() / "nul.c"), "int x;\0"s);
    EXPECT_EQ(readFile(work() / "wide.c"), "\xFF\xFEi\0"s);
    EXPECT_EQ(readFile(work() / "big.c").size(), 2003u);
}

TEST_F(InPlaceTest, AnExtensionOutsideTheSettingsListIsNotFormatted)
{
    file("notes.txt", MESSY);
    file("a.inl", MESSY);
    Result r = run({"-i", "notes.txt"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "The file \"notes.txt\" does not have a file extension registered with Tidewright as valid for "
                     "formatting. Listed: c,cc,cpp,cxx,h,hh,hpp,hxx (the setting FileExtensions).\n");
    EXPECT_EQ(readFile(work() / "notes.txt"), MESSY);
    settings("[Options]\nFileExtensions=cpp;inl\n");
    r = run({"-i", "--no-backup", "a.inl"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(readFile(work() / "a.inl"), TIDY);
}

TEST_F(InPlaceTest, OutputThatLosesATokenIsNotWrittenUnlessVerificationIsOff)
{
    file("a.cpp", "int x;\nint y;\n");
    m_env["TW_FAKE_FORMAT"] = "drop";
    Result r = run({"-i", "--no-backup", "a.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(readFile(work() / "a.cpp"), "int x;\nint y;\n");
    EXPECT_EQ(r.err.rfind("The formatted text of the file \"a.cpp\" does not hold the same tokens as the file, from "
                          "line 1: ",
                          0),
              0u)
        << r.err;
    r = run({"--check", "a.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    r = run({}, "int x;\n"); // standard output mode verifies too
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    r = run({"-i", "--no-backup", "--no-verify", "a.cpp"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(readFile(work() / "a.cpp"), "int x\nint y;\n");
}

TEST_F(InPlaceTest, CheckNamesTheFilesThatWouldChangeAndWritesNothing)
{
    file("messy.cpp", MESSY);
    file("tidy.cpp", TIDY);
    Result r = run({"--check", "messy.cpp", "tidy.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "messy.cpp: would be reformatted\n");
    EXPECT_EQ(r.err, "");
    EXPECT_EQ(entries(work()), (std::set<std::string>{"messy.cpp", "tidy.cpp"}));
    EXPECT_EQ(readFile(work() / "messy.cpp"), MESSY);
    r = run({"--check", "tidy.cpp"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, "");
    r = run({"--check", "-q", "messy.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    r = run({"--check"}, MESSY);
    EXPECT_EQ(r.out, "<stdin>: would be reformatted\n");
    // The real engine leaves text already laid out by the default scheme as it is,
    // and names a body indented by one blank.
    file("laid-out.cpp", "int main()\n{\n    return 0;\n}\n");
    EXPECT_EQ(runReal({"--check", "laid-out.cpp"}).status, 0);
    EXPECT_EQ(runReal({"--check", "tidy.cpp"}).status, 1);
}

TEST_F(InPlaceTest, DiffAppliesWithPatchToGiveTheFormattedFile)
{
    std::string big;
    for (int i = 0; i < 50; ++i)
        big += i % 9 == 0 ? "int  v" + std::to_string(i) + ";\r\n" : "int v" + std::to_string(i) + ";\r\n";
    file("src/a.cpp", MESSY);
    file("src/b file.h", big);
    file("c.cpp", TIDY);
    const Result r = run({"--diff", "src/a.cpp", "src/b file.h", "c.cpp"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out.rfind("--- src/a.cpp\t(original)\n+++ src/a.cpp\t(formatted)\n@@ -1,4 +1,4 @@\n-int  main()\n", 0),
              0u)
        << r.out;
    EXPECT_EQ(r.out.find('\x1b'), std::string::npos);
    writeFile(m_dir / "change.diff", r.out);
    const std::string apply = "cd " + quote(work().string()) + " && patch -p0 --batch --quiet < "
        + quote((m_dir / "change.diff").string());
    ASSERT_EQ(std::system(apply.c_str()), 0);
    EXPECT_EQ(readFile(work() / "src" / "a.cpp"), TIDY);
    EXPECT_EQ(readFile(work() / "src" / "b file.h"), squeezed(big));
    EXPECT_EQ(readFile(work() / "c.cpp"), TIDY);
    const Result again = run({"--diff", "src/a.cpp", "src/b file.h", "c.cpp"});
    EXPECT_EQ(again.status, 0);
    EXPECT_EQ(again.out, "");
}

TEST_F(InPlaceTest, DiffColoursOnlyWhenAsked)
{
    file("a.cpp", MESSY);
    EXPECT_NE(run({"--diff", "--color=always", "a.cpp"}).out.find("\x1b[31m-int  main()\x1b[0m"), std::string::npos);
    EXPECT_EQ(run({"--diff", "--color=never", "a.cpp"}).out.find('\x1b'), std::string::npos);
    EXPECT_EQ(run({"--diff", "--color=auto", "a.cpp"}).out.find('\x1b'), std::string::npos); // not a terminal
}

TEST_F(InPlaceTest, AssumeFilenameNamesStandardInput)
{
    // Messages name it.
    Result r = runReal({"--assume-filename", "src/widget.cpp"}, "void f() {\n  public: x();\n}\n");
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err.rfind("src/widget.cpp(2) : error: col 3:", 0), 0u) << r.err;
    // The extension is checked.
    r = run({"--assume-filename", "notes.txt"}, MESSY);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "");
    EXPECT_NE(r.err.find("\"notes.txt\" does not have a file extension registered"), std::string::npos);
    // The project scheme is searched from its directory.
    file("proj/.tidewright.tws", "not a scheme\n");
    r = run({"--assume-filename", "proj/deep/x.cpp"}, MESSY);
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find(".tidewright.tws"), std::string::npos) << r.err;
    // --check and --diff take it too.
    r = run({"--diff", "--assume-filename", "y.cpp"}, MESSY);
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out.rfind("--- y.cpp\t(original)\n", 0), 0u) << r.out;
    r = run({"--assume-filename", "y.cpp"}, MESSY);
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, TIDY);
}

TEST_F(InPlaceTest, PrintEffectiveSchemeSaysWhichAndWhy)
{
    file("proj/src/a.cpp", MESSY);
    Result r = run({"--print-effective-scheme", "proj/src/a.cpp"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "path: proj/src/a.cpp\nscheme: default\ndirectory: " + (m_dir / "schemes").string()
                         + "\nreason: no scheme option, no .tidewright.tws above the file and no usable "
                           "StandaloneOnFormat setting: the default scheme\n");
    settings("[Options]\nStandaloneOnFormat=K&R\n");
    r = run({"--print-effective-scheme", "proj/src/a.cpp"});
    EXPECT_NE(r.out.find("scheme: K&R\n"), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("reason: the setting StandaloneOnFormat in " + (m_dir / "config" / "tidewright" /
                                                                          "tidewright.ini").string()),
              std::string::npos);
    writeFile(work() / "proj" / ".tidewright.tws", "Kempt::PropertySet\n1\n\"Ours\"\n2 TAB_SIZE 2\n");
    r = run({"--print-effective-scheme", "proj/src/a.cpp"});
    EXPECT_NE(r.out.find("scheme: Ours\nfile: "), std::string::npos) << r.out;
    EXPECT_NE(r.out.find("reason: the nearest .tidewright.tws in the file's directory or above it\n"),
              std::string::npos);
    r = run({"--print-effective-scheme", "proj/src/a.cpp", "--scheme", "GNU"});
    EXPECT_NE(r.out.find("scheme: GNU\n"), std::string::npos);
    EXPECT_NE(r.out.find("reason: named by --scheme\n"), std::string::npos);
}

TEST_F(InPlaceTest, AnUnreadableSettingsFileIsToldAndTheDefaultsStand)
{
    fs::create_directories(m_dir / "config" / "tidewright" / "tidewright.ini");
    file("a.cpp", MESSY);
    const Result r = run({"-i", "a.cpp"});
    EXPECT_EQ(r.status, 0);
    EXPECT_NE(r.err.find("warning: Failed to read the settings file"), std::string::npos) << r.err;
    EXPECT_TRUE(fs::exists(work() / "a.cpp.bak"));
}

TEST_F(InPlaceTest, PrintSettingsShowsTheFileAndItsValues)
{
    settings("[Options]\nBackupExtension=orig\n");
    const Result r = run({"--print-settings"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out.rfind("# " + (m_dir / "config" / "tidewright" / "tidewright.ini").string() + "\n", 0), 0u);
    EXPECT_NE(r.out.find("BackupExtension=orig\n"), std::string::npos);
    EXPECT_NE(r.out.find("CreateBackups=1\n"), std::string::npos);
}

TEST_F(InPlaceTest, SymbolicLinksAndPermissionsSurviveTheCommand)
{
    const fs::path real = file("real/a.cpp", MESSY);
    ::chmod(real.c_str(), 0754);
    fs::create_symlink("real/a.cpp", work() / "link.cpp");
    EXPECT_EQ(run({"-i", "--no-backup", "link.cpp"}).status, 0);
    EXPECT_TRUE(fs::is_symlink(work() / "link.cpp"));
    EXPECT_EQ(readFile(real), TIDY);
    EXPECT_EQ(fs::status(real).permissions() & fs::perms::mask, fs::perms(0754));
}

// kill -9 at random moments of a long in-place batch: every file is always
// there, whole, either as it was or as formatted; never cut short or gone.
TEST_F(InPlaceTest, KillingAnInPlaceBatchNeverLeavesATruncatedOrMissingFile)
{
    constexpr int FILES = 60;
    std::vector<std::string> names;
    std::map<std::string, std::string> original;
    for (int i = 0; i < FILES; ++i) {
        std::string text;
        for (int line = 0; line < 200; ++line)
            text += "int  value" + std::to_string(line) + "  =  " + std::to_string(i * line) + ";   \n";
        const std::string name = "f" + std::to_string(i) + ".c";
        file("batch/" + name, text);
        names.push_back(name);
        original[name] = text;
    }
    std::vector<std::string> argv = {TW_FAKE_CLI_PATH, "-i", "--backup"};
    for (const std::string& n : names)
        argv.push_back(n);
    const std::string fake = "TW_FAKE_FORMAT=squeeze";
    const std::string config = "XDG_CONFIG_HOME=" + (m_dir / "config").string();
    const std::string schemes = "TIDEWRIGHT_SCHEME_DIR=" + (m_dir / "schemes").string();
    const std::string home = "HOME=" + (m_dir / "home").string();

    auto start = [&]() -> pid_t {
        const pid_t pid = ::fork();
        if (pid == 0) {
            if (::chdir((work() / "batch").c_str()) != 0)
                ::_exit(127);
            std::vector<char*> args;
            for (const std::string& a : argv)
                args.push_back(const_cast<char*>(a.c_str()));
            args.push_back(nullptr);
            std::vector<char*> env = {const_cast<char*>(fake.c_str()), const_cast<char*>(config.c_str()),
                                      const_cast<char*>(schemes.c_str()), const_cast<char*>(home.c_str()), nullptr};
            const int devnull = ::open("/dev/null", O_WRONLY);
            ::dup2(devnull, 2);
            ::execve(args[0], args.data(), env.data());
            ::_exit(127);
        }
        return pid;
    };
    auto check = [&](int round) {
        for (const std::string& n : names) {
            const fs::path p = work() / "batch" / n;
            ASSERT_TRUE(fs::exists(p)) << n << " is missing after kill " << round;
            const std::string now = readFile(p);
            EXPECT_TRUE(now == original[n] || now == squeezed(original[n]))
                << n << " is neither the old nor the formatted text after kill " << round << " (" << now.size()
                << " bytes)";
            const fs::path bak = work() / "batch" / (n + ".bak");
            if (fs::exists(bak)) {
                const std::string backup = readFile(bak);
                EXPECT_TRUE(backup == original[n] || backup == squeezed(original[n])) << n << ".bak after kill " << round;
            }
        }
    };

    // How long one whole batch takes, to kill inside it.
    const auto t0 = std::chrono::steady_clock::now();
    int status = 0;
    ::waitpid(start(), &status, 0);
    const auto whole = std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now() - t0);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    check(0);
    // Back to the unformatted texts, so that the killed runs have work to do.
    for (const std::string& n : names) {
        writeFile(work() / "batch" / n, original[n]);
        fs::remove(work() / "batch" / (n + ".bak"));
    }

    std::mt19937 random(12345);
    // A kill that came after the end (the machine got faster than when the
    // batch was timed) narrows the time the next kill is drawn from.
    long window = std::max<long>(1, static_cast<long>(whole.count()));
    int killedWhileRunning = 0;
    for (int round = 1; round <= 20; ++round) {
        const pid_t pid = start();
        std::this_thread::sleep_for(std::chrono::microseconds(std::uniform_int_distribution<long>(0, window)(random)));
        ::kill(pid, SIGKILL);
        ::waitpid(pid, &status, 0);
        if (WIFSIGNALED(status))
            ++killedWhileRunning;
        else
            window = std::max<long>(1, window / 2);
        check(round);
        if (round % 5 == 0) // now and then, start again from unformatted texts
            for (const std::string& n : names)
                writeFile(work() / "batch" / n, original[n]);
    }
    EXPECT_GE(killedWhileRunning, 10) << "most kills should land inside the batch";
    // A run to the end finishes the work.
    ::waitpid(start(), &status, 0);
    EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0);
    for (const std::string& n : names)
        EXPECT_EQ(readFile(work() / "batch" / n), squeezed(original[n]));
}

} // namespace
