// The batch commands: the lines they tell, the files they hand on and in
// what order, their numbering, their questions, and where cancelling stops
// them.
#include "App_FileCollection.h"

#include "App_JobTarget.h"
#include "App_UserMessages.h"
#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using tw_test::TempDir;
using tw_test::writeBytes;

// `text` as the file at `path`, with the directories on its way.
void put(const fs::path& path, const std::string& text)
{
    fs::create_directories(path.parent_path());
    writeBytes(path, text);
}

// Everything a command does, as one list of lines.
class Recorder : public App::BatchTarget, public App::BatchFeedback {
public:
    void message(const std::string& text, int severity) override
    {
        log.push_back("message " + std::to_string(severity) + ": " + text);
    }
    void formatFile(const std::string& path) override
    {
        log.push_back("format: " + path);
        files.push_back(path);
    }
    void clearMessages() override { log.push_back("clear"); }
    bool confirm(const std::string& question) override
    {
        log.push_back("ask: " + question);
        return answer;
    }
    void beginBatch() override { log.push_back("begin"); }
    void setStatus(const std::string& text) override { statuses.push_back(text); }
    void setRange(int total) override { log.push_back("range " + std::to_string(total)); }
    void step() override { ++steps; }
    bool cancelled() override { return cancelAfter >= 0 && asked++ >= cancelAfter; }
    void alert(const std::string& text) override { log.push_back("alert: " + text); }
    void endBatch(const std::string& directory) override { log.push_back("end: " + directory); }

    std::vector<std::string> log;
    std::vector<std::string> files;
    std::vector<std::string> statuses;
    int steps = 0;
    bool answer = true;
    int cancelAfter = -1; // the number of cancel questions answered No before Yes
    int asked = 0;
};

App::CollectionSetup setup()
{
    App::CollectionSetup s;
    s.extensions = {"c", "cpp", "h"};
    s.schemeName = "K&R";
    return s;
}

const App::UserMessages& texts()
{
    return App::userMessages();
}

std::string dsp(const std::vector<std::string>& sources)
{
    std::string text = "# Microsoft Developer Studio Project File - Name=\"p\" - Package Owner=<4>\n# Begin Project\n";
    for (const std::string& s : sources)
        text += "# Begin Source File\n\nSOURCE=" + s + "\n# End Source File\n";
    return text + "# End Project\n";
}

class FileCollectionTest : public ::testing::Test {
protected:
    std::string path(const std::string& name) const { return (m_dir.path() / name).string(); }
    void file(const std::string& name, const std::string& text = "int x;\n") { put(m_dir.path() / name, text); }

    TempDir m_dir;
    Recorder m_recorder;
};

TEST_F(FileCollectionTest, TreeCountsThenFormatsWithTheWalkCounter)
{
    file("t/a.c");
    file("t/sub/b.h");
    file("t/sub/notes.txt");
    file("t/z.cpp");
    App::FileCollection commands(m_recorder, m_recorder, setup());
    const App::CollectionResult r = commands.formatFolderTree(path("t"));
    EXPECT_EQ(r.end, App::CollectionResult::End::DONE);
    EXPECT_EQ(r.files, 3);
    const std::string root = path("t");
    EXPECT_EQ(m_recorder.log,
              (std::vector<std::string>{
                  "clear",
                  "ask: You have chosen to format all C/C++ files under the directory tree \"" + root
                      + "\". Are you sure you wish to continue?",
                  "message 1: Formatting files under directory \"" + root + "\" using scheme \"K&R\".",
                  "begin",
                  "range 3",
                  "format: " + root + "/a.c",
                  "format: " + root + "/sub/b.h",
                  "format: " + root + "/z.cpp",
                  "message 1: Finished formatting directory tree.",
                  "end: " + root,
              }));
    EXPECT_EQ(m_recorder.statuses,
              (std::vector<std::string>{"Adding " + root + "/a.c", "Adding " + root + "/sub/b.h",
                                        "Adding " + root + "/z.cpp", "Formatting file 1 of 3",
                                        "Formatting file 2 of 3", "Formatting file 3 of 3"}));
    EXPECT_EQ(m_recorder.steps, 3);
}

TEST_F(FileCollectionTest, CancelDuringTheCountingWalkStopsBeforeAnyFileIsFormatted)
{
    for (const char* name : {"t/a.c", "t/b.c", "t/c.c", "t/d.c"})
        file(name);
    m_recorder.cancelAfter = 2; // the third question, inside the counting walk
    App::FileCollection commands(m_recorder, m_recorder, setup());
    const App::CollectionResult r = commands.formatFolderTree(path("t"));
    EXPECT_EQ(r.end, App::CollectionResult::End::CANCELLED);
    EXPECT_EQ(r.files, 0);
    EXPECT_TRUE(m_recorder.files.empty());
    EXPECT_EQ(m_recorder.log[m_recorder.log.size() - 2], "message 1: Format operation cancelled at user's request.");
    EXPECT_EQ(m_recorder.statuses.size(), 2u); // two files counted, then the stop
}

TEST_F(FileCollectionTest, CancelDuringTheFormattingWalkStopsBeforeTheNextFile)
{
    for (const char* name : {"t/a.c", "t/b.c", "t/c.c", "t/d.c"})
        file(name);
    // The counting walk asks five times (four entries, the end of the
    // directory); then two files are formatted.
    m_recorder.cancelAfter = 5 + 2;
    App::FileCollection commands(m_recorder, m_recorder, setup());
    EXPECT_EQ(commands.formatFolderTree(path("t")).end, App::CollectionResult::End::CANCELLED);
    EXPECT_EQ(m_recorder.files, (std::vector<std::string>{path("t/a.c"), path("t/b.c")}));
    EXPECT_EQ(m_recorder.log[m_recorder.log.size() - 2], "message 1: " + texts().cancelledByUser);
}

TEST_F(FileCollectionTest, AReadOnlySourceFileIsSkippedByATreeWalkWithoutAMessage)
{
    file("t/ro.c", "int  x;\n");
    file("t/rw.c", "int  y;\n");
    ::chmod(path("t/ro.c").c_str(), 0444);
    App::MessageSink sink(1); // every message
    App::FileJob job(sink);
    const Kempt::PropertySet properties;
    App::JobTarget target(job, sink, properties, m_recorder);
    App::FileCollection commands(target, m_recorder, setup());
    commands.formatFolderTree(path("t"));
    EXPECT_EQ(sink.queue(),
              (std::vector<std::string>{"Formatting files under directory \"" + path("t")
                                            + "\" using scheme \"K&R\".\r\n",
                                        "Formatting \"" + path("t/rw.c") + "\".\r\n",
                                        "Finished formatting directory tree.\r\n"}));
    EXPECT_EQ(target.results(), std::vector<App::JobResult>{App::JobResult::FORMATTED});
}

TEST_F(FileCollectionTest, ProjectNumbersOverItsWholeListAndPassesOverOtherExtensions)
{
    file("p/a.c");
    file("p/b.cpp");
    file("p/p.dsp", dsp({"app.rc", "a.c", "", "b.cpp", "gen\\x.c"}));
    App::CollectionSetup s = setup();
    s.excludes = {App::PathGlob("gen/**")};
    App::FileCollection commands(m_recorder, m_recorder, s);
    const App::CollectionResult r = commands.formatProject(path("p/p.dsp"));
    EXPECT_EQ(r.end, App::CollectionResult::End::DONE);
    EXPECT_EQ(m_recorder.files, (std::vector<std::string>{path("p/a.c"), path("p/b.cpp")}));
    EXPECT_EQ(m_recorder.statuses, (std::vector<std::string>{"Formatting file 2 of 4", "Formatting file 3 of 4"}));
    EXPECT_EQ(m_recorder.log[1], "ask: You have chosen to format all C/C++ files in the project \"" + path("p/p.dsp")
                                     + "\". Are you sure you wish to continue?");
    EXPECT_EQ(m_recorder.log[2], "message 1: Formatting project \"" + path("p/p.dsp") + "\" using scheme \"K&R\".");
    EXPECT_EQ(m_recorder.log[m_recorder.log.size() - 2], "message 1: Finished formatting project.");
    EXPECT_EQ(m_recorder.log.back(), "end: " + path("p"));
}

TEST_F(FileCollectionTest, TheNumberingRestartsForEachProjectOfAWorkspace)
{
    file("one/a.c");
    file("one/b.c");
    file("two/c.c");
    file("one/one.dsp", dsp({"a.c", "b.c"}));
    file("two/two.dsp", dsp({"c.c", "d.txt"}));
    file("w.dsw", "Microsoft Developer Studio Workspace File, Format Version 6.00\n"
                  "Project: \"one\"=.\\one\\one.dsp - Package Owner=<4>\n"
                  "Project: \"two\"=.\\two\\two.dsp - Package Owner=<4>\n"
                  "Project: \"bad\"=.\\bad.dsp - Package Owner=<4>\n");
    App::FileCollection commands(m_recorder, m_recorder, setup());
    const App::CollectionResult r = commands.formatProjectOrWorkspace(path("w.dsw"));
    EXPECT_EQ(r.end, App::CollectionResult::End::DONE);
    EXPECT_EQ(r.files, 3);
    EXPECT_EQ(r.problems, 1);
    EXPECT_EQ(m_recorder.statuses, (std::vector<std::string>{"Formatting file 1 of 2", "Formatting file 2 of 2",
                                                             "Formatting file 1 of 2"}));
    const std::vector<std::string> expected{
        "clear",
        "ask: You have chosen to format all C/C++ files in the workspace \"" + path("w.dsw")
            + "\". Are you sure you wish to continue?",
        "begin",
        "range 4",
        "message 1: Formatting workspace \"" + path("w.dsw") + "\" using scheme \"K&R\".",
        "message 1: Formatting project \"" + path("one/one.dsp") + "\" using scheme \"K&R\".",
        "format: " + path("one/a.c"),
        "format: " + path("one/b.c"),
        "message 1: Formatting project \"" + path("two/two.dsp") + "\" using scheme \"K&R\".",
        "format: " + path("two/c.c"),
        "message 1: Formatting project \"" + path("bad.dsp") + "\" using scheme \"K&R\".",
        "message 3: The project \"" + path("bad.dsp") + "\" cannot be read (cannot read project file '"
            + path("bad.dsp") + "': No such file or directory). Its files will not be formatted.",
        "message 1: Finished formatting workspace.",
        "end: " + m_dir.path().string(),
    };
    EXPECT_EQ(m_recorder.log, expected);
}

TEST_F(FileCollectionTest, AProjectThatCannotBeReadIsToldAndNothingIsAsked)
{
    App::FileCollection commands(m_recorder, m_recorder, setup());
    EXPECT_EQ(commands.formatProject(path("none.dsp")).end, App::CollectionResult::End::NOT_READ);
    ASSERT_EQ(m_recorder.log.size(), 4u);
    EXPECT_EQ(m_recorder.log[1], "message 3: cannot read project file '" + path("none.dsp")
                                     + "': No such file or directory");
    EXPECT_EQ(m_recorder.log[2], "alert: " + texts().noActiveProject);
    EXPECT_EQ(m_recorder.log[3], "message 3: " + texts().noActiveProject);
    m_recorder.log.clear();
    EXPECT_EQ(commands.formatWorkspace(path("none.sln")).end, App::CollectionResult::End::NOT_READ);
    EXPECT_EQ(m_recorder.log.back(), "message 3: " + texts().noWorkspace);
}

TEST_F(FileCollectionTest, SayingNoStopsTheCommandBeforeAnything)
{
    file("t/a.c");
    m_recorder.answer = false;
    App::FileCollection commands(m_recorder, m_recorder, setup());
    EXPECT_EQ(commands.formatFolderTree(path("t")).end, App::CollectionResult::End::DECLINED);
    EXPECT_EQ(m_recorder.log.size(), 2u);
    EXPECT_TRUE(m_recorder.files.empty());
}

TEST_F(FileCollectionTest, WithoutASchemeEveryCommandStopsWithTheText)
{
    file("t/a.c");
    App::CollectionSetup s = setup();
    s.schemeSelected = false;
    App::FileCollection commands(m_recorder, m_recorder, s);
    for (const App::CollectionResult& r : {commands.formatFolderTree(path("t")), commands.formatProject(path("p.dsp")),
                                           commands.formatWorkspace(path("w.dsw")), commands.formatFile(path("t/a.c"))})
        EXPECT_EQ(r.end, App::CollectionResult::End::NO_SCHEME);
    EXPECT_EQ(m_recorder.log, std::vector<std::string>(4, "message 3: " + texts().noSchemeSelected));
}

TEST_F(FileCollectionTest, OneFileWithAnotherExtensionIsFormattedOnlyWhenTheUserAgrees)
{
    file("notes.txt");
    App::FileCollection commands(m_recorder, m_recorder, setup());
    m_recorder.answer = false;
    EXPECT_EQ(commands.formatFile(path("notes.txt")).end, App::CollectionResult::End::DECLINED);
    EXPECT_EQ(m_recorder.log, (std::vector<std::string>{"ask: The file \"" + path("notes.txt")
                                                            + "\" does not have a file extension registered with "
                                                              "Tidewright as valid for formatting. Format the file "
                                                              "anyway?",
                                                        "end: " + m_dir.path().string()}));
    m_recorder.answer = true;
    m_recorder.log.clear();
    EXPECT_EQ(commands.formatFile(path("notes.txt")).end, App::CollectionResult::End::DONE);
    EXPECT_EQ(m_recorder.files, std::vector<std::string>{path("notes.txt")});
    m_recorder.log.clear();
    file("a.c");
    commands.formatFile(path("a.c")); // a listed extension: no question, and the pane keeps its text
    EXPECT_EQ(m_recorder.log, (std::vector<std::string>{"begin", "format: " + path("a.c"),
                                                        "end: " + m_dir.path().string()}));
}

TEST(FillNumbersTest, EachPercentDTakesTheNextNumber)
{
    EXPECT_EQ(App::fillNumbers("Formatting file %d of %d", {3, 12}), "Formatting file 3 of 12");
    EXPECT_EQ(App::fillNumbers("%d%%d", {1}), "1%%d");
}

} // namespace
