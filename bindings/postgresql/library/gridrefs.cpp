// Military references as numbers. From the highest bits down: zone, band, the two letters of the square, five
// pairs of digits (easting, northing) from the coarsest to the finest, and how many pairs count. So the
// references in a square are a range of numbers, which a B-tree finds at once.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <utility>

#include "degrees.h"
#include "guard.h"
#include "records.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "typed.h"

namespace tessara::postgresql {
namespace {

constexpr int PAIR_COUNT = 5;
constexpr unsigned PAIR_BITS = 7;
constexpr unsigned COUNT_BITS = 3;
constexpr unsigned LETTER_BITS = 5;
constexpr unsigned DIGITS_AT = COUNT_BITS;
constexpr unsigned ROW_AT = DIGITS_AT + PAIR_COUNT * PAIR_BITS;
constexpr unsigned COLUMN_AT = ROW_AT + LETTER_BITS;
constexpr unsigned BAND_AT = COLUMN_AT + LETTER_BITS;
constexpr unsigned ZONE_AT = BAND_AT + LETTER_BITS;
constexpr std::uint64_t LAST_PAIR = 99;

constexpr std::array SIDES{100000, 10000, 1000, 100, 10, 1};  // by the number of pairs

struct Parts {
    int zone = 0;
    char band = 'A';
    char column = 'A';
    char row = 'A';
    std::array<int, PAIR_COUNT> pairs{};  // 10 times the digit of the easting and that of the northing
    int count = 0;
};

unsigned PairAt(int pair) {
    return DIGITS_AT + static_cast<unsigned>(PAIR_COUNT - 1 - pair) * PAIR_BITS;
}

// Without digits.
TessaraGridref PackSquare(int zone, char band, char column, char row) {
    const auto letter = [](char c) { return static_cast<std::uint64_t>(c - 'A'); };
    return static_cast<std::uint64_t>(zone) << ZONE_AT | letter(band) << BAND_AT |
           letter(column) << COLUMN_AT | letter(row) << ROW_AT;
}

TessaraGridref Pack(const Parts& parts) {
    TessaraGridref packed =
        PackSquare(parts.zone, parts.band, parts.column, parts.row) | static_cast<std::uint64_t>(parts.count);
    for (int k = 0; k < parts.count; ++k)
        packed |= static_cast<std::uint64_t>(parts.pairs[static_cast<std::size_t>(k)]) << PairAt(k);
    return packed;
}

Parts Unpack(TessaraGridref packed) {
    const auto bits = [packed](unsigned at, unsigned count) {
        return static_cast<int>(packed >> at & ((std::uint64_t{1} << count) - 1));
    };
    const auto letter = [&](unsigned at) { return static_cast<char>('A' + bits(at, LETTER_BITS)); };
    Parts parts{static_cast<int>(packed >> ZONE_AT),
                letter(BAND_AT),
                letter(COLUMN_AT),
                letter(ROW_AT),
                {},
                bits(0, COUNT_BITS)};
    for (int k = 0; k < PAIR_COUNT; ++k)
        parts.pairs[static_cast<std::size_t>(k)] = bits(PairAt(k), PAIR_BITS);
    return parts;
}

// The digits of a number below 100, each at the place of its pair.
constexpr auto TWO_DIGITS = [] {
    std::array<std::uint16_t, 100> digits{};
    for (unsigned number = 0; number < digits.size(); ++number)
        digits[number] = static_cast<std::uint16_t>(number / 10 << PAIR_BITS | number % 10);
    return digits;
}();

// The five digits of whole metres in a square, from the lowest bit on.
std::uint64_t SpreadDigits(std::int32_t metres) {
    const auto whole = static_cast<std::uint32_t>(metres);
    return std::uint64_t{whole / 10000} << 4 * PAIR_BITS |
           static_cast<std::uint64_t>(TWO_DIGITS[whole / 100 % 100]) << 2 * PAIR_BITS |
           TWO_DIGITS[whole % 100];
}

// The reference of so many pairs of digits that a record has. No pair exceeds 99, so none carries into
// another.
TessaraGridref PackPayload(const UtmrefPayload& p, int count) {
    const std::uint64_t pairs = SpreadDigits(p.easting) * 10 + SpreadDigits(p.northing);
    const unsigned dropped = static_cast<unsigned>(PAIR_COUNT - count) * PAIR_BITS;
    const TessaraGridref square = PackSquare(p.zone, p.band, p.column, p.row);
    return square | pairs >> dropped << dropped << DIGITS_AT | static_cast<std::uint64_t>(count);
}

// Of the south-western corner.
UtmrefPayload PayloadOf(const Parts& parts) {
    UtmrefPayload p{};
    p.wantedZone = NO_WANTED_ZONE;
    p.zone = static_cast<std::int16_t>(parts.zone);
    p.band = parts.band;
    p.column = parts.column;
    p.row = parts.row;
    for (const int pair : parts.pairs) {
        p.easting = p.easting * 10 + pair / 10;
        p.northing = p.northing * 10 + pair % 10;
    }
    return p;
}

tagKOORD RecordOfParts(const Parts& parts) {
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    Store(record, PayloadOf(parts));
    return record;
}

UtmrefPayload Wanting(std::int16_t zone) {
    UtmrefPayload p{};
    p.wantedZone = zone;
    return p;
}

KoordStatus ToReference(double latitude, double longitude, UtmrefPayload* p) {
    *p = Wanting(NO_WANTED_ZONE);
    return ToUtmref(latitude, longitude, p);
}

// The reference of the square metre that a position lies in: references count whole metres, and a place of
// the grid with whole metres has its own.
KoordStatus ToSquareMetre(double latitude, double longitude, UtmrefPayload* p) {
    UtmPayload place{};
    place.wantedZone = NO_WANTED_ZONE;
    KoordStatus status = ToUtm(latitude, longitude, &place);
    if (status != KOORD_OK) return status;
    place.easting = std::floor(place.easting);
    place.northing = std::floor(place.northing);
    tagKOORD utm = MakeKoord(DATUM_WGS84, KOORD_UTM);
    Store(utm, place);
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
    Store(record, Wanting(place.zone));
    status = KoordConvert(&utm, &record);
    *p = Load<UtmrefPayload>(record);
    return status;
}

// Rounding to the metre leaves the square only where the rounded metre is the first of the next one.
bool MayHaveLeft(const UtmrefPayload& p, int side) {
    return p.easting % side == 0 || p.northing % side == 0;
}

// The number of pairs of a side; throws for a side that there isn't.
int CountOf(std::int32_t metres) {
    const auto* const found = std::find(SIDES.begin(), SIDES.end(), metres);
    if (found == SIDES.end())
        throw Thrown{TESSARA_WRONG_ARGUMENT,
                     "there are no squares of " + std::to_string(metres) + " m",
                     {},
                     "The sides of squares are 1, 10, 100, 1000, 10000 and 100000 metres."};
    return static_cast<int>(found - SIDES.begin());
}

TessaraGridref Coarser(Parts parts, int count) {
    parts.count = std::min(parts.count, count);
    return Pack(parts);
}

int CountOfReading(const toolkit::Reading& reading) {
    const auto side = static_cast<int>(std::lround(reading.northResolution));
    const auto* const found = std::find(SIDES.begin(), SIDES.end(), side);
    return found == SIDES.end() ? PAIR_COUNT : static_cast<int>(found - SIDES.begin());
}

}  // namespace

extern "C" {

bool Tessara_Gridref(double latitude, double longitude, TessaraGridref* gridref,
                     TessaraError* error) noexcept {
    UtmrefPayload p;
    const KoordStatus status = ToReference(latitude, longitude, &p);
    if (status != KOORD_OK) return NoPosition(latitude, longitude, status, error);
    *gridref = PackPayload(p, PAIR_COUNT);
    return true;
}

bool Tessara_Square(double latitude, double longitude, int32_t metres, TessaraGridref* gridref,
                    TessaraError* error) noexcept {
    return Guarded(error, [&] {
        const int count = CountOf(metres);
        UtmrefPayload p;
        KoordStatus status = ToReference(latitude, longitude, &p);
        if (status != KOORD_OK || MayHaveLeft(p, metres)) status = ToSquareMetre(latitude, longitude, &p);
        if (status != KOORD_OK) return NoPosition(latitude, longitude, status, error);
        *gridref = PackPayload(p, count);
        return true;
    });
}

bool Tessara_SquareAround(TessaraGridref gridref, int32_t metres, TessaraGridref* square,
                          TessaraError* error) noexcept {
    return Guarded(error, [&] {
        *square = Coarser(Unpack(gridref), CountOf(metres));
        return true;
    });
}

bool Tessara_ReadGridref(const char* text, TessaraGridref* gridref, TessaraError* error) noexcept {
    return Guarded(error, [&] {
        static const toolkit::TypedReader reader({{.datum = DATUM_WGS84, .system = KOORD_UTMREF}});
        const toolkit::TypedResult result = reader.Read(text);
        if (!result.IsRead()) throw WrongText("military reference", text, result.fault);
        const toolkit::Reading& reading = result.readings[0];
        *gridref = PackPayload(Load<UtmrefPayload>(reading.record), CountOfReading(reading));
        return true;
    });
}

void Tessara_WriteGridref(TessaraGridref gridref, char text[TESSARA_GRIDREF_SIZE]) noexcept {
    const Parts parts = Unpack(gridref);
    char* end = text;
    if (parts.zone >= 10) *end++ = static_cast<char>('0' + parts.zone / 10);
    *end++ = static_cast<char>('0' + parts.zone % 10);
    *end++ = parts.band;
    *end++ = parts.column;
    *end++ = parts.row;
    const auto first = parts.pairs.begin();
    std::for_each(first, first + parts.count, [&](int pair) { *end++ = static_cast<char>('0' + pair / 10); });
    std::for_each(first, first + parts.count, [&](int pair) { *end++ = static_cast<char>('0' + pair % 10); });
    *end = '\0';
}

bool Tessara_IsGridref(TessaraGridref bits) noexcept {
    const Parts parts = Unpack(bits);
    if (parts.zone < 1 || parts.zone > UTM_ZONE_COUNT || parts.count > PAIR_COUNT) return false;
    if (std::any_of(parts.pairs.begin(), parts.pairs.end(), [](int pair) { return pair > 99; })) return false;
    double degrees[2];
    return Pack(parts) == bits && ToDegrees(RecordOfParts(parts), degrees) == KOORD_OK;
}

TessaraGridref Tessara_LastIn(TessaraGridref square) noexcept {
    Parts parts = Unpack(square);
    std::fill(parts.pairs.begin() + parts.count, parts.pairs.end(), static_cast<int>(LAST_PAIR));
    parts.count = PAIR_COUNT;
    return Pack(parts);
}

int32_t Tessara_SideOf(TessaraGridref gridref) noexcept {
    return SIDES[static_cast<std::size_t>(Unpack(gridref).count)];
}

bool Tessara_PositionOfGridref(TessaraGridref gridref, TessaraPosition* position,
                               TessaraError* error) noexcept {
    return Guarded(error, [&] {
        static const RecordForm form(DATUM_WGS84, KOORD_UTMREF);
        *position = PositionOf(form.Canonical(RecordOfParts(Unpack(gridref))));
        return true;
    });
}

}  // extern "C"

}  // namespace tessara::postgresql
