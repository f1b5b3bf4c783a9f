// tessara systems
#include <iostream>

#include "commands/command.h"
#include "conversion/fields.h"
#include "conversion/names.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

constexpr const char* SYSTEMS_FOOTER =
    R"(Each line holds the number and name of a system, and its fields in the order in which `tessara convert` writes
them. Eastings, northings, x, y and z are in metres. LONGPIXEL and FLOATPIXEL are pixels of a map; positions
cannot be converted to them. MGRS is another name of UTMREF.

Some systems accept parameters after a colon, as in TM:lon0=9,k=0.9996,fe=500000:
  TM      lon0, lat0 (degrees), k (scale), fe, fn (metres); default 0, 0, 1, 0, 0
  VDG     lon0, lat0
  UTM, UTMREF           zone, 1 to 60
  GK, GK6               strip
  BMN, OEM, GK-AT       meridian, 28, 31 or 34)";

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
    Command command(program, "systems", "Lists the coordinate systems", SYSTEMS_FOOTER);
    command.OnCall(action, [] { return ListSystems; });
}

}  // namespace tessara::program
