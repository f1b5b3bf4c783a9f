#include "objects/coord_geographic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "support/live_objects.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

class CoordGeographicTest : public testing::BalancedTest {
  protected:
    void ExpectValues(double longitude, double latitude, double height) {
        double gotLongitude = 1e99;
        double gotLatitude = 1e99;
        double gotHeight = 1e99;
        EXPECT_TRUE(geographic->Get(&gotLongitude, &gotLatitude, &gotHeight));
        EXPECT_EQ(gotLongitude, longitude);
        EXPECT_EQ(gotLatitude, latitude);
        EXPECT_EQ(gotHeight, height);
        EXPECT_EQ(geographic->GetLongitude(), longitude);
        EXPECT_EQ(geographic->GetLatitude(), latitude);
        EXPECT_EQ(geographic->GetHeight(), height);
    }

    IRef<ICoordGeographic> geographic{CreateClassCoordGeographic()};
};

TEST_F(CoordGeographicTest, StartsWithZeros) {
    ExpectValues(0.0, 0.0, 0.0);
}

TEST_F(CoordGeographicTest, SetTakesTheLongitudeFirst) {
    EXPECT_TRUE(geographic->Set(1.0, 2.0, 3.0));
    ExpectValues(1.0, 2.0, 3.0);
}

TEST_F(CoordGeographicTest, EachSetterSetsItsOwnValue) {
    EXPECT_TRUE(geographic->SetLatitude(2.0));
    ExpectValues(0.0, 2.0, 0.0);
    EXPECT_TRUE(geographic->SetLongitude(1.0));
    ExpectValues(1.0, 2.0, 0.0);
    EXPECT_TRUE(geographic->SetHeight(3.0));
    ExpectValues(1.0, 2.0, 3.0);
}

TEST_F(CoordGeographicTest, TakesAnything) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(geographic->Set(1e300, -infinity, infinity));
    ExpectValues(1e300, -infinity, infinity);
    EXPECT_TRUE(geographic->SetLatitude(std::numeric_limits<double>::quiet_NaN()));
    EXPECT_TRUE(std::isnan(geographic->GetLatitude()));
}

TEST_F(CoordGeographicTest, GetRefusesNullAndWritesNothing) {
    geographic->Set(1.0, 2.0, 3.0);
    double a = 7.0;
    double b = 8.0;
    EXPECT_FALSE(geographic->Get(nullptr, &a, &b));
    EXPECT_FALSE(geographic->Get(&a, nullptr, &b));
    EXPECT_FALSE(geographic->Get(&a, &b, nullptr));
    EXPECT_EQ(a, 7.0);
    EXPECT_EQ(b, 8.0);
}

}  // namespace
}  // namespace tessara
