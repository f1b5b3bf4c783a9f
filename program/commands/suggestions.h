// Suggestions for mistyped commands and options.
#pragma once

#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace tessara::program {

// A line that names the closest command or option to the first unknown argument; empty if all arguments are
// known or no name is close.
[[nodiscard]] std::string Suggestion(const CLI::App& program, const std::vector<std::string>& arguments);

}  // namespace tessara::program
