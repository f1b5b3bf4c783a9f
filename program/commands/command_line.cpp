#include "commands/command_line.h"

#include <CLI/CLI.hpp>
#include <iostream>

#include "commands/commands.h"
#include "commands/suggestions.h"

namespace tessara::program {
namespace {

constexpr const char* DESCRIPTION =
    "Coordinate calculations: converts, checks, measures and draws positions in national and global "
    "coordinate "
    "systems on 239 geodetic datums.";

constexpr const char* FOOTER = R"(Examples:
  tessara convert --to UTM --to GK@GER -- 48.1375 11.5755
  tessara convert --json --to UTMREF positions.txt
  tessara systems
  tessara distance 40.64 -73.78 51.47 -0.45

Exit status: 0 for success, 1 if some input was rejected (standard error has the reasons), 2 for a usage
error. `tessara COMMAND --help` explains a command.)";

}  // namespace

ExitCode RunCommandLine(const std::vector<std::string>& arguments) {
    CLI::App program(DESCRIPTION, "tessara");
    program.footer(FOOTER);
    program.set_version_flag("--version", "tessara " TESSARA_VERSION);
    program.require_subcommand(1);

    Action action;
    AddConvert(program, action);
    AddSystems(program, action);
    AddDatums(program, action);
    AddDistance(program, action);
    AddDirect(program, action);
    AddCheck(program, action);
    AddUtmref(program, action);
    AddMap(program, action);
    AddManual(program, action);

    try {
        // The parser expects the arguments in reverse order.
        program.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    } catch (const CLI::ParseError& error) {
        // The parser also throws for --help, with exit code 0.
        if (program.exit(error) == 0) return EXIT_DONE;
        std::cerr << Suggestion(program, arguments);
        return EXIT_USAGE;
    }
    return action();
}

}  // namespace tessara::program
