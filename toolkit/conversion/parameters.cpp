#include "conversion/parameters.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {

struct ParameterRow {
    std::int32_t system;
    const char* key;
    RecordField field;
    double lowest;
    double highest;
    bool isZone = false;
    // Converts the value to that of the record.
    double (*stored)(double value, std::int32_t datum) = nullptr;
};

namespace {

constexpr double FARTHEST = 1e9;  // metres, of a false origin
constexpr double SMALLEST_SCALE = 1e-3;
constexpr double LARGEST_SCALE = 1e3;

constexpr double STRIP3 = 3.0;
constexpr double STRIP6 = 6.0;
constexpr double KKJ_ORIGIN = 18.0;

double MeridianOf3(double strip, std::int32_t datum) {
    return STRIP3 * strip + (datum == DATUM_KKJ ? KKJ_ORIGIN : 0.0);
}

// Strips of six degrees have no number 0; west of Greenwich they begin with -1.
double MeridianOf6(double strip, std::int32_t /*datum*/) {
    return STRIP6 * strip + (strip > 0.0 ? -STRIP3 : STRIP3);
}

#define AT(kind, Struct, field) \
    { FieldKind::kind, static_cast<std::uint8_t>(offsetof(Struct, field)) }

constexpr ParameterRow PARAMETER_ROWS[] = {
    {KOORD_TM, "lon0", AT(Number, TmPayload, originLongitude), -360.0, 360.0},
    {KOORD_TM, "lat0", AT(Number, TmPayload, originLatitude), -90.0, 90.0},
    {KOORD_TM, "k", AT(Number, TmPayload, scale), SMALLEST_SCALE, LARGEST_SCALE},
    {KOORD_TM, "fe", AT(Number, TmPayload, falseEasting), -FARTHEST, FARTHEST},
    {KOORD_TM, "fn", AT(Number, TmPayload, falseNorthing), -FARTHEST, FARTHEST},
    {KOORD_VDG, "lon0", AT(Number, VdgPayload, originLongitude), -360.0, 360.0},
    {KOORD_VDG, "lat0", AT(Number, VdgPayload, originLatitude), -90.0, 90.0},
    {KOORD_UTM, "zone", AT(Whole16, UtmPayload, wantedZone), 1.0, UTM_ZONE_COUNT, true},
    {KOORD_UTMREF, "zone", AT(Whole16, UtmrefPayload, wantedZone), 1.0, UTM_ZONE_COUNT, true},
    {KOORD_GK, "strip", AT(Whole16, GkPayload, wantedMeridian), -60.0, 60.0, true, MeridianOf3},
    {KOORD_GK6, "strip", AT(Whole16, GkPayload, wantedMeridian), -30.0, 30.0, true, MeridianOf6},
    {KOORD_BMN, "meridian", AT(Whole16, BmnPayload, wantedMeridian), 28.0, 34.0, true},
    {KOORD_OEM, "meridian", AT(Whole16, BmnPayload, wantedMeridian), 28.0, 34.0, true},
    {KOORD_GKAT, "meridian", AT(Whole16, BmnPayload, wantedMeridian), 28.0, 34.0, true},
};

#undef AT

const ParameterRow* FindRow(std::int32_t system, std::string_view key) {
    const ParameterRow* const found =
        std::find_if(std::begin(PARAMETER_ROWS), std::end(PARAMETER_ROWS),
                     [&](const ParameterRow& row) { return row.system == system && row.key == key; });
    return found != std::end(PARAMETER_ROWS) ? found : nullptr;
}

const ParameterRow* ZoneRow(std::int32_t system) {
    const ParameterRow* const found =
        std::find_if(std::begin(PARAMETER_ROWS), std::end(PARAMETER_ROWS),
                     [&](const ParameterRow& row) { return row.system == system && row.isZone; });
    return found != std::end(PARAMETER_ROWS) ? found : nullptr;
}

bool IsAustrian(std::int32_t system) {
    return system == KOORD_BMN || system == KOORD_OEM || system == KOORD_GKAT;
}

bool IsLegal(const ParameterRow& row, double value) {
    if (!(value >= row.lowest && value <= row.highest)) return false;
    if (row.isZone && value != std::floor(value)) return false;
    if (row.system == KOORD_GK6 && value == 0.0) return false;
    return !IsAustrian(row.system) || std::find(std::begin(AUSTRIAN_MERIDIANS), std::end(AUSTRIAN_MERIDIANS),
                                                value) != std::end(AUSTRIAN_MERIDIANS);
}

std::string RangeOf(const ParameterRow& row) {
    if (IsAustrian(row.system)) return std::string(row.key) + " 28, 31 or 34";
    return std::string(row.key) + " " + FormatNumber(row.lowest) + ".." + FormatNumber(row.highest);
}

std::string KeysOf(std::int32_t system) {
    std::string keys;
    for (const ParameterRow& row : PARAMETER_ROWS) {
        if (row.system == system) keys += (keys.empty() ? "" : ", ") + std::string(row.key);
    }
    return keys;
}

// Reads one `key=value`, or returns the error.
std::string ReadParameter(std::int32_t system, std::string_view text, Parameter* parameter) {
    const std::size_t equals = text.find('=');
    const std::string_view key = text.substr(0, equals);
    const ParameterRow* const row = FindRow(system, key);
    if (row == nullptr) {
        const std::string keys = KeysOf(system);
        return keys.empty() ? "the system has no parameters"
                            : "unknown parameter " + Quote(key) + "; the system has " + keys;
    }
    if (equals == std::string_view::npos)
        return "missing value of parameter " + Quote(key) + "; write " + std::string(row->key) + "=NUMBER";
    const std::string_view word = text.substr(equals + 1);
    const std::optional<double> value = ParseNumber(word);
    if (!value || !IsLegal(*row, *value))
        return "invalid value " + Quote(word) + "; expected " + RangeOf(*row);
    *parameter = {row, *value};
    return {};
}

std::string ReadList(std::int32_t system, std::string_view list, Parameters* parameters) {
    for (bool hasMore = true; hasMore;) {
        const std::size_t end = std::min(list.find(','), list.size());
        Parameter parameter{};
        std::string wrong = ReadParameter(system, list.substr(0, end), &parameter);
        if (!wrong.empty()) return wrong;
        parameters->push_back(parameter);
        hasMore = end < list.size();
        list.remove_prefix(hasMore ? end + 1 : end);
    }
    return {};
}

}  // namespace

std::optional<Parameters> ReadParameters(std::int32_t system, std::string_view list) {
    Parameters parameters;
    if (!ReadList(system, list, &parameters).empty()) return std::nullopt;
    return parameters;
}

std::string WrongParameters(std::int32_t system, std::string_view list) {
    Parameters parameters;
    return ReadList(system, list, &parameters);
}

std::string TextOf(const Parameters& parameters) {
    std::string text;
    for (const Parameter& parameter : parameters)
        text +=
            (text.empty() ? "" : ",") + std::string(parameter.row->key) + "=" + FormatNumber(parameter.value);
    return text;
}

std::optional<Parameter> WantedZone(std::int32_t system, std::int32_t number) {
    const ParameterRow* const row = ZoneRow(system);
    if (row == nullptr || !IsLegal(*row, number)) return std::nullopt;
    return Parameter{row, static_cast<double>(number)};
}

std::string ZonesOf(std::int32_t system) {
    const ParameterRow* const row = ZoneRow(system);
    return row != nullptr ? RangeOf(*row) : "";
}

void StoreParameters(const Parameters& parameters, tagKOORD* record) {
    for (const auto& [row, value] : parameters) {
        const double stored =
            row->stored != nullptr ? row->stored(value, static_cast<std::int32_t>(record->datum)) : value;
        std::byte* const at = record->payload + row->field.offset;
        if (row->field.kind == FieldKind::Whole16) {
            const auto whole = static_cast<std::int16_t>(stored);
            std::memcpy(at, &whole, sizeof whole);
        } else {
            std::memcpy(at, &stored, sizeof stored);
        }
    }
}

}  // namespace tessara::toolkit
