#include "drawing/map_grid_labels.h"

#include <cmath>

#include "conversion/fields.h"
#include "conversion/made.h"
#include "conversion/numbers.h"
#include "conversion/references.h"
#include "conversion/units.h"
#include "map/map_sites.h"
#include "tessara/host/text.h"

namespace tessara::toolkit {
namespace {

constexpr int MOST_DECIMALS = 7;
constexpr double MINUTES = 60.0;
constexpr double SECONDS = 3600.0;
constexpr double SAME_DEGREES = 1e-9;
constexpr std::int64_t SQUARE_METRES = 100000;
constexpr double SLACK = 1e-9;  // for rounding, in parts of a step

bool IsWhole(double value) {
    return std::abs(value - std::round(value)) <= SLACK * std::max(1.0, std::abs(value));
}

int DecimalsOf(double step) {
    int decimals = 0;
    while (decimals < MOST_DECIMALS && !IsWhole(step * std::pow(10.0, decimals)))
        ++decimals;
    return decimals;
}

// The resolution of a text, in units of the system.
double ResolutionOf(std::int32_t system, double step) {
    if (system == KOORD_GEOGRAD || system == KOORD_GEODEZMIN) {
        for (const double parts : {1.0, MINUTES, SECONDS}) {
            if (IsWhole(step * parts) && (parts < SECONDS || system == KOORD_GEOGRAD))
                return (1.0 + SLACK) / parts;
        }
        const double unit = system == KOORD_GEOGRAD ? SECONDS : MINUTES;
        return (1.0 + SLACK) * std::pow(10.0, -DecimalsOf(step * unit)) / unit;
    }
    return (1.0 + SLACK) * std::pow(10.0, -DecimalsOf(step));
}

bool IsDegreesOrCode(std::int32_t system) {
    return IsDegrees(system) || system == KOORD_GEOREF;
}

// Replaces degrees with minutes by decimal degrees, and lettered squares by their grid.
CKoord AsNumbers(const CKoord& koord) {
    const auto system = static_cast<std::int32_t>(koord.type);
    if (!IsDegreesOrCode(system) && system != KOORD_UTMREF) return koord;
    const IRef<ICoord> coord = Made(host::CoordOf(koord));
    const std::int32_t numbers = system == KOORD_UTMREF ? KOORD_UTM : KOORD_GEODEZ;
    coord->SetReference(
        MakeReference({.datum = static_cast<std::int32_t>(koord.datum), .system = numbers}).Get());
    return host::RecordOf(coord);
}

// Longitudes on a map continue across the date line; labels normalise them to -180..180.
IRef<ICoord> WithinHalfATurn(ICoord* coord) {
    const CKoord koord = host::RecordOf(coord);
    const auto system = static_cast<std::int32_t>(koord.type);
    IRef<ICoord> within(Made(host::CoordOf(koord)));
    auto degrees = Load<GeodezPayload>(AsNumbers(koord));
    if (std::abs(degrees.longitude) <= HALF_TURN) return within;
    within = DegreesCoord(degrees.latitude, std::remainder(degrees.longitude, 2.0 * HALF_TURN),
                          static_cast<std::int32_t>(koord.datum));
    within->SetReference(
        MakeReference({.datum = static_cast<std::int32_t>(koord.datum), .system = system}).Get());
    return within;
}

bool IsNumber(const std::string& text) {
    return text.find_first_not_of("+-.0123456789") == std::string::npos;
}

// A bare number does not identify its axis.
std::string WithAxis(const std::string& text, Axis axis) {
    if (!IsNumber(text)) return text;
    return text + (axis == Axis::North ? " N" : " E");
}

// The equator and the meridians 0 and 180 have no hemisphere letter.
bool IsMiddleLine(double degrees, Axis axis) {
    const double period = axis == Axis::North ? 4.0 * HALF_TURN : HALF_TURN;
    return std::abs(std::remainder(degrees, period)) < SAME_DEGREES;
}

// The digits within the square that the step requires, as on printed sheets: 91 for 91000 with a step of
// 1000.
std::string DigitsInSquare(double value, double step) {
    int digits = SQUARE_DIGITS;
    while (digits > 0 && IsWhole(step / std::pow(10.0, SQUARE_DIGITS - digits + 1)))
        --digits;
    const auto inSquare = static_cast<std::int64_t>(std::llround(value)) % SQUARE_METRES;
    return FormatWhole(inSquare / static_cast<std::int64_t>(std::pow(10.0, SQUARE_DIGITS - digits)), digits);
}

std::string LibraryText(ICoord* coord, Axis axis, double step) {
    const auto system = static_cast<std::int32_t>(host::RecordOf(coord).type);
    const IRef<ICoordinateString> string = Made(CreateClassCoordinateString());
    const IRef<ITessaraString> text = Made<ITessaraString>(NewObject<host::Text>());
    string->SetCoord(coord);
    const double resolution = ResolutionOf(system, step);
    string->SetNorthPrecision(resolution);
    string->SetEastPrecision(resolution);
    if (IsDegrees(system)) {
        axis == Axis::North ? string->GetNorthDisplayText(text.Get())
                            : string->GetEastDisplayText(text.Get());
    } else {
        axis == Axis::North ? string->GetNorthText(text.Get()) : string->GetEastText(text.Get());
    }
    return host::ToUtf8(text);
}

// In the notation of the system, with the hemisphere letter: 48.25\u00B0N, 48\u00B015'N.
std::string DegreesText(ICoord* coord, Axis axis, double value, double step) {
    const bool isMiddle = IsMiddleLine(value, axis);
    if (host::RecordOf(coord).type == KOORD_GEODEZ) {
        const double within = axis == Axis::East ? std::remainder(value, 2.0 * HALF_TURN) : value;
        const char* side = axis == Axis::North ? (within < 0.0 ? "S" : "N") : (within < 0.0 ? "W" : "E");
        return FormatNumber(std::abs(within), DecimalsOf(step)) + "\u00B0" + (isMiddle ? "" : side);
    }
    const std::string text = LibraryText(WithinHalfATurn(coord).Get(), axis, step);
    return isMiddle ? text.substr(0, text.find_first_of("NSEW")) : text;
}

// For a step of a whole square, the value in the underlying grid.
std::string SquareText(ICoord* coord, Axis axis, double value, double step) {
    if (step < SQUARE_METRES) return WithAxis(DigitsInSquare(value, step), axis);
    return WithAxis(LibraryText(Made(host::CoordOf(AsNumbers(host::RecordOf(coord)))).Get(), axis, step),
                    axis);
}

}  // namespace

std::optional<double> AxisValue(ICoord* coord, Axis axis) {
    const CKoord koord = AsNumbers(host::RecordOf(coord));
    const bool isNorth = axis == Axis::North;
    std::optional<double> value;
    // The text of a lettered grid has the full value after the value within the square.
    for (const Field& field : FieldsOf(koord)) {
        const std::string name = field.name;
        const bool isMeant =
            isNorth ? name == "northing" || name == "latitude" || name == "y" || name == "fullNorthing"
                    : name == "easting" || name == "longitude" || name == "x" || name == "fullEasting";
        if (isMeant && std::holds_alternative<double>(field.value)) value = std::get<double>(field.value);
    }
    // A reference has whole metres, which the way over degrees blurs.
    const bool isReference = host::RecordOf(coord).type == KOORD_UTMREF;
    return value && isReference ? std::optional(std::round(*value)) : value;
}

std::string AxisText(ICoord* coord, Axis axis, double step) {
    const auto system = static_cast<std::int32_t>(host::RecordOf(coord).type);
    const double value = AxisValue(coord, axis).value_or(NAN);
    if (IsPixel(system)) return (axis == Axis::North ? "row " : "column ") + FormatPlain(value);
    if (system == KOORD_BNG || system == KOORD_ING || system == KOORD_VDG)
        return WithAxis(FormatNumber(value, DecimalsOf(step)), axis);
    if (system == KOORD_UTMREF) return SquareText(coord, axis, value, step);
    if (!IsDegrees(system)) return WithAxis(LibraryText(coord, axis, step), axis);
    return DegreesText(coord, axis, value, step);
}

}  // namespace tessara::toolkit
