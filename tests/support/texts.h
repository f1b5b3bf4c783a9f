// Coordinates as text, for tests.
#pragma once

#include <string>

#include "support/coords.h"
#include "support/objects.h"
#include "tessara/coordinate_string.h"

namespace tessara::testing {

struct TextPair {
    std::string north;
    std::string east;

    bool operator==(const TextPair&) const = default;
};

inline std::ostream& operator<<(std::ostream& stream, const TextPair& texts) {
    return stream << '\'' << texts.north << "' '" << texts.east << '\'';
}

inline IRef<ICoordinateString> StringOf(const tagKOORD& record) {
    IRef<ICoordinateString> made(CreateClassCoordinateString());
    EXPECT_TRUE(made->SetCoord(CoordOf(record).Get()));
    return made;
}

// A text operation's result; "(false)" for a failure.
inline std::string TextFrom(bool (ICoordinateString::*operation)(ITessaraString*),
                            const IRef<ICoordinateString>& string) {
    const IRef<ITessaraString> text = MakeText("left over");
    return (string.Get()->*operation)(text.Get()) ? text->GetText() : "(false)";
}

inline TextPair PlainTextsOf(const IRef<ICoordinateString>& string) {
    return {TextFrom(&ICoordinateString::GetNorthText, string),
            TextFrom(&ICoordinateString::GetEastText, string)};
}

inline TextPair DisplayTextsOf(const IRef<ICoordinateString>& string) {
    return {TextFrom(&ICoordinateString::GetNorthDisplayText, string),
            TextFrom(&ICoordinateString::GetEastDisplayText, string)};
}

inline void SetResolution(const IRef<ICoordinateString>& string, double resolution) {
    EXPECT_TRUE(string->SetNorthPrecision(resolution));
    EXPECT_TRUE(string->SetEastPrecision(resolution));
}

// Both plain texts of a record in the default precision.
inline TextPair PlainTextsOf(const tagKOORD& record) {
    return PlainTextsOf(StringOf(record));
}

// Both plain texts, and the display texts, in one resolution.
inline TextPair PlainTextsOf(const tagKOORD& record, double resolution) {
    const IRef<ICoordinateString> string = StringOf(record);
    SetResolution(string, resolution);
    return PlainTextsOf(string);
}

inline TextPair DisplayTextsOf(const tagKOORD& record) {
    return DisplayTextsOf(StringOf(record));
}

inline TextPair DisplayTextsOf(const tagKOORD& record, double resolution) {
    const IRef<ICoordinateString> string = StringOf(record);
    SetResolution(string, resolution);
    return DisplayTextsOf(string);
}

inline CKoord KoordOf(const IRef<ICoordinateString>& string) {
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(string->GetCoord(coord.Get()));
    return tessara::KoordOf(coord);
}

inline bool Parse(const IRef<ICoordinateString>& string, std::int32_t system, const std::string& north,
                  const std::string& east, std::int32_t datum = DATUM_WGS84) {
    return string->ParseCoord(ReferenceOf(datum, system).Get(), MakeText(north.c_str()).Get(),
                              MakeText(east.c_str()).Get());
}

}  // namespace tessara::testing
