// The engine on several threads at once: eight threads format the same files
// under every built-in scheme, and each result (text, messages, status) must
// equal that of a run on one thread. The word tables that the engine fills on
// first use are filled here by many threads at the same moment.
#include "App_FileJob.h"

#include "Kempt.h"

#include <gtest/gtest.h>

#include <barrier>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

namespace {

namespace fs = std::filesystem;

struct Outcome {
    App::JobResult result;
    std::string output;
    std::vector<std::string> messages;
    bool operator==(const Outcome&) const = default;
};

std::string readAll(const fs::path& path)
{
    std::ifstream in(path, std::ios::binary);
    std::ostringstream s;
    s << in.rdbuf();
    return s.str();
}

std::vector<std::string> texts()
{
    std::vector<std::string> all;
    std::vector<fs::path> files;
    for (const char* dir : {TW_EXAMPLES_DIR, TW_GOLDEN_DIR})
        for (const auto& entry : fs::recursive_directory_iterator(dir))
            if (entry.is_regular_file() && (entry.path().extension() == ".cpp" || entry.path().extension() == ".c"))
                files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files)
        all.push_back(readAll(file));
    // One text that does not parse, for the messages.
    all.push_back("void f() {\n  public: x();\n}\n");
    return all;
}

std::vector<Kempt::PropertySet> schemes()
{
    std::vector<Kempt::PropertySet> all{Kempt::PropertySet()};
    for (const auto& entry : fs::directory_iterator(TW_SCHEMES_DIR)) {
        if (entry.path().extension() != ".tws")
            continue;
        std::ifstream in(entry.path(), std::ios::binary);
        all.emplace_back(in);
    }
    return all;
}

Outcome formatOne(const std::string& text, const Kempt::PropertySet& scheme)
{
    App::MessageSink sink(1);
    App::FileJob job(sink);
    const App::Examination e = job.examineText("t.cpp", text, scheme);
    return Outcome{e.result, e.output, sink.queue()};
}

TEST(ParallelFormatTest, EightThreadsGiveTheResultsOfOne)
{
    const std::vector<std::string> inputs = texts();
    const std::vector<Kempt::PropertySet> sets = schemes();
    ASSERT_GE(inputs.size(), 5u);
    ASSERT_GE(sets.size(), 5u);
    constexpr unsigned THREADS = 8;
    std::vector<std::vector<Outcome>> results(THREADS);
    std::barrier start(static_cast<std::ptrdiff_t>(THREADS));
    std::vector<std::thread> threads;
    for (unsigned t = 0; t < THREADS; ++t)
        threads.emplace_back([&, t] {
            start.arrive_and_wait(); // all begin together, before any word table exists
            // Each thread takes the work in another order.
            const std::size_t count = inputs.size() * sets.size();
            std::vector<Outcome> mine(count);
            for (std::size_t k = 0; k < count; ++k) {
                const std::size_t i = (k + t * 7) % count;
                mine[i] = formatOne(inputs[i % inputs.size()], sets[i / inputs.size()]);
            }
            results[t] = std::move(mine);
        });
    for (std::thread& thread : threads)
        thread.join();
    std::vector<Outcome> alone;
    for (std::size_t i = 0; i < inputs.size() * sets.size(); ++i)
        alone.push_back(formatOne(inputs[i % inputs.size()], sets[i / inputs.size()]));
    for (unsigned t = 0; t < THREADS; ++t)
        EXPECT_TRUE(results[t] == alone) << "thread " << t;
    EXPECT_EQ(alone.back().result, App::JobResult::FAILED);
    EXPECT_FALSE(alone.back().messages.empty());
}

} // namespace
