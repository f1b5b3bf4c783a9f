// Positions in any system: their texts, SYSTEM@DATUM(field, field, ...), their bytes, and where they are.
#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "conversion/units.h"
#include "guard.h"
#include "records.h"
#include "tessara/kernel/constants.h"
#include "typed.h"

namespace tessara::postgresql {
namespace {

using toolkit::FULL_TURN;
using toolkit::HALF_TURN;
using toolkit::POLE;

std::string_view Trimmed(std::string_view text) {
    const std::size_t begin = std::min(text.find_first_not_of(" \t\n"), text.size());
    return text.substr(begin, text.find_last_not_of(" \t\n") + 1 - begin);
}

std::vector<std::string_view> Split(std::string_view text) {
    std::vector<std::string_view> words;
    for (;;) {
        const std::size_t comma = text.find(',');
        words.push_back(Trimmed(text.substr(0, comma)));
        if (comma == std::string_view::npos) return words;
        text.remove_prefix(comma + 1);
    }
}

template <class Whole>
bool StoreWhole(double number, const OutputField& field, tagKOORD* record) {
    const auto whole = static_cast<Whole>(
        std::clamp<double>(number, std::numeric_limits<Whole>::min(), std::numeric_limits<Whole>::max()));
    std::memcpy(record->payload + field.offset, &whole, sizeof whole);
    return whole == number;
}

// False for a word that isn't a value of the field.
bool StoreWord(std::string_view word, const OutputField& field, tagKOORD* record) {
    if (field.kind == OutputKind::Letters) {
        if (word.size() != field.count) return false;
        std::memcpy(record->payload + field.offset, word.data(), word.size());
        return true;
    }
    const std::optional<double> number = toolkit::ParseNumber(word);
    if (!number) return false;
    if (SizeOf(field) == sizeof(std::int16_t)) return StoreWhole<std::int16_t>(*number, field, record);
    if (SizeOf(field) == sizeof(std::int32_t)) return StoreWhole<std::int32_t>(*number, field, record);
    std::memcpy(record->payload + field.offset, &*number, sizeof *number);
    return true;
}

std::string NamesOf(const RecordForm& form) {
    std::string names;
    for (const OutputField& field : form.Fields())
        names += (names.empty() ? "" : ", ") + std::string(field.name);
    return names;
}

// The position of a record that is canonical; throws why it isn't one.
TessaraPosition CheckedPosition(const tagKOORD& record) {
    double degrees[2];
    const KoordStatus status = ToDegrees(record, degrees);
    if (status != KOORD_OK) throw NoPlace(status);
    return PositionOf(record);
}

TessaraPosition ReadFields(std::string_view text, std::size_t open) {
    const toolkit::Reference reference = ReferenceOf(std::string(Trimmed(text.substr(0, open))).c_str());
    const RecordForm form(reference.datum, reference.system);
    tagKOORD record = form.Empty();
    const std::vector<std::string_view> words = Split(text.substr(open + 1, text.size() - open - 2));
    if (words.size() != form.Fields().size())
        throw Thrown{TESSARA_WRONG_TEXT,
                     "a position in " + reference.Name() + " has the fields " + NamesOf(form)};
    for (std::size_t k = 0; k < words.size(); ++k) {
        if (!StoreWord(words[k], form.Fields()[k], &record))
            throw Thrown{TESSARA_WRONG_TEXT, toolkit::Quote(words[k]) + " is no " + form.Fields()[k].name};
    }
    return CheckedPosition(record);
}

std::string NameOf(const tagKOORD& record) {
    return toolkit::SystemName(static_cast<std::int32_t>(record.type)) + '@' +
           toolkit::DatumName(static_cast<std::int32_t>(record.datum));
}

std::string WordOf(const OutputField& field, const tagKOORD& record) {
    if (field.kind != OutputKind::Letters) return toolkit::FormatNumber(NumberOf(field, record));
    return {reinterpret_cast<const char*>(record.payload + field.offset), field.count};
}

// With the parameters of a projection that has some.
std::string ReferenceName(const tagKOORD& record) {
    const auto system = static_cast<std::int32_t>(record.type);
    std::string parameters;
    for (const OutputField& field : ParametersOf(system))
        parameters +=
            (parameters.empty() ? ":" : ",") + std::string(field.name) + '=' + WordOf(field, record);
    return toolkit::SystemName(system) + parameters + '@' +
           toolkit::DatumName(static_cast<std::int32_t>(record.datum));
}

bool HasName(const tagKOORD& record) {
    const auto system = static_cast<std::int32_t>(record.type);
    const auto datum = static_cast<std::int32_t>(record.datum);
    return system >= 0 && datum >= 0 && !toolkit::SystemName(system).empty() && !toolkit::IsPixel(system) &&
           !toolkit::DatumName(datum).empty();
}

}  // namespace

extern "C" {

bool Tessara_ReadPosition(const char* text, TessaraPosition* position, TessaraError* error) noexcept {
    return Guarded(error, [&] {
        const std::string_view trimmed = Trimmed(text);
        const std::size_t open = trimmed.find('(');
        if (open == std::string_view::npos || trimmed.back() != ')') {
            static const toolkit::TypedReader reader{toolkit::Wanted{}};
            *position = ReadTyped(reader, text);
        } else {
            *position = ReadFields(trimmed, open);
        }
        return true;
    });
}

void Tessara_WritePosition(const TessaraPosition* position, char text[TESSARA_TEXT_SIZE]) noexcept {
    TessaraError unused;
    Guarded(&unused, [&] {
        const tagKOORD record = RecordOf(*position);
        std::string words;
        for (const OutputField& field : FieldsOf(static_cast<std::int32_t>(record.type)))
            words += (words.empty() ? "" : ", ") + WordOf(field, record);
        CopyText(NameOf(record) + '(' + words + ')', *reinterpret_cast<char(*)[TESSARA_TEXT_SIZE]>(text));
        return true;
    });
}

bool Tessara_CheckPosition(const TessaraPosition* bytes, TessaraPosition* position,
                           TessaraError* error) noexcept {
    return Guarded(error, [&] {
        const tagKOORD record = RecordOf(*bytes);
        if (!HasName(record)) throw NoPlace(KOORD_ERR_TYPE);
        const RecordForm form(static_cast<std::int32_t>(record.datum),
                              static_cast<std::int32_t>(record.type));
        *position = CheckedPosition(form.Canonical(record));
        return true;
    });
}

bool Tessara_PositionAt(double latitude, double longitude, TessaraPosition* position,
                        TessaraError* error) noexcept {
    tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
    Store(record, GeodezPayload{latitude, longitude, 0.0});
    double degrees[2];
    const KoordStatus status = ToDegrees(record, degrees);
    if (status != KOORD_OK) return NoPosition(latitude, longitude, status, error);
    *position = PositionOf(record);
    return true;
}

void Tessara_DegreesOf(const TessaraPosition* position, double degrees[2]) noexcept {
    // Only records that have a place become positions.
    if (ToDegrees(RecordOf(*position), degrees) != KOORD_OK) degrees[0] = degrees[1] = std::nan("");
}

void Tessara_PlaceOf(const TessaraPosition* position, double place[2]) noexcept {
    Tessara_DegreesOf(position, place);
    place[0] += 0.0;  // a negative zero becomes a positive one
    place[1] = std::remainder(place[1], FULL_TURN) + 0.0;
    if (place[1] == HALF_TURN) place[1] = -HALF_TURN;
    if (std::fabs(place[0]) == POLE) place[1] = 0.0;
}

bool Tessara_NumberOf(const TessaraPosition* position, const char* field, double* number) noexcept {
    TessaraError unused;
    return Guarded(&unused, [&] {
        const std::optional<double> found = NumberCalled(field, RecordOf(*position));
        if (found) *number = *found;
        return found.has_value();
    });
}

void Tessara_ReferenceOf(const TessaraPosition* position, char text[TESSARA_TEXT_SIZE]) noexcept {
    TessaraError unused;
    Guarded(&unused, [&] {
        CopyText(ReferenceName(RecordOf(*position)), *reinterpret_cast<char(*)[TESSARA_TEXT_SIZE]>(text));
        return true;
    });
}

}  // extern "C"

}  // namespace tessara::postgresql
