// tessara direct
#include <cmath>
#include <memory>

#include "commands/arguments.h"
#include "commands/azimuth_field.h"
#include "commands/commands.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/positions.h"
#include "run/toolkit_names.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(Writes the latitude and longitude of the position at the given azimuth and distance, and the azimuth back
from there, all in degrees. Azimuths count clockwise from north.

Examples:
  tessara direct 40.64 -73.78 51.4 5553886    from New York towards London
  tessara direct --json 40.64 -73.78 51.4 5553886
  tessara direct --file rays.txt              reads lines LAT LON AZIMUTH DISTANCE)";

struct Options {
    NumberArguments numbers;
    std::string datum = "WGS84";
};

const std::vector<NumberColumn> COLUMNS{{"latitude1", WrongLatitude},
                                        {"longitude1", WrongLongitude},
                                        {"azimuth1", WrongNumber},
                                        {"distance", WrongNumber}};

// The interfaces have no geodesic problem; the kernel does.
ExitCode WriteDirect(const Options& options) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(options.datum));
    const auto compute = [&axes](const std::vector<double>& n, std::vector<Field>* results) -> std::string {
        const GeodesicResult end = Geodesic_DirectCore(n[0], n[1], n[3], n[2], axes[0], axes[1]);
        if (!std::isfinite(end.latitude) || !std::isfinite(end.longitude))
            return "cannot compute the position";
        results->push_back({"latitude2", end.latitude, DEGREE_DECIMALS});
        results->push_back({"longitude2", std::remainder(end.longitude, 360.0), DEGREE_DECIMALS});
        results->push_back(AzimuthField("azimuth2", end.backAzimuth));
        return {};
    };
    return Compute(options.numbers, {COLUMNS, {{"datum", options.datum, 0}}, compute});
}

}  // namespace

void AddDirect(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("direct", "Computes the position at an azimuth and a distance from another");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    AddNumbers(*command, options->numbers, "LAT LON AZIMUTH DISTANCE",
               "Position in degrees, positive north and east; azimuth in degrees clockwise from north; "
               "distance in metres");
    AddDatum(*command, "--datum", options->datum, "Datum of both positions");
    command->callback([options, &action] {
        if (const std::string wrong = WrongNumbers(options->numbers, COLUMNS); !wrong.empty())
            throw CLI::ValidationError("tessara direct", wrong);
        action = [options] { return WriteDirect(*options); };
    });
}

}  // namespace tessara::program
