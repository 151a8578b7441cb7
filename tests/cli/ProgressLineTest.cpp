// The progress line of a batch, drawn into a string instead of a terminal:
// its text, the cut of a long path, the estimate of the time left, how
// often it is redrawn, and that it is erased.
#include "Cli_ProgressLine.h"

#include <gtest/gtest.h>

#include <iostream>
#include <sstream>
#include <thread>

namespace {

// Standard error into a string for the life of the object.
class CapturedErrors {
public:
    CapturedErrors() : m_old(std::cerr.rdbuf(m_text.rdbuf())) {}
    ~CapturedErrors() { std::cerr.rdbuf(m_old); }
    std::string take()
    {
        std::string text = m_text.str();
        m_text.str("");
        return text;
    }

private:
    std::ostringstream m_text;
    std::streambuf* m_old;
};

TEST(ProgressLineTest, DrawsTheFileItsNumberAndTheTotalOverItself)
{
    CapturedErrors errors;
    Cli::ProgressLine line(true, 80);
    line.start(10);
    line.file(0, 1, "src/a.c");
    EXPECT_EQ(errors.take(), "\rFormatting file 1 of 10: src/a.c\x1b[K");
    line.clear();
    EXPECT_EQ(errors.take(), "\r\x1b[K");
    line.clear(); // nothing shown: nothing to erase
    EXPECT_EQ(errors.take(), "");
    line.status("Adding src/b.c");
    EXPECT_EQ(errors.take(), "\rAdding src/b.c\x1b[K");
}

TEST(ProgressLineTest, IsRedrawnAtMostTenTimesASecond)
{
    CapturedErrors errors;
    Cli::ProgressLine line(true, 80);
    line.start(10);
    line.file(0, 1, "a.c");
    line.file(1, 2, "b.c"); // at once: not drawn
    EXPECT_EQ(errors.take(), "\rFormatting file 1 of 10: a.c\x1b[K");
    std::this_thread::sleep_for(std::chrono::milliseconds(120));
    line.file(2, 3, "c.c");
    EXPECT_EQ(errors.take(), "\rFormatting file 3 of 10: c.c\x1b[K");
    // After it was erased for a message, the next update draws it at once.
    line.clear();
    errors.take();
    line.file(3, 4, "d.c");
    EXPECT_EQ(errors.take(), "\rFormatting file 4 of 10: d.c\x1b[K");
}

TEST(ProgressLineTest, ALongPathLosesItsStartAndTheLineFitsTheWidth)
{
    CapturedErrors errors;
    Cli::ProgressLine line(true, 40);
    line.start(5);
    line.file(0, 1, "very/long/directory/names/lead/to/the/file.c");
    // 39 columns: the head, then "..." and the end of the path.
    EXPECT_EQ(errors.take(), "\rFormatting file 1 of 5: ...o/the/file.c\x1b[K");
    // A status line is cut at the end, never inside a character.
    line.clear();
    errors.take();
    line.status("Adding " + std::string(30, 'x') + "\xC3\xA9\xC3\xA9\xC3\xA9");
    EXPECT_EQ(errors.take(), "\rAdding " + std::string(30, 'x') + "\xC3\xA9\xC3\xA9\x1b[K");
}

TEST(ProgressLineTest, EstimatesTheTimeLeftOnceASecondHasPassed)
{
    CapturedErrors errors;
    Cli::ProgressLine line(true, 100);
    line.start(4);
    line.file(0, 1, "a.c");
    EXPECT_EQ(errors.take().find("left"), std::string::npos);
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    // Two of four done in a little more than a second: as long again is left
    // (a busy machine may have slept longer).
    line.file(2, 3, "c.c");
    const std::string text = errors.take();
    const std::string head = "\rFormatting file 3 of 4: c.c  (about 0:0";
    const std::string tail = " left)\x1b[K";
    ASSERT_EQ(text.size(), head.size() + 1 + tail.size()) << text;
    EXPECT_EQ(text.substr(0, head.size()), head) << text;
    EXPECT_TRUE(text[head.size()] >= '1' && text[head.size()] <= '9') << text;
    EXPECT_EQ(text.substr(head.size() + 1), tail) << text;
}

TEST(ProgressLineTest, ADisabledLineWritesNothing)
{
    CapturedErrors errors;
    {
        Cli::ProgressLine line(false, 80);
        line.start(10);
        line.file(0, 1, "a.c");
        line.status("Adding b.c");
        line.clear();
    }
    Cli::ProgressLine line(true, 80);
    line.start(10);
    line.setEnabled(false);
    line.file(0, 1, "a.c");
    EXPECT_EQ(errors.take(), "");
}

TEST(ProgressLineTest, TheDestructorErasesTheLine)
{
    CapturedErrors errors;
    {
        Cli::ProgressLine line(true, 80);
        line.start(2);
        line.file(0, 1, "a.c");
    }
    EXPECT_EQ(errors.take(), "\rFormatting file 1 of 2: a.c\x1b[K\r\x1b[K");
}

TEST(DurationTextTest, MinutesAndSecondsThenHours)
{
    EXPECT_EQ(Cli::durationText(std::chrono::seconds(0)), "0:00");
    EXPECT_EQ(Cli::durationText(std::chrono::seconds(41)), "0:41");
    EXPECT_EQ(Cli::durationText(std::chrono::seconds(62)), "1:02");
    EXPECT_EQ(Cli::durationText(std::chrono::seconds(3723)), "1:02:03");
    EXPECT_EQ(Cli::durationText(std::chrono::seconds(-5)), "0:00");
}

} // namespace
