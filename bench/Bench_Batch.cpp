// A batch on one thread and on two: the same files formatted through the
// ordered pool that -j uses, with the built-in `default` scheme, so that the
// speed-up of a parallel batch can be read off (time of /threads:1 over time
// of /threads:2). The files are those of TW_CORPUS_DIR when it is set, else
// 48 generated texts of 64 KiB. Wall-clock time: the work is on other threads.
#include "App_OrderedPool.h"
#include "Bench_Engine.h"
#include "Bench_Text.h"
#include "Kempt.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <fstream>
#include <sstream>
#include <vector>

namespace {

const std::vector<std::string>& batchTexts()
{
    static const std::vector<std::string> texts = [] {
        if (!Bench::corpusTexts().empty())
            return Bench::corpusTexts();
        const std::string one = Bench::generatedCpp(64u << 10);
        return std::vector<std::string>(48, one);
    }();
    return texts;
}

void BM_BatchThreads(benchmark::State& state)
{
    const std::vector<std::string>& texts = batchTexts();
    const unsigned threads = static_cast<unsigned>(state.range(0));
    std::int64_t bytes = 0;
    for (const std::string& text : texts)
        bytes += static_cast<std::int64_t>(text.size());
    std::size_t formatted = 0;
    for (auto _ : state) {
        App::OrderedPool pool(threads);
        std::vector<std::size_t> sizes(texts.size());
        for (std::size_t i = 0; i < texts.size(); ++i)
            pool.submit([&, i] { sizes[i] = Bench::formatText(texts[i], Bench::defaultScheme()); }, [&, i] { formatted += sizes[i] > 0; });
        pool.finish();
        benchmark::DoNotOptimize(sizes.data());
    }
    state.SetBytesProcessed(state.iterations() * bytes);
    state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(texts.size()));
    state.counters["files"] = static_cast<double>(texts.size());
    state.counters["formatted"] = static_cast<double>(formatted / std::max<std::size_t>(1, state.iterations()));
}
BENCHMARK(BM_BatchThreads)->ArgName("threads")->Arg(1)->Arg(2)->UseRealTime()->Unit(benchmark::kMillisecond);

} // namespace
