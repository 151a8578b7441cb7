// Memory of the pipeline: the peak resident size while formatting 100 MB,
// reported as a multiple of the input. The text is whole in memory once per
// stream of a pass, so the growth must stay a small multiple of the input.
#include "Bench_Text.h"
#include "Kempt.h"
#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <streambuf>
#include <string>

namespace {

// Discards what is written, so that only the pipeline's own memory counts.
class NullBuf : public std::streambuf {
protected:
    int_type overflow(int_type c) override { return traits_type::not_eof(c); }
    std::streamsize xsputn(const char*, std::streamsize n) override { return n; }
};

// The high-water mark of resident memory, in bytes (VmHWM of /proc/self/status).
double peakResidentBytes()
{
    std::ifstream status("/proc/self/status");
    std::string key;
    while (status >> key) {
        if (key == "VmHWM:") {
            double kb = 0;
            status >> kb;
            return kb * 1024.0;
        }
        status.ignore(1 << 16, '\n');
    }
    return 0;
}

// Resets the high-water mark to the current size, where the kernel allows it.
void resetPeak()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

void BM_PipelineMemory100MB(benchmark::State& state)
{
    const std::string text = Bench::generatedCpp(100u << 20);
    Kempt::PropertySet set;
    set.setInt(Kempt::Prop::IF_ELSE_CS_SINGLE_STMT_BRACE_STYLE, 1);
    set.setBool(Kempt::Prop::LINE_WRAP, true);
    const Kempt::FormatSettings settings(set);
    Kempt::UpdateFunctor none;
    double before = 0, peak = 0;
    for (auto _ : state) {
        resetPeak();
        before = peakResidentBytes();
        Varnel::IMemStream in(text);
        NullBuf sink;
        std::ostream out(&sink);
        Kempt::FormatMessageList messages;
        Kempt::FormatEngine().format(settings, in, out, messages, none);
        peak = peakResidentBytes();
    }
    const double input = static_cast<double>(text.size());
    state.counters["input_MB"] = input / (1 << 20);
    state.counters["growth_MB"] = (peak - before) / (1 << 20);
    state.counters["growth_x_input"] = (peak - before) / input;
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}
BENCHMARK(BM_PipelineMemory100MB)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace
