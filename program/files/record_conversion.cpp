#include "files/record_conversion.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "conversion/numbers.h"
#include "conversion/results.h"
#include "lines/utf8.h"
#include "tessara/host/text.h"
#include "tessara/kernel/convergence.h"

namespace tessara::program {
namespace {

constexpr Reference POINT_REFERENCE{KOORD_GEODEZ, DATUM_WGS84};

constexpr int SCALE_DECIMALS = 10;

std::string_view TrimBlanks(std::string_view text) {
    constexpr std::string_view BLANKS = " \t\r\n";
    const std::size_t begin = std::min(text.find_first_not_of(BLANKS), text.size());
    return text.substr(begin, text.find_last_not_of(BLANKS) + 1 - begin);
}

// The number of a member, or what is wrong with its text.
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

// A system may have values for a position that aren't numbers; there is no such position in it then.
bool IsNumeric(const std::string& text) {
    return text.find("nan") == std::string::npos && text.find("inf") == std::string::npos;
}

void AddTexts(std::string north, std::string east, std::vector<Field>* values) {
    values->emplace_back("north", std::move(north));
    values->emplace_back("east", std::move(east));
}

void AddFactors(const RecordConversion& conversion, const GridFactors& factors, std::vector<Field>* values) {
    if (conversion.withConvergence) values->push_back({"convergence", factors.convergence, DEGREE_DECIMALS});
    if (conversion.withScale) values->push_back({"scale", factors.scale, SCALE_DECIMALS});
}

// Lines have the height beside each target; elsewhere it is a member of its own.
bool HasHeightBeside(const RecordConversion& conversion, const Reference& target) {
    const bool isLine = conversion.isReport || conversion.output == Form::LINES;
    return isLine && target.system != KOORD_ECEF;
}

}  // namespace

std::vector<Field> ValuesOf(const RecordConversion& conversion, const Reference& target) {
    std::vector<Field> values;
    if (conversion.texts) {
        AddTexts({}, {}, &values);
    } else {
        values = FieldsOf(MakeKoord(target.datum, target.system));
    }
    if (Grid_HasFactors(target.system)) AddFactors(conversion, {}, &values);
    return values;
}

void Results::Clear() {
    error.clear();
    positions.clear();
    values.clear();
    koords.clear();
    points.clear();
}

RecordConverter::RecordConverter(const RecordConversion& conversion)
    : conversion_(conversion), coord_(CreateClassCoord()), internal_(coord_), text_(NewObject<host::Text>()) {
    std::vector<Reference> references = conversion.to;
    if (conversion.output == Form::GEOJSON) references.push_back(POINT_REFERENCE);
    const bool areFactorsWanted = conversion.withConvergence || conversion.withScale;
    for (const Reference& reference : references) {
        Target target{reference, MakeReference(reference), {}, {}};
        target.string = IRef<ICoordinateString>(CreateClassCoordinateString());
        if (areFactorsWanted && Grid_HasFactors(reference.system))
            target.degrees = MakeReference({KOORD_GEODEZ, reference.datum});
        targets_.push_back(target);
    }
    if (conversion.from) typed_.emplace(*conversion.from);
}

void RecordConverter::Convert(const Record& record, Results* results) {
    results->Clear();
    results->error = record.error;
    if (!results->error.empty()) return;
    if (typed_) {
        results->error = ConvertTexts(record, results);
        return;
    }
    results->error = ReadDegrees(record, &results->positions);
    for (std::size_t i = 0; i < results->positions.size() && results->error.empty(); ++i) {
        const Position& position = results->positions[i];
        tagKOORD geodez = MakeKoord(conversion_.datum, KOORD_GEODEZ);
        Store(geodez, GeodezPayload{position.latitude, position.longitude, position.height.value_or(0.0)});
        const CKoord degrees(geodez);
        results->error = ConvertToAll([&] { internal_->SetKoord(&degrees); }, position.height, results);
    }
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

std::string RecordConverter::ConvertTexts(const Record& record, Results* results) {
    const auto text = [&](std::size_t member) { return program::TextOf(record.members[member].value); };
    std::string wrong = typed_->Read(text(record.at.north), text(record.at.east));
    if (!wrong.empty()) return wrong;
    return ConvertToAll([&] { typed_->Held()->GetCoord(coord_.Get()); }, std::nullopt, results);
}

template <class Set>
std::string RecordConverter::ConvertToAll(Set set, const std::optional<double>& height, Results* results) {
    std::vector<Reference> missing;
    for (const Target& target : targets_) {
        std::optional<GeodezPayload> degrees;
        if (target.degrees.IsValid()) {
            set();
            degrees = Degrees(target);
        }
        set();
        if (!ConvertTo(target, degrees, height, results)) missing.push_back(target.reference);
    }
    if (!missing.empty()) return NotConvertibleTo(missing);
    if (conversion_.output != Form::GEOJSON) return {};

    const auto point = Load<GeodezPayload>(results->koords.back());
    results->points.push_back({point.latitude, point.longitude, height});
    results->koords.pop_back();
    results->values.pop_back();
    return {};
}

std::optional<GeodezPayload> RecordConverter::Degrees(const Target& target) {
    if (!coord_->SetReference(target.degrees.Get())) return std::nullopt;
    CKoord koord;
    internal_->GetKoord(&koord);
    return Load<GeodezPayload>(koord);
}

bool RecordConverter::ConvertTo(const Target& target, const std::optional<GeodezPayload>& degrees,
                                const std::optional<double>& height, Results* results) {
    if (!coord_->SetReference(target.libraryReference.Get())) return false;
    CKoord koord;
    internal_->GetKoord(&koord);
    std::vector<Field> values;
    if (conversion_.texts) {
        if (!FillTexts(target, &values)) return false;
    } else {
        values = FieldsOf(koord);
        if (!AreFinite(values)) return false;
    }
    if (degrees) {
        GridFactors factors;
        const double latLon[2] = {degrees->latitude, degrees->longitude};
        if (Grid_Factors(&koord, latLon, &factors) != KOORD_OK) return false;
        AddFactors(conversion_, factors, &values);
    }
    if (height && HasHeightBeside(conversion_, target.reference)) values.push_back(HeightField(*height));
    results->values.push_back(std::move(values));
    results->koords.push_back(koord);
    return true;
}

bool RecordConverter::FillTexts(const Target& target, std::vector<Field>* values) {
    if (!target.string->SetCoord(coord_.Get())) return false;
    if (conversion_.texts->northResolution)
        target.string->SetNorthPrecision(*conversion_.texts->northResolution);
    if (conversion_.texts->eastResolution)
        target.string->SetEastPrecision(*conversion_.texts->eastResolution);
    std::string north = TextOf(target, true);
    std::string east = TextOf(target, false);
    if (!IsNumeric(north) || !IsNumeric(east)) return false;
    AddTexts(std::move(north), std::move(east), values);
    return true;
}

std::string RecordConverter::TextOf(const Target& target, bool isNorth) {
    using Operation = bool (ICoordinateString::*)(ITessaraString*);
    const Operation plain = isNorth ? &ICoordinateString::GetNorthText : &ICoordinateString::GetEastText;
    const Operation display =
        isNorth ? &ICoordinateString::GetNorthDisplayText : &ICoordinateString::GetEastDisplayText;
    // A failed display leaves the plain text, or an empty one.
    (target.string.Get()->*(conversion_.texts->display ? display : plain))(text_.Get());
    return Latin1ToUtf8(text_->GetText());
}

}  // namespace tessara::program
