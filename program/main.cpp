// The program `tessara`: coordinate calculations on the command line.
#include <algorithm>
#include <filesystem>
#include <iostream>

#include "commands/command_line.h"
#include "conversion/numbers.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

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
    const ExitCode code = RunCommandLine(arguments);
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
