#include "areas/system_extremes.h"

#include <limits>
#include <utility>

#include "objects/axis_values.h"
#include "objects/default_koord.h"
#include "objects/zones.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/limits.h"

namespace tessara {
namespace {

constexpr double MAX_PIXEL = std::numeric_limits<double>::max();

// Pixel rows grow southward.
constexpr Limits LONGPIXEL_LIMITS{INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN};
constexpr Limits FLOATPIXEL_LIMITS{-MAX_PIXEL, MAX_PIXEL, MAX_PIXEL, -MAX_PIXEL};

// Keeps a point inside a zone that it would otherwise leave, in degrees.
constexpr double INSET = 1e-09;

constexpr double AUSTRIAN_MIDDLE =
    13.333333333333332;  // the central meridian 31 east of Ferro, from Greenwich

tagKOORD& At(Compass direction, SystemExtremes* extremes) {
    return (*extremes)[static_cast<std::size_t>(direction)];
}

void Set(Compass direction, double east, double north, SystemExtremes* extremes) {
    Axis_SetValue(Axis::East, east, &At(direction, extremes));
    Axis_SetValue(Axis::North, north, &At(direction, extremes));
}

// A system with limits on its values: the middles of the four sides.
bool FromLimits(const Limits& limits, SystemExtremes* extremes) {
    const double east = limits.west / 2.0 + limits.east / 2.0;
    const double north = limits.south / 2.0 + limits.north / 2.0;
    Set(Compass::North, east, limits.north, extremes);
    Set(Compass::East, limits.east, north, extremes);
    Set(Compass::South, east, limits.south, extremes);
    Set(Compass::West, limits.west, north, extremes);
    return true;
}

// A position in degrees and the zone it is wanted in.
struct Corner {
    double latitude;
    double longitude;
    std::int16_t wantedZone = NO_WANTED_ZONE;
};

using Corners = std::array<Corner, COMPASS_COUNT>;

constexpr Corners GEODEZ_CORNERS{{{90.0, 0.0}, {0.0, 360.0}, {-90.0, 0.0}, {0.0, -360.0}}};
constexpr Corners UTM_CORNERS{{{84.0, 3.0}, {0.0, 180.0, 60}, {-80.0, 3.0}, {0.0, -180.0, 1}}};
constexpr Corners GK_CORNERS{{{80.0, 0.0}, {0.0, 181.5 - INSET}, {-80.0, 0.0}, {0.0, -181.5 + INSET}}};
constexpr Corners GK_KKJ_CORNERS{{{80.0, 0.0}, {0.0, 181.5 - INSET}, {-80.0, 0.0}, {0.0, -162.5 + INSET}}};
constexpr Corners GK6_CORNERS{{{80.0, 3.0}, {0.0, 180.0 - INSET}, {-80.0, 3.0}, {0.0, -180.0 + INSET}}};
constexpr Corners AUSTRIAN_CORNERS{{{AUSTRIAN_LIMITS.north, AUSTRIAN_MIDDLE},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_LIMITS.east - INSET},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_MIDDLE},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_LIMITS.west + INSET}}};
constexpr Corners UPS_CORNERS{{{80.0, 0.0}, {80.0, 90.0}, {80.0, 180.0}, {80.0, -90.0}}};
constexpr Corners VDG_CORNERS{{{85.0, 0.0}, {0.0, 180.0}, {-85.0, 0.0}, {0.0, -180.0}}};

bool FromCorner(const Corner& corner, tagKOORD* extreme) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(extreme->datum), KOORD_GEODEZ);
    Store(geodez, GeodezPayload{corner.latitude, corner.longitude, 0.0});
    if (corner.wantedZone != NO_WANTED_ZONE) Zones_Want(corner.wantedZone, extreme);
    return KoordConvert(&geodez, extreme) == KOORD_OK;
}

bool FromCorners(const Corners& corners, SystemExtremes* extremes) {
    for (std::size_t i = 0; i < extremes->size(); ++i) {
        if (!FromCorner(corners[i], &(*extremes)[i])) return false;
    }
    return true;
}

// Degrees need no datum.
bool FromDegrees(SystemExtremes* extremes) {
    for (std::size_t i = 0; i < extremes->size(); ++i) {
        const double position[3] = {GEODEZ_CORNERS[i].latitude, GEODEZ_CORNERS[i].longitude, 0.0};
        tagKOORD& extreme = (*extremes)[i];
        if (extreme.type == KOORD_GEOGRAD) {
            GeogradPayload payload{};
            GEOGRAD_FromGeodetic(position, &payload);
            Store(extreme, payload);
        } else {
            GeodezMinPayload payload{};
            GEODEZMIN_FromGeodetic(position, &payload);
            Store(extreme, payload);
        }
    }
    return true;
}

bool OfGeoref(SystemExtremes* extremes) {
    Store(At(Compass::North, extremes), GeorefPayload{5, 'N', 'M', 'H', 'Q', 3000, 5999});
    Store(At(Compass::East, extremes), GeorefPayload{5, 'Z', 'G', 'Q', 'A', 5999, 0});
    Store(At(Compass::South, extremes), GeorefPayload{5, 'N', 'A', 'H', 'A', 3000, 0});
    Store(At(Compass::West, extremes), GeorefPayload{5, 'A', 'G', 'A', 'A', 0, 0});
    return true;
}

// The earth's centre lies south of every position: the south extreme stays 0, 0, 0.
bool OfEcef(SystemExtremes* extremes) {
    return FromCorner({90.0, 0.0}, &At(Compass::North, extremes)) &&
           FromCorner({0.0, 90.0}, &At(Compass::East, extremes)) &&
           FromCorner({0.0, 0.0}, &At(Compass::West, extremes));
}

// Which side of the pole lies up the northing is read from the grid itself.
bool OfUps(SystemExtremes* extremes) {
    if (!FromCorners(UPS_CORNERS, extremes)) return false;
    tagKOORD& north = At(Compass::North, extremes);
    tagKOORD& south = At(Compass::South, extremes);
    if (Axis_Value(Axis::North, south) > Axis_Value(Axis::North, north)) std::swap(north, south);
    return true;
}

// Along the ellipsoid from latitude 0, longitude 0. Negative on a datum without an ellipsoid.
double DistanceFromOrigin(std::int32_t datum, double latitude, double longitude) {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    return Geodesic_InverseCore(0.0, 0.0, latitude, longitude, axes[0], axes[1]).distance;
}

// A free projection carries its own parameters: the extremes are a quarter of a meridian up and down, and 20
// degrees of the equator to the sides.
bool OfTm(SystemExtremes* extremes) {
    const auto datum = static_cast<std::int32_t>((*extremes)[0].datum);
    const double meridian = DistanceFromOrigin(datum, 90.0, 0.0);
    const double equator = DistanceFromOrigin(datum, 0.0, 20.0);
    if (!(meridian > 0.0 && equator > 0.0)) return false;
    Store(At(Compass::North, extremes), TmPayload{0.0, 60.0, 0.0, meridian, 1.0, 0.0, meridian});
    Store(At(Compass::East, extremes), TmPayload{180.0, 0.0, equator, 0.0, 1.0, equator, 0.0});
    Store(At(Compass::South, extremes), TmPayload{0.0, -60.0, 0.0, -meridian, 1.0, 0.0, meridian});
    Store(At(Compass::West, extremes), TmPayload{-180.0, 0.0, -equator, 0.0, 1.0, -equator, 0.0});
    return true;
}

// Fills four default records.
bool Fill(std::int32_t datum, std::int32_t system, SystemExtremes* extremes) {
    switch (system) {
        case KOORD_LONGPIXEL:
            return FromLimits(LONGPIXEL_LIMITS, extremes);
        case KOORD_FLOATPIXEL:
            return FromLimits(FLOATPIXEL_LIMITS, extremes);
        case KOORD_UTM:
        case KOORD_UTMREF:
            return FromCorners(UTM_CORNERS, extremes);
        case KOORD_GEODEZ:
            return FromCorners(GEODEZ_CORNERS, extremes);
        case KOORD_GEOGRAD:
        case KOORD_GEODEZMIN:
            return FromDegrees(extremes);
        case KOORD_GEOREF:
            return OfGeoref(extremes);
        case KOORD_GK:
            return FromCorners(datum == DATUM_KKJ ? GK_KKJ_CORNERS : GK_CORNERS, extremes);
        case KOORD_GK6:
            return FromCorners(GK6_CORNERS, extremes);
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return FromCorners(AUSTRIAN_CORNERS, extremes);
        case KOORD_CH:
            return FromLimits(CH_LIMITS, extremes);
        case KOORD_ECEF:
            return OfEcef(extremes);
        case KOORD_UPS:
            return OfUps(extremes);
        case KOORD_PO_MILITARY:
            return FromLimits(PO_MILITARY_LIMITS, extremes);
        case KOORD_TM:
            return OfTm(extremes);
        case KOORD_VDG:
            return FromCorners(VDG_CORNERS, extremes);
        case KOORD_BNG:
            return FromLimits(BNG_LIMITS, extremes);
        case KOORD_ING:
            return FromLimits(ING_LIMITS, extremes);
        case KOORD_RD:
            return FromLimits(RD_LIMITS, extremes);
        case KOORD_LUREF:
            return FromLimits(LUREF_LIMITS, extremes);
        default:  // GCOVR_EXCL_START: such a system has no default record either
            return false;
    }  // GCOVR_EXCL_STOP
}

}  // namespace

bool System_Extremes(std::int32_t datum, std::int32_t system, SystemExtremes* extremes) {
    CKoord fresh;
    if (!DefaultKoord(datum, system, &fresh)) return false;
    SystemExtremes filled;
    filled.fill(fresh);
    if (!Fill(datum, system, &filled)) return false;
    *extremes = filled;
    return true;
}

bool System_Extreme(Compass direction, std::int32_t datum, std::int32_t system, tagKOORD* extreme) {
    SystemExtremes extremes;
    if (!System_Extremes(datum, system, &extremes)) return false;
    *extreme = extremes[static_cast<std::size_t>(direction)];
    return true;
}

}  // namespace tessara
