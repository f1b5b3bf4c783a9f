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

constexpr const char* DISTANCE_FOOTER =
    R"(Writes the length of the geodesic in metres, its azimuth at the first position and the azimuth back at the
second position, both in degrees clockwise from north. For nearly antipodal positions the iteration may not
converge; the exit status is 1 then.

Positions are degrees, positive north and east, or any text that `tessara convert --from auto` reads. A line of a
file has four numbers, or a position in one or two columns separated by tabs, semicolons or commas, or two
positions between blanks and nothing else. Input with several meanings is rejected.

Examples:
  tessara distance 40.64 -73.78 51.47 -0.45    from New York to London
  tessara distance --json 40.64 -73.78 51.47 -0.45
  tessara distance 32UPU9160234791 "52°31'12\"N 13°24'18\"E"
  tessara distance 32U 691602 5334791 33U 391800 5820000
  tessara distance --file legs.txt             reads lines)";

const NumberInput DISTANCE_INPUT{2,
                                 {{"latitude1", WrongLatitude},
                                  {"longitude1", WrongLongitude},
                                  {"latitude2", WrongLatitude},
                                  {"longitude2", WrongLongitude}}};

// The interfaces have no geodesic problem; the kernel does.
ExitCode WriteDistances(const NumberArguments& arguments) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(arguments.datum));
    const auto compute = [&axes](const std::vector<double>& n, std::vector<Field>* results) -> std::string {
        const GeodesicResult way = Geodesic_InverseCore(n[0], n[1], n[2], n[3], axes[0], axes[1]);
        if (way.distance < 0.0) return "the iteration for the geodesic does not converge";
        results->push_back({"distance", way.distance, METRE_DECIMALS});
        results->push_back(AzimuthField("azimuth1", way.azimuth12));
        results->push_back(AzimuthField("azimuth2", way.azimuth21));
        return {};
    };
    return Compute(arguments, DISTANCE_INPUT, compute);
}

}  // namespace

void AddDistance(CLI::App& program, Action& action) {
    Command command(program, "distance", "Computes the distance and the azimuths between two positions",
                    DISTANCE_FOOTER);
    const auto arguments = std::make_shared<NumberArguments>();
    AddNumbers(command, *arguments, "POSITION1 POSITION2", "Two positions");
    command.OnCall(action, [arguments, command] {
        ReadNumbers(command, DISTANCE_INPUT, arguments.get());
        return [arguments] { return WriteDistances(*arguments); };
    });
}

}  // namespace tessara::program
