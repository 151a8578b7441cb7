// Recognising text the formatter must not take, and reading a file with a limit.
#include "App_SourceText.h"

#include "SchemeTestSupport.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using tw_test::TempDir;
using tw_test::writeBytes;

TEST(SourceTextTest, ByteOrderMarksOfWideText)
{
    EXPECT_EQ(App::wideEncoding("\xFF\xFEi\0n\0"s), "UTF-16LE");
    EXPECT_EQ(App::wideEncoding("\xFE\xFF\0i"s), "UTF-16BE");
    EXPECT_EQ(App::wideEncoding("\xFF\xFE\0\0i\0\0\0"s), "UTF-32LE");
    EXPECT_EQ(App::wideEncoding("\0\0\xFE\xFF\0\0\0i"s), "UTF-32BE");
    EXPECT_EQ(App::wideEncoding("\xEF\xBB\xBFint x;"), ""); // UTF-8 is text like any other
    EXPECT_EQ(App::wideEncoding("int x;"), "");
    EXPECT_EQ(App::wideEncoding(""), "");
}

TEST(SourceTextTest, NulByte)
{
    EXPECT_EQ(App::nulOffset("int\0x;"s), 3u);
    EXPECT_FALSE(App::nulOffset("int x;"));
}

TEST(SourceTextTest, FileKinds)
{
    TempDir dir;
    writeBytes(dir.path() / "f", "x");
    EXPECT_EQ(App::fileKind((dir.path() / "f").string()), "");
    EXPECT_EQ(App::fileKind(dir.path().string()), "a directory");
    ASSERT_EQ(::mkfifo((dir.path() / "p").c_str(), 0644), 0);
    EXPECT_EQ(App::fileKind((dir.path() / "p").string()), "a FIFO");
    EXPECT_EQ(App::fileKind("/dev/null"), "a device");
}

TEST(SourceTextTest, ReadingStopsAtTheLimit)
{
    TempDir dir;
    writeBytes(dir.path() / "f", "0123456789");
    App::SourceRead r = App::readSource((dir.path() / "f").string(), 10);
    EXPECT_TRUE(r.ok);
    EXPECT_EQ(r.bytes, "0123456789");
    EXPECT_EQ(r.stamp.size, 10);
    r = App::readSource((dir.path() / "f").string(), 9);
    EXPECT_FALSE(r.ok);
    EXPECT_TRUE(r.tooLarge);
    r = App::readSource((dir.path() / "none").string(), 9);
    EXPECT_FALSE(r.ok);
    EXPECT_EQ(r.error, ENOENT);
}

TEST(SourceTextTest, SizesReadAndShown)
{
    std::uint64_t n = 0;
    EXPECT_TRUE(App::parseSize("64M", n));
    EXPECT_EQ(n, 64u << 20);
    EXPECT_TRUE(App::parseSize("100", n));
    EXPECT_EQ(n, 100u);
    EXPECT_TRUE(App::parseSize("2KiB", n));
    EXPECT_EQ(n, 2048u);
    EXPECT_TRUE(App::parseSize("1g", n));
    EXPECT_EQ(n, 1u << 30);
    EXPECT_FALSE(App::parseSize("", n));
    EXPECT_FALSE(App::parseSize("M", n));
    EXPECT_FALSE(App::parseSize("12 parsecs", n));
    EXPECT_FALSE(App::parseSize("-1", n));
    EXPECT_EQ(App::sizeText(App::DEFAULT_MAX_SIZE), "64 MiB");
    EXPECT_EQ(App::sizeText(1000), "1000 bytes");
}

} // namespace
