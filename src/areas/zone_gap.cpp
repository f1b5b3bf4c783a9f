#include "areas/zone_gap.h"

#include <algorithm>
#include <vector>

#include "objects/zones.h"

namespace tessara {
namespace {

constexpr int SAMPLES_OF_A_SIDE = 32;

// Whether one more step in a direction comes back at the other end, or nowhere.
bool IsOutermost(std::int32_t step, tagKOORD place) {
    const std::int32_t number = Zones_Number(place);
    return !Zones_Move(step, &place) || (step > 0) != (Zones_Number(place) > number);
}

// The outermost strips of GK are the same on the ground, and so a window over the end of the numbers may lie
// in the last but one.
bool IsAtTheEnd(std::int32_t step, tagKOORD place) {
    return IsOutermost(step, place) || (Zones_Move(step, &place) && IsOutermost(step, place));
}

double SampleAt(std::int32_t from, std::int32_t to, int sample) {
    return from + (static_cast<double>(to) - from) * sample / SAMPLES_OF_A_SIDE;
}

// In which zones the places of a raster over the window lie, in ascending order.
std::vector<std::int32_t> ZonesSeen(const MapPlane& map, const PixelRect& window, const CKoord& empty) {
    std::vector<std::int32_t> zones;
    for (int row = 0; row <= SAMPLES_OF_A_SIDE; ++row) {
        for (int column = 0; column <= SAMPLES_OF_A_SIDE; ++column) {
            CKoord place = empty;
            const PlanePoint pixel{SampleAt(window.left, window.right, column),
                                   SampleAt(window.top, window.bottom, row)};
            if (map.ToWorld(pixel, &place)) zones.push_back(Zones_Number(place));
        }
    }
    std::sort(zones.begin(), zones.end());
    zones.erase(std::unique(zones.begin(), zones.end()), zones.end());
    return zones;
}

}  // namespace

std::optional<ZoneGap> FindZoneGap(const MapPlane& map, const PixelRect& window, const Extremes& extremes) {
    const CKoord& west = extremes[Compass::West];
    const CKoord& east = extremes[Compass::East];
    if (!Zones_Exist(static_cast<std::int32_t>(west.type))) return std::nullopt;
    if (!IsAtTheEnd(-1, west) || !IsAtTheEnd(1, east)) return std::nullopt;

    const std::vector<std::int32_t> seen = ZonesSeen(map, window, west);
    const auto widest = std::adjacent_find(seen.begin(), seen.end(), [&](std::int32_t a, std::int32_t b) {
        return b - a > (Zones_Number(east) - Zones_Number(west)) / 2;
    });
    if (widest == seen.end()) return std::nullopt;
    const ZoneGap gap{*widest + 2, *(widest + 1) - 2};
    return gap.first <= gap.last ? std::optional(gap) : std::nullopt;
}

}  // namespace tessara
