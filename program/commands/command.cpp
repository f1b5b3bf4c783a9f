#include "commands/command.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <optional>

namespace tessara::program {

Option& Option::Type(const std::string& name) {
    option_->type_name(name);
    return *this;
}

Option& Option::Group(const std::string& heading) {
    option_->group(heading);
    return *this;
}

Option& Option::ShowDefault() {
    option_->capture_default_str();
    return *this;
}

Option& Option::CheckedBy(const Check& check) {
    option_->check(check);
    return *this;
}

Option& Option::OneOf(const std::vector<std::string>& choices) {
    option_->check(CLI::IsMember(choices).description(""));
    return *this;
}

Option& Option::Above0() {
    option_->check(CLI::Validator(CLI::PositiveNumber).description(""));
    return *this;
}

Option& Option::Within(int low, int high) {
    option_->check(CLI::Range(low, high).description(""));
    return *this;
}

Option& Option::Within(double low, double high) {
    option_->check(CLI::Range(low, high).description(""));
    return *this;
}

Option& Option::Required() {
    option_->required();
    return *this;
}

Option& Option::Needs(const Option& other) {
    option_->needs(other.option_);
    return *this;
}

Option& Option::SeparatedBy(char separator) {
    option_->delimiter(separator);
    return *this;
}

Option& Option::Count(int least, int most) {
    option_->expected(least, most);
    return *this;
}

Option& Option::OneValueEach() {
    option_->allow_extra_args(false);
    return *this;
}

Command::Command(CLI::App& program, const std::string& name, const std::string& description,
                 const std::string& footer)
    : command_(program.add_subcommand(name, description)) {
    command_->footer(footer);
}

template <class Value>
Option Command::Add(const std::string& names, Value& value, const std::string& description) {
    return Option(command_->add_option(names, value, description));
}

template Option Command::Add(const std::string&, std::string&, const std::string&);
template Option Command::Add(const std::string&, std::optional<std::string>&, const std::string&);
template Option Command::Add(const std::string&, std::vector<std::string>&, const std::string&);
template Option Command::Add(const std::string&, int&, const std::string&);
template Option Command::Add(const std::string&, std::optional<int>&, const std::string&);
template Option Command::Add(const std::string&, unsigned&, const std::string&);
template Option Command::Add(const std::string&, double&, const std::string&);
template Option Command::Add(const std::string&, std::optional<double>&, const std::string&);

Option Command::AddFlag(const std::string& name, bool& value, const std::string& description) {
    return Option(command_->add_flag(name, value, description));
}

void Command::OnCall(Action& action, const std::function<Action()>& prepare) {
    command_->callback([&action, prepare] { action = prepare(); });
}

void Command::Refuse(const std::string& wrong) const {
    throw CLI::ValidationError("tessara " + command_->get_name(), wrong);
}

}  // namespace tessara::program
