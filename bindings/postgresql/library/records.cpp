#include "records.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <initializer_list>

#include "conversion/names.h"
#include "guard.h"
#include "tessara/kernel/columns.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/limits.h"

namespace tessara::postgresql {
namespace {

#define PARAMETER(name, Struct, field)                                               \
    OutputField {                                                                    \
        name, OutputKind::Metres, static_cast<std::uint8_t>(offsetof(Struct, field)) \
    }

constexpr std::array TM_PARAMETERS{PARAMETER("lon0", TmPayload, originLongitude),
                                   PARAMETER("lat0", TmPayload, originLatitude),
                                   PARAMETER("k", TmPayload, scale), PARAMETER("fe", TmPayload, falseEasting),
                                   PARAMETER("fn", TmPayload, falseNorthing)};
constexpr std::array VDG_PARAMETERS{PARAMETER("lon0", VdgPayload, originLongitude),
                                    PARAMETER("lat0", VdgPayload, originLatitude)};

#undef PARAMETER

template <class Value>
Value At(const tagKOORD& record, const OutputField& field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

std::optional<OutputField> FieldCalled(std::initializer_list<std::string_view> names, std::int32_t system) {
    for (const std::string_view name : names) {
        for (const OutputField& field : System_Columns(system)) {
            if (field.name == name && SizeOf(field) == sizeof(double)) return field;
        }
    }
    return std::nullopt;
}

// Texts of GEOREF have the minutes that a conversion writes.
tagKOORD EmptyRecord(std::int32_t datum, std::int32_t system) {
    tagKOORD record = toolkit::DefaultRecord({.datum = datum, .system = system});
    if (system != KOORD_GEOREF) return record;
    const tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
    KoordConvert(&degrees, &record);
    return record;
}

// The toolkit's messages end with the command of the program that lists the names.
std::string WithoutCommand(const std::string& message) {
    std::string kept = message.substr(0, message.find(" `tessara"));
    if (!kept.empty() && kept.back() == ';') kept.pop_back();
    return kept;
}

}  // namespace

std::int32_t DatumOf(const char* name) {
    const auto datum = toolkit::DatumByName(name);
    if (!datum)
        throw Thrown{TESSARA_WRONG_ARGUMENT,
                     WithoutCommand(toolkit::WrongDatum(name)),
                     {},
                     "tessara_datums() lists the names."};
    return *datum;
}

toolkit::Reference ReferenceOf(const char* name) {
    const std::string text(name);
    const std::string wrong = toolkit::WrongReference(text);
    if (!wrong.empty())
        throw Thrown{TESSARA_WRONG_ARGUMENT,
                     WithoutCommand(wrong),
                     {},
                     "tessara_systems() and tessara_datums() list the names; a reference is SYSTEM@DATUM."};
    toolkit::Reference reference = *toolkit::ReferenceByName(text, DATUM_WGS84);
    if (toolkit::IsPixel(reference.system))
        throw Thrown{TESSARA_WRONG_ARGUMENT, "positions in pixels belong to a map"};
    return reference;
}

std::span<const OutputField> ParametersOf(std::int32_t system) {
    if (system == KOORD_TM) return TM_PARAMETERS;
    if (system == KOORD_VDG) return VDG_PARAMETERS;
    return {};
}

std::vector<OutputField> FieldsOf(std::int32_t system) {
    const auto parameters = ParametersOf(system);
    const auto columns = System_Columns(system);
    std::vector<OutputField> fields(parameters.begin(), parameters.end());
    fields.insert(fields.end(), columns.begin(), columns.end());
    return fields;
}

std::size_t SizeOf(const OutputField& field) {
    switch (field.kind) {
        case OutputKind::Letters:
            return field.count;
        case OutputKind::Whole16:
        case OutputKind::GeorefMinutes:
            return sizeof(std::int16_t);
        case OutputKind::Whole32:
        case OutputKind::SquareMetres:
            return sizeof(std::int32_t);
        default:
            return sizeof(double);
    }
}

double NumberOf(const OutputField& field, const tagKOORD& record) {
    switch (SizeOf(field)) {
        case sizeof(std::int16_t):
            return At<std::int16_t>(record, field);
        case sizeof(std::int32_t):
            return At<std::int32_t>(record, field);
        default:
            return At<double>(record, field);
    }
}

std::optional<double> NumberCalled(std::string_view name, const tagKOORD& record) {
    for (const OutputField& field : FieldsOf(static_cast<std::int32_t>(record.type))) {
        if (field.name == name && field.kind != OutputKind::Letters) return NumberOf(field, record);
    }
    return std::nullopt;
}

std::optional<FieldPair> NorthAndEast(std::int32_t system) {
    if (system == KOORD_ECEF) return std::nullopt;
    const auto north = FieldCalled({"latitude", "fullNorthing", "northing", "y"}, system);
    const auto east = FieldCalled({"longitude", "fullEasting", "easting", "x"}, system);
    if (!north || !east) return std::nullopt;
    return FieldPair{*north, *east};
}

RecordForm::RecordForm(std::int32_t datum, std::int32_t system)
    : empty_(EmptyRecord(datum, system)), fields_(FieldsOf(system)) {}

tagKOORD RecordForm::Canonical(const tagKOORD& record) const {
    tagKOORD canonical = empty_;
    for (const OutputField& field : fields_)
        std::memcpy(canonical.payload + field.offset, record.payload + field.offset, SizeOf(field));
    return canonical;
}

KoordStatus ToDegrees(const tagKOORD& record, double degrees[2]) {
    tagKOORD geodez = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    const KoordStatus status = KoordConvert(&record, &geodez);
    if (status != KOORD_OK) return status;
    const auto p = Load<GeodezPayload>(geodez);
    if (!(std::abs(p.latitude) <= GEOGRAPHIC_LIMITS.north)) return KOORD_ERR_GEO_LAT;
    if (!(std::abs(p.longitude) <= GEOGRAPHIC_LIMITS.east)) return KOORD_ERR_GEO_LON;
    degrees[0] = p.latitude;
    degrees[1] = p.longitude;
    return KOORD_OK;
}

}  // namespace tessara::postgresql
