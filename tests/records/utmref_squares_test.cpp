#include "records/utmref_squares.h"

#include <gtest/gtest.h>

#include <map>
#include <set>
#include <tuple>

#include "support/records.h"
#include "support/reference_file.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

constexpr std::string_view BANDS = "CDEFGHJKLMNPQRSTUVWX";
constexpr std::int32_t DATUM_BESSEL = 3;  // lettering scheme AL
constexpr std::int32_t ZONES[] = {1, 2, 3, 31, 32, 33, 60};

using Square = std::tuple<std::int32_t, char, char, char>;  // zone, band, column, row

std::set<Square> OfferedIn(std::int32_t datum, std::int32_t zone) {
    std::set<Square> squares;
    for (const char band : BANDS) {
        for (const char column : utmref::Columns(datum, zone, band)) {
            for (const char row : utmref::Rows(datum, zone, band, column)) {
                EXPECT_TRUE(squares.emplace(zone, band, column, row).second) << zone << band << column << row;
            }
        }
    }
    return squares;
}

TEST(UtmrefSquares, AreThoseOfAnIndependentProgramOnWgs84) {
    std::map<std::pair<std::int32_t, char>, std::string> columns;
    for (const testing::ReferenceRow& row : testing::ReadReferenceFile("text/utmref_squares.txt")) {
        const auto zone = static_cast<std::int32_t>(row.Number(0));
        const char band = row.Text(1)[0];
        const char column = row.Text(2)[0];
        columns[{zone, band}] += column;
        EXPECT_EQ(utmref::Rows(DATUM_WGS84, zone, band, column), row.Text(3)) << row.place;
    }
    EXPECT_EQ(columns.size(), std::size(ZONES) * BANDS.size());
    for (const auto& [square, letters] : columns)
        EXPECT_EQ(utmref::Columns(DATUM_WGS84, square.first, square.second), letters)
            << square.first << square.second;
}

// On Bessel the row letters are ten further on: L instead of A.
TEST(UtmrefSquares, TheLetteringFollowsTheEllipsoidOfTheDatum) {
    EXPECT_EQ(utmref::Columns(DATUM_BESSEL, 32, 'U'), "KLMNPQ");
    EXPECT_EQ(utmref::Rows(DATUM_BESSEL, 32, 'U', 'K'), "JKLMNPQ");
    EXPECT_EQ(utmref::Rows(DATUM_BESSEL, 32, 'U', 'Q'), "JKLMNPQ");
    for (const char column : {'L', 'M', 'N', 'P'})
        EXPECT_EQ(utmref::Rows(DATUM_BESSEL, 32, 'U', column), "JKLMNPQRST");
    for (const char column : std::string("ABCDEFGH"))
        EXPECT_EQ(utmref::Rows(DATUM_BESSEL, 31, 'N', column), "LMNPQRSTU");
}

TEST(UtmrefSquares, NothingExistsOutsideTheTables) {
    for (const char band : {'A', 'B', 'I', 'O', 'Y', 'Z', 'u', '\0', '\xFF'}) {
        EXPECT_EQ(utmref::Columns(DATUM_WGS84, 32, band), "");
        EXPECT_EQ(utmref::Rows(DATUM_WGS84, 32, band, 'M'), "");
    }
    for (const char column : {'A', 'S', 'I', 'm', '\0', 'J'})
        EXPECT_EQ(utmref::Rows(DATUM_WGS84, 32, 'U', column), "") << column;
    for (const std::int32_t datum : {-1, DATUM_COUNT, NO_DATUM, INT32_MIN}) {
        EXPECT_EQ(utmref::Columns(datum, 32, 'U'), "");
        EXPECT_EQ(utmref::Rows(datum, 32, 'U', 'M'), "");
    }
}

// The square in which a position falls when it is written in a zone.
Square SquareOf(double latitude, double longitude, std::int32_t datum, std::int32_t zone) {
    const tagKOORD position = GeodezRecord(latitude, longitude, 0.0, datum);
    UtmrefPayload wanted{};
    wanted.wantedZone = static_cast<std::int16_t>(zone);
    tagKOORD reference = Record(KOORD_UTMREF, wanted, datum);
    EXPECT_EQ(KoordConvert(&position, &reference), KOORD_OK) << latitude << ' ' << longitude;
    const auto p = Load<UtmrefPayload>(reference);
    return {p.zone, p.band, p.column, p.row};
}

// The squares of a lattice of a fifth of a degree, of the edges of bands and zones, and of points just
// inside them.
std::set<Square> FoundByPositions(std::int32_t datum, std::int32_t zone) {
    std::vector<double> latitudes;
    for (int i = 0; i <= 820; ++i)
        latitudes.push_back(std::min(-80.0 + 0.2 * i, 84.0));
    for (int edge = -72; edge <= 72; edge += 8) {
        latitudes.push_back(edge - 1e-5);
        latitudes.push_back(edge + 1e-5);
    }
    std::set<Square> squares;
    for (const double latitude : latitudes) {
        for (int i = -15; i <= 15; ++i)
            squares.insert(SquareOf(latitude, 6.0 * zone - 183.0 + 0.2 * i, datum, zone));
    }
    return squares;
}

TEST(UtmrefSquares, EverySquareThatAPositionFallsInIsOffered) {
    for (const std::int32_t datum : {DATUM_WGS84, DATUM_BESSEL}) {
        for (const std::int32_t zone : ZONES) {
            const std::set<Square> offered = OfferedIn(datum, zone);
            for (const Square& square : FoundByPositions(datum, zone)) {
                const auto [z, band, column, row] = square;
                EXPECT_EQ(offered.count(square), 1u) << datum << ": " << z << band << column << row;
            }
        }
    }
}

TEST(UtmrefSquares, EveryOfferedSquareConvertsAtItsMiddle) {
    for (const std::int32_t datum : {DATUM_WGS84, DATUM_BESSEL}) {
        for (const std::int32_t zone : ZONES) {
            for (const auto& [z, band, column, row] : OfferedIn(datum, zone)) {
                UtmrefPayload middle{};
                middle.wantedZone = NO_WANTED_ZONE;
                middle.zone = static_cast<std::int16_t>(z);
                middle.band = band;
                middle.column = column;
                middle.row = row;
                middle.easting = 50000;
                middle.northing = 50000;
                const tagKOORD source = Record(KOORD_UTMREF, middle, datum);
                tagKOORD position = MakeKoord(datum, KOORD_GEODEZ);
                EXPECT_EQ(KoordConvert(&source, &position), KOORD_OK) << z << band << column << row;
            }
        }
    }
}

TEST(UtmrefSquares, EveryDatumHasThemAndEveryOneIsLettered) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        for (const char band : BANDS) {
            const std::string columns = utmref::Columns(datum, 32, band);
            // From the edge of the band that is nearer the equator a zone is between 116 km (latitude 80) and
            // 668 km (the equator) wide.
            EXPECT_GE(columns.size(), 2u) << datum << band;
            EXPECT_LE(columns.size(), 8u) << datum << band;
            for (const char column : columns)
                EXPECT_NE(utmref::Rows(datum, 32, band, column), "") << datum << band << column;
        }
    }
}

}  // namespace
}  // namespace tessara
