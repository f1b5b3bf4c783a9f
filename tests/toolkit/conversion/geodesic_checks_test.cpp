#include "conversion/geodesic_checks.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace tessara::toolkit {
namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();

TEST(CheckDegrees, AcceptsTheLimits) {
    EXPECT_EQ(CheckDegrees(90.0, 360.0), KOORD_OK);
    EXPECT_EQ(CheckDegrees(-90.0, -360.0), KOORD_OK);
}

TEST(CheckDegrees, NamesTheNumberThatIsNone) {
    for (const double latitude : {90.000001, -90.000001, INFINITE, -INFINITE, NAN_VALUE})
        EXPECT_EQ(CheckDegrees(latitude, 0.0), KOORD_ERR_GEO_LAT);
    for (const double longitude : {360.000001, -360.000001, INFINITE, -INFINITE, NAN_VALUE})
        EXPECT_EQ(CheckDegrees(0.0, longitude), KOORD_ERR_GEO_LON);
    EXPECT_EQ(CheckDegrees(NAN_VALUE, NAN_VALUE), KOORD_ERR_GEO_LAT);
}

TEST(CheckWay, NamesTheNumberOfEitherEnd) {
    EXPECT_EQ(CheckWay(48.0, 11.0, 47.0, 12.0, 1.0), KOORD_OK);
    EXPECT_EQ(CheckWay(91.0, 11.0, 47.0, 12.0, 1.0), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(CheckWay(48.0, 11.0, 47.0, 361.0, 1.0), KOORD_ERR_GEO_LON);
}

TEST(CheckWay, HasNoSolutionWithoutADistance) {
    EXPECT_EQ(CheckWay(48.0, 11.0, 48.0, 11.0, 0.0), KOORD_OK);
    EXPECT_EQ(CheckWay(48.0, 11.0, 47.0, 12.0, -1.0), GEODESIC_NO_SOLUTION);
    EXPECT_EQ(CheckWay(48.0, 11.0, 47.0, 12.0, NAN_VALUE), GEODESIC_NO_SOLUTION);
}

TEST(CheckEnd, BringsTheLongitudeIntoHalfATurn) {
    for (const auto& [longitude, expected] :
         {std::pair{190.0, -170.0}, {-190.0, 170.0}, {180.0, 180.0}, {-180.0, -180.0}, {725.0, 5.0}}) {
        double end = longitude;
        EXPECT_EQ(CheckEnd(48.0, 11.0, 90.0, 1e7, 48.0, &end), KOORD_OK);
        EXPECT_EQ(end, expected);
    }
}

TEST(CheckEnd, HasNoSolutionForNumbersThatAreNotFinite) {
    for (const double wrong : {INFINITE, -INFINITE, NAN_VALUE}) {
        double end = 12.0;
        EXPECT_EQ(CheckEnd(48.0, 11.0, wrong, 1.0, 48.0, &end), GEODESIC_NO_SOLUTION);
        EXPECT_EQ(CheckEnd(48.0, 11.0, 90.0, wrong, 48.0, &end), GEODESIC_NO_SOLUTION);
        EXPECT_EQ(CheckEnd(48.0, 11.0, 90.0, 1.0, wrong, &end), GEODESIC_NO_SOLUTION);
        EXPECT_EQ(end, 12.0);
        end = wrong;
        EXPECT_EQ(CheckEnd(48.0, 11.0, 90.0, 1.0, 48.0, &end), GEODESIC_NO_SOLUTION);
    }
}

TEST(CheckEnd, NamesTheNumberOfTheStart) {
    double end = 12.0;
    EXPECT_EQ(CheckEnd(NAN_VALUE, 11.0, 90.0, 1.0, 48.0, &end), KOORD_ERR_GEO_LAT);
    EXPECT_EQ(CheckEnd(48.0, 400.0, 90.0, 1.0, 48.0, &end), KOORD_ERR_GEO_LON);
}

}  // namespace
}  // namespace tessara::toolkit
