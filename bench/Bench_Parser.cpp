// Parser throughput: lexing and parsing a whole text into its tree, in bytes
// per second, on the generated text, the samples and (with TW_CORPUS_DIR) a
// corpus of real code, file by file. The lexer's figures stand beside these.
#include "Bench_Text.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Cpp_RootNode.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

namespace {

// Parses one text; false when it left messages (code 2 aside).
bool parseOne(Cpp::Parser& parser, const std::string& text)
{
    Varnel::IMemStream in(text);
    Cpp::Lexer lexer(in);
    Cpp::RootNode root;
    Trn::FormatMessageList messages;
    parser.parse(lexer, root, messages);
    messages.remove_if([](const Trn::FormatMessage& m) { return m.code == 2; });
    benchmark::DoNotOptimize(root);
    return messages.empty();
}

void parseAll(benchmark::State& state, const std::string& text)
{
    Cpp::Parser parser;
    for (auto _ : state)
        if (!parseOne(parser, text))
            state.SkipWithError("the text did not parse");
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void BM_ParserGenerated(benchmark::State& state)
{
    static const std::string text = Bench::generatedCpp(8u << 20);
    parseAll(state, text);
}
BENCHMARK(BM_ParserGenerated)->Unit(benchmark::kMillisecond);

void BM_ParserSamples(benchmark::State& state)
{
    static const std::string text = Bench::bundledSamples();
    parseAll(state, text);
}
BENCHMARK(BM_ParserSamples)->Unit(benchmark::kMicrosecond);

// Every file of the corpus, those that do not parse included (a parse that
// fails stops early, as it does in a formatting run).
void BM_ParserCorpus(benchmark::State& state)
{
    const auto& texts = Bench::corpusTexts();
    if (texts.empty()) {
        state.SkipWithError("TW_CORPUS_DIR is not set");
        return;
    }
    Cpp::Parser parser;
    std::int64_t parsed = 0;
    for (auto _ : state) {
        parsed = 0;
        for (const std::string& text : texts)
            parsed += parseOne(parser, text);
    }
    state.SetBytesProcessed(state.iterations() * Bench::corpusBytes());
    state.counters["files"] = static_cast<double>(texts.size());
    state.counters["parsed"] = static_cast<double>(parsed);
}
BENCHMARK(BM_ParserCorpus)->Unit(benchmark::kMillisecond);

} // namespace
