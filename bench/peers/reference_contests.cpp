// Compares references of letters and digits. GeographicLib writes truncated texts, the kernel rounded
// records.
#include <GeographicLib/Georef.hpp>
#include <GeographicLib/MGRS.hpp>
#include <GeographicLib/UTMUPS.hpp>

#include "bench/peers/contestants.h"
#include "bench/peers/contests.h"
#include "bench/peers/record_values.h"
#include "tessara/kernel/convert.h"

namespace tessara::bench {
namespace {

namespace geo = GeographicLib;

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

// The position of its text, to compare GEOREF in degrees.
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

}  // namespace

void AddReferences(std::vector<Contest>* contests) {
    AddTexts(MGRS, contests);
    AddTexts(GEOREF, contests);
}

}  // namespace tessara::bench
