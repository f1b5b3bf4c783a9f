// Texts of positions, read and written by the toolkit's reader and writer.
#include <cmath>
#include <cstring>
#include <nlohmann/json.hpp>
#include <optional>

#include "conversion/fields.h"
#include "conversion/statuses.h"
#include "exports.h"
#include "prepared.h"
#include "references.h"
#include "tessara/ckoord.h"
#include "typed/text_writer.h"
#include "typed/typed_reader.h"

namespace tessara::web {
namespace {

using Json = nlohmann::ordered_json;

constexpr std::string_view ANY_SYSTEM = "auto";
constexpr std::int32_t NO_DIGITS = -1;

std::string Written(const Json& json) {
    return json.dump(-1, ' ', false, Json::error_handler_t::replace);
}

// A system that is named, or any that can be told from a text; in both cases on a datum where none is named.
toolkit::Wanted WantedOf(const std::string& system, const std::string& datum) {
    toolkit::Wanted wanted;
    wanted.reference.datum = DatumOf(datum);
    if (system == ANY_SYSTEM) return wanted;
    const auto reference = toolkit::ReferenceByName(system, wanted.reference.datum);
    if (!reference) throw std::invalid_argument(toolkit::WrongReference(system));
    wanted.reference = *reference;
    return wanted;
}

Json FieldsAsJson(const tagKOORD& record) {
    Json fields = Json::object();
    for (const toolkit::Field& field : toolkit::FieldsOf(record))
        std::visit([&](const auto& value) { fields[field.name] = value; }, field.value);
    return fields;
}

Json ReadingAsJson(const toolkit::Reading& reading) {
    GeodezPayload degrees{std::nan(""), std::nan(""), 0.0};
    (void)toolkit::DegreesOf(reading.record, &degrees);
    return {{"latitude", degrees.latitude},
            {"longitude", degrees.longitude},
            {"system", toolkit::SystemName(reading.reference.system)},
            {"datum", toolkit::DatumName(reading.reference.datum)},
            {"fields", FieldsAsJson(reading.record)},
            {"picture", toolkit::PictureOf(reading)},
            {"description", toolkit::Describe(reading)}};
}

// One record with the numbers of a row.
void PutNumber(const OutputField& field, double value, tagKOORD* record) {
    std::memcpy(record->payload + field.offset, &value, sizeof value);
}

struct Row {
    CKoord source;
    CKoord target;
    KoordStatus status;
};

Row ConvertRow(const PreparedConversion& conversion, double north, double east) {
    tagKOORD source = conversion.Source();
    const auto fields = conversion.SourceFields();
    PutNumber(fields[0], north, &source);
    PutNumber(fields[1], east, &source);
    tagKOORD target;
    const KoordStatus status = conversion.Convert(source, &target);
    return {CKoord(source), CKoord(target), status};
}

}  // namespace

// All that a text may mean, or why it means nothing.
TESSARA_EXPORT(parse)
Outcome Parse(const char* text, std::size_t textSize, const char* system, std::size_t systemSize,
              const char* datum, std::size_t datumSize) {
    return Try([&] {
        const toolkit::TypedReader reader(
            WantedOf(std::string(system, systemSize), std::string(datum, datumSize)));
        const toolkit::TypedResult result = reader.Read(TextAt(text, textSize));
        Json answer{{"readings", Json::array()}};
        for (const toolkit::Reading& reading : result.readings)
            answer["readings"].push_back(ReadingAsJson(reading));
        if (result.fault.IsThere()) {
            answer["fault"] = {{"code", result.fault.code},
                               {"reason", result.fault.reason},
                               {"begin", result.fault.piece.begin},
                               {"end", result.fault.piece.end}};
        }
        Answer() = Written(answer);
    });
}

// Texts many at once, the positions in degrees of any texts: NaN where a text isn't read. The texts stand
// apart by line breaks.
TESSARA_EXPORT(parseLines)
Outcome ParseLines(const char* text, std::size_t textSize, const char* system, std::size_t systemSize,
                   const char* datum, std::size_t datumSize, double* latitudes, double* longitudes,
                   std::size_t count) {
    return Try([&] {
        const toolkit::TypedReader reader(
            WantedOf(std::string(system, systemSize), std::string(datum, datumSize)));
        std::vector<std::string_view> lines(count);
        std::string_view rest = TextAt(text, textSize);
        for (std::string_view& line : lines) {
            line = rest.substr(0, rest.find('\n'));
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        }
        std::vector<GeodezPayload> degrees(count);
        reader.ReadDegrees(lines, degrees);
        for (std::size_t i = 0; i < count; ++i) {
            latitudes[i] = degrees[i].latitude;
            longitudes[i] = degrees[i].longitude;
        }
    });
}

// For each position of two columns of degrees a line: its text, or its north and east text apart by a tab;
// nothing where it has none. `digits` is -1 unless military references are wanted as one text.
TESSARA_EXPORT(format)
Outcome Format(std::int32_t handle, const double* norths, const double* easts, std::size_t count,
               std::int32_t isDisplay, double resolution, std::int32_t digits, std::int32_t isTruncated) {
    return Try([&] {
        const PreparedConversion& conversion = Conversions().At(handle);
        toolkit::TextStyle style;
        style.isDisplay = isDisplay != 0;
        if (resolution > 0.0) style.northResolution = style.eastResolution = resolution;
        if (digits != NO_DIGITS) style.reference = toolkit::ReferenceDigits{digits, isTruncated != 0};
        const toolkit::TextWriter writer(conversion.To(), style);
        for (std::size_t i = 0; i < count; ++i) {
            const Row row = ConvertRow(conversion, norths[i], easts[i]);
            if (row.status == KOORD_OK) {
                const std::vector<std::string> texts = writer.Write(row.target, row.source);
                for (std::size_t k = 0; k < texts.size(); ++k)
                    Answer() += (k > 0 ? "\t" : "") + texts[k];
            }
            Answer() += '\n';
        }
    });
}

// The position of degrees on a datum in one system: its fields and texts, or why it has none.
TESSARA_EXPORT(show)
Outcome Show(std::int32_t handle, double latitude, double longitude) {
    return Try([&] {
        const PreparedConversion& conversion = Conversions().At(handle);
        const Row row = ConvertRow(conversion, latitude, longitude);
        std::vector<std::string> texts;
        if (row.status == KOORD_OK) {
            toolkit::TextStyle style;
            if (conversion.To().system == KOORD_UTMREF) style.reference = toolkit::ReferenceDigits{};
            texts = toolkit::TextWriter(conversion.To(), style).Write(row.target, row.source);
        }
        const bool isThere = row.status == KOORD_OK && !texts.empty();
        Json answer{{"name", conversion.To().Name()}};
        if (isThere) {
            answer["fields"] = FieldsAsJson(row.target);
            answer["texts"] = texts;
        } else {
            const KoordStatus status = row.status == KOORD_OK ? KOORD_ERR_OUTSIDE : row.status;
            answer["code"] = toolkit::StatusCode(status);
            answer["reason"] = toolkit::StatusReason(status);
        }
        Answer() = Written(answer);
    });
}

}  // namespace tessara::web
