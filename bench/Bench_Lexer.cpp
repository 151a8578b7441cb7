// Lexer throughput: tokens of a whole text, in bytes per second.
#include "Bench_Text.h"
#include "Cpp_Lexer.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

namespace {

void lexAll(benchmark::State& state, const std::string& text)
{
    std::int64_t tokens = 0;
    for (auto _ : state) {
        Varnel::IMemStream in(text);
        Cpp::Lexer lexer(in);
        for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
            ++tokens;
        benchmark::DoNotOptimize(tokens);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
    state.counters["tokens"] = benchmark::Counter(static_cast<double>(tokens), benchmark::Counter::kIsRate);
}

void BM_LexerGenerated(benchmark::State& state)
{
    static const std::string text = Bench::generatedCpp(8u << 20);
    lexAll(state, text);
}
BENCHMARK(BM_LexerGenerated)->Unit(benchmark::kMillisecond);

void BM_LexerSamples(benchmark::State& state)
{
    static const std::string text = Bench::bundledSamples();
    lexAll(state, text);
}
BENCHMARK(BM_LexerSamples)->Unit(benchmark::kMicrosecond);

// The corpus of TW_CORPUS_DIR, file by file; skipped when it is not set.
void BM_LexerCorpus(benchmark::State& state)
{
    const auto& texts = Bench::corpusTexts();
    if (texts.empty()) {
        state.SkipWithError("TW_CORPUS_DIR is not set");
        return;
    }
    std::int64_t tokens = 0;
    for (auto _ : state) {
        for (const std::string& text : texts) {
            Varnel::IMemStream in(text);
            Cpp::Lexer lexer(in);
            for (Trn::Token t = lexer.next(); t.type() != Cpp::END_OF_FILE; t = lexer.next())
                ++tokens;
        }
        benchmark::DoNotOptimize(tokens);
    }
    state.SetBytesProcessed(state.iterations() * Bench::corpusBytes());
}
BENCHMARK(BM_LexerCorpus)->Unit(benchmark::kMillisecond);

} // namespace
