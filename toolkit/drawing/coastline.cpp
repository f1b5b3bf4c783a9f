#include "drawing/coastline.h"

#include "drawing/coast_data.h"

namespace tessara::toolkit {
namespace {

constexpr double PARTS_OF_A_DEGREE = 100.0;

// coast_data.h documents the format of the lines.
std::vector<EarthLine> Decode(const std::int16_t* data, std::size_t size) {
    std::vector<EarthLine> lines;
    for (const std::int16_t* const end = data + size; data != end;) {
        EarthLine line;
        std::int32_t east = 0;
        std::int32_t north = 0;
        for (std::int32_t steps = *data++; steps >= 0; --steps) {
            east += *data++;
            north += *data++;
            line.push_back({east / PARTS_OF_A_DEGREE, north / PARTS_OF_A_DEGREE});
        }
        lines.push_back(std::move(line));
    }
    return lines;
}

}  // namespace

const std::vector<EarthLine>& LandRings() {
    static const std::vector<EarthLine> rings = Decode(LAND_RINGS, LAND_RINGS_SIZE);
    return rings;
}

const std::vector<EarthLine>& CountryBorders() {
    static const std::vector<EarthLine> borders = Decode(BORDER_LINES, BORDER_LINES_SIZE);
    return borders;
}

}  // namespace tessara::toolkit
