// The program `tessara`: coordinate calculations on the command line.
#include <iostream>

#include "commands.h"

namespace tessara::program {
namespace {

constexpr const char* DESCRIPTION =
    "Coordinate calculations: positions on any of 239 geodetic datums, in national and world systems.";

constexpr const char* FOOTER =
    "Examples:\n"
    "  echo 48.1375 11.5755 | tessara convert --to UTM --to GK@GER\n"
    "  tessara convert --json --to UTMREF positions.txt\n"
    "  tessara systems\n"
    "\n"
    "Exit status: 0 all is done, 1 some input couldn't be used (messages on standard error say what), 2 "
    "wrong\n"
    "usage. `tessara COMMAND --help` says more about a command.";

int Main(int argc, char** argv) {
    CLI::App program(DESCRIPTION, "tessara");
    program.footer(FOOTER);
    program.set_version_flag("--version", "tessara " TESSARA_VERSION);
    program.require_subcommand(1);

    Action action;
    AddConvert(program, action);
    AddSystems(program, action);
    AddDatums(program, action);

    try {
        program.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return program.exit(error) == 0 ? EXIT_DONE : EXIT_USAGE;
    }

    const ExitCode code = action();
    if (!std::cout.flush()) {
        std::cerr << "tessara: standard output can't be written\n";
        return EXIT_INCOMPLETE;
    }
    return code;
}

}  // namespace
}  // namespace tessara::program

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return tessara::program::Main(argc, argv);
}
