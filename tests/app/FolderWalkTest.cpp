// The folder walk: what it passes over, and its order.
#include "App_FolderWalk.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

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

const std::vector<std::string> EXTENSIONS{"c", "cpp", "h"};

class Collector : public App::FolderWalk::Visitor {
public:
    bool cancelled() override { return m_cancelAfter >= 0 && m_asked++ >= m_cancelAfter; }
    void file(const std::string& path) override { files.push_back(path); }
    void unreadable(const std::string& directory, const std::string& reason) override
    {
        problems.push_back(directory + ": " + reason);
    }
    void cancelAfter(int questions) { m_cancelAfter = questions; }

    std::vector<std::string> files;
    std::vector<std::string> problems;

private:
    int m_cancelAfter = -1;
    int m_asked = 0;
};

std::vector<std::string> walk(const std::string& root, std::vector<App::PathGlob> excludes = {})
{
    Collector c;
    EXPECT_EQ(App::FolderWalk(root, EXTENSIONS, std::move(excludes)).run(c), App::FolderWalk::End::COMPLETE);
    EXPECT_TRUE(c.problems.empty());
    return c.files;
}

TEST(FolderWalkTest, FilesComeInByteOrderOfTheirNamesDepthFirst)
{
    TempDir dir;
    const fs::path& d = dir.path();
    for (const char* name : {"b.c", "B.c", "a/z.c", "a/b/y.h", "a0.c", "_.cpp", "a.c"})
        put(d / name, "x;\n");
    const std::string r = d.string();
    EXPECT_EQ(walk(r), (std::vector<std::string>{r + "/B.c", r + "/_.cpp", r + "/a/b/y.h", r + "/a/z.c",
                                                 r + "/a.c", r + "/a0.c", r + "/b.c"}));
}

TEST(FolderWalkTest, HiddenEntriesLinksReadOnlyFilesAndOtherExtensionsArePassedOver)
{
    TempDir dir;
    const fs::path& d = dir.path();
    put(d / "keep.c", "x;\n");
    put(d / ".hidden.c", "x;\n");
    put(d / ".git" / "inside.c", "x;\n");
    put(d / "notes.txt", "x;\n");
    put(d / "Makefile", "x;\n");
    put(d / "readonly.c", "x;\n");
    ::chmod((d / "readonly.c").c_str(), 0444);
    fs::create_symlink("keep.c", d / "link.c");
    fs::create_directories(d / "real");
    put(d / "real" / "r.h", "x;\n");
    fs::create_directory_symlink("real", d / "linkdir");
    fs::create_directory_symlink(".", d / "loop"); // a walk that followed it would never end
    ::mkfifo((d / "pipe.c").c_str(), 0644);
    const std::string r = d.string();
    EXPECT_EQ(walk(r), (std::vector<std::string>{r + "/keep.c", r + "/real/r.h"}));
}

TEST(FolderWalkTest, TheRootIsWalkedWhateverItsNameAndCurrentDirectoryPathsHaveNoDotPrefix)
{
    TempDir dir;
    put(dir.path() / ".config" / "a.c", "x;\n");
    EXPECT_EQ(walk((dir.path() / ".config").string()),
              std::vector<std::string>{(dir.path() / ".config" / "a.c").string()});
    const fs::path old = fs::current_path();
    fs::current_path(dir.path() / ".config");
    EXPECT_EQ(walk("."), std::vector<std::string>{"a.c"});
    fs::current_path(old);
    EXPECT_EQ(App::joinPath("src/", "a.c"), "src/a.c");
    EXPECT_EQ(App::joinPath("", "a.c"), "a.c");
}

TEST(FolderWalkTest, ExcludesMatchThePathFromTheRoot)
{
    TempDir dir;
    const fs::path& d = dir.path();
    for (const char* name : {"src/a.c", "src/a.gen.c", "third_party/z/z.c", "src/third_party/y.c", "build/b.c"})
        put(d / name, "x;\n");
    const std::string r = d.string();
    EXPECT_EQ(walk(r, {App::PathGlob("third_party/**"), App::PathGlob("*.gen.c"), App::PathGlob("build/")}),
              (std::vector<std::string>{r + "/src/a.c", r + "/src/third_party/y.c"}));
}

TEST(FolderWalkTest, CancelStopsBeforeTheNextEntry)
{
    TempDir dir;
    for (const char* name : {"a.c", "b.c", "c.c", "d.c"})
        put(dir.path() / name, "x;\n");
    Collector c;
    c.cancelAfter(2);
    EXPECT_EQ(App::FolderWalk(dir.path().string(), EXTENSIONS).run(c), App::FolderWalk::End::CANCELLED);
    EXPECT_EQ(c.files.size(), 2u);
}

TEST(FolderWalkTest, ADirectoryThatCannotBeListedIsReported)
{
    Collector c;
    EXPECT_EQ(App::FolderWalk("/no/such/directory", EXTENSIONS).run(c), App::FolderWalk::End::COMPLETE);
    ASSERT_EQ(c.problems.size(), 1u);
    EXPECT_EQ(c.problems.front(), "/no/such/directory: No such file or directory");
}

} // namespace
