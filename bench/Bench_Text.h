// Texts to measure on: a generated C++ text of a chosen size, and the bundled
// samples. The generated text is deterministic and exercises every token kind.
#ifndef BENCH_TEXT_H
#define BENCH_TEXT_H

#include <cstddef>
#include <string>

namespace Bench {

// About `bytes` bytes of C++ source, whole lines.
std::string generatedCpp(std::size_t bytes);

// All files of the examples directory, concatenated.
std::string bundledSamples();

} // namespace Bench

#endif
