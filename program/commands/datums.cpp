// tessara datums
#include <iostream>
#include <memory>

#include "commands/commands.h"
#include "conversion/datum_descriptions.h"
#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "run/toolkit_names.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    R"(A line holds number, name, ellipsoid, and the translation from the datum to WGS84 along x, y and z in metres.
An ellipsoid without a name is written as '-'.

With --find or --describe a tab and a line for people follow: what the datum is called, where its translation
is for, and how well it fits there, which is what the EPSG registry gives for it. Three translations don't turn
and don't scale: where an agency publishes seven parameters or a grid, those are better.

Examples:
  tessara datums --find bessel        by the ellipsoid
  tessara datums --find ethiopia      by a country
  tessara datums --find 'africa arc'  by the region and a part of the name)";

struct Options {
    std::string find;
    bool areDescribed = false;
};

// No interface tells the ellipsoid or the translation of a datum: they come from the static kernel.
void WriteDatum(std::int32_t datum, bool isDescribed) {
    const DatumRow& row = *Datum_Row(datum);
    const char* const ellipsoid = Ellipsoid_Name(static_cast<std::int32_t>(row.ellipsoid));
    std::cout << datum << ' ' << row.name << ' ' << (ellipsoid != nullptr ? ellipsoid : "-") << ' '
              << FormatNumber(row.dx) << ' ' << FormatNumber(row.dy) << ' ' << FormatNumber(row.dz);
    if (isDescribed) std::cout << '\t' << DatumLine(datum);
    std::cout << '\n';
}

ExitCode ListDatums(const Options& options) {
    bool areAny = false;
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        if (!MatchesDatum(datum, options.find)) continue;
        WriteDatum(datum, options.areDescribed || !options.find.empty());
        areAny = true;
    }
    if (areAny) return EXIT_DONE;
    std::cerr << "tessara: no datum has " << Quote(options.find)
              << " in its name, ellipsoid, region or area\n";
    return EXIT_INCOMPLETE;
}

}  // namespace

void AddDatums(CLI::App& program, Action& action) {
    CLI::App* const command = program.add_subcommand("datums", "Lists the geodetic datums");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command
        ->add_option("--find", options->find,
                     "Only those with these words in name, ellipsoid, region or area")
        ->type_name("WORDS");
    command->add_flag("--describe", options->areDescribed,
                      "Say what each is called, where it is for, and how well it fits");
    command->callback([options, &action] { action = [options] { return ListDatums(*options); }; });
}

}  // namespace tessara::program
