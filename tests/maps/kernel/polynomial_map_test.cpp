#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/maps.h"
#include "support/reference_file.h"

namespace tessara::testing::polynomial_map_test {
namespace {

constexpr double DEGREES = 1e-12;

// Latitude 50 - 0.001 row, longitude 10 + 0.001 column, and their inverse, whose column is falsified by
// `slope` and `offset`: column = slope * (true column) + offset.
MapPolynomParams Linear(double slope, double offset) {
    MapPolynomParams params{};
    params.order = 3;
    params.latFromPixel[0] = 50.0;
    params.latFromPixel[2] = -0.001;
    params.lonFromPixel[0] = 10.0;
    params.lonFromPixel[1] = 0.001;
    params.pixelXFromWorld[0] = -10000.0 * slope + offset;
    params.pixelXFromWorld[1] = 1000.0 * slope;
    params.pixelYFromWorld[0] = 50000.0;
    params.pixelYFromWorld[2] = -1000.0;
    return params;
}

double ColumnReached(double slope, double offset, double column) {
    const WorldResult world = ToWorld(Map(MAP_POLYNOM, Linear(slope, offset)), column, 0.0);
    EXPECT_EQ(world.status, KOORD_OK);
    EXPECT_NEAR(world.Degrees().latitude, 50.0, DEGREES);
    EXPECT_EQ(world.Degrees().height, 0.0);
    return (world.Degrees().longitude - 10.0) * 1000.0;
}

// The twelve figures of each order by hand, at column 2 and row 3.
TEST(PolynomialMap, EvaluatesTheFirstCoefficientsOnly) {
    // 1 + 2*2 + 3*3 = 14; + 4*6 = 38; + 5*4 + 6*9 = 112; + 7*12 + 8*18 + 9*8 + 10*27 = 682.
    const struct {
        std::uint32_t order;
        double value;
    } rows[] = {{3, 14.0}, {4, 38.0}, {6, 112.0}, {10, 682.0}};
    for (const auto& row : rows) {
        MapPolynomParams params{};
        params.order = row.order;
        for (int i = 0; i < 10; ++i) {
            params.pixelXFromWorld[i] = i + 1.0;
            params.pixelYFromWorld[i] = -(i + 1.0);
        }
        // Longitude comes before latitude.
        const PixelResult pixel = ToPixel(Map(MAP_POLYNOM, params), GeodezRecord(3.0, 2.0));
        EXPECT_EQ(pixel.status, KOORD_OK);
        EXPECT_NEAR(pixel.x, row.value, 1e-12) << row.order;
        EXPECT_NEAR(pixel.y, -row.value, 1e-12) << row.order;
    }
}

TEST(PolynomialMap, ReadsPositionsFromColumnAndRow) {
    for (std::uint32_t order : {3u, 4u, 6u, 10u}) {
        MapPolynomParams params = Linear(1.0, 0.0);
        params.order = order;
        const GeodezPayload at = ToWorld(Map(MAP_POLYNOM, params), 250.0, 500.0).Degrees();
        EXPECT_NEAR(at.latitude, 49.5, DEGREES);
        EXPECT_NEAR(at.longitude, 10.25, DEGREES);
    }
}

// A sheet that is turned and sheared, with the exact inverse: lon = 10 + (3 x + y) / 1000,
// lat = 50 + (x - 2 y) / 1000, and so x = (2 lon' + lat') / 7, y = (lon' - 3 lat') / 7 with lon', lat' the
// thousandfold offsets.
TEST(PolynomialMap, ComesBackToThePixelWithExactInverses) {
    MapPolynomParams params{};
    params.order = 3;
    const double lon[] = {10.0, 0.003, 0.001};
    const double lat[] = {50.0, 0.001, -0.002};
    const double x[] = {-(20000.0 + 50000.0) / 7.0, 2000.0 / 7.0, 1000.0 / 7.0};
    const double y[] = {-(10000.0 - 150000.0) / 7.0, 1000.0 / 7.0, -3000.0 / 7.0};
    for (int i = 0; i < 3; ++i) {
        params.lonFromPixel[i] = lon[i];
        params.latFromPixel[i] = lat[i];
        params.pixelXFromWorld[i] = x[i];
        params.pixelYFromWorld[i] = y[i];
    }
    const MapParam map = Map(MAP_POLYNOM, params);
    for (double column = 0.0; column <= 4000.0; column += 500.0) {
        for (double row = 0.0; row <= 4000.0; row += 500.0) {
            const PixelResult pixel = ToPixel(map, ToWorld(map, column, row).world);
            EXPECT_NEAR(pixel.x, column, 1e-7);  // degrees of 1e-14 by a thousand, at 1e4
            EXPECT_NEAR(pixel.y, row, 1e-7);
        }
    }
}

// Two sheets as a scanner gives them.
struct PolynomialSheet {
    const char* name;
    std::uint32_t order;
    std::int32_t size;  // columns and rows
    double pixels;      // how far the fit is off
    double degrees;     // the same on the ground
};

constexpr PolynomialSheet SHEETS[] = {{"munich", 10, 8000, 1e-5, 1e-9}, {"rio", 6, 4000, 2e-3, 1e-7}};

std::vector<ReferenceRow> RowsOf(const PolynomialSheet& sheet, bool arePositions) {
    std::vector<ReferenceRow> rows = ReadReferenceFile("maps/polynomial_sheets.txt");
    std::erase_if(rows, [&](const ReferenceRow& row) {
        return row.Text(0) != sheet.name || (row.Text(1) == "position") != arePositions;
    });
    EXPECT_GE(rows.size(), 4u);
    return rows;
}

MapParam MapOf(const PolynomialSheet& sheet) {
    MapPolynomParams params{};
    params.order = sheet.order;
    const struct {
        const char* name;
        double* table;
    } tables[] = {{"latFromPixel", params.latFromPixel},
                  {"lonFromPixel", params.lonFromPixel},
                  {"pixelXFromWorld", params.pixelXFromWorld},
                  {"pixelYFromWorld", params.pixelYFromWorld}};
    for (const ReferenceRow& row : RowsOf(sheet, false)) {
        for (const auto& [name, table] : tables) {
            if (row.Text(1) != name) continue;
            for (std::uint32_t i = 0; i < sheet.order; ++i)
                table[i] = row.Number(2 + i);
        }
    }
    return Map(MAP_POLYNOM, params);
}

TEST(PolynomialMap, MeetsThePositionsOfScannedSheets) {
    for (const PolynomialSheet& sheet : SHEETS) {
        const MapParam map = MapOf(sheet);
        for (const ReferenceRow& row : RowsOf(sheet, true)) {
            const PixelResult pixel = ToPixel(map, GeodezRecord(row.Number(2), row.Number(3)));
            EXPECT_NEAR(pixel.x, row.Number(4), sheet.pixels) << row.place;
            EXPECT_NEAR(pixel.y, row.Number(5), sheet.pixels) << row.place;
            const GeodezPayload at = ToWorld(map, row.Number(4), row.Number(5)).Degrees();
            EXPECT_NEAR(at.latitude, row.Number(2), sheet.degrees) << row.place;
            EXPECT_NEAR(at.longitude, row.Number(3), sheet.degrees) << row.place;
        }
    }
}

TEST(PolynomialMap, ComesBackToThePixelOfAScannedSheetAsWellAsItWasFitted) {
    for (const PolynomialSheet& sheet : SHEETS) {
        const MapParam map = MapOf(sheet);
        for (std::int32_t column = 0; column <= sheet.size; column += sheet.size / 20) {
            for (std::int32_t row = 0; row <= sheet.size; row += sheet.size / 20) {
                const PixelResult pixel = ToPixel(map, ToWorld(map, column, row).world);
                EXPECT_NEAR(pixel.x, column, 2.0 * sheet.pixels) << sheet.name << " " << row;
                EXPECT_NEAR(pixel.y, row, 2.0 * sheet.pixels) << sheet.name << " " << column;
            }
        }
    }
}

TEST(PolynomialMap, DoesNotRefineWhatAgreesWithinATenth) {
    // Columns, some units of the last place of the degrees.
    EXPECT_NEAR(ColumnReached(1.0, 0.05, 100.0), 100.0, 1e-9);
    EXPECT_NEAR(ColumnReached(1.0, -0.09, 100.0), 100.0, 1e-9);
}

// The error is -1, and each round halves it: 0.5, 0.25, 0.125 and 0.0625 of a pixel are taken off.
TEST(PolynomialMap, RefinesUntilThePixelIsMetWithinATenth) {
    EXPECT_NEAR(ColumnReached(1.0, 1.0, 100.0), 99.0625, 1e-9);
}

// Position and pixel are the same but for an offset of the way back.
MapParam ShiftedByColumns(double offset, double slope) {
    MapPolynomParams params{};
    params.order = 3;
    params.lonFromPixel[1] = 1.0;
    params.latFromPixel[2] = 1.0;
    params.pixelXFromWorld[0] = offset;
    params.pixelXFromWorld[1] = slope;
    params.pixelYFromWorld[2] = 1.0;
    return Map(MAP_POLYNOM, params);
}

// Column 0 leads back to 0.1 at any longitude: refining would move the longitude round by round.
TEST(PolynomialMap, DoesNotRefineAnErrorOfExactlyATenth) {
    for (double tenth : {0.1, -0.1})
        EXPECT_EQ(ToWorld(ShiftedByColumns(tenth, 0.0), 0.0, 0.0).Degrees().longitude, 0.0);
}

// Column 0 leads to 0.2; the first round's -0.1 leads to exactly 0.1, the second's -0.15 to 0.05.
TEST(PolynomialMap, RefinesOnAtAnErrorOfExactlyATenth) {
    EXPECT_NEAR(ToWorld(ShiftedByColumns(0.2, 1.0), 0.0, 0.0).Degrees().longitude, -0.15, DEGREES);
}

// The same for rows, of which row 0 leads back to 0.1 or 0.2.
TEST(PolynomialMap, RefinesRowsAsColumns) {
    const auto shiftedByRows = [](double offset, double slope) {
        MapParam map = ShiftedByColumns(0.0, 1.0);
        auto params = Load<MapPolynomParams>(map);
        params.pixelYFromWorld[0] = offset;
        params.pixelYFromWorld[2] = slope;
        Store(map, params);
        return map;
    };
    for (double tenth : {0.1, -0.1})
        EXPECT_EQ(ToWorld(shiftedByRows(tenth, 0.0), 0.0, 0.0).Degrees().latitude, 0.0);
    EXPECT_NEAR(ToWorld(shiftedByRows(0.2, 1.0), 0.0, 0.0).Degrees().latitude, -0.15, DEGREES);
}

// Pixel (0, 0) is off by (-10, 3). With the inverse x = lon - 6 lat - 10, y = lat + 3 the error of round n
// is (18 n - 10, 3) / 2^n: 10.4, then 4.3, up again to 6.5, and below a tenth in round 11. There lat =
// 3/2048 - 3 and lon = 188/2048 + 10 + 6 lat.
TEST(PolynomialMap, RefinesOnWhileTheErrorIsNotAboveTheFirst) {
    MapParam map = ShiftedByColumns(-10.0, 1.0);
    auto params = Load<MapPolynomParams>(map);
    params.pixelXFromWorld[2] = -6.0;
    params.pixelYFromWorld[0] = 3.0;
    Store(map, params);
    const GeodezPayload at = ToWorld(map, 0.0, 0.0).Degrees();
    EXPECT_NEAR(at.latitude, 3.0 / 2048.0 - 3.0, DEGREES);
    EXPECT_NEAR(at.longitude, 206.0 / 2048.0 - 8.0, DEGREES);
}

// With a slope of 5 the error is -1.5 times as large after a round: the plain value stands.
TEST(PolynomialMap, KeepsThePlainValueWhereRefiningMakesItWorse) {
    EXPECT_NEAR(ColumnReached(5.0, -500.0, 100.0), 100.0, 1e-9);
}

// With a slope of s the error of a round is (1 - s/2) times the one before, and the value moves by half of
// the error before. From an error of 100 at s = 3.99: after 50 rounds 100 + 50 (1 - f^50) / (1 - f), f =
// -0.995.
TEST(PolynomialMap, EndsAfterFiftyRoundsWithTheLastValue) {
    const double f = -0.995;
    const double expected = 100.0 + 50.0 * (1.0 - std::pow(f, 50)) / (1.0 - f);
    EXPECT_NEAR(ColumnReached(3.99, -399.0, 100.0), expected, 1e-6);
}

TEST(PolynomialMap, AnOrderThatDoesNotExistHasNoPixelsAndNoPositions) {
    for (std::uint32_t order : {0u, 1u, 2u, 5u, 7u, 9u, 11u, 0xFFFFFFFFu}) {
        MapPolynomParams params = Linear(1.0, 0.0);
        params.order = order;
        const MapParam map = Map(MAP_POLYNOM, params);
        EXPECT_EQ(ToPixel(map, GeodezRecord(50.0, 10.0)).status, KOORD_ERR_POLYNOM_ORDER) << order;
        EXPECT_EQ(ToWorld(map, 0.0, 0.0).status, KOORD_ERR_TYPE) << order;
    }
}

TEST(PolynomialMap, EndsOnCoefficientsThatAreNoNumbers) {
    for (double bad : {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()}) {
        MapPolynomParams params = Linear(1.0, 0.0);
        params.pixelXFromWorld[0] = bad;
        EXPECT_EQ(ToWorld(Map(MAP_POLYNOM, params), 1.0, 2.0).status, KOORD_OK);
        params.lonFromPixel[0] = bad;
        EXPECT_EQ(ToWorld(Map(MAP_POLYNOM, params), 1.0, 2.0).status, KOORD_OK);
    }
}

}  // namespace
}  // namespace tessara::testing::polynomial_map_test
