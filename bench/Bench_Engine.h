// One whole format run as the benchmarks time it: the engine over a text in
// memory, the result into a string stream that the optimiser must keep.
#ifndef BENCH_ENGINE_H
#define BENCH_ENGINE_H

#include "Kempt.h"

#include <cstddef>
#include <string>

namespace Bench {

// The built-in `default` scheme of the source tree, read once.
const Kempt::FormatSettings& defaultScheme();

// Formats `text` with `settings`; the length of the result, or 0 when the
// text did not format.
std::size_t formatText(const std::string& text, const Kempt::FormatSettings& settings);

} // namespace Bench

#endif
