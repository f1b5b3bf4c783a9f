// Military references that are entered piece by piece.
#include <array>
#include <nlohmann/json.hpp>

#include "conversion/made.h"
#include "exports.h"
#include "references.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"
#include "typed/judge.h"

namespace tessara::web {
namespace {

using Json = nlohmann::ordered_json;
using Texts = std::array<IRef<ITessaraString>, 6>;

// The pieces stand apart by tabs.
Texts Split(std::string_view pieces) {
    Texts texts;
    for (IRef<ITessaraString>& text : texts) {
        const std::size_t end = std::min(pieces.find('\t'), pieces.size());
        text = toolkit::Made<ITessaraString>(NewObject<host::Text>());
        text->AssignText(std::string(pieces.substr(0, end)).c_str());
        pieces.remove_prefix(std::min(end + 1, pieces.size()));
    }
    return texts;
}

Json AsJson(IArray* list) {
    Json choices = Json::array();
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        choices.push_back(toolkit::Made(IRef<ITessaraString>(list->GetAt(i)))->GetText());
    return choices;
}

}  // namespace

// What may follow the pieces that are there, and the position once they are complete.
TESSARA_EXPORT(militaryChoices)
Outcome MilitaryChoices(const char* pieces, std::size_t piecesSize, const char* datum,
                        std::size_t datumSize) {
    return Try([&] {
        const std::int32_t number = DatumOf(std::string(datum, datumSize));
        const Texts texts = Split(TextAt(pieces, piecesSize));
        const auto& [zone, band, column, row, easting, northing] = texts;
        const IRef<ICoordCheckerUTMREF> checker = toolkit::Made(CreateClassCoordCheckerUTMREF());
        const IRef<IArray> list = toolkit::Made(CreateClassArray());
        Json answer;
        checker->GetZoneList(list.Get());
        answer["zones"] = AsJson(list.Get());
        checker->GetBandList(list.Get());
        answer["bands"] = AsJson(list.Get());
        checker->GetColumnList(list.Get(), number, zone.Get(), band.Get(), column.Get(), row.Get());
        answer["columns"] = AsJson(list.Get());
        checker->GetRowList(list.Get(), number, zone.Get(), band.Get(), column.Get(), row.Get());
        answer["rows"] = AsJson(list.Get());
        CKoord record(MakeKoord(number, KOORD_UTMREF));
        GeodezPayload degrees{};
        if (checker->ComposeCoord(zone.Get(), band.Get(), column.Get(), row.Get(), easting.Get(),
                                  northing.Get(), &record) &&
            toolkit::DegreesOf(record, &degrees)) {
            answer["latitude"] = degrees.latitude;
            answer["longitude"] = degrees.longitude;
        }
        Answer() = answer.dump(-1, ' ', false, Json::error_handler_t::replace);
    });
}

}  // namespace tessara::web
