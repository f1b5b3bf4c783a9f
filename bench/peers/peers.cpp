// The kernel beside PROJ and GeographicLib: the same positions, the same arrays of 4096, one thread, one run,
// medians of five. Before anything is timed the libraries are held against each other on all positions; a
// disagreement ends the program, for a comparison of different tasks says nothing.
//
//     peers [--json FILE] [NAME ...]     only the tasks whose names begin with a NAME

#include <proj.h>

#include <GeographicLib/GeoCoords.hpp>
#include <GeographicLib/Geocentric.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/Georef.hpp>
#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/OSGB.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <GeographicLib/UTMUPS.hpp>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <nlohmann/json.hpp>
#include <string_view>

#include "bench/peers/contest.h"
#include "bench/peers/requests.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::bench {
namespace {

namespace geo = GeographicLib;

[[noreturn]] void Fail(const std::string& message) {
    std::fprintf(stderr, "peers: %s\n", message.c_str());
    std::exit(1);
}

// Letters and metres of a reference as two numbers that differ by as much as the references do in metres,
// within one square. `reference` is ZZBCR and two times five digits.
Values ValuesOfMgrs(int zone, char band, char column, char row, int easting, int northing) {
    return {1e7 * zone + 1e5 * column + easting, 1e7 * band + 1e5 * row + northing, 0.0};
}

Values ValuesOf(const tagKOORD& record) {
    switch (record.type) {
        case KOORD_UTM: {
            const auto p = Load<UtmPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_UTMREF: {
            const auto p = Load<UtmrefPayload>(record);
            return ValuesOfMgrs(p.zone, p.band, p.column, p.row, p.easting, p.northing);
        }
        case KOORD_GEODEZ: {
            const auto p = Load<GeodezPayload>(record);
            return {p.latitude, p.longitude, 0.0};
        }
        case KOORD_GK: {
            const auto p = Load<GkPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_CH:
        case KOORD_RD: {
            const auto p = Load<GridPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_UPS: {
            const auto p = Load<UpsPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        case KOORD_ECEF: {
            const auto p = Load<EcefPayload>(record);
            return {p.x, p.y, p.z};
        }
        case KOORD_VDG: {
            const auto p = Load<VdgPayload>(record);
            return {p.x, p.y, 0.0};
        }
        case KOORD_BNG: {
            const auto p = Load<LetterGridPayload>(record);
            return {p.fullEasting, p.fullNorthing, 0.0};
        }
        case KOORD_LAMBERTCC: {
            const auto p = Load<LambertCCPayload>(record);
            return {p.easting, p.northing, 0.0};
        }
        default:
            Fail("a record of a type that isn't compared");
    }
}

std::vector<Values> ValuesOf(const std::vector<tagKOORD>& records) {
    std::vector<Values> values;
    for (const tagKOORD& record : records)
        values.push_back(ValuesOf(record));
    return values;
}

// Ours: one call of the pipeline a position, with everything it does.
Contestant Ours(const std::vector<tagKOORD>& sources, const tagKOORD& target, std::int32_t checkRange) {
    return Compete(
        target,
        [sources, checkRange](std::size_t i, tagKOORD& output) {
            if (KoordConvertEx(&sources[i], &output, checkRange) != KOORD_OK) Fail("a position fails");
        },
        [](const tagKOORD& output) { return ValuesOf(output); });
}

// PROJ: one call of proj_trans a position. It takes and gives radians, longitude first; degrees become
// radians by hand, as a pipeline with a step for that is slower.
enum class Axes { DEGREES, GRID, SPACE };

PJ_COORD ToProj(const Values& v, Axes axes) {
    if (axes == Axes::DEGREES) return proj_coord(proj_torad(v[1]), proj_torad(v[0]), 0.0, 0.0);
    return proj_coord(v[0], v[1], v[2], 0.0);
}

Values FromProj(const PJ_COORD& c, Axes axes) {
    if (axes == Axes::DEGREES) return {proj_todeg(c.lp.phi), proj_todeg(c.lp.lam), 0.0};
    return {c.xyz.x, c.xyz.y, axes == Axes::SPACE ? c.xyz.z : 0.0};
}

Contestant Proj(const std::string& definition, PJ_DIRECTION direction, const std::vector<Values>& sources,
                Axes sourceAxes, Axes resultAxes) {
    PJ* const P = proj_create(PJ_DEFAULT_CTX, definition.c_str());
    if (P == nullptr) Fail("PROJ doesn't know " + definition);
    return Compete(
        Values{},
        [P, direction, sources, sourceAxes, resultAxes](std::size_t i, Values& output) {
            output = FromProj(proj_trans(P, direction, ToProj(sources[i], sourceAxes)), resultAxes);
        },
        [](const Values& output) { return output; });
}

// GeographicLib: one call of its class a position.
using Step = void (*)(const Values& in, Values& out);

Contestant Geographic(Step step, const std::vector<Values>& sources) {
    if (step == nullptr) return {};
    return Compete(
        Values{}, [step, sources](std::size_t i, Values& output) { step(sources[i], output); },
        [](const Values& output) { return output; });
}

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

// The grids, each of them compared in both directions. North of 56 degrees GeographicLib has the wider zones
// of Norway and Spitsbergen, so UTM ends before.
struct GridTask {
    Area area;
    const char* proj;
    Step geographicForward, geographicInverse;
    double tolerance;  // metres
};

constexpr double CONFORMAL = 5e-6;  // the order of the kernel's series
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

std::vector<tagKOORD> AllConverted(const Area& area) {
    std::vector<tagKOORD> records = Converted(area);
    if (records.size() != POSITIONS) Fail(std::string(area.name) + ": a position doesn't convert");
    return records;
}

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

// References of letters and digits: GeographicLib's are texts, ours records. It cuts where ours rounds.

struct TextTask {
    Area area;
    void (*write)(const Values& latLon, std::string& text);
    void (*read)(const std::string& text, Values& latLon);
    Values (*values)(const std::string& text);
    double tolerance;  // metres
};

void WriteMgrs(const Values& latLon, std::string& text) {
    int zone;
    bool isNorth;
    double x, y;
    geo::UTMUPS::Forward(latLon[0], latLon[1], zone, isNorth, x, y);
    geo::MGRS::Forward(zone, isNorth, x, y, latLon[0], 5, text);
}
void ReadMgrs(const std::string& text, Values& latLon) {
    int zone, precision;
    bool isNorth;
    double x, y;
    geo::MGRS::Reverse(text, zone, isNorth, x, y, precision, false);
    geo::UTMUPS::Reverse(zone, isNorth, x, y, latLon[0], latLon[1]);
}
Values ValuesOfMgrsText(const std::string& text) {
    return ValuesOfMgrs(std::stoi(text.substr(0, 2)), text[2], text[3], text[4], std::stoi(text.substr(5, 5)),
                        std::stoi(text.substr(10, 5)));
}

void WriteGeoref(const Values& latLon, std::string& text) {
    geo::Georef::Forward(latLon[0], latLon[1], 4, text);
}
void ReadGeoref(const std::string& text, Values& latLon) {
    int precision;
    geo::Georef::Reverse(text, latLon[0], latLon[1], precision, false);
}
Values ValuesOfGeorefText(const std::string& text) {
    Values latLon{};
    ReadGeoref(text, latLon);
    return latLon;
}

constexpr TextTask MGRS{
    {"UTMREF", KOORD_UTMREF, 2, -79.0, 55.0, -179.9, 179.9}, WriteMgrs, ReadMgrs, ValuesOfMgrsText, 1.5};
constexpr double GEOREF_UNIT = 18.6;  // a hundredth of a minute in metres
constexpr TextTask GEOREF{{"GEOREF", KOORD_GEOREF, 2, -89.0, 89.0, -179.9, 179.9},
                          WriteGeoref,
                          ReadGeoref,
                          ValuesOfGeorefText,
                          1.5 * GEOREF_UNIT};

// As its own text would give it, for comparing the records of GEOREF in degrees.
Values DegreesOf(const tagKOORD& record) {
    tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_GEODEZ);
    if (KoordConvert(&record, &geodez) != KOORD_OK) Fail("a reference can't be read");
    return ValuesOf(geodez);
}

void AddTexts(const TextTask& task, std::vector<Contest>* contests) {
    const Area& area = task.area;
    const std::vector<tagKOORD> positions = RandomPositions(area);
    const std::vector<tagKOORD> records = AllConverted(area);
    const std::vector<Values> degrees = ValuesOf(positions);
    std::vector<std::string> texts(POSITIONS);
    for (std::size_t i = 0; i < POSITIONS; ++i)
        task.write(degrees[i], texts[i]);

    const bool isGeoref = area.type == KOORD_GEOREF;
    Contestant ours = Ours(positions, Target(area), 1);
    if (isGeoref) {
        ours = Compete(
            Target(area),
            [positions](std::size_t i, tagKOORD& output) {
                if (KoordConvert(&positions[i], &output) != KOORD_OK) Fail("a position fails");
            },
            DegreesOf);
    }
    contests->push_back(
        {std::string(area.name) + " forward", isGeoref ? Kind::DEGREES : Kind::METRES, task.tolerance, ours,
         Contestant{},
         Compete(
             std::string(20, ' '),
             [degrees, write = task.write](std::size_t i, std::string& text) { write(degrees[i], text); },
             task.values)});
    contests->push_back(
        {std::string(area.name) + " inverse", Kind::DEGREES, task.tolerance,
         Ours(records, MakeKoord(area.datum, KOORD_GEODEZ), 1), Contestant{},
         Compete(
             Values{}, [texts, read = task.read](std::size_t i, Values& latLon) { read(texts[i], latLon); },
             [](const Values& latLon) { return latLon; })});
}

// One step of Molodensky's formulas between Bessel and WGS84. The way out of WGS84 is refined here and isn't
// in PROJ.
constexpr Area GERMANY{"Germany", KOORD_GEODEZ, 3, 47.5, 55.0, 6.0, 15.0};
constexpr Area GERMANY_ZONE_32{"Germany, zone 32", KOORD_GEODEZ, 3, 47.5, 55.0, 6.0, 11.9};

std::string Molodensky() {
    const DatumRow& row = *Datum_Row(GERMANY.datum);
    char text[256];
    std::snprintf(text, sizeof text,
                  "+proj=molodensky +a=%.17g +rf=299.1528128 +da=%.17g +df=%.17g +dx=%.17g +dy=%.17g "
                  "+dz=%.17g",
                  row.a, WGS84_A - row.a, WGS84_F - row.f, row.dx, row.dy, row.dz);
    return text;
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
         Proj("+proj=pipeline +step " + Molodensky() + " +step +proj=utm +zone=32 +ellps=WGS84", PJ_FWD,
              ValuesOf(zone32), Axes::DEGREES, Axes::GRID),
         Contestant{}});
}

void AddRequests(std::vector<Contest>* contests) {
    constexpr double wholeMetres = 1.5;  // one rounds, the other cuts
    constexpr std::pair<std::int32_t, const char*> rows[] = {{KOORD_GEOGRAD, "request from degrees"},
                                                             {KOORD_UTM, "request from UTM"}};
    PJ* const shift = proj_create(PJ_DEFAULT_CTX, Molodensky().c_str());
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
                 [request, shift](std::size_t i, std::string& out) { out = request->Peers(i, shift); },
                 ValuesOfMgrsText)});
    }
}

constexpr Area WORLD{"world", KOORD_GEODEZ, 2, -85.0, 85.0, -80.0, 80.0};
constexpr double AZIMUTH = 37.0;

double DistanceOf(std::size_t i) {
    return 1000.0 + 2000.0 * static_cast<double>(i);
}

// Each position and the next; and from each position a distance of up to 8000 km.
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

std::vector<Contest> AllContests() {
    std::vector<Contest> contests;
    for (const GridTask& task : GRIDS)
        AddGrid(task, &contests);
    AddTexts(MGRS, &contests);
    AddTexts(GEOREF, &contests);
    AddShifts(&contests);
    AddGeodesics(&contests);
    AddRequests(&contests);
    return contests;
}

struct Options {
    std::string json;
    std::vector<std::string_view> names;
    [[nodiscard]] bool Wants(const Contest& contest) const {
        const auto isPrefix = [&](std::string_view name) { return contest.name.starts_with(name); };
        return names.empty() || std::any_of(names.begin(), names.end(), isPrefix);
    }
};

Options ReadOptions(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument != "--json") {
            options.names.push_back(argument);
        } else if (++i < count) {
            options.json = arguments[i];
        } else {
            Fail("--json needs a file");
        }
    }
    return options;
}

void RequireAgreement(const Contest& contest) {
    for (const Contestant* peer : {&contest.proj, &contest.geographicLib}) {
        if (!peer->Exists()) continue;
        const double difference = LargestDifference(contest, *peer);
        if (difference <= contest.tolerance) continue;
        const char* name = peer == &contest.proj ? "PROJ" : "GeographicLib";
        Fail(contest.name + ": " + name + " differs by " + std::to_string(difference) + " m");
    }
}

std::string Figure(double nanoseconds) {
    char text[32];
    std::snprintf(text, sizeof text, "%.1f", nanoseconds);
    return nanoseconds == 0.0 ? "-" : text;
}

void PrintRow(const std::string& name, const Figures& f) {
    std::printf("| %-22s | %8s | %8s | %13s | %5.2f |\n", name.c_str(), Figure(f.ours).c_str(),
                Figure(f.proj).c_str(), Figure(f.geographicLib).c_str(), f.Ratio());
    std::fflush(stdout);
}

nlohmann::json ToJson(const std::string& name, const Figures& f) {
    nlohmann::json row{{"task", name}, {"ours", f.ours}, {"ratio", f.Ratio()}};
    if (f.proj != 0.0) row["proj"] = f.proj;
    if (f.geographicLib != 0.0) row["geographicLib"] = f.geographicLib;
    return row;
}

int Main(int count, char** arguments) {
    const Options options = ReadOptions(count, arguments);
    std::vector<Contest> contests = AllContests();
    std::erase_if(contests, [&](const Contest& contest) { return !options.Wants(contest); });
    for (const Contest& contest : contests)
        RequireAgreement(contest);

    std::printf("| %-22s | %8s | %8s | %13s | %5s |\n", "ns a position", "ours", "PROJ", "GeographicLib",
                "ratio");
    std::printf("|:-----------------------|---------:|---------:|--------------:|------:|\n");
    nlohmann::json rows = nlohmann::json::array();
    for (const Contest& contest : contests) {
        const Figures figures = Time(contest);
        PrintRow(contest.name, figures);
        rows.push_back(ToJson(contest.name, figures));
    }
    if (options.json.empty()) return 0;

    const nlohmann::json report{{"unit", "nanoseconds a position"},
                                {"positions", POSITIONS},
                                {"proj", proj_info().version},
                                {"geographicLib", GEOGRAPHICLIB_VERSION_STRING},
                                {"tasks", rows}};
    std::ofstream file(options.json);
    file << report.dump(2) << '\n';
    if (!file.good()) Fail("can't write " + options.json);
    return 0;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
