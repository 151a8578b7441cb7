// LineBuf: line endings folded on reading, chosen on writing, put-back depth.
#include "Varnel_LineBuf.h"

#include <gtest/gtest.h>

#include <istream>
#include <sstream>
#include <string>

namespace {

std::string readAll(const std::string& raw)
{
    std::istringstream source(raw);
    Varnel::LineBuf buf(source.rdbuf());
    std::istream in(&buf);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

std::string writeAll(const std::string& text, std::int32_t ending)
{
    std::ostringstream target;
    {
        Varnel::LineBuf buf(target.rdbuf(), ending);
        std::ostream out(&buf);
        out << text;
        out.flush();
    }
    return target.str();
}

TEST(LineBufTest, FoldsAllLineEndingsIntoNewline)
{
    EXPECT_EQ(readAll("a\nb\r\nc\rd"), "a\nb\nc\nd");
    EXPECT_EQ(readAll("\r\n\r\n"), "\n\n");
    EXPECT_EQ(readAll("\r\r\n"), "\n\n");
    EXPECT_EQ(readAll(""), "");
}

TEST(LineBufTest, CrLfSplitAcrossRefillsIsOneNewline)
{
    // The CR is the last character of the first refill, its LF the first of the next.
    std::string raw(Varnel::LineBuf::BUFFER_SIZE - 1, 'x');
    raw += "\r\nend";
    const std::string text = readAll(raw);
    EXPECT_EQ(text.size(), raw.size() - 1);
    EXPECT_EQ(text.substr(text.size() - 4), "\nend");
}

TEST(LineBufTest, WritesChosenLineEnding)
{
    EXPECT_EQ(writeAll("a\nb\n", Varnel::LineBuf::CRLF), "a\r\nb\r\n");
    EXPECT_EQ(writeAll("a\nb\n", Varnel::LineBuf::LF), "a\nb\n");
    EXPECT_EQ(writeAll("a\nb\n", Varnel::LineBuf::NATIVE), "a\nb\n");
}

TEST(LineBufTest, RefillKeepsFourCharactersForPutBack)
{
    std::string raw;
    for (int i = 0; i < Varnel::LineBuf::BUFFER_SIZE + 10; ++i)
        raw += static_cast<char>('a' + i % 26);
    std::istringstream source(raw);
    Varnel::LineBuf buf(source.rdbuf());
    for (int i = 0; i < Varnel::LineBuf::BUFFER_SIZE + 1; ++i)
        ASSERT_EQ(buf.sbumpc(), raw[static_cast<std::size_t>(i)]);
    // One character of the new area and four carried over from the old one.
    for (int i = 0; i < 5; ++i)
        EXPECT_NE(buf.sungetc(), std::char_traits<char>::eof()) << i;
    EXPECT_EQ(buf.sungetc(), std::char_traits<char>::eof());
    EXPECT_EQ(buf.sgetc(), raw[Varnel::LineBuf::BUFFER_SIZE - 4]);
}

TEST(LineBufTest, PutBackStoresGivenCharacter)
{
    std::istringstream source("ab");
    Varnel::LineBuf buf(source.rdbuf());
    buf.sbumpc();
    EXPECT_EQ(buf.sputbackc('z'), 'z');
    EXPECT_EQ(buf.sbumpc(), 'z');
    EXPECT_EQ(buf.sbumpc(), 'b');
}

TEST(LineBufTest, PutBackAtStartFails)
{
    std::istringstream source("ab");
    Varnel::LineBuf buf(source.rdbuf());
    EXPECT_EQ(buf.sungetc(), std::char_traits<char>::eof());
}

} // namespace
