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

constexpr const char* DIRECT_FOOTER =
    R"(Writes the latitude and longitude of the position at the given azimuth and distance, and the azimuth back
from there, all in degrees. Azimuths count clockwise from north.

The position is degrees, positive north and east, or any text that `tessara convert --from auto` reads. A line of
a file has four numbers, or columns separated by tabs, semicolons or commas, one or two of them for the position,
or a position and two numbers between blanks and nothing else. Input with several meanings is rejected.

Examples:
  tessara direct 40.64 -73.78 51.4 5553886    from New York towards London
  tessara direct --json 40.64 -73.78 51.4 5553886
  tessara direct 32UPU9160234791 51.4 1000
  tessara direct --file rays.txt              reads lines)";

const NumberInput DIRECT_INPUT{1,
                               {{"latitude1", WrongLatitude},
                                {"longitude1", WrongLongitude},
                                {"azimuth1", WrongNumber},
                                {"distance", WrongNumber}}};

// The interfaces have no geodesic problem; the kernel does.
ExitCode WriteDirect(const NumberArguments& arguments) {
    double axes[2];
    Geodesic_LoadAxes(axes, *DatumByName(arguments.datum));
    const auto compute = [&axes](const std::vector<double>& n, std::vector<Field>* results) -> std::string {
        const GeodesicResult end = Geodesic_DirectCore(n[0], n[1], n[3], n[2], axes[0], axes[1]);
        if (!std::isfinite(end.latitude) || !std::isfinite(end.longitude))
            return "cannot compute the position";
        results->push_back({"latitude2", end.latitude, DEGREE_DECIMALS});
        results->push_back({"longitude2", std::remainder(end.longitude, 360.0), DEGREE_DECIMALS});
        results->push_back(AzimuthField("azimuth2", end.backAzimuth));
        return {};
    };
    return Compute(arguments, DIRECT_INPUT, compute);
}

}  // namespace

void AddDirect(CLI::App& program, Action& action) {
    Command command(program, "direct", "Computes the position at an azimuth and a distance from another",
                    DIRECT_FOOTER);
    const auto arguments = std::make_shared<NumberArguments>();
    AddNumbers(command, *arguments, "POSITION AZIMUTH DISTANCE",
               "Position; azimuth in degrees clockwise from north; distance in metres");
    command.OnCall(action, [arguments, command] {
        ReadNumbers(command, DIRECT_INPUT, arguments.get());
        return [arguments] { return WriteDirect(*arguments); };
    });
}

}  // namespace tessara::program
