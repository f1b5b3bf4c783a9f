// Geodesics between consecutive positions, and from each position over up to 8000 km.
#include <proj.h>

#include <GeographicLib/Geodesic.hpp>

#include "bench/peers/contestants.h"
#include "bench/peers/contests.h"
#include "bench/peers/record_values.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::bench {
namespace {

namespace geo = GeographicLib;

constexpr Area WORLD{"world", KOORD_GEODEZ, 2, -85.0, 85.0, -80.0, 80.0};
constexpr double AZIMUTH = 37.0;

double DistanceOf(std::size_t i) {
    return 1000.0 + 2000.0 * static_cast<double>(i);
}

}  // namespace

void AddGeodesics(std::vector<Contest>* contests) {
    const std::vector<tagKOORD> positions = RandomPositions(WORLD);
    const std::vector<Values> degrees = ValuesOf(positions);
    const auto same = [](const Values& v) { return v; };
    PJ* const ellipsoid = proj_create(PJ_DEFAULT_CTX, "+proj=longlat +ellps=WGS84");
    std::vector<PJ_COORD> radians;
    for (const Values& v : degrees)
        radians.push_back(proj_coord(proj_torad(v[1]), proj_torad(v[0]), 0.0, 0.0));

    contests->push_back(
        {"geodesic inverse", Kind::METRES, 1e-3,
         Compete(
             Values{},
             [positions](std::size_t i, Values& out) {
                 double azimuth12, azimuth21;
                 Geodesic_Inverse(&positions[i], &positions[(i + 1) % POSITIONS], DATUM_WGS84, &out[0],
                                  &azimuth12, &azimuth21);
             },
             same),
         Compete(
             Values{},
             [ellipsoid, radians](std::size_t i, Values& out) {
                 out[0] = proj_geod(ellipsoid, radians[i], radians[(i + 1) % POSITIONS]).lpz.lam;
             },
             same),
         Compete(
             Values{},
             [degrees](std::size_t i, Values& out) {
                 const Values& p1 = degrees[i];
                 const Values& p2 = degrees[(i + 1) % POSITIONS];
                 double azimuth1, azimuth2;
                 geo::Geodesic::WGS84().Inverse(p1[0], p1[1], p2[0], p2[1], out[0], azimuth1, azimuth2);
             },
             same)});
    contests->push_back({"geodesic direct", Kind::DEGREES, 1e-3,
                         Compete(
                             MakeKoord(DATUM_WGS84, KOORD_GEODEZ),
                             [positions](std::size_t i, tagKOORD& out) {
                                 Geodesic_Direct(&positions[i], DATUM_WGS84, DistanceOf(i), AZIMUTH, &out);
                             },
                             [](const tagKOORD& record) { return ValuesOf(record); }),
                         Contestant{},
                         Compete(
                             Values{},
                             [degrees](std::size_t i, Values& out) {
                                 double azimuth2;
                                 geo::Geodesic::WGS84().Direct(degrees[i][0], degrees[i][1], AZIMUTH,
                                                               DistanceOf(i), out[0], out[1], azimuth2);
                             },
                             same)});
}

}  // namespace tessara::bench
