// Reads two texts as a position of any reference, and writes the texts of the result.
#include <string>

#include "fuzz/draw.h"
#include "tessara/coordinate_string.h"

namespace tessara::fuzz {
namespace {

void Write(const IRef<ICoordinateString>& string) {
    const IRef<ITessaraString> north = testing::MakeText(), east = testing::MakeText(),
                               third = testing::MakeText();
    const bool isNorth = string->GetNorthText(north.Get());
    const std::string text = north->GetText();
    Require(string->GetNorthText(north.Get()) == isNorth && text == north->GetText());
    string->GetEastText(east.Get());
    string->GetNorthDisplayText(north.Get());
    string->GetEastDisplayText(east.Get());
    string->GetCartesianTexts(north.Get(), east.Get(), third.Get());
    string->GetGeographicTexts(north.Get(), east.Get(), third.Get());
    // One text for all.
    string->GetGeographicTexts(north.Get(), north.Get(), north.Get());
}

void SetResolutions(ByteReader& bytes, const IRef<ICoordinateString>& string) {
    if (bytes.Below(2) == 0) string->SetNorthPrecision(bytes.Number());
    if (bytes.Below(2) == 0) string->SetEastPrecision(bytes.Number());
    if (bytes.Below(8) == 0) string->SetDefaultNorthPrecision();
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const std::int32_t datum = DrawDatum(bytes);
    const auto reference = tessara::testing::MakeHostReference(datum, DrawType(bytes));
    const IRef<ITessaraString> north = DrawText(bytes, 80);
    const IRef<ITessaraString> east = bytes.Below(4) == 0 ? north : DrawText(bytes, 80);
    const bool isParsed = string->ParseCoord(reference.Get(), north.Get(), east.Get());
    Write(string);
    SetResolutions(bytes, string);
    Write(string);

    const IRef<ICoord> coord(CreateClassCoord());
    Require(string->GetCoord(coord.Get()) || !isParsed);
    Require(string->SetCoord(coord.Get()) || !isParsed);
    string->SetCoord(DrawCoord(bytes).Get());
    Write(string);
    return 0;
}
