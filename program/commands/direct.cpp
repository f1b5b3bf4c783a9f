// tessara direct
#include <cmath>
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
    R"(Writes latitude and longitude of the position that lies so far away in this direction, and the azimuth back
from there, in degrees. Azimuths count clockwise from north.

Example:
  tessara direct 40.64 -73.78 51.4 5553886    from New York towards London)";

struct Options {
    double latitude, longitude;
    double azimuth;
    double distance;
    std::string datum = "WGS84";
};

// The geodesic is the static kernel's: the interfaces offer none.
ExitCode WriteDirect(const Options& o) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(o.datum));
    const GeodesicResult end =
        Geodesic_DirectCore(o.latitude, o.longitude, o.distance, o.azimuth, axes[0], axes[1]);
    if (!std::isfinite(end.latitude) || !std::isfinite(end.longitude)) {
        std::cerr << "tessara: no position is found there\n";
        return EXIT_INCOMPLETE;
    }
    std::cout << FormatNumber(end.latitude, DEGREE_DECIMALS) << ' '
              << FormatNumber(std::remainder(end.longitude, 360.0), DEGREE_DECIMALS) << ' '
              << FormatAzimuth(end.backAzimuth) << '\n';
    return EXIT_DONE;
}

}  // namespace

void AddDirect(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("direct", "Tells the position at an azimuth and a distance from another");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    AddLatitude(*command, "LAT", options->latitude);
    AddLongitude(*command, "LON", options->longitude);
    AddNumber(*command, "AZIMUTH", options->azimuth, "degrees, clockwise from north");
    AddNumber(*command, "DISTANCE", options->distance, "metres");
    AddDatum(*command, "--datum", options->datum, "Datum of both positions");
    command->callback([options, &action] { action = [options] { return WriteDirect(*options); }; });
}

}  // namespace tessara::program
