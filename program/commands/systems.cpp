// tessara systems
#include <iostream>

#include "commands/commands.h"
#include "conversion/fields.h"
#include "conversion/names.h"
#include "files/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(A line holds number, name, and the fields that `tessara convert` writes, in their order. Eastings, northings,
x, y and z are metres. LONGPIXEL and FLOATPIXEL are pixels of a map and no targets of a conversion. TM and
VDG are written with their origin at latitude and longitude 0, TM with scale 1 and no false easting or
northing.)";

ExitCode ListSystems() {
    for (std::int32_t system = 0; system < KOORD_TYPE_COUNT; ++system) {
        const std::string name = SystemName(system);
        if (name.empty()) continue;
        std::cout << system << ' ' << name;
        for (const Field& field : FieldsOf(MakeKoord(DATUM_WGS84, system)))
            std::cout << ' ' << field.name;
        std::cout << '\n';
    }
    return EXIT_DONE;
}

}  // namespace

void AddSystems(CLI::App& program, Action& action) {
    CLI::App* const command = program.add_subcommand("systems", "Lists the coordinate systems");
    command->footer(FOOTER);
    command->callback([&action] { action = ListSystems; });
}

}  // namespace tessara::program
