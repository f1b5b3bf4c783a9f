// Random windows of maps of every type, next to and across the lines where values end, jump or turn:
// longitudes 0 and 180, borders of zones, the equator and the poles.
#pragma once

#include <cmath>
#include <optional>
#include <string>

#include "support/map_objects.h"
#include "support/random.h"
#include "support/sheets.h"
#include "tessara/transformable_map_pixel.h"

namespace tessara::testing {

struct Place {
    double latitude, longitude;
};

// A map through a place, with an approximate pixel size in metres.
using EdgeMapMaker = MapParam (*)(const Place&, double metresPerPixel, Random*);

struct EdgeMap {
    const char* name;
    EdgeMapMaker make;
    double finest, coarsest;    // metres per pixel
    std::optional<Place> home;  // for a map of a single country
};

inline double ClampedLatitude(double latitude, double most) {
    return std::fmin(std::fmax(latitude, -most), most);
}

inline MapParam UtmEdgeMap(const Place& at, double metres, Random* random) {
    const int natural = static_cast<int>(std::floor((at.longitude + 180.0) / 6.0)) % 60 + 1;
    const int zone = (natural + random->Below(3) + 58) % 60 + 1;
    const bool isNorth = (at.latitude >= 0.0) == (random->Below(4) != 0);
    return Map(MAP_UTM, MapUtmParams{isNorth ? 'N' : 'S', static_cast<std::int16_t>(zone), 500000.0,
                                     isNorth ? 5000000.0 : 5500000.0, metres, metres});
}

inline std::int16_t MeridianNear(double longitude, int width, int first, int limit) {
    const int meridian = static_cast<int>(std::lround((longitude - first) / width)) * width + first;
    return static_cast<std::int16_t>(std::min(std::max(meridian, -limit), limit));
}

inline MapParam GkEdgeMap(const Place& at, double metres, Random*) {
    const std::int16_t meridian = MeridianNear(at.longitude, 3, 0, 177);
    return Map(MAP_GAUKRU, MapGkParams{0, meridian, meridian / 3 * 1e6 + 5e5, 5e6, metres, metres},
               DATUM_GER);
}

inline MapParam Gk6EdgeMap(const Place& at, double metres, Random*) {
    const std::int16_t meridian = MeridianNear(at.longitude, 6, 3, 177);
    return Map(MAP_GAUKRU6, MapGkParams{0, meridian, (meridian + 3) / 6 * 1e6 + 5e5, 5e6, metres, metres},
               DATUM_KS42);
}

inline MapParam BmnEdgeMap(const Place& at, double metres, Random*) {
    const std::int16_t meridian = at.longitude < 11.83 ? 28 : at.longitude < 14.83 ? 31 : 34;
    return Map(MAP_BMN, MapBmnParams{meridian, (meridian - 28) * 1e5 + 15e4, 250000.0, metres, metres},
               DATUM_MGI);
}

inline MapParam ChEdgeMap(const Place&, double metres, Random*) {
    return Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, metres, metres}, DATUM_CH1903);
}

inline MapParam RdEdgeMap(const Place&, double metres, Random*) {
    return Map(MAP_STEREOGR_NL, MapPlaneParams{155000.0, 463000.0, metres, metres}, DATUM_RDNAP);
}

inline MapParam UpsEdgeMap(char hemisphere, double metres) {
    return Map(MAP_UPS, MapUpsParams{hemisphere, 2000000.0, 2000000.0, metres, metres});
}
inline MapParam NorthernUpsEdgeMap(const Place&, double metres, Random*) {
    return UpsEdgeMap('N', metres);
}
inline MapParam SouthernUpsEdgeMap(const Place&, double metres, Random*) {
    return UpsEdgeMap('S', metres);
}

template <MapType TYPE>
MapParam TmEdgeMap(const Place& at, double metres, Random* random) {
    return Map(TYPE, MapTmParams{at.longitude + random->Between(-3.0, 3.0), 0.0, 400000.0, -100000.0,
                                 random->Between(0.9995, 1.0), 400000.0, 0.0, metres, metres});
}

constexpr double METRES_PER_DEGREE = 111000.0;

inline MapParam DdEdgeMap(const Place& at, double metres, Random* random) {
    const double perDegree = METRES_PER_DEGREE / metres;
    const double east = random->Between(-2.0, 2.0);
    return Map(MAP_DD, MapDdParams{at.longitude + east, at.latitude, perDegree, perDegree});
}

template <int ZONE>
MapParam EqualArcEdgeMap(const Place& at, double metres, Random* random) {
    const double perPixel = metres / METRES_PER_DEGREE;
    const double latitude = ZONE == 9 ? 80.0 : ZONE == 18 ? -76.0 : at.latitude;
    return Map(MAP_EQUALARC, MapEqualArcParams{ZONE, latitude, at.longitude + random->Between(-2.0, 2.0),
                                               perPixel, perPixel});
}

inline MapParam OnReference(MapParam map, const Place& at, double metres, std::int32_t datum = DATUM_WGS84) {
    return WithReference(map, GeodezRecord(at.latitude, at.longitude, 0.0, datum), 0, 0,
                         static_cast<std::int32_t>(metres * 10000.0), 10.0);
}

inline MapParam MercatorEdgeMap(const Place& at, double metres, Random* random) {
    return OnReference(Map(MAP_MERCATOR, MapMercatorParams{random->Between(-60.0, 60.0), {}}),
                       {ClampedLatitude(at.latitude, 70.0), at.longitude + random->Between(-2.0, 2.0)},
                       metres);
}

inline MapParam AzylEdgeMap(const Place& at, double metres, Random* random) {
    return OnReference(Map(MAP_AZYL, MapAzylParams{random->Between(-60.0, 60.0), {}}),
                       {random->Between(-45.0, 45.0), at.longitude + random->Between(-2.0, 2.0)}, metres);
}

// Two parallels of one side of the equator.
struct Cone {
    double parallel1, parallel2, meridian;
};

inline Cone ConeThrough(const Place& at, Random* random) {
    const double side = at.latitude < 0.0 ? -1.0 : 1.0;
    const double parallel = side * std::fmin(std::fmax(std::fabs(at.latitude), 10.0), 75.0);
    return {parallel - 4.0, parallel + 4.0, at.longitude + random->Between(-30.0, 30.0)};
}

inline MapParam Lambert2EdgeMap(const Place& at, double metres, Random* random) {
    const Cone cone = ConeThrough(at, random);
    return OnReference(Map(MAP_LAMBERT2, MapLambert2Params{cone.parallel1, cone.parallel2, cone.meridian}),
                       {at.latitude, cone.meridian}, metres);
}

inline MapParam LambertCcEdgeMap(const Place& at, double metres, Random* random) {
    const Cone cone = ConeThrough(at, random);
    return Map(MAP_LAMBERTCC, MapLambertCcParams{cone.parallel1, cone.parallel2, cone.meridian,
                                                 cone.parallel1, 0.0, 0.0, metres, metres, 0.0, 0.0});
}

inline MapParam LambertFrEdgeMap(const Place&, double metres, Random*) {
    return OnReference(Map(MAP_LAMBERTFR, MapLambertFrParams{2, 600000.0, 2200000.0}, DATUM_NTF), {46.8, 2.3},
                       metres, DATUM_NTF);
}

inline MapParam VdgEdgeMap(const Place& at, double metres, Random* random) {
    const double meridian = at.longitude + random->Between(-150.0, 150.0);
    return OnReference(Map(MAP_VAN_DER_GRINTEN, MapVdgParams{meridian, 0.0}), {0.0, meridian}, metres);
}

inline MapParam WagnerEdgeMap(const Place& at, double metres, Random* random) {
    const double meridian = at.longitude + random->Between(-150.0, 150.0);
    return OnReference(Map(MAP_WAGNER_IV, MapWagnerIvParams{meridian, 1.0, 1.0}), {0.0, meridian}, metres,
                       DATUM_SPHERE);
}

// Degrees along the rows and columns, slightly rotated.
inline MapParam PolynomEdgeMap(const Place& at, double metres, Random*) {
    const double scale = metres / METRES_PER_DEGREE, turn = 0.1;
    const double norm = scale * (1.0 + turn * turn);
    MapPolynomParams p{};
    p.order = 3;
    // latitude = at + scale (-y + turn x), longitude = at + scale (x + turn y), and the inverse.
    const double lat[3] = {at.latitude, scale * turn, -scale};
    const double lon[3] = {at.longitude, scale, scale * turn};
    const double x[3] = {-(at.longitude + turn * at.latitude) / norm, 1.0 / norm, turn / norm};
    const double y[3] = {(at.latitude - turn * at.longitude) / norm, turn / norm, -1.0 / norm};
    for (int i = 0; i < 3; ++i) {
        p.latFromPixel[i] = lat[i];
        p.lonFromPixel[i] = lon[i];
        p.pixelXFromWorld[i] = x[i];
        p.pixelYFromWorld[i] = y[i];
    }
    MapParam map = Map(MAP_POLYNOM, p);
    map.worldType = KOORD_GEODEZ;
    return map;
}

inline const EdgeMap EDGE_MAPS[] = {
    {"UTM", UtmEdgeMap, 1.0, 500.0, {}},
    {"GAUKRU", GkEdgeMap, 1.0, 200.0, {}},
    {"GAUKRU6", Gk6EdgeMap, 1.0, 400.0, {}},
    {"BMN", BmnEdgeMap, 1.0, 100.0, Place{47.5, 13.3}},
    {"CH", ChEdgeMap, 2.0, 500.0, Place{46.9, 8.2}},
    {"UPS_NORTH", NorthernUpsEdgeMap, 5.0, 2000.0, Place{88.0, 0.0}},
    {"UPS_SOUTH", SouthernUpsEdgeMap, 5.0, 2000.0, Place{-88.0, 0.0}},
    {"TM", TmEdgeMap<MAP_TM>, 1.0, 500.0, {}},
    {"PO_MILITARY", TmEdgeMap<MAP_PO_MILITARY>, 1.0, 500.0, Place{39.7, -8.1}},
    {"STEREOGR_NL", RdEdgeMap, 1.0, 200.0, Place{52.2, 5.4}},
    {"LUREF", TmEdgeMap<MAP_LUREF>, 1.0, 100.0, Place{49.8, 6.2}},
    {"DD", DdEdgeMap, 2.0, 20000.0, {}},
    {"EQUALARC", EqualArcEdgeMap<1>, 2.0, 20000.0, {}},
    {"EQUALARC_9", EqualArcEdgeMap<9>, 5.0, 5000.0, Place{88.0, 0.0}},
    {"EQUALARC_18", EqualArcEdgeMap<18>, 5.0, 5000.0, Place{-88.0, 0.0}},
    {"MERCATOR", MercatorEdgeMap, 5.0, 10000.0, {}},
    {"AZYL", AzylEdgeMap, 5.0, 10000.0, {}},
    {"LAMBERT2", Lambert2EdgeMap, 5.0, 1000.0, {}},
    {"LAMBERTCC", LambertCcEdgeMap, 5.0, 1000.0, {}},
    {"LAMBERTFR", LambertFrEdgeMap, 5.0, 400.0, Place{46.8, 2.3}},
    {"VAN_DER_GRINTEN", VdgEdgeMap, 500.0, 10000.0, {}},
    {"WAGNER_IV", WagnerEdgeMap, 500.0, 10000.0, {}},
    {"POLYNOM", PolynomEdgeMap, 5.0, 2000.0, {}},
};

// The limits of a system of a single country; nothing for the others.
inline std::optional<Place> HomeOf(std::int32_t system) {
    switch (system) {
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return Place{47.5, 13.3};
        case KOORD_CH:
            return Place{46.9, 8.2};
        case KOORD_PO_MILITARY:
            return Place{39.7, -8.1};
        case KOORD_BNG:
            return Place{53.0, -1.5};
        case KOORD_ING:
            return Place{53.4, -7.8};
        case KOORD_RD:
            return Place{52.2, 5.4};
        case KOORD_LUREF:
            return Place{49.8, 6.2};
        case KOORD_UPS:
            return Place{87.0, 0.0};
        default:
            return std::nullopt;
    }
}

// A meridian at a limit, or any meridian; near the home if there is one, unless that is a pole.
inline double EdgeLongitude(std::optional<Place> home, Random* random) {
    if (home && std::fabs(home->latitude) > 80.0) home.reset();
    const double around =
        home ? home->longitude + random->Between(-6.0, 6.0) : random->Between(-180.0, 180.0);
    switch (random->Below(home ? 4 : 6)) {
        case 0:
            return around;
        case 1:
            return std::round(around / 6.0) * 6.0;
        case 2:
            return std::round((around - 1.5) / 3.0) * 3.0 + 1.5;
        case 3:  // between the Austrian strips
            return home ? std::round((around - 11.833333333333332) / 3.0) * 3.0 + 11.833333333333332 : 0.0;
        case 4:
            return 180.0;
        default:
            return -180.0;
    }
}

inline double EdgeLatitude(const std::optional<Place>& home, Random* random) {
    if (home && std::fabs(home->latitude) > 80.0) {
        const double fromPole = random->Below(2) == 0 ? 0.0 : random->Between(0.0, 14.0);
        return std::copysign(90.0 - fromPole, home->latitude);
    }
    if (home) return home->latitude + random->Between(-4.0, 4.0);
    const double edges[] = {0.0, 0.0, 84.0, -80.0, 80.0, 90.0, -90.0, 85.0};
    return random->Below(2) == 0 ? random->OneOf(edges) : random->Between(-79.0, 79.0);
}

// A window beside or across an edge; nothing if the map can't show the place.
struct EdgeWindow {
    MapParam map;
    PixelRect rect;
    std::int32_t datum;     // of the query
    double metresPerPixel;  // approximate
    std::string name;
};

inline std::optional<EdgeWindow> MakeEdgeWindow(const EdgeMap& type, std::int32_t system,
                                                std::uint64_t seed) {
    Random random(seed);
    const std::optional<Place> home = type.home ? type.home : HomeOf(system);
    const Place at{EdgeLatitude(home, &random), EdgeLongitude(home, &random)};
    // Far from its own country, the values of a grid repeat, so such windows are smaller than some thousand
    // kilometres.
    const double coarsest = HomeOf(system) ? std::fmin(type.coarsest, 1500.0) : type.coarsest;
    const double metres = std::exp(random.Between(std::log(type.finest), std::log(coarsest)));
    EdgeWindow window{type.make(at, metres, &random), {}, DATUM_WGS84, metres, {}};
    if (random.Below(2) == 0) window.datum = static_cast<std::int32_t>(window.map.datum);
    const PixelResult pixel = ToPixel(window.map, GeodezRecord(at.latitude, at.longitude, 0.0,
                                                               static_cast<std::int32_t>(window.map.datum)));
    if (pixel.status != KOORD_OK || !(std::fabs(pixel.x) < 1e9 && std::fabs(pixel.y) < 1e9))
        return std::nullopt;
    const auto span = [&random](double around, std::int32_t* low, std::int32_t* high) {
        const std::int32_t size = 20 + random.Below(random.Below(2) == 0 ? 400 : 3000);
        *low = static_cast<std::int32_t>(std::floor(around - size * random.Between(-0.2, 1.2)));
        *high = *low + size;
    };
    span(pixel.x, &window.rect.left, &window.rect.right);
    span(pixel.y, &window.rect.top, &window.rect.bottom);
    const PixelRect& r = window.rect;
    char text[200];
    std::snprintf(text, sizeof text, "seed %llu: %s at %.6f %.6f, %.6g m, datum %d, %d %d %d %d",
                  static_cast<unsigned long long>(seed), type.name, at.latitude, at.longitude, metres,
                  static_cast<int>(window.datum), static_cast<int>(r.left), static_cast<int>(r.top),
                  static_cast<int>(r.right), static_cast<int>(r.bottom));
    window.name = text;
    return window;
}

}  // namespace tessara::testing
