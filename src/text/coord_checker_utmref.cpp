#include "text/coord_checker_utmref.h"

#include <array>

#include "frame/tessara_string.h"
#include "objects/koord_access.h"
#include "tessara/array.h"
#include "tessara/ref.h"
#include "text/text_of.h"
#include "text/utmref_pieces.h"

namespace tessara {
namespace {

using Choices = std::vector<std::string>;
using FindChoices = bool (*)(std::int32_t datum, const UtmrefPieces& pieces, Choices* choices);

// Appends the choices to a list; false without memory for one of them.
bool Fill(const Choices& choices, const IRef<IArray>& list) {
    for (const std::string& choice : choices) {
        const IRef<ITessaraString> text(NewObject<TessaraString>());
        if (!text.IsValid()) return false;
        text->AssignText(choice.c_str());
        list->Add(text.Get());
    }
    return true;
}

bool Refill(const Choices& choices, IArray* list) {
    const IRef<IArray> target(list);
    if (!target.IsValid()) return false;
    target->Clear();
    return Fill(choices, target);
}

bool RefillFor(FindChoices find, std::int32_t datum, const UtmrefPieces& pieces, IArray* list) {
    Choices choices;
    const bool exist = find(datum, pieces, &choices);
    return Refill(choices, list) && exist;
}

bool RefillForTexts(FindChoices find, std::int32_t datum, const std::array<ITessaraString*, 4>& texts,
                    IArray* list) {
    std::array<std::string, 4> pieces;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (!TextOf(texts[i], &pieces[i])) return false;
    }
    return RefillFor(find, datum, {pieces[0], pieces[1], pieces[2], pieces[3], {}, {}}, list);
}

bool RefillForCoord(FindChoices find, ICoord* coord, IArray* list) {
    CKoord koord;
    UtmrefPieces pieces;
    if (!KoordFromCoord(coord, &koord) || !Utmref_Split(koord, &pieces)) return false;
    return RefillFor(find, static_cast<std::int32_t>(koord.datum), pieces, list);
}

}  // namespace

bool CoordCheckerUTMREF::CheckCoord(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && Utmref_HasExistingPieces(koord);
}

bool CoordCheckerUTMREF::GetZoneList(IArray* list) {
    return Refill(Utmref_ZoneChoices(), list);
}

bool CoordCheckerUTMREF::GetBandList(IArray* list) {
    return Refill(Utmref_BandChoices(), list);
}

bool CoordCheckerUTMREF::GetColumnList(IArray* list, std::int32_t datum, ITessaraString* zone,
                                       ITessaraString* band, ITessaraString* column, ITessaraString* row) {
    return RefillForTexts(Utmref_ColumnChoices, datum, {zone, band, column, row}, list);
}

bool CoordCheckerUTMREF::GetColumnListOf(IArray* list, ICoord* coord) {
    return RefillForCoord(Utmref_ColumnChoices, coord, list);
}

bool CoordCheckerUTMREF::GetRowList(IArray* list, std::int32_t datum, ITessaraString* zone,
                                    ITessaraString* band, ITessaraString* column, ITessaraString* row) {
    return RefillForTexts(Utmref_RowChoices, datum, {zone, band, column, row}, list);
}

bool CoordCheckerUTMREF::GetRowListOf(IArray* list, ICoord* coord) {
    return RefillForCoord(Utmref_RowChoices, coord, list);
}

bool CoordCheckerUTMREF::SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band,
                                    ITessaraString* column, ITessaraString* row, ITessaraString* easting,
                                    ITessaraString* northing) {
    CKoord koord;
    UtmrefPieces pieces;
    if (!KoordFromCoord(coord, &koord) || !Utmref_Split(koord, &pieces)) return false;
    const std::array<IRef<ITessaraString>, 6> texts{
        IRef<ITessaraString>(zone), IRef<ITessaraString>(band),    IRef<ITessaraString>(column),
        IRef<ITessaraString>(row),  IRef<ITessaraString>(easting), IRef<ITessaraString>(northing)};
    for (const IRef<ITessaraString>& text : texts) {
        if (!text.IsValid()) return false;
    }
    texts[0]->AssignText(pieces.zone.c_str());
    texts[1]->AssignText(pieces.band.c_str());
    texts[2]->AssignText(pieces.column.c_str());
    texts[3]->AssignText(pieces.row.c_str());
    texts[4]->AssignText(pieces.easting.c_str());
    texts[5]->AssignText(pieces.northing.c_str());
    return true;
}

bool CoordCheckerUTMREF::ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                                      ITessaraString* row, ITessaraString* easting, ITessaraString* northing,
                                      CKoord* target) {
    UtmrefPieces pieces;
    const bool haveTexts = TextOf(zone, &pieces.zone) && TextOf(band, &pieces.band) &&
                           TextOf(column, &pieces.column) && TextOf(row, &pieces.row) &&
                           TextOf(easting, &pieces.easting) && TextOf(northing, &pieces.northing);
    return haveTexts && target != nullptr && Utmref_Compose(pieces, target);
}

ICoordCheckerUTMREF* CreateClassCoordCheckerUTMREF() {
    return NewObject<CoordCheckerUTMREF>();
}

}  // namespace tessara
