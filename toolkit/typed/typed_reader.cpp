#include "typed/typed_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "conversion/fields.h"
#include "conversion/names.h"
#include "conversion/numbers.h"
#include "conversion/quote.h"
#include "conversion/text_forms.h"
#include "typed/angles.h"

namespace tessara::toolkit {
namespace {

// Degrees; readings with smaller differences are the same.
constexpr double SAME_POSITION = 1e-9;

bool IsBehind(const Piece& one, const Piece& other) {
    return one.text != other.text ? one.text > other.text : one.begin > other.begin;
}

// The fault further to the right is more specific; of equals the first stays.
void KeepFurther(Fault fault, Fault* kept) {
    if (!kept->IsThere() || IsBehind(fault.piece, kept->piece)) *kept = std::move(fault);
}

bool AreSamePosition(const Reading& one, const Reading& other) {
    GeodezPayload a{};
    GeodezPayload b{};
    if (!DegreesOf(one.record, &a) || !DegreesOf(other.record, &b)) return false;
    return std::fabs(a.latitude - b.latitude) < SAME_POSITION &&
           std::fabs(a.longitude - b.longitude) < SAME_POSITION;
}

void AddUnlessThere(const Reading& reading, std::vector<Reading>* readings) {
    const bool isThere = std::any_of(readings->begin(), readings->end(),
                                     [&](const Reading& other) { return AreSamePosition(reading, other); });
    if (!isThere) readings->push_back(reading);
}

bool HasCommaBetweenDigits(std::string_view text) {
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    for (std::size_t i = 1; i + 1 < text.size(); ++i) {
        if (text[i] == ',' && isDigit(text[i - 1]) && isDigit(text[i + 1])) return true;
    }
    return false;
}

std::size_t CountOf(TokenKind kind, const Tokens& tokens) {
    std::size_t count = 0;
    for (std::size_t i = 0; i < tokens.Count(); ++i)
        count += std::size_t{tokens[i].kind == kind};
    return count;
}

// Whether the text can only be a latitude and longitude: it has only numbers, or degree signs.
bool MustBeDegrees(const Tokens& tokens) {
    const bool hasSigns = CountOf(TokenKind::Degree, tokens) + CountOf(TokenKind::Minute, tokens) +
                              CountOf(TokenKind::Second, tokens) >
                          0;
    return hasSigns || CountOf(TokenKind::Letter, tokens) == 0;
}

bool IsEmpty(const Tokens& tokens) {
    return CountOf(TokenKind::Boundary, tokens) == tokens.Count();
}

bool IsAboutTheForm(std::string_view code) {
    return code == "missing" || code == "unexpected" || code == "leftover" || code == "empty";
}

// The elements of a pattern that a fault concerns; the first one in the text is shown.
struct Culprit {
    std::string_view code;
    std::string_view elements;
};

constexpr Culprit CULPRITS[] = {
    {"zone", "Zj"},         {"outside-zone", "Zje"}, {"distant-zone", "Zj"}, {"strip", "Me"},
    {"outside-strip", "e"}, {"square", "CR"},        {"latitude", "nv"},     {"north", "nN"},
    {"northing", "nN"},     {"longitude", "e"},      {"east", "eE"},         {"easting", "eE"},
    {"hemisphere", "H"},
};

Piece PieceOf(std::string_view code, const Match& match, const Piece& all) {
    for (const Culprit& culprit : CULPRITS) {
        if (culprit.code != code) continue;
        for (const char element : culprit.elements) {
            if (match.Has(element)) return match[element]->piece;
        }
    }
    return all;
}

// Maps a piece of the joined text to the two texts.
Piece DividePiece(Piece piece, std::size_t firstLength) {
    const std::size_t second = firstLength + 1;
    if (piece.begin < second)
        return {0, std::min(piece.begin, firstLength), std::min(piece.end, firstLength)};
    return {1, piece.begin - second, piece.end - second};
}

}  // namespace

TypedReader::TypedReader(Wanted wanted) : wanted_(std::move(wanted)) {
    for (const GridForm& form : GridForms()) {
        const bool isOther = wanted_.reference.system != NO_SYSTEM && form.system != wanted_.reference.system;
        const bool isThere = !blanks_.empty() && blanks_.back().reference.system == form.system;
        if (isOther || isThere) continue;
        Reference reference = wanted_.reference;
        reference.system = form.system;
        const CKoord record = DefaultRecord(reference);
        blanks_.push_back({std::move(reference), record});
    }
}

const Blank& TypedReader::BlankOf(std::int32_t system) const {
    return *std::find_if(blanks_.begin(), blanks_.end(),
                         [&](const Blank& blank) { return blank.reference.system == system; });
}

TypedResult TypedReader::Read(std::string_view text) const {
    Reading reference;
    if (ReadReference(text, &reference) && IsWrittenAgain(reference.record))
        return {{std::move(reference)}, {}};
    const std::array texts{text};
    return ResultOf(ReadTexts(texts, Texts::One), texts);
}

bool TypedReader::ReadReference(std::string_view text, Reading* reference) const {
    const std::int32_t system = wanted_.reference.system;
    return (system == NO_SYSTEM || system == KOORD_UTMREF) &&
           ReadPlainReference(text, BlankOf(KOORD_UTMREF), reference);
}

void TypedReader::ReadDegrees(std::span<const std::string_view> texts,
                              std::span<GeodezPayload> degrees) const {
    std::vector<tagKOORD> references;
    std::vector<std::size_t> places;
    references.reserve(texts.size());
    places.reserve(texts.size());
    Reading reference;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (ReadReference(texts[i], &reference)) {
            references.push_back(reference.record);
            places.push_back(i);
        } else {
            degrees[i] = DegreesIn(texts[i]);
        }
    }
    const auto found = DegreesOfWrittenAgain(references);
    for (std::size_t k = 0; k < places.size(); ++k)
        degrees[places[k]] = found[k] ? *found[k] : DegreesIn(texts[places[k]]);
}

GeodezPayload TypedReader::DegreesIn(std::string_view text) const {
    const TypedResult result = Read(text);
    GeodezPayload degrees{};
    if (result.IsRead() && DegreesOf(result.readings[0].record, &degrees)) return degrees;
    return {std::nan(""), std::nan(""), 0.0};
}

TypedResult TypedReader::Read(std::string_view north, std::string_view east) const {
    const std::array texts{north, east};
    return ResultOf(ReadPair(north, east), texts);
}

TypedReader::Attempt TypedReader::ReadPair(std::string_view north, std::string_view east) const {
    // Some display texts contain the whole position twice.
    Attempt same = north == east ? ReadTexts(std::array{north}, Texts::One) : Attempt{};
    if (same.readings.size() == 1) return same;
    Attempt pair = ReadTexts(std::array{north, east}, Texts::Pair);
    if (pair.hasForm) return pair;
    if (same.hasForm) return same;
    const std::string both = std::string(north) + ' ' + std::string(east);
    Attempt one = ReadTexts(std::array{std::string_view(both)}, Texts::Divided);
    one.fault.piece = DividePiece(one.fault.piece, north.size());
    return one.hasForm ? one : pair;
}

TypedReader::Attempt TypedReader::ReadTexts(std::span<const std::string_view> texts, Texts kind) const {
    const auto read = [&](Comma comma) {
        Tokens tokens;
        Fault wrong = tokens.Read(texts, comma);
        if (!wrong.IsThere() && IsEmpty(tokens)) wrong = {"empty", "empty text", {}};
        if (wrong.IsThere()) return Attempt{.fault = std::move(wrong)};
        return ReadTokens(tokens, kind);
    };
    Attempt attempt = read(Comma::Boundary);
    if (std::none_of(texts.begin(), texts.end(), HasCommaBetweenDigits)) return attempt;

    Attempt decimal = read(Comma::Decimal);
    if (decimal.readings.empty() && !attempt.readings.empty()) return attempt;
    if (attempt.readings.empty() && !decimal.readings.empty()) return decimal;
    for (const Reading& reading : decimal.readings)
        AddUnlessThere(reading, &attempt.readings);
    const bool isAboutTheComma = std::string_view(decimal.fault.code) == "comma";
    if (decimal.hasForm || isAboutTheComma ||
        (!attempt.hasForm && !IsBehind(attempt.fault.piece, decimal.fault.piece)))
        attempt.fault = decimal.fault;
    attempt.hasForm = attempt.hasForm || decimal.hasForm;
    return attempt;
}

TypedReader::Attempt TypedReader::ReadTokens(const Tokens& tokens, Texts kind) const {
    Attempt attempt;
    const std::int32_t system = wanted_.reference.system;
    const bool isAny = system == NO_SYSTEM;
    // Degrees are split only between latitude and longitude.
    if ((isAny || IsDegrees(system)) && kind != Texts::Divided) TryDegrees(tokens, &attempt);
    for (const GridForm& form : GridForms()) {
        if (isAny ? !form.isSelfExplaining : form.system != system) continue;
        TryForm(form, tokens, kind, &attempt);
        if (form.isOwn && !attempt.readings.empty()) break;
    }
    if (isAny && attempt.readings.empty() && kind != Texts::Divided)
        attempt.fault = FaultOfAny(tokens, attempt);
    return attempt;
}

// The expectation of one system does not help if any system is possible.
Fault TypedReader::FaultOfAny(const Tokens& tokens, const Attempt& attempt) {
    if (MustBeDegrees(tokens)) {
        if (tokens.Count() - CountOf(TokenKind::Boundary, tokens) != 2) return attempt.degreesFault;
        return {"system",
                "not a latitude and longitude; bare numbers can belong to any grid, so name the system",
                tokens.All()};
    }
    const std::string_view code = attempt.fault.code;
    if (attempt.hasForm || (code != "leftover" && code != "unexpected")) return attempt.fault;
    return {"unexpected", "no system allows this here", attempt.fault.piece};
}

void TypedReader::TryDegrees(const Tokens& tokens, Attempt* attempt) const {
    Reading reading;
    Fault wrong = ReadAngles(tokens, wanted_.reference.datum, &reading);
    if (wrong.IsThere()) {
        attempt->degreesFault = wrong;
        KeepFurther(std::move(wrong), &attempt->fault);
        return;
    }
    Take(reading, Match(), tokens.All(), attempt);
}

void TypedReader::TryForm(const GridForm& form, const Tokens& tokens, Texts kind, Attempt* attempt) const {
    const bool isPair = kind == Texts::Pair;
    if (std::string_view(form.pattern) != BARE_NUMBERS || isPair) {
        TryPattern(form, form.pattern, tokens, isPair, attempt);
        return;
    }
    if (kind == Texts::Divided) return;
    if (wanted_.order != Order::NorthFirst) TryPattern(form, EAST_FIRST, tokens, isPair, attempt);
    if (wanted_.order != Order::EastFirst) TryPattern(form, NORTH_FIRST, tokens, isPair, attempt);
}

void TypedReader::TryPattern(const GridForm& form, const char* pattern, const Tokens& tokens, bool isPair,
                             Attempt* attempt) const {
    Match match;
    Fault wrong = MatchPattern(pattern, tokens, isPair, &match);
    if (wrong.IsThere()) {
        if (!attempt->hasForm) KeepFurther(std::move(wrong), &attempt->fault);
        return;
    }
    std::vector<Reading> readings;
    wrong = form.build(match, BlankOf(form.system), &readings);
    if (wrong.IsThere()) {
        if (wrong.piece.IsEmpty()) wrong.piece = tokens.All();
        if (!attempt->hasForm) attempt->fault = std::move(wrong);
        attempt->hasForm = true;
        return;
    }
    for (const Reading& reading : readings)
        Take(reading, match, tokens.All(), attempt);
}

void TypedReader::Take(const Reading& reading, const Match& match, const Piece& all, Attempt* attempt) const {
    Fault wrong = judge_.Check(reading);
    if (!wrong.IsThere()) {
        AddUnlessThere(reading, &attempt->readings);
    } else if (!attempt->hasForm) {
        wrong.piece = PieceOf(wrong.code, match, all);
        attempt->fault = std::move(wrong);
    }
    attempt->hasForm = true;
}

TypedResult TypedReader::ResultOf(Attempt attempt, std::span<const std::string_view> texts) const {
    TypedResult result{std::move(attempt.readings), {}};
    if (result.IsRead()) return result;
    result.fault = std::move(attempt.fault);
    if (!result.readings.empty()) {
        result.fault = {"ambiguous", "ambiguous: ", {}};
        for (const Reading& reading : result.readings)
            result.fault.reason += (&reading == result.readings.data() ? "" : ", or ") + Describe(reading);
        return result;
    }
    const auto& [code, reason, piece] = result.fault;
    const std::string_view text = texts[piece.text].substr(piece.begin, piece.end - piece.begin);
    const bool isPart = !text.empty() && text.size() < texts[piece.text].size();
    if (isPart && code != std::string_view("character")) result.fault.reason.insert(0, Quote(text) + ": ");
    const std::string forms = FormsOf(wanted_.reference.system);
    if (IsAboutTheForm(code) && !forms.empty())
        result.fault.reason += "; " + SystemName(wanted_.reference.system) + " is written as " + forms;
    return result;
}

std::string Describe(const Reading& reading) {
    std::string text = SystemName(reading.reference.system);
    for (const Field& field : FieldsOf(reading.record))
        text += ' ' + field.Text();
    GeodezPayload degrees{};
    if (IsDegrees(reading.reference.system) || !DegreesOf(reading.record, &degrees)) return text;
    constexpr int DECIMALS = 5;  // a metre
    return text + " (" + FormatNumber(degrees.latitude, DECIMALS) + " " +
           FormatNumber(degrees.longitude, DECIMALS) + ")";
}

namespace {

// The decimals for a resolution; none for whole units.
int DecimalsOf(double resolution) {
    return resolution < 1.0 ? static_cast<int>(std::lround(-std::log10(resolution))) : 0;
}

// Replaces each unknown digit by an underscore.
std::string Unknown(std::string digits, double resolution) {
    const auto count = static_cast<std::size_t>(std::max(std::lround(std::log10(resolution)), 0L));
    for (std::size_t i = 0; i < std::min(count, digits.size()); ++i)
        digits[digits.size() - 1 - i] = '_';
    return digits;
}

bool IsOfNorth(std::string_view name) {
    return name == "latitude" || name.starts_with("lat") || name == "northing" || name == "fullNorthing" ||
           name == "y" || name == "z";
}

// The number of a field with the typed digits.
std::string Typed(const Field& field, double resolution) {
    const auto* number = std::get_if<double>(&field.value);
    if (number == nullptr) return Unknown(field.Text(), field.digits > 1 ? resolution : 1.0);
    const std::string_view name = field.name;
    const double units = name.ends_with("Seconds") ? 3600.0 : name.ends_with("Minutes") ? 60.0 : 1.0;
    return FormatNumber(*number, std::min(DecimalsOf(resolution * units), field.digits));
}

}  // namespace

std::string PictureOf(const Reading& reading) {
    std::string picture;
    for (const Field& field : FieldsOf(reading.record)) {
        const bool isText = std::holds_alternative<std::string>(field.value);
        const double resolution = IsOfNorth(field.name) ? reading.northResolution : reading.eastResolution;
        picture += (picture.empty() ? "" : " ") + (isText ? field.Text() : Typed(field, resolution));
    }
    return picture;
}

}  // namespace tessara::toolkit
