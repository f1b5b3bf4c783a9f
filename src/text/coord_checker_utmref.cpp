#include "text/coord_checker_utmref.h"

#include <array>
#include <exception>

#include "frame/tessara_string.h"
#include "objects/koord_access.h"
#include "records/utmref_squares.h"
#include "tessara/array.h"
#include "tessara/ref.h"
#include "text/text_of.h"
#include "text/utmref_pieces.h"

namespace tessara {
namespace {

using Choices = std::vector<std::string>;
using FindChoices = bool (*)(std::int32_t datum, const UtmrefPieces& pieces, Choices* choices);

// Appends the choices to a list; false if memory runs out.
bool Fill(const Choices& choices, const IRef<IArray>& list) try {
    for (const std::string& choice : choices) {
        const IRef<ITessaraString> text(NewObject<TessaraString>());
        if (!text.IsValid()) return false;
        text->AssignText(choice.c_str());
        list->Add(text.Get());
    }
    return true;
} catch (const std::exception&) {
    return false;
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

// Holds texts and reads or writes them all. Several of them may be the same object.
template <std::size_t COUNT>
class Texts {
  public:
    explicit Texts(const std::array<ITessaraString*, COUNT>& texts) {
        for (std::size_t i = 0; i < COUNT; ++i)
            held_[i] = IRef<ITessaraString>(texts[i]);
    }

    // False if one of them is missing or isn't a text.
    bool Read(const std::array<std::string*, COUNT>& contents) const {
        for (std::size_t i = 0; i < COUNT; ++i) {
            if (!TextOf(held_[i].Get(), contents[i])) return false;
        }
        return true;
    }

    // False, and none is written, if one of them is missing.
    bool Write(const std::array<const std::string*, COUNT>& contents) const {
        for (const IRef<ITessaraString>& text : held_) {
            if (!text.IsValid()) return false;
        }
        for (std::size_t i = 0; i < COUNT; ++i)
            held_[i]->AssignText(contents[i]->c_str());
        return true;
    }

  private:
    std::array<IRef<ITessaraString>, COUNT> held_;
};

bool RefillForTexts(FindChoices find, std::int32_t datum, const Texts<4>& texts, IArray* list) try {
    UtmrefPieces pieces;
    return texts.Read({&pieces.zone, &pieces.band, &pieces.column, &pieces.row}) &&
           RefillFor(find, datum, pieces, list);
} catch (const std::exception&) {
    return false;
}

bool RefillForCoord(FindChoices find, ICoord* coord, IArray* list) try {
    CKoord koord;
    UtmrefPieces pieces;
    if (!KoordFromCoord(coord, &koord) || !utmref::Split(koord, &pieces)) return false;
    return RefillFor(find, static_cast<std::int32_t>(koord.datum), pieces, list);
} catch (const std::exception&) {
    return false;
}

}  // namespace

bool CoordCheckerUTMREF::CheckCoord(ICoord* coord) {
    CKoord koord;
    return KoordFromCoord(coord, &koord) && utmref::NamesSquare(koord);
}

bool CoordCheckerUTMREF::GetZoneList(IArray* list) try {
    return Refill(utmref::ZoneChoices(), list);
} catch (const std::exception&) {
    return false;
}

bool CoordCheckerUTMREF::GetBandList(IArray* list) try {
    return Refill(utmref::BandChoices(), list);
} catch (const std::exception&) {
    return false;
}

bool CoordCheckerUTMREF::GetColumnList(IArray* list, std::int32_t datum, ITessaraString* zone,
                                       ITessaraString* band, ITessaraString* column, ITessaraString* row) {
    return RefillForTexts(utmref::ColumnChoices, datum, Texts<4>({zone, band, column, row}), list);
}

bool CoordCheckerUTMREF::GetColumnListOf(IArray* list, ICoord* coord) {
    return RefillForCoord(utmref::ColumnChoices, coord, list);
}

bool CoordCheckerUTMREF::GetRowList(IArray* list, std::int32_t datum, ITessaraString* zone,
                                    ITessaraString* band, ITessaraString* column, ITessaraString* row) {
    return RefillForTexts(utmref::RowChoices, datum, Texts<4>({zone, band, column, row}), list);
}

bool CoordCheckerUTMREF::GetRowListOf(IArray* list, ICoord* coord) {
    return RefillForCoord(utmref::RowChoices, coord, list);
}

bool CoordCheckerUTMREF::SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band,
                                    ITessaraString* column, ITessaraString* row, ITessaraString* easting,
                                    ITessaraString* northing) try {
    const Texts<6> texts({zone, band, column, row, easting, northing});
    CKoord koord;
    UtmrefPieces pieces;
    return KoordFromCoord(coord, &koord) && utmref::Split(koord, &pieces) &&
           texts.Write(
               {&pieces.zone, &pieces.band, &pieces.column, &pieces.row, &pieces.easting, &pieces.northing});
} catch (const std::exception&) {
    return false;
}

bool CoordCheckerUTMREF::ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                                      ITessaraString* row, ITessaraString* easting, ITessaraString* northing,
                                      CKoord* target) try {
    const Texts<6> texts({zone, band, column, row, easting, northing});
    UtmrefPieces pieces;
    const bool haveTexts = texts.Read(
        {&pieces.zone, &pieces.band, &pieces.column, &pieces.row, &pieces.easting, &pieces.northing});
    return haveTexts && target != nullptr && utmref::Compose(pieces, target);
} catch (const std::exception&) {
    return false;
}

ICoordCheckerUTMREF* CreateClassCoordCheckerUTMREF() {
    return NewObject<CoordCheckerUTMREF>();
}

}  // namespace tessara
