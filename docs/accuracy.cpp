// Measures the differences between the library and independent programs over the reference figures in
// tests/data/kernel: accuracy SOURCE_DIR OUTPUT_DIR writes a page in Markdown. Forward is the distance
// between grid values, back the distance between positions computed from the reference's grid values; both
// are metres on the ground and the worst of all rows.
#include <cmath>
#include <cstddef>
#include <cstring>
#include <fstream>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/lambert.h"

using namespace tessara;

namespace {

using Row = std::vector<std::string>;

struct Figures {
    std::int32_t datum;
    double latitude, longitude;
    tagKOORD wanted;  // the input of the reference program
    double x, y;      // and its output
};

struct Grid {
    const char* name;
    const char* file;
    const char* reference;
    Figures (*read)(const Row&);
    std::size_t x, y;  // offsets of the grid values in the payload
};

constexpr const char* HEAD =
    "# How close to other programs\n\n"
    "This table has the largest difference in each file of reference figures in `tests/data/kernel`, which\n"
    "also name the commands that produced them. *Forward* is the distance between grid values (for "
    "geodesics\n"
    "the point at a distance, for shifts the step to WGS84). *Back* is the distance between the positions\n"
    "computed from the reference's grid values (for geodesics the difference in length, for shifts the step\n"
    "from WGS84). Reference figures have 5 to 9 decimals, which limits the comparison: with six decimals of "
    "a\n"
    "metre, half a micrometre can't be resolved.\n\n"
    "| System | Figures | Rows | Reference | Forward, m | Back, m |\n"
    "|---|---|---:|---|---:|---:|\n";
constexpr double METRES_PER_DEGREE = 111320.0;

double Get(const tagKOORD& record, std::size_t offset) {
    double value = 0.0;
    std::memcpy(&value, record.payload + offset, sizeof value);
    return value;
}

void Set(tagKOORD& record, std::size_t offset, double value) {
    std::memcpy(record.payload + offset, &value, sizeof value);
}

double Number(const Row& row, std::size_t column) {
    return std::stod(row.at(column));
}

template <class Payload>
tagKOORD Wanted(std::int32_t datum, std::int32_t type, const Payload& payload) {
    tagKOORD record = MakeKoord(datum, type);
    Store(record, payload);
    return record;
}

Figures ReadUtm(const Row& row) {
    UtmPayload utm{};
    utm.zone = utm.wantedZone = static_cast<std::int16_t>(std::stoi(row.at(2)));
    utm.hemisphere = row[2].back() == 'n' ? 'N' : 'S';
    return {DATUM_WGS84,    Number(row, 0), Number(row, 1), Wanted(DATUM_WGS84, KOORD_UTM, utm),
            Number(row, 3), Number(row, 4)};
}

// The file has no strip number. In the record it is the millions of the easting; in the west the whole
// easting is negative.
template <std::int32_t Datum, std::int32_t Type>
Figures ReadStrip(const Row& row) {
    GkPayload gk{};
    const std::int32_t meridian = std::stoi(row.at(2));
    gk.wantedMeridian = static_cast<std::int16_t>(meridian);
    const std::int32_t strip = Type == KOORD_GK ? std::abs(meridian) / 3 : (std::abs(meridian) + 3) / 6;
    const double easting = strip * 1e6 + Number(row, 3);
    return {Datum,
            Number(row, 0),
            Number(row, 1),
            Wanted(Datum, Type, gk),
            meridian < 0 ? -easting : easting,
            Number(row, 4)};
}

Figures ReadAustrian(const Row& row) {
    constexpr std::int32_t BESSEL = 3;
    BmnPayload grid{};
    grid.meridian = grid.wantedMeridian = static_cast<std::int16_t>(std::stoi(row.at(2)));
    return {BESSEL,         Number(row, 0), Number(row, 1), Wanted(BESSEL, KOORD_GKAT, grid),
            Number(row, 3), Number(row, 4)};
}

template <std::int32_t Datum, std::int32_t Type>
Figures ReadPlain(const Row& row) {
    return {Datum, Number(row, 0), Number(row, 1), MakeKoord(Datum, Type), Number(row, 2), Number(row, 3)};
}

Figures ReadUps(const Row& row) {
    UpsPayload ups{};
    ups.hemisphere = row.at(3)[0];
    const std::int32_t datum = std::stoi(row[0]);
    return {datum,          Number(row, 1), Number(row, 2), Wanted(datum, KOORD_UPS, ups),
            Number(row, 4), Number(row, 5)};
}

Figures ReadTm(const Row& row) {
    const std::int32_t datum = std::stoi(row.at(0));
    const TmPayload tm{
        Number(row, 3), Number(row, 4), Number(row, 5), Number(row, 6), Number(row, 7), 0.0, 0.0};
    return {datum,           Number(row, 8), Number(row, 9), Wanted(datum, KOORD_TM, tm),
            Number(row, 10), Number(row, 11)};
}

Figures ReadVdg(const Row& row) {
    const std::int32_t datum = std::stoi(row.at(0));
    const VdgPayload vdg{Number(row, 1), 0.0, 0.0, 0.0};
    return {datum,          Number(row, 2), Number(row, 3), Wanted(datum, KOORD_VDG, vdg),
            Number(row, 4), Number(row, 5)};
}

constexpr std::int32_t INTERNATIONAL = 1, BESSEL = 3, KRASSOVSKY = 10, MODIFIED_AIRY = 97, AIRY = 98;

#define FIELDS(Payload, x, y) offsetof(Payload, x), offsetof(Payload, y)
constexpr Grid GRIDS[] = {
    {"UTM", "utm", "GeographicLib", ReadUtm, FIELDS(UtmPayload, easting, northing)},
    {"GK", "gk", "PROJ", ReadStrip<BESSEL, KOORD_GK>, FIELDS(GkPayload, easting, northing)},
    {"GK6", "gk6", "PROJ", ReadStrip<KRASSOVSKY, KOORD_GK6>, FIELDS(GkPayload, easting, northing)},
    {"BMN, OEM, GK-AT", "austrian_grids", "PROJ", ReadAustrian, FIELDS(BmnPayload, easting, northing)},
    {"CH", "swiss_grid", "PROJ", ReadPlain<BESSEL, KOORD_CH>, FIELDS(GridPayload, easting, northing)},
    {"UPS", "ups", "PROJ", ReadUps, FIELDS(UpsPayload, easting, northing)},
    {"PO_MILITARY", "po_military", "PROJ", ReadPlain<INTERNATIONAL, KOORD_PO_MILITARY>,
     FIELDS(GridPayload, easting, northing)},
    {"TM", "transverse_mercator", "PROJ", ReadTm, FIELDS(TmPayload, easting, northing)},
    {"VDG", "van_der_grinten", "PROJ", ReadVdg, FIELDS(VdgPayload, x, y)},
    {"BNG", "british_grid", "PROJ", ReadPlain<AIRY, KOORD_BNG>,
     FIELDS(LetterGridPayload, fullEasting, fullNorthing)},
    {"ING", "irish_grid", "PROJ", ReadPlain<MODIFIED_AIRY, KOORD_ING>,
     FIELDS(LetterGridPayload, fullEasting, fullNorthing)},
    {"RD", "dutch_grid", "PROJ", ReadPlain<BESSEL, KOORD_RD>, FIELDS(GridPayload, easting, northing)},
    {"LUREF", "luref", "PROJ", ReadPlain<INTERNATIONAL, KOORD_LUREF>, FIELDS(GridPayload, easting, northing)},
};
#undef FIELDS

std::vector<Row> RowsOf(const std::string& path) {
    std::ifstream file(path);
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);) {
        std::istringstream words(line);
        Row row;
        for (std::string word; words >> word;)
            row.push_back(word);
        if (!row.empty() && row[0][0] != '#') rows.push_back(row);
    }
    if (rows.empty()) throw std::runtime_error("nothing in " + path);
    return rows;
}

double OnTheGround(double latitude, double longitude, double latitude2, double longitude2) {
    const double along = std::remainder(longitude2 - longitude, 360.0) * std::cos(latitude * PI / 180.0);
    return METRES_PER_DEGREE * std::hypot(latitude2 - latitude, along);
}

// The larger of two differences; a NaN counts as the largest.
void Worsen(double* worst, double value) {
    if (!(value <= *worst)) *worst = value;
}

void WriteLine(std::ostream& page, const std::string& what, const std::string& file, std::size_t rows,
               const char* reference, double forward, double back) {
    page << "| " << what << " | `" << file << "` | " << rows << " | " << reference << std::setprecision(2)
         << std::scientific << " | " << forward << " | " << back << " |\n";
}

void Measure(std::ostream& page, const Grid& grid, const std::string& data) {
    double forward = 0.0, back = 0.0;
    const std::vector<Row> rows = RowsOf(data + "/" + grid.file + ".txt");
    for (const Row& row : rows) {
        const Figures figures = grid.read(row);
        tagKOORD geodez = MakeKoord(figures.datum, KOORD_GEODEZ);
        Store(geodez, GeodezPayload{figures.latitude, figures.longitude, 0.0});
        tagKOORD there = figures.wanted;
        if (KoordConvertEx(&geodez, &there, 0) != KOORD_OK) throw std::runtime_error(grid.file);
        Worsen(&forward, std::hypot(Get(there, grid.x) - figures.x, Get(there, grid.y) - figures.y));

        // Fields of the system other than the grid values keep what the conversion has written.
        Set(there, grid.x, figures.x);
        Set(there, grid.y, figures.y);
        if (KoordConvertEx(&there, &geodez, 0) != KOORD_OK) throw std::runtime_error(grid.file);
        const auto found = Load<GeodezPayload>(geodez);
        Worsen(&back, OnTheGround(figures.latitude, figures.longitude, found.latitude, found.longitude));
    }
    WriteLine(page, grid.name, std::string(grid.file) + ".txt", rows.size(), grid.reference, forward, back);
}

// Cones with free parameters, in doubles, because a LAMBERTCC record stores some of them as floats.
void MeasureCones(std::ostream& page, const std::string& data) {
    double forward = 0.0, back = 0.0;
    const std::vector<Row> rows = RowsOf(data + "/lambert_cc.txt");
    for (const Row& row : rows) {
        LambertCC cone{};
        if (LambertCC_Init(std::stoi(row.at(0)), Number(row, 1), Number(row, 2), Number(row, 3),
                           Number(row, 4), Number(row, 5), Number(row, 6), Number(row, 7), &cone) != KOORD_OK)
            throw std::runtime_error("lambert_cc");
        const double latLon[2] = {Number(row, 8), Number(row, 9)};
        double easting = 0.0, northing = 0.0, found[2];
        LambertCC_Forward(latLon, &easting, &northing, &cone);
        Worsen(&forward, std::hypot(easting - Number(row, 10), northing - Number(row, 11)));
        LambertCC_Inverse(Number(row, 10), Number(row, 11), found, &cone);
        Worsen(&back, OnTheGround(latLon[0], latLon[1], found[0], found[1]));
    }
    WriteLine(page, "Lambert conformal conic", "lambert_cc.txt", rows.size(), "PROJ", forward, back);
}

// On the ellipsoid: a record converted to ECEF has no height.
void MeasureSpace(std::ostream& page, const std::string& data) {
    double forward = 0.0, back = 0.0;
    std::size_t count = 0;
    for (const Row& row : RowsOf(data + "/ecef.txt")) {
        if (Number(row, 3) != 0.0) continue;
        const std::int32_t datum = std::stoi(row[0]);
        tagKOORD geodez = MakeKoord(datum, KOORD_GEODEZ), ecef = MakeKoord(datum, KOORD_ECEF);
        Store(geodez, GeodezPayload{Number(row, 1), Number(row, 2), 0.0});
        const EcefPayload reference{Number(row, 4), Number(row, 5), Number(row, 6)};
        if (KoordConvertEx(&geodez, &ecef, 0) != KOORD_OK) throw std::runtime_error("ecef");
        const auto there = Load<EcefPayload>(ecef);
        Worsen(&forward, std::hypot(there.x - reference.x, there.y - reference.y, there.z - reference.z));
        Store(ecef, reference);
        if (KoordConvertEx(&ecef, &geodez, 0) != KOORD_OK) throw std::runtime_error("ecef");
        const auto found = Load<GeodezPayload>(geodez);
        Worsen(&back, OnTheGround(Number(row, 1), Number(row, 2), found.latitude, found.longitude));
        ++count;
    }
    WriteLine(page, "ECEF, on the ellipsoid", "ecef.txt", count, "PROJ", forward, back);
}

// References consist of letters and whole metres. Forward is the distance in metres between the two
// references in the same square, back the distance from the corner of the metre to the reference program's
// input.
void MeasureReferences(std::ostream& page, const std::string& data) {
    double forward = 0.0, back = 0.0;
    const std::vector<Row> rows = RowsOf(data + "/utmref.txt");
    for (const Row& row : rows) {
        tagKOORD geodez = MakeKoord(DATUM_WGS84, KOORD_GEODEZ),
                 reference = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
        Store(geodez, GeodezPayload{Number(row, 0), Number(row, 1), 0.0});
        if (KoordConvertEx(&geodez, &reference, 0) != KOORD_OK) throw std::runtime_error("utmref");
        const auto found = Load<UtmrefPayload>(reference);
        const std::string& text = row.at(2);
        const std::size_t letters = text.find_first_not_of("0123456789");
        if (text.substr(letters, 3) != std::string{found.band, found.column, found.row})
            throw std::runtime_error("another square than " + text);
        Worsen(&forward, std::hypot(found.easting - std::stoi(text.substr(letters + 3, 5)),
                                    found.northing - std::stoi(text.substr(letters + 8, 5))));
        if (KoordConvertEx(&reference, &geodez, 0) != KOORD_OK) throw std::runtime_error("utmref");
        const auto corner = Load<GeodezPayload>(geodez);
        Worsen(&back, OnTheGround(Number(row, 0), Number(row, 1), corner.latitude, corner.longitude));
    }
    WriteLine(page, "UTMREF, of whole metres", "utmref.txt", rows.size(), "GeographicLib", forward, back);
}

void MeasureShift(std::ostream& page, const char* file, std::int32_t datum, const std::string& data) {
    double toHub = 0.0, fromHub = 0.0;
    const std::vector<Row> rows = RowsOf(data + "/datum_shift/" + file + ".txt");
    HubParams in{}, out{};
    if (Datum_LoadToHub(datum, &in) != KOORD_OK || Datum_LoadFromHub(datum, &out) != KOORD_OK)
        throw std::runtime_error(file);
    for (const Row& row : rows) {
        double there[2] = {Number(row, 0), Number(row, 1)}, here[2] = {Number(row, 0), Number(row, 1)};
        Molodensky_ToHub(there, &in);
        Molodensky_FromHub(here, &out, datum);
        Worsen(&toHub, OnTheGround(Number(row, 2), Number(row, 3), there[0], there[1]));
        Worsen(&fromHub, OnTheGround(Number(row, 4), Number(row, 5), here[0], here[1]));
    }
    WriteLine(page, std::string("shift ") + Datum_Name(datum) + " to WGS84, and back",
              std::string("datum_shift/") + file + ".txt", rows.size(), "PROJ", toHub, fromHub);
}

void MeasureGeodesics(std::ostream& page, const std::string& data) {
    double direct = 0.0, inverse = 0.0;
    const std::vector<Row> ends = RowsOf(data + "/geodesic_direct.txt");
    for (const Row& row : ends) {
        double axes[2];
        Geodesic_LoadAxes(axes, std::stoi(row.at(0)));
        const GeodesicResult end = Geodesic_DirectCore(Number(row, 1), Number(row, 2), Number(row, 4),
                                                       Number(row, 3), axes[0], axes[1]);
        Worsen(&direct, OnTheGround(Number(row, 5), Number(row, 6), end.latitude, end.longitude));
    }
    const std::vector<Row> ways = RowsOf(data + "/geodesic_inverse.txt");
    for (const Row& row : ways) {
        double axes[2];
        Geodesic_LoadAxes(axes, std::stoi(row.at(0)));
        const GeodesicResult way = Geodesic_InverseCore(Number(row, 1), Number(row, 2), Number(row, 3),
                                                        Number(row, 4), axes[0], axes[1]);
        Worsen(&inverse, std::abs(way.distance - Number(row, 7)));
    }
    WriteLine(page, "geodesic, direct and inverse", "geodesic_direct.txt`, `geodesic_inverse.txt",
              ends.size() + ways.size(), "GeographicLib", direct, inverse);
}

}  // namespace

int main(int argc, char** argv) try {
    if (argc != 3) return 2;
    const std::string data = std::string(argv[1]) + "/tests/data/kernel";
    std::ofstream page(std::string(argv[2]) + "/measured.md");
    page.exceptions(std::ios::failbit | std::ios::badbit);
    page << HEAD;
    for (const Grid& grid : GRIDS)
        Measure(page, grid, data);
    MeasureCones(page, data);
    MeasureReferences(page, data);
    MeasureSpace(page, data);
    constexpr std::pair<const char*, std::int32_t> SHIFTS[] = {{"ger", 3},    {"nad27", 4},  {"mgi", 6},
                                                               {"ch1903", 7}, {"ogb_m", 98}, {"toy_m", 77}};
    for (const auto& [file, datum] : SHIFTS)
        MeasureShift(page, file, datum, data);
    MeasureGeodesics(page, data);
} catch (const std::exception& error) {
    std::cerr << "accuracy: " << error.what() << '\n';
    return 1;
}
