// Texts to measure on: a generated C++ text of a chosen size, the bundled
// samples, and a corpus of real code when TW_CORPUS_DIR names one. The
// generated text is deterministic and exercises every token kind.
#ifndef BENCH_TEXT_H
#define BENCH_TEXT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Bench {

// About `bytes` bytes of C++ source, whole lines.
std::string generatedCpp(std::size_t bytes);

// All files of the examples directory, concatenated.
std::string bundledSamples();

// The texts of all files under the directory named by TW_CORPUS_DIR, each on
// its own; empty when the variable is not set. Read once.
const std::vector<std::string>& corpusTexts();

// The number of bytes of the corpus.
std::int64_t corpusBytes();

} // namespace Bench

#endif
