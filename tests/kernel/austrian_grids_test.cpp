#include "tessara/kernel/austrian_grids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

#include "numerics/special_values.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/tm_constants.h"
#include "support/tm_grids.h"
#include "tessara/kernel/constants.h"

namespace tessara::austrian_grids_test {
namespace {

using ::tessara::testing::ExpectPosition;
using ::tessara::testing::ForwardConstants;
using ::tessara::testing::Geodetic;
using ::tessara::testing::InverseConstants;
using ::tessara::testing::Random;
using ::tessara::testing::ReadReferenceFile;
using ::tessara::testing::REFERENCE_TOLERANCE;
using ::tessara::testing::ReferenceRow;
using ::tessara::testing::ROUND_TRIP_TOLERANCE;

constexpr std::int32_t MGI = 6;
constexpr double FERRO = 17.666666666666;  // degrees west of Greenwich

struct Grid {
    const char* name;
    KoordStatus (*fromGeodetic)(const double[2], BmnPayload*, const TmConstants*);
    KoordStatus (*toGeodetic)(const BmnPayload*, double[2], const TmConstants*);
    double falseEastings[3];  // on 28, 31 and 34
    double falseNorthing;
};

class AustrianGrids : public ::testing::TestWithParam<Grid> {
  protected:
    [[nodiscard]] BmnPayload To(double lat, double lon, std::int32_t wantedMeridian = NO_WANTED_ZONE) const {
        const double latLon[2] = {lat, lon};
        BmnPayload payload{};
        payload.wantedMeridian = static_cast<std::int16_t>(wantedMeridian);
        EXPECT_EQ(GetParam().fromGeodetic(latLon, &payload, &forward_), KOORD_OK);
        EXPECT_EQ(payload.wantedMeridian, wantedMeridian);
        return payload;
    }

    [[nodiscard]] Geodetic From(const BmnPayload& payload) const {
        double latLon[2] = {-1.0, -2.0};
        const KoordStatus status = GetParam().toGeodetic(&payload, latLon, &inverse_);
        return {status, latLon[0], latLon[1]};
    }

    [[nodiscard]] static double FalseEasting(std::int32_t meridian) {
        return GetParam().falseEastings[(meridian - 28) / 3];
    }

    static BmnPayload GridValues(std::int32_t meridian, double easting, double northing) {
        BmnPayload payload{};
        payload.meridian = static_cast<std::int16_t>(meridian);
        payload.easting = easting;
        payload.northing = northing;
        return payload;
    }

  private:
    TmConstants forward_ = ForwardConstants(MGI);
    TmConstants inverse_ = InverseConstants(MGI);
};

TEST_P(AustrianGrids, AgreeWithProj) {
    for (const ReferenceRow& row : ReadReferenceFile("kernel/austrian_grids.txt")) {
        SCOPED_TRACE(row.place);
        const double lat = row.Number(0);
        const double lon = row.Number(1);
        const auto meridian = static_cast<std::int32_t>(row.Number(2));
        const double easting = row.Number(3) + FalseEasting(meridian);
        const double northing = row.Number(4) + GetParam().falseNorthing;
        const BmnPayload payload = To(lat, lon, meridian);
        EXPECT_EQ(payload.meridian, meridian);
        EXPECT_NEAR(payload.easting, easting, REFERENCE_TOLERANCE);
        EXPECT_NEAR(payload.northing, northing, REFERENCE_TOLERANCE);
        ExpectPosition(From(GridValues(meridian, easting, northing)), lat, lon, REFERENCE_TOLERANCE);
    }
}

TEST_P(AustrianGrids, HaveTheFalseEastingOnTheMeridian) {
    for (const std::int32_t meridian : {28, 31, 34}) {
        const BmnPayload payload = To(47.5, meridian - FERRO);
        EXPECT_EQ(payload.meridian, meridian);
        // Metres: the meridian in degrees is rounded.
        EXPECT_NEAR(payload.easting, FalseEasting(meridian), 1e-8);
        EXPECT_LT(To(47.5, meridian - FERRO - 0.1).easting, FalseEasting(meridian));
        EXPECT_GT(To(47.5, meridian - FERRO + 0.1).easting, FalseEasting(meridian));
    }
}

TEST_P(AustrianGrids, TakeTheNaturalMeridianForAWantedOneThatIsNone) {
    for (const std::int32_t none : {-32768, -1000, -28, 0, 27, 29, 30, 32, 33, 35, 32767})
        EXPECT_EQ(To(47.0, 15.4, none).meridian, 34) << none;
    EXPECT_EQ(To(47.0, 15.4, 28).meridian, 28);
    EXPECT_EQ(To(47.0, 15.4, 31).meridian, 31);
}

TEST_P(AustrianGrids, FailForAMeridianThatIsNone) {
    const TmConstants inverse = InverseConstants(MGI);
    for (const std::int32_t none : {-32768, -28, 0, 25, 26, 27, 29, 30, 32, 33, 35, 36, 37, 32767}) {
        const BmnPayload payload = GridValues(none, 500000.0, 300000.0);
        double latLon[2] = {1.0, 1.0};
        EXPECT_EQ(GetParam().toGeodetic(&payload, latLon, &inverse), KOORD_ERR_MERIDIAN) << none;
        // GK-AT doesn't touch the outputs three degrees and more away from the meridians.
        const double left =
            GetParam().toGeodetic == GKAT_ToGeodetic && (none <= 25 || none >= 37) ? 1.0 : 0.0;
        EXPECT_EQ(latLon[0], left) << none;
        EXPECT_EQ(latLon[1], left) << none;
    }
}

TEST_P(AustrianGrids, PutAPositionCloseToALimitOntoIt) {
    testing::ExpectLimitsAttract([this](double lat, double lon) { return From(To(lat, lon)); },
                                 {8.833333333333332, 17.833333333333332, 45.0, 51.0}, 47.0, 13.0);
}

TEST_P(AustrianGrids, ReturnToWhereTheyStarted) {
    Random random(28);
    for (int i = 0; i < 1000; ++i) {
        const double lat = random.Between(45.0, 51.0);
        const double lon = random.Between(8.8334, 17.8333);
        ExpectPosition(From(To(lat, lon)), lat, lon, ROUND_TRIP_TOLERANCE);
    }
}

TEST_P(AustrianGrids, EndOnAnyPosition) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_TRUE(std::isnan(To(bad, 13.0).northing));
        EXPECT_TRUE(std::isnan(To(47.0, bad).easting));
        EXPECT_TRUE(std::isnan(From(GridValues(31, bad, 300000.0)).lat));
        EXPECT_TRUE(std::isnan(From(GridValues(31, 500000.0, bad)).lat));
    }
    for (const double absurd : {1e9, 1e300, -1e300}) {
        EXPECT_EQ(To(47.0, absurd).meridian, absurd > 0.0 ? 34 : 28);
        EXPECT_EQ(From(GridValues(31, absurd, absurd)).status, KOORD_OK);
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, AustrianGrids,
    ::testing::Values(Grid{"BMN", BMN_FromGeodetic, BMN_ToGeodetic, {150000.0, 450000.0, 750000.0}, -5.0e6},
                      Grid{"OEM", OEM_FromGeodetic, OEM_ToGeodetic, {450000.0, 750000.0, 1050000.0}, 0.0},
                      Grid{"GKAT", GKAT_FromGeodetic, GKAT_ToGeodetic, {0.0, 0.0, 0.0}, 0.0}),
    [](const auto& test) { return test.param.name; });

// A tenth of a degree of the parallel 47.5, on the Bessel ellipsoid: 6388997 m (the radius of curvature)
// times cos 47.5 times 0.001745329 is 7533.4 m.
TEST(GkAt, WestOfTheMeridianEastingsAreNegative) {
    const TmConstants forward = ForwardConstants(MGI);
    const double latLon[2] = {47.5, 31 - FERRO - 0.1};
    BmnPayload payload{};
    EXPECT_EQ(GKAT_FromGeodetic(latLon, &payload, &forward), KOORD_OK);
    EXPECT_EQ(payload.meridian, 31);
    EXPECT_NEAR(payload.easting, -7533.4, 0.1);
}

TEST(BmnNaturalMeridian, ChangesHalfwayBetweenTheMeridians) {
    EXPECT_EQ(BMN_NaturalMeridian(29.5 - FERRO - 1e-9), 28);
    EXPECT_EQ(BMN_NaturalMeridian(29.5 - FERRO + 1e-9), 31);
    EXPECT_EQ(BMN_NaturalMeridian(32.5 - FERRO - 1e-9), 31);
    EXPECT_EQ(BMN_NaturalMeridian(32.5 - FERRO + 1e-9), 34);
}

TEST(BmnNaturalMeridian, IsAnOuterOneFarAway) {
    EXPECT_EQ(BMN_NaturalMeridian(-180.0), 28);
    EXPECT_EQ(BMN_NaturalMeridian(-INFINITE), 28);
    EXPECT_EQ(BMN_NaturalMeridian(180.0), 34);
    EXPECT_EQ(BMN_NaturalMeridian(INFINITE), 34);
    EXPECT_EQ(BMN_NaturalMeridian(NOT_A_NUMBER), 34);
}

}  // namespace
}  // namespace tessara::austrian_grids_test
