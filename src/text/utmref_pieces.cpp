#include "text/utmref_pieces.h"

#include <algorithm>
#include <string_view>

#include "kernel/utmref_letters.h"
#include "records/utmref_squares.h"
#include "tessara/kernel/constants.h"
#include "text/number_text.h"
#include "text/text_reader.h"

namespace tessara {
namespace {

constexpr std::int32_t FIRST_ZONE = 1;
constexpr std::size_t GROUP_DIGITS = 5;

constexpr std::string_view DEFAULT_BAND = "N";
constexpr std::int32_t DEFAULT_COLUMN = 4;  // of a zone's letters: the first one east of the central meridian

constexpr std::int32_t NO_ZONE = 0;

// The zone in a text, with or without leading zeros; NO_ZONE for any other text.
std::int32_t ZoneOf(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of('0'), text.size()));
    if (text.size() > 2) return NO_ZONE;
    std::int32_t zone = 0;
    for (const char digit : text) {
        if (digit < '0' || digit > '9') return NO_ZONE;
        zone = 10 * zone + (digit - '0');
    }
    return zone <= UTM_ZONE_COUNT ? zone : NO_ZONE;
}

// The letter of a one-character text as a capital; 0 for any other text.
char LetterOf(std::string_view text) {
    return text.size() == 1 ? UpperCase(text.front()) : '\0';
}

bool HasLetter(const std::string& letters, std::string_view text) {
    const char letter = LetterOf(text);
    return letter != '\0' && LetterIndex(letters, letter) != NO_LETTER;
}

bool IsBand(char letter) {
    UtmrefBand band;
    return utmref::FindBand(letter, &band);
}

bool IsDigitGroup(std::string_view text) {
    return text.empty() || (text.front() >= '0' && text.front() <= '9');
}

bool IsKernelDatum(std::int32_t datum) {
    return datum >= 0 && datum < DATUM_COUNT;
}

// The pieces before the digit groups. Those that don't exist are NO_ZONE or 0.
struct Square {
    std::int32_t zone;
    char band;
    char column;
};

Square SquareOf(const UtmrefPieces& pieces) {
    return {ZoneOf(pieces.zone), LetterOf(pieces.band), LetterOf(pieces.column)};
}

// The first zone that has a column letter; NO_ZONE if none has it.
std::int32_t FirstZoneWith(char column) {
    for (std::int32_t zone = FIRST_ZONE; zone < FIRST_ZONE + 3; ++zone) {
        if (LetterIndex(utmref::ColumnLetters(zone), column) != NO_LETTER) return zone;
    }
    return NO_ZONE;
}

// Replaces empty pieces by defaults.
Square SquareWithDefaults(const UtmrefPieces& pieces, bool withColumn) {
    Square square = SquareOf(pieces);
    if (pieces.zone.empty()) {
        const bool fromColumn = withColumn && !pieces.column.empty();
        square.zone = fromColumn ? FirstZoneWith(square.column) : FIRST_ZONE;
    }
    if (pieces.band.empty()) square.band = DEFAULT_BAND.front();
    if (pieces.column.empty()) square.column = LetterAt(utmref::ColumnLetters(square.zone), DEFAULT_COLUMN);
    return square;
}

bool ArePossible(std::int32_t datum, const UtmrefPieces& pieces) {
    const Square square = SquareOf(pieces);
    return square.zone != NO_ZONE && IsBand(square.band) &&
           HasLetter(utmref::Columns(datum, square.zone, square.band), pieces.column) &&
           HasLetter(utmref::Rows(datum, square.zone, square.band, square.column), pieces.row) &&
           IsDigitGroup(pieces.easting) && IsDigitGroup(pieces.northing);
}

// Reads the metres of a group; missing digits on the right are zeros.
bool ReadGroup(std::string group, std::int32_t* metres) {
    if (group.size() < GROUP_DIGITS) group.resize(GROUP_DIGITS, '0');
    return group.size() == GROUP_DIGITS && TextReader(group).ReadWhole(metres);
}

// A letter as a text; empty if the letter is 0.
std::string LetterText(char letter) {
    return letter != '\0' ? std::string(1, letter) : std::string();
}

std::vector<std::string> TextsOf(std::string_view letters) {
    std::vector<std::string> texts;
    for (const char letter : letters)
        texts.emplace_back(1, letter);
    return texts;
}

}  // namespace

std::vector<std::string> utmref::ZoneChoices() {
    std::vector<std::string> choices;
    for (std::int32_t zone = FIRST_ZONE; zone <= UTM_ZONE_COUNT; ++zone)
        choices.push_back(WholeText(zone));
    return choices;
}

std::vector<std::string> utmref::BandChoices() {
    // A constant of a header may have a copy of its text in each source, and its ends be those of two copies.
    std::string letters(UTMREF_SOUTH_BANDS);
    std::reverse(letters.begin(), letters.end());
    letters += UTMREF_NORTH_BANDS;
    return TextsOf(letters);
}

bool utmref::ColumnChoices(std::int32_t datum, const UtmrefPieces& pieces,
                           std::vector<std::string>* choices) {
    const Square square = SquareWithDefaults(pieces, false);
    if (!IsKernelDatum(datum) || square.zone == NO_ZONE || !IsBand(square.band)) return false;
    *choices = TextsOf(utmref::Columns(datum, square.zone, square.band));
    return true;
}

bool utmref::RowChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices) {
    const Square square = SquareWithDefaults(pieces, true);
    if (!IsKernelDatum(datum) || square.zone == NO_ZONE || !IsBand(square.band)) return false;
    const std::string rows = utmref::Rows(datum, square.zone, square.band, square.column);
    *choices = TextsOf(rows);
    return !rows.empty();
}

bool utmref::Split(const tagKOORD& record, UtmrefPieces* pieces) {
    if (record.type != KOORD_UTMREF || !IsKernelDatum(static_cast<std::int32_t>(record.datum))) return false;
    const auto payload = Load<UtmrefPayload>(record);
    *pieces = {WholeText(payload.zone), LetterText(payload.band),      LetterText(payload.column),
               LetterText(payload.row), WholeText(payload.easting, 5), WholeText(payload.northing, 5)};
    return true;
}

bool utmref::Compose(const UtmrefPieces& pieces, tagKOORD* target) {
    const auto datum = static_cast<std::int32_t>(target->datum);
    if (!IsKernelDatum(datum) || !ArePossible(datum, pieces)) return false;
    target->type = KOORD_UTMREF;
    auto payload = Load<UtmrefPayload>(*target);
    payload.wantedZone = NO_WANTED_ZONE;
    payload.zone = static_cast<std::int16_t>(ZoneOf(pieces.zone));
    payload.band = pieces.band.front();
    payload.column = pieces.column.front();
    payload.row = pieces.row.front();
    if (!ReadGroup(pieces.easting, &payload.easting)) return false;
    if (!ReadGroup(pieces.northing, &payload.northing)) return false;
    Store(*target, payload);
    return true;
}

}  // namespace tessara
