#include "typed/grid_forms.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <iterator>
#include <string>

#include "conversion/ascii.h"
#include "conversion/numbers.h"
#include "conversion/statuses.h"
#include "conversion/units.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/limits.h"
#include "tessara/kernel/systems.h"
#include "typed/judge.h"

namespace tessara::toolkit {
namespace {

constexpr double HALF_SQUARE = SQUARE_METRES / 2.0;
// Letters and metres truncate the full value; at the upper limit of a grid they stay a metre below it.
constexpr double ADDRESS_TOLERANCE = 1.0;

double ResolutionOf(const Token& token) {
    return std::pow(10.0, -token.decimals);
}

std::int32_t WholeOf(const Token& token) {
    std::int32_t whole = 0;
    const auto read = std::from_chars(token.digits.data(), token.digits.data() + token.digits.size(), whole);
    return read.ec == std::errc() ? whole : INT32_MAX;
}

void StoreNumber(RecordField field, double value, tagKOORD* record) {
    std::memcpy(record->payload + field.offset, &value, sizeof value);
}

Reading MakeReading(const Blank& blank) {
    return {blank.reference, blank.record, 1.0, 1.0};
}

Fault CheckZone(const Token& token) {
    const std::int32_t zone = WholeOf(token);
    return IsUtmZone(zone) ? Fault{} : Fault{"zone", "the zone is outside 1..60", token.piece};
}

// --- two numbers

// In every system the last field of a text is the number of its axis.
Fault BuildNumbers(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Reading reading = MakeReading(blank);
    StoreNumber(System_NorthText(blank.reference.system).back(), match.Value('n'), &reading.record);
    StoreNumber(System_EastText(blank.reference.system).back(), match.Value('e'), &reading.record);
    reading.northResolution = ResolutionOf(*match['n']);
    reading.eastResolution = ResolutionOf(*match['e']);
    readings->push_back(reading);
    return {};
}

Fault BuildPixel(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    if (blank.reference.system == KOORD_FLOATPIXEL) return BuildNumbers(match, blank, readings);
    Reading reading = MakeReading(blank);
    for (const char element : {'e', 'n'}) {
        const double value = match.Value(element);
        if (value != std::floor(value) || std::fabs(value) > INT32_MAX)
            return {"number", "a pixel must be a whole number of 32 bits", match[element]->piece};
    }
    Store(reading.record, LongPixelPayload{static_cast<std::int32_t>(match.Value('e')),
                                           static_cast<std::int32_t>(match.Value('n'))});
    readings->push_back(reading);
    return {};
}

Fault BuildStrips(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Fault wrong = BuildNumbers(match, blank, readings);
    auto p = Load<GkPayload>(readings->back().record);
    p.wantedMeridian = NO_WANTED_ZONE;
    Store(readings->back().record, p);
    return wrong;
}

Fault BuildVdg(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Fault wrong = BuildNumbers(match, blank, readings);
    auto p = Load<VdgPayload>(readings->back().record);
    if (match.Has('o')) p.originLongitude = match.Value('o');
    if (match.Has('p')) p.originLatitude = match.Value('p');
    Store(readings->back().record, p);
    return wrong;
}

Fault BuildEcef(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Reading reading = MakeReading(blank);
    Store(reading.record, EcefPayload{match.Value('x'), match.Value('y'), match.Value('z')});
    reading.northResolution = ResolutionOf(*match['z']);
    reading.eastResolution = ResolutionOf(*match['y']);
    readings->push_back(reading);
    return {};
}

// --- the Austrian meridians

// The strips of BMN and OEM are 300 km apart, and each extends less than 150 km to both sides.
std::int16_t MeridianOfEasting(std::int32_t system, double easting) {
    const double first = system == KOORD_BMN ? BMN_FIRST_CENTRE : OEM_FIRST_CENTRE;
    const double strip = std::round((easting - first) / AUSTRIAN_CENTRE_STEP);
    return AUSTRIAN_MERIDIANS[static_cast<int>(std::clamp(strip, 0.0, 2.0))];
}

Fault BuildAustrian(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    const auto given = Load<BmnPayload>(blank.record);
    std::int16_t meridian = given.wantedMeridian;
    if (match.Has('M')) {
        const std::int32_t typed = WholeOf(*match['M']);
        if (std::find(std::begin(AUSTRIAN_MERIDIANS), std::end(AUSTRIAN_MERIDIANS), typed) ==
            std::end(AUSTRIAN_MERIDIANS))
            return {"strip", "the meridian must be 28, 31 or 34", match['M']->piece};
        meridian = static_cast<std::int16_t>(typed);
    }
    if (blank.reference.system != KOORD_GKAT) {
        const std::int16_t ofEasting = MeridianOfEasting(blank.reference.system, match.Value('e'));
        if (match.Has('M') && meridian != ofEasting)
            return {"strip", "the easting belongs to meridian " + std::to_string(ofEasting),
                    match['M']->piece};
        meridian = ofEasting;
    }
    if (meridian == NO_WANTED_ZONE)
        return {"strip", "ambiguous meridian; write 28, 31 or 34 before the numbers", match['e']->piece};
    Fault wrong = BuildNumbers(match, blank, readings);
    auto p = Load<BmnPayload>(readings->back().record);
    p.wantedMeridian = NO_WANTED_ZONE;
    p.meridian = meridian;
    Store(readings->back().record, p);
    return wrong;
}

// --- UTM and UPS

constexpr std::string_view BANDS = "CDEFGHJKLMNPQRSTUVWX";
constexpr double BAND_HEIGHT = 8.0;

char BandOf(double latitude) {
    const double band = std::floor((latitude - UTM_LIMITS.south) / BAND_HEIGHT);
    return BANDS[static_cast<std::size_t>(std::clamp(band, 0.0, static_cast<double>(BANDS.size() - 1)))];
}

// Checks the letter of the band. Near a border, where the last digit decides, both bands are valid.
Fault CheckBand(const Token& band, const Reading& reading) {
    char natural = 0;
    for (const double step : {0.0, -reading.northResolution, reading.northResolution}) {
        tagKOORD record = reading.record;
        auto p = Load<UtmPayload>(record);
        p.northing += step;
        Store(record, p);
        GeodezPayload degrees{};
        if (!DegreesOf(record, &degrees)) continue;
        const char found = BandOf(degrees.latitude);
        if (found == band.letter) return {};
        if (natural == 0) natural = found;
    }
    if (natural == 0) return {};
    return {"band", std::string("the position is in band ") + natural + ", not in " + band.letter,
            band.piece};
}

Fault AddUtm(char hemisphere, std::int32_t zone, double easting, const Match& match, const Blank& blank,
             std::vector<Reading>* readings) {
    Reading reading = MakeReading(blank);
    auto p = Load<UtmPayload>(reading.record);
    p.wantedZone = NO_WANTED_ZONE;
    p.hemisphere = hemisphere;
    p.zone = static_cast<std::int16_t>(zone);
    p.easting = easting;
    p.northing = match.Value('n');
    Store(reading.record, p);
    reading.northResolution = ResolutionOf(*match['n']);
    reading.eastResolution = ResolutionOf(*match[match.Has('j') ? 'j' : 'e']);
    if (match.Has('B')) {
        Fault wrong = CheckBand(*match['B'], reading);
        if (wrong.IsThere()) return wrong;
    }
    readings->push_back(reading);
    return {};
}

Fault BuildUtm(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Fault wrong = CheckZone(*match['Z']);
    if (wrong.IsThere()) return wrong;
    const char hemisphere = match.Has('H') ? match.Letter('H') : match.Letter('B') >= 'N' ? 'N' : 'S';
    return AddUtm(hemisphere, WholeOf(*match['Z']), match.Value('e'), match, blank, readings);
}

// The display forms, in which the zone precedes the six digits of the easting. Those of the library have no
// hemisphere.
Fault BuildUtmDisplay(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    constexpr double EASTINGS = 1e6;
    const double joined = match.Value('j');
    const double zone = std::floor(joined / EASTINGS);
    if (!(zone >= 1.0 && zone <= UTM_ZONE_COUNT))
        return {"zone", "the zone is outside 1..60", match['j']->piece};
    for (const char hemisphere : {'N', 'S'}) {
        if (match.Has('H') && match.Letter('H') != hemisphere) continue;
        Fault wrong = AddUtm(hemisphere, static_cast<std::int32_t>(zone), joined - zone * EASTINGS, match,
                             blank, readings);
        if (wrong.IsThere()) return wrong;
    }
    return {};
}

Fault BuildUps(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Fault wrong = BuildNumbers(match, blank, readings);
    auto p = Load<UpsPayload>(readings->back().record);
    p.hemisphere = match.Has('H') ? match.Letter('H') : match.Letter('P') >= 'Y' ? 'N' : 'S';
    Store(readings->back().record, p);
    return wrong;
}

// --- digits within squares

struct SquareDigits {
    std::int32_t easting = 0;
    std::int32_t northing = 0;
    double resolution = SQUARE_METRES;
};

Fault WrongDigits(const char* reason, const Token& token) {
    return {"digits", reason, token.piece};
}

// Digits count from the left: 347 is 34700 metres, to 100 metres.
std::int32_t Metres(std::string_view digits) {
    std::int32_t metres = 0;
    for (std::size_t i = 0; i < SQUARE_DIGITS; ++i)
        metres = 10 * metres + (i < digits.size() ? digits[i] - '0' : 0);
    return metres;
}

double ResolutionOf(std::size_t digits) {
    return std::pow(10.0, SQUARE_DIGITS - static_cast<int>(digits));
}

// A number with a decimal point counts metres, which must be whole.
bool AreMetres(const Token& token) {
    return token.hasPoint && token.value == std::floor(token.value) && token.value < SQUARE_METRES;
}

Fault ReadOneGroup(const Token& group, SquareDigits* read) {
    const std::size_t count = group.digits.size();
    if (group.hasPoint)
        return WrongDigits("digits of easting and northing in one number cannot contain a decimal point",
                           group);
    if (count % 2 != 0)
        return WrongDigits("odd count of digits; easting and northing must have equally many", group);
    if (count > std::size_t{2} * SQUARE_DIGITS)
        return WrongDigits("too many digits; the maximum is 10, which is a metre", group);
    read->easting = Metres(group.digits.substr(0, count / 2));
    read->northing = Metres(group.digits.substr(count / 2));
    read->resolution = ResolutionOf(count / 2);
    return {};
}

Fault ReadTwoGroups(const Token& east, const Token& north, SquareDigits* read) {
    for (const Token* group : {&east, &north}) {
        if (group->hasPoint && !AreMetres(*group))
            return WrongDigits("a number with a decimal point must be whole metres below 100000", *group);
        if (!group->hasPoint && group->digits.size() > SQUARE_DIGITS)
            return WrongDigits("too many digits; the maximum is 5, which is a metre", *group);
    }
    const auto countOf = [](const Token& group) -> std::size_t {
        return group.hasPoint ? SQUARE_DIGITS : group.digits.size();
    };
    if (countOf(east) != countOf(north))
        return WrongDigits("easting and northing must have equally many digits", north);
    const auto metresOf = [](const Token& group) {
        return group.hasPoint ? static_cast<std::int32_t>(group.value) : Metres(group.digits);
    };
    read->easting = metresOf(east);
    read->northing = metresOf(north);
    read->resolution = ResolutionOf(countOf(east));
    return {};
}

Fault ReadDigits(const Match& match, SquareDigits* read) {
    if (match.Has('g')) return ReadOneGroup(*match['g'], read);
    if (match.Has('u') && match.Has('v')) return ReadTwoGroups(*match['u'], *match['v'], read);
    if (match.Has('u')) return WrongDigits("missing northing digits", *match['u']);
    if (match.Has('v')) return WrongDigits("missing easting digits", *match['v']);
    return {};
}

// The zone, its band and the letters of a square.
struct Square {
    std::int32_t zone;
    char band, column, row;
};

Reading MakeReference(const Square& square, const SquareDigits& digits, const Blank& blank) {
    Reading reading = MakeReading(blank);
    UtmrefPayload p{};
    p.wantedZone = NO_WANTED_ZONE;
    p.zone = static_cast<std::int16_t>(square.zone);
    p.band = square.band;
    p.column = square.column;
    p.row = square.row;
    p.easting = digits.easting;
    p.northing = digits.northing;
    Store(reading.record, p);
    reading.northResolution = reading.eastResolution = digits.resolution;
    return reading;
}

Fault BuildReference(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Fault wrong = CheckZone(*match['Z']);
    if (wrong.IsThere()) return wrong;
    SquareDigits digits;
    wrong = ReadDigits(match, &digits);
    if (wrong.IsThere()) return wrong;
    const Square square{WholeOf(*match['Z']), match.Letter('B'), match.Letter('C'), match.Letter('R')};
    readings->push_back(MakeReference(square, digits, blank));
    return {};
}

bool IsCapital(char c) {
    return c >= 'A' && c <= 'Z';
}

// --- GEOREF

constexpr std::int16_t COARSEST_GEOREF = 3;  // whole minutes
constexpr std::size_t MOST_MINUTE_DIGITS = 4;

// Two digits are minutes; more digits are tenths and hundredths. The library writes a leading zero.
Fault ReadMinutes(const Token& token, std::string_view digits, std::int16_t* minutes, std::size_t* count) {
    if (token.hasPoint)
        return WrongDigits("minutes cannot contain a decimal point; write 345 for 34.5 minutes", token);
    if (digits.size() == MOST_MINUTE_DIGITS + 1 && digits.front() == '0') digits.remove_prefix(1);
    *count = digits.size();
    if (*count < 2 || *count > MOST_MINUTE_DIGITS)
        return WrongDigits("minutes must have 2, 3 or 4 digits", token);
    if (digits.front() > '5') return {"minutes", "minutes must be below 60", token.piece};
    std::from_chars(digits.data(), digits.data() + digits.size(), *minutes);
    return {};
}

Fault ReadGeorefDigits(const Match& match, GeorefPayload* p, std::size_t* count) {
    std::size_t north = 0;
    if (match.Has('g')) {
        const Token& group = *match['g'];
        const std::size_t half = group.digits.size() / 2;
        if (group.digits.size() % 2 != 0)
            return WrongDigits("odd count of digits; easting and northing must have equally many", group);
        Fault wrong = ReadMinutes(group, group.digits.substr(0, half), &p->lonMinutes, count);
        return wrong.IsThere() ? wrong
                               : ReadMinutes(group, group.digits.substr(half), &p->latMinutes, &north);
    }
    if (match.Has('u') != match.Has('v'))
        return WrongDigits("missing minutes of one axis", *match[match.Has('u') ? 'u' : 'v']);
    if (!match.Has('u')) return {};
    Fault wrong = ReadMinutes(*match['u'], match['u']->digits, &p->lonMinutes, count);
    if (!wrong.IsThere()) wrong = ReadMinutes(*match['v'], match['v']->digits, &p->latMinutes, &north);
    if (wrong.IsThere()) return wrong;
    return *count == north ? Fault{}
                           : WrongDigits("easting and northing must have equally many digits", *match['v']);
}

Fault BuildGeoref(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    GeorefPayload p{};
    std::size_t count = 0;
    Fault wrong = ReadGeorefDigits(match, &p, &count);
    if (wrong.IsThere()) return wrong;
    p.lonZone = match.Letter('1');
    p.latZone = match.Letter('2');
    p.lonDegree = match.Letter('3');
    p.latDegree = match.Letter('4');
    p.precision = static_cast<std::int16_t>(count == 0 ? COARSEST_GEOREF : count + 1);
    Reading reading = MakeReading(blank);
    Store(reading.record, p);
    const double resolution = count == 0 ? 1.0 : std::pow(10.0, 2 - static_cast<int>(count)) / 60.0;
    reading.northResolution = reading.eastResolution = resolution;
    readings->push_back(reading);
    return {};
}

// --- the grids of lettered squares

// Converts a record to degrees and back, so that the library fills in the omitted fields.
bool Complete(tagKOORD* record) {
    tagKOORD degrees = MakeKoord(static_cast<std::int32_t>(record->datum), KOORD_GEODEZ);
    return KoordConvert(record, &degrees) == KOORD_OK && KoordConvert(&degrees, record) == KOORD_OK;
}

// The south-western corner of the square with these letters; false if the grid does not contain this square.
bool FindSquare(char first, char second, tagKOORD record, double* east, double* north) {
    LetterGridPayload p{};
    p.square = first;
    p.subSquare = second;
    p.easting = p.northing = HALF_SQUARE;
    Store(record, p);
    if (!Complete(&record)) return false;
    p = Load<LetterGridPayload>(record);
    *east = std::floor(p.fullEasting / SQUARE_METRES) * SQUARE_METRES;
    *north = std::floor(p.fullNorthing / SQUARE_METRES) * SQUARE_METRES;
    return true;
}

// Both letters; the first letter of the Irish grid is always I.
struct SquareLetters {
    char first;
    char second;
};

SquareLetters LettersOf(const Match& match, std::int32_t system) {
    return {system == KOORD_ING ? 'I' : match.Letter('a'), match.Letter('b')};
}

Fault NoSquare(const Match& match) {
    const Token& last = *match['b'];
    Piece piece = last.piece;
    if (match.Has('a') && match['a']->piece.text == piece.text) piece.begin = match['a']->piece.begin;
    return {"square", "the grid does not contain this square", piece};
}

// Metres within a lettered square.
Fault BuildSquare(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    SquareDigits digits;
    Fault wrong = ReadDigits(match, &digits);
    if (wrong.IsThere()) return wrong;
    Reading reading = MakeReading(blank);
    const auto [first, second] = LettersOf(match, blank.reference.system);
    LetterGridPayload p{};
    if (!FindSquare(first, second, reading.record, &p.fullEasting, &p.fullNorthing)) return NoSquare(match);
    p.square = first;
    p.subSquare = second;
    p.easting = digits.easting;
    p.northing = digits.northing;
    p.fullEasting += digits.easting;
    p.fullNorthing += digits.northing;
    Store(reading.record, p);
    reading.northResolution = reading.eastResolution = digits.resolution;
    readings->push_back(reading);
    return {};
}

// Full grid values, which determine letters and metres.
Fault AddFullValues(double east, double north, Reading reading, std::vector<Reading>* readings) {
    // The last square includes the upper limit of the grid.
    const auto cornerOf = [](double value, double limit) {
        return std::floor(std::min(value, limit - ADDRESS_TOLERANCE) / SQUARE_METRES) * SQUARE_METRES;
    };
    const Limits& limits = reading.reference.system == KOORD_BNG ? BNG_LIMITS : ING_LIMITS;
    const double cornerEast = cornerOf(east, limits.east);
    const double cornerNorth = cornerOf(north, limits.north);
    LetterGridPayload p{};
    p.fullEasting = cornerEast + HALF_SQUARE;
    p.fullNorthing = cornerNorth + HALF_SQUARE;
    Store(reading.record, p);
    if (!Complete(&reading.record)) return {"outside-grid", StatusReason(KOORD_ERR_GRID_RANGE), {}};
    p = Load<LetterGridPayload>(reading.record);
    const auto within = [](double value, double corner) {
        return std::min(std::floor(value - corner), SQUARE_METRES - ADDRESS_TOLERANCE);
    };
    p.easting = within(east, cornerEast);
    p.northing = within(north, cornerNorth);
    p.fullEasting = east;
    p.fullNorthing = north;
    Store(reading.record, p);
    readings->push_back(reading);
    return {};
}

Fault BuildFullValues(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Reading reading = MakeReading(blank);
    reading.northResolution = ResolutionOf(*match['n']);
    reading.eastResolution = ResolutionOf(*match['e']);
    return AddFullValues(match.Value('e'), match.Value('n'), reading, readings);
}

// Full values with letters and metres, which must agree.
Fault BuildBoth(const Match& match, const Blank& blank, std::vector<Reading>* readings) {
    Reading reading = MakeReading(blank);
    reading.northResolution = ResolutionOf(*match['N']);
    reading.eastResolution = ResolutionOf(*match['E']);
    Fault wrong = AddFullValues(match.Value('E'), match.Value('N'), reading, readings);
    if (wrong.IsThere()) return wrong;
    const auto p = Load<LetterGridPayload>(readings->back().record);
    const auto [first, second] = LettersOf(match, blank.reference.system);
    if (p.square != first || p.subSquare != second)
        return {"square", "the full values are in square " + std::string{p.square, p.subSquare},
                NoSquare(match).piece};
    // The typed metres may be rounded; the record truncates.
    const auto differ = [](double one, double other) { return std::fabs(one - other) > ADDRESS_TOLERANCE; };
    if (differ(p.easting, match.Value('e')))
        return {"easting", "the metres within the square differ from the full value", match['e']->piece};
    if (differ(p.northing, match.Value('n')))
        return {"northing", "the metres within the square differ from the full value", match['n']->piece};
    return {};
}

constexpr GridForm FORMS[] = {
    {KOORD_LONGPIXEL, BARE_NUMBERS, BuildPixel},
    {KOORD_FLOATPIXEL, BARE_NUMBERS, BuildPixel},

    {KOORD_UTM, "Hn|Ze", BuildUtm, true},
    // A separate letter is the hemisphere; attached to the zone, S can also be the band.
    {KOORD_UTM, "Z_He,n", BuildUtm, false, true},
    {KOORD_UTM, "ZHe,n", BuildUtm, true},
    {KOORD_UTM, "ZBe,n", BuildUtm, true},
    {KOORD_UTM, "Hn|j", BuildUtmDisplay},
    {KOORD_UTM, "n|j", BuildUtmDisplay},

    {KOORD_UTMREF, "BRv|ZCu", BuildReference, true},
    {KOORD_UTMREF, "ZBCRg", BuildReference, true},

    {KOORD_GEOREF, "24v|13u", BuildGeoref, true},
    {KOORD_GEOREF, "1234g", BuildGeoref, true},

    {KOORD_UPS, "Hn|e", BuildUps, true},
    {KOORD_UPS, "Hen", BuildUps, true},
    {KOORD_UPS, "Pe,n", BuildUps, true},

    {KOORD_GK, BARE_NUMBERS, BuildStrips},
    {KOORD_GK6, BARE_NUMBERS, BuildStrips},

    {KOORD_BMN, BARE_NUMBERS, BuildAustrian},
    {KOORD_BMN, "Me,n", BuildAustrian},
    {KOORD_OEM, BARE_NUMBERS, BuildAustrian},
    {KOORD_OEM, "Me,n", BuildAustrian},
    {KOORD_GKAT, BARE_NUMBERS, BuildAustrian},
    {KOORD_GKAT, "Me,n", BuildAustrian},

    {KOORD_CH, BARE_NUMBERS, BuildNumbers},
    {KOORD_PO_MILITARY, BARE_NUMBERS, BuildNumbers},
    {KOORD_RD, BARE_NUMBERS, BuildNumbers},
    {KOORD_LUREF, BARE_NUMBERS, BuildNumbers},
    {KOORD_TM, BARE_NUMBERS, BuildNumbers},

    {KOORD_VDG, "pn|oe", BuildVdg},
    {KOORD_VDG, BARE_NUMBERS, BuildNumbers},

    {KOORD_ECEF, "x,y,z", BuildEcef},

    {KOORD_BNG, "Nabn|Eabe", BuildBoth},
    {KOORD_BNG, "abenE,N", BuildBoth},
    {KOORD_BNG, "abg", BuildSquare, true},
    {KOORD_BNG, BARE_NUMBERS, BuildFullValues},

    {KOORD_ING, "Nbn|Ebe", BuildBoth},
    {KOORD_ING, "ibenE,N", BuildBoth},
    {KOORD_ING, "ibg", BuildSquare, true},
    {KOORD_ING, "bg", BuildSquare},
    {KOORD_ING, BARE_NUMBERS, BuildFullValues},
};

}  // namespace

std::span<const GridForm> GridForms() {
    return FORMS;
}

bool ReadPlainReference(std::string_view text, const Blank& blank, Reading* reading) {
    constexpr std::size_t mostZoneDigits = 2;
    constexpr std::size_t letterCount = 3;
    const auto zoneEnd = std::find_if_not(text.begin(), text.end(), IsDigit);
    const auto zoneDigits = static_cast<std::size_t>(zoneEnd - text.begin());
    if (zoneDigits < 1 || zoneDigits > mostZoneDigits || text.size() < zoneDigits + letterCount) return false;

    const std::string_view letters = text.substr(zoneDigits, letterCount);
    const std::string_view digits = text.substr(zoneDigits + letterCount);
    const bool areDigits = digits.size() % 2 == 0 && digits.size() <= std::size_t{2} * SQUARE_DIGITS &&
                           std::all_of(digits.begin(), digits.end(), IsDigit);
    if (!areDigits || !std::all_of(letters.begin(), letters.end(), IsCapital)) return false;

    std::int32_t zone = 0;
    for (const char digit : text.substr(0, zoneDigits))
        zone = 10 * zone + (digit - '0');
    if (!IsUtmZone(zone)) return false;
    const std::size_t count = digits.size() / 2;
    *reading = MakeReference(
        {zone, letters[0], letters[1], letters[2]},
        {Metres(digits.substr(0, count)), Metres(digits.substr(count)), ResolutionOf(count)}, blank);
    return true;
}

}  // namespace tessara::toolkit
