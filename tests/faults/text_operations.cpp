#include "faults/operation.h"

namespace tessara::testing {
namespace {

using Scene = FaultScene;
using enum OutOfMemory;

// A list of texts of the lettered squares, around those that are entered.
template <auto Fill>
bool FillsAround(Scene& s) {
    return (s.utmrefChecker.Get()->*Fill)(s.list.Get(), DATUM_WGS84, s.zone.Get(), s.band.Get(),
                                          s.column.Get(), s.row.Get());
}

template <auto Write>
bool Writes(Scene& s) {
    return (s.string.Get()->*Write)(s.text.Get());
}

// To the nanometre: a text with more than a std::string has room for inside.
template <auto Write>
bool WritesFinely(Scene& s) {
    return (s.fineString.Get()->*Write)(s.text.Get()) && s.text->GetLength() > 15;
}

bool Composes(Scene& s, const IRef<ITessaraString>& zone) {
    CKoord koord(MakeKoord(DATUM_WGS84, KOORD_UTMREF));
    return s.utmrefChecker->ComposeCoord(zone.Get(), s.band.Get(), s.column.Get(), s.row.Get(),
                                         s.easting.Get(), s.northing.Get(), &koord);
}

constexpr FaultyOperation TEXT_OPERATIONS[] = {
    {"ICoordinateString::SetCoord", NEVER, [](Scene& s) { return s.string->SetCoord(s.utm.Get()); }},
    {"ICoordinateString::GetCoord", NEVER, [](Scene& s) { return s.string->GetCoord(s.out.Get()); }},
    {"ICoordinateString::ParseCoord", NEVER,
     [](Scene& s) { return s.string->ParseCoord(s.degreeReference.Get(), s.north.Get(), s.east.Get()); }},
    {"ICoordinateString::ParseCoord of long texts", TOLD,
     [](Scene& s) {
         return s.string->ParseCoord(s.degreeReference.Get(), s.longNorth.Get(), s.longEast.Get());
     }},
    {"ICoordinateString::SetNorthPrecision", NEVER,
     [](Scene& s) { return s.string->SetNorthPrecision(0.1); }},
    {"ICoordinateString::SetEastPrecision", NEVER, [](Scene& s) { return s.string->SetEastPrecision(0.1); }},
    {"ICoordinateString::SetDefaultNorthPrecision", NEVER,
     [](Scene& s) { return s.string->SetDefaultNorthPrecision(); }},
    {"ICoordinateString::SetDefaultEastPrecision", NEVER,
     [](Scene& s) { return s.string->SetDefaultEastPrecision(); }},
    {"ICoordinateString::GetNorthText", NEVER, Writes<&ICoordinateString::GetNorthText>},
    {"ICoordinateString::GetNorthText of many decimals", TOLD,
     WritesFinely<&ICoordinateString::GetNorthText>},
    {"ICoordinateString::GetEastText", NEVER, Writes<&ICoordinateString::GetEastText>},
    {"ICoordinateString::GetEastText of many decimals", TOLD, WritesFinely<&ICoordinateString::GetEastText>},
    {"ICoordinateString::GetCartesianTexts", TOLD,
     [](Scene& s) { return s.string->GetCartesianTexts(s.text.Get(), s.text2.Get(), s.text3.Get()); }},
    {"ICoordinateString::GetGeographicTexts", TOLD,
     [](Scene& s) { return s.string->GetGeographicTexts(s.text.Get(), s.text2.Get(), s.text3.Get()); }},
    {"ICoordinateString::GetNorthDisplayText", NEVER, Writes<&ICoordinateString::GetNorthDisplayText>},
    {"ICoordinateString::GetEastDisplayText", NEVER, Writes<&ICoordinateString::GetEastDisplayText>},
    {"ICoordinateString::GetEastDisplayText of many decimals", TOLD,
     WritesFinely<&ICoordinateString::GetEastDisplayText>},

    {"ICoordinateChecker::CheckCoord", NEVER, [](Scene& s) { return s.checker->CheckCoord(s.utm.Get()); }},
    {"ICoordinateChecker::CheckInSystemArea", NEVER,
     [](Scene& s) { return s.checker->CheckInSystemArea(s.utm.Get()); }},
    {"ICoordinateChecker::CheckConvertible", NEVER,
     [](Scene& s) { return s.checker->CheckConvertible(s.utm.Get(), s.gk.Get()); }},

    {"ICoordCheckerUTMREF::CheckCoord", NEVER,
     [](Scene& s) { return s.utmrefChecker->CheckCoord(s.utmref.Get()); }},
    {"ICoordCheckerUTMREF::GetZoneList", TOLD,
     [](Scene& s) { return s.utmrefChecker->GetZoneList(s.list.Get()); }},
    {"ICoordCheckerUTMREF::GetBandList", TOLD,
     [](Scene& s) { return s.utmrefChecker->GetBandList(s.list.Get()); }},
    {"ICoordCheckerUTMREF::GetColumnList", TOLD, FillsAround<&ICoordCheckerUTMREF::GetColumnList>},
    {"ICoordCheckerUTMREF::GetColumnListOf", TOLD,
     [](Scene& s) { return s.utmrefChecker->GetColumnListOf(s.list.Get(), s.utmref.Get()); }},
    {"ICoordCheckerUTMREF::GetRowList", TOLD, FillsAround<&ICoordCheckerUTMREF::GetRowList>},
    {"ICoordCheckerUTMREF::GetRowListOf", TOLD,
     [](Scene& s) { return s.utmrefChecker->GetRowListOf(s.list.Get(), s.utmref.Get()); }},
    {"ICoordCheckerUTMREF::SplitCoord", NEVER,
     [](Scene& s) {
         return s.utmrefChecker->SplitCoord(s.utmref.Get(), s.text.Get(), s.text2.Get(), s.text3.Get(),
                                            s.text4.Get(), s.text5.Get(), s.text6.Get());
     }},
    {"ICoordCheckerUTMREF::ComposeCoord", NEVER, [](Scene& s) { return Composes(s, s.zone); }},
    {"ICoordCheckerUTMREF::ComposeCoord of a long text", TOLD,
     [](Scene& s) { return Composes(s, s.longZone); }},
};

}  // namespace

OperationTable TextOperations() {
    return TEXT_OPERATIONS;
}

}  // namespace tessara::testing
