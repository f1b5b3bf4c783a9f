// The subcommands. Each has a source of its own, declares its arguments on the program, and sets `action` to
// what is to be done when it is the one that is called.
#pragma once

#include <CLI/CLI.hpp>
#include <functional>

#include "run/exit_code.h"

namespace tessara::program {

using Action = std::function<ExitCode()>;

void AddConvert(CLI::App& program, Action& action);
void AddSystems(CLI::App& program, Action& action);
void AddDatums(CLI::App& program, Action& action);
void AddDistance(CLI::App& program, Action& action);
void AddDirect(CLI::App& program, Action& action);
void AddCheck(CLI::App& program, Action& action);
void AddUtmref(CLI::App& program, Action& action);
void AddMap(CLI::App& program, Action& action);
void AddManual(CLI::App& program, Action& action);

}  // namespace tessara::program
