// One whole format run for the benchmarks.
#include "Bench_Engine.h"

#include "Varnel_IMemBuf.h"

#include <benchmark/benchmark.h>

#include <fstream>
#include <sstream>

namespace Bench {

const Kempt::FormatSettings& defaultScheme()
{
    static const Kempt::FormatSettings settings = [] {
        std::ifstream in(TW_SCHEMES_DIR "/default.tws", std::ios::binary);
        return Kempt::FormatSettings(Kempt::PropertySet(in));
    }();
    return settings;
}

std::size_t formatText(const std::string& text, const Kempt::FormatSettings& settings)
{
    Kempt::UpdateFunctor none;
    Varnel::IMemStream in(text);
    std::ostringstream out;
    Kempt::FormatMessageList messages;
    const bool ok = Kempt::FormatEngine().format(settings, in, out, messages, none) == 0;
    benchmark::DoNotOptimize(out);
    return ok ? out.str().size() : 0;
}

} // namespace Bench
