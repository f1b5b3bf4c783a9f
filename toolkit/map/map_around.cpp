#include "map/map_around.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <nlohmann/json.hpp>
#include <numbers>

#include "conversion/numbers.h"
#include "conversion/positions.h"
#include "conversion/units.h"
#include "map/geojson_shapes.h"
#include "map/json_reader.h"
#include "map/map_measures.h"

namespace tessara::toolkit {
namespace {

using Json = nlohmann::ordered_json;

constexpr double COLUMNS = 1000.0;
constexpr double WINDOW_ROWS = 800.0;
constexpr double PIXELS_PER_MM = 10.0;

// Metres: the maximum widths of a map of one zone and of a conic map.
constexpr double WIDEST_ZONE = 600e3;
constexpr double WIDEST_REGION = 12e6;
constexpr double NARROWEST_WITH_COASTS = 300e3;
constexpr double HEIGHT_OF_THE_EARTH = 17.6e6;  // on a WAGNER-IV map
constexpr double DEGREE = 111195.0;             // of latitude, on average
constexpr double POLE_IS_NEAR = 0.6;            // widths from the middle
constexpr double STEP_AROUND_A_POLE = 30.0;
constexpr double LEAST_LATITUDE = 10.0;  // of a conic map; closer to the equator the cone degenerates
constexpr double SLANT = 2.0 / 3.0;      // of half the height of the window: the standard parallels of a cone
constexpr double ROOM = 1.2;             // width of the map of a file, relative to its positions
constexpr double NARROWEST_FILE = 1000.0;
constexpr double LINES = 5.0;  // the minimum number across the window

constexpr const char* UTM = "UTM";
constexpr const char* UPS = "UPS";

// Degrees, with the usual fractions of minutes and seconds.
constexpr std::array STEPS = {30.0,        15.0,        10.0,         5.0,         2.0,        1.0,
                              1.0 / 2.0,   1.0 / 6.0,   1.0 / 12.0,   1.0 / 30.0,  1.0 / 60.0, 1.0 / 120.0,
                              1.0 / 360.0, 1.0 / 720.0, 1.0 / 1800.0, 1.0 / 3600.0};

double StepBelow(double degrees) {
    const auto* const step =
        std::find_if(STEPS.begin(), STEPS.end(), [degrees](double each) { return each <= degrees; });
    return step == STEPS.end() ? STEPS.back() : *step;
}

double MetresPerPixel(const Surroundings& around) {
    return around.width / COLUMNS;
}

std::string DegreesText(double value, char positive, char negative) {
    return FormatPlain(std::abs(value), 4) + "\u00B0" + (value < 0.0 ? negative : positive);
}

std::string PlaceText(const Surroundings& around) {
    return DegreesText(around.latitude, 'N', 'S') + " " + DegreesText(around.longitude, 'E', 'W');
}

Json WindowOf(double left, double top, double rows) {
    return {{"left", left}, {"top", top}, {"right", left + COLUMNS}, {"bottom", top + rows}};
}

// The grid values of the middle, in UTM or UPS; nothing outside the area of the system.
std::optional<tagKOORD> GridAt(const Surroundings& around, std::int32_t system) {
    const IRef<ICoord> coord = DegreesCoord(around.latitude, around.longitude, DATUM_WGS84);
    if (!coord->SetReference(MakeReference({.datum = DATUM_WGS84, .system = system}).Get()))
        return std::nullopt;
    return host::RecordOf(coord);
}

double WholeCentimetres(double metres) {
    return std::round(metres * 100.0) / 100.0;
}

Json GridMap(const char* type, const Surroundings& around, double easting, double northing) {
    const double pixel = MetresPerPixel(around);
    return {{"projection",
             {{"type", type},
              {"originEasting", WholeCentimetres(easting - pixel * COLUMNS / 2.0)},
              {"originNorthing", WholeCentimetres(northing + pixel * WINDOW_ROWS / 2.0)},
              {"metresPerPixelX", pixel},
              {"metresPerPixelY", pixel}}},
            {"window", WindowOf(0.0, 0.0, WINDOW_ROWS)}};
}

std::optional<Json> UtmMap(const Surroundings& around) {
    const std::optional<tagKOORD> grid = GridAt(around, KOORD_UTM);
    if (!grid) return std::nullopt;
    const auto utm = Load<UtmPayload>(*grid);
    Json map = GridMap(UTM, around, utm.easting, utm.northing);
    map["projection"]["zone"] = utm.zone;
    map["projection"]["hemisphere"] = std::string(1, utm.hemisphere);
    return map;
}

std::optional<Json> UpsMap(const Surroundings& around) {
    const std::optional<tagKOORD> grid = GridAt(around, KOORD_UPS);
    if (!grid) return std::nullopt;
    const auto ups = Load<UpsPayload>(*grid);
    Json map = GridMap(UPS, around, ups.easting, ups.northing);
    map["projection"]["hemisphere"] = std::string(1, ups.hemisphere);
    return map;
}

// The position has the pixel (0, 0).
Json PolarMap(const Surroundings& around) {
    const double degrees = MetresPerPixel(around) / DEGREE;
    const bool isNorth = around.latitude > 0.0;
    return {{"projection",
             {{"type", "EQUALARC"},
              {"zone", isNorth ? 9 : 18},
              {"originLatitude", around.latitude},
              {"originLongitude", around.longitude},
              {"degreesPerPixelY", degrees},
              {"degreesPerPixelX", degrees}}},
            {"window", WindowOf(-COLUMNS / 2.0, -WINDOW_ROWS / 2.0, WINDOW_ROWS)}};
}

// The reference point of a map without a pixel size: a position in the middle of a row.
void AddTies(const Surroundings& around, double latitude, double rows, Json* map) {
    (*map)["scale"] = std::llround(MetresPerPixel(around) * PIXELS_PER_MM * MM_PER_METRE);
    (*map)["resolution"] = PIXELS_PER_MM;
    (*map)["reference"] = {{"place", {latitude, around.longitude}}, {"pixel", {COLUMNS / 2.0, rows / 2.0}}};
    (*map)["window"] = WindowOf(0.0, 0.0, rows);
}

Json MercatorMap(const Surroundings& around) {
    Json map{{"projection", {{"type", "MERCATOR"}, {"standardParallel", std::abs(around.latitude)}}}};
    AddTies(around, around.latitude, WINDOW_ROWS, &map);
    return map;
}

Json ConeMap(const Surroundings& around) {
    const double aside = SLANT * MetresPerPixel(around) * WINDOW_ROWS / 2.0 / DEGREE;
    const double pixel = MetresPerPixel(around);
    return {{"projection",
             {{"type", "LAMBERTCC"},
              {"parallel1", around.latitude - aside},
              {"parallel2", around.latitude + aside},
              {"originLongitude", around.longitude},
              {"originLatitude", around.latitude},
              {"falseEasting", 0},
              {"falseNorthing", 0},
              {"metresPerPixelX", pixel},
              {"metresPerPixelY", pixel},
              {"pixelX", COLUMNS / 2.0},
              {"pixelY", WINDOW_ROWS / 2.0}}},
            {"window", WindowOf(0.0, 0.0, WINDOW_ROWS)}};
}

// The height of the whole earth, or of a window that ends shortly beyond a pole.
Json EarthMap(const Surroundings& around) {
    const double rows = std::min(WINDOW_ROWS, std::ceil(HEIGHT_OF_THE_EARTH / MetresPerPixel(around)));
    const double farthest = POLE * (1.0 - rows * MetresPerPixel(around) / HEIGHT_OF_THE_EARTH);
    const double latitude = std::clamp(around.latitude, -std::abs(farthest), std::abs(farthest));
    Json map{
        {"projection",
         {{"type", "WAGNER-IV"}, {"originLongitude", around.longitude}, {"stretchX", 1}, {"stretchY", 1}}}};
    AddTies(around, rows < WINDOW_ROWS ? 0.0 : std::round(latitude), rows, &map);
    map["datum"] = "Kugel";
    return map;
}

bool IsPoleNear(const Surroundings& around) {
    return (POLE - std::abs(around.latitude)) * DEGREE < POLE_IS_NEAR * around.width;
}

Json RegionMap(const Surroundings& around) {
    const double height = MetresPerPixel(around) * WINDOW_ROWS;
    if (IsPoleNear(around)) return PolarMap(around);
    const bool isTropical =
        std::abs(around.latitude) < std::max(LEAST_LATITUDE, SLANT * height / 2.0 / DEGREE);
    return isTropical ? MercatorMap(around) : ConeMap(around);
}

Json GraticuleOf(const Surroundings& around) {
    const double north = StepBelow(std::min(around.width / DEGREE, HALF_TURN) / LINES);
    const double across = around.width / DEGREE / std::cos(around.latitude * RADIANS_PER_DEGREE);
    const double east =
        IsPoleNear(around) ? STEP_AROUND_A_POLE : StepBelow(std::min(across, HALF_TURN) / LINES);
    return {{"type", "grid"},
            {"system", std::min(north, east) < 1.0 ? "GEOGRAD" : "GEODEZ"},
            {"eastStep", east},
            {"northStep", north}};
}

Json Describe(const Surroundings& around) {
    if (!(std::abs(around.latitude) <= POLE && std::abs(around.longitude) <= HALF_TURN))
        throw DescriptionError("the latitude must be in -90..90 and the longitude in -180..180");
    if (!(around.width >= NARROWEST_MAP && around.width <= WIDEST_MAP))
        throw DescriptionError("the width must be between 10 m and 40000 km");

    std::optional<Json> zone;
    std::string system = UTM;
    if (around.width <= WIDEST_ZONE) zone = UtmMap(around);
    if (around.width <= WIDEST_ZONE && !zone) {
        zone = UpsMap(around);
        system = UPS;
    }
    const bool isRegion = around.width <= WIDEST_REGION;
    const Json map = zone ? *zone : isRegion ? RegionMap(around) : EarthMap(around);

    Json layers = Json::array();
    if (around.width >= NARROWEST_WITH_COASTS) layers.push_back({{"type", "coast"}, {"borders", true}});
    // In the south UPS has no grid lines.
    const bool hasGrid = zone && !(system == UPS && around.latitude < 0.0);
    if (hasGrid)
        layers.push_back(
            {{"type", "grid"}, {"system", system}, {"step", RoundLengthBelow(around.width / LINES)}});
    layers.push_back(GraticuleOf(around));

    Json description{{"title", "Around " + PlaceText(around) + ", " + LengthText(around.width) + " wide"}};
    description.update(map);
    description["layers"] = layers;
    return description;
}

struct Range {
    double low = std::numeric_limits<double>::infinity();
    double high = -std::numeric_limits<double>::infinity();

    void Add(double value) {
        low = std::min(low, value);
        high = std::max(high, value);
    }
    [[nodiscard]] double Middle() const { return (low + high) / 2.0; }
    [[nodiscard]] double Length() const { return high - low; }
};

// The extent of positions. Longitudes continue across the date line from the first one.
class Reach {
  public:
    void Add(const PicturePoint& degrees) {
        if (latitudes_.low > latitudes_.high) first_ = degrees.x;
        longitudes_.Add(first_ + std::remainder(degrees.x - first_, 2.0 * HALF_TURN));
        latitudes_.Add(degrees.y);
    }

    // Leaves a margin on each side.
    [[nodiscard]] std::optional<Surroundings> Around() const {
        if (latitudes_.low > latitudes_.high) return std::nullopt;
        const double widest =
            std::cos(std::min(std::abs(latitudes_.low), std::abs(latitudes_.high)) * RADIANS_PER_DEGREE);
        const double across = longitudes_.Length() * widest;
        const double down = latitudes_.Length() * COLUMNS / WINDOW_ROWS;
        const double width = std::clamp(ROOM * DEGREE * std::max(across, down), NARROWEST_FILE, WIDEST_MAP);
        return Surroundings{latitudes_.Middle(), std::remainder(longitudes_.Middle(), 2.0 * HALF_TURN),
                            width};
    }

  private:
    double first_ = 0.0;
    Range longitudes_;
    Range latitudes_;
};

bool IsJson(const std::string& text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    return first != std::string::npos && text[first] == '{';
}

// Errors in the file are reported when its layer is read.
Reach ReachOf(const LayerFile& file) {
    Reach reach;
    std::vector<std::string> problems;
    const auto addSites = [&reach](const std::vector<Site>& sites) {
        for (const Site& site : sites) {
            const auto degrees = Load<GeodezPayload>(host::RecordOf(site.coord));
            reach.Add({degrees.longitude, degrees.latitude});
        }
    };
    if (!IsJson(file.text)) {
        addSites(ReadDegreesFile(file, DATUM_WGS84, &problems));
        return reach;
    }
    const EarthLayerShapes read = ReadGeoJson(file, {DATUM_WGS84, DATUM_WGS84, "name"}, &problems);
    addSites(read.points);
    for (const std::vector<EarthShape>* shapes : {&read.lines, &read.areas}) {
        for (const EarthShape& shape : *shapes) {
            for (const EarthLine& line : shape.lines) {
                for (const PicturePoint& point : line)
                    reach.Add(point);
            }
        }
    }
    return reach;
}

}  // namespace

std::string DescribeMapAround(const Surroundings& around) {
    Json description = Describe(around);
    description["layers"].push_back(
        {{"type", "positions"},
         {"name", "position"},
         {"places",
          {{{"at", {around.latitude, around.longitude}}, {"datum", "WGS84"}, {"name", PlaceText(around)}}}}});
    return description.dump(2) + "\n";
}

std::string DescribeMapOf(const LayerFile& file, const std::string& name) {
    if (!file.wrong.empty()) throw DescriptionError(file.wrong);
    const std::optional<Surroundings> around = ReachOf(file).Around();
    if (!around) throw DescriptionError("no positions found; expected GeoJSON or lines of degrees");
    Json description = Describe(*around);
    description["title"] = name.substr(name.rfind('/') + 1);
    description["layers"].push_back({{"type", IsJson(file.text) ? "geojson" : "positions"}, {"file", name}});
    return description.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

}  // namespace tessara::toolkit
