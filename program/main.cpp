// The program `tessara`: coordinate calculations on the command line.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "commands/commands.h"
#include "commands/suggestions.h"
#include "conversion/numbers.h"
#include "run/toolkit_names.h"

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

// The words after `--` are a position to convert, unless they are names of files.
void TakePosition(std::vector<std::string>* arguments) {
    const auto dashes = std::find(arguments->begin(), arguments->end(), "--");
    if (arguments->empty() || arguments->front() != "convert" || dashes == arguments->end()) return;
    const bool areFiles = std::all_of(dashes + 1, arguments->end(),
                                      [](const std::string& word) { return std::filesystem::exists(word); });
    if (areFiles) return;
    for (auto word = dashes + 1; word != arguments->end(); ++word)
        word->insert(0, "--position=");
    arguments->erase(dashes);
}

// Prevents the parser from reading a number such as -.5 as an option.
std::vector<std::string> ReadArguments(int argc, char** argv) {
    std::vector<std::string> arguments(argv + std::min(argc, 1), argv + argc);
    for (std::string& argument : arguments) {
        if (argument.starts_with("-.") && ParseNumber(argument)) argument.insert(1, "0");
    }
    TakePosition(&arguments);
    return arguments;
}

int Main(const std::vector<std::string>& arguments) {
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
        if (program.exit(error) != 0) {
            std::cerr << Suggestion(program, arguments);
            return EXIT_USAGE;
        }
        action = [] { return EXIT_DONE; };
    }

    const ExitCode code = action();
    if (!std::cout.flush()) {
        std::cerr << "tessara: " << OUTPUT_IS_LOST << '\n';
        return EXIT_INCOMPLETE;
    }
    return code;
}

}  // namespace
}  // namespace tessara::program

int main(int argc, char** argv) {
    namespace program = tessara::program;
    std::ios::sync_with_stdio(false);
    try {
        return program::Main(program::ReadArguments(argc, argv));
    } catch (const std::exception& error) {
        std::cerr << "tessara: " << error.what() << '\n';
        return program::EXIT_INCOMPLETE;
    }
}
