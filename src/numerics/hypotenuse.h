// The length of a vector, to less than a unit in the last place, where the squares of its coordinates don't
// fit into a double, too. An infinite coordinate makes it infinite, whatever the others are.
#pragma once

namespace tessara {

[[nodiscard]] double Hypot(double x, double y);

}  // namespace tessara
