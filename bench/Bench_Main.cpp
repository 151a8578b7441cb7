// The benchmark program: lexer, parser and pipeline throughput, pipeline memory.
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
