#include "files/record_conversion.h"

#include <cmath>
#include <string_view>
#include <utility>

#include "conversion/numbers.h"
#include "conversion/statuses.h"
#include "lines/line_reader.h"
#include "lines/words.h"
#include "tessara/kernel/convergence.h"

namespace tessara::program {
namespace {

constexpr int SCALE_DECIMALS = 10;

// The number of a member, or the error in its text.
struct Number {
    std::optional<double> value;
    std::string wrong;
};

Number NumberOf(const Record& record, std::size_t member, double limit,
                std::string (*wrong)(std::string_view)) {
    const std::string text = TextOf(record.members[member].value);
    const std::string_view word = TrimBlanks(text);
    const std::optional<double> number = ParseNumber(word);
    if (number && std::abs(*number) <= limit) return {number, {}};
    return {std::nullopt, wrong(word)};
}

Number HeightOf(const Record& record) {
    if (record.at.height == NO_MEMBER) return {};
    const std::string text = TextOf(record.members[record.at.height].value);
    if (TrimBlanks(text).empty()) return {};
    return NumberOf(record, record.at.height, HUGE_VAL, WrongNumber);
}

// The default names of the texts of a target.
void AddTexts(std::vector<std::string> texts, std::vector<Field>* values) {
    constexpr const char* NAMES[] = {"north", "east"};
    for (std::size_t i = 0; i < texts.size(); ++i) {
        Field& field = values->emplace_back();
        field.name = texts.size() == 1 ? "text" : NAMES[i];
        field.value = std::move(texts[i]);
    }
}

void AddFactors(const RecordConversion& conversion, const GridFactors& factors, std::vector<Field>* values) {
    if (conversion.withConvergence) values->push_back({"convergence", factors.convergence, DEGREE_DECIMALS});
    if (conversion.withScale) values->push_back({"scale", factors.scale, SCALE_DECIMALS});
}

// In lines, the height follows each target; in other formats it is a separate member.
bool HasHeightBeside(const RecordConversion& conversion, const Reference& target) {
    const bool isLine = conversion.isReport || conversion.output == Form::LINES;
    return isLine && target.system != KOORD_ECEF;
}

}  // namespace

std::size_t CountTexts(const RecordConversion& conversion, const Reference& target) {
    return TextWriter(target, *conversion.texts).HasOneText() ? 1 : 2;
}

std::vector<Field> ValuesOf(const RecordConversion& conversion, const Reference& target) {
    std::vector<Field> values;
    if (conversion.texts) {
        AddTexts(std::vector<std::string>(CountTexts(conversion, target)), &values);
    } else {
        values = FieldsOf(MakeKoord(target.datum, target.system));
    }
    if (Grid_HasFactors(target.system)) AddFactors(conversion, {}, &values);
    return values;
}

void Results::Clear() {
    error.clear();
    code = "";
    reading.reset();
    positions.clear();
    values.clear();
    koords.clear();
    points.clear();
}

RecordConverter::RecordConverter(const RecordConversion& conversion) : conversion_(conversion) {
    const bool areFactorsWanted = conversion.withConvergence || conversion.withScale;
    // The record of a typed position holds the datum.
    const std::int32_t datum = conversion.datum;
    for (const Reference& reference : conversion.to) {
        Target target{Conversion(datum, reference), {}, {}};
        if (conversion.texts) target.writer.emplace(reference, *conversion.texts);
        if (areFactorsWanted && Grid_HasFactors(reference.system))
            target.degrees.emplace(datum, Reference{.datum = reference.datum, .system = KOORD_GEODEZ});
        targets_.push_back(std::move(target));
    }
    if (conversion.output == Form::GEOJSON)
        point_.emplace(datum, Reference{.datum = DATUM_WGS84, .system = KOORD_GEODEZ});
    if (conversion.from) reader_.emplace(*conversion.from);
}

void RecordConverter::Convert(Record& record, Results* results) {
    results->Clear();
    results->error = record.error;
    if (!results->error.empty()) return;
    if (reader_) return ConvertTyped(ReadTexts(record), results);
    results->error = ReadDegrees(record, &results->positions);
    for (std::size_t i = 0; i < results->positions.size() && results->error.empty(); ++i) {
        const Position& position = results->positions[i];
        tagKOORD geodez = MakeKoord(conversion_.datum, KOORD_GEODEZ);
        Store(geodez, GeodezPayload{position.latitude, position.longitude, position.height.value_or(0.0)});
        if (!ConvertToAll(CKoord(geodez), position.height, results)) return;
    }
}

void RecordConverter::ConvertTyped(const TypedResult& read, Results* results) {
    results->Clear();
    if (!read.IsRead()) {
        results->error = read.fault.reason;
        results->code = read.fault.code;
        return;
    }
    results->reading = read.readings.front();
    ConvertToAll(CKoord(results->reading->record), std::nullopt, results);
}

std::string RecordConverter::ReadDegrees(const Record& record, std::vector<Position>* positions) {
    if (record.at.north == NO_MEMBER) {
        *positions = record.positions;
        return {};
    }
    const Number latitude = NumberOf(record, record.at.north, LATITUDE_LIMIT, WrongLatitude);
    const Number longitude = NumberOf(record, record.at.east, LONGITUDE_LIMIT, WrongLongitude);
    const Number height = HeightOf(record);
    for (const Number* number : {&latitude, &longitude, &height}) {
        if (!number->wrong.empty()) return number->wrong;
    }
    positions->push_back({*latitude.value, *longitude.value, height.value});
    return {};
}

// Tries the two members, then the first member, then the whole line, in which the separator may belong to the
// text.
TypedResult RecordConverter::ReadTexts(Record& record) const {
    const std::string north = TextOf(record.members[record.at.north].value);
    const std::string east = TextOf(record.members[record.at.east].value);
    if (record.at.north == record.at.east || east.empty()) return reader_->Read(north);
    TypedResult both = reader_->Read(north, east);
    if (both.IsRead() || !record.mayBeOneText) return both;

    TypedResult first = reader_->Read(north);
    if (first.IsRead()) {
        record.at.east = record.at.north;
        record.members[1].name = "2";
        return first;
    }
    // A decimal comma is not a separator.
    const std::string_view line = WithoutCarriageReturn(record.source);
    if (record.separator != ',') return both;
    TypedResult whole = reader_->Read(line);
    if (!whole.IsRead()) return both;
    record.at = {0, 0, NO_MEMBER};
    record.members.assign(1, {"north", {Notation::Plain, line}});
    return whole;
}

bool RecordConverter::ConvertToAll(const CKoord& source, const std::optional<double>& height,
                                   Results* results) {
    std::vector<Missing> missing;
    for (const Target& target : targets_) {
        const KoordStatus status = ConvertTo(target, source, height, results);
        if (status != KOORD_OK) missing.push_back({target.conversion.Target(), status});
    }
    if (point_) {
        CKoord degrees;
        const KoordStatus status = point_->Convert(source, &degrees);
        if (status != KOORD_OK) {
            missing.push_back({point_->Target(), status});
        } else {
            const auto point = Load<GeodezPayload>(degrees);
            results->points.push_back({point.latitude, point.longitude, height});
        }
    }
    if (missing.empty()) return true;
    results->error = NotConvertibleTo(missing);
    results->code = StatusCode(missing.front().status);
    return false;
}

KoordStatus RecordConverter::ConvertTo(const Target& target, const CKoord& source,
                                       const std::optional<double>& height, Results* results) const {
    CKoord koord;
    KoordStatus status = target.conversion.Convert(source, &koord);
    if (status != KOORD_OK) return status;
    std::vector<Field> values;
    if (target.writer) {
        std::vector<std::string> texts = target.writer->Write(koord, source);
        if (texts.empty()) return KOORD_ERR_OUTSIDE;
        AddTexts(std::move(texts), &values);
    } else {
        values = FieldsOf(koord);
    }
    if (target.degrees) {
        CKoord degrees;
        status = target.degrees->Convert(source, &degrees);
        if (status != KOORD_OK) return status;
        const auto payload = Load<GeodezPayload>(degrees);
        const double latLon[2] = {payload.latitude, payload.longitude};
        GridFactors factors;
        status = Grid_Factors(&koord, latLon, &factors);
        if (status != KOORD_OK) return status;
        AddFactors(conversion_, factors, &values);
    }
    if (height && HasHeightBeside(conversion_, target.conversion.Target()))
        values.push_back(HeightField(*height));
    results->values.push_back(std::move(values));
    results->koords.push_back(koord);
    return KOORD_OK;
}

}  // namespace tessara::program
