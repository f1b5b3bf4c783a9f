// Points and polylines of a picture.
#pragma once

#include <cmath>
#include <vector>

namespace tessara::toolkit {

struct PicturePoint {
    double x, y;  // rightward and downward

    bool operator==(const PicturePoint&) const = default;
};

[[nodiscard]] inline double Distance(const PicturePoint& a, const PicturePoint& b) {
    return std::hypot(b.x - a.x, b.y - a.y);
}

using Polyline = std::vector<PicturePoint>;

// The same on the earth, in degrees on the map's datum: x is the longitude, y the latitude. Longitudes
// continue across the date line.
using EarthLine = std::vector<PicturePoint>;

}  // namespace tessara::toolkit
