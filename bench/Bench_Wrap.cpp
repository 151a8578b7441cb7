// Line wrapping throughput: the whole pipeline with the built-in `default`
// scheme (brace rewriting off) and the wrap pass at 80 columns, beside the
// same pipeline without it (the format pass alone), on the generated text and
// on the corpus files that parse (TW_CORPUS_DIR). Arg 0: format pass alone;
// arg 1: format and wrap at 80 columns.
#include "Bench_Engine.h"
#include "Bench_Text.h"
#include "Kempt.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace {

// `default`, with wrapping at 80 columns when `wrap` is set.
const Kempt::FormatSettings& scheme(bool wrap)
{
    static const auto load = [](bool on) {
        std::ifstream in(TW_SCHEMES_DIR "/default.tws", std::ios::binary);
        Kempt::PropertySet set(in);
        set.setBool(Kempt::Prop::LINE_WRAP, on);
        set.setInt(Kempt::Prop::RIGHT_MARGIN, 80);
        return Kempt::FormatSettings(set);
    };
    static const Kempt::FormatSettings off = load(false);
    static const Kempt::FormatSettings on = load(true);
    return wrap ? on : off;
}

void BM_WrapGenerated(benchmark::State& state)
{
    static const std::string text = Bench::generatedCpp(8u << 20);
    for (auto _ : state)
        if (!Bench::formatText(text, scheme(state.range(0) != 0)))
            state.SkipWithError("the text did not format");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_WrapGenerated)->Arg(0)->Arg(1)->ArgName("wrap80")->Unit(benchmark::kMillisecond);

// The corpus files that parse, file by file.
void BM_WrapCorpus(benchmark::State& state)
{
    static const std::vector<const std::string*> texts = [] {
        std::vector<const std::string*> parsed;
        for (const std::string& text : Bench::corpusTexts())
            if (Bench::formatText(text, scheme(false)))
                parsed.push_back(&text);
        return parsed;
    }();
    if (texts.empty()) {
        state.SkipWithError("TW_CORPUS_DIR is not set");
        return;
    }
    std::int64_t bytes = 0;
    for (const std::string* text : texts)
        bytes += static_cast<std::int64_t>(text->size());
    const Kempt::FormatSettings& settings = scheme(state.range(0) != 0);
    for (auto _ : state)
        for (const std::string* text : texts)
            Bench::formatText(*text, settings);
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["files"] = static_cast<double>(texts.size());
}
BENCHMARK(BM_WrapCorpus)->Arg(0)->Arg(1)->ArgName("wrap80")->Unit(benchmark::kMillisecond);

} // namespace
