#include "records/zone_borders.h"

#include <cfloat>
#include <cmath>

#include "kernel/numeric.h"
#include "numerics/rounding.h"
#include "numerics/special_values.h"
#include "records/axis_values.h"
#include "records/call_depth.h"
#include "records/convert_records.h"
#include "records/system_extremes.h"
#include "records/zone_meridian.h"
#include "records/zones.h"
#include "systems/reference.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/utmref.h"

namespace tessara {
namespace {

// A border may lie outside the limits of the system by BORDER_OUTSET.

constexpr double BORDER_OUTSET = 1e-9;       // degrees
constexpr double LATITUDE_STEP = 1e-12;      // degrees; smaller steps end the search for a border point
constexpr int BORDER_ROUNDS = 20;            // a border point takes six at most
constexpr double NORTHING_TOLERANCE = 0.05;  // metres; more than snapping to a limit moves a northing
constexpr double EAST_TOLERANCE = 1e-5;      // metres; an easting this close counts as met
constexpr double EAST_ACCEPTABLE = 1e-3;     // metres; sufficient when the trials are used up
constexpr int EAST_TRIALS = 20;

constexpr double WELL_INSIDE = 1e-4;         // degrees; more than a metre at latitude 84
constexpr double EQUATOR_DEGREE = 112000.0;  // metres; more than a degree on the equator of any ellipsoid

// The wanted zone with which a position stays in the record's zone. Strips want the true meridian, however
// their numbers count.
std::int16_t WantedForOwnZone(const tagKOORD& record, double centralMeridian) {
    const ZoneRule rule = SystemOf(record).zones.rule;
    if (rule != ZoneRule::Strips3 && rule != ZoneRule::Strips6) {
        return static_cast<std::int16_t>(zones::Number(record));
    }
    return TruncateToInt16(Round(centralMeridian / 3.0) * 3.0);
}

// Rows at the equator start with the first letter of the scheme, in even zones five letters later.
bool MoveUtmrefToEquator(tagKOORD* record) {
    const DatumRow* const datum = Datum_Row(DatumOf(*record));
    if (datum == nullptr) return false;
    const bool usesAA = UTMREF_UsesSchemeAA(static_cast<std::int32_t>(datum->ellipsoid));
    auto payload = Load<UtmrefPayload>(*record);
    const bool isOdd = payload.zone % 2 != 0;
    payload.band = 'N';
    payload.row = usesAA ? (isOdd ? 'A' : 'F') : (isOdd ? 'L' : 'R');
    payload.northing = 0;
    Store(*record, payload);
    return true;
}

// The northing at which a zone of UTM, GK, GK6 or the Austrian systems is widest.
double WidestNorthing(const tagKOORD& record) {
    if (SystemOf(record).limits.south <= 0.0) return 0.0;
    tagKOORD south;
    if (!FindSystemExtreme(Compass::South, DatumOf(record), TypeOf(record), &south)) return NOT_A_NUMBER;
    return axes::Value(Axis::North, south);
}

// The distance of a record east of the central line of its zone; NaN if the zone doesn't exist.
double EastOfCentre(const tagKOORD& record) {
    tagKOORD centre = record;
    return zones::MoveToCentre(&centre) ? zones::East(record) - zones::East(centre) : NOT_A_NUMBER;
}

// Whether the point of a meridian at a latitude has the northing of `border`. Beyond a pole it doesn't: the
// inverse projection of such a northing ends on this side of the pole, from where the projection doesn't
// lead back.
bool IsOnMeridian(double longitude, double latitude, const tagKOORD& border) {
    tagKOORD point = MakeKoord(DatumOf(border), KOORD_GEODEZ);
    Store(point, GeodezPayload{latitude, longitude, 0.0});
    tagKOORD there = border;
    if (ConvertRecord(point, &there, RangeCheck::Off) != KOORD_OK) return false;
    return std::fabs(axes::SignedNorthing(there) - axes::SignedNorthing(border)) < NORTHING_TOLERANCE;
}

// The half width of a zone at a northing, from its central line to one of its borders.
class ZoneWidth {
  public:
    ZoneWidth(const tagKOORD& record, Compass side) : record_(record), side_(side) {}

    // Metres; NaN if there is no border.
    double At(double signedNorthing) const {
        tagKOORD border = record_;
        axes::SetSignedNorthing(signedNorthing, &border);
        return zones::MoveToBorder(side_, &border) ? std::fabs(EastOfCentre(border)) : NOT_A_NUMBER;
    }

  private:
    const tagKOORD& record_;
    Compass side_;
};

// Interpolates for the northing at which the zone has the half width `target`, between a wide and a narrow
// end. A short step toward the narrow end is lengthened: the width decreases slowly there, and plain
// interpolation would converge too slowly. Once a lengthened step comes near the target, steps are no longer
// lengthened.
bool ZoneBorderSearch(const ZoneWidth& width, double wide, double narrow, double target, double* northing) {
    double atWide = width.At(wide);
    double atNarrow = width.At(narrow);
    bool guard = true;
    double miss = DBL_MAX;
    for (int trial = 0; trial < EAST_TRIALS; ++trial) {
        const double span = std::fabs(atNarrow - atWide);
        double ratio = span == 0.0 ? DBL_MAX : std::fabs(target - atWide) / span;
        if (ratio > 1.0) ratio = 0.5;
        const bool isGuarded = ratio < 0.2 && guard;
        if (isGuarded) ratio = (0.2 - ratio) / 2.0 + ratio;

        const double middle = (narrow - wide) * ratio + wide;
        const double at = width.At(middle);
        *northing = middle;
        miss = std::fabs(at - target);
        if (miss < EAST_TOLERANCE) {
            if (!isGuarded || at == target) return true;
            guard = false;
        }
        if (at > target) {
            wide = middle;
            atWide = at;
        } else {
            narrow = middle;
            atNarrow = at;
        }
    }
    return miss < EAST_ACCEPTABLE;  // GCOVR_EXCL_LINE: no zone is known whose search takes all the trials
}

ZoneLimit MoveUtmrefToLimit(Compass direction, tagKOORD* record) {
    tagKOORD moved = *record;
    if (!ConvertInZone(KOORD_UTM, RangeCheck::Off, &moved)) return ZoneLimit::Failure;
    const ZoneLimit found = zones::MoveToLimit(direction, &moved);
    if (found != ZoneLimit::Border) return found;
    if (!ConvertInZone(KOORD_UTMREF, RangeCheck::Off, &moved)) return ZoneLimit::Failure;
    zones::Want(NO_WANTED_ZONE, &moved);
    *record = moved;
    return ZoneLimit::Border;
}

bool MoveUtmrefToBorder(Compass side, tagKOORD* record) {
    tagKOORD moved = *record;
    if (!ConvertInZone(KOORD_UTM, RangeCheck::Off, &moved)) return false;
    if (!zones::MoveToBorder(side, &moved)) return false;
    if (!ConvertInZone(KOORD_UTMREF, RangeCheck::Off, &moved)) return false;
    zones::Want(NO_WANTED_ZONE, &moved);
    *record = moved;
    return true;
}

}  // namespace

bool zones::MoveToBorder(Compass side, tagKOORD* record) {
    const CallDepth depth;
    if (AxisOf(side) != Axis::East) return false;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToBorder(side, record);

    tagKOORD border = *record;
    GeodezPayload position;
    if (!zones::MoveToCentre(&border) || !ToGeodez(border, &position)) return false;
    zones::Want(WantedForOwnZone(*record, position.longitude), &border);
    const double longitude =
        position.longitude + SignOf(side) * (zones::HalfWidth(TypeOf(*record)) + BORDER_OUTSET);

    double step = DBL_MAX;
    for (int round = 0; step > LATITUDE_STEP && round < BORDER_ROUNDS; ++round) {
        const double latitude = position.latitude;
        if (!zones::StepAlongMeridian(longitude, latitude, RangeCheck::Off, &border, &position)) return false;
        step = std::fabs(position.latitude - latitude);
    }
    // Near a limit the kernel's snapping may keep the latitude oscillating by this much.
    if (!(step <= LIMIT_TOLERANCE_DEGREES)) return false;
    if (!IsOnMeridian(longitude, position.latitude, border)) return false;
    zones::SetEast(zones::East(border), record);
    zones::Want(NO_WANTED_ZONE, record);
    return true;
}

ZoneLimit zones::MoveToLimit(Compass direction, tagKOORD* record) {
    const CallDepth depth;
    if (AxisOf(direction) != Axis::North) return ZoneLimit::Failure;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToLimit(direction, record);

    // Only a record that is a position has a way to the limit.
    GeodezPayload position;
    if (!ToGeodez(*record, &position) || std::isnan(position.latitude)) return ZoneLimit::Failure;
    const double offset = EastOfCentre(*record);
    if (std::isnan(offset)) return ZoneLimit::Failure;
    if (offset == 0.0) return ZoneLimit::SystemFirst;

    tagKOORD limit;
    if (!FindSystemExtreme(direction, DatumOf(*record), TypeOf(*record), &limit)) return ZoneLimit::Failure;
    const double widest = WidestNorthing(*record);
    const double last = axes::SignedNorthing(limit);
    const double target = std::fabs(offset);
    const ZoneWidth width(*record, DirectionOf(Axis::East, offset));
    if (!(target <= width.At(widest))) return ZoneLimit::Failure;
    const double atLast = width.At(last);
    if (std::isnan(atLast)) return ZoneLimit::Failure;
    if (atLast >= target) return ZoneLimit::SystemFirst;

    double northing;
    if (!ZoneBorderSearch(width, widest, last, target, &northing)) return ZoneLimit::Failure;
    axes::SetSignedNorthing(northing, record);
    zones::Want(NO_WANTED_ZONE, record);
    return ZoneLimit::Border;
}

bool zones::IsWellInside(const tagKOORD& record) {
    const double halfWidth = zones::HalfWidth(TypeOf(record));
    // Far outside its zone a position has no meaningful longitude. A UTMREF, whose east value is NaN, passes
    // this test.
    if (std::fabs(EastOfCentre(record)) > halfWidth * EQUATOR_DEGREE) return false;
    tagKOORD centre = record;
    GeodezPayload position;
    GeodezPayload middle;
    if (!zones::MoveToCentre(&centre) || !ToGeodez(record, &position) || !ToGeodez(centre, &middle))
        return false;
    const double degrees = Remainder(position.longitude - middle.longitude, 360.0);
    return std::fabs(degrees) < halfWidth - WELL_INSIDE;
}

bool zones::MoveToEquator(tagKOORD* record) {
    if (!zones::Exist(TypeOf(*record))) return false;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToEquator(record);
    const double northing = WidestNorthing(*record);
    if (std::isnan(northing)) return false;
    axes::SetValue(Axis::North, northing, record);
    // Keeps the hemisphere: the equator of a southern position is written as 10000000.
    const double falseNorthing = northing - axes::SignedNorthing(*record);
    axes::SetValue(Axis::North, northing + falseNorthing, record);
    return true;
}

}  // namespace tessara
