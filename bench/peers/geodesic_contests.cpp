// Geodesics between consecutive positions, and from each position over up to 8000 km.
#include <proj.h>

#include <GeographicLib/Geodesic.hpp>

#include "bench/peers/array_contests.h"
#include "bench/peers/array_timing.h"
#include "bench/peers/contestants.h"
#include "bench/peers/contests.h"
#include "bench/peers/projection.h"
#include "bench/peers/record_values.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/geodesic_columns.h"

namespace tessara::bench {
namespace {

namespace geo = GeographicLib;

constexpr Area WORLD{"world", KOORD_GEODEZ, 2, -85.0, 85.0, -80.0, 80.0};
constexpr double AZIMUTH = 37.0;

double DistanceOf(std::size_t i) {
    return 1000.0 + 2000.0 * static_cast<double>(i);
}

// A problem in columns: four of degrees and metres in, three out.
class GeodesicArrays {
  public:
    explicit GeodesicArrays(const std::array<std::vector<double>, 4>& in)
        : out_(3, std::vector<double>(COUNT)) {
        for (const std::vector<double>& values : in)
            in_.push_back(Repeated(values));
        Geodesic_LoadAxes(axes_, DATUM_WGS84);
    }

    void Invert() {
        const GeodesicInverseColumns columns{In(0), In(1), In(2), In(3), Out(0), Out(1), Out(2)};
        Geodesic_InverseColumns(&columns, COUNT, axes_[0], axes_[1]);
    }
    void InvertOneByOne() {
        for (std::size_t i = 0; i < COUNT; ++i)
            Put(i, Geodesic_InverseCore(in_[0][i], in_[1][i], in_[2][i], in_[3][i], axes_[0], axes_[1]));
    }
    void InvertWithGeographicLib() {
        for (std::size_t i = 0; i < COUNT; ++i)
            geo::Geodesic::WGS84().Inverse(in_[0][i], in_[1][i], in_[2][i], in_[3][i], out_[0][i], out_[1][i],
                                           out_[2][i]);
    }
    void Direct() {
        const GeodesicDirectColumns columns{In(0), In(1), In(2), In(3), Out(0), Out(1), Out(2)};
        Geodesic_DirectColumns(&columns, COUNT, axes_[0], axes_[1]);
    }
    void DirectOneByOne() {
        for (std::size_t i = 0; i < COUNT; ++i)
            Put(i, Geodesic_DirectCore(in_[0][i], in_[1][i], in_[2][i], in_[3][i], axes_[0], axes_[1]));
    }
    void DirectWithGeographicLib() {
        for (std::size_t i = 0; i < COUNT; ++i)
            geo::Geodesic::WGS84().Direct(in_[0][i], in_[1][i], in_[3][i], in_[2][i], out_[0][i], out_[1][i],
                                          out_[2][i]);
    }

    [[nodiscard]] Values ResultOf(std::size_t i) const { return {out_[0][i], out_[1][i], out_[2][i]}; }

  private:
    [[nodiscard]] SourceColumn In(std::size_t k) const { return {in_[k].data(), sizeof(double)}; }
    [[nodiscard]] TargetColumn Out(std::size_t k) { return {out_[k].data(), sizeof(double)}; }
    void Put(std::size_t i, const GeodesicResult& result) {
        out_[0][i] = result.distance;
        out_[1][i] = result.azimuth12;
        out_[2][i] = result.azimuth21;
    }

    double axes_[2];
    std::vector<std::vector<double>> in_, out_;
};

using Solve = void (GeodesicArrays::*)();

struct GeodesicTask {
    const char* name;
    Solve columns, single, peer;
    Kind kind;
};

constexpr GeodesicTask GEODESIC_TASKS[] = {
    {"geodesic inverse", &GeodesicArrays::Invert, &GeodesicArrays::InvertOneByOne,
     &GeodesicArrays::InvertWithGeographicLib, Kind::METRES},
    {"geodesic direct", &GeodesicArrays::Direct, &GeodesicArrays::DirectOneByOne,
     &GeodesicArrays::DirectWithGeographicLib, Kind::DEGREES},
};

std::array<std::vector<double>, 4> ProblemOf(const GeodesicTask& task) {
    const std::vector<Values> degrees = ValuesOf(RandomPositions(WORLD));
    std::array<std::vector<double>, 4> in;
    for (std::size_t i = 0; i < POSITIONS; ++i) {
        const Values& end = degrees[(i + 1) % POSITIONS];
        const bool isInverse = task.kind == Kind::METRES;
        in[0].push_back(degrees[i][0]);
        in[1].push_back(degrees[i][1]);
        in[2].push_back(isInverse ? end[0] : DistanceOf(i));
        in[3].push_back(isInverse ? end[1] : AZIMUTH);
    }
    return in;
}

// What counts is the first result of the inverse problem, and the first two of the direct one.
Values ComparedOf(const GeodesicTask& task, const Values& v) {
    return task.kind == Kind::METRES ? Values{v[0], 0.0, 0.0} : Values{v[0], v[1], 0.0};
}

void RequireAgreement(const GeodesicTask& task, const GeodesicArrays& columns, const GeodesicArrays& single,
                      const GeodesicArrays& peer) {
    for (std::size_t i = 0; i < COUNT; ++i) {
        if (columns.ResultOf(i) != single.ResultOf(i))
            Fail(std::string(task.name) + ": columns aren't what single calls are");
        const double difference = DistanceInMetres(task.kind, ComparedOf(task, columns.ResultOf(i)),
                                                   ComparedOf(task, peer.ResultOf(i)));
        if (!(difference <= 1e-3)) Fail(std::string(task.name) + " in arrays: GeographicLib differs");
    }
}

}  // namespace

void CompareGeodesicArrays(const std::function<bool(const std::string&)>& isWanted) {
    std::printf("\n| %-22s | %7s | %13s | %12s | %13s | %5s |\n", "ns a row", "columns", "(all runs)",
                "single calls", "GeographicLib", "ratio");
    std::printf(
        "|:-----------------------|--------:|--------------:|-------------:|--------------:|------:|\n");
    for (const GeodesicTask& task : GEODESIC_TASKS) {
        if (!isWanted(task.name)) continue;
        const auto problem = ProblemOf(task);
        GeodesicArrays columns(problem), single(problem), peer(problem);
        std::vector<double> times, singleTimes, peerTimes;
        for (std::size_t run = 0; run < RUNS; ++run) {
            times.push_back(TimeOf([&] { (columns.*task.columns)(); }));
            singleTimes.push_back(TimeOf([&] { (single.*task.single)(); }));
            peerTimes.push_back(TimeOf([&] { (peer.*task.peer)(); }));
        }
        RequireAgreement(task, columns, single, peer);
        std::printf("| %-22s | %7.1f | %5.1f - %5.1f | %12.1f | %13.1f | %5.2f |\n", task.name, Median(times),
                    *std::min_element(times.begin(), times.end()),
                    *std::max_element(times.begin(), times.end()), Median(singleTimes), Median(peerTimes),
                    Median(times) / Median(peerTimes));
        std::fflush(stdout);
    }
}

void AddGeodesics(std::vector<Contest>* contests) {
    const std::vector<tagKOORD> positions = RandomPositions(WORLD);
    const std::vector<Values> degrees = ValuesOf(positions);
    const auto same = [](const Values& v) { return v; };
    const Projection ellipsoid = MakeProjection("+proj=longlat +ellps=WGS84");
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
                 out[0] = proj_geod(ellipsoid.get(), radians[i], radians[(i + 1) % POSITIONS]).lpz.lam;
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
