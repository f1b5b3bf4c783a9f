// tessara distance
#include <iostream>
#include <memory>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "conversion/azimuths.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "files/toolkit_names.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(Writes the length of the shortest way in metres, its azimuth at the first position and the azimuth back at
the second one, both in degrees clockwise from north. Near the antipode of a position it may find no way:
the exit status is 1 then.

Example:
  tessara distance 40.64 -73.78 51.47 -0.45    from New York to London)";

struct Options {
    double latitude1, longitude1;
    double latitude2, longitude2;
    std::string datum = "WGS84";
};

// The geodesic is the static kernel's: the interfaces offer none.
ExitCode WriteDistance(const Options& o) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(o.datum));
    const GeodesicResult way =
        Geodesic_InverseCore(o.latitude1, o.longitude1, o.latitude2, o.longitude2, axes[0], axes[1]);
    if (way.distance < 0.0) {
        std::cerr << "tessara: no way is found between these positions\n";
        return EXIT_INCOMPLETE;
    }
    std::cout << FormatNumber(way.distance, METRE_DECIMALS) << ' ' << FormatAzimuth(way.azimuth12) << ' '
              << FormatAzimuth(way.azimuth21) << '\n';
    return EXIT_DONE;
}

}  // namespace

void AddDistance(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("distance", "Tells distance and azimuths of two positions");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    AddLatitude(*command, "LAT1", options->latitude1);
    AddLongitude(*command, "LON1", options->longitude1);
    AddLatitude(*command, "LAT2", options->latitude2);
    AddLongitude(*command, "LON2", options->longitude2);
    AddDatum(*command, "--datum", options->datum, "Datum of both positions");
    command->callback([options, &action] { action = [options] { return WriteDistance(*options); }; });
}

}  // namespace tessara::program
