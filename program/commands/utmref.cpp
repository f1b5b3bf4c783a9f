// tessara utmref
#include <iostream>
#include <memory>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "conversion/names.h"
#include "files/toolkit_names.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

namespace tessara::program {
namespace {

constexpr const char* FOOTER =
    "Writes the choices for the next piece of a reference: the zones; the bands; the columns of a zone in a\n"
    "band; the rows in such a column. A choice that doesn't exist is wrong usage.\n"
    "\n"
    "Examples:\n"
    "  tessara utmref 32 U      K L M N P Q\n"
    "  tessara utmref 32 U Q    U V A B C D E";

struct Options {
    std::string zone;
    std::string band;
    std::string column;
    std::string datum = "WGS84";
};

IRef<ITessaraString> MakeText(const std::string& text) {
    IRef<ITessaraString> made(NewObject<host::Text>());
    made->AssignText(text.c_str());
    return made;
}

// Fills the list with the choices for the first piece that isn't given; false if one that is doesn't exist.
bool FindChoices(const Options& options, const IRef<IArray>& list) {
    const IRef<ICoordCheckerUTMREF> checker(CreateClassCoordCheckerUTMREF());
    const std::int32_t datum = *DatumByName(options.datum);
    const IRef<ITessaraString> zone = MakeText(options.zone);
    const IRef<ITessaraString> band = MakeText(options.band);
    const IRef<ITessaraString> column = MakeText(options.column);
    const IRef<ITessaraString> row = MakeText("");
    if (options.zone.empty()) return checker->GetZoneList(list.Get());
    // Without a band the columns are those of a default one: the zone exists if there are some.
    if (!checker->GetColumnList(list.Get(), datum, zone.Get(), band.Get(), column.Get(), row.Get()))
        return false;
    if (options.band.empty()) return checker->GetBandList(list.Get());
    if (options.column.empty()) return true;
    return checker->GetRowList(list.Get(), datum, zone.Get(), band.Get(), column.Get(), row.Get());
}

ExitCode WriteChoices(const Options& options) {
    const IRef<IArray> list(CreateClassArray());
    if (!FindChoices(options, list)) {
        std::cerr << "tessara: there is no such zone, band or column; without the last piece its choices are "
                     "listed\n";
        return EXIT_USAGE;
    }
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        std::cout << (i > 0 ? " " : "") << IRef<ITessaraString>(list->GetAt(i))->GetText();
    std::cout << '\n';
    return EXIT_DONE;
}

}  // namespace

void AddUtmref(CLI::App& program, Action& action) {
    CLI::App* const command =
        program.add_subcommand("utmref", "Lists what can follow the first pieces of a UTMREF");
    command->footer(FOOTER);
    const auto options = std::make_shared<Options>();
    command->add_option("ZONE", options->zone, "1 to 60")->type_name("");
    command->add_option("BAND", options->band, "The letter of the latitude band")->type_name("");
    command->add_option("COLUMN", options->column, "The letter of the 100 km column")->type_name("");
    AddDatum(*command, "--datum", options->datum, "Datum of the reference");
    command->callback([options, &action] { action = [options] { return WriteChoices(*options); }; });
}

}  // namespace tessara::program
