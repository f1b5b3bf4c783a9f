// Many military references as texts.
#include <cstddef>
#include <cstdint>

#include "exports.h"
#include "tessara/kernel/koord_status.h"

namespace tessara::web {
namespace {

// The characters of a reference to the metre, and how many there are.
struct TextCell {
    char text[15];
    std::uint8_t size;
};

constexpr std::size_t METRE_DIGITS = 5;

// A whole number below 100000, in fixed point with 32 bits behind the point: each step takes the digit before
// it.
char* PutMetres(double metres, char* at) {
    constexpr std::uint64_t tenThousandth =
        429497;  // of 2^32, rounded up: too much by 6 hundredths of the last digit
    std::uint64_t rest = static_cast<std::uint32_t>(metres) * tenThousandth;
    for (std::size_t k = 0; k < METRE_DIGITS; ++k) {
        *at++ = static_cast<char>('0' + (rest >> 32));
        rest = (rest & 0xFFFFFFFF) * 10;
    }
    return at;
}

char* PutZone(double number, char* at) {
    const auto zone = static_cast<std::uint32_t>(number);
    if (zone >= 10) *at++ = static_cast<char>('0' + zone / 10);
    *at++ = static_cast<char>('0' + zone % 10);
    return at;
}

}  // namespace

// Military references to the metre of columns that were converted to UTMREF: one of numbers for zone, easting
// and northing each, and letters. The text of a row without a reference is empty.
TESSARA_EXPORT(writeReferences)
void WriteReferences(const double* zones, const char* bands, const char* squares, const double* eastings,
                     const double* northings, const std::int32_t* statuses, std::size_t count,
                     TextCell* cells) {
    for (std::size_t i = 0; i < count; ++i) {
        TextCell& cell = cells[i];
        char* at = cell.text;
        if (statuses[i] == KOORD_OK) {
            at = PutZone(zones[i], at);
            *at++ = bands[i];
            *at++ = squares[2 * i];
            *at++ = squares[2 * i + 1];
            at = PutMetres(eastings[i], at);
            at = PutMetres(northings[i], at);
        }
        cell.size = static_cast<std::uint8_t>(at - cell.text);
    }
}

}  // namespace tessara::web
