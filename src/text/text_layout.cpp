#include "text/text_layout.h"

#include <array>

namespace tessara {
namespace {

using enum FieldKind;

constexpr std::size_t MOST_FIELDS = 4;

// Unused places at the end have no kind.
using Fields = std::array<TextField, MOST_FIELDS>;

struct TextLayout {
    Fields north;
    Fields east;
};

#define FIELD(kind, Struct, field)                               \
    TextField {                                                  \
        kind, static_cast<std::uint8_t>(offsetof(Struct, field)) \
    }

constexpr TextLayout NO_TEXT{};

constexpr TextLayout LONGPIXEL_TEXT{{FIELD(Whole32, LongPixelPayload, y)},
                                    {FIELD(Whole32, LongPixelPayload, x)}};

constexpr TextLayout FLOATPIXEL_TEXT{{FIELD(Number, FloatPixelPayload, y)},
                                     {FIELD(Number, FloatPixelPayload, x)}};

constexpr TextLayout UTM_TEXT{{FIELD(Letter, UtmPayload, hemisphere), FIELD(Number, UtmPayload, northing)},
                              {FIELD(Whole16, UtmPayload, zone), FIELD(Number, UtmPayload, easting)}};

constexpr TextLayout UTMREF_TEXT{{FIELD(Letter, UtmrefPayload, band), FIELD(Letter, UtmrefPayload, row),
                                  FIELD(Metres, UtmrefPayload, northing)},
                                 {FIELD(Whole16, UtmrefPayload, zone), FIELD(Letter, UtmrefPayload, column),
                                  FIELD(Metres, UtmrefPayload, easting)}};

constexpr TextLayout GEODEZ_TEXT{{FIELD(Number, GeodezPayload, latitude)},
                                 {FIELD(Number, GeodezPayload, longitude)}};

constexpr TextLayout GEOGRAD_TEXT{
    {FIELD(Letter, GeogradPayload, latHemisphere), FIELD(Whole16, GeogradPayload, latDegrees),
     FIELD(Whole16, GeogradPayload, latMinutes), FIELD(Number, GeogradPayload, latSeconds)},
    {FIELD(Letter, GeogradPayload, lonHemisphere), FIELD(Whole16, GeogradPayload, lonDegrees),
     FIELD(Whole16, GeogradPayload, lonMinutes), FIELD(Number, GeogradPayload, lonSeconds)}};

constexpr TextLayout GEOREF_TEXT{
    {FIELD(Letter, GeorefPayload, latZone), FIELD(Letter, GeorefPayload, latDegree),
     FIELD(Minutes, GeorefPayload, latMinutes)},
    {FIELD(Letter, GeorefPayload, lonZone), FIELD(Letter, GeorefPayload, lonDegree),
     FIELD(Minutes, GeorefPayload, lonMinutes)}};

constexpr TextLayout GK_TEXT{{FIELD(Number, GkPayload, northing)}, {FIELD(Number, GkPayload, easting)}};

constexpr TextLayout BMN_TEXT{{FIELD(Number, BmnPayload, northing)}, {FIELD(Number, BmnPayload, easting)}};

constexpr TextLayout GRID_TEXT{{FIELD(Number, GridPayload, northing)}, {FIELD(Number, GridPayload, easting)}};

constexpr TextLayout ECEF_TEXT{{FIELD(Number, EcefPayload, z)}, {FIELD(Number, EcefPayload, y)}};

constexpr TextLayout GEODEZMIN_TEXT{
    {FIELD(Letter, GeodezMinPayload, latHemisphere), FIELD(Whole16, GeodezMinPayload, latDegrees),
     FIELD(Number, GeodezMinPayload, latMinutes)},
    {FIELD(Letter, GeodezMinPayload, lonHemisphere), FIELD(Whole16, GeodezMinPayload, lonDegrees),
     FIELD(Number, GeodezMinPayload, lonMinutes)}};

constexpr TextLayout UPS_TEXT{{FIELD(Letter, UpsPayload, hemisphere), FIELD(Number, UpsPayload, northing)},
                              {FIELD(Number, UpsPayload, easting)}};

constexpr TextLayout TM_TEXT{{FIELD(Number, TmPayload, northing)}, {FIELD(Number, TmPayload, easting)}};

constexpr TextLayout VDG_TEXT{{FIELD(Number, VdgPayload, originLatitude), FIELD(Number, VdgPayload, y)},
                              {FIELD(Number, VdgPayload, originLongitude), FIELD(Number, VdgPayload, x)}};

constexpr TextLayout BNG_TEXT{
    {FIELD(Number, LetterGridPayload, fullNorthing), FIELD(LetterPair, LetterGridPayload, square),
     FIELD(Number, LetterGridPayload, northing)},
    {FIELD(Number, LetterGridPayload, fullEasting), FIELD(LetterPair, LetterGridPayload, square),
     FIELD(Number, LetterGridPayload, easting)}};

constexpr TextLayout ING_TEXT{
    {FIELD(Number, LetterGridPayload, fullNorthing), FIELD(Letter, LetterGridPayload, subSquare),
     FIELD(Number, LetterGridPayload, northing)},
    {FIELD(Number, LetterGridPayload, fullEasting), FIELD(Letter, LetterGridPayload, subSquare),
     FIELD(Number, LetterGridPayload, easting)}};

#undef FIELD

// By KoordType.
constexpr std::array<TextLayout, KOORD_TYPE_COUNT> LAYOUTS{
    LONGPIXEL_TEXT, FLOATPIXEL_TEXT, UTM_TEXT, UTMREF_TEXT, GEODEZ_TEXT, GEOGRAD_TEXT,
    GEOREF_TEXT,    GK_TEXT,         BMN_TEXT, BMN_TEXT,    GRID_TEXT,   ECEF_TEXT,
    GEODEZMIN_TEXT, GK_TEXT,         BMN_TEXT, UPS_TEXT,    GRID_TEXT,   TM_TEXT,
    VDG_TEXT,       BNG_TEXT,        ING_TEXT, GRID_TEXT,   GRID_TEXT,   NO_TEXT};

}  // namespace

std::span<const TextField> TextFieldsOf(Axis axis, std::uint32_t system) {
    const TextLayout& layout = system < LAYOUTS.size() ? LAYOUTS[system] : NO_TEXT;
    const Fields& fields = axis == Axis::North ? layout.north : layout.east;
    std::size_t count = 0;
    while (count < fields.size() && fields[count].kind != None)
        ++count;
    return std::span<const TextField>(fields).first(count);
}

}  // namespace tessara
