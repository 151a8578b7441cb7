// The command's batches, run as a program: -r over folder trees, --project
// over each kind of project file, --exclude and --extensions, standard output
// with a header per file, -j giving the output of one thread byte for byte,
// Ctrl-C in the middle of a batch, and the progress line on a terminal. Most
// tests run tidewright-fake, whose stand-in formatter squeezes blanks and
// fails on a text holding FAKE_FAIL.
#include "CliTestSupport.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <optional>
#include <poll.h>
#include <set>
#include <string>
#include <sys/stat.h>
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

const std::string MESSY = "int  main()\n{\n\treturn  0;   \n}\n";
const std::string TIDY = "int main()\n{\n return 0;\n}\n";

class BatchTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        m_dir = tw_test::freshTestFolder("tw-batch-");
        m_env = tw_test::isolatedEnvironment(m_dir);
    }
    void TearDown() override
    {
        std::error_code ec;
        fs::permissions(m_dir, fs::perms::owner_all, fs::perm_options::add, ec);
        fs::remove_all(m_dir, ec);
    }

    fs::path work() const { return m_dir / "work"; }

    fs::path file(const std::string& name, const std::string& text = MESSY)
    {
        const fs::path p = work() / name;
        fs::create_directories(p.parent_path());
        writeFile(p, text);
        return p;
    }
    std::string text(const std::string& name) const { return readFile(work() / name); }

    std::vector<std::string> environment() const
    {
        std::vector<std::string> env;
        for (const auto& [name, value] : m_env)
            if (value)
                env.push_back(name + "=" + *value);
        env.push_back("PATH=/usr/bin:/bin");
        return env;
    }

    Result run(const std::vector<std::string>& args, const std::string& input = "",
               const std::string& program = TW_FAKE_CLI_PATH)
    {
        writeFile(m_dir / "stdin.txt", input);
        std::string cmd = "cd " + quote(work().string()) + " && env -i";
        for (const std::string& e : environment())
            cmd += " " + quote(e);
        cmd += " " + quote(program);
        for (const std::string& a : args)
            cmd += " " + quote(a);
        cmd += " < " + quote((m_dir / "stdin.txt").string()) + " > " + quote((m_dir / "stdout.txt").string())
            + " 2> " + quote((m_dir / "stderr.txt").string());
        const int raw = std::system(cmd.c_str());
        return {WIFEXITED(raw) ? WEXITSTATUS(raw) : -1, readFile(m_dir / "stdout.txt"),
                readFile(m_dir / "stderr.txt")};
    }

    // Starts the command in the work directory with standard error on
    // `errorFd` (standard output goes to a file); returns its process id.
    pid_t start(const std::vector<std::string>& args, int errorFd)
    {
        std::vector<std::string> argv{TW_FAKE_CLI_PATH};
        argv.insert(argv.end(), args.begin(), args.end());
        const std::vector<std::string> env = environment();
        const std::string out = (m_dir / "stdout.txt").string();
        const pid_t pid = ::fork();
        if (pid == 0) {
            if (::chdir(work().c_str()) != 0)
                ::_exit(127);
            ::setsid(); // a terminal given as standard error becomes ours, as in a shell
            const int outFd = ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
            const int inFd = ::open("/dev/null", O_RDONLY);
            ::dup2(inFd, 0);
            ::dup2(outFd, 1);
            ::dup2(errorFd, 2);
            std::vector<char*> a;
            for (const std::string& s : argv)
                a.push_back(const_cast<char*>(s.c_str()));
            a.push_back(nullptr);
            std::vector<char*> e;
            for (const std::string& s : env)
                e.push_back(const_cast<char*>(s.c_str()));
            e.push_back(nullptr);
            ::execve(a[0], a.data(), e.data());
            ::_exit(127);
        }
        return pid;
    }

    fs::path m_dir;
    std::map<std::string, std::optional<std::string>> m_env;
};

TEST_F(BatchTest, RecursiveInPlaceFormatsTheTreeAndPassesOverHiddenReadOnlyAndLinkedFilesSilently)
{
    file("tree/a.cpp");
    file("tree/sub/b.h");
    file("tree/sub/deeper/c.c");
    file("tree/notes.txt");
    file("tree/.hidden/d.c");
    file("tree/.e.c");
    const fs::path readOnly = file("tree/ro.c");
    ::chmod(readOnly.c_str(), 0444);
    fs::create_symlink("a.cpp", work() / "tree" / "link.cpp");
    fs::create_directory_symlink("sub", work() / "tree" / "linkdir");
    Result r = run({"-i", "-r", "--no-backup", "tree"});
    EXPECT_EQ(r.status, 0) << r.err;
    EXPECT_EQ(r.out, "");
    EXPECT_EQ(r.err, "");
    for (const char* formatted : {"tree/a.cpp", "tree/sub/b.h", "tree/sub/deeper/c.c"})
        EXPECT_EQ(text(formatted), TIDY) << formatted;
    for (const char* left : {"tree/notes.txt", "tree/.hidden/d.c", "tree/.e.c", "tree/ro.c"})
        EXPECT_EQ(text(left), MESSY) << left;
    EXPECT_TRUE(fs::is_symlink(work() / "tree" / "link.cpp"));
    r = run({"--check", "-r", "tree"});
    EXPECT_EQ(r.status, 0) << r.out;
    EXPECT_EQ(r.out, "");
    // -v shows the command's lines and each file, in the tree's order.
    file("tree/a.cpp");
    r = run({"-i", "-r", "-v", "--no-backup", "tree"});
    EXPECT_EQ(r.err, "Formatting files under directory \"tree\" using scheme \"default\".\n"
                     "Formatting \"tree/a.cpp\".\nFormatting \"tree/sub/b.h\".\nFormatting \"tree/sub/deeper/c.c\".\n"
                     "Finished formatting directory tree.\n");
}

TEST_F(BatchTest, ADirectoryIsWalkedOnlyUnderRecursive)
{
    file("tree/a.cpp");
    Result r = run({"-i", "tree"});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("\"tree\" is not a regular file (it is a directory)"), std::string::npos) << r.err;
    r = run({"--check", "tree"});
    EXPECT_EQ(r.status, 1);
    EXPECT_NE(r.err.find("\"tree\" is not a regular file (it is a directory)"), std::string::npos) << r.err;
    r = run({"tree"});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("it is a directory"), std::string::npos) << r.err;
    EXPECT_EQ(text("tree/a.cpp"), MESSY);
    // The current directory, named ".", gives paths without "./".
    r = run({"--check", "-r", "."});
    EXPECT_EQ(r.out, "tree/a.cpp: would be reformatted\n");
}

TEST_F(BatchTest, ExcludesMatchFromTheWalkRootOrTheCurrentDirectory)
{
    file("src/a.cpp");
    file("src/gen/g.cpp");
    file("src/msg.pb.h");
    file("src/third_party/t.c");
    file("third_party/u.c");
    Result r = run({"--check", "-r", "src", "--exclude", "gen/**", "--exclude", "*.pb.h", "--exclude",
                    "third_party/"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\n");
    // From the walk's root: third_party/** does not reach src/third_party
    // from the current directory's point of view, but does from src's.
    r = run({"--check", "-r", "src", "--exclude", "third_party/**"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\nsrc/gen/g.cpp: would be reformatted\n"
                     "src/msg.pb.h: would be reformatted\n");
    // Named files match from the current directory.
    r = run({"--check", "src/a.cpp", "third_party/u.c", "--exclude", "third_party/**"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\n");
}

TEST_F(BatchTest, ExtensionsReplaceTheSettingsList)
{
    file("tree/a.inl");
    file("tree/b.h");
    file("tree/c.CPP");
    Result r = run({"--check", "-r", "tree", "--extensions", "inl;.cpp"});
    EXPECT_EQ(r.out, "tree/a.inl: would be reformatted\ntree/c.CPP: would be reformatted\n");
    r = run({"--check", "tree/b.h", "--extensions", "inl"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.err, "The file \"tree/b.h\" does not have a file extension registered with Tidewright as valid "
                     "for formatting. Listed: inl (--extensions).\n");
    for (const char* bad : {"", " ,;", "c,a/b"}) {
        r = run({"--check", "tree/b.h", "--extensions", bad});
        EXPECT_EQ(r.status, 2) << bad;
    }
}

TEST_F(BatchTest, StandardOutputHasAHeaderPerFileOnlyWhenThereIsMoreThanOne)
{
    file("one/a.cpp");
    file("two/a.cpp", "int  a;\n");
    file("two/b.c", "FAKE_FAIL\n");
    file("two/c.h", "int  c;\n");
    Result r = run({"-r", "one"});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.out, TIDY);
    r = run({"-r", "two"});
    EXPECT_EQ(r.status, 1);
    EXPECT_EQ(r.out, "==> two/a.cpp <==\nint a;\n\n==> two/c.h <==\nint c;\n");
    EXPECT_EQ(r.err, "two/b.c(1) : error: col 1: fake failure\n");
    r = run({"one/a.cpp", "two/c.h"});
    EXPECT_EQ(r.out, "==> one/a.cpp <==\n" + TIDY + "\n==> two/c.h <==\nint c;\n");
}

TEST_F(BatchTest, TheSameFileUnderSeveralNamesIsFormattedOnce)
{
    file("a.cpp");
    fs::create_symlink("a.cpp", work() / "link.cpp");
    const Result r = run({"-i", "-v", "--no-backup", "a.cpp", "./a.cpp", "link.cpp", "-r", "."});
    EXPECT_EQ(r.status, 0);
    EXPECT_EQ(r.err, "Formatting \"a.cpp\".\nFormatting files under directory \".\" using scheme \"default\".\n"
                     "Finished formatting directory tree.\n");
    EXPECT_EQ(text("a.cpp"), TIDY);
}

// Files of every kind of outcome, for the comparisons of -j.
void makeMixedTree(const std::function<fs::path(const std::string&, const std::string&)>& file)
{
    for (int i = 0; i < 48; ++i) {
        const std::string dir = "mix/d" + std::to_string(i % 5) + "/";
        std::string body;
        for (int line = 0; line < 30 + i * 3; ++line)
            body += (line % 4 == 0 ? "int  v" : "int v") + std::to_string(line) + " = " + std::to_string(i) + ";\n";
        if (i % 6 == 1)
            body = squeezed(body); // already formatted
        if (i % 11 == 4)
            body += "FAKE_FAIL\n"; // does not parse
        if (i % 13 == 7)
            body.clear(); // empty
        file(dir + "f" + std::to_string(i) + (i % 3 == 0 ? ".h" : ".cpp"), body);
    }
}

TEST_F(BatchTest, ParallelRunsShowByteForByteWhatOneThreadShows)
{
    makeMixedTree([this](const std::string& n, const std::string& t) { return file(n, t); });
    const std::map<std::string, std::string> before = [&] {
        std::map<std::string, std::string> all;
        for (const auto& e : fs::recursive_directory_iterator(work() / "mix"))
            if (e.is_regular_file())
                all[e.path().string()] = readFile(e.path());
        return all;
    }();
    auto restore = [&] {
        fs::remove_all(work() / "mix");
        for (const auto& [path, body] : before) {
            fs::create_directories(fs::path(path).parent_path());
            writeFile(path, body);
        }
    };
    const std::vector<std::vector<std::string>> modes{
        {"-r", "-v", "mix", "mix/d0/f0.h"},
        {"--check", "-r", "-v", "mix"},
        {"--diff", "-r", "mix"},
        {"-i", "-r", "-v", "mix", "missing.cpp"},
    };
    for (const std::vector<std::string>& mode : modes) {
        std::vector<std::string> one = mode;
        one.insert(one.end(), {"-j", "1"});
        std::vector<std::string> eight = mode;
        eight.insert(eight.end(), {"-j", "8"});
        restore();
        const Result a = run(one);
        std::map<std::string, std::string> afterOne;
        for (const auto& e : fs::recursive_directory_iterator(work() / "mix"))
            if (e.is_regular_file())
                afterOne[e.path().string()] = readFile(e.path());
        restore();
        const Result b = run(eight);
        EXPECT_EQ(a.status, 1) << mode.front();
        EXPECT_EQ(a.status, b.status) << mode.front();
        EXPECT_EQ(a.out, b.out) << mode.front();
        EXPECT_EQ(a.err, b.err) << mode.front();
        EXPECT_FALSE(a.out.empty() && a.err.empty()) << mode.front();
        for (const auto& e : fs::recursive_directory_iterator(work() / "mix")) {
            if (e.is_regular_file()) {
                EXPECT_EQ(readFile(e.path()), afterOne[e.path().string()]) << e.path();
            }
        }
    }
}

TEST_F(BatchTest, ProjectOptionTakesEachKindByName)
{
    file("src/a.cpp");
    file("src/b c.h");
    file("src/gen/g.cpp");
    file("src/res.rc");
    file("p.dsp", "# Microsoft Developer Studio Project File - Name=\"p\" - Package Owner=<4>\r\n"
                  "# Begin Source File\r\n\r\nSOURCE=.\\src\\a.cpp\r\n# End Source File\r\n"
                  "# Begin Source File\r\n\r\nSOURCE=\".\\src\\b c.h\"\r\n# End Source File\r\n"
                  "# Begin Source File\r\n\r\nSOURCE=.\\src\\res.rc\r\n# End Source File\r\n");
    file("w.dsw", "Microsoft Developer Studio Workspace File, Format Version 6.00\r\n"
                  "Project: \"p\"=.\\p.dsp - Package Owner=<4>\r\n");
    file("p.vcxproj", "<Project><ItemGroup><ClCompile Include=\"src\\a.cpp;src\\gen\\g.cpp\"/>"
                      "<ClInclude Include=\"src\\b c.h\"/></ItemGroup></Project>");
    file("all.sln", "Microsoft Visual Studio Solution File, Format Version 12.00\r\n"
                    "Project(\"{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}\") = \"p\", \"p.vcxproj\", \"{1}\"\r\n"
                    "EndProject\r\n");
    file("build/compile_commands.json",
         "[{\"directory\": \"" + (work() / "build").string() + "\", \"file\": \"../src/a.cpp\"},"
         " {\"directory\": \"" + (work() / "build").string() + "\", \"file\": \"../src/a.cpp\"},"
         " {\"directory\": \"" + (work() / "src").string() + "\", \"file\": \"gen/g.cpp\"},"
         " {\"directory\": \"" + (work() / "src").string() + "\", \"file\": \"gone.cpp\"}]");
    Result r = run({"--check", "--project", "p.dsp"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\nsrc/b c.h: would be reformatted\n");
    r = run({"--check", "--project", "w.dsw", "-v"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\nsrc/b c.h: would be reformatted\n");
    EXPECT_EQ(r.err.rfind("Formatting workspace \"w.dsw\" using scheme \"default\".\n"
                          "Formatting project \"p.dsp\" using scheme \"default\".\n"
                          "Formatting \"src/a.cpp\".\n",
                          0),
              0u)
        << r.err;
    EXPECT_NE(r.err.find("Finished formatting workspace.\n"), std::string::npos);
    r = run({"--check", "--project", "p.vcxproj", "--exclude", "src/gen/**"});
    EXPECT_EQ(r.out, "src/a.cpp: would be reformatted\nsrc/b c.h: would be reformatted\n");
    r = run({"--check", "--project", "all.sln", "-v"});
    EXPECT_NE(r.out.find("src/gen/g.cpp: would be reformatted\n"), std::string::npos);
    EXPECT_NE(r.err.find("Formatting project \"p.vcxproj\" using scheme"), std::string::npos) << r.err;
    // A compilation database: the same file twice is formatted once; a file
    // it lists that is gone is reported; excludes match from here.
    r = run({"-i", "--no-backup", "-v", "--project", "build/compile_commands.json", "--exclude", "src/gen/"});
    EXPECT_EQ(r.status, 1);
    const std::string a = (work() / "src" / "a.cpp").string();
    const std::string gone = (work() / "src" / "gone.cpp").string();
    EXPECT_EQ(r.err, "Formatting project \"build/compile_commands.json\" using scheme \"default\".\n"
                     "Formatting \"" + a + "\".\nFormatting \"" + gone + "\".\nThe file \"" + gone
                         + "\" cannot be found.\nFinished formatting project.\n");
    EXPECT_EQ(text("src/a.cpp"), TIDY);
    EXPECT_EQ(text("src/gen/g.cpp"), MESSY);
}

TEST_F(BatchTest, AProjectThatCannotBeReadIsAUsageError)
{
    Result r = run({"--check", "--project", "none.vcxproj"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, "cannot read project file 'none.vcxproj': No such file or directory\n"
                     "Tidewright C++ was unable to find an active project in the currently loaded workspace. "
                     "Please set a project to be active before trying this command again.\n");
    r = run({"--check", "--project", "Makefile"});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("--project takes a .dsp, .dsw, .vcxproj or .sln file"), std::string::npos);
    file("bad.sln", "nothing\n");
    r = run({"--check", "--project", "bad.sln"});
    EXPECT_EQ(r.status, 2);
    EXPECT_NE(r.err.find("No workspace is currently loaded."), std::string::npos) << r.err;
    // -i takes a project without FILE arguments, but not standard input.
    r = run({"-i"});
    EXPECT_EQ(r.status, 2);
    r = run({"-j", "0", "a.cpp"});
    EXPECT_EQ(r.status, 2);
}

TEST_F(BatchTest, CtrlCStopsTheBatchBetweenFilesAndSaysHowManyWereDone)
{
    constexpr int FILES = 40;
    std::map<std::string, std::string> original;
    for (int i = 0; i < FILES; ++i) {
        const std::string name = "big/f" + std::string(i < 10 ? "0" : "") + std::to_string(i) + ".c";
        std::string body;
        for (int line = 0; line < 100; ++line)
            body += "int  v" + std::to_string(line) + "  =  " + std::to_string(i) + ";\n";
        file(name, body);
        original[name] = body;
    }
    m_env["TW_FAKE_DELAY_MS"] = "100";
    const int errFd = ::open((m_dir / "stderr.txt").c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    const pid_t pid = start({"-i", "--no-backup", "-r", "big", "-j", "2"}, errFd);
    ::close(errFd);
    auto formattedCount = [&] {
        int n = 0;
        for (const auto& [name, body] : original)
            n += text(name) == squeezed(body);
        return n;
    };
    // Wait until a few files are done, then interrupt.
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (formattedCount() < 4 && std::chrono::steady_clock::now() < deadline)
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    ASSERT_EQ(::kill(pid, SIGINT), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(pid, &status, 0), pid);
    ASSERT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 130);
    const int done = formattedCount();
    EXPECT_GE(done, 4);
    EXPECT_LT(done, FILES);
    for (const auto& [name, body] : original) {
        const std::string now = text(name);
        EXPECT_TRUE(now == body || now == squeezed(body)) << name << " is neither old nor new";
    }
    // Every file done is one of the first ones: nothing is started after the stop.
    std::set<std::string> temporary;
    for (const auto& e : fs::directory_iterator(work() / "big"))
        if (e.path().filename().string().find(".tw-") != std::string::npos)
            temporary.insert(e.path().filename().string());
    EXPECT_TRUE(temporary.empty()) << *temporary.begin();
    const std::string err = readFile(m_dir / "stderr.txt");
    EXPECT_NE(err.find("tidewright: interrupted: " + std::to_string(done) + " of 40 files done\n"),
              std::string::npos)
        << err;
}

// Standard error on a terminal shows the progress line; in a file it never does.
TEST_F(BatchTest, TheProgressLineShowsOnlyOnATerminal)
{
    for (int i = 0; i < 6; ++i)
        file("six/f" + std::to_string(i) + ".c");
    const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_GE(master, 0);
    ASSERT_EQ(::grantpt(master), 0);
    ASSERT_EQ(::unlockpt(master), 0);
    const int slave = ::open(::ptsname(master), O_RDWR | O_NOCTTY);
    ASSERT_GE(slave, 0);
    m_env["TW_FAKE_DELAY_MS"] = "30";
    const pid_t pid = start({"--check", "-r", "six", "-j", "1"}, slave);
    ::close(slave);
    std::string screen;
    for (;;) {
        pollfd p{master, POLLIN, 0};
        if (::poll(&p, 1, 10000) <= 0)
            break;
        char buffer[4096];
        const ssize_t n = ::read(master, buffer, sizeof buffer);
        if (n <= 0)
            break; // the other side is closed: the command has ended
        screen.append(buffer, static_cast<std::size_t>(n));
    }
    ::close(master);
    int status = 0;
    ::waitpid(pid, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 1);
    EXPECT_NE(screen.find("\rFormatting file 1 of 6: six/f0.c\x1b[K"), std::string::npos) << screen;
    EXPECT_EQ(screen.substr(screen.size() - 4), "\r\x1b[K") << "the line is cleared at the end";
    EXPECT_EQ(readFile(m_dir / "stdout.txt").size(), 6 * std::string("six/f0.c: would be reformatted\n").size());
    // Not when standard error is a file.
    const Result r = run({"--check", "-r", "six"});
    EXPECT_EQ(r.err.find('\r'), std::string::npos);
    EXPECT_EQ(r.err, "");
}

} // namespace
