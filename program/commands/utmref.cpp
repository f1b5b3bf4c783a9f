// tessara utmref
#include <algorithm>
#include <iostream>
#include <memory>
#include <vector>

#include "commands/arguments.h"
#include "commands/commands.h"
#include "conversion/made.h"
#include "conversion/names.h"
#include "conversion/quote.h"
#include "lines/words.h"
#include "run/toolkit_names.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

namespace tessara::program {
namespace {

constexpr const char* UTMREF_FOOTER =
    "Lists the choices for the next piece of a military grid reference: the zones, the bands, the columns of "
    "a\n"
    "zone and band, or the rows of a column. The exit status is 2 if a given piece does not exist.\n"
    "\n"
    "Examples:\n"
    "  tessara utmref 32 U      K L M N P Q\n"
    "  tessara utmref 32 U Q    U V A B C D E";

struct UtmrefOptions {
    std::string zone;
    std::string band;
    std::string column;
    std::string datum = "WGS84";
};

IRef<ITessaraString> MakeText(const std::string& text) {
    IRef<ITessaraString> made = Made<ITessaraString>(NewObject<host::Text>());
    made->AssignText(text.c_str());
    return made;
}

// The choices for the piece after `pieces`; empty if one of them does not exist.
std::vector<std::string> ChoicesBehind(const std::vector<std::string>& pieces, std::int32_t datum) {
    const IRef<ICoordCheckerUTMREF> checker = Made(CreateClassCoordCheckerUTMREF());
    const IRef<IArray> list = Made(CreateClassArray());
    const auto text = [&pieces](std::size_t i) { return MakeText(i < pieces.size() ? pieces[i] : ""); };
    const IRef<ITessaraString> zone = text(0), band = text(1), column = text(2), row = text(3);
    switch (pieces.size()) {
        case 0:
            checker->GetZoneList(list.Get());
            break;
        case 1:
            checker->GetBandList(list.Get());
            break;
        case 2:
            checker->GetColumnList(list.Get(), datum, zone.Get(), band.Get(), column.Get(), row.Get());
            break;
        default:
            checker->GetRowList(list.Get(), datum, zone.Get(), band.Get(), column.Get(), row.Get());
    }
    std::vector<std::string> choices;
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        choices.emplace_back(Made(IRef<ITessaraString>(list->GetAt(i)))->GetText());
    return choices;
}

// In upper case and without leading zeros: zone 032 is 32.
std::string AsListed(std::string piece) {
    piece.erase(0, std::min(piece.find_first_not_of('0'), piece.size()));
    for (char& c : piece) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return piece;
}

ExitCode WriteChoices(const UtmrefOptions& options) {
    static constexpr const char* NAMES[] = {"zone", "band", "column"};
    const std::int32_t datum = *DatumByName(options.datum);
    std::vector<std::string> pieces;
    for (const std::string& piece : {options.zone, options.band, options.column}) {
        if (piece.empty()) break;
        const std::vector<std::string> choices = ChoicesBehind(pieces, datum);
        if (std::find(choices.begin(), choices.end(), AsListed(piece)) == choices.end()) {
            std::cerr << "tessara: "
                      << "unknown " << NAMES[pieces.size()] << ' ' << Quote(piece)
                      << (pieces.empty() ? "" : " after " + Joined(pieces)) << "; expected one of "
                      << Joined(choices) << '\n';
            return EXIT_USAGE;
        }
        pieces.push_back(piece);
    }
    std::cout << Joined(ChoicesBehind(pieces, datum)) << '\n';
    return EXIT_DONE;
}

}  // namespace

void AddUtmref(CLI::App& program, Action& action) {
    Command command(program, "utmref", "Lists the choices for the next piece of a UTMREF", UTMREF_FOOTER);
    const auto options = std::make_shared<UtmrefOptions>();
    command.Add("ZONE", options->zone, "Zone, 1 to 60").Type("");
    command.Add("BAND", options->band, "Letter of the latitude band").Type("");
    command.Add("COLUMN", options->column, "Letter of the 100 km column").Type("");
    AddDatum(command, "--datum", options->datum, "Datum of the reference");
    command.OnCall(action, [options] { return [options] { return WriteChoices(*options); }; });
}

}  // namespace tessara::program
