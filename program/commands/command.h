// A subcommand with its options, as the sources of commands declare it. The header of the parser takes ten
// seconds to compile, so it is included only where the parser itself is asked: to define this class, and to
// list the commands.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/commands.h"

namespace CLI {
class Option;
}

namespace tessara::program {

// An option or a positional argument.
class Option {
  public:
    // Returns the error of a text; nothing for a valid one.
    using Check = std::function<std::string(const std::string&)>;

    explicit Option(CLI::Option* option) : option_(option) {}

    // In the help: what the value is called, the heading of the option, and the value that the variable has
    // now.
    Option& Type(const std::string& name);
    Option& Group(const std::string& heading);
    Option& ShowDefault();

    Option& CheckedBy(const Check& check);
    Option& OneOf(const std::vector<std::string>& choices);
    Option& Above0();
    Option& Within(int low, int high);
    Option& Within(double low, double high);
    Option& Required();
    Option& Needs(const Option& other);

    // How a list is typed: the separator within a text, the number of values, and whether the option has to
    // be repeated for each value.
    Option& SeparatedBy(char separator);
    Option& Count(int least, int most);
    Option& OneValueEach();

  private:
    CLI::Option* option_;
};

// A handle: copies declare options of the same command. The parser owns the command, and writes values to
// variables that have to outlive it.
class Command {
  public:
    Command(CLI::App& program, const std::string& name, const std::string& description,
            const std::string& footer);

    // Defined for texts, whole numbers and numbers, for those that may be missing, and for lists of texts.
    template <class Value>
    Option Add(const std::string& names, Value& value, const std::string& description);
    Option AddFlag(const std::string& name, bool& value, const std::string& description);

    // If the user calls the command, `prepare` checks the arguments together and returns what to do.
    void OnCall(Action& action, const std::function<Action()>& prepare);

    // Ends the reading of the arguments with a usage error.
    [[noreturn]] void Refuse(const std::string& wrong) const;

    // The command as the parser knows it, for an option that no other function declares.
    [[nodiscard]] CLI::App& Parser() { return *command_; }

  private:
    CLI::App* command_;
};

}  // namespace tessara::program
