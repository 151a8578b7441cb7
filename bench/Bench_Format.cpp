// Formatting throughput with the built-in `default` scheme: the whole pipeline
// (parse and format pass) in bytes per second on the generated text, the
// samples and (with TW_CORPUS_DIR) the corpus files that parse, to stand
// beside the parse-only figures of Bench_Parser.cpp. And the expression
// formatter's cost per gap: the time to decide one gap between two tokens.
#include "Bench_Engine.h"
#include "Bench_Text.h"
#include "Kempt.h"
#include "Kempt_CppExprFormatter.h"
#include "Kempt_TokenIterator.h"
#include "Varnel_IMemBuf.h"
#include "Varnel_StreamState.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>
#include <vector>

namespace {

void BM_FormatDefaultGenerated(benchmark::State& state)
{
    static const std::string text = Bench::generatedCpp(8u << 20);
    for (auto _ : state)
        if (!Bench::formatText(text, Bench::defaultScheme()))
            state.SkipWithError("the text did not format");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_FormatDefaultGenerated)->Unit(benchmark::kMillisecond);

void BM_FormatDefaultSamples(benchmark::State& state)
{
    static const std::string text = Bench::bundledSamples();
    for (auto _ : state)
        if (!Bench::formatText(text, Bench::defaultScheme()))
            state.SkipWithError("the text did not format");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_FormatDefaultSamples)->Unit(benchmark::kMicrosecond);

// The corpus files that parse, file by file: a file that does not parse
// stops at its parse and says nothing about the formatter.
void BM_FormatDefaultCorpus(benchmark::State& state)
{
    static const std::vector<const std::string*> texts = [] {
        std::vector<const std::string*> parsed;
        for (const std::string& text : Bench::corpusTexts())
            if (Bench::formatText(text, Bench::defaultScheme()))
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
    for (auto _ : state)
        for (const std::string* text : texts)
            Bench::formatText(*text, Bench::defaultScheme());
    state.SetBytesProcessed(state.iterations() * bytes);
    state.counters["files"] = static_cast<double>(texts.size());
}
BENCHMARK(BM_FormatDefaultCorpus)->Unit(benchmark::kMillisecond);

// Statements and declarators of the kinds a format pass hands over.
const std::vector<std::string>& expressions()
{
    static const std::vector<std::string> texts = {
        "x = a + b * c;",
        "return strcmp(a, b) == 0;",
        "total += price[i] * quantity[i];",
        "p = static_cast<char*>(q);",
        "v.push_back(std::make_pair(i, -j));",
        "ok = !done && (count > 0 || retry < limit);",
        "std::vector<std::vector<int> > grid(rows, std::vector<int>(cols));",
        "r = (char*) &s;",
        "i ++ + j;",
        "printf(\"%d %s\\n\", n, name);",
    };
    return texts;
}

std::int64_t gapsOf(const std::string& text)
{
    std::int64_t tokens = 0;
    Kempt::TokenIterator it(text);
    for (it.advance(); it.left().type() != -1; it.advance()) {
        ++tokens;
        if (!it.more())
            break;
    }
    return tokens > 0 ? tokens - 1 : 0;
}

void BM_ExprFormatterPerGap(benchmark::State& state)
{
    Kempt::CppExprFormatter formatter(Bench::defaultScheme(), Bench::defaultScheme().markers());
    Varnel::StreamState stream;
    stream.tabSize = 4;
    stream.tabMode = 1;
    stream.indent = "    ";
    std::int64_t gaps = 0;
    for (const std::string& text : expressions())
        gaps += gapsOf(text);
    for (auto _ : state)
        for (const std::string& text : expressions())
            benchmark::DoNotOptimize(formatter.format(text, stream));
    // The time per gap, construction of each walk included.
    state.counters["per_gap"] = benchmark::Counter(static_cast<double>(gaps),
                                                   benchmark::Counter::kIsIterationInvariantRate |
                                                       benchmark::Counter::kInvert);
    state.counters["gaps"] = static_cast<double>(gaps);
}
BENCHMARK(BM_ExprFormatterPerGap)->Unit(benchmark::kMicrosecond);

} // namespace
