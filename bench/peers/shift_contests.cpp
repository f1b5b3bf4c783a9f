// Shifts between datums, and whole requests that contain one.
#include <cstdio>
#include <memory>
#include <utility>

#include "bench/peers/array_contests.h"
#include "bench/peers/contestants.h"
#include "bench/peers/contests.h"
#include "bench/peers/projection.h"
#include "bench/peers/record_values.h"
#include "bench/peers/requests.h"
#include "tessara/kernel/datum.h"

namespace tessara::bench {
namespace {

// One step of Molodensky's formulas between Bessel and WGS84. The kernel refines the shift from WGS84
// iteratively, PROJ does not.
constexpr Area GERMANY{"Germany", KOORD_GEODEZ, 3, 47.5, 55.0, 6.0, 15.0};
// East of the border by more than the shift, which would move a position into zone 31.
constexpr Area GERMANY_ZONE_32{"Germany, zone 32", KOORD_GEODEZ, 3, 47.5, 55.0, 6.01, 11.9};

std::string Molodensky() {
    const DatumRow& row = *Datum_Row(GERMANY.datum);
    char text[256];
    std::snprintf(text, sizeof text,
                  "+proj=molodensky +a=%.17g +rf=299.1528128 +da=%.17g +df=%.17g +dx=%.17g +dy=%.17g "
                  "+dz=%.17g",
                  row.a, WGS84_A - row.a, WGS84_F - row.f, row.dx, row.dy, row.dz);
    return text;
}

std::string MolodenskyToUtm() {
    return "+proj=pipeline +step " + Molodensky() + " +step +proj=utm +zone=32 +ellps=WGS84";
}

}  // namespace

void AddShiftArrays(std::vector<ArrayTask>* tasks) {
    std::vector<tagKOORD> wgs84 = RandomPositions(GERMANY);
    for (tagKOORD& position : wgs84)
        position.datum = DATUM_WGS84;
    tasks->push_back({"datum shift forward", RandomPositions(GERMANY), MakeKoord(DATUM_WGS84, KOORD_GEODEZ),
                      1, Molodensky(), PJ_FWD, Axes::DEGREES, Axes::DEGREES, 1e-3});
    tasks->push_back({"datum shift inverse", wgs84, MakeKoord(GERMANY.datum, KOORD_GEODEZ), 1, Molodensky(),
                      PJ_INV, Axes::DEGREES, Axes::DEGREES, 0.1});
    tasks->push_back({"Bessel to WGS84 to UTM", RandomPositions(GERMANY_ZONE_32),
                      MakeKoord(DATUM_WGS84, KOORD_UTM), 1, MolodenskyToUtm(), PJ_FWD, Axes::DEGREES,
                      Axes::GRID, 1e-3});
}

void AddShifts(std::vector<Contest>* contests) {
    const std::string shift = Molodensky();
    const std::vector<tagKOORD> bessel = RandomPositions(GERMANY);
    std::vector<tagKOORD> wgs84 = bessel;
    for (tagKOORD& position : wgs84)
        position.datum = DATUM_WGS84;
    const std::vector<Values> degrees = ValuesOf(bessel);
    contests->push_back({"datum shift forward", Kind::DEGREES, 1e-3,
                         Ours(bessel, MakeKoord(DATUM_WGS84, KOORD_GEODEZ), 1),
                         Proj(shift, PJ_FWD, degrees, Axes::DEGREES, Axes::DEGREES), Contestant{}});
    contests->push_back({"datum shift inverse", Kind::DEGREES, 0.1,
                         Ours(wgs84, MakeKoord(GERMANY.datum, KOORD_GEODEZ), 1),
                         Proj(shift, PJ_INV, degrees, Axes::DEGREES, Axes::DEGREES), Contestant{}});

    const std::vector<tagKOORD> zone32 = RandomPositions(GERMANY_ZONE_32);
    contests->push_back(
        {"Bessel to WGS84 to UTM", Kind::METRES, 1e-3, Ours(zone32, MakeKoord(DATUM_WGS84, KOORD_UTM), 1),
         Proj(MolodenskyToUtm(), PJ_FWD, ValuesOf(zone32), Axes::DEGREES, Axes::GRID), Contestant{}});
}

void AddRequests(std::vector<Contest>* contests) {
    constexpr double wholeMetres = 1.5;  // one rounds, the other truncates
    constexpr std::pair<std::int32_t, const char*> rows[] = {{KOORD_GEOGRAD, "request from degrees"},
                                                             {KOORD_UTM, "request from UTM"}};
    const Projection shift = MakeProjection(Molodensky());
    for (const auto& [system, name] : rows) {
        const auto request = std::make_shared<Request>(RandomPositions(GERMANY_ZONE_32), system);
        contests->push_back(
            {name, Kind::METRES, wholeMetres,
             Compete(
                 std::string(), [request](std::size_t i, std::string& out) { out = request->Ours(i); },
                 ValuesOfMgrsText),
             Contestant{},
             Compete(
                 std::string(),
                 [request, shift](std::size_t i, std::string& out) { out = request->Peers(i, shift.get()); },
                 ValuesOfMgrsText)});
    }
}

}  // namespace tessara::bench
