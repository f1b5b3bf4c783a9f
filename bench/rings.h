// Rings for measuring polygons, for any list of places with x and y.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace tessara::bench {

// A ring around (centre, 500) with one vertex in each of several equal sectors, at a random distance. It is
// spiky but never crosses itself.
template <class Ring>
Ring Star(std::int64_t count, double centre) {
    constexpr double turn = 6.283185307179586;
    std::mt19937_64 random(static_cast<std::uint64_t>(count) + 1);
    std::uniform_real_distribution<double> part(0.05, 0.95);
    std::uniform_real_distribution<double> radius(250.0, 400.0);
    Ring star;
    for (std::int64_t i = 0; i < count; ++i) {
        const double angle = turn * (static_cast<double>(i) + part(random)) / static_cast<double>(count);
        const double r = radius(random);
        star.push_back({centre + r * std::cos(angle), 500.0 + r * std::sin(angle)});
    }
    return star;
}

}  // namespace tessara::bench
