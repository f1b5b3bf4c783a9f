// What somebody may have meant who mistyped the name of a command or an option.
#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace tessara::program {

// A line that names the likeliest command or option for the first argument that the program doesn't know;
// empty if all are known, or nothing is like it.
[[nodiscard]] std::string Suggestion(const CLI::App& program, const std::vector<std::string>& arguments);

}  // namespace tessara::program
