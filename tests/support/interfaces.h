// The operations of the interfaces, as the public headers declare them.
#pragma once

#include <string>
#include <vector>

namespace tessara::testing {

struct DeclaredOperation {
    std::string interface;
    std::string name;         // "GetPixel", or "~ICoord"
    std::string declaration;  // "bool ICoord::GetPixel(double*, double*)"
};

// Header by header, each in the order of its table.
[[nodiscard]] std::vector<DeclaredOperation> DeclaredOperations();

}  // namespace tessara::testing
