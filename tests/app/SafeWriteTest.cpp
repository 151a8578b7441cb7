// The safe write: a failure at any step leaves the old file byte for byte,
// links stay links, permission bits survive, and no temporary file is left.
#include "App_SafeWrite.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <sys/stat.h>
#include <unistd.h>

namespace {

namespace fs = std::filesystem;
using tw_test::readBytes;
using tw_test::TempDir;
using tw_test::writeBytes;

std::set<std::string> entries(const fs::path& dir)
{
    std::set<std::string> names;
    for (const auto& e : fs::directory_iterator(dir))
        names.insert(e.path().filename().string());
    return names;
}

mode_t modeBits(const fs::path& p)
{
    struct stat st {};
    ::stat(p.c_str(), &st);
    return st.st_mode & 07777;
}

TEST(SafeWriteTest, ReplacesTheContentsAndKeepsThePermissionBits)
{
    TempDir dir;
    const fs::path f = dir.path() / "a.cpp";
    for (const mode_t mode : {mode_t(0640), mode_t(0755), mode_t(0600)}) {
        writeBytes(f, "old text\n");
        ::chmod(f.c_str(), mode);
        const App::SafeWriteResult r = App::writeFileSafely(f.string(), "new\r\ntext");
        ASSERT_TRUE(r.ok) << r.reason;
        EXPECT_EQ(readBytes(f), "new\r\ntext");
        EXPECT_EQ(modeBits(f), mode);
        EXPECT_EQ(entries(dir.path()), std::set<std::string>{"a.cpp"});
    }
}

TEST(SafeWriteTest, MakesAMissingFile)
{
    TempDir dir;
    const fs::path f = dir.path() / "new.ini";
    ASSERT_TRUE(App::writeFileSafely(f.string(), "x").ok);
    EXPECT_EQ(readBytes(f), "x");
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(modeBits(f), 0666 & ~mask);
}

TEST(SafeWriteTest, ALinkStaysALinkAndItsTargetGetsTheText)
{
    TempDir dir;
    fs::create_directories(dir.path() / "real");
    const fs::path target = dir.path() / "real" / "a.cpp";
    writeBytes(target, "old");
    ::chmod(target.c_str(), 0604);
    const fs::path link = dir.path() / "a.cpp";
    fs::create_symlink("real/a.cpp", link); // relative, as links in a tree usually are
    ASSERT_TRUE(App::writeFileSafely(link.string(), "new").ok);
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(fs::read_symlink(link), "real/a.cpp");
    EXPECT_EQ(readBytes(target), "new");
    EXPECT_EQ(modeBits(target), 0604u);
    EXPECT_EQ(entries(dir.path() / "real"), std::set<std::string>{"a.cpp"});
}

TEST(SafeWriteTest, WithoutFollowingLinksTheLinkIsReplaced)
{
    TempDir dir;
    writeBytes(dir.path() / "elsewhere", "keep");
    fs::create_symlink(dir.path() / "elsewhere", dir.path() / "a.bak");
    App::SafeWriteOptions options;
    options.followLinks = false;
    ASSERT_TRUE(App::writeFileSafely((dir.path() / "a.bak").string(), "backup", options).ok);
    EXPECT_FALSE(fs::is_symlink(dir.path() / "a.bak"));
    EXPECT_EQ(readBytes(dir.path() / "a.bak"), "backup");
    EXPECT_EQ(readBytes(dir.path() / "elsewhere"), "keep");
}

TEST(SafeWriteTest, ALinkThatLeadsNowhereIsAFailure)
{
    TempDir dir;
    fs::create_symlink(dir.path() / "missing", dir.path() / "a.cpp");
    const App::SafeWriteResult r = App::writeFileSafely((dir.path() / "a.cpp").string(), "x");
    EXPECT_FALSE(r.ok);
    EXPECT_FALSE(fs::exists(dir.path() / "missing"));
}

TEST(SafeWriteTest, AFailureAtAnyStepLeavesTheOriginalByteIdentical)
{
    TempDir dir;
    const fs::path f = dir.path() / "a.cpp";
    const std::string original = "int main()\r\n{\r\n\treturn 0;\r\n}\r\n";
    for (const App::WriteStep step :
         {App::WriteStep::RESOLVE, App::WriteStep::CREATE, App::WriteStep::WRITE, App::WriteStep::SYNC,
          App::WriteStep::ATTRIBUTES, App::WriteStep::CLOSE, App::WriteStep::CHECK, App::WriteStep::RENAME}) {
        for (const int error : {ENOSPC, EROFS, EACCES, EIO}) {
            writeBytes(f, original);
            ::chmod(f.c_str(), 0644);
            App::SafeWriteOptions options;
            options.fault = [&](App::WriteStep at) { return at == step ? error : 0; };
            const App::SafeWriteResult r = App::writeFileSafely(f.string(), "formatted", options);
            EXPECT_FALSE(r.ok);
            EXPECT_EQ(r.reason, std::strerror(error));
            EXPECT_EQ(readBytes(f), original);
            EXPECT_EQ(modeBits(f), 0644u);
            EXPECT_EQ(entries(dir.path()), std::set<std::string>{"a.cpp"}) << "a temporary file was left";
        }
    }
}

TEST(SafeWriteTest, AReadOnlyDirectoryLeavesTheOriginal)
{
    if (::geteuid() == 0)
        GTEST_SKIP() << "root writes to read-only directories; the simulated failures above stand for it";
    TempDir dir;
    const fs::path sub = dir.path() / "ro";
    fs::create_directories(sub);
    writeBytes(sub / "a.cpp", "old");
    ::chmod(sub.c_str(), 0555);
    const App::SafeWriteResult r = App::writeFileSafely((sub / "a.cpp").string(), "new");
    ::chmod(sub.c_str(), 0755);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(readBytes(sub / "a.cpp"), "old");
}

TEST(SafeWriteTest, AFileChangedMeanwhileIsNotReplaced)
{
    TempDir dir;
    const fs::path f = dir.path() / "a.cpp";
    writeBytes(f, "as read");
    App::SafeWriteOptions options;
    options.expected = App::stampOf(f.string());
    ASSERT_TRUE(options.expected);
    writeBytes(f, "edited by someone else");
    const App::SafeWriteResult r = App::writeFileSafely(f.string(), "formatted", options);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.changedMeanwhile);
    EXPECT_EQ(readBytes(f), "edited by someone else");
    EXPECT_EQ(entries(dir.path()), std::set<std::string>{"a.cpp"});

    // A file that vanished is not made again.
    fs::remove(f);
    EXPECT_TRUE(App::writeFileSafely(f.string(), "formatted", options).changedMeanwhile);
    EXPECT_FALSE(fs::exists(f));
}

} // namespace
