#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>

#include "support/reference_file.h"
#include "tessara/kernel/datum.h"

namespace tessara::datum_rows_test {
namespace {

using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::ReferenceRow;

TEST(DatumTable, HoldsEachDatumAtItsNumber) {
    const auto rows = ReadReferenceFile("kernel/datums.txt");
    ASSERT_EQ(rows.size(), 239u);
    for (const ReferenceRow& expected : rows) {
        SCOPED_TRACE(expected.place);
        const auto number = static_cast<std::int32_t>(expected.Number(0));
        const DatumRow* row = Datum_Row(number);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->id, static_cast<std::uint32_t>(number));
        EXPECT_EQ(row->name, expected.Text(1));
        EXPECT_EQ(Datum_Name(number), row->name);
        EXPECT_EQ(row->ellipsoid, expected.Number(2));
        EXPECT_EQ(row->dx, expected.Number(3));
        EXPECT_EQ(row->dy, expected.Number(4));
        EXPECT_EQ(row->dz, expected.Number(5));
    }
}

TEST(DatumTable, HoldsTheTranslationsOfTheRegistries) {
    const auto rows = ReadReferenceFile("kernel/datum_registry.txt");
    ASSERT_EQ(rows.size(), 225u);
    for (const ReferenceRow& expected : rows) {
        SCOPED_TRACE(expected.place);
        const DatumRow* row = Datum_Row(static_cast<std::int32_t>(expected.Number(0)));
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->name, expected.Text(1));
        EXPECT_EQ(row->dx, expected.Number(4));
        EXPECT_EQ(row->dy, expected.Number(5));
        EXPECT_EQ(row->dz, expected.Number(6));
    }
}

TEST(DatumTable, PadsNamesWithZeros) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const DatumRow* row = Datum_Row(datum);
        for (std::size_t i = std::strlen(row->name); i < sizeof row->name; ++i)
            EXPECT_EQ(row->name[i], '\0');
    }
}

struct EllipsoidFigures {
    const char* name;
    double a;                  // metres
    double inverseFlattening;  // 0.0: none
};

// By code, as DMA TR 8350.2 and the registry of PROJ have them. Codes 0 and 16 have no datum.
constexpr EllipsoidFigures ELLIPSOIDS[26] = {
    {"UNKNOWN", 0.0, 0.0},
    {"KUGEL", 6371000.0, 0.0},
    {"INTERNATIONAL", 6378388.0, 297.0},
    {"BESSEL", 6377397.155, 299.1528128},
    {"CLARKE", 6378206.4, 294.9786982},
    {"WGS84", 6378137.0, 298.257223563},
    {"KRASSOVSKY", 6378245.0, 298.3},
    {"AIRY_1830", 6377563.396, 299.3249646},
    {"AUSTRALIAN", 6378160.0, 298.25},
    {"BESSEL_NAMIBIA_1841", 6377483.865, 299.1528128},
    {"CLARKE_1880", 6378249.145, 293.465},
    {"EVEREST_BRUNEI", 6377298.556, 300.8017},
    {"EVEREST_INDIA_1830", 6377276.345, 300.8017},
    {"EVEREST_INDIA_1956", 6377301.243, 300.8017},
    {"EVEREST_PAKISTAN", 6377309.613, 300.8017},
    {"EVEREST_MALAYSIA_1948", 6377304.063, 300.8017},
    {"EVEREST_MALAYSIA_1969", 0.0, 0.0},
    {"GRS_1980", 6378137.0, 298.257222101},
    {"HELMERT_1906", 6378200.0, 298.3},
    {"HOUGH_1960", 6378270.0, 297.0},
    {"INDONESIAN_1974", 6378160.0, 298.247},
    {"MOD_AIRY", 6377340.189, 299.3249646},
    {"MOD_FISCHER_1960", 6378155.0, 298.3},
    {"SOUTH_AMERICAN_1969", 6378160.0, 298.25},
    {"WGS72", 6378135.0, 298.26},
    {nullptr, 6378137.0, 298.257223563},
};

TEST(DatumTable, TakesTheFiguresOfTheEllipsoid) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        SCOPED_TRACE(datum);
        const DatumRow* row = Datum_Row(datum);
        ASSERT_LT(row->ellipsoid, 26u);
        const EllipsoidFigures& figures = ELLIPSOIDS[row->ellipsoid];
        const double f = figures.inverseFlattening == 0.0 ? 0.0 : 1.0 / figures.inverseFlattening;
        EXPECT_EQ(row->a, figures.a);
        EXPECT_EQ(row->f, f);
        EXPECT_EQ(row->e2, 2.0 * f - f * f);
    }
}

TEST(DatumTable, UsesEachEllipsoidWithFigures) {
    bool isUsed[26] = {};
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum)
        isUsed[Datum_Row(datum)->ellipsoid] = true;
    for (int code = 0; code < 26; ++code)
        EXPECT_EQ(isUsed[code], ELLIPSOIDS[code].a != 0.0) << code;
}

TEST(DatumTable, HasNoRowOutsideItsNumbers) {
    for (const std::int32_t datum : {-1, 239, 999, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Datum_Row(datum), nullptr);
        EXPECT_EQ(Datum_Name(datum), nullptr);
    }
}

TEST(EllipsoidName, IsKnownForEachCode) {
    for (std::int32_t code = 0; code < 25; ++code)
        EXPECT_STREQ(Ellipsoid_Name(code), ELLIPSOIDS[code].name);
}

TEST(EllipsoidName, IsNullForTheUserDefinedAndOutsideTheCodes) {
    for (const std::int32_t code : {25, 26, -1, INT32_MIN, INT32_MAX})
        EXPECT_EQ(Ellipsoid_Name(code), nullptr);
}

}  // namespace
}  // namespace tessara::datum_rows_test
