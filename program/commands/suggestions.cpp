#include "commands/suggestions.h"

#include <CLI/CLI.hpp>

#include "conversion/closest.h"
#include "conversion/quote.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

std::vector<std::string> CommandNames(const CLI::App& program) {
    std::vector<std::string> names;
    for (const CLI::App* command : program.get_subcommands([](const CLI::App*) { return true; }))
        names.push_back(command->get_name());
    return names;
}

std::vector<std::string> OptionNames(const CLI::App& command) {
    std::vector<std::string> names;
    for (const CLI::Option* option : command.get_options()) {
        for (const std::string& name : option->get_lnames())
            names.push_back("--" + name);
    }
    return names;
}

}  // namespace

std::string Suggestion(const CLI::App& program, const std::vector<std::string>& arguments) {
    if (arguments.empty()) return {};
    const std::string& first = arguments.front();
    const std::vector<std::string> commands = CommandNames(program);
    if (!first.starts_with('-') && !IsAmong(first, commands)) {
        if (ClosestName(first, commands).empty()) return {};
        return "tessara: unknown command " + Quote(first) + DidYouMean(first, commands) + '\n';
    }
    const CLI::App& command = first.starts_with('-') ? program : *program.get_subcommand(first);
    const std::vector<std::string> options = OptionNames(command);
    for (const std::string& argument : arguments) {
        const std::string name = argument.substr(0, argument.find('='));
        if (name == "--") break;
        if (!name.starts_with("--") || IsAmong(name, options)) continue;
        if (ClosestName(name, options).empty()) continue;
        return "tessara: unknown option " + Quote(name) + DidYouMean(name, options) + '\n';
    }
    return {};
}

}  // namespace tessara::program
