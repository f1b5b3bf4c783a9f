// Enters a military grid reference piece by piece: before each letter the host gets the possible ones, for
// example to offer them in a list. The pieces are arguments: utmref_pieces 32 U P U 91603 34791
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

void WriteChoices(const char* name, tessara::IArray* list) {
    std::cout << name << ':';
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        std::cout << ' ' << tessara::IRef<tessara::ITessaraString>(list->GetAt(i))->GetText();
    std::cout << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    // The six pieces; those not entered yet are empty.
    tessara::IRef<tessara::ITessaraString> pieces[6];
    for (int i = 0; i < 6; ++i) {
        pieces[i] = tessara::IRef<tessara::ITessaraString>(tessara::NewObject<tessara::host::Text>());
        if (i + 1 < argc) pieces[i]->AssignText(argv[i + 1]);
    }
    const auto& [zone, band, column, row, easting, northing] = pieces;

    const tessara::IRef checker = tessara::CreateClassCoordCheckerUTMREF();
    const tessara::IRef list = tessara::CreateClassArray();
    checker->GetBandList(list);
    WriteChoices("bands", list);
    if (!checker->GetColumnList(list, tessara::DATUM_WGS84, zone, band, column, row)) return 1;
    WriteChoices("columns", list);
    if (!checker->GetRowList(list, tessara::DATUM_WGS84, zone, band, column, row)) return 1;
    WriteChoices("rows", list);

    // All pieces together make a record on the datum of the target.
    tessara::CKoord record(tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTMREF));
    if (!checker->ComposeCoord(zone, band, column, row, easting, northing, &record)) {
        std::cout << "not complete, or no such reference\n";
        return 1;
    }
    const tessara::IRef coord = tessara::CreateClassCoord();
    const tessara::IRef corner = tessara::CreateClassCoordGeographic();
    tessara::IRef<tessara::ICoordInternal>(coord)->SetKoord(&record);
    if (!coord->GetGeographic(corner)) return 1;
    std::cout << std::fixed << std::setprecision(5) << corner->GetLatitude() << ' ' << corner->GetLongitude()
              << '\n';
}
