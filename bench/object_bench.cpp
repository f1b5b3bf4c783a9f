// Measures the most common operations through the interfaces of the shared library: nanoseconds and blocks
// from operator new for each. Whole requests, from two texts to a text, come last.

#include <benchmark/benchmark.h>

#include <memory>

#include "support/common_operations.h"
#include "support/live_objects.h"

namespace tessara::bench {
namespace {

void Run(benchmark::State& state, const std::function<void()>& operation) {
    operation();  // lets texts grow to their final capacity
    const std::int64_t before = testing::AllocatedBlocks();
    operation();
    const std::int64_t blocks = testing::AllocatedBlocks() - before;
    for (auto _ : state)
        operation();
    state.counters["blocks"] = static_cast<double>(blocks);
}

int Main(int count, char** arguments) {
    testing::CommonOperations operations;
    for (const auto& operation : operations.All()) {
        benchmark::RegisterBenchmark(operation.name,
                                     [run = operation.run](benchmark::State& state) { Run(state, run); });
    }
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
