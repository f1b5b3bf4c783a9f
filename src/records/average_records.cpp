#include "records/average_records.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "records/axis_copy.h"
#include "records/axis_values.h"
#include "records/convert_records.h"
#include "records/same_parameters.h"
#include "records/zone_meridian.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// degrees. A midpoint beside a zone border is measured from a point this far inside the zone, and the search
// for that point ends at this accuracy.
constexpr double BORDER_INSET = 1e-8;
constexpr int INSET_ROUNDS = 8;

double Mean(double first, double second) {
    return (first + second) / 2.0;
}

void MeanOn(Axis axis, const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    axes::SetValue(axis, Mean(axes::Value(axis, first), axes::Value(axis, second)), mean);
}

bool MeanOfValues(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    MeanOn(Axis::East, first, second, mean);
    MeanOn(Axis::North, first, second, mean);
    return true;
}

bool MeanOfEcef(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    const auto a = Load<EcefPayload>(first);
    const auto b = Load<EcefPayload>(second);
    Store(*mean, EcefPayload{Mean(a.x, b.x), Mean(a.y, b.y), Mean(a.z, b.z)});
    return true;
}

bool MeanOfUps(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    const char hemisphere = Load<UpsPayload>(first).hemisphere;
    if (hemisphere != Load<UpsPayload>(second).hemisphere) return false;
    UpsPayload payload{};
    payload.hemisphere = hemisphere;
    Store(*mean, payload);
    return MeanOfValues(first, second, mean);
}

// Position codes and lettered grids don't depend on the datum. They are converted on one that always exists,
// and the mean keeps the datum of the two positions.
tagKOORD OnWgs84(tagKOORD record) {
    record.datum = DATUM_WGS84;
    return record;
}

bool MeanThroughGeodez(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    tagKOORD a = OnWgs84(first);
    tagKOORD b = OnWgs84(second);
    if (!ConvertTo(KOORD_GEODEZ, &a) || !ConvertTo(KOORD_GEODEZ, &b)) return false;
    tagKOORD middle = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    MeanOfValues(a, b, &middle);
    if (!ConvertTo(static_cast<std::int32_t>(mean->type), &middle)) return false;
    std::memcpy(mean->payload, middle.payload, sizeof middle.payload);
    return true;
}

bool MeanOfLetterGrid(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    tagKOORD a = OnWgs84(first);
    tagKOORD b = OnWgs84(second);
    if (!RenewLetters(&a) || !RenewLetters(&b)) return false;
    // A record without letters is read by its full values.
    tagKOORD middle = OnWgs84(*mean);
    MeanOfValues(a, b, &middle);
    if (!RenewLetters(&middle)) return false;
    std::memcpy(mean->payload, middle.payload, sizeof middle.payload);
    return true;
}

// The east value of the central line of a record's zone; NaN if the zone doesn't exist.
double CentreEast(tagKOORD record) {
    return zones::MoveToCentre(&record) ? zones::East(record) : std::numeric_limits<double>::quiet_NaN();
}

// The mean of two points on either side of a zone border. On entry `mean` names the zone west of the border,
// wants none and has the northing of the mean. `offset` is the average distance of the two points east of the
// central lines of their zones, in metres; if it is positive, the mean lies that far east of the border, in
// the eastern zone. False for a NaN.
bool MeanBesideBorder(double offset, tagKOORD* mean) {
    const bool isEastOfBorder = offset >= 0.0;
    if (!isEastOfBorder && !(offset < 0.0)) return false;
    tagKOORD result = *mean;
    if (isEastOfBorder && !zones::Move(1, &result)) return false;
    if (!zones::MoveToCentre(&result)) return false;
    GeodezPayload position;
    if (!ToGeodez(result, &position)) return false;
    const double inset = zones::HalfWidth(static_cast<std::int32_t>(result.type)) - BORDER_INSET;
    const double longitude = position.longitude + (isEastOfBorder ? -inset : inset);

    tagKOORD border = result;
    double distance = HUGE_VAL;
    for (int round = 0; distance > BORDER_INSET; ++round) {
        if (round == INSET_ROUNDS) return false;
        if (!zones::StepAlongMeridian(longitude, position.latitude, RangeCheck::On, &border, &position))
            return false;
        distance = std::fabs(position.longitude - longitude);
    }
    zones::SetEast(zones::East(border) + offset, &result);
    *mean = result;
    return true;
}

bool HasExactHemisphere(const tagKOORD& utm) {
    const char letter = Load<UtmPayload>(utm).hemisphere;
    return letter == 'N' || letter == 'S';
}

void MeanOfUtmNorthings(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    if (Load<UtmPayload>(first).hemisphere == Load<UtmPayload>(second).hemisphere) {
        CopyAxis(Axis::North, first, mean);
        MeanOn(Axis::North, first, second, mean);
    } else {
        axes::SetSignedNorthing(Mean(axes::SignedNorthing(first), axes::SignedNorthing(second)), mean);
    }
}

bool MeanOfUtm(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    if (!HasExactHemisphere(first) || !HasExactHemisphere(second)) return false;
    MeanOfUtmNorthings(first, second, mean);
    MeanOn(Axis::East, first, second, mean);
    const std::int32_t firstZone = zones::Number(first);
    const std::int32_t secondZone = zones::Number(second);
    auto payload = Load<UtmPayload>(*mean);
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = static_cast<std::int16_t>((firstZone + secondZone) / 2);
    Store(*mean, payload);
    if ((firstZone - secondZone) % 2 == 0) return true;
    return MeanBesideBorder(payload.easting - CentreEast(first), mean);
}

bool MeanOfUtmref(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    tagKOORD a = first;
    tagKOORD b = second;
    if (!ConvertTo(KOORD_UTM, &a) || !ConvertTo(KOORD_UTM, &b)) return false;
    tagKOORD middle = a;
    if (!MeanOfUtm(a, b, &middle) || !ConvertTo(KOORD_UTMREF, &middle)) return false;
    *mean = middle;
    return true;
}

// How the mean follows from the strips of two points.
enum class StripCase {
    Plain,         // the mean lies in the strip in the middle
    AcrossZero,    // the same, between a western and an eastern strip
    BesideBorder,  // the middle is a border, and the mean lies beside it
};

// GK strips are numbered through 0.
StripCase GkCase(std::int64_t first, std::int64_t second) {
    if ((first - second) % 2 != 0) return StripCase::BesideBorder;
    return (first < 0) != (second < 0) ? StripCase::AcrossZero : StripCase::Plain;
}

// GK6 has no strip 0: strip 1 follows strip -1.
StripCase Gk6Case(std::int64_t first, std::int64_t second) {
    const bool isEven = (first + second) % 2 == 0;
    const bool isOneSide = first * second >= 1;
    if (isEven != isOneSide) return StripCase::BesideBorder;
    return isOneSide ? StripCase::Plain : StripCase::AcrossZero;
}

// The strip west of the border that lies in the middle of two strips.
std::int64_t WestOfMiddle(bool isGk6, std::int64_t first, std::int64_t second) {
    if (!isGk6 || first * second >= 1) return (first - 1 + second) / 2;
    const std::int64_t middle = (first + second) / 2;
    return middle < 1 ? middle - 1 : middle;
}

bool MeanOfStrips(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    StripEasting a;
    StripEasting b;
    if (!zones::SplitStrip(first, &a) || !zones::SplitStrip(second, &b)) return false;
    const bool isGk6 = SystemOf(first).zones.rule == ZoneRule::Strips6;
    const StripCase stripCase = isGk6 ? Gk6Case(a.strip, b.strip) : GkCase(a.strip, b.strip);
    const std::int64_t sum = std::int64_t{a.strip} + b.strip;
    StripEasting parts{static_cast<std::int32_t>(sum / 2), Mean(a.offset, b.offset)};
    if (isGk6 && stripCase == StripCase::AcrossZero) parts.strip += sum >= 0 ? 1 : -1;

    GkPayload payload{};
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.northing = Mean(Load<GkPayload>(first).northing, Load<GkPayload>(second).northing);
    payload.letter = payload.northing >= 0.0 ? 'N' : 'S';
    payload.easting = zones::JoinStrip(parts);
    if (!isGk6 && stripCase == StripCase::Plain) {
        payload.easting = Mean(Load<GkPayload>(first).easting, Load<GkPayload>(second).easting);
    }
    if (stripCase != StripCase::BesideBorder) {
        Store(*mean, payload);
        return true;
    }
    parts.strip = static_cast<std::int32_t>(WestOfMiddle(isGk6, a.strip, b.strip));
    payload.easting = zones::JoinStrip(parts);
    Store(*mean, payload);
    return MeanBesideBorder(parts.offset - CentreEast(first), mean);
}

bool MeanOfAustrian(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    const auto a = Load<BmnPayload>(first);
    const auto b = Load<BmnPayload>(second);
    BmnPayload payload{};
    payload.wantedMeridian = NO_WANTED_ZONE;
    payload.meridian = static_cast<std::int16_t>((a.meridian + b.meridian) / 2);
    payload.easting = Mean(a.easting, b.easting);
    payload.northing = Mean(a.northing, b.northing);
    if ((a.meridian - b.meridian) % 6 == 0) {
        Store(*mean, payload);
        return true;
    }
    if (std::abs(a.meridian - b.meridian) != 3) return false;  // not adjacent: there are only three meridians
    payload.meridian = std::min(a.meridian, b.meridian);
    Store(*mean, payload);
    return MeanBesideBorder(Mean(a.easting - CentreEast(first), b.easting - CentreEast(second)), mean);
}

bool MeanOfZoned(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    switch (SystemOf(first).zones.rule) {
        case ZoneRule::Utm:
            return MeanOfUtm(first, second, mean);
        case ZoneRule::Strips3:
        case ZoneRule::Strips6:
            return MeanOfStrips(first, second, mean);
        default:
            return MeanOfAustrian(first, second, mean);
    }
}

bool MeanOf(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    const SystemRow& row = SystemOf(first);
    if (!row.hasMidpoint) return false;
    switch (row.form) {
        case Form::Pixels:
            return MeanOfValues(first, second, mean);
        case Form::Values:
            return HaveSameParameters(first, second) && MeanOfValues(first, second, mean);
        case Form::Zoned:
            return MeanOfZoned(first, second, mean);
        case Form::Squares:
            return MeanOfUtmref(first, second, mean);
        case Form::Parts:
            return MeanThroughGeodez(first, second, mean);
        case Form::Cartesian:
            return MeanOfEcef(first, second, mean);
        case Form::Polar:
            return MeanOfUps(first, second, mean);
        case Form::LetterGrid:
            return MeanOfLetterGrid(first, second, mean);
        case Form::None:  // GCOVR_EXCL_START: a system without positions has no midpoint
            break;
    }
    return false;
}  // GCOVR_EXCL_STOP

}  // namespace

bool AverageRecords(const tagKOORD& first, const tagKOORD& second, tagKOORD* mean) {
    if (first.datum != second.datum || first.type != second.type) return false;
    tagKOORD result =
        MakeKoord(static_cast<std::int32_t>(first.datum), static_cast<std::int32_t>(first.type));
    if (!MeanOf(first, second, &result)) return false;
    *mean = result;
    return true;
}

}  // namespace tessara
