// The job's message sink: threshold, queue and the first line of a batch.
#include "App_MessageSink.h"

#include <gtest/gtest.h>

namespace {

TEST(MessageSinkTest, ThresholdDecidesWhatIsShown)
{
    // threshold -> shown severities 1, 2, 3
    const std::vector<std::pair<int, std::vector<bool>>> table = {
        {0, {false, false, false}}, {1, {true, true, true}},  {2, {false, true, true}},
        {3, {false, false, true}},  {4, {true, true, true}},  {-1, {true, true, true}}};
    for (const auto& [threshold, shown] : table)
        for (int severity = 1; severity <= 3; ++severity)
            EXPECT_EQ(App::passesThreshold(threshold, severity), shown[severity - 1])
                << "threshold " << threshold << " severity " << severity;
}

TEST(MessageSinkTest, ShownMessagesAreQueuedWithCrLf)
{
    App::MessageSink sink(2);
    sink.addMessage("info", 1);
    sink.addMessage("warn", 2);
    sink.addMessage("err", 3);
    EXPECT_EQ(sink.queue(), (std::vector<std::string>{"warn\r\n", "err\r\n"}));
    sink.clear();
    EXPECT_TRUE(sink.queue().empty());
}

TEST(MessageSinkTest, ABatchLineGoesBeforeItsFirstShownMessageOnly)
{
    App::MessageSink sink(3);
    sink.startBatch("Batch started.");
    sink.addMessage("dropped", 1);
    EXPECT_TRUE(sink.queue().empty());
    sink.addMessage("first", 3);
    sink.addMessage("second", 3);
    EXPECT_EQ(sink.queue(), (std::vector<std::string>{"Batch started.\r\n", "first\r\n", "second\r\n"}));
}

TEST(MessageSinkTest, ThresholdZeroShowsNothing)
{
    App::MessageSink sink(0);
    sink.startBatch("Batch");
    sink.addMessage("err", 3);
    EXPECT_TRUE(sink.queue().empty());
}

} // namespace
