#include "commands/arguments.h"

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/positions.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

// `wrong` says what is wrong with the word, if anything is.
void AddRequired(CLI::App& command, const std::string& name, double& number, const std::string& description,
                 std::string (*wrong)(std::string_view)) {
    const auto take = [&number](const std::string& word) { number = *ParseNumber(word); };
    const auto check = [wrong](const std::string& word) { return wrong(word); };
    command.add_option_function<std::string>(name, take, description)
        ->type_name("")
        ->required()
        ->check(check);
}

}  // namespace

CLI::Option* AddDatum(CLI::App& command, const std::string& option, std::string& name,
                      const std::string& description) {
    return command.add_option(option, name, description)
        ->type_name("DATUM")
        ->capture_default_str()
        ->check(WrongDatum);
}

void AddLatitude(CLI::App& command, const std::string& name, double& degrees) {
    AddRequired(command, name, degrees, "degrees, positive north", WrongLatitude);
}

void AddLongitude(CLI::App& command, const std::string& name, double& degrees) {
    AddRequired(command, name, degrees, "degrees, positive east", WrongLongitude);
}

void AddNumber(CLI::App& command, const std::string& name, double& number, const std::string& description) {
    AddRequired(command, name, number, description, WrongNumber);
}

}  // namespace tessara::program
