#include "records/system_extremes.h"

#include <utility>

#include "records/axis_values.h"
#include "records/default_koord.h"
#include "records/zones.h"
#include "systems/system_row.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

tagKOORD& At(Compass direction, SystemExtremes* extremes) {
    return (*extremes)[static_cast<std::size_t>(direction)];
}

void Set(Compass direction, double east, double north, SystemExtremes* extremes) {
    axes::SetValue(Axis::East, east, &At(direction, extremes));
    axes::SetValue(Axis::North, north, &At(direction, extremes));
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

bool FromCorner(const Corner& corner, tagKOORD* extreme) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(extreme->datum), KOORD_GEODEZ);
    Store(geodez, GeodezPayload{corner.latitude, corner.longitude, 0.0});
    if (corner.wantedZone != NO_WANTED_ZONE) zones::Want(corner.wantedZone, extreme);
    return KoordConvert(&geodez, extreme) == KOORD_OK;
}

bool FromCorners(const Corners& corners, SystemExtremes* extremes) {
    for (std::size_t i = 0; i < extremes->size(); ++i) {
        if (!FromCorner(corners[i], &(*extremes)[i])) return false;
    }
    return true;
}

// Degrees are the same on every datum.
bool FromDegrees(const Corners& corners, SystemExtremes* extremes) {
    for (std::size_t i = 0; i < extremes->size(); ++i) {
        const double position[3] = {corners[i].latitude, corners[i].longitude, 0.0};
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

// The south extreme stays (0, 0, 0): the earth's centre compares as south of every position.
bool OfEcef(const Corners& corners, SystemExtremes* extremes) {
    const tagKOORD centre = At(Compass::South, extremes);
    if (!FromCorners(corners, extremes)) return false;
    At(Compass::South, extremes) = centre;
    return true;
}

// The grid itself decides which of the two positions on the meridian lies further north.
bool OfUps(const Corners& corners, SystemExtremes* extremes) {
    if (!FromCorners(corners, extremes)) return false;
    tagKOORD& north = At(Compass::North, extremes);
    tagKOORD& south = At(Compass::South, extremes);
    if (axes::Value(Axis::North, south) > axes::Value(Axis::North, north)) std::swap(north, south);
    return true;
}

// The length of the geodesic from latitude 0, longitude 0. Negative on a datum without an ellipsoid.
double DistanceFromOrigin(std::int32_t datum, double latitude, double longitude) {
    double axes[2];
    Geodesic_LoadAxes(axes, datum);
    return Geodesic_InverseCore(0.0, 0.0, latitude, longitude, axes[0], axes[1]).distance;
}

// A free projection has no fixed parameters. Its extremes carry their own: a quarter of a meridian to the
// north and south, 20 degrees of the equator to the sides.
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

// Fills in four default records.
bool Fill(std::int32_t datum, const SystemRow& row, SystemExtremes* extremes) {
    const bool isOnKkj = datum == DATUM_KKJ && row.extremes.cornersOnKkj != nullptr;
    const Corners* const corners = isOnKkj ? row.extremes.cornersOnKkj : row.extremes.corners;
    switch (row.extremes.rule) {
        case ExtremesRule::Limits:
            return FromLimits(row.limits, extremes);
        case ExtremesRule::Positions:
            return FromCorners(*corners, extremes);
        case ExtremesRule::Degrees:
            return FromDegrees(*corners, extremes);
        case ExtremesRule::Letters:
            return OfGeoref(extremes);
        case ExtremesRule::Cartesian:
            return OfEcef(*corners, extremes);
        case ExtremesRule::Polar:
            return OfUps(*corners, extremes);
        case ExtremesRule::Quadrants:
            return OfTm(extremes);
        case ExtremesRule::None:  // GCOVR_EXCL_START: a system without extremes has no default record
            break;
    }
    return false;
}  // GCOVR_EXCL_STOP

}  // namespace

bool FindSystemExtremes(std::int32_t datum, std::int32_t system, SystemExtremes* extremes) {
    CKoord fresh;
    if (!DefaultKoord(datum, system, &fresh)) return false;
    SystemExtremes filled;
    filled.fill(fresh);
    if (!Fill(datum, SystemOf(system), &filled)) return false;
    *extremes = filled;
    return true;
}

bool FindSystemExtreme(Compass direction, std::int32_t datum, std::int32_t system, tagKOORD* extreme) {
    SystemExtremes extremes;
    if (!FindSystemExtremes(datum, system, &extremes)) return false;
    *extreme = extremes[static_cast<std::size_t>(direction)];
    return true;
}

}  // namespace tessara
