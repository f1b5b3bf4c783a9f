// A contest: several libraries do the same task on the same positions, are compared with each other, and are
// timed in turn.
#pragma once

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/positions.h"

namespace tessara::bench {

[[noreturn]] inline void Fail(const std::string& message) {
    std::fprintf(stderr, "peers: %s\n", message.c_str());
    std::exit(1);
}

// Grid values or a geocentric position in metres, a latitude and a longitude in degrees, or a distance.
using Values = std::array<double, 3>;

enum class Kind { METRES, DEGREES };

struct Contestant {
    std::function<void()> run;                  // one pass over all positions
    std::function<Values(std::size_t)> result;  // what the last pass found for one of them
    [[nodiscard]] bool Exists() const { return run != nullptr; }
};

// A contestant whose `step(i, output)` does position i and leaves its output in a form of its own.
template <class Output, class Step, class ToValues>
Contestant Compete(const Output& initial, Step step, ToValues toValues) {
    auto outputs = std::make_shared<std::vector<Output>>(POSITIONS, initial);
    return {[outputs, step] {
                for (std::size_t i = 0; i < POSITIONS; ++i)
                    step(i, (*outputs)[i]);
            },
            [outputs, toValues](std::size_t i) { return toValues((*outputs)[i]); }};
}

struct Contest {
    std::string name;
    Kind kind;
    double tolerance;  // metres by which the libraries may differ
    Contestant ours, proj, geographicLib;
};

struct Figures {
    double ours, proj, geographicLib;  // nanoseconds a position; 0.0 for a library that has no such task
    [[nodiscard]] double FasterPeer() const {
        if (proj == 0.0 || geographicLib == 0.0) return proj + geographicLib;
        return std::min(proj, geographicLib);
    }
    [[nodiscard]] double Ratio() const { return ours / FasterPeer(); }
};

inline double DistanceInMetres(Kind kind, const Values& one, const Values& other) {
    if (kind == Kind::METRES) return std::hypot(one[0] - other[0], one[1] - other[1], one[2] - other[2]);
    constexpr double metresPerDegree = 111320.0;
    const double turn = std::remainder(one[1] - other[1], 360.0);
    return metresPerDegree * std::hypot(one[0] - other[0], turn * std::cos(one[0] * RADIANS_PER_DEGREE));
}

// The largest distance between what ours and the peer found; not a number if either found none.
inline double LargestDifference(const Contest& contest, const Contestant& peer) {
    contest.ours.run();
    peer.run();
    double largest = 0.0;
    for (std::size_t i = 0; i < POSITIONS; ++i) {
        const double d = DistanceInMetres(contest.kind, contest.ours.result(i), peer.result(i));
        if (!(d <= largest)) largest = d;
    }
    return largest;
}

// Nanoseconds of processor time a position in one run of about 20 ms. The time that other programs take away
// doesn't count.
inline double TimeOneRun(const Contestant& contestant) {
    constexpr std::clock_t runTime = CLOCKS_PER_SEC / 50;
    const std::clock_t start = std::clock();
    std::size_t passes = 0;
    std::clock_t taken = 0;
    do {
        contestant.run();
        ++passes;
        taken = std::clock() - start;
    } while (taken < runTime);
    const double nanoseconds = 1e9 * static_cast<double>(taken) / CLOCKS_PER_SEC;
    return nanoseconds / static_cast<double>(passes * POSITIONS);
}

// Medians of five runs, in which the libraries take turns so that a busy machine slows all of them.
inline Figures Time(const Contest& contest) {
    constexpr std::size_t runs = 5;
    const Contestant* const contestants[] = {&contest.ours, &contest.proj, &contest.geographicLib};
    std::array<std::array<double, runs>, 3> times{};
    for (std::size_t run = 0; run < runs; ++run) {
        for (std::size_t i = 0; i < 3; ++i) {
            if (contestants[i]->Exists()) times[i][run] = TimeOneRun(*contestants[i]);
        }
    }
    for (auto& time : times)
        std::sort(time.begin(), time.end());
    return {times[0][runs / 2], times[1][runs / 2], times[2][runs / 2]};
}

}  // namespace tessara::bench
