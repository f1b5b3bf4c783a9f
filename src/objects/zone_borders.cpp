#include "objects/zone_borders.h"

#include <cfloat>
#include <cmath>
#include <limits>

#include "areas/system_extremes.h"
#include "kernel/numeric.h"
#include "objects/axis_values.h"
#include "objects/call_depth.h"
#include "objects/convert_records.h"
#include "objects/zone_meridian.h"
#include "objects/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/utmref.h"

namespace tessara {
namespace {

// A border may lie outside the limits of the system by its outset.
constexpr std::int32_t UNCHECKED = 0;

constexpr double BORDER_OUTSET = 1e-9;       // degrees
constexpr double LATITUDE_STEP = 1e-12;      // degrees; smaller steps end the search for a border point
constexpr int BORDER_ROUNDS = 20;            // a border point takes six at most
constexpr double NORTHING_TOLERANCE = 0.05;  // metres; more than a latitude that snaps to a limit costs
constexpr double EAST_TOLERANCE = 1e-5;      // metres; closer to an easting than this is on it
constexpr double EAST_ACCEPTABLE = 1e-3;     // metres; good enough when the trials are used up
constexpr int EAST_TRIALS = 20;

constexpr double WELL_INSIDE = 1e-4;         // degrees; more than a metre at latitude 84
constexpr double EQUATOR_DEGREE = 112000.0;  // metres, more than a degree of any ellipsoid's equator

constexpr double NO_VALUE = std::numeric_limits<double>::quiet_NaN();

std::int32_t DatumOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.datum);
}
std::int32_t TypeOf(const tagKOORD& record) {
    return static_cast<std::int32_t>(record.type);
}

// The wanted zone that keeps a position in the record's own zone. Strips want their true meridian, whatever
// they are numbered from.
std::int16_t WantedForOwnZone(const tagKOORD& record, double centralMeridian) {
    const ZoneRule rule = SystemOf(record).zones.rule;
    if (rule != ZoneRule::Strips3 && rule != ZoneRule::Strips6) {
        return static_cast<std::int16_t>(Zones_Number(record));
    }
    return TruncateToInt16(std::round(centralMeridian / 3.0) * 3.0);
}

// The squares of the equator have the first row letter of their scheme, five rows on in even zones.
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
    if (!System_Extreme(Compass::South, DatumOf(record), TypeOf(record), &south)) return NO_VALUE;
    return Axis_Value(Axis::North, south);
}

// How far east of the central line of its zone a record lies; NaN in a zone that doesn't exist.
double EastOfCentre(const tagKOORD& record) {
    tagKOORD centre = record;
    return Zones_MoveToCentre(&centre) ? Zones_East(record) - Zones_East(centre) : NO_VALUE;
}

// Whether the point of a meridian at a latitude has the border's northing. Beyond a pole it hasn't: the way
// back from a northing there ends on this side of the pole, and from it no way leads there.
bool IsOnMeridian(double longitude, double latitude, const tagKOORD& border) {
    tagKOORD point = MakeKoord(DatumOf(border), KOORD_GEODEZ);
    Store(point, GeodezPayload{latitude, longitude, 0.0});
    tagKOORD there = border;
    if (KoordConvertEx(&point, &there, UNCHECKED) != KOORD_OK) return false;
    return std::fabs(Axis_SignedNorthing(there) - Axis_SignedNorthing(border)) < NORTHING_TOLERANCE;
}

// How wide a zone is, from its central line to one of its borders, by northing.
class ZoneWidth {
  public:
    ZoneWidth(const tagKOORD& record, Compass side) : record_(record), side_(side) {}

    // In metres; NaN where there is no border.
    double At(double signedNorthing) const {
        tagKOORD border = record_;
        Axis_SetSignedNorthing(signedNorthing, &border);
        return Zones_MoveToBorder(side_, &border) ? std::fabs(EastOfCentre(border)) : NO_VALUE;
    }

  private:
    const tagKOORD& record_;
    Compass side_;
};

// Interpolates for the northing at which the zone is `target` wide, between a wide end and a narrow one. A
// short first step toward the narrow end is lengthened, since the width falls slowly there and a plain
// interpolation would creep. That isn't done any more once it has come near.
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
    return miss < EAST_ACCEPTABLE;  // GCOVR_EXCL_LINE: no width is known that takes all the trials
}

ZoneLimit MoveUtmrefToLimit(Compass direction, tagKOORD* record) {
    tagKOORD moved = *record;
    if (!ConvertInZone(KOORD_UTM, UNCHECKED, &moved)) return ZoneLimit::Failure;
    const ZoneLimit found = Zones_MoveToLimit(direction, &moved);
    if (found != ZoneLimit::Border) return found;
    if (!ConvertInZone(KOORD_UTMREF, UNCHECKED, &moved)) return ZoneLimit::Failure;
    Zones_Want(NO_WANTED_ZONE, &moved);
    *record = moved;
    return ZoneLimit::Border;
}

bool MoveUtmrefToBorder(Compass side, tagKOORD* record) {
    tagKOORD moved = *record;
    if (!ConvertInZone(KOORD_UTM, UNCHECKED, &moved)) return false;
    if (!Zones_MoveToBorder(side, &moved)) return false;
    if (!ConvertInZone(KOORD_UTMREF, UNCHECKED, &moved)) return false;
    Zones_Want(NO_WANTED_ZONE, &moved);
    *record = moved;
    return true;
}

}  // namespace

bool Zones_MoveToBorder(Compass side, tagKOORD* record) {
    const CallDepth depth;
    if (AxisOf(side) != Axis::East) return false;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToBorder(side, record);

    tagKOORD border = *record;
    GeodezPayload position;
    if (!Zones_MoveToCentre(&border) || !ToGeodez(border, &position)) return false;
    Zones_Want(WantedForOwnZone(*record, position.longitude), &border);
    const double longitude =
        position.longitude + SignOf(side) * (Zones_HalfWidth(TypeOf(*record)) + BORDER_OUTSET);

    double step = DBL_MAX;
    for (int round = 0; step > LATITUDE_STEP && round < BORDER_ROUNDS; ++round) {
        const double latitude = position.latitude;
        if (!Zones_StepAlongMeridian(longitude, latitude, UNCHECKED, &border, &position)) return false;
        step = std::fabs(position.latitude - latitude);
    }
    // Near a limit the kernel's snapping may keep the latitude jumping by as much.
    if (!(step <= LIMIT_TOLERANCE_DEGREES)) return false;
    if (!IsOnMeridian(longitude, position.latitude, border)) return false;
    Zones_SetEast(Zones_East(border), record);
    Zones_Want(NO_WANTED_ZONE, record);
    return true;
}

ZoneLimit Zones_MoveToLimit(Compass direction, tagKOORD* record) {
    const CallDepth depth;
    if (AxisOf(direction) != Axis::North) return ZoneLimit::Failure;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToLimit(direction, record);

    // No walk starts at what is no position.
    GeodezPayload position;
    if (!ToGeodez(*record, &position) || std::isnan(position.latitude)) return ZoneLimit::Failure;
    const double offset = EastOfCentre(*record);
    if (std::isnan(offset)) return ZoneLimit::Failure;
    if (offset == 0.0) return ZoneLimit::SystemFirst;

    tagKOORD limit;
    if (!System_Extreme(direction, DatumOf(*record), TypeOf(*record), &limit)) return ZoneLimit::Failure;
    const double widest = WidestNorthing(*record);
    const double last = Axis_SignedNorthing(limit);
    const double target = std::fabs(offset);
    const ZoneWidth width(*record, DirectionOf(Axis::East, offset));
    if (!(target <= width.At(widest))) return ZoneLimit::Failure;
    const double atLast = width.At(last);
    if (std::isnan(atLast)) return ZoneLimit::Failure;
    if (atLast >= target) return ZoneLimit::SystemFirst;

    double northing;
    if (!ZoneBorderSearch(width, widest, last, target, &northing)) return ZoneLimit::Failure;
    Axis_SetSignedNorthing(northing, record);
    Zones_Want(NO_WANTED_ZONE, record);
    return ZoneLimit::Border;
}

bool Zones_IsWellInside(const tagKOORD& record) {
    const double halfWidth = Zones_HalfWidth(TypeOf(record));
    // Far outside a zone the inverse projection means nothing. (UTMREF can't say so.)
    if (std::fabs(EastOfCentre(record)) > halfWidth * EQUATOR_DEGREE) return false;
    tagKOORD centre = record;
    GeodezPayload position;
    GeodezPayload middle;
    if (!Zones_MoveToCentre(&centre) || !ToGeodez(record, &position) || !ToGeodez(centre, &middle))
        return false;
    const double degrees = std::remainder(position.longitude - middle.longitude, 360.0);
    return std::fabs(degrees) < halfWidth - WELL_INSIDE;
}

bool Zones_MoveToEquator(tagKOORD* record) {
    if (!Zones_Exist(TypeOf(*record))) return false;
    if (SystemOf(*record).form == Form::Squares) return MoveUtmrefToEquator(record);
    const double northing = WidestNorthing(*record);
    if (std::isnan(northing)) return false;
    Axis_SetValue(Axis::North, northing, record);
    // The hemisphere stays: the equator of a southern position is written as 10000000.
    const double falseNorthing = northing - Axis_SignedNorthing(*record);
    Axis_SetValue(Axis::North, northing + falseNorthing, record);
    return true;
}

}  // namespace tessara
