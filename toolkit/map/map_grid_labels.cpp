#include "map/map_grid_labels.h"

#include <cmath>

#include "conversion/coords.h"
#include "conversion/fields.h"
#include "conversion/numbers.h"
#include "conversion/references.h"
#include "lines/utf8.h"
#include "tessara/host/text.h"

namespace tessara::toolkit {
namespace {

constexpr int MOST_DECIMALS = 7;
constexpr double MINUTES = 60.0;
constexpr double SECONDS = 3600.0;
constexpr double SLACK = 1e-9;  // of rounding, in parts of a step

bool IsWhole(double value) {
    return std::abs(value - std::round(value)) <= SLACK * std::max(1.0, std::abs(value));
}

int DecimalsOf(double step) {
    int decimals = 0;
    while (decimals < MOST_DECIMALS && !IsWhole(step * std::pow(10.0, decimals)))
        ++decimals;
    return decimals;
}

// The resolution that a text needs, in units of the system.
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

// Degrees in parts and letters become decimal ones.
CKoord AsNumbers(const CKoord& koord) {
    if (!IsDegrees(static_cast<std::int32_t>(koord.type)) && koord.type != KOORD_GEOREF) return koord;
    const IRef<ICoord> coord = CoordOf(koord);
    coord->SetReference(MakeReference({KOORD_GEODEZ, static_cast<std::int32_t>(koord.datum)}).Get());
    return KoordOf(coord.Get());
}

}  // namespace

std::optional<double> AxisValue(ICoord* coord, Axis axis) {
    const CKoord koord = AsNumbers(KoordOf(coord));
    const bool isNorth = axis == Axis::NORTH;
    std::optional<double> value;
    // The whole value of a lettered grid comes behind the one within its square.
    for (const Field& field : FieldsOf(koord)) {
        const std::string name = field.name;
        const bool isMeant =
            isNorth ? name == "northing" || name == "latitude" || name == "y" || name == "fullNorthing"
                    : name == "easting" || name == "longitude" || name == "x" || name == "fullEasting";
        if (isMeant && std::holds_alternative<double>(field.value)) value = std::get<double>(field.value);
    }
    return value;
}

std::string AxisText(ICoord* coord, Axis axis, double step) {
    const auto system = static_cast<std::int32_t>(KoordOf(coord).type);
    if (system == KOORD_BNG || system == KOORD_ING || system == KOORD_VDG)
        return FormatNumber(AxisValue(coord, axis).value_or(NAN), DecimalsOf(step));

    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<ITessaraString> text(NewObject<host::Text>());
    string->SetCoord(coord);
    const double resolution = ResolutionOf(system, step);
    string->SetNorthPrecision(resolution);
    string->SetEastPrecision(resolution);
    if (IsDegrees(system)) {
        axis == Axis::NORTH ? string->GetNorthDisplayText(text.Get())
                            : string->GetEastDisplayText(text.Get());
    } else {
        axis == Axis::NORTH ? string->GetNorthText(text.Get()) : string->GetEastText(text.Get());
    }
    return Latin1ToUtf8(text->GetText());
}

}  // namespace tessara::toolkit
