// A point in a plane, such as the one of a map's pixels.
#pragma once

namespace tessara {

struct PlanePoint {
    double x, y;

    bool operator==(const PlanePoint&) const = default;
};

}  // namespace tessara
