#include "grids/grid_steps.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

#include "support/lines.h"
#include "support/zoned_records.h"

namespace tessara::testing {
namespace {

CKoord Degrees(double latitude, double longitude) {
    return CKoord(GeodezRecord(latitude, longitude));
}

double LongitudeOf(const CKoord& koord) {
    return Load<GeodezPayload>(koord).longitude;
}

GridSteps EastSteps(double step) {
    return {Axis::East, step, 0.0};
}

TEST(GridSteps, FindTheFirstLineAtAPlaceOrBeyond) {
    const struct {
        double from, to;
    } cases[] = {{7.1, 7.5}, {7.5, 7.5}, {0.0, 0.0}, {-7.1, -7.0}, {-7.5, -7.5}, {-0.1, 0.0}};
    for (const auto& [from, to] : cases) {
        CKoord place = Degrees(48.0, from);
        EXPECT_EQ(EastSteps(0.5).MoveToFirst(&place), FirstLine::Found);
        EXPECT_EQ(LongitudeOf(place), to) << from;  // halves are exact
    }
}

TEST(GridSteps, FindNoLineWhereTheSystemEndsBeforeIt) {
    CKoord place = Degrees(48.0, 200.0);
    EXPECT_EQ(EastSteps(190.0).MoveToFirst(&place), FirstLine::None) << "380 degrees";
    EXPECT_EQ(LongitudeOf(place), 200.0);
    // 223 km east of the central meridian, zone 32 ends after a short distance.
    place = CKoord(UtmRecord(DATUM_WGS84, 'N', 32, 723000.0, 5340000.0));
    EXPECT_EQ(EastSteps(10000.0).MoveToFirst(&place), FirstLine::None);
}

// 173.6e18 steps are 173.59999999999997, and one step more is lost in the digits.
TEST(GridSteps, FindNoLineThatTheDigitsCantReach) {
    CKoord place = Degrees(48.0, 173.6);
    EXPECT_EQ(EastSteps(1e-18).MoveToFirst(&place), FirstLine::None);
    EXPECT_EQ(LongitudeOf(place), 173.6);
}

TEST(GridSteps, CountEastValuesFromTheCentreOfTheZone) {
    CKoord place(AustrianRecord(6, KOORD_BMN, 34, 741000.0, 300000.0));
    EXPECT_EQ(EastSteps(20000.0).MoveToFirst(&place), FirstLine::Found);
    EXPECT_EQ(Load<BmnPayload>(place).easting, 750000.0);
    place = StripRecord(3, KOORD_GK, -2470000.0, 5000000.0);  // 30 km west of the centre of strip -2
    EXPECT_EQ(EastSteps(20000.0).MoveToFirst(&place), FirstLine::Found);
    EXPECT_EQ(Load<GkPayload>(place).easting, -2480000.0);
}

TEST(GridSteps, FailOnPlacesWithoutASystemOrAZone) {
    CKoord place(MakeKoord(2, KOORD_LAMBERTCC));
    EXPECT_EQ(EastSteps(1.0).MoveToFirst(&place), FirstLine::Failed);
    place = MakeKoord(2, KOORD_ECEF);
    EXPECT_EQ(EastSteps(1.0).MoveToFirst(&place), FirstLine::Failed);
    place = AustrianRecord(6, KOORD_BMN, 29, 500000.0, 300000.0);
    EXPECT_EQ(EastSteps(1.0).MoveToFirst(&place), FirstLine::Failed);
}

// The anchor of TM has the default parameters, so a place with others has no order beside its lines.
TEST(GridSteps, FailOnPlacesThatTheirAnchorDoesntCompareWith) {
    TmPayload tm{};
    tm.originLongitude = 9.0;
    tm.scale = 0.9996;
    tm.easting = 1234.0;
    CKoord place(Record(KOORD_TM, tm));
    EXPECT_EQ(EastSteps(1000.0).MoveToFirst(&place), FirstLine::Failed);
    EXPECT_EQ(Load<TmPayload>(place).easting, 1234.0);
}

TEST(GridSteps, EndOnNumbersThatAreNone) {
    const double none = std::numeric_limits<double>::quiet_NaN();
    for (const double bad : {none, HUGE_VAL, -HUGE_VAL}) {
        CKoord place = Degrees(48.0, bad);
        EXPECT_NE(EastSteps(1.0).MoveToFirst(&place), FirstLine::Found) << bad;
        int lines = 0;
        EXPECT_TRUE(EastSteps(1.0).Walk(place, Degrees(48.0, 5.0), [&](const CKoord&) {
            ++lines;
            return true;
        }));
        EXPECT_LE(lines, 1) << bad;
    }
}

TEST(GridSteps, WalkToTheLastPlace) {
    std::vector<double> longitudes;
    const auto note = [&](const CKoord& place) {
        longitudes.push_back(LongitudeOf(place));
        return true;
    };
    EXPECT_TRUE(EastSteps(0.5).Walk(Degrees(0.0, 1.0), Degrees(0.0, 2.0), note));
    EXPECT_EQ(longitudes, (std::vector<double>{1.0, 1.5, 2.0}));
    longitudes.clear();
    EXPECT_TRUE(EastSteps(0.5).Walk(Degrees(0.0, 3.0), Degrees(0.0, 2.0), note));
    EXPECT_TRUE(longitudes.empty());
    EXPECT_TRUE(EastSteps(200.0).Walk(Degrees(0.0, 0.0), Degrees(0.0, 360.0), note));
    EXPECT_EQ(longitudes, (std::vector<double>{0.0, 200.0})) << "then the system ends";
}

TEST(GridSteps, WalkEndsWithARefusedLine) {
    int lines = 0;
    EXPECT_FALSE(EastSteps(0.5).Walk(Degrees(0.0, 1.0), Degrees(0.0, 2.0),
                                     [&](const CKoord&) { return ++lines < 2; }));
    EXPECT_EQ(lines, 2);
}

TEST(GridSteps, WalkOnlyWhatCanBeCompared) {
    const auto never = [](const CKoord&) {
        ADD_FAILURE();
        return true;
    };
    EXPECT_FALSE(EastSteps(0.5).Walk(Degrees(0.0, 1.0), CKoord(GeodezRecord(0.0, 2.0, 0.0, 6)), never));
}

TEST(GridSteps, AStepThatIsLostInTheDigitsIsTheLast) {
    int lines = 0;
    const auto count = [&](const CKoord&) {
        ++lines;
        return true;
    };
    EXPECT_TRUE(EastSteps(1e-20).Walk(Degrees(0.0, 1.0), Degrees(0.0, 2.0), count));
    EXPECT_EQ(lines, 1);
    lines = 0;
    EXPECT_TRUE(GridSteps(Axis::East, 0.5, 0.6).Walk(Degrees(0.0, 1.0), Degrees(0.0, 2.0), count));
    EXPECT_EQ(lines, 1) << "below the finest step";
}

}  // namespace
}  // namespace tessara::testing
