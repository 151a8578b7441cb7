// Work on several threads, handed back in the order it was given.
#include "App_OrderedPool.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <random>
#include <set>
#include <string>
#include <thread>
#include <vector>

namespace {

// Tasks of random length; the deliveries must still come 0, 1, 2 ...
std::vector<int> runShuffled(unsigned threads, int items, std::size_t window = 0)
{
    std::vector<int> delivered;
    std::mt19937 random(7);
    std::uniform_int_distribution<int> micros(0, 2000);
    App::OrderedPool pool(threads, window);
    for (int i = 0; i < items; ++i) {
        auto result = std::make_shared<int>(-1);
        const int pause = micros(random);
        App::OrderedPool::Task task = [i, pause, result] {
            std::this_thread::sleep_for(std::chrono::microseconds(pause));
            *result = i;
        };
        if (i % 7 == 3)
            task = {}; // an item with nothing to do, such as a message line
        pool.submit(std::move(task), [&delivered, result, i] { delivered.push_back(*result == -1 ? i : *result); });
    }
    pool.finish();
    return delivered;
}

TEST(OrderedPoolTest, DeliveriesComeInSubmissionOrderWhateverTheTasksTake)
{
    std::vector<int> expected(200);
    for (int i = 0; i < 200; ++i)
        expected[static_cast<std::size_t>(i)] = i;
    EXPECT_EQ(runShuffled(1, 200), expected);
    EXPECT_EQ(runShuffled(2, 200), expected);
    EXPECT_EQ(runShuffled(8, 200), expected);
    EXPECT_EQ(runShuffled(8, 200, 1), expected);
}

TEST(OrderedPoolTest, TasksRunOnSeveralThreadsAndDeliveriesOnTheCallersOnly)
{
    std::mutex mutex;
    std::set<std::thread::id> workers;
    std::atomic<int> running{0};
    std::atomic<int> most{0};
    std::vector<std::thread::id> deliverers;
    {
        App::OrderedPool pool(4);
        for (int i = 0; i < 40; ++i)
            pool.submit(
                [&] {
                    const int now = ++running;
                    int seen = most.load();
                    while (now > seen && !most.compare_exchange_weak(seen, now)) {
                    }
                    std::this_thread::sleep_for(std::chrono::milliseconds(2));
                    --running;
                    std::lock_guard lock(mutex);
                    workers.insert(std::this_thread::get_id());
                },
                [&] { deliverers.push_back(std::this_thread::get_id()); });
        pool.finish();
    }
    EXPECT_GT(workers.size(), 1u);
    EXPECT_EQ(workers.count(std::this_thread::get_id()), 0u);
    EXPECT_LE(most.load(), 4);
    EXPECT_EQ(deliverers, std::vector<std::thread::id>(40, std::this_thread::get_id()));
}

TEST(OrderedPoolTest, TheWindowBoundsTheItemsNotYetDelivered)
{
    App::OrderedPool pool(2, 3);
    int submitted = 0;
    int delivered = 0;
    int mostWaiting = 0;
    for (int i = 0; i < 30; ++i) {
        ++submitted;
        pool.submit([] { std::this_thread::sleep_for(std::chrono::microseconds(300)); }, [&] { ++delivered; });
        mostWaiting = std::max(mostWaiting, submitted - delivered);
    }
    pool.finish();
    EXPECT_EQ(delivered, 30);
    EXPECT_LE(mostWaiting, 3);
}

TEST(OrderedPoolTest, OneThreadRunsEachTaskInsideSubmit)
{
    App::OrderedPool pool(1);
    std::vector<std::string> log;
    pool.submit([&] { log.push_back("task 0"); }, [&] { log.push_back("deliver 0"); });
    log.push_back("after submit");
    pool.finish();
    EXPECT_EQ(log, (std::vector<std::string>{"task 0", "deliver 0", "after submit"}));
}

} // namespace
