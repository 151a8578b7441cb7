// The file job, step by step: what it refuses and says, what it writes, and
// that a file it does not write stays byte for byte as it was.
#include "App_FileJob.h"

#include "SchemeTestSupport.h"
#include "Kempt.h"
#include "Trn_Exception.h"
#include "Varnel_Contract.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <sstream>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using tw_test::readBytes;
using tw_test::TempDir;
using tw_test::writeBytes;

const std::string PARSE_TAIL =
    "Tidewright C++ could not successfully parse the file %s. If the file contains only valid C/C++ then please "
    "check the Tidewright C++ FAQ at the project's web site to see if this is a known issue. Otherwise, please send "
    "an email to the project's maintainers. The file will not be formatted.";

std::string withPath(std::string text, const std::string& path)
{
    text.replace(text.find("%s"), 2, path);
    return text;
}

// A formatter that changes white space only: each run of blanks becomes one.
App::FormatFunction squeezeBlanks(int* calls = nullptr)
{
    return [calls](const Kempt::FormatSettings&, std::istream& in, std::ostream& out, Kempt::FormatMessageList&,
                   Kempt::UpdateFunctor& update) -> std::int32_t {
        if (calls)
            ++*calls;
        update("Formatting file:\n%s");
        std::ostringstream text;
        text << in.rdbuf();
        std::string result;
        for (const char c : text.str())
            if (!(c == ' ' && !result.empty() && result.back() == ' '))
                result += c;
        out << result;
        return 0;
    };
}

// A formatter that reports messages instead of text.
App::FormatFunction failing(std::vector<Kempt::FormatMessage> messages)
{
    return [messages](const Kempt::FormatSettings&, std::istream&, std::ostream&, Kempt::FormatMessageList& list,
                      Kempt::UpdateFunctor&) -> std::int32_t {
        for (const auto& m : messages)
            list.push_back(m);
        return static_cast<std::int32_t>(list.size());
    };
}

// A formatter that gives back `output`, whatever the input.
App::FormatFunction giving(std::string output)
{
    return [output](const Kempt::FormatSettings&, std::istream&, std::ostream& out, Kempt::FormatMessageList&,
                    Kempt::UpdateFunctor&) -> std::int32_t {
        out << output;
        return 0;
    };
}

template <typename Thrown>
App::FormatFunction throwing(Thrown thrown)
{
    return [thrown](const Kempt::FormatSettings&, std::istream&, std::ostream&, Kempt::FormatMessageList&,
                    Kempt::UpdateFunctor&) -> std::int32_t { throw thrown; };
}

Kempt::FormatMessage message(int severity, int line, int col, const std::string& text)
{
    Kempt::FormatMessage m;
    m.severity = severity;
    m.position = {line, col};
    m.text = text;
    return m;
}

// Records what the job shows; cancels when asked.
class RecordingProgress : public App::FileProgress {
public:
    bool pumpAndCheckCancelled() override
    {
        ++pumps;
        return cancelAtPump != 0 && pumps >= cancelAtPump;
    }
    void resetBar() override { ++resets; }
    void showStatus(const std::string& text) override { shown.push_back(text); }

    int cancelAtPump = 0; // 0: never
    int pumps = 0;
    int resets = 0;
    std::vector<std::string> shown;
};

std::vector<std::string> lines(const App::MessageSink& sink)
{
    std::vector<std::string> out;
    for (std::string line : sink.queue()) {
        EXPECT_EQ(line.substr(line.size() - 2), "\r\n");
        out.push_back(line.substr(0, line.size() - 2));
    }
    return out;
}

class FileJobTest : public ::testing::Test {
protected:
    fs::path file(const std::string& name, const std::string& text, mode_t mode = 0644)
    {
        const fs::path p = m_dir.path() / name;
        writeBytes(p, text);
        ::chmod(p.c_str(), mode);
        return p;
    }
    std::set<std::string> entries() const
    {
        std::set<std::string> names;
        for (const auto& e : fs::directory_iterator(m_dir.path()))
            names.insert(e.path().filename().string());
        return names;
    }

    TempDir m_dir;
    App::MessageSink m_sink{1};
    Kempt::PropertySet m_props;
};

TEST_F(FileJobTest, AGoodRunBacksUpWritesAndSaysOnlyThatItIsFormatting)
{
    const fs::path f = file("a.cpp", "int  x  =  1;\n");
    RecordingProgress progress;
    App::FileJob job(m_sink, {}, squeezeBlanks());
    EXPECT_EQ(job.formatFile(f.string(), m_props, &progress), App::JobResult::FORMATTED);
    EXPECT_EQ(readBytes(f), "int x = 1;\n");
    EXPECT_EQ(readBytes(m_dir.path() / "a.cpp.bak"), "int  x  =  1;\n");
    EXPECT_EQ(lines(m_sink), std::vector<std::string>{"Formatting \"" + f.string() + "\"."});
    EXPECT_EQ(progress.resets, 1);
    EXPECT_EQ(progress.shown, (std::vector<std::string>{"Opening file:\n" + f.string(),
                                                         "Formatting file:\n" + f.string(),
                                                         "Writing file:\n" + f.string(),
                                                         "Completed file:\n" + f.string()}));
}

TEST_F(FileJobTest, WithoutBackupsNoBackupIsMade)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(m_sink, {.createBackups = false}, squeezeBlanks());
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FORMATTED);
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, TheBackupTakesTheExtensionItIsGiven)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(m_sink, {.backupExtension = "orig"}, squeezeBlanks());
    job.formatFile(f.string(), m_props);
    EXPECT_EQ(entries(), (std::set<std::string>{"a.cpp", "a.cpp.orig"}));
}

TEST_F(FileJobTest, ASecondRunOverwritesTheBackupOfTheFirst)
{
    const fs::path f = file("a.cpp", "int  first;\n");
    App::FileJob job(m_sink, {}, squeezeBlanks());
    job.formatFile(f.string(), m_props);
    EXPECT_EQ(readBytes(m_dir.path() / "a.cpp.bak"), "int  first;\n");
    writeBytes(f, "int   second;\n");
    job.formatFile(f.string(), m_props);
    EXPECT_EQ(readBytes(m_dir.path() / "a.cpp.bak"), "int   second;\n");
    EXPECT_EQ(readBytes(f), "int second;\n");
}

TEST_F(FileJobTest, AMissingFileCannotBeFound)
{
    App::FileJob job(m_sink, {}, squeezeBlanks());
    const std::string path = (m_dir.path() / "gone.cpp").string();
    EXPECT_EQ(job.formatFile(path, m_props), App::JobResult::FAILED);
    EXPECT_EQ(lines(m_sink), (std::vector<std::string>{"Formatting \"" + path + "\".",
                                                        "The file \"" + path + "\" cannot be found."}));
}

TEST_F(FileJobTest, AFileWithoutWriteAccessIsRefusedBeforeItIsRead)
{
    const fs::path f = file("a.cpp", "int  x;\n", 0444);
    int calls = 0;
    App::FileJob job(m_sink, {}, squeezeBlanks(&calls));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(lines(m_sink).back(),
              "The file \"" + f.string() + "\" does not have read/write permissions and cannot be formatted.");
    EXPECT_EQ(readBytes(f), "int  x;\n");
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, AnEmptyFileIsCompletedWithNoMessageAndNoBackup)
{
    const fs::path f = file("a.cpp", "");
    int calls = 0;
    RecordingProgress progress;
    App::FileJob job(m_sink, {}, squeezeBlanks(&calls));
    EXPECT_EQ(job.formatFile(f.string(), m_props, &progress), App::JobResult::EMPTY);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(lines(m_sink), std::vector<std::string>{"Formatting \"" + f.string() + "\"."});
    EXPECT_EQ(progress.shown.back(), "Completed file:\n" + f.string());
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, NotARegularFileIsRefusedAndNeverOpened)
{
    App::FileJob job(m_sink, {}, squeezeBlanks());
    ASSERT_EQ(::mkfifo((m_dir.path() / "fifo.cpp").c_str(), 0644), 0); // opening it would block
    EXPECT_EQ(job.formatFile((m_dir.path() / "fifo.cpp").string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(lines(m_sink).back(), "The file \"" + (m_dir.path() / "fifo.cpp").string()
                                        + "\" is not a regular file (it is a FIFO) and cannot be formatted.");
    fs::create_directories(m_dir.path() / "dir.cpp");
    EXPECT_EQ(job.formatFile((m_dir.path() / "dir.cpp").string(), m_props), App::JobResult::FAILED);
    EXPECT_NE(lines(m_sink).back().find("(it is a directory)"), std::string::npos);
    EXPECT_EQ(job.formatFile("/dev/null", m_props), App::JobResult::FAILED);
    EXPECT_NE(lines(m_sink).back().find("(it is a device)"), std::string::npos);
}

TEST_F(FileJobTest, ANulByteMeansABinaryFile)
{
    const fs::path f = file("a.cpp", "int x;\0\x01\x02"s);
    App::FileJob job(m_sink, {}, squeezeBlanks());
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(lines(m_sink).back(), "The file \"" + f.string()
                                        + "\" looks like a binary file (it holds a NUL byte at offset 6). The file "
                                          "will not be formatted.");
    EXPECT_EQ(readBytes(f), "int x;\0\x01\x02"s);
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, WideTextIsRefusedByItsByteOrderMark)
{
    App::FileJob job(m_sink, {}, squeezeBlanks());
    for (const auto& [bytes, name] : std::vector<std::pair<std::string, std::string>>{
             {"\xFF\xFEi\0n\0t\0"s, "UTF-16LE"},
             {"\xFE\xFF\0i\0n\0t"s, "UTF-16BE"},
             {"\xFF\xFE\0\0i\0\0\0"s, "UTF-32LE"},
             {"\0\0\xFE\xFF\0\0\0i"s, "UTF-32BE"}}) {
        const fs::path f = file("w.cpp", bytes);
        EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
        EXPECT_EQ(lines(m_sink).back(), "The file \"" + f.string() + "\" is " + name
                                            + " text (it begins with that byte-order mark); only 8-bit text such as "
                                              "UTF-8 can be formatted. The file will not be formatted.");
        EXPECT_EQ(readBytes(f), bytes);
    }
}

TEST_F(FileJobTest, AFileAboveTheSizeLimitIsRefused)
{
    const fs::path f = file("a.cpp", std::string(100, ' ') + "x;\n");
    int calls = 0;
    App::FileJob job(m_sink, {.maxSize = 50}, squeezeBlanks(&calls));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(calls, 0);
    EXPECT_EQ(lines(m_sink).back(), "The file \"" + f.string()
                                        + "\" is 103 bytes long, more than the limit of 50 bytes. The file will not "
                                          "be formatted.");
}

TEST_F(FileJobTest, ParseMessagesAreListedAndTheFileIsNotWritten)
{
    const fs::path f = file("a.cpp", "int  x\n");
    App::FileJob job(m_sink, {}, failing({message(3, 2, 1, "Unexpected EOF found."), message(1, 0, 0, "note")}));
    RecordingProgress progress;
    EXPECT_EQ(job.formatFile(f.string(), m_props, &progress), App::JobResult::FAILED);
    const std::string p = f.string();
    EXPECT_EQ(lines(m_sink), (std::vector<std::string>{"Formatting \"" + p + "\".",
                                                        p + "(2) : error: col 1: Unexpected EOF found.",
                                                        p + "(0) : information: col 0: note",
                                                        withPath(PARSE_TAIL, p)}));
    EXPECT_EQ(progress.shown.back(), "The file will not be formatted:\n" + p);
    EXPECT_EQ(readBytes(f), "int  x\n");
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, AWarningAloneStillStopsTheWrite)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(m_sink, {}, failing({message(2, 1, 5, "odd")}));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(lines(m_sink)[1], f.string() + "(1) : warning: col 5: odd");
    EXPECT_EQ(readBytes(f), "int  x;\n");
}

TEST_F(FileJobTest, ThresholdZeroShowsNothingYetTheFailedFileIsNotWritten)
{
    App::MessageSink silent(0);
    const fs::path f = file("a.cpp", "int  x\n");
    App::FileJob job(silent, {}, failing({message(3, 1, 1, "bad")}));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_TRUE(silent.queue().empty());
    EXPECT_EQ(readBytes(f), "int  x\n");
}

TEST_F(FileJobTest, CancelDuringTheRunLeavesFileAndBackupUntouched)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    const fs::path bak = file("a.cpp.bak", "older backup");
    RecordingProgress progress;
    progress.cancelAtPump = 2; // step 1 passes; the pipeline's callback sees the cancel
    App::FileJob job(m_sink, {}, [](const Kempt::FormatSettings& s, std::istream& in, std::ostream& out,
                                    Kempt::FormatMessageList& messages, Kempt::UpdateFunctor& update) {
        return Kempt::FormatEngine().format(s, in, out, messages, update);
    });
    EXPECT_EQ(job.formatFile(f.string(), m_props, &progress), App::JobResult::CANCELLED);
    EXPECT_EQ(readBytes(f), "int  x;\n");
    EXPECT_EQ(readBytes(bak), "older backup");
    EXPECT_EQ(lines(m_sink), std::vector<std::string>{"Formatting \"" + f.string() + "\"."});
}

TEST_F(FileJobTest, CancelBeforeTheFileStopsAtOnce)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    RecordingProgress progress;
    progress.cancelAtPump = 1;
    int calls = 0;
    App::FileJob job(m_sink, {}, squeezeBlanks(&calls));
    EXPECT_EQ(job.formatFile(f.string(), m_props, &progress), App::JobResult::CANCELLED);
    EXPECT_EQ(calls, 0);
    EXPECT_TRUE(m_sink.queue().empty());
    EXPECT_EQ(progress.resets, 0);
}

TEST_F(FileJobTest, AFailedBackupGivesItsTextWithThePlaceholderUnfilled)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    fs::create_directories(m_dir.path() / "a.cpp.bak"); // no file can take its place
    App::FileJob job(m_sink, {}, squeezeBlanks());
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    const auto shown = lines(m_sink);
    EXPECT_NE(std::find(shown.begin(), shown.end(),
                        "Tidewright C++ was unable to create a backup file for the file \"%s\". The file will not be "
                        "formatted."),
              shown.end());
    EXPECT_EQ(readBytes(f), "int  x;\n");
}

TEST_F(FileJobTest, AFailingWriteLeavesTheOriginalByteIdentical)
{
    const std::string original = "int  x;\r\n\tint  y;\r\n";
    for (const int error : {ENOSPC, EROFS, EACCES}) {
        for (const App::WriteStep step : {App::WriteStep::CREATE, App::WriteStep::WRITE, App::WriteStep::SYNC,
                                          App::WriteStep::RENAME}) {
            App::MessageSink sink(1);
            const fs::path f = file("a.cpp", original, 0640);
            App::FileJob job(sink, {.createBackups = false}, squeezeBlanks());
            job.setWriteFault([&](App::WriteStep at) { return at == step ? error : 0; });
            EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
            EXPECT_EQ(readBytes(f), original);
            EXPECT_EQ(fs::status(f).permissions() & fs::perms::mask,
                      fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read);
            EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
            const auto shown = lines(sink);
            ASSERT_EQ(shown.size(), 3u);
            EXPECT_EQ(shown[1], "Tidewright C++ was unable to write the formatted text back to the file \""
                                    + f.string() + "\". The file will not be formatted.");
            EXPECT_EQ(shown[2], f.string() + ": " + std::strerror(error));
        }
    }
}

TEST_F(FileJobTest, AFileChangedBetweenReadAndWriteIsLeftAsItIsNow)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(m_sink, {}, squeezeBlanks());
    job.setBeforeWrite([&] { writeBytes(f, "int  x;  // edited meanwhile\n"); });
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(readBytes(f), "int  x;  // edited meanwhile\n");
    EXPECT_EQ(lines(m_sink).back(), "The file \"" + f.string()
                                        + "\" changed while it was being formatted. It has been left as it is now; "
                                          "format it again.");
}

TEST_F(FileJobTest, AFileThatVanishedBeforeTheWriteIsNotMadeAgain)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(m_sink, {}, squeezeBlanks());
    job.setBeforeWrite([&] { fs::remove(f); });
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_TRUE(entries().empty());
}

TEST_F(FileJobTest, ASymbolicLinkStaysALinkAndPermissionBitsSurvive)
{
    fs::create_directories(m_dir.path() / "src");
    const fs::path target = m_dir.path() / "src" / "real.cpp";
    writeBytes(target, "int  x;\n");
    ::chmod(target.c_str(), 0750);
    fs::create_symlink("src/real.cpp", m_dir.path() / "link.cpp");
    App::FileJob job(m_sink, {}, squeezeBlanks());
    EXPECT_EQ(job.formatFile((m_dir.path() / "link.cpp").string(), m_props), App::JobResult::FORMATTED);
    EXPECT_TRUE(fs::is_symlink(m_dir.path() / "link.cpp"));
    EXPECT_EQ(readBytes(target), "int x;\n");
    EXPECT_EQ(fs::status(target).permissions() & fs::perms::mask, fs::perms(0750));
    EXPECT_EQ(readBytes(m_dir.path() / "link.cpp.bak"), "int  x;\n");
    EXPECT_FALSE(fs::is_symlink(m_dir.path() / "link.cpp.bak"));
}

TEST_F(FileJobTest, OutputThatLosesATokenIsNotWritten)
{
    const fs::path f = file("a.cpp", "int x;\nint y;\n");
    App::FileJob job(m_sink, {}, giving("int x;\nint y\n"));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    EXPECT_EQ(readBytes(f), "int x;\nint y;\n");
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
    const std::string last = lines(m_sink).back();
    EXPECT_EQ(last.rfind("The formatted text of the file \"" + f.string()
                             + "\" does not hold the same tokens as the file, from line 2: ",
                         0),
              0u)
        << last;
    EXPECT_NE(last.find("The file will not be formatted."), std::string::npos);
}

TEST_F(FileJobTest, WithoutVerificationTheOutputIsWrittenAsItIs)
{
    const fs::path f = file("a.cpp", "int x;\n");
    App::FileJob job(m_sink, {.createBackups = false, .verify = false}, giving("int x\n"));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FORMATTED);
    EXPECT_EQ(readBytes(f), "int x\n");
}

TEST_F(FileJobTest, VerificationLeavesBracesOutOnlyWhenTheBraceRewriterRuns)
{
    const std::string input = "void f() { if (a) { b(); } }\n";
    const std::string output = "void f() { if (a) b(); }\n";
    {
        const fs::path f = file("a.cpp", input);
        App::FileJob job(m_sink, {.createBackups = false}, giving(output));
        EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    }
    {
        const fs::path f = file("a.cpp", input);
        Kempt::PropertySet braces;
        braces.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 2);
        App::FileJob job(m_sink, {.createBackups = false}, giving(output));
        EXPECT_EQ(job.formatFile(f.string(), braces), App::JobResult::FORMATTED);
        EXPECT_EQ(readBytes(f), output);
    }
}

TEST_F(FileJobTest, UnderABraceStyleOnlyTheBracesTheRewriterChangesMayDiffer)
{
    const std::string input = "void f() { if (a) { b(); } while (c) { d(); e(); } }\n";
    Kempt::PropertySet braces;
    braces.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 2);
    braces.setInt(Kempt::Prop::WHILE_CS_SINGLE_STMT_BRACE_STYLE, 2);
    struct Case {
        std::string output;
        App::JobResult result;
    };
    const std::vector<Case> cases = {
        // The braces round b() go, exactly as the rewriter takes them out.
        {"void f() { if (a) b(); while (c) { d(); e(); } }\n", App::JobResult::FORMATTED},
        // A rewriter that also dropped a ";".
        {"void f() { if (a) b() while (c) { d(); e(); } }\n", App::JobResult::FAILED},
        // ... or the braces of a body of two statements.
        {"void f() { if (a) b(); while (c) d(); e(); }\n", App::JobResult::FAILED},
        // ... or the function's own braces.
        {"void f() if (a) b(); while (c) { d(); e(); }\n", App::JobResult::FAILED},
        // ... or kept the braces and dropped another token.
        {"void f() { if (a) { b(); } while (c) { d(); } }\n", App::JobResult::FAILED},
    };
    for (const Case& c : cases) {
        const fs::path f = file("a.cpp", input);
        App::FileJob job(m_sink, {.createBackups = false}, giving(c.output));
        EXPECT_EQ(job.formatFile(f.string(), braces), c.result) << c.output;
        EXPECT_EQ(readBytes(f), c.result == App::JobResult::FORMATTED ? c.output : input) << c.output;
    }
}

TEST_F(FileJobTest, ExceptionsAreToldInTheirOrderAndTheFileStays)
{
    const fs::path f = file("a.cpp", "int  x;\n");
    const std::string tail = " The file \"" + f.string() + "\" will not be formatted.";
    const std::string head = "An unexpected error has occurred. The current Tidewright C++ operation has failed. "
                             "Please contact Tidewright Technical Support and report the following details: ";
    struct Case {
        App::FormatFunction format;
        std::string expected;
    };
    const std::vector<Case> cases = {
        {throwing(Trn::Exception("token trouble")), head + "token trouble" + tail},
        {throwing(Varnel::ContractViolation("n > 0", 12, "Kempt/src/X.cpp")),
         head + "DBC Violation: Kempt/src/X.cpp(12): n > 0" + tail},
        {throwing(std::runtime_error("standard trouble")), head + "standard trouble" + tail},
        {throwing(42), head + tail},
    };
    for (const Case& c : cases) {
        App::MessageSink sink(3);
        App::FileJob job(sink, {}, c.format);
        EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
        EXPECT_EQ(lines(sink), std::vector<std::string>{c.expected});
        EXPECT_EQ(readBytes(f), "int  x;\n");
    }
}

TEST_F(FileJobTest, OutOfMemoryIsAlertedAndTold)
{
    class AlertSink : public App::MessageSink {
    public:
        using App::MessageSink::MessageSink;
        void alert(const std::string& text) override { alerts.push_back(text); }
        std::vector<std::string> alerts;
    } sink(3);
    const fs::path f = file("a.cpp", "int  x;\n");
    App::FileJob job(sink, {}, throwing(std::bad_alloc()));
    EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FAILED);
    const std::string text = "Tidewright C++ is out of memory. Please try closing applications before attempting to "
                             "run this application again.";
    EXPECT_EQ(sink.alerts, std::vector<std::string>{text});
    EXPECT_EQ(lines(sink), std::vector<std::string>{text});
}

TEST_F(FileJobTest, TheRealPipelineKeepsEachFilesLineEnds)
{
    App::FileJob job(m_sink, {.createBackups = false});
    for (const std::string text : {"int main()\r\n{\r\n\treturn 0;\r\n}\r\n", "int main()\n{\n    return 0;\n}\n"}) {
        const fs::path f = file("a.cpp", text);
        Kempt::FormatSettings reference(m_props);
        std::istringstream in(text);
        std::ostringstream out;
        Kempt::FormatMessageList messages;
        Kempt::UpdateFunctor none;
        ASSERT_EQ(Kempt::FormatEngine().format(reference, in, out, messages, none), 0);
        EXPECT_EQ(job.formatFile(f.string(), m_props), App::JobResult::FORMATTED);
        EXPECT_EQ(readBytes(f), out.str());
    }
}

TEST_F(FileJobTest, ExaminingWritesNothingAndNeedsNoWriteAccess)
{
    const fs::path f = file("a.cpp", "int  x;\n", 0444);
    App::FileJob job(m_sink, {}, squeezeBlanks());
    const App::Examination e = job.examineFile(f.string(), m_props);
    EXPECT_EQ(e.result, App::JobResult::FORMATTED);
    EXPECT_EQ(e.input, "int  x;\n");
    EXPECT_EQ(e.output, "int x;\n");
    EXPECT_EQ(readBytes(f), "int  x;\n");
    EXPECT_EQ(entries(), std::set<std::string>{"a.cpp"});
}

TEST_F(FileJobTest, ATextIsCheckedLikeAFile)
{
    App::FileJob job(m_sink, {}, squeezeBlanks());
    EXPECT_EQ(job.examineText("x.cpp", "int  x;\n", m_props).output, "int x;\n");
    EXPECT_EQ(job.examineText("x.cpp", "a\0b"s, m_props).result, App::JobResult::FAILED);
    EXPECT_NE(lines(m_sink).back().find("\"x.cpp\" looks like a binary file"), std::string::npos);
    EXPECT_EQ(job.examineText("x.cpp", "", m_props).result, App::JobResult::EMPTY);
}

TEST(IsFormattableFileTest, TheExtensionBehindTheLastPointInAnyCase)
{
    const std::vector<std::string> list = {"c", "H", "cpp"};
    EXPECT_TRUE(App::isFormattableFile("a.c", list));
    EXPECT_TRUE(App::isFormattableFile("dir.x/a.h", list));
    EXPECT_TRUE(App::isFormattableFile("A.CPP", list));
    EXPECT_TRUE(App::isFormattableFile("a.cpp ", list)); // trimmed
    EXPECT_FALSE(App::isFormattableFile("a.cxx", list));
    EXPECT_FALSE(App::isFormattableFile("Makefile", list));
    EXPECT_FALSE(App::isFormattableFile("cpp", list)); // no point: never, whatever the list holds
    EXPECT_FALSE(App::isFormattableFile("noext", {"", "noext"}));
}

} // namespace
