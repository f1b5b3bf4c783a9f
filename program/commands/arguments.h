// Arguments that several commands take. What they don't accept is wrong usage.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tessara::program {

// A datum by its name.
CLI::Option* AddDatum(CLI::App& command, const std::string& option, std::string& name,
                      const std::string& description);

// Numbers that have to be given, by their place on the command line.
void AddLatitude(CLI::App& command, const std::string& name, double& degrees);
void AddLongitude(CLI::App& command, const std::string& name, double& degrees);
void AddNumber(CLI::App& command, const std::string& name, double& number, const std::string& description);

}  // namespace tessara::program
