// The subcommands, each in a source of its own. An Add function declares the arguments of its command; the
// parser sets `action` if the user calls the command.
#pragma once

#include <functional>

#include "run/exit_code.h"

namespace CLI {
class App;
}

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
