// tessara datums
#include <iostream>

#include "commands/commands.h"
#include "conversion/numbers.h"
#include "files/toolkit_names.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(A line holds number, name, ellipsoid, and the translation from the datum to WGS84 along x, y and z in metres.
An ellipsoid without a name is written as '-'.)";

// No interface tells the ellipsoid or the translation of a datum: they come from the static kernel.
ExitCode ListDatums() {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const DatumRow& row = *Datum_Row(datum);
        const char* const ellipsoid = Ellipsoid_Name(static_cast<std::int32_t>(row.ellipsoid));
        std::cout << datum << ' ' << row.name << ' ' << (ellipsoid != nullptr ? ellipsoid : "-") << ' '
                  << FormatNumber(row.dx) << ' ' << FormatNumber(row.dy) << ' ' << FormatNumber(row.dz)
                  << '\n';
    }
    return EXIT_DONE;
}

}  // namespace

void AddDatums(CLI::App& program, Action& action) {
    CLI::App* const command = program.add_subcommand("datums", "Lists the geodetic datums");
    command->footer(FOOTER);
    command->callback([&action] { action = ListDatums; });
}

}  // namespace tessara::program
