// Plausible map sheets, at least two for each type with a plane that an independent program can compute.
#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "support/maps.h"

namespace tessara::testing {

// The map, and its linear relation: column = pixelX + (easting - `easting`) / metresPerPixelX, row = pixelY +
// (`northing` - northing) / metresPerPixelY.
struct Sheet {
    std::string name;
    MapParam map;
    double easting, northing;
    double pixelX, pixelY;
    double metresPerPixelX, metresPerPixelY;
    std::int32_t width, height;  // of the raster, pixels
};

// Otherwise each test that starts would print all bytes of all sheets.
inline void PrintTo(const Sheet& sheet, std::ostream* out) {
    *out << sheet.name;
}

inline constexpr std::int32_t DATUM_EUR_M = 1;    // International 1924
inline constexpr std::int32_t DATUM_GER = 3;      // Bessel
inline constexpr std::int32_t DATUM_NAD27 = 4;    // Clarke 1866
inline constexpr std::int32_t DATUM_MGI = 6;      // Bessel
inline constexpr std::int32_t DATUM_CH1903 = 7;   // Bessel
inline constexpr std::int32_t DATUM_ETRS89 = 9;   // GRS 1980
inline constexpr std::int32_t DATUM_KS42 = 10;    // Krassovsky
inline constexpr std::int32_t DATUM_IRL = 97;     // modified Airy
inline constexpr std::int32_t DATUM_OGB = 98;     // Airy
inline constexpr std::int32_t DATUM_NTF = 236;    // Clarke 1880
inline constexpr std::int32_t DATUM_RDNAP = 237;  // Bessel
inline constexpr std::int32_t DATUM_NTL = 238;    // International 1924

// Grid sheets: the origin of the raster is the plane position of pixel (0, 0).
template <class Params>
Sheet GridSheet(const char* name, MapType type, const Params& p, std::int32_t datum, std::int32_t width,
                std::int32_t height) {
    return {name,
            Map(type, p, datum),
            p.originEasting,
            p.originNorthing,
            0.0,
            0.0,
            p.metresPerPixelX,
            p.metresPerPixelY,
            width,
            height};
}

// Sheets with a reference point at the plane position `easting`, `northing`: 10 pixels per millimetre.
template <class Params>
Sheet ReferenceSheet(const char* name, MapType type, const Params& params, const tagKOORD& reference,
                     double easting, double northing, std::int32_t scaleDenominator, std::int32_t pixelX,
                     std::int32_t pixelY, std::int32_t width, std::int32_t height) {
    const auto datum = static_cast<std::int32_t>(reference.datum);
    const double metresPerPixel = scaleDenominator / 10000.0;
    return {name,
            WithReference(Map(type, params, datum), reference, pixelX, pixelY, scaleDenominator, 10.0),
            easting,
            northing,
            static_cast<double>(pixelX),
            static_cast<double>(pixelY),
            metresPerPixel,
            metresPerPixel,
            width,
            height};
}

inline Sheet TmSheet(const char* name, MapType type, std::int32_t datum, const TmPayload& grid,
                     double easting, double northing, double metresPerPixel) {
    const MapTmParams params{grid.originLongitude,
                             grid.originLatitude,
                             grid.falseEasting,
                             grid.falseNorthing,
                             grid.scale,
                             easting,
                             northing,
                             metresPerPixel,
                             metresPerPixel};
    return GridSheet(name, type, params, datum, 8000, 8000);
}

inline std::vector<Sheet> GridSheets() {
    const TmPayload portugal{-8.13190611111111, 39.6666666666667, 200000.0, 300000.0, 1.0, 0.0, 0.0};
    const TmPayload luxembourg{6.16666666666667, 49.8333333333333, 80000.0, 100000.0, 1.0, 0.0, 0.0};
    const TmPayload britain{-2.0, 49.0, 400000.0, -100000.0, 0.9996012717, 0.0, 0.0};
    const TmPayload ireland{-8.0, 53.5, 200000.0, 250000.0, 1.000035, 0.0, 0.0};
    using Plane = MapPlaneParams;
    return {
        GridSheet("utm_munich", MAP_UTM, MapUtmParams{'N', 32, 675000.0, 5345000.0, 2.5, 2.5}, DATUM_WGS84,
                  10000, 8000),
        GridSheet("utm_rio", MAP_UTM, MapUtmParams{'S', 23, 655000.0, 7480000.0, 5.0, 5.0}, DATUM_WGS84, 6000,
                  6000),
        GridSheet("gk_munich", MAP_GAUKRU, MapGkParams{0, 12, 4455000.0, 5346000.0, 1.25, 1.25}, DATUM_GER,
                  9600, 8900),
        GridSheet("gk_frankfurt", MAP_GAUKRU, MapGkParams{0, 9, 3465000.0, 5560000.0, 2.5, 2.5}, DATUM_GER,
                  9000, 8000),
        GridSheet("gk6_minsk", MAP_GAUKRU6, MapGkParams{0, 27, 5530000.0, 5980000.0, 5.0, 5.0}, DATUM_KS42,
                  8000, 8000),
        GridSheet("gk6_moscow", MAP_GAUKRU6, MapGkParams{0, 39, 7395000.0, 6190000.0, 2.5, 2.5}, DATUM_KS42,
                  8000, 8000),
        GridSheet("bmn_vienna", MAP_BMN, MapBmnParams{34, 745000.0, 350000.0, 2.5, 2.5}, DATUM_MGI, 8000,
                  8000),
        GridSheet("bmn_innsbruck", MAP_BMN, MapBmnParams{28, 222500.0, 247500.0, 2.5, 2.5}, DATUM_MGI, 8000,
                  8000),
        GridSheet("ch_bern", MAP_CH, Plane{585000.0, 206000.0, 1.25, 1.25}, DATUM_CH1903, 14000, 9600),
        GridSheet("ch_zurich", MAP_CH, Plane{672500.0, 254000.0, 2.5, 2.5}, DATUM_CH1903, 7000, 4800),
        GridSheet("ups_arctic", MAP_UPS, MapUpsParams{'N', 1500000.0, 2500000.0, 250.0, 250.0}, DATUM_WGS84,
                  4000, 4000),
        GridSheet("ups_antarctic", MAP_UPS, MapUpsParams{'S', 1400000.0, 2600000.0, 500.0, 500.0},
                  DATUM_WGS84, 2400, 2400),
        GridSheet("rd_amsterdam", MAP_STEREOGR_NL, Plane{110000.0, 500000.0, 2.5, 2.5}, DATUM_RDNAP, 8000,
                  8000),
        GridSheet("rd_maastricht", MAP_STEREOGR_NL, Plane{165000.0, 325000.0, 1.25, 1.25}, DATUM_RDNAP, 8000,
                  8000),
        TmSheet("tm_brecon", MAP_TM, DATUM_OGB, britain, 280000.0, 240000.0, 5.0),
        TmSheet("tm_dublin", MAP_TM, DATUM_IRL, ireland, 300000.0, 250000.0, 2.5),
        TmSheet("po_lisbon", MAP_PO_MILITARY, DATUM_EUR_M, portugal, 100000.0, 210000.0, 2.5),
        TmSheet("po_porto", MAP_PO_MILITARY, DATUM_EUR_M, portugal, 145000.0, 480000.0, 2.5),
        TmSheet("luref_city", MAP_LUREF, DATUM_NTL, luxembourg, 70000.0, 82000.0, 1.25),
        TmSheet("luref_north", MAP_LUREF, DATUM_NTL, luxembourg, 60000.0, 130000.0, 2.5),
    };
}

// EQUALARC's polar planes are in pixels. The antarctic sheet's origin is 14 degrees from the pole on the
// meridian 30 west: 1400 sin(-30), 1400 cos(-30).
inline std::vector<Sheet> PolarSheets() {
    return {
        {"equalarc_arctic", Map(MAP_EQUALARC, MapEqualArcParams{9, 80.0, 0.0, 0.01, 0.01}), 0.0, -1000.0, 0.0,
         0.0, 1.0, 1.0, 2000, 2000},
        {"equalarc_antarctic", Map(MAP_EQUALARC, MapEqualArcParams{18, -76.0, -30.0, 0.01, 0.01}), -700.0,
         1212.435565298214, 0.0, 0.0, 1.0, 1.0, 2000, 2000},
    };
}

inline std::vector<Sheet> ProjectionSheets() {
    const MapLambertCcParams france{49.0,      44.0,  3.0,   46.5,   700000.0,
                                    6600000.0, 250.0, 250.0, 2400.5, 2400.25};
    const MapLambertCcParams belgium{
        49.8333339, 51.16666723333333, 4.367486666666666, 90.0, 150000.013, 5400088.438, 50.0, 50.0,
        2600.0,     103000.0};
    Sheet asia = ReferenceSheet("wagner_asia", MAP_WAGNER_IV, MapWagnerIvParams{100.0, 0.8, 1.25},
                                GeodezRecord(30.0, 90.0, 0.0, DATUM_SPHERE), -887978.671856, 3783605.888285,
                                50000000, 1200, 700, 3000, 1400);
    asia.metresPerPixelX /= 0.8;
    asia.metresPerPixelY /= 1.25;
    return {
        {"lambertcc_france", Map(MAP_LAMBERTCC, france, DATUM_ETRS89), 700000.0, 6600000.0, 2400.5, 2400.25,
         250.0, 250.0, 5000, 5000},
        {"lambertcc_belgium", Map(MAP_LAMBERTCC, belgium, DATUM_EUR_M), 150000.013, 5400088.438, 2600.0,
         103000.0, 50.0, 50.0, 5600, 4600},
        ReferenceSheet("lambert2_austria", MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.33333333333333},
                       GeodezRecord(47.5, 13.33333333333333, 0.0, DATUM_MGI), 0.0, 0.0, 500000, 6000, 3600,
                       12000, 6000),
        ReferenceSheet("lambert2_conus", MAP_LAMBERT2, MapLambert2Params{33.0, 45.0, -96.0},
                       GeodezRecord(39.0, -96.0, 0.0, DATUM_NAD27), 0.0, 0.0, 5000000, 4500, 3000, 9200,
                       6000),
        ReferenceSheet("lambertfr_2", MAP_LAMBERTFR, MapLambertFrParams{2, 450000.0, 2400000.0},
                       GeodezRecord(46.8, 2.33722917, 0.0, DATUM_NTF), 450000.0, 2400000.0, 250000, 100, 200,
                       12000, 14000),
        ReferenceSheet("lambertfr_3", MAP_LAMBERTFR, MapLambertFrParams{3, 430000.0, 3310000.0},
                       GeodezRecord(44.1, 2.33722917, 0.0, DATUM_NTF), 430000.0, 3310000.0, 250000, 0, 0,
                       17000, 10500),
        ReferenceSheet("mercator_bight", MAP_MERCATOR, MapMercatorParams{54.0, {}}, GeodezRecord(54.0, 7.0),
                       459030.416279, 4203397.205662, 100000, 4000, 6000, 11000, 12000),
        ReferenceSheet("mercator_cape", MAP_MERCATOR, MapMercatorParams{-34.0, {}}, GeodezRecord(-34.0, 18.0),
                       1662926.149897, -3323700.717766, 300000, 2000, 4000, 8500, 12500),
        ReferenceSheet("azyl_vienna", MAP_AZYL, MapAzylParams{48.0, {}}, GeodezRecord(48.0, 16.0), 0.0, 0.0,
                       50000, 5000, 5000, 12000, 15000),
        ReferenceSheet("azyl_dakar", MAP_AZYL, MapAzylParams{15.0, {}}, GeodezRecord(14.7, -17.4), 0.0, 0.0,
                       200000, 500, 3000, 3500, 6500),
        ReferenceSheet("vdg_world", MAP_VAN_DER_GRINTEN, MapVdgParams{0.0, 0.0}, GeodezRecord(0.0, 0.0), 0.0,
                       0.0, 100000000, 2000, 1500, 3600, 2800),
        ReferenceSheet("vdg_pacific", MAP_VAN_DER_GRINTEN, MapVdgParams{150.0, 0.0},
                       GeodezRecord(20.0, 170.0), 2198467.033764, 2257634.631572, 50000000, 1000, 2000, 2000,
                       3500),
        ReferenceSheet("wagner_world", MAP_WAGNER_IV, MapWagnerIvParams{0.0, 1.0, 1.0},
                       GeodezRecord(0.0, 0.0, 0.0, DATUM_SPHERE), 0.0, 0.0, 100000000, 1750, 860, 3500, 1720),
        asia,
    };
}

inline std::vector<Sheet> AllSheets() {
    std::vector<Sheet> sheets = GridSheets();
    for (const std::vector<Sheet>& more : {PolarSheets(), ProjectionSheets()})
        sheets.insert(sheets.end(), more.begin(), more.end());
    return sheets;
}

}  // namespace tessara::testing
