// UTMREF positions piece by piece: arbitrary pieces to a record, a record to its pieces, and the lists of
// choices.
#include "fuzz/draw.h"
#include "tessara/coord_checker_utmref.h"

namespace tessara::fuzz {
namespace {

void CheckList(const IRef<ICoordCheckerUTMREF>& checker, const IRef<IArray>& list, bool isFilled) {
    if (!isFilled) Require(list->GetCount() == 0);
    for (std::uint32_t i = 0; i < list->GetCount(); ++i)
        Require(IRef<ITessaraString>(list->GetAt(i))->GetLength() > 0);
    Require(checker->GetBandList(list.Get()));
}

void List(const IRef<ICoordCheckerUTMREF>& checker, std::int32_t datum, ITessaraString* zone,
          ITessaraString* band, ITessaraString* column, ITessaraString* row) {
    const IRef<IArray> list(CreateClassArray());
    CheckList(checker, list, checker->GetColumnList(list.Get(), datum, zone, band, column, row));
    list->Clear();
    CheckList(checker, list, checker->GetRowList(list.Get(), datum, zone, band, column, row));
    Require(checker->GetZoneList(list.Get()));
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const IRef<ICoordCheckerUTMREF> checker(CreateClassCoordCheckerUTMREF());
    const std::int32_t datum = DrawDatum(bytes);
    const IRef<ICoord> coord =
        bytes.Below(2) == 0 ? CoordOf(DrawRecord(bytes, datum, KOORD_UTMREF)) : DrawCoord(bytes);
    IRef<ITessaraString> piece[6];
    for (IRef<ITessaraString>& text : piece)
        text = DrawText(bytes, 8);
    if (bytes.Below(2) == 0)
        checker->SplitCoord(coord.Get(), piece[0].Get(), piece[1].Get(), piece[2].Get(), piece[3].Get(),
                            piece[4].Get(), piece[5].Get());
    if (bytes.Below(2) == 0) piece[bytes.Below(6)] = DrawText(bytes, 4);
    if (bytes.Below(4) == 0) piece[bytes.Below(6)] = piece[bytes.Below(6)];

    List(checker, datum, piece[0].Get(), piece[1].Get(), piece[2].Get(), piece[3].Get());
    CKoord record(MakeKoord(datum, KOORD_UTMREF));
    if (checker->ComposeCoord(piece[0].Get(), piece[1].Get(), piece[2].Get(), piece[3].Get(), piece[4].Get(),
                              piece[5].Get(), &record))
        Require(record.type == KOORD_UTMREF);

    const IRef<IArray> list(CreateClassArray());
    checker->CheckCoord(coord.Get());
    checker->GetColumnListOf(list.Get(), coord.Get());
    checker->GetRowListOf(list.Get(), coord.Get());
    return 0;
}
