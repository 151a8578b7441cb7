// The benchmark program: lexer and pipeline throughput, pipeline memory.
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
