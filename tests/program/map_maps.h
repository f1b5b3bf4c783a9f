// Map descriptions, one of each type, as people might write them.
#pragma once

#include <string>
#include <vector>

namespace tessara::testing {

struct TypedMap {
    std::string type;
    std::string description;
};

// Each has a grid and one named position inside the window.
[[nodiscard]] std::vector<TypedMap> MapsOfAllTypes();

// Maps whose layers are still to come: what stands behind them is "]}".

// 50 metres a pixel: column (easting - 660000) / 50, row (5340000 - northing) / 50. The window is 1000 wide,
// and so is its picture: a pixel is a unit.
extern const std::string UTM_MAP;

// The same, 60 km east: the border of the zones at 12 degrees runs through it.
extern const std::string BORDER_MAP;

// The whole earth in a circle around (1750, 1750), 12 km a pixel. To be drawn 3500 wide.
extern const std::string VAN_DER_GRINTEN_MAP;

// A kilometre a pixel, with the north pole at (500, 500).
extern const std::string POLE_MAP;

// The picture of a map with layers. A failure of the test if there is anything to report.
[[nodiscard]] std::string DrawMap(const std::string& map, const std::string& layers,
                                  const std::string& size = "1000");

}  // namespace tessara::testing
