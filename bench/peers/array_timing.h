// What tasks on a million positions have in common: the positions, repeated, and the times of some runs.
#pragma once

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <vector>

#include "bench/positions.h"

namespace tessara::bench {

inline constexpr std::size_t REPETITIONS = 244;
inline constexpr std::size_t COUNT = REPETITIONS * POSITIONS;
inline constexpr std::size_t RUNS = 7;

template <class Value>
std::vector<Value> Repeated(const std::vector<Value>& values) {
    std::vector<Value> all;
    all.reserve(COUNT);
    for (std::size_t i = 0; i < REPETITIONS; ++i)
        all.insert(all.end(), values.begin(), values.end());
    return all;
}

// Nanoseconds of processor time per position, so that other programs do not count.
template <class Work>
double TimeOf(Work work) {
    const std::clock_t start = std::clock();
    work();
    return 1e9 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC / static_cast<double>(COUNT);
}

inline double Median(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace tessara::bench
