// Many military references as texts.
#include <cstddef>
#include <cstdint>

#include "exports.h"
#include "tessara/kernel/koord_status.h"

namespace tessara::web {
namespace {

constexpr std::size_t METRE_DIGITS = 5;
constexpr std::size_t LONGEST = 2 + 3 + 2 * METRE_DIGITS + 1;  // zone, letters, metres, and the line break

char* PutNumber(double number, std::size_t width, char* at) {
    auto rest = static_cast<std::uint32_t>(number);
    for (std::size_t k = width; k-- > 0; rest /= 10)
        at[k] = static_cast<char>('0' + rest % 10);
    return at + width;
}

}  // namespace

// Military references to the metre of columns that were converted to UTMREF: one of numbers for zone, easting
// and northing each, and letters. A row without a reference becomes an empty line.
TESSARA_EXPORT(writeReferences)
Outcome WriteReferences(const double* zones, const char* bands, const char* squares, const double* eastings,
                        const double* northings, const std::int32_t* statuses, std::size_t count) {
    return Try([&] {
        std::string& answer = Answer();
        answer.resize(count * LONGEST);
        char* at = answer.data();
        for (std::size_t i = 0; i < count; ++i) {
            if (statuses[i] == KOORD_OK) {
                at = PutNumber(zones[i], zones[i] < 10.0 ? 1 : 2, at);
                *at++ = bands[i];
                *at++ = squares[2 * i];
                *at++ = squares[2 * i + 1];
                at = PutNumber(eastings[i], METRE_DIGITS, at);
                at = PutNumber(northings[i], METRE_DIGITS, at);
            }
            *at++ = '\n';
        }
        answer.resize(static_cast<std::size_t>(at - answer.data()));
    });
}

}  // namespace tessara::web
