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

}  // namespace tessara::testing
