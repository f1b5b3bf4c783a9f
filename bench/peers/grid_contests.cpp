// Compares the kernel's coordinate systems with PROJ's operations and GeographicLib's classes.
#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/OSGB.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include "bench/peers/array_contests.h"
#include "bench/peers/contestants.h"
#include "bench/peers/contests.h"
#include "bench/peers/record_values.h"

namespace tessara::bench {
namespace {

namespace geo = GeographicLib;

constexpr double BESSEL_A = 6377397.155;
constexpr double BESSEL_F = 1.0 / 299.1528128;

void UtmForward(const Values& in, Values& out) {
    int zone;
    bool isNorth;
    geo::UTMUPS::Forward(in[0], in[1], zone, isNorth, out[0], out[1]);
}
void UtmInverse(const Values& in, Values& out) {
    geo::UTMUPS::Reverse(32, true, in[0], in[1], out[0], out[1]);
}

const geo::TransverseMercator& Bessel() {
    static const geo::TransverseMercator projection(BESSEL_A, BESSEL_F, 1.0);
    return projection;
}
void GkForward(const Values& in, Values& out) {
    Bessel().Forward(9.0, in[0], in[1], out[0], out[1]);
    out[0] += 3500000.0;
}
void GkInverse(const Values& in, Values& out) {
    Bessel().Reverse(9.0, in[0] - 3500000.0, in[1], out[0], out[1]);
}

void BngForward(const Values& in, Values& out) {
    geo::OSGB::Forward(in[0], in[1], out[0], out[1]);
}
void BngInverse(const Values& in, Values& out) {
    geo::OSGB::Reverse(in[0], in[1], out[0], out[1]);
}

void UpsForward(const Values& in, Values& out) {
    geo::PolarStereographic::UPS().Forward(true, in[0], in[1], out[0], out[1]);
    out[0] += 2e6;
    out[1] += 2e6;
}
void UpsInverse(const Values& in, Values& out) {
    geo::PolarStereographic::UPS().Reverse(true, in[0] - 2e6, in[1] - 2e6, out[0], out[1]);
}

void EcefForward(const Values& in, Values& out) {
    geo::Geocentric::WGS84().Forward(in[0], in[1], 0.0, out[0], out[1], out[2]);
}
void EcefInverse(const Values& in, Values& out) {
    double height;
    geo::Geocentric::WGS84().Reverse(in[0], in[1], in[2], out[0], out[1], height);
}

struct Cone {
    geo::LambertConformalConic projection{WGS84_A, WGS84_F, 48.5, 53.5, 1.0};
    double y0;
    Cone() {
        double x;
        projection.Forward(10.0, 51.0, 10.0, x, y0);
    }
};
const Cone& TheCone() {
    static const Cone cone;
    return cone;
}
void LambertForward(const Values& in, Values& out) {
    TheCone().projection.Forward(10.0, in[0], in[1], out[0], out[1]);
    out[1] -= TheCone().y0;
}
void LambertInverse(const Values& in, Values& out) {
    TheCone().projection.Reverse(10.0, in[0], in[1] + TheCone().y0, out[0], out[1]);
}

// The grids, each compared in both directions. UTM ends at 56 degrees, because GeographicLib uses the wider
// zones of Norway and Spitsbergen.
struct GridTask {
    Area area;
    const char* proj;
    Step geographicForward, geographicInverse;
    double tolerance;  // metres
};

constexpr double CONFORMAL = 5e-6;  // from the order of the kernel's series
constexpr double EXACT = 1e-6;
constexpr double CANCELLING = 0.1;  // van der Grinten's formulas lose digits near both axes

constexpr GridTask GRIDS[] = {
    {{"UTM", KOORD_UTM, 2, 0.5, 55.0, 6.0, 12.0},
     "+proj=utm +zone=32 +ellps=WGS84",
     UtmForward,
     UtmInverse,
     CONFORMAL},
    {{"GK", KOORD_GK, 3, 0.5, 79.0, 7.51, 10.49},
     "+proj=tmerc +lon_0=9 +x_0=3500000 +ellps=bessel",
     GkForward,
     GkInverse,
     CONFORMAL},
    {{"BNG", KOORD_BNG, 98, 50.2, 58.5, -5.0, 1.5},
     "+proj=tmerc +lat_0=49 +lon_0=-2 +k=0.9996012717 +x_0=400000 +y_0=-100000 +a=6377563.396 "
     "+rf=299.3249646",
     BngForward,
     BngInverse,
     1e-4},
    {{"CH", KOORD_CH, 7, 45.9, 47.7, 6.0, 10.4},
     "+proj=somerc +lat_0=46.95240555555556 +lon_0=7.439583333333333 +x_0=600000 +y_0=200000 +ellps=bessel",
     nullptr,
     nullptr,
     1e-4},
    {{"RD", KOORD_RD, 237, 51.0, 53.4, 3.5, 7.1},
     "+proj=sterea +lat_0=52.1561605556 +lon_0=5.3876388889 +k=0.99990790084 +x_0=155000 +y_0=463000 "
     "+ellps=bessel",
     nullptr,
     nullptr,
     1e-4},
    {{"UPS", KOORD_UPS, 2, 80.5, 89.5, -179.9, 179.9},
     "+proj=ups +ellps=WGS84",
     UpsForward,
     UpsInverse,
     EXACT},
    {{"ECEF", KOORD_ECEF, 2, -89.0, 89.0, -179.9, 179.9},
     "+proj=cart +ellps=WGS84",
     EcefForward,
     EcefInverse,
     EXACT},
    {{"LAMBERTCC", KOORD_LAMBERTCC, 2, 43.0, 60.0, 0.0, 20.0},
     "+proj=lcc +lat_1=48.5 +lat_2=53.5 +lat_0=51 +lon_0=10 +ellps=WGS84",
     LambertForward,
     LambertInverse,
     EXACT},
    {{"VDG", KOORD_VDG, 2, -80.0, 80.0, -179.0, 179.0},
     "+proj=vandg +R=6378137",
     nullptr,
     nullptr,
     CANCELLING},
};

void AddGrid(const GridTask& task, std::vector<Contest>* contests) {
    const Area& area = task.area;
    const std::vector<tagKOORD> positions = RandomPositions(area);
    const std::vector<tagKOORD> records = AllConverted(area);
    const std::vector<Values> degrees = ValuesOf(positions);
    const std::vector<Values> grid = ValuesOf(records);
    const tagKOORD geodez = MakeKoord(area.datum, KOORD_GEODEZ);
    const Axes axes = area.type == KOORD_ECEF ? Axes::SPACE : Axes::GRID;
    contests->push_back({std::string(area.name) + " forward", Kind::METRES, task.tolerance,
                         Ours(positions, Target(area), CheckRange(area)),
                         Proj(task.proj, PJ_FWD, degrees, Axes::DEGREES, axes),
                         Geographic(task.geographicForward, degrees)});
    contests->push_back({std::string(area.name) + " inverse", Kind::DEGREES, task.tolerance,
                         Ours(records, geodez, 1), Proj(task.proj, PJ_INV, grid, axes, Axes::DEGREES),
                         Geographic(task.geographicInverse, grid)});
}

void AddGridArray(const GridTask& task, std::vector<ArrayTask>* tasks) {
    const Area& area = task.area;
    const Axes axes = area.type == KOORD_ECEF ? Axes::SPACE : Axes::GRID;
    tasks->push_back({std::string(area.name) + " forward", RandomPositions(area), Target(area),
                      CheckRange(area), task.proj, PJ_FWD, Axes::DEGREES, axes, task.tolerance});
    tasks->push_back({std::string(area.name) + " inverse", AllConverted(area),
                      MakeKoord(area.datum, KOORD_GEODEZ), 1, task.proj, PJ_INV, axes, Axes::DEGREES,
                      task.tolerance});
}

}  // namespace

void AddGridArrays(std::vector<ArrayTask>* tasks) {
    for (const GridTask& task : GRIDS)
        AddGridArray(task, tasks);
}

void AddGrids(std::vector<Contest>* contests) {
    for (const GridTask& task : GRIDS)
        AddGrid(task, contests);
}

}  // namespace tessara::bench
