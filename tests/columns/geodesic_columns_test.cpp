#include "columns/geodesic_columns.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "numerics/special_values.h"
#include "support/any_doubles.h"
#include "support/instruction_sets.h"
#include "support/random.h"
#include "support/setting.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

using testing::AreSame;
using testing::Random;
using Doubles = std::vector<double>;

constexpr std::ptrdiff_t STRIDE = sizeof(double);

struct Ends {
    double latitude1, longitude1, latitude2, longitude2;  // degrees
};

struct Ray {
    double latitude, longitude, distance, azimuth;
};

Ends Ordinary(Random& random) {
    return {random.Between(-90.0, 90.0), random.Between(-180.0, 180.0), random.Between(-90.0, 90.0),
            random.Between(-180.0, 180.0)};
}

Ends Near(Random& random) {
    const Ends ends = Ordinary(random);
    const double away = testing::AnySize(random, 1e-12, 1.0);
    return {ends.latitude1, ends.longitude1, ends.latitude1 + away * random.Between(-1.0, 1.0),
            ends.longitude1 + away * random.Between(-1.0, 1.0)};
}

Ends Antipodal(Random& random) {
    const Ends ends = Ordinary(random);
    const double away = random.Below(3) == 0 ? 0.0 : testing::AnySize(random, 1e-6, 3.0);
    return {ends.latitude1, ends.longitude1, -ends.latitude1 + away,
            ends.longitude1 + 180.0 + away * random.Between(-1.0, 1.0)};
}

// On poles, the equator and meridians, coincident, and whole turns apart.
Ends Special(Random& random) {
    constexpr double latitudes[] = {90.0, -90.0, 0.0, -0.0, 45.0, 1e-200, 1e-310};
    constexpr double longitudes[] = {0.0, -0.0, 90.0, 180.0, -180.0, 360.0, 720.0, 1e-200, 11.0};
    return {random.OneOf(latitudes), random.OneOf(longitudes), random.OneOf(latitudes),
            random.OneOf(longitudes)};
}

double Garbage(Random& random) {
    constexpr double garbage[] = {NOT_A_NUMBER, INFINITE, -INFINITE, 1e300, -1e6, 1e-320};
    return random.Below(2) == 0 ? random.OneOf(garbage) : testing::AnyFinite(random);
}

Ends Damaged(Random& random) {
    Ends ends = Ordinary(random);
    double* const values[] = {&ends.latitude1, &ends.longitude1, &ends.latitude2, &ends.longitude2};
    *random.OneOf(values) = Garbage(random);
    return ends;
}

using Make = Ends (*)(Random&);
constexpr Make MAKES[] = {Ordinary, Near, Antipodal, Special, Damaged};

// Blocks of one kind, blocks of all, and blocks of ordinary ones with few others.
std::vector<Ends> MixedEnds(Random& random, std::size_t count) {
    std::vector<Ends> all;
    while (all.size() < count) {
        const Make one = random.OneOf(MAKES);
        const std::int32_t mixing = random.Below(3);
        for (int i = 0; i < 200; ++i) {
            const bool isOther = mixing == 1 || (mixing == 2 && random.Below(50) == 0);
            const Make usual = mixing == 2 ? Ordinary : one;
            all.push_back((isOther ? random.OneOf(MAKES) : usual)(random));
        }
    }
    all.resize(count);
    return all;
}

std::vector<Ray> MixedRays(Random& random, std::size_t count) {
    std::vector<Ray> all;
    for (const Ends& ends : MixedEnds(random, count)) {
        const bool isShort = random.Below(2) == 0;
        const double distance = isShort ? testing::AnySize(random, 1e-6, 1e6) : random.Between(-1e7, 4e7);
        Ray ray{ends.latitude1, ends.longitude1, distance, random.Between(-180.0, 720.0)};
        constexpr double azimuths[] = {0.0, -0.0, 90.0, 180.0, 270.0, 360.0};
        if (random.Below(8) == 0) ray.azimuth = random.OneOf(azimuths);
        if (random.Below(16) == 0) ray.distance = random.Below(2) == 0 ? 0.0 : Garbage(random);
        if (random.Below(64) == 0) ray.azimuth = Garbage(random);
        all.push_back(ray);
    }
    return all;
}

struct Axes {
    explicit Axes(std::int32_t datum) { Geodesic_LoadAxes(values, datum); }
    double values[2];
};

// Results side by side, as records of the caller.
using Results = std::vector<GeodesicResult>;

template <class Row>
SourceColumn Column(const std::vector<Row>& rows, double Row::*field) {
    return {&(rows.front().*field), sizeof(Row)};
}

TargetColumn Column(Results& rows, double GeodesicResult::*field) {
    return {&(rows.front().*field), sizeof(GeodesicResult)};
}

GeodesicInverseColumns ColumnsOf(const std::vector<Ends>& ends, Results& results) {
    return {Column(ends, &Ends::latitude1),
            Column(ends, &Ends::longitude1),
            Column(ends, &Ends::latitude2),
            Column(ends, &Ends::longitude2),
            Column(results, &GeodesicResult::distance),
            Column(results, &GeodesicResult::azimuth12),
            Column(results, &GeodesicResult::azimuth21)};
}

GeodesicDirectColumns ColumnsOf(const std::vector<Ray>& rays, Results& results) {
    return {Column(rays, &Ray::latitude),
            Column(rays, &Ray::longitude),
            Column(rays, &Ray::distance),
            Column(rays, &Ray::azimuth),
            Column(results, &GeodesicResult::latitude),
            Column(results, &GeodesicResult::longitude),
            Column(results, &GeodesicResult::backAzimuth)};
}

void ExpectTheSame(const Results& columns, const Results& single) {
    for (std::size_t i = 0; i < single.size(); ++i) {
        ASSERT_TRUE(AreSame(columns[i].distance, single[i].distance) &&
                    AreSame(columns[i].azimuth12, single[i].azimuth12) &&
                    AreSame(columns[i].azimuth21, single[i].azimuth21))
            << i << ": " << columns[i].distance << ' ' << single[i].distance;
    }
}

Results SolvedOneByOne(const std::vector<Ends>& ends, const Axes& axes) {
    Results results;
    for (const Ends& e : ends) {
        results.push_back(Geodesic_InverseCore(e.latitude1, e.longitude1, e.latitude2, e.longitude2,
                                               axes.values[0], axes.values[1]));
    }
    return results;
}

Results SolvedOneByOne(const std::vector<Ray>& rays, const Axes& axes) {
    Results results;
    for (const Ray& r : rays) {
        results.push_back(Geodesic_DirectCore(r.latitude, r.longitude, r.distance, r.azimuth, axes.values[0],
                                              axes.values[1]));
    }
    return results;
}

// `ctest -C Soak -R equality` sets the variable.
std::size_t RowsWanted() {
    return testing::SizeSetting("TESSARA_EQUALITY_POSITIONS", 5000);
}

// WGS84, Bessel, the sphere, and none.
constexpr std::int32_t DATUMS[] = {DATUM_WGS84, 3, DATUM_SPHERE, -1};

TEST(GeodesicColumnsEquality, DistancesAndAzimuthsAreThoseOfSingleCalls) {
    Random random(61);
    for (const std::int32_t datum : DATUMS) {
        const Axes axes(datum);
        const std::vector<Ends> ends = MixedEnds(random, RowsWanted());
        const Results single = SolvedOneByOne(ends, axes);
        for (const InstructionSet set : testing::SupportedSets()) {
            Results results(ends.size());
            const GeodesicInverseColumns columns = ColumnsOf(ends, results);
            InverseColumns(&columns, ends.size(), axes.values[0], axes.values[1], set);
            SCOPED_TRACE(std::to_string(datum) + " with set " + std::to_string(static_cast<int>(set)));
            ExpectTheSame(results, single);
        }
    }
}

TEST(GeodesicColumnsEquality, EndsAreThoseOfSingleCalls) {
    Random random(62);
    for (const std::int32_t datum : DATUMS) {
        const Axes axes(datum);
        const std::vector<Ray> rays = MixedRays(random, RowsWanted());
        const Results single = SolvedOneByOne(rays, axes);
        for (const InstructionSet set : testing::SupportedSets()) {
            Results results(rays.size());
            const GeodesicDirectColumns columns = ColumnsOf(rays, results);
            DirectColumns(&columns, rays.size(), axes.values[0], axes.values[1], set);
            SCOPED_TRACE(std::to_string(datum) + " with set " + std::to_string(static_cast<int>(set)));
            ExpectTheSame(results, single);
        }
    }
}

TEST(GeodesicColumnsEquality, HoldsForAnyNumberOfRows) {
    Random random(63);
    const Axes axes(DATUM_WGS84);
    for (std::size_t count = 1; count < 300; count += 1 + count / 20) {
        const std::vector<Ends> ends = MixedEnds(random, count);
        const std::vector<Ray> rays = MixedRays(random, count);
        Results ways(count), points(count);
        const GeodesicInverseColumns inverse = ColumnsOf(ends, ways);
        const GeodesicDirectColumns direct = ColumnsOf(rays, points);
        Geodesic_InverseColumns(&inverse, count, axes.values[0], axes.values[1]);
        Geodesic_DirectColumns(&direct, count, axes.values[0], axes.values[1]);
        SCOPED_TRACE(count);
        ExpectTheSame(ways, SolvedOneByOne(ends, axes));
        ExpectTheSame(points, SolvedOneByOne(rays, axes));
    }
}

// From one place to many, into the columns that the positions came in.
TEST(GeodesicColumns, MayHaveOneValueForAllRowsAndOverwriteTheirSources) {
    const Axes axes(DATUM_WGS84);
    const double home[] = {48.1375, 11.5755};
    Doubles latitudes, longitudes, azimuths(300);
    for (int i = 0; i < 300; ++i) {
        latitudes.push_back(-60.0 + 0.4 * i);
        longitudes.push_back(-150.0 + i);
    }
    const Doubles latitudesBefore = latitudes, longitudesBefore = longitudes;
    GeodesicInverseColumns columns;
    columns.latitude1 = {&home[0], 0};
    columns.longitude1 = {&home[1], 0};
    columns.latitude2 = {latitudes.data(), STRIDE};
    columns.longitude2 = {longitudes.data(), STRIDE};
    columns.distance = {latitudes.data(), STRIDE};
    columns.azimuth12 = {longitudes.data(), STRIDE};
    columns.azimuth21 = {azimuths.data() + 299, -STRIDE};
    EXPECT_EQ(Geodesic_InverseColumns(&columns, 300, axes.values[0], axes.values[1]), KOORD_OK);
    for (std::size_t i = 0; i < 300; ++i) {
        const GeodesicResult way = Geodesic_InverseCore(home[0], home[1], latitudesBefore[i],
                                                        longitudesBefore[i], axes.values[0], axes.values[1]);
        EXPECT_EQ(latitudes[i], way.distance) << i;
        EXPECT_EQ(longitudes[i], way.azimuth12) << i;
        EXPECT_EQ(azimuths[299 - i], way.azimuth21) << i;
    }
}

TEST(GeodesicColumns, ReportARowWithoutASolution) {
    const Axes axes(DATUM_WGS84);
    const Doubles latitudes{48.0, NOT_A_NUMBER, 49.0}, longitudes{11.0, 11.0, 12.0};
    Doubles distances(3);
    GeodesicInverseColumns columns;
    columns.latitude1 = {latitudes.data(), STRIDE};
    columns.longitude1 = {longitudes.data(), STRIDE};
    columns.latitude2 = {&latitudes[2], 0};
    columns.longitude2 = {&longitudes[2], 0};
    columns.distance = {distances.data(), STRIDE};
    EXPECT_EQ(Geodesic_InverseColumns(&columns, 3, axes.values[0], axes.values[1]), GEODESIC_NO_SOLUTION);
    EXPECT_GT(distances[0], 0.0);
    EXPECT_LT(distances[1], 0.0);
    EXPECT_EQ(distances[2], 0.0);
    EXPECT_EQ(Geodesic_InverseColumns(&columns, 1, axes.values[0], axes.values[1]), KOORD_OK);
    columns.latitude1 = {&latitudes[2], STRIDE};
    columns.longitude1 = {&longitudes[2], STRIDE};
    EXPECT_EQ(Geodesic_InverseColumns(&columns, 1, axes.values[0], axes.values[1]), KOORD_OK)
        << "no way at all";
}

TEST(GeodesicColumns, WithoutAColumnOfTheProblemWriteNothing) {
    const Axes axes(DATUM_WGS84);
    const double value = 1.0;
    double result = 7.0;
    GeodesicInverseColumns inverse{{&value, 0}, {&value, 0}, {&value, 0}, {}, {&result, 0}, {}, {}};
    GeodesicDirectColumns direct{{&value, 0}, {&value, 0}, {}, {&value, 0}, {&result, 0}, {}, {}};
    EXPECT_EQ(Geodesic_InverseColumns(&inverse, 1, axes.values[0], axes.values[1]), KOORD_ERR_GENERAL);
    EXPECT_EQ(Geodesic_DirectColumns(&direct, 1, axes.values[0], axes.values[1]), KOORD_ERR_GENERAL);
    EXPECT_EQ(Geodesic_InverseColumns(nullptr, 1, axes.values[0], axes.values[1]), KOORD_ERR_GENERAL);
    EXPECT_EQ(Geodesic_DirectColumns(nullptr, 1, axes.values[0], axes.values[1]), KOORD_ERR_GENERAL);
    EXPECT_EQ(result, 7.0);
}

}  // namespace
}  // namespace tessara
