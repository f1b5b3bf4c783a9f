// Rings in a plane, for tests.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "polygons/polygon_ring.h"
#include "support/random.h"

namespace tessara::testing {

// Clockwise from its upper left corner, not closed.
inline Ring Rectangle(double left, double top, double right, double bottom) {
    return {{left, top}, {right, top}, {right, bottom}, {left, bottom}};
}

inline Ring Closed(Ring ring) {
    ring.push_back(ring.front());
    return ring;
}

inline Ring Reversed(Ring ring) {
    std::reverse(ring.begin(), ring.end());
    return ring;
}

inline Ring StartingAt(std::size_t vertex, Ring open) {
    std::rotate(open.begin(), open.begin() + static_cast<std::ptrdiff_t>(vertex % open.size()), open.end());
    return open;
}

// The sum of the trapezia under the edges, positive for a turn from x to y. Closes open rings.
inline double SignedArea(const Ring& ring) {
    double twice = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PlanePoint& a = ring[i];
        const PlanePoint& b = ring[(i + 1) % ring.size()];
        const PlanePoint& origin = ring.front();
        twice += (a.x - origin.x) * (b.y - origin.y) - (b.x - origin.x) * (a.y - origin.y);
    }
    return twice / 2.0;
}

inline double Area(const Ring& ring) {
    return std::fabs(SignedArea(ring));
}

inline double AreaOf(const std::vector<Ring>& rings) {
    double area = 0.0;
    for (const Ring& ring : rings)
        area += Area(ring);
    return area;
}

// In ascending order.
inline std::vector<double> AreasOf(const std::vector<Ring>& rings) {
    std::vector<double> areas;
    for (const Ring& ring : rings)
        areas.push_back(Area(ring));
    std::sort(areas.begin(), areas.end());
    return areas;
}

// A ring around a centre with a vertex in each of `count` equal sectors, at 0.3 to 1 of the radius. It never
// crosses itself.
inline Ring RandomStar(Random& random, int count, PlanePoint centre, double radius) {
    constexpr double TURN = 6.283185307179586;
    Ring star;
    for (int i = 0; i < count; ++i) {
        const double angle = TURN * (i + random.Between(0.05, 0.95)) / count;
        const double r = radius * random.Between(0.3, 1.0);
        star.push_back({centre.x + r * std::cos(angle), centre.y + r * std::sin(angle)});
    }
    return star;
}

// A ring of vertices anywhere in a square, which crosses itself nearly everywhere.
inline Ring RandomTangle(Random& random, int count) {
    Ring tangle;
    for (int i = 0; i < count; ++i) {
        const double x = random.Between(0, 1000);
        tangle.push_back({x, random.Between(0, 1000)});
    }
    return tangle;
}

// A row of adjacent towers with integer heights on a common ground line. The ring never crosses itself.
inline Ring RandomSkyline(Random& random, int towers, int x, int y) {
    Ring skyline{{static_cast<double>(x), static_cast<double>(y)}};
    for (int i = 0; i < towers; ++i) {
        const double roof = y + 1 + random.Below(4);
        skyline.push_back({static_cast<double>(x + i), roof});
        skyline.push_back({static_cast<double>(x + i + 1), roof});
    }
    skyline.push_back({static_cast<double>(x + towers), static_cast<double>(y)});
    return skyline;
}

}  // namespace tessara::testing
