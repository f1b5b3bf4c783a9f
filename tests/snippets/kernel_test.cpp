// The examples in the headers of the kernel, and what they say of other libraries.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <string>

#include "snippets/header_example.h"
#include "snippets/munich.h"
#include "support/records.h"
#include "tessara/kernel.h"

namespace tessara {
namespace {

using testing::HALF_MILLIMETRE;
using testing::HeaderExample;
using testing::MUNICH_EASTING;
using testing::MUNICH_NORTHING;

TEST_F(HeaderExample, Names) {
    const char* name = tessara::CoordinateType_Name(2);  // "UTM"

    EXPECT_STREQ(name, "UTM");
    IsDone();
}

TEST_F(HeaderExample, Kernel) {
    tessara::tagKOORD degrees = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_GEODEZ);
    tessara::Store(degrees, tessara::GeodezPayload{48.1375, 11.5755, 520.0});
    tessara::tagKOORD utm = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_UTM);
    const tessara::KoordStatus status = tessara::KoordConvert(&degrees, &utm);  // KOORD_OK

    EXPECT_EQ(status, KOORD_OK);
    EXPECT_NEAR(Load<UtmPayload>(utm).easting, MUNICH_EASTING, HALF_MILLIMETRE);
    IsDone();
}

TEST_F(HeaderExample, Koord) {
    tessara::tagKOORD record = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_GEODEZ);
    tessara::Store(record, tessara::GeodezPayload{48.1375, 11.5755, 520.0});
    const auto position = tessara::Load<tessara::GeodezPayload>(record);
    const double longitude = position.longitude;  // 11.5755

    EXPECT_EQ(longitude, 11.5755);
    IsDone();
}

TEST_F(HeaderExample, Convert) {
    const tagKOORD degrees = GeodezRecord(48.1375, 11.5755);

    tessara::GkPayload natural{};
    natural.wantedMeridian = tessara::NO_WANTED_ZONE;
    tessara::tagKOORD gk = tessara::MakeKoord(3, tessara::KOORD_GK);  // datum 3, GER
    tessara::Store(gk, natural);
    if (tessara::KoordConvert(&degrees, &gk) != tessara::KOORD_OK) return;
    const auto grid = tessara::Load<tessara::GkPayload>(gk);
    // 48.1375 north 11.5755 east on WGS84 is 4468510.9 5333359.7, in strip 4

    // cct, a geocentric translation by -604, -21, -415 m to the Bessel ellipsoid. The library's formulas are
    // of first order: 0.05 m.
    EXPECT_NEAR(grid.easting, 4468510.860, 0.05);
    EXPECT_NEAR(grid.northing, 5333359.715, 0.05);
    IsDone();
}

TEST_F(HeaderExample, Datum) {
    const char* name = tessara::Datum_Name(tessara::DATUM_WGS84);         // "WGS84"
    const double a = tessara::Datum_SemiMajorAxis(tessara::DATUM_WGS84);  // 6378137

    EXPECT_STREQ(name, "WGS84");
    EXPECT_EQ(a, 6378137.0);
    IsDone();
}

TEST_F(HeaderExample, Geodesic) {
    double axes[2];
    tessara::Geodesic_LoadAxes(axes, tessara::DATUM_WGS84);
    const tessara::GeodesicResult way =
        tessara::Geodesic_InverseCore(40.64, -73.78, 51.47, -0.45, axes[0], axes[1]);
    // way.distance 5555408.658 m, way.azimuth12 51.379

    // GeodSolve -i: 51.37923282 107.98534815 5555408.658207
    EXPECT_NEAR(way.distance, 5555408.658207, 0.001);
    EXPECT_NEAR(way.azimuth12, 51.37923282, 1e-8);
    IsDone();
}

TEST_F(HeaderExample, GeodesicColumns) {
    double axes[2];
    tessara::Geodesic_LoadAxes(axes, tessara::DATUM_WGS84);
    const double latitudes[] = {40.64, 51.47, 35.55};  // New York, London, Tokyo
    const double longitudes[] = {-73.78, -0.45, 139.78};
    double distances[2];
    constexpr std::ptrdiff_t stride = sizeof(double);
    tessara::GeodesicInverseColumns legs;
    legs.latitude1 = {latitudes, stride};
    legs.longitude1 = {longitudes, stride};
    legs.latitude2 = {latitudes + 1, stride};
    legs.longitude2 = {longitudes + 1, stride};
    legs.distance = {distances, stride};
    tessara::Geodesic_InverseColumns(&legs, 2, axes[0], axes[1]);  // 5555409 m and 9614945 m

    // GeographicLib finds 5555408.6582 and 9614945.1195.
    EXPECT_NEAR(distances[0], 5555408.6582, 1e-3);
    EXPECT_NEAR(distances[1], 9614945.1195, 1e-3);
    IsDone();
}

TEST_F(HeaderExample, Map) {
    const tagKOORD degrees = GeodezRecord(48.1375, 11.5755);

    tessara::MapParam map;
    map.type = tessara::MAP_DD;
    map.datum = tessara::DATUM_WGS84;
    tessara::Store(map, tessara::MapDdParams{10.0, 50.0, 100.0, 100.0});
    tessara::tagKOORD pixel = tessara::MakeKoord(tessara::DATUM_WGS84, tessara::KOORD_FLOATPIXEL);
    if (tessara::MapWorldToPixel(&map, &degrees, &pixel) != tessara::KOORD_OK) return;
    const auto [x, y] = tessara::Load<tessara::FloatPixelPayload>(pixel);
    // 48.1375 north 11.5755 east is 157.55 186.25

    EXPECT_NEAR(x, 157.55, 1e-9);
    EXPECT_NEAR(y, 186.25, 1e-9);
    IsDone();
}

TEST_F(HeaderExample, TransverseMercator) {
    tessara::TmConstants forward;
    if (tessara::TM_LoadForwardConstants(tessara::DATUM_WGS84, &forward) != tessara::KOORD_OK) return;
    const double lon = (11.5755 - 9.0) * tessara::RADIANS_PER_DEGREE;
    const double lat = 48.1375 * tessara::RADIANS_PER_DEGREE;
    double easting = 0.0, northing = 0.0;
    tessara::TM_Forward(lon, lat, 0.9996, 500000.0, 0.0, &easting, &northing, &forward);
    // 691602.660 5334791.145

    EXPECT_NEAR(easting, MUNICH_EASTING, HALF_MILLIMETRE);
    EXPECT_NEAR(northing, MUNICH_NORTHING, HALF_MILLIMETRE);
    IsDone();
}

struct UtmrefExample {
    double latitude, longitude;
    const char* text;
};

// Elsewhere, by GeoConvert -m -p 0: 32UPU9160234791, 31TBE4390032069, 32MNS0000015702.
TEST(UtmrefHeader, RoundsAndChoosesZonesAndBandsAsItSays) {
    const UtmrefExample examples[] = {
        {48.1375, 11.5755, "32UPU 91603 34791"},  // GeoConvert -u: 691602.660 5334791.145
        {40.0, 0.0, "30SYK 56100 32069"},         // easting 10^6 - 243900.352 m, that of 31T mirrored
        {-8.0, 9.0, "32LNS 00000 15702"},
    };
    for (const UtmrefExample& example : examples) {
        tagKOORD record = MakeKoord(DATUM_WGS84, KOORD_UTMREF);
        const tagKOORD degrees = GeodezRecord(example.latitude, example.longitude);
        ASSERT_EQ(KoordConvert(&degrees, &record), KOORD_OK);
        const auto utmref = Load<UtmrefPayload>(record);
        char text[32];
        std::snprintf(text, sizeof text, "%d%c%c%c %05d %05d", utmref.zone, utmref.band, utmref.column,
                      utmref.row, utmref.easting, utmref.northing);
        EXPECT_STREQ(text, example.text);
    }
}

TEST(ZoneSystemsHeader, BordersBelongToTheZonesItNames) {
    const std::array<std::array<int, 2>, 5> borders{{{-180, 60}, {-6, 29}, {0, 30}, {6, 32}, {180, 1}}};
    for (const auto& [longitude, zone] : borders) {
        tagKOORD utm = MakeKoord(DATUM_WGS84, KOORD_UTM);
        const tagKOORD degrees = GeodezRecord(40.0, longitude);
        ASSERT_EQ(KoordConvert(&degrees, &utm), KOORD_OK);
        EXPECT_EQ(Load<UtmPayload>(utm).zone, zone) << longitude;
    }
}

// 76.4291704 west is 34.249776 minutes east of 77 west, 38.286108 north 17.16648 minutes north of 38.
TEST(GeorefHeader, RoundsAndBordersAsItSays) {
    const double place[2] = {38.286108, -76.4291704};
    GeorefPayload georef{};
    georef.precision = 5;
    ASSERT_EQ(GEOREF_FromGeodetic(place, &georef), KOORD_OK);
    EXPECT_EQ((std::string{georef.lonZone, georef.latZone, georef.lonDegree, georef.latDegree}), "GJPJ");
    EXPECT_EQ(georef.lonMinutes, 3425);
    EXPECT_EQ(georef.latMinutes, 1717);

    // Cells of 15 degrees from 180 west and 90 south: the 12th and the 6th letter; 9 degrees east and 7 north
    // of their corner, the 10th and the 8th letter.
    const double border[2] = {-8.0, -6.0};
    ASSERT_EQ(GEOREF_FromGeodetic(border, &georef), KOORD_OK);
    EXPECT_EQ((std::string{georef.lonZone, georef.latZone, georef.lonDegree, georef.latDegree}), "MFKH");
    EXPECT_EQ(georef.lonMinutes, 0);
    EXPECT_EQ(georef.latMinutes, 0);

    const double dateLine[2] = {0.0, 180.0}, pole[2] = {90.0, 0.0};
    EXPECT_EQ(GEOREF_FromGeodetic(dateLine, &georef), KOORD_ERR_OUTSIDE);
    EXPECT_EQ(GEOREF_FromGeodetic(pole, &georef), KOORD_ERR_OUTSIDE);
}

}  // namespace
}  // namespace tessara
