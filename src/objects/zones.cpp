#include "objects/zones.h"

#include <cmath>
#include <limits>

#include "kernel/letters.h"
#include "kernel/numeric.h"
#include "kernel/utmref_letters.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

constexpr std::int32_t STRIP_FACTOR = 1000000;
constexpr double HALF_STRIP = 500000.0;
constexpr std::int16_t UTM_ZONES = 60;
constexpr double AUSTRIAN_STEP = 300000.0;  // from one meridian's false easting to the next

// Columns of three zones share the letters of the squares, eight each; rows form a ring of twenty.
constexpr std::int32_t COLUMNS_PER_ZONE = 8;
constexpr std::int32_t ROWS_PER_PARITY = 5;         // even zones start five rows on
constexpr char CENTRE_COLUMN[3] = {'W', 'E', 'N'};  // by the zone's remainder by 3

template <class Payload, class Value>
void SetField(Value Payload::*field, Value value, tagKOORD* record) {
    auto payload = Load<Payload>(*record);
    payload.*field = value;
    Store(*record, payload);
}

// Moves a letter along its alphabet. A letter that stays isn't looked at; false for one that isn't in the
// alphabet and for a step past its end.
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

bool IsUtmZone(std::int16_t zone) {
    return zone >= 1 && zone <= UTM_ZONES;
}

std::int16_t StepUtmZone(std::int16_t zone, std::int32_t delta) {
    const std::int64_t sum = std::int64_t{zone} + delta;
    if (sum >= 1 && sum <= UTM_ZONES) return static_cast<std::int16_t>(sum);
    const std::int64_t rest = sum % UTM_ZONES;
    return static_cast<std::int16_t>(rest >= 1 ? rest : rest + UTM_ZONES);
}

// Takes whole periods off until the strip lies within -limit..limit.
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
    if (!Zones_SplitStrip(*record, &parts)) return false;
    const std::int64_t sum = std::int64_t{parts.strip} + delta;
    if (record->type == KOORD_GK) {
        parts.strip = static_cast<std::int32_t>(CloseAround(sum, 60));
    } else {
        parts.strip = static_cast<std::int32_t>(CloseAround(sum, 30));
        // There is no strip 0 between 1 and -1.
        if (parts.strip == 0 && delta != 0) parts.strip = delta > 0 ? 1 : -1;
    }
    auto payload = Load<GkPayload>(*record);
    payload.easting = Zones_JoinStrip(parts);
    payload.wantedMeridian = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveAustrian(std::int32_t delta, tagKOORD* record) {
    auto payload = Load<BmnPayload>(*record);
    const std::int64_t meridian = payload.meridian + std::int64_t{3} * delta;
    if (meridian < 28 || meridian > 34) return false;
    if (record->type != KOORD_GKAT) payload.easting += delta * AUSTRIAN_STEP;
    payload.meridian = static_cast<std::int16_t>(meridian);
    payload.wantedMeridian = NO_WANTED_ZONE;
    Store(*record, payload);
    return true;
}

bool MoveAustrianToCentre(tagKOORD* record, double firstCentre) {
    auto payload = Load<BmnPayload>(*record);
    if (payload.meridian != 28 && payload.meridian != 31 && payload.meridian != 34) return false;
    payload.easting = firstCentre + (payload.meridian - 28) / 3 * AUSTRIAN_STEP;
    Store(*record, payload);
    return true;
}

}  // namespace

bool Zones_Exist(std::int32_t system) {
    switch (system) {
        case KOORD_UTM:
        case KOORD_UTMREF:
        case KOORD_GK:
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GK6:
        case KOORD_GKAT:
            return true;
        default:
            return false;
    }
}

std::int32_t Zones_Number(const tagKOORD& record) {
    switch (record.type) {
        case KOORD_UTM:
            return Load<UtmPayload>(record).zone;
        case KOORD_UTMREF:
            return Load<UtmrefPayload>(record).zone;
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return Load<BmnPayload>(record).meridian;
        case KOORD_GK:
        case KOORD_GK6:
            return TruncateToInt32(Load<GkPayload>(record).easting / STRIP_FACTOR);
        default:
            return UNKNOWN_ZONE;
    }
}

std::int32_t Zones_Factor(const tagKOORD& record) {
    return Zones_Exist(static_cast<std::int32_t>(record.type)) ? STRIP_FACTOR : UNKNOWN_ZONE;
}

bool Zones_SplitStrip(const tagKOORD& record, StripEasting* parts) {
    if (record.type != KOORD_GK && record.type != KOORD_GK6) return false;
    const std::int32_t strip = Zones_Number(record);
    if (strip == UNKNOWN_ZONE) return false;
    const double easting = Load<GkPayload>(record).easting;
    *parts = {strip, std::fabs(easting - static_cast<double>(strip) * STRIP_FACTOR)};
    return true;
}

double Zones_JoinStrip(const StripEasting& parts) {
    const double zero = static_cast<double>(parts.strip) * STRIP_FACTOR;
    return parts.strip < 0 ? zero - parts.offset : zero + parts.offset;
}

double Zones_East(const tagKOORD& record) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    switch (record.type) {
        case KOORD_UTM:
            return Load<UtmPayload>(record).easting;
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return Load<BmnPayload>(record).easting;
        default:
            StripEasting parts;
            return Zones_SplitStrip(record, &parts) ? parts.offset : none;
    }
}

void Zones_SetEast(double east, tagKOORD* record) {
    switch (record->type) {
        case KOORD_UTM:
            return SetField(&UtmPayload::easting, east, record);
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return SetField(&BmnPayload::easting, east, record);
        default:
            StripEasting parts;
            if (!Zones_SplitStrip(*record, &parts)) return;
            SetField(&GkPayload::easting, Zones_JoinStrip({parts.strip, east}), record);
    }
}

double Zones_HalfWidth(std::int32_t system) {
    switch (system) {
        case KOORD_UTM:
        case KOORD_UTMREF:
        case KOORD_GK6:
            return 3.0;
        case KOORD_GK:
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return 1.5;
        default:
            return 0.0;
    }
}

std::int16_t Zones_Wanted(const tagKOORD& record) {
    switch (record.type) {
        case KOORD_UTM:
            return Load<UtmPayload>(record).wantedZone;
        case KOORD_UTMREF:
            return Load<UtmrefPayload>(record).wantedZone;
        case KOORD_GK:
        case KOORD_GK6:
            return Load<GkPayload>(record).wantedMeridian;
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return Load<BmnPayload>(record).wantedMeridian;
        default:
            return NO_WANTED_ZONE;
    }
}

void Zones_Want(std::int16_t wanted, tagKOORD* record) {
    switch (record->type) {
        case KOORD_UTM:
            return SetField(&UtmPayload::wantedZone, wanted, record);
        case KOORD_UTMREF:
            return SetField(&UtmrefPayload::wantedZone, wanted, record);
        case KOORD_GK:
        case KOORD_GK6:
            return SetField(&GkPayload::wantedMeridian, wanted, record);
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return SetField(&BmnPayload::wantedMeridian, wanted, record);
        default:
            return;
    }
}

bool Zones_MoveToCentre(tagKOORD* record) {
    switch (record->type) {
        case KOORD_UTM: {
            auto payload = Load<UtmPayload>(*record);
            payload.easting = 500000.0;
            Store(*record, payload);
            return true;
        }
        case KOORD_UTMREF: {
            auto payload = Load<UtmrefPayload>(*record);
            if (!IsUtmZone(payload.zone)) return false;
            payload.column = CENTRE_COLUMN[payload.zone % 3];
            payload.easting = 0;
            Store(*record, payload);
            return true;
        }
        case KOORD_GK:
        case KOORD_GK6: {
            auto payload = Load<GkPayload>(*record);
            const double zero = std::trunc(payload.easting / STRIP_FACTOR) * STRIP_FACTOR;
            payload.easting = zero < 0.0 ? zero - HALF_STRIP : zero + HALF_STRIP;
            Store(*record, payload);
            return true;
        }
        case KOORD_BMN:
            return MoveAustrianToCentre(record, 150000.0);
        case KOORD_OEM:
            return MoveAustrianToCentre(record, 450000.0);
        case KOORD_GKAT: {
            auto payload = Load<BmnPayload>(*record);
            payload.easting = 0.0;
            Store(*record, payload);
            return true;
        }
        default:
            return false;
    }
}

bool Zones_Move(std::int32_t delta, tagKOORD* record) {
    switch (record->type) {
        case KOORD_UTM:
            return MoveUtm(delta, record);
        case KOORD_UTMREF:
            return MoveUtmref(delta, record);
        case KOORD_GK:
        case KOORD_GK6:
            return MoveStrip(delta, record);
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return MoveAustrian(delta, record);
        default:
            return false;
    }
}

}  // namespace tessara
