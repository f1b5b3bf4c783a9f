// A military grid reference that is entered piece by piece: before each letter the host knows which ones can
// follow, as for a list to choose from. The pieces stand on the command line: utmref_pieces 32 U P U 91603
// 34791
#include <iomanip>
#include <iostream>

#include "tessara/host/text.h"
#include "tessara/tessara.h"

using namespace tessara;

namespace {

void WriteChoices(const char* name, IArray* list) {
    std::cout << name << ':';
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        std::cout << ' ' << IRef<ITessaraString>(list->GetAt(i))->GetText();
    std::cout << '\n';
}

}  // namespace

int main(int argc, char** argv) {
    // The six pieces; what isn't entered yet is empty.
    IRef<ITessaraString> pieces[6];
    for (int i = 0; i < 6; ++i) {
        pieces[i] = IRef<ITessaraString>(NewObject<host::Text>());
        if (i + 1 < argc) pieces[i]->AssignText(argv[i + 1]);
    }
    const auto& [zone, band, column, row, easting, northing] = pieces;

    const IRef<ICoordCheckerUTMREF> checker(CreateClassCoordCheckerUTMREF());
    const IRef<IArray> list(CreateClassArray());
    checker->GetBandList(list.Get());
    WriteChoices("bands", list.Get());
    if (!checker->GetColumnList(list.Get(), DATUM_WGS84, zone.Get(), band.Get(), column.Get(), row.Get()))
        return 1;
    WriteChoices("columns", list.Get());
    if (!checker->GetRowList(list.Get(), DATUM_WGS84, zone.Get(), band.Get(), column.Get(), row.Get()))
        return 1;
    WriteChoices("rows", list.Get());

    // All pieces make a record on the datum that the record has.
    CKoord record(MakeKoord(DATUM_WGS84, KOORD_UTMREF));
    if (!checker->ComposeCoord(zone.Get(), band.Get(), column.Get(), row.Get(), easting.Get(), northing.Get(),
                               &record)) {
        std::cout << "not complete, or no such reference\n";
        return 1;
    }
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<ICoordGeographic> corner(CreateClassCoordGeographic());
    IRef<ICoordInternal>(coord)->SetKoord(&record);
    if (!coord->GetGeographic(corner.Get())) return 1;
    std::cout << std::fixed << std::setprecision(5) << corner->GetLatitude() << ' ' << corner->GetLongitude()
              << '\n';
}
