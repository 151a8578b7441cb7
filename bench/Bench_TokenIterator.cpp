// TokenIterator over the short texts the passes look at: a whole iterator is
// built, walked and thrown away per gap, as a pass does. The counter
// "per_token" is the time per token, construction included.
#include "Kempt_TokenIterator.h"

#include <benchmark/benchmark.h>

#include <string>

namespace {

void walkGap(benchmark::State& state, const std::string& gap)
{
    std::int64_t tokens = 0;
    for (auto _ : state) {
        tokens = 0;
        Kempt::TokenIterator it(gap);
        for (it.advance(); it.more(); it.advance()) {
            benchmark::DoNotOptimize(it.left().type() + it.right().type());
            ++tokens;
        }
        ++tokens; // the last token, in left()
        benchmark::DoNotOptimize(it.left().type());
    }
    state.counters["tokens"] = static_cast<double>(tokens);
    state.counters["per_token"] = benchmark::Counter(static_cast<double>(tokens),
                                                     benchmark::Counter::kIsIterationInvariantRate |
                                                         benchmark::Counter::kInvert);
}

// An expression statement of 19 tokens.
void BM_TokenIteratorExpression(benchmark::State& state)
{
    walkGap(state, "total = base + rate * (count - 1) / scale(first, last);");
}
BENCHMARK(BM_TokenIteratorExpression);

// A parameter list of 11 tokens.
void BM_TokenIteratorParameters(benchmark::State& state)
{
    walkGap(state, "(const std::string& name, int count = 0)");
}
BENCHMARK(BM_TokenIteratorParameters);

// The gap between two declarations: white space and one comment.
void BM_TokenIteratorCommentGap(benchmark::State& state)
{
    walkGap(state, "\n\n    // the next member\n    ");
}
BENCHMARK(BM_TokenIteratorCommentGap);

// A gap with a fenced region folded into one token.
void BM_TokenIteratorRegion(benchmark::State& state)
{
    walkGap(state, "a; // TW-FORMAT-OFF\nint   x [ 3 ];\n// TW-FORMAT-ON\nb;");
}
BENCHMARK(BM_TokenIteratorRegion);

} // namespace
