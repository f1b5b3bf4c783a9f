#include "fields.h"

#include <algorithm>
#include <cmath>

#include "numbers.h"

namespace tessara::program {
namespace {

// As fine as the decimals of metres and degrees.
constexpr int MINUTE_DECIMALS = 7;
constexpr int SECOND_DECIMALS = 5;
constexpr int PIXEL_DECIMALS = 3;
constexpr int SQUARE_DIGITS = 5;  // whole metres within 100 km

// Decimal minutes aren't carried into the degrees; what would be written as 60 stays below it.
constexpr double LAST_MINUTE = 59.9999999;

Field Metres(const char* name, double value) {
    return {name, value, METRE_DECIMALS};
}
Field Degrees(const char* name, double value) {
    return {name, value, DEGREE_DECIMALS};
}
Field Minutes(const char* name, double value) {
    return {name, std::min(value, LAST_MINUTE), MINUTE_DECIMALS};
}
Field Seconds(const char* name, double value) {
    return {name, value, SECOND_DECIMALS};
}
Field Pixels(const char* name, double value) {
    return {name, value, PIXEL_DECIMALS};
}
Field Whole(const char* name, std::int64_t value, int width = 1) {
    return {name, value, width};
}

template <class... Letter>
Field Letters(const char* name, Letter... letters) {
    return {name, std::string{letters...}};
}

std::vector<Field> Fields(const LongPixelPayload& p) {
    return {Whole("x", p.x), Whole("y", p.y)};
}

std::vector<Field> Fields(const FloatPixelPayload& p) {
    return {Pixels("x", p.x), Pixels("y", p.y)};
}

std::vector<Field> Fields(const UtmPayload& p) {
    return {Whole("zone", p.zone), Letters("hemisphere", p.hemisphere), Metres("easting", p.easting),
            Metres("northing", p.northing)};
}

std::vector<Field> Fields(const UtmrefPayload& p) {
    return {Whole("zone", p.zone), Letters("band", p.band), Letters("square", p.column, p.row),
            Whole("easting", p.easting, SQUARE_DIGITS), Whole("northing", p.northing, SQUARE_DIGITS)};
}

std::vector<Field> Fields(const GeodezPayload& p) {
    return {Degrees("latitude", p.latitude), Degrees("longitude", p.longitude)};
}

std::vector<Field> Fields(const GeogradPayload& p) {
    return {Whole("latDegrees", p.latDegrees),   Whole("latMinutes", p.latMinutes),
            Seconds("latSeconds", p.latSeconds), Letters("latHemisphere", p.latHemisphere),
            Whole("lonDegrees", p.lonDegrees),   Whole("lonMinutes", p.lonMinutes),
            Seconds("lonSeconds", p.lonSeconds), Letters("lonHemisphere", p.lonHemisphere)};
}

std::vector<Field> Fields(const GeodezMinPayload& p) {
    return {Whole("latDegrees", p.latDegrees),         Minutes("latMinutes", p.latMinutes),
            Letters("latHemisphere", p.latHemisphere), Whole("lonDegrees", p.lonDegrees),
            Minutes("lonMinutes", p.lonMinutes),       Letters("lonHemisphere", p.lonHemisphere)};
}

// The minutes fill as many digits as the precision says.
std::vector<Field> Fields(const GeorefPayload& p) {
    const int width = p.precision - 1;
    return {Letters("letters", p.lonZone, p.latZone, p.lonDegree, p.latDegree),
            Whole("lonMinutes", p.lonMinutes, width), Whole("latMinutes", p.latMinutes, width)};
}

std::vector<Field> Fields(const GkPayload& p) {
    return {Metres("easting", p.easting), Metres("northing", p.northing)};
}

std::vector<Field> Fields(const BmnPayload& p) {
    return {Whole("meridian", p.meridian), Metres("easting", p.easting), Metres("northing", p.northing)};
}

std::vector<Field> Fields(const GridPayload& p) {
    return {Metres("easting", p.easting), Metres("northing", p.northing)};
}

std::vector<Field> Fields(const EcefPayload& p) {
    return {Metres("x", p.x), Metres("y", p.y), Metres("z", p.z)};
}

std::vector<Field> Fields(const UpsPayload& p) {
    return {Letters("hemisphere", p.hemisphere), Metres("easting", p.easting),
            Metres("northing", p.northing)};
}

std::vector<Field> Fields(const TmPayload& p) {
    return {Metres("easting", p.easting), Metres("northing", p.northing)};
}

std::vector<Field> Fields(const VdgPayload& p) {
    return {Metres("x", p.x), Metres("y", p.y)};
}

std::vector<Field> Fields(const LetterGridPayload& p) {
    return {Letters("square", p.square, p.subSquare),
            Whole("easting", std::llround(p.easting), SQUARE_DIGITS),
            Whole("northing", std::llround(p.northing), SQUARE_DIGITS), Metres("fullEasting", p.fullEasting),
            Metres("fullNorthing", p.fullNorthing)};
}

template <class Payload>
std::vector<Field> Read(const tagKOORD& record) {
    return Fields(Load<Payload>(record));
}

}  // namespace

std::string Field::Text() const {
    if (const auto* number = std::get_if<double>(&value)) return FormatNumber(*number, digits);
    if (const auto* whole = std::get_if<std::int64_t>(&value)) return FormatWhole(*whole, digits);
    return std::get<std::string>(value);
}

std::vector<Field> FieldsOf(const tagKOORD& record) {
    switch (record.type) {
        case KOORD_LONGPIXEL:
            return Read<LongPixelPayload>(record);
        case KOORD_FLOATPIXEL:
            return Read<FloatPixelPayload>(record);
        case KOORD_UTM:
            return Read<UtmPayload>(record);
        case KOORD_UTMREF:
            return Read<UtmrefPayload>(record);
        case KOORD_GEODEZ:
            return Read<GeodezPayload>(record);
        case KOORD_GEOGRAD:
            return Read<GeogradPayload>(record);
        case KOORD_GEOREF:
            return Read<GeorefPayload>(record);
        case KOORD_GK:
        case KOORD_GK6:
            return Read<GkPayload>(record);
        case KOORD_BMN:
        case KOORD_OEM:
        case KOORD_GKAT:
            return Read<BmnPayload>(record);
        case KOORD_CH:
        case KOORD_PO_MILITARY:
        case KOORD_RD:
        case KOORD_LUREF:
            return Read<GridPayload>(record);
        case KOORD_ECEF:
            return Read<EcefPayload>(record);
        case KOORD_GEODEZMIN:
            return Read<GeodezMinPayload>(record);
        case KOORD_UPS:
            return Read<UpsPayload>(record);
        case KOORD_TM:
            return Read<TmPayload>(record);
        case KOORD_VDG:
            return Read<VdgPayload>(record);
        case KOORD_BNG:
        case KOORD_ING:
            return Read<LetterGridPayload>(record);
        default:
            return {};
    }
}

Field HeightField(double height) {
    return Metres("height", height);
}

bool AreFinite(const std::vector<Field>& fields) {
    return std::all_of(fields.begin(), fields.end(), [](const Field& field) {
        const auto* number = std::get_if<double>(&field.value);
        return number == nullptr || std::isfinite(*number);
    });
}

}  // namespace tessara::program
