// tessara check
#include <iostream>
#include <memory>

#include "commands/commands.h"
#include "conversion/typed_position.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    "Writes `valid`, or `not valid` and why. The exit status is 1 for a position that isn't valid.\n"
    "\n"
    "Examples:\n"
    "  tessara check --system UTM 'N 5334791' '32 691602'\n"
    "  tessara check --system GK@GER 5333259.5 4468409.7\n"
    "  tessara check --system UTMREF 'U U 34791' '32 P 91602'";

struct Options {
    std::string system;
    std::string north;
    std::string east;
};

ExitCode Check(const Options& options) {
    const std::string wrong =
        TypedPosition(*ReferenceByName(options.system, DATUM_WGS84)).Read(options.north, options.east);
    std::cout << (wrong.empty() ? "valid" : "not valid: " + wrong) << '\n';
    return wrong.empty() ? EXIT_DONE : EXIT_INCOMPLETE;
}

}  // namespace

void AddCheck(CLI::App& program, Action& action) {
    CLI::App* const command = program.add_subcommand("check", "Tells whether two texts are a legal position");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command->add_option("--system", options->system, "The system of the texts, on WGS84 where none is named")
        ->type_name("SYSTEM[@DATUM]")
        ->required()
        ->check(WrongReference);
    command->add_option("NORTH", options->north, "The north text")->type_name("")->required();
    command->add_option("EAST", options->east, "The east text")->type_name("")->required();
    command->callback([options, &action] { action = [options] { return Check(*options); }; });
}

}  // namespace tessara::program
