// Whole-pipeline throughput: FormatEngine::format with every pass switched on.
#include "Bench_Text.h"
#include "Kempt.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

#include <sstream>

namespace {

Kempt::FormatSettings allPasses()
{
    Kempt::PropertySet set;
    set.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 1);
    set.setBool(Kempt::Prop::LINE_WRAP, true);
    return Kempt::FormatSettings(set);
}

void formatAll(benchmark::State& state, const std::string& text, const Kempt::FormatSettings& settings)
{
    Kempt::UpdateFunctor none;
    for (auto _ : state) {
        Varnel::IMemStream in(text);
        std::ostringstream out;
        Kempt::FormatMessageList messages;
        if (Kempt::FormatEngine().format(settings, in, out, messages, none) != 0)
            state.SkipWithError("the text did not format");
        benchmark::DoNotOptimize(out);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void BM_PipelineGenerated(benchmark::State& state)
{
    static const std::string text = Bench::generatedCpp(8u << 20);
    formatAll(state, text, state.range(0) ? allPasses() : Kempt::FormatSettings());
}
BENCHMARK(BM_PipelineGenerated)->Arg(0)->Arg(1)->ArgName("allPasses")->Unit(benchmark::kMillisecond);

void BM_PipelineSamples(benchmark::State& state)
{
    static const std::string text = Bench::bundledSamples();
    formatAll(state, text, state.range(0) ? allPasses() : Kempt::FormatSettings());
}
BENCHMARK(BM_PipelineSamples)->Arg(0)->Arg(1)->ArgName("allPasses")->Unit(benchmark::kMicrosecond);

} // namespace
