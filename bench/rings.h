// Rings to measure polygons with, for any list of places with x and y.
#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <random>

namespace tessara::bench {

// Around (centre, 500) a vertex in each of equal sectors, at a random distance: spiky, and never crossing
// itself.
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
