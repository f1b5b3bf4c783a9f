#include "typed/military.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "conversion/numbers.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"

namespace tessara::toolkit {
namespace {

constexpr int MOST_DIGITS = 5;

struct Side {
    std::string_view text;
    int digits;
};

constexpr Side SIDES[] = {
    {"1m", 5},  {"10m", 4},  {"100m", 3},  {"1000m", 2},   {"10000m", 1},
    {"1km", 2}, {"10km", 1}, {"100km", 0}, {"100000m", 0},
};

double StepOf(int digits) {
    return std::pow(10.0, MOST_DIGITS - digits);
}

// In the wanted zone, or else in the natural one.
Reference UtmOf(const Reference& target) {
    Reference utm{.datum = target.datum, .system = KOORD_UTM};
    for (const Parameter& parameter : target.parameters) {
        if (const auto zone = WantedZone(KOORD_UTM, static_cast<std::int32_t>(parameter.value)))
            utm.parameters.push_back(*zone);
    }
    return utm;
}

// The leading digits of metres within a square.
void AppendDigits(std::int32_t metres, int count, std::string* text) {
    std::array<char, MOST_DIGITS> digits;
    std::for_each(digits.rbegin(), digits.rend(), [&metres](char& digit) {
        digit = static_cast<char>('0' + metres % 10);
        metres /= 10;
    });
    text->append(digits.data(), static_cast<std::size_t>(count));
}

std::string TextOf(const UtmrefPayload& reference, int digits) {
    std::string text = std::to_string(reference.zone);
    text += {reference.band, reference.column, reference.row};
    AppendDigits(reference.easting, digits, &text);
    AppendDigits(reference.northing, digits, &text);
    return text;
}

// Whether the metre next to a position in such a square may lie beyond the ends of the system.
bool TouchesAnEnd(const UtmrefPayload& reference) {
    return reference.zone == 1 || reference.zone == UTM_ZONE_COUNT || reference.band == 'C' ||
           reference.band == 'X';
}

}  // namespace

std::optional<int> DigitsOfSide(std::string_view side) {
    const Side* const found =
        std::find_if(std::begin(SIDES), std::end(SIDES), [&](const Side& s) { return s.text == side; });
    return found != std::end(SIDES) ? std::optional(found->digits) : std::nullopt;
}

ReferenceWriter::ReferenceWriter(const Reference& target, const ReferenceDigits& digits)
    : datum_(target.datum),
      digits_(digits),
      isNearestMetre_(digits.count == MOST_DIGITS && !digits.isTruncated && target.parameters.empty()),
      toUtm_(target.datum, UtmOf(target)) {}

// Without the way over the grid, which ends at the same reference: a conversion rounds to the metre. A UTM
// position keeps its zone.
std::optional<UtmrefPayload> ReferenceWriter::NearestMetre(const CKoord& source) const {
    if (!isNearestMetre_ || source.type == KOORD_UTM) return std::nullopt;
    tagKOORD reference = MakeKoord(datum_, KOORD_UTMREF);
    UtmrefPayload p{};
    p.wantedZone = NO_WANTED_ZONE;
    Store(reference, p);
    if (KoordConvert(&source, &reference) != KOORD_OK) return std::nullopt;
    p = Load<UtmrefPayload>(reference);
    return TouchesAnEnd(p) ? std::nullopt : std::optional(p);
}

// The reference of a grid position in the zone of `utm`.
std::optional<UtmrefPayload> ReferenceWriter::At(const CKoord& utm, double easting, double northing) const {
    tagKOORD place = utm;
    auto p = Load<UtmPayload>(place);
    p.easting = easting;
    p.northing = northing;
    Store(place, p);
    tagKOORD reference = MakeKoord(datum_, KOORD_UTMREF);
    UtmrefPayload wanted{};
    wanted.wantedZone = p.zone;
    Store(reference, wanted);
    if (KoordConvert(&place, &reference) != KOORD_OK) return std::nullopt;
    return Load<UtmrefPayload>(reference);
}

KoordStatus ReferenceWriter::Write(const CKoord& source, std::string* text) const {
    if (const auto nearest = NearestMetre(source)) {
        *text = TextOf(*nearest, digits_.count);
        return KOORD_OK;
    }
    CKoord utm;
    const KoordStatus status = toUtm_.Convert(source, &utm);
    if (status != KOORD_OK) return status;
    const auto [easting, northing] = [&] {
        const auto p = Load<UtmPayload>(utm);
        return std::pair(p.easting, p.northing);
    }();

    std::optional<UtmrefPayload> reference;
    if (!digits_.isTruncated) {
        const double step = StepOf(digits_.count);
        reference =
            At(utm, step * std::floor(easting / step + 0.5), step * std::floor(northing / step + 0.5));
    }
    // At the borders of a zone or of the system, the square with the nearest corner may not exist; the one
    // that contains the position does.
    if (!reference) reference = At(utm, std::floor(easting), std::floor(northing));
    if (!reference) return KOORD_ERR_OUTSIDE;
    *text = TextOf(*reference, digits_.count);
    return KOORD_OK;
}

std::string SquareText(std::string_view letters, std::int32_t easting, std::int32_t northing, int digits) {
    const auto count = static_cast<std::size_t>(digits);
    return std::string(letters) + FormatWhole(easting, MOST_DIGITS).substr(0, count) +
           FormatWhole(northing, MOST_DIGITS).substr(0, count);
}

}  // namespace tessara::toolkit
