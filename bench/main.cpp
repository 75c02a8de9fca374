// The benchmarks need a display and run from the build folder, where the shipped data is found:
//     cd build && ./bench/tarvex_bench

#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
