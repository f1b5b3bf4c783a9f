#include "records/zones.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "kernel/utmref_letters.h"
#include "numerics/rounding.h"
#include "numerics/special_values.h"
#include "records/axis_values.h"
#include "systems/fields.h"
#include "systems/system_row.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

constexpr std::int32_t AUSTRIAN_STEP = AUSTRIAN_MERIDIANS[1] - AUSTRIAN_MERIDIANS[0];

constexpr auto STRIP_FACTOR = static_cast<std::int32_t>(STRIP_MILLION);

// Three consecutive zones share the column letters, eight each; row letters form a ring of twenty.
constexpr std::int32_t COLUMNS_PER_ZONE = 8;
constexpr std::int32_t ROWS_PER_PARITY = 5;         // row letters of even zones start five later
constexpr char CENTRE_COLUMN[3] = {'W', 'E', 'N'};  // by the remainder of the zone number by 3

const ZoneRow& ZonesOf(const tagKOORD& record) {
    return SystemOf(record).zones;
}

bool HasStrips(const tagKOORD& record) {
    const ZoneRule rule = ZonesOf(record).rule;
    return rule == ZoneRule::Strips3 || rule == ZoneRule::Strips6;
}

// Moves a letter along its alphabet. A step of 0 accepts any letter; otherwise false for a letter outside
// the alphabet and for a step past its end.
bool StepLetter(std::string_view letters, std::int32_t steps, char* letter) {
    if (steps == 0) return true;
    const std::int32_t index = LetterIndex(letters, UpperCase(*letter));
    const std::int32_t stepped = index + steps;
    if (index == NO_LETTER || !HasIndex(letters, stepped)) return false;
    *letter = LetterAt(letters, stepped);
    return true;
}

// The same on a ring, which has no end.
bool StepAround(std::string_view ring, std::int32_t steps, char* letter) {
    if (steps == 0) return true;
    const std::int32_t index = LetterIndex(ring, UpperCase(*letter));
    if (index == NO_LETTER) return false;
    const auto size = static_cast<std::int32_t>(ring.size());
    *letter = LetterAt(ring, (index + steps + size) % size);
    return true;
}

std::int16_t StepUtmZone(std::int16_t zone, std::int32_t delta) {
    const std::int64_t rest = (std::int64_t{zone} + delta) % UTM_ZONE_COUNT;
    return static_cast<std::int16_t>(rest >= 1 ? rest : rest + UTM_ZONE_COUNT);
}

// Subtracts whole periods until the strip lies within -limit..limit.
std::int64_t CloseAround(std::int64_t strip, std::int64_t limit) {
    const std::int64_t period = 2 * limit;
    if (strip > limit) return strip - (strip - limit + period - 1) / period * period;
    if (strip < -limit) return strip + (-limit - strip + period - 1) / period * period;
    return strip;
}

bool MoveUtm(std::int32_t delta, tagKOORD* record) {
    auto payload = Load<UtmPayload>(*record);
    payload.zone = StepUtmZone(payload.zone, delta);
    payload.wantedZone = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveUtmref(std::int32_t delta, tagKOORD* record) {
    auto payload = Load<UtmrefPayload>(*record);
    if (!IsUtmZone(payload.zone)) return false;
    const std::int16_t zone = StepUtmZone(payload.zone, delta);

    const std::int32_t columns = COLUMNS_PER_ZONE * ((zone - 1) % 3 - (payload.zone - 1) % 3);
    const std::int32_t rows = ROWS_PER_PARITY * (payload.zone % 2 - zone % 2);
    if (!StepLetter(SQUARE_LETTERS, columns, &payload.column)) return false;
    if (!StepAround(UTMREF_ROWS_AA, rows, &payload.row)) return false;
    payload.zone = zone;
    payload.wantedZone = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveStrip(std::int32_t delta, tagKOORD* record) {
    StripEasting parts;
    if (!zones::SplitStrip(*record, &parts)) return false;
    const std::int64_t sum = std::int64_t{parts.strip} + delta;
    if (ZonesOf(*record).rule == ZoneRule::Strips3) {
        parts.strip = static_cast<std::int32_t>(CloseAround(sum, 60));
    } else {
        parts.strip = static_cast<std::int32_t>(CloseAround(sum, 30));
        // GK6 has no strip 0.
        if (parts.strip == 0 && delta != 0) parts.strip = delta > 0 ? 1 : -1;
    }
    auto payload = Load<GkPayload>(*record);
    payload.easting = zones::JoinStrip(parts);
    payload.wantedMeridian = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveAustrian(std::int32_t delta, tagKOORD* record) {
    auto payload = Load<BmnPayload>(*record);
    const std::int64_t meridian = payload.meridian + std::int64_t{AUSTRIAN_STEP} * delta;
    if (meridian < AUSTRIAN_MERIDIANS[0] || meridian > AUSTRIAN_MERIDIANS[2]) return false;
    const double centreStep = ZonesOf(*record).centreStep;
    if (centreStep != 0.0) payload.easting += delta * centreStep;
    payload.meridian = static_cast<std::int16_t>(meridian);
    payload.wantedMeridian = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveUtmrefToCentre(tagKOORD* record) {
    auto payload = Load<UtmrefPayload>(*record);
    if (!IsUtmZone(payload.zone)) return false;
    payload.column = CENTRE_COLUMN[payload.zone % 3];
    payload.easting = 0;
    Store(*record, payload);
    return true;
}

void MoveStripToCentre(tagKOORD* record) {
    auto payload = Load<GkPayload>(*record);
    const double zero = Trunc(payload.easting / STRIP_MILLION) * STRIP_MILLION;
    payload.easting = zero < 0.0 ? zero - ZONE_FALSE_EASTING : zero + ZONE_FALSE_EASTING;
    Store(*record, payload);
}

// If all central lines have the same easting, the meridian doesn't matter.
bool MoveAustrianToCentre(tagKOORD* record) {
    const ZoneRow& zones = ZonesOf(*record);
    auto payload = Load<BmnPayload>(*record);
    payload.easting = zones.firstCentre;
    if (zones.centreStep != 0.0) {
        const auto* const found =
            std::find(std::begin(AUSTRIAN_MERIDIANS), std::end(AUSTRIAN_MERIDIANS), payload.meridian);
        if (found == std::end(AUSTRIAN_MERIDIANS)) return false;
        payload.easting += static_cast<double>(found - AUSTRIAN_MERIDIANS) * zones.centreStep;
    }
    Store(*record, payload);
    return true;
}

}  // namespace

bool zones::Exist(std::int32_t system) {
    return SystemOf(system).zones.rule != ZoneRule::None;
}

std::int32_t zones::Number(const tagKOORD& record) {
    const ZoneRow& zones = ZonesOf(record);
    if (zones.rule == ZoneRule::None) return UNKNOWN_ZONE;
    if (HasStrips(record)) return TruncateToInt32(axes::Value(Axis::East, record) / STRIP_MILLION);
    return ValueOf<std::int16_t>(record, zones.number);
}

std::int32_t zones::Factor(const tagKOORD& record) {
    return zones::Exist(static_cast<std::int32_t>(record.type)) ? STRIP_FACTOR : UNKNOWN_ZONE;
}

bool zones::SplitStrip(const tagKOORD& record, StripEasting* parts) {
    if (!HasStrips(record)) return false;
    const std::int32_t strip = zones::Number(record);
    if (strip == UNKNOWN_ZONE) return false;
    const double easting = Load<GkPayload>(record).easting;
    *parts = {strip, std::fabs(easting - static_cast<double>(strip) * STRIP_FACTOR)};
    return true;
}

double zones::JoinStrip(const StripEasting& parts) {
    const double zero = static_cast<double>(parts.strip) * STRIP_FACTOR;
    return parts.strip < 0 ? zero - parts.offset : zero + parts.offset;
}

double zones::East(const tagKOORD& record) {
    if (HasStrips(record)) {
        StripEasting parts;
        return zones::SplitStrip(record, &parts) ? parts.offset : NOT_A_NUMBER;
    }
    const SystemRow& row = SystemOf(record);
    return row.form == Form::Zoned ? axes::Value(Axis::East, record) : NOT_A_NUMBER;
}

void zones::SetEast(double east, tagKOORD* record) {
    if (HasStrips(*record)) {
        StripEasting parts;
        if (!zones::SplitStrip(*record, &parts)) return;
        axes::SetValue(Axis::East, zones::JoinStrip({parts.strip, east}), record);
    } else if (SystemOf(*record).form == Form::Zoned) {
        axes::SetValue(Axis::East, east, record);
    }
}

double zones::HalfWidth(std::int32_t system) {
    return SystemOf(system).zones.halfWidth;
}

std::int16_t zones::Wanted(const tagKOORD& record) {
    const ZoneRow& zones = ZonesOf(record);
    return zones.rule != ZoneRule::None ? ValueOf<std::int16_t>(record, zones.wanted) : NO_WANTED_ZONE;
}

void zones::Want(std::int16_t wanted, tagKOORD* record) {
    const ZoneRow& zones = ZonesOf(*record);
    if (zones.rule != ZoneRule::None) SetValue(record, zones.wanted, wanted);
}

bool zones::MoveToCentre(tagKOORD* record) {
    const SystemRow& row = SystemOf(*record);
    switch (row.zones.rule) {
        case ZoneRule::Utm:
            if (row.form == Form::Squares) return MoveUtmrefToCentre(record);
            axes::SetValue(Axis::East, row.zones.firstCentre, record);
            return true;
        case ZoneRule::Strips3:
        case ZoneRule::Strips6:
            MoveStripToCentre(record);
            return true;
        case ZoneRule::Austrian:
            return MoveAustrianToCentre(record);
        case ZoneRule::None:
            break;
    }
    return false;
}

bool zones::Move(std::int32_t delta, tagKOORD* record) {
    const SystemRow& row = SystemOf(*record);
    switch (row.zones.rule) {
        case ZoneRule::Utm:
            return row.form == Form::Squares ? MoveUtmref(delta, record) : MoveUtm(delta, record);
        case ZoneRule::Strips3:
        case ZoneRule::Strips6:
            return MoveStrip(delta, record);
        case ZoneRule::Austrian:
            return MoveAustrian(delta, record);
        case ZoneRule::None:
            break;
    }
    return false;
}

}  // namespace tessara
