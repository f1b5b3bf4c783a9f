// The table of systems. A new system needs a row here, a source for its projection, and a test.
#include "tessara/kernel/systems.h"

#include <bit>
#include <limits>

#include "systems/free_projections.h"
#include "systems/range_checks.h"
#include "systems/reading.h"
#include "systems/system_row.h"
#include "tessara/kernel/austrian_grids.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/dutch_grid.h"
#include "tessara/kernel/fixed_grids.h"
#include "tessara/kernel/georef.h"
#include "tessara/kernel/lettered_grids.h"
#include "tessara/kernel/swiss_grid.h"
#include "tessara/kernel/ups.h"
#include "tessara/kernel/utmref.h"
#include "tessara/kernel/van_der_grinten.h"
#include "tessara/kernel/zone_systems.h"

namespace tessara {
namespace {

#define FIELD(kind, Struct, field) \
    { FieldKind::kind, static_cast<std::uint8_t>(offsetof(Struct, field)) }
#define OUTPUT(name, kind, Struct, field) \
    { name, OutputKind::kind, static_cast<std::uint8_t>(offsetof(Struct, field)) }
#define LETTERS(name, Struct, first, count) \
    { name, OutputKind::Letters, static_cast<std::uint8_t>(offsetof(Struct, first)), count }

#define NUMBERS2(Struct, first, second) \
    { offsetof(Struct, first), offsetof(Struct, second) }
#define NUMBERS3(Struct, first, second, third) \
    { offsetof(Struct, first), offsetof(Struct, second), offsetof(Struct, third) }

template <class Payload>
constexpr PayloadBytes Default(const Payload& payload) {
    const auto bytes = std::bit_cast<std::array<std::byte, sizeof(Payload)>>(payload);
    PayloadBytes all{};
    for (std::size_t i = 0; i < bytes.size(); ++i)
        all[i] = bytes[i];
    return all;
}

// A precision that GEOREF doesn't support: a default position has no minutes and no text.
constexpr std::int16_t NO_GEOREF_PRECISION = 8;

// Degrees by which a point is kept inside a zone that it would otherwise leave.
constexpr double INSET = 1e-09;
// The central meridian at 31 degrees east of Ferro, counted from Greenwich.
constexpr double AUSTRIAN_MIDDLE = 13.333333333333332;

constexpr Corners GEODEZ_CORNERS{{{90.0, 0.0}, {0.0, 360.0}, {-90.0, 0.0}, {0.0, -360.0}}};
constexpr Corners UTM_CORNERS{{{84.0, 3.0}, {0.0, 180.0, UTM_ZONE_COUNT}, {-80.0, 3.0}, {0.0, -180.0, 1}}};
constexpr Corners GK_CORNERS{{{80.0, 0.0}, {0.0, 181.5 - INSET}, {-80.0, 0.0}, {0.0, -181.5 + INSET}}};
constexpr Corners GK_KKJ_CORNERS{{{80.0, 0.0}, {0.0, 181.5 - INSET}, {-80.0, 0.0}, {0.0, -162.5 + INSET}}};
constexpr Corners GK6_CORNERS{{{80.0, 3.0}, {0.0, 180.0 - INSET}, {-80.0, 3.0}, {0.0, -180.0 + INSET}}};
constexpr Corners AUSTRIAN_CORNERS{{{AUSTRIAN_LIMITS.north, AUSTRIAN_MIDDLE},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_LIMITS.east - INSET},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_MIDDLE},
                                    {AUSTRIAN_LIMITS.south, AUSTRIAN_LIMITS.west + INSET}}};
constexpr Corners ECEF_CORNERS{{{90.0, 0.0}, {0.0, 90.0}, {}, {0.0, 0.0}}};
constexpr Corners UPS_CORNERS{{{80.0, 0.0}, {80.0, 90.0}, {80.0, 180.0}, {80.0, -90.0}}};
constexpr Corners VDG_CORNERS{{{85.0, 0.0}, {0.0, 180.0}, {-85.0, 0.0}, {0.0, -180.0}}};

constexpr double MAX_PIXEL = std::numeric_limits<double>::max();

constexpr WantedZones UTM_WANTED{1, UTM_ZONE_COUNT, 1, 1, UTM_ZONE_COUNT};
constexpr WantedZones GK_WANTED{-180, 180, 3, -180, 180};
// No GK6 meridian is on the date line, and west of the first Austrian meridian the system ends.
constexpr WantedZones GK6_WANTED{-177, 177, 6, NO_WANTED_ZONE, NO_WANTED_ZONE};
constexpr WantedZones AUSTRIAN_WANTED{AUSTRIAN_MERIDIANS[0], AUSTRIAN_MERIDIANS[2], 1, NO_WANTED_ZONE,
                                      AUSTRIAN_MERIDIANS[2]};

// The common properties of the three Austrian grids.
constexpr SystemRow Austrian(std::int32_t type, double firstCentre, double centreStep) {
    return {
        .type = type,
        .range = {.test = RangeTest::Before,
                  .check = CheckThroughGeodez,
                  .east = Either(KOORD_ERR_AT_LON),
                  .north = Either(KOORD_ERR_AT_LAT)},
        .limits = AUSTRIAN_LIMITS,
        .numbers = NUMBERS2(BmnPayload, easting, northing),
        .form = Form::Zoned,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .zones = {.rule = ZoneRule::Austrian,
                  .halfWidth = 1.5,
                  .wantedZones = AUSTRIAN_WANTED,
                  .number = FIELD(Whole16, BmnPayload, meridian),
                  .wanted = FIELD(Whole16, BmnPayload, wantedMeridian),
                  .firstCentre = firstCentre,
                  .centreStep = centreStep},
        .east = {.value = FIELD(Number, BmnPayload, easting),
                 .travels = {FIELD(Whole16, BmnPayload, wantedMeridian), FIELD(Whole16, BmnPayload, meridian),
                             FIELD(Number, BmnPayload, easting)},
                 .text = {FIELD(Number, BmnPayload, easting)}},
        .north = {.value = FIELD(Number, BmnPayload, northing),
                  .travels = {FIELD(Number, BmnPayload, northing)},
                  .text = {FIELD(Number, BmnPayload, northing)}},
        .extremes = {.rule = ExtremesRule::Positions, .corners = &AUSTRIAN_CORNERS},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("meridian", Whole16, BmnPayload, meridian),
                    OUTPUT("easting", Metres, BmnPayload, easting),
                    OUTPUT("northing", Metres, BmnPayload, northing)},
        .factors = BMN_Factors,
    };
}

constexpr PayloadBytes DefaultBmn(double easting, double northing) {
    BmnPayload p{};
    p.wantedMeridian = NO_WANTED_ZONE;
    p.meridian = AUSTRIAN_MERIDIANS[1];
    p.easting = easting;
    p.northing = northing;
    return Default(p);
}

// The common properties of the two strip systems.
constexpr SystemRow Strips(std::int32_t type, ZoneRule rule, double halfWidth, const WantedZones& wanted,
                           const Limits& limits) {
    return {
        .type = type,
        .range = {.test = RangeTest::Before,
                  .check = CheckThroughGeodez,
                  .east = Either(KOORD_ERR_GK_EAST),
                  .north = Either(KOORD_ERR_GK_LAT)},
        .limits = limits,
        .numbers = NUMBERS2(GkPayload, easting, northing),
        .form = Form::Zoned,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .zones = {.rule = rule,
                  .halfWidth = halfWidth,
                  .wantedZones = wanted,
                  .wanted = FIELD(Whole16, GkPayload, wantedMeridian),
                  .firstCentre = ZONE_FALSE_EASTING},
        .east = {.value = FIELD(Number, GkPayload, easting),
                 .travels = {FIELD(Number, GkPayload, easting), FIELD(Whole16, GkPayload, wantedMeridian)},
                 .text = {FIELD(Number, GkPayload, easting)}},
        .north = {.value = FIELD(Number, GkPayload, northing),
                  .travels = {FIELD(Letter, GkPayload, letter), FIELD(Number, GkPayload, northing)},
                  .text = {FIELD(Number, GkPayload, northing)}},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("easting", Metres, GkPayload, easting),
                    OUTPUT("northing", Metres, GkPayload, northing)},
    };
}

constexpr PayloadBytes DefaultGk(std::int32_t strip) {
    GkPayload p{};
    p.letter = 'N';
    p.wantedMeridian = NO_WANTED_ZONE;
    p.easting = strip * STRIP_MILLION + ZONE_FALSE_EASTING;
    return Default(p);
}

// The common properties of the national grids of two plain numbers.
constexpr SystemRow Grid(std::int32_t type, const Limits& limits, double easting, double northing) {
    return {
        .type = type,
        .range = {.test = RangeTest::After, .check = CheckGrid},
        .limits = limits,
        .numbers = NUMBERS2(GridPayload, easting, northing),
        .form = Form::Values,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, GridPayload, easting),
                 .travels = {FIELD(Number, GridPayload, easting)},
                 .text = {FIELD(Number, GridPayload, easting)}},
        .north = {.value = FIELD(Number, GridPayload, northing),
                  .travels = {FIELD(Number, GridPayload, northing)},
                  .text = {FIELD(Number, GridPayload, northing)}},
        .defaultPayload = Default(GridPayload{easting, northing}),
        .extremes = {.rule = ExtremesRule::Limits},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("easting", Metres, GridPayload, easting),
                    OUTPUT("northing", Metres, GridPayload, northing)},
    };
}

// The common properties of the two grids of lettered 100 km squares.
constexpr SystemRow LetterGrid(std::int32_t type, const Limits& limits) {
    return {
        .type = type,
        .range = {.test = RangeTest::After, .holdsOnceWritten = true, .check = CheckLetterGrid},
        .limits = limits,
        .form = Form::LetterGrid,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, LetterGridPayload, fullEasting),
                 .travels = {FIELD(Number, LetterGridPayload, fullEasting)}},
        .north = {.value = FIELD(Number, LetterGridPayload, fullNorthing),
                  .travels = {FIELD(Number, LetterGridPayload, fullNorthing)}},
        .extremes = {.rule = ExtremesRule::Limits},
        .text = {.defaultPrecision = -3, .display = DisplayStyle::Square},
        .outputs = {LETTERS("square", LetterGridPayload, square, 2),
                    OUTPUT("easting", SquareNumber, LetterGridPayload, easting),
                    OUTPUT("northing", SquareNumber, LetterGridPayload, northing),
                    OUTPUT("fullEasting", Metres, LetterGridPayload, fullEasting),
                    OUTPUT("fullNorthing", Metres, LetterGridPayload, fullNorthing)},
    };
}

// In the texts, both letters or only the second one come between the full values and the metres within the
// square.
constexpr SystemRow WithSquareText(SystemRow row, RecordField square) {
    row.east.text = {
        {FIELD(Number, LetterGridPayload, fullEasting), square, FIELD(Number, LetterGridPayload, easting)}};
    row.north.text = {
        {FIELD(Number, LetterGridPayload, fullNorthing), square, FIELD(Number, LetterGridPayload, northing)}};
    return row;
}

template <class Payload>
constexpr PayloadBytes DefaultHemispheres() {
    Payload p{};
    p.latHemisphere = 'N';
    p.lonHemisphere = 'W';
    return Default(p);
}

constexpr SystemRow LongPixel() {
    return {
        .type = KOORD_LONGPIXEL,
        .range = {.check = AcceptRecord},
        .read = RefuseToRead,
        .write = RefuseToWrite,
        .limits = {INT32_MIN, INT32_MAX, INT32_MAX, INT32_MIN},
        .form = Form::Pixels,
        .unit = Unit::Pixel,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Whole32, LongPixelPayload, x),
                 .travels = {FIELD(Whole32, LongPixelPayload, x)},
                 .text = {FIELD(Whole32, LongPixelPayload, x)}},
        .north = {.value = FIELD(Whole32, LongPixelPayload, y),
                  .travels = {FIELD(Whole32, LongPixelPayload, y)},
                  .text = {FIELD(Whole32, LongPixelPayload, y)}},
        .extremes = {.rule = ExtremesRule::Limits},
        .text = {.defaultPrecision = 0},
        .outputs = {OUTPUT("x", Whole32, LongPixelPayload, x), OUTPUT("y", Whole32, LongPixelPayload, y)},
    };
}

constexpr SystemRow FloatPixel() {
    return {
        .type = KOORD_FLOATPIXEL,
        .range = {.check = AcceptRecord},
        .read = RefuseToRead,
        .write = RefuseToWrite,
        .limits = {-MAX_PIXEL, MAX_PIXEL, MAX_PIXEL, -MAX_PIXEL},
        .form = Form::Pixels,
        .unit = Unit::Pixel,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, FloatPixelPayload, x),
                 .travels = {FIELD(Number, FloatPixelPayload, x)},
                 .text = {FIELD(Number, FloatPixelPayload, x)}},
        .north = {.value = FIELD(Number, FloatPixelPayload, y),
                  .travels = {FIELD(Number, FloatPixelPayload, y)},
                  .text = {FIELD(Number, FloatPixelPayload, y)}},
        .extremes = {.rule = ExtremesRule::Limits},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("x", Pixels, FloatPixelPayload, x), OUTPUT("y", Pixels, FloatPixelPayload, y)},
    };
}

constexpr SystemRow Utm() {
    UtmPayload fresh{};
    fresh.hemisphere = 'N';
    fresh.wantedZone = NO_WANTED_ZONE;
    fresh.zone = DEFAULT_UTM_ZONE;
    fresh.easting = ZONE_FALSE_EASTING;
    return {
        .type = KOORD_UTM,
        .range = {.test = RangeTest::Before,
                  .check = CheckThroughGeodez,
                  .east = Either(KOORD_ERR_UTM_LON),
                  .north = Either(KOORD_ERR_UTM_LAT)},
        .read = Read<UTM_ToGeodetic>,
        .write = Write<UTM_FromGeodetic>,
        .limits = UTM_LIMITS,
        .numbers = NUMBERS2(UtmPayload, easting, northing),
        .blocks = &UTM_BLOCKS,
        .form = Form::Zoned,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .zones = {.rule = ZoneRule::Utm,
                  .halfWidth = 3.0,
                  .wantedZones = UTM_WANTED,
                  .number = FIELD(Whole16, UtmPayload, zone),
                  .wanted = FIELD(Whole16, UtmPayload, wantedZone),
                  .firstCentre = ZONE_FALSE_EASTING},
        .east = {.value = FIELD(Number, UtmPayload, easting),
                 .travels = {FIELD(Whole16, UtmPayload, zone), FIELD(Number, UtmPayload, easting),
                             FIELD(Whole16, UtmPayload, wantedZone)},
                 .text = {FIELD(Whole16, UtmPayload, zone), FIELD(Number, UtmPayload, easting)}},
        .north = {.value = FIELD(Number, UtmPayload, northing),
                  .travels = {FIELD(Letter, UtmPayload, hemisphere), FIELD(Number, UtmPayload, northing)},
                  .text = {FIELD(Letter, UtmPayload, hemisphere), FIELD(Number, UtmPayload, northing)}},
        .defaultPayload = Default(fresh),
        .extremes = {.rule = ExtremesRule::Positions, .corners = &UTM_CORNERS},
        .text = {.defaultPrecision = -3, .display = DisplayStyle::Zoned},
        .outputs = {OUTPUT("zone", Whole16, UtmPayload, zone),
                    LETTERS("hemisphere", UtmPayload, hemisphere, 1),
                    OUTPUT("easting", Metres, UtmPayload, easting),
                    OUTPUT("northing", Metres, UtmPayload, northing)},
        .factors = UTM_Factors,
    };
}

constexpr SystemRow Utmref() {
    UtmrefPayload fresh{};
    fresh.wantedZone = NO_WANTED_ZONE;
    fresh.zone = DEFAULT_UTM_ZONE;
    fresh.band = 'N';
    fresh.column = 'W';
    fresh.row = 'F';
    return {
        .type = KOORD_UTMREF,
        .range = {.test = RangeTest::Before,
                  .check = CheckThroughGeodez,
                  .east = Either(KOORD_ERR_UTM_LON),
                  .north = Either(KOORD_ERR_UTM_LAT)},
        .read = Read<UTMREF_ToGeodetic>,
        .write = Write<UTMREF_FromGeodetic>,
        .limits = UTM_LIMITS,
        .blocks = &UTMREF_BLOCKS,
        .form = Form::Squares,
        .hasMidpoint = true,
        .exact = KOORD_UTM,
        .finestStep = 1.0,
        .neighborStep = 1.0,
        .zones = {.rule = ZoneRule::Utm,
                  .halfWidth = 3.0,
                  .wantedZones = UTM_WANTED,
                  .number = FIELD(Whole16, UtmrefPayload, zone),
                  .wanted = FIELD(Whole16, UtmrefPayload, wantedZone)},
        .east = {.travels = {FIELD(Whole16, UtmrefPayload, zone), FIELD(Letter, UtmrefPayload, column),
                             FIELD(Whole32, UtmrefPayload, easting),
                             FIELD(Whole16, UtmrefPayload, wantedZone)},
                 .text = {FIELD(Whole16, UtmrefPayload, zone), FIELD(Letter, UtmrefPayload, column),
                          FIELD(Metres, UtmrefPayload, easting)}},
        .north = {.travels = {FIELD(Letter, UtmrefPayload, band), FIELD(Letter, UtmrefPayload, row),
                              FIELD(Whole32, UtmrefPayload, northing)},
                  .text = {FIELD(Letter, UtmrefPayload, band), FIELD(Letter, UtmrefPayload, row),
                           FIELD(Metres, UtmrefPayload, northing)}},
        .defaultPayload = Default(fresh),
        .extremes = {.rule = ExtremesRule::Positions, .corners = &UTM_CORNERS},
        .text = {.defaultPrecision = -3, .display = DisplayStyle::Reference, .carry = SQUARE_METRES},
        .outputs = {OUTPUT("zone", Whole16, UtmrefPayload, zone), LETTERS("band", UtmrefPayload, band, 1),
                    LETTERS("square", UtmrefPayload, column, 2),
                    OUTPUT("easting", SquareMetres, UtmrefPayload, easting),
                    OUTPUT("northing", SquareMetres, UtmrefPayload, northing)},
        .factors = UTMREF_Factors,
    };
}

constexpr SystemRow Geodez() {
    return {
        .type = KOORD_GEODEZ,
        .range = {.test = RangeTest::Before, .check = CheckGeodez},
        .read = Read<GEODEZ_ToGeodetic>,
        .write = Write<GEODEZ_FromGeodetic>,
        .limits = GEOGRAPHIC_LIMITS,
        .numbers = NUMBERS3(GeodezPayload, latitude, longitude, height),
        .blocks = &GEODEZ_BLOCKS,
        .form = Form::Values,
        .unit = Unit::Degree,
        .wraps = true,
        .hasMidpoint = true,
        .neighborStep = 0.0001,
        .east = {.value = FIELD(Number, GeodezPayload, longitude),
                 .travels = {FIELD(Number, GeodezPayload, longitude)},
                 .text = {FIELD(Number, GeodezPayload, longitude)}},
        .north = {.value = FIELD(Number, GeodezPayload, latitude),
                  .travels = {FIELD(Number, GeodezPayload, latitude)},
                  .text = {FIELD(Number, GeodezPayload, latitude)}},
        .extremes = {.rule = ExtremesRule::Positions, .corners = &GEODEZ_CORNERS},
        .text = {.defaultPrecision = -7, .display = DisplayStyle::Degrees},
        .outputs = {OUTPUT("latitude", Degrees, GeodezPayload, latitude),
                    OUTPUT("longitude", Degrees, GeodezPayload, longitude)},
    };
}

constexpr SystemRow Geograd() {
    using P = GeogradPayload;
    return {
        .type = KOORD_GEOGRAD,
        .range = {.test = RangeTest::Before, .check = CheckGeograd},
        .read = Read<GEOGRAD_ToGeodetic>,
        .write = Write<GEOGRAD_FromGeodetic>,
        .limits = GEOGRAPHIC_LIMITS,
        .numbers = NUMBERS2(P, latSeconds, lonSeconds),
        .form = Form::Parts,
        .unit = Unit::Degree,
        .wraps = true,
        .hasMidpoint = true,
        .exact = KOORD_GEODEZ,
        .neighborStep = 0.0001,
        .east = {.travels = {FIELD(Whole16, P, lonDegrees), FIELD(Whole16, P, lonMinutes),
                             FIELD(Number, P, lonSeconds), FIELD(Letter, P, lonHemisphere)},
                 .text = {FIELD(Letter, P, lonHemisphere), FIELD(Whole16, P, lonDegrees),
                          FIELD(Whole16, P, lonMinutes), FIELD(Number, P, lonSeconds)}},
        .north = {.travels = {FIELD(Whole16, P, latDegrees), FIELD(Whole16, P, latMinutes),
                              FIELD(Number, P, latSeconds), FIELD(Letter, P, latHemisphere)},
                  .text = {FIELD(Letter, P, latHemisphere), FIELD(Whole16, P, latDegrees),
                           FIELD(Whole16, P, latMinutes), FIELD(Number, P, latSeconds)}},
        .defaultPayload = DefaultHemispheres<P>(),
        .extremes = {.rule = ExtremesRule::Degrees, .corners = &GEODEZ_CORNERS},
        .text = {.defaultPrecision = -3,
                 .display = DisplayStyle::Seconds,
                 .carry = 60.0,
                 .unitsPerDegree = 3600.0},
        .outputs =
            {{OUTPUT("latDegrees", Whole16, P, latDegrees), OUTPUT("latMinutes", Whole16, P, latMinutes),
              OUTPUT("latSeconds", Seconds, P, latSeconds), LETTERS("latHemisphere", P, latHemisphere, 1),
              OUTPUT("lonDegrees", Whole16, P, lonDegrees), OUTPUT("lonMinutes", Whole16, P, lonMinutes),
              OUTPUT("lonSeconds", Seconds, P, lonSeconds), LETTERS("lonHemisphere", P, lonHemisphere, 1)}},
    };
}

constexpr SystemRow Georef() {
    using P = GeorefPayload;
    P fresh{};
    fresh.precision = NO_GEOREF_PRECISION;
    fresh.lonZone = 'N';
    fresh.latZone = 'G';
    fresh.lonDegree = 'A';
    fresh.latDegree = 'A';
    return {
        .type = KOORD_GEOREF,
        .range = {.test = RangeTest::After, .check = CheckGeoref},
        .read = Read<GEOREF_ToGeodetic>,
        .write = Write<GEOREF_FromGeodetic>,
        .form = Form::Parts,
        .unit = Unit::Degree,
        .wraps = true,
        .hasMidpoint = true,
        .exact = KOORD_GEODEZ,
        .finestStep = 1.0 / 6000.0,
        .neighborStep = 1.0,
        .east = {.travels = {FIELD(Letter, P, lonZone), FIELD(Letter, P, lonDegree),
                             FIELD(Whole16, P, lonMinutes)},
                 .text = {FIELD(Letter, P, lonZone), FIELD(Letter, P, lonDegree),
                          FIELD(Minutes, P, lonMinutes)}},
        .north = {.travels = {FIELD(Letter, P, latZone), FIELD(Letter, P, latDegree),
                              FIELD(Whole16, P, latMinutes)},
                  .text = {FIELD(Letter, P, latZone), FIELD(Letter, P, latDegree),
                           FIELD(Minutes, P, latMinutes)}},
        .defaultPayload = Default(fresh),
        .extremes = {.rule = ExtremesRule::Letters},
        .text = {.defaultPrecision = 0, .display = DisplayStyle::Letters},
        .outputs = {LETTERS("letters", P, lonZone, 4), OUTPUT("lonMinutes", GeorefMinutes, P, lonMinutes),
                    OUTPUT("latMinutes", GeorefMinutes, P, latMinutes)},
    };
}

constexpr SystemRow Gk() {
    SystemRow row = Strips(KOORD_GK, ZoneRule::Strips3, 1.5, GK_WANTED, GK_LIMITS);
    row.read = Read<GK_ToGeodetic>;
    row.write = Write<GK_FromGeodetic>;
    row.blocks = &GK_BLOCKS;
    row.factors = GK_Factors;
    row.defaultPayload = DefaultGk(3);
    row.extremes = {.rule = ExtremesRule::Positions, .corners = &GK_CORNERS, .cornersOnKkj = &GK_KKJ_CORNERS};
    return row;
}

constexpr SystemRow Bmn() {
    SystemRow row = Austrian(KOORD_BMN, BMN_FIRST_CENTRE, AUSTRIAN_CENTRE_STEP);
    row.read = Read<BMN_ToGeodetic>;
    row.write = Write<BMN_FromGeodetic>;
    row.blocks = &BMN_BLOCKS;
    row.defaultPayload = DefaultBmn(500000.0, 200000.0);
    return row;
}

constexpr SystemRow Oem() {
    SystemRow row = Austrian(KOORD_OEM, OEM_FIRST_CENTRE, AUSTRIAN_CENTRE_STEP);
    row.read = Read<OEM_ToGeodetic>;
    row.write = Write<OEM_FromGeodetic>;
    row.blocks = &OEM_BLOCKS;
    row.defaultPayload = DefaultBmn(800000.0, 5200000.0);
    return row;
}

constexpr SystemRow Ch() {
    SystemRow row = Grid(KOORD_CH, CH_LIMITS, 600000.0, 200000.0);
    row.read = Read<CH_ToGeodetic>;
    row.write = Write<CH_FromGeodetic>;
    row.factors = CH_Factors;
    row.blocks = &CH_BLOCKS;
    row.range.east = {KOORD_ERR_CH_EAST_LOW, KOORD_ERR_CH_EAST_HIGH};
    row.range.north = {KOORD_ERR_CH_NORTH_LOW, KOORD_ERR_CH_NORTH_HIGH};
    return row;
}

constexpr SystemRow Ecef() {
    return {
        .type = KOORD_ECEF,
        .range = {.test = RangeTest::After, .holdsOnceWritten = true, .check = AcceptRecord},
        .read = ECEF_Read,
        .write = ECEF_Write,
        .numbers = NUMBERS3(EcefPayload, x, y, z),
        .blocks = &ECEF_BLOCKS,
        .form = Form::Cartesian,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.travels = {FIELD(Number, EcefPayload, x), FIELD(Number, EcefPayload, y)},
                 .text = {FIELD(Number, EcefPayload, y)}},
        .north = {.travels = {FIELD(Number, EcefPayload, z)}, .text = {FIELD(Number, EcefPayload, z)}},
        .extremes = {.rule = ExtremesRule::Cartesian, .corners = &ECEF_CORNERS},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("x", Metres, EcefPayload, x), OUTPUT("y", Metres, EcefPayload, y),
                    OUTPUT("z", Metres, EcefPayload, z)},
    };
}

constexpr SystemRow GeodezMin() {
    using P = GeodezMinPayload;
    return {
        .type = KOORD_GEODEZMIN,
        .range = {.test = RangeTest::Before, .check = CheckGeodezMin},
        .read = Read<GEODEZMIN_ToGeodetic>,
        .write = Write<GEODEZMIN_FromGeodetic>,
        .limits = GEOGRAPHIC_LIMITS,
        .numbers = NUMBERS3(P, latMinutes, lonMinutes, height),
        .form = Form::Parts,
        .unit = Unit::Degree,
        .wraps = true,
        .hasMidpoint = true,
        .exact = KOORD_GEODEZ,
        .neighborStep = 0.0001,
        .east = {.travels = {FIELD(Whole16, P, lonDegrees), FIELD(Number, P, lonMinutes),
                             FIELD(Letter, P, lonHemisphere)},
                 .text = {FIELD(Letter, P, lonHemisphere), FIELD(Whole16, P, lonDegrees),
                          FIELD(Number, P, lonMinutes)}},
        .north = {.travels = {FIELD(Whole16, P, latDegrees), FIELD(Number, P, latMinutes),
                              FIELD(Letter, P, latHemisphere)},
                  .text = {FIELD(Letter, P, latHemisphere), FIELD(Whole16, P, latDegrees),
                           FIELD(Number, P, latMinutes)}},
        .defaultPayload = DefaultHemispheres<P>(),
        .extremes = {.rule = ExtremesRule::Degrees, .corners = &GEODEZ_CORNERS},
        .text = {.defaultPrecision = -5,
                 .display = DisplayStyle::Minutes,
                 .carry = 60.0,
                 .unitsPerDegree = 60.0},
        .outputs =
            {{OUTPUT("latDegrees", Whole16, P, latDegrees), OUTPUT("latMinutes", Minutes, P, latMinutes),
              LETTERS("latHemisphere", P, latHemisphere, 1), OUTPUT("lonDegrees", Whole16, P, lonDegrees),
              OUTPUT("lonMinutes", Minutes, P, lonMinutes), LETTERS("lonHemisphere", P, lonHemisphere, 1)}},
    };
}

constexpr SystemRow Gk6() {
    SystemRow row = Strips(KOORD_GK6, ZoneRule::Strips6, 3.0, GK6_WANTED, GK6_LIMITS);
    row.read = Read<GK6_ToGeodetic>;
    row.write = Write<GK6_FromGeodetic>;
    row.blocks = &GK6_BLOCKS;
    row.factors = GK6_Factors;
    row.defaultPayload = DefaultGk(2);
    row.extremes = {.rule = ExtremesRule::Positions, .corners = &GK6_CORNERS};
    return row;
}

constexpr SystemRow GkAt() {
    SystemRow row = Austrian(KOORD_GKAT, 0.0, 0.0);
    row.read = Read<GKAT_ToGeodetic>;
    row.write = Write<GKAT_FromGeodetic>;
    row.blocks = &GKAT_BLOCKS;
    row.defaultPayload = DefaultBmn(0.0, 5200000.0);
    return row;
}

constexpr SystemRow Ups() {
    UpsPayload fresh{};
    fresh.hemisphere = 'N';
    fresh.easting = 2000000.0;
    fresh.northing = 2000000.0;
    return {
        .type = KOORD_UPS,
        .range = {.test = RangeTest::BeforePolar, .check = CheckUps},
        .read = Read<UPS_ToGeodetic>,
        .write = Write<UPS_FromGeodetic>,
        .numbers = NUMBERS2(UpsPayload, easting, northing),
        .blocks = &UPS_BLOCKS,
        .form = Form::Polar,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, UpsPayload, easting),
                 .travels = {FIELD(Number, UpsPayload, easting)},
                 .text = {FIELD(Number, UpsPayload, easting)}},
        .north = {.value = FIELD(Number, UpsPayload, northing),
                  .travels = {FIELD(Letter, UpsPayload, hemisphere), FIELD(Number, UpsPayload, northing)},
                  .text = {FIELD(Letter, UpsPayload, hemisphere), FIELD(Number, UpsPayload, northing)}},
        .defaultPayload = Default(fresh),
        .extremes = {.rule = ExtremesRule::Polar, .corners = &UPS_CORNERS},
        .text = {.defaultPrecision = -3},
        .outputs = {LETTERS("hemisphere", UpsPayload, hemisphere, 1),
                    OUTPUT("easting", Metres, UpsPayload, easting),
                    OUTPUT("northing", Metres, UpsPayload, northing)},
        .factors = UPS_Factors,
    };
}

constexpr SystemRow PoMilitary() {
    SystemRow row = Grid(KOORD_PO_MILITARY, PO_MILITARY_LIMITS, 200000.0, 200000.0);
    row.read = Read<POMilitary_ToGeodetic>;
    row.write = Write<POMilitary_FromGeodetic>;
    row.blocks = &PO_MILITARY_BLOCKS;
    row.factors = POMilitary_Factors;
    return row;
}

constexpr SystemRow Tm() {
    using P = TmPayload;
    P fresh{};
    fresh.scale = 1.0;
    return {
        .type = KOORD_TM,
        .range = {.test = RangeTest::None, .check = AcceptRecord},
        .read = TM_Read,
        .write = TM_Write,
        .parameterBytes = offsetof(P, easting),
        .numbers = NUMBERS2(P, easting, northing),
        .blocks = &TM_BLOCKS,
        .form = Form::Values,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, P, easting),
                 .travels = {FIELD(Number, P, falseEasting), FIELD(Number, P, originLongitude),
                             FIELD(Number, P, easting)},
                 .text = {FIELD(Number, P, easting)}},
        .north = {.value = FIELD(Number, P, northing),
                  .travels = {FIELD(Number, P, falseNorthing), FIELD(Number, P, originLatitude),
                              FIELD(Number, P, northing)},
                  .text = {FIELD(Number, P, northing)}},
        .defaultPayload = Default(fresh),
        .extremes = {.rule = ExtremesRule::Quadrants},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("easting", Metres, P, easting), OUTPUT("northing", Metres, P, northing)},
        .factors = TM_RecordFactors,
    };
}

constexpr SystemRow Vdg() {
    using P = VdgPayload;
    return {
        .type = KOORD_VDG,
        .range = {.test = RangeTest::After, .holdsOnceWritten = true, .check = AcceptRecord},
        .read = Read<VDG_ReadPayload>,
        .write = Write<VDG_FromGeodetic>,
        .parameterBytes = offsetof(P, x),
        .numbers = NUMBERS2(P, x, y),
        .blocks = &VDG_BLOCKS,
        .form = Form::Values,
        .wraps = true,
        .hasMidpoint = true,
        .neighborStep = 1.0,
        .east = {.value = FIELD(Number, P, x),
                 .travels = {FIELD(Number, P, x)},
                 .text = {FIELD(Number, P, originLongitude), FIELD(Number, P, x)}},
        .north = {.value = FIELD(Number, P, y),
                  .travels = {FIELD(Number, P, y)},
                  .text = {FIELD(Number, P, originLatitude), FIELD(Number, P, y)}},
        .extremes = {.rule = ExtremesRule::Positions, .corners = &VDG_CORNERS},
        .text = {.defaultPrecision = -3},
        .outputs = {OUTPUT("x", Metres, P, x), OUTPUT("y", Metres, P, y)},
    };
}

constexpr SystemRow Bng() {
    SystemRow row =
        WithSquareText(LetterGrid(KOORD_BNG, BNG_LIMITS), FIELD(LetterPair, LetterGridPayload, square));
    row.read = Read<BNG_ToGeodetic>;
    row.write = Write<BNG_FromGeodetic>;
    row.blocks = &BNG_BLOCKS;
    row.factors = BNG_Factors;
    return row;
}

constexpr SystemRow Ing() {
    SystemRow row =
        WithSquareText(LetterGrid(KOORD_ING, ING_LIMITS), FIELD(Letter, LetterGridPayload, subSquare));
    row.read = Read<ING_ToGeodetic>;
    row.write = Write<ING_FromGeodetic>;
    row.blocks = &ING_BLOCKS;
    row.factors = ING_Factors;
    return row;
}

constexpr SystemRow Rd() {
    SystemRow row = Grid(KOORD_RD, RD_LIMITS, 200000.0, 400000.0);
    row.read = Read<RD_ToGeodetic>;
    row.write = Write<RD_FromGeodetic>;
    row.factors = RD_Factors;
    row.blocks = &RD_BLOCKS;
    return row;
}

constexpr SystemRow Luref() {
    SystemRow row = Grid(KOORD_LUREF, LUREF_LIMITS, 0.0, 0.0);
    row.read = Read<LUREF_ToGeodetic>;
    row.write = Write<LUREF_FromGeodetic>;
    row.blocks = &LUREF_BLOCKS;
    row.factors = LUREF_Factors;
    return row;
}

constexpr SystemRow LambertCc() {
    return {
        .type = KOORD_LAMBERTCC,
        .read = LAMBERTCC_Read,
        .write = LAMBERTCC_Write,
        .parameterBytes = offsetof(LambertCCPayload, easting),
        .numbers = NUMBERS2(LambertCCPayload, easting, northing),
        .blocks = &LAMBERTCC_BLOCKS,
        .factors = LAMBERTCC_RecordFactors,
    };
}

#undef FIELD
#undef OUTPUT
#undef LETTERS
#undef NUMBERS2
#undef NUMBERS3

constexpr std::array<SystemRow, KOORD_TYPE_COUNT> ROWS{
    LongPixel(),  FloatPixel(), Utm(), Utmref(), Geodez(),    Geograd(), Georef(), Gk(),
    Bmn(),        Oem(),        Ch(),  Ecef(),   GeodezMin(), Gk6(),     GkAt(),   Ups(),
    PoMilitary(), Tm(),         Vdg(), Bng(),    Ing(),       Rd(),      Luref(),  LambertCc(),
};

constexpr bool StandInTheirPlaces() {
    for (std::size_t i = 0; i < ROWS.size(); ++i) {
        if (ROWS[i].type != static_cast<std::int32_t>(i)) return false;
    }
    return true;
}
static_assert(StandInTheirPlaces());

}  // namespace

constinit const std::array<SystemRow, KOORD_TYPE_COUNT> SYSTEMS = ROWS;
constinit const SystemRow NO_SYSTEM_ROW{.type = NO_SYSTEM, .read = RefuseToRead, .write = RefuseToWrite};

Unit System_Unit(std::int32_t type) {
    return SystemOf(type).unit;
}

std::span<const OutputField> System_Outputs(std::int32_t type) {
    return SystemOf(type).outputs.All();
}

std::span<const RecordField> System_NorthText(std::int32_t type) {
    return SystemOf(type).north.text.All();
}

std::span<const RecordField> System_EastText(std::int32_t type) {
    return SystemOf(type).east.text.All();
}

}  // namespace tessara
