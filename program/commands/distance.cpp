// tessara distance
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
    R"(Writes the length of the geodesic in metres, its azimuth at the first position and the azimuth back at the
second position, both in degrees clockwise from north. For nearly antipodal positions the iteration may not
converge; the exit status is 1 then.

Examples:
  tessara distance 40.64 -73.78 51.47 -0.45    from New York to London
  tessara distance --json 40.64 -73.78 51.47 -0.45
  tessara distance --file legs.txt             reads lines LAT1 LON1 LAT2 LON2)";

struct Options {
    NumberArguments numbers;
    std::string datum = "WGS84";
};

const std::vector<NumberColumn> COLUMNS{{"latitude1", WrongLatitude},
                                        {"longitude1", WrongLongitude},
                                        {"latitude2", WrongLatitude},
                                        {"longitude2", WrongLongitude}};

// The interfaces have no geodesic problem; the kernel does.
ExitCode WriteDistances(const Options& options) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(options.datum));
    const auto compute = [&axes](const std::vector<double>& n, std::vector<Field>* results) -> std::string {
        const GeodesicResult way = Geodesic_InverseCore(n[0], n[1], n[2], n[3], axes[0], axes[1]);
        if (way.distance < 0.0) return "the iteration for the geodesic does not converge";
        results->push_back({"distance", way.distance, METRE_DECIMALS});
        results->push_back(AzimuthField("azimuth1", way.azimuth12));
        results->push_back(AzimuthField("azimuth2", way.azimuth21));
        return {};
    };
    return Compute(options.numbers, {COLUMNS, {{"datum", options.datum, 0}}, compute});
}

}  // namespace

void AddDistance(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("distance", "Computes the distance and the azimuths between two positions");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    AddNumbers(*command, options->numbers, "LAT1 LON1 LAT2 LON2", "Degrees, positive north and east");
    AddDatum(*command, "--datum", options->datum, "Datum of both positions");
    command->callback([options, &action] {
        if (const std::string wrong = WrongNumbers(options->numbers, COLUMNS); !wrong.empty())
            throw CLI::ValidationError("tessara distance", wrong);
        action = [options] { return WriteDistances(*options); };
    });
}

}  // namespace tessara::program
