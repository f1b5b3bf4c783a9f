// tessara datums
#include <iostream>
#include <memory>

#include "commands/command.h"
#include "conversion/datum_descriptions.h"
#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "run/toolkit_names.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::program {
namespace {

constexpr const char* DATUMS_FOOTER =
    R"(Each line holds the number, name and ellipsoid of a datum, and its translation to WGS84 along x, y and z in
metres. A '-' stands for an ellipsoid without a name.

With --find or --describe, a tab and a description follow: the full name of the datum, the area of its
translation, and the accuracy there according to the EPSG registry. A translation has no rotation and no scale;
if an agency publishes seven parameters or a grid of shifts, those are more accurate.

Examples:
  tessara datums --find bessel        by ellipsoid
  tessara datums --find ethiopia      by country
  tessara datums --find 'africa arc'  by region and part of the name)";

struct DatumsOptions {
    std::string find;
    bool areDescribed = false;
};

// No interface has the ellipsoid or the translation of a datum; they come from the kernel.
void WriteDatum(std::int32_t datum, bool isDescribed) {
    const DatumRow& row = *Datum_Row(datum);
    const char* const ellipsoid = Ellipsoid_Name(static_cast<std::int32_t>(row.ellipsoid));
    std::cout << datum << ' ' << row.name << ' ' << (ellipsoid != nullptr ? ellipsoid : "-") << ' '
              << FormatNumber(row.dx) << ' ' << FormatNumber(row.dy) << ' ' << FormatNumber(row.dz);
    if (isDescribed) std::cout << '\t' << DatumLine(datum);
    std::cout << '\n';
}

ExitCode ListDatums(const DatumsOptions& options) {
    bool areAny = false;
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        if (!MatchesDatum(datum, options.find)) continue;
        WriteDatum(datum, options.areDescribed || !options.find.empty());
        areAny = true;
    }
    if (areAny) return EXIT_DONE;
    std::cerr << "tessara: no datum matches " << Quote(options.find)
              << " in name, ellipsoid, region or area\n";
    return EXIT_INCOMPLETE;
}

}  // namespace

void AddDatums(CLI::App& program, Action& action) {
    Command command(program, "datums", "Lists the geodetic datums", DATUMS_FOOTER);
    const auto options = std::make_shared<DatumsOptions>();
    command
        .Add("--find", options->find, "List datums with all these words in name, ellipsoid, region or area")
        .Type("WORDS");
    command.AddFlag("--describe", options->areDescribed,
                    "Add the full name, area and accuracy of each datum");
    command.OnCall(action, [options] { return [options] { return ListDatums(*options); }; });
}

}  // namespace tessara::program
