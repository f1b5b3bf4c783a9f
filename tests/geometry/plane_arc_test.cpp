#include "geometry/plane_arc.h"

#include <gtest/gtest.h>

#include "support/empty_vectors.h"
#include "support/random.h"
#include "support/reference_file.h"
#include "support/space_fixture.h"
#include "tessara/circle_on_tangent_plane.h"
#include "tessara/ellipse_on_tangent_plane.h"

namespace tessara {
namespace {

using testing::Disguised;
using testing::Distance;
using testing::Dot;
using testing::Minus;
using testing::PI_180;
using testing::Place;
using testing::Random;
using testing::XyzOf;

class PlaneArcTest : public testing::SpaceTest {
  protected:
    // Plane coordinates of an arc's points relative to its centre.
    struct Offset {
        double east, north, up;
    };

    void SetUp() override {
        // Something to be cleared.
        points->Add(Place(1.0, 2.0).Get());
    }

    bool MakeCircle(double start, double end, std::uint32_t count, bool clockwise, double radius = 1000.0) {
        return circle->MakeCircle(centre.Get(), start, end, radius, points.Get(), count, clockwise);
    }

    IRef<ICoord> PointAt(std::uint32_t i) { return IRef<ICoord>(points->GetAt(i)); }

    Offset OffsetAt(std::uint32_t i) {
        Vector origin, east, north, up;
        EXPECT_TRUE(ellipsoid->CoordToEcefVector(centre.Get(), &origin));
        EXPECT_TRUE(ellipsoid->GetLocalAxes(centre.Get(), &east, &north));
        EXPECT_TRUE(ellipsoid->GetNormal(centre.Get(), &up));
        const Vector offset = Minus(XyzOf(PointAt(i)), origin);
        return {Dot(offset, east), Dot(offset, north), Dot(offset, up)};
    }

    // The azimuths of all points, in degrees from 0 to 360.
    std::vector<double> Azimuths() {
        std::vector<double> azimuths;
        for (std::uint32_t i = 0; i < points->GetCount(); ++i) {
            const Offset offset = OffsetAt(i);
            const double azimuth = std::atan2(offset.east, offset.north) / PI_180;
            azimuths.push_back(azimuth < -1e-6 ? azimuth + 360.0 : azimuth);
        }
        return azimuths;
    }

    void ExpectAzimuths(const std::vector<double>& expected) {
        const std::vector<double> azimuths = Azimuths();
        ASSERT_EQ(azimuths.size(), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i)
            EXPECT_NEAR(azimuths[i], expected[i], 1e-9) << "point " << i;
    }

    IRef<ICircleOnTangentPlane> circle{CreateClassCircleOnTangentPlane()};
    IRef<IEllipseOnTangentPlane> ellipse{CreateClassEllipseOnTangentPlane()};
    IRef<ICoord> centre = Place(48.0, 16.0);
    IRef<IArray> points{CreateClassArray()};
};

// 1e-6 m: a few units in the last place of a double of the size of the earth, and the figures' own.
TEST_F(PlaneArcTest, PointsAgreeWithIndependentFigures) {
    for (const auto& row : testing::ReadReferenceFile("geometry/plane_arc.txt")) {
        centre = Place(row.Number(0), row.Number(1), row.Number(2));
        const double rotation = row.Number(3);
        const double along = row.Number(4);
        const double across = row.Number(5);
        const auto count = static_cast<std::uint32_t>(row.Number(8));
        const bool clockwise = row.Number(9) == 1.0;
        const auto expectPoint = [&] {
            ASSERT_EQ(points->GetCount(), count) << row.place;
            const Vector xyz = XyzOf(PointAt(static_cast<std::uint32_t>(row.Number(10))));
            EXPECT_LT(Distance(xyz, {row.Number(11), row.Number(12), row.Number(13)}), 1e-6) << row.place;
        };
        ASSERT_TRUE(ellipse->MakeEllipse(centre.Get(), rotation, along, across, row.Number(6), row.Number(7),
                                         points.Get(), count, clockwise));
        expectPoint();
        if (rotation == 0.0 && along == across) {
            ASSERT_TRUE(MakeCircle(row.Number(6), row.Number(7), count, clockwise, along));
            expectPoint();
        }
    }
}

TEST_F(PlaneArcTest, AWholeTurnFollowsItsDirection) {
    ASSERT_TRUE(MakeCircle(0.0, 0.0, 5, true));
    ExpectAzimuths({0.0, 90.0, 180.0, 270.0, 0.0});
    EXPECT_LT(Distance(XyzOf(PointAt(0)), XyzOf(PointAt(4))), 1e-6);
    ASSERT_TRUE(MakeCircle(0.0, 0.0, 5, false));
    ExpectAzimuths({0.0, 270.0, 180.0, 90.0, 0.0});
    ASSERT_TRUE(MakeCircle(200.0, 200.0, 3, true));
    ExpectAzimuths({200.0, 20.0, 200.0});
    // 0 and 360 are one angle.
    ASSERT_TRUE(MakeCircle(0.0, 360.0, 3, true));
    ExpectAzimuths({0.0, 180.0, 0.0});
    ASSERT_TRUE(MakeCircle(360.0, 0.0, 3, false));
    ExpectAzimuths({0.0, 180.0, 0.0});
}

TEST_F(PlaneArcTest, ArcsTakeTheShortOrTheLongWayAsAsked) {
    ASSERT_TRUE(MakeCircle(350.0, 10.0, 3, true));
    ExpectAzimuths({350.0, 0.0, 10.0});
    ASSERT_TRUE(MakeCircle(350.0, 10.0, 3, false));
    ExpectAzimuths({350.0, 180.0, 10.0});
    ASSERT_TRUE(MakeCircle(10.0, 350.0, 3, true));
    ExpectAzimuths({10.0, 180.0, 350.0});
    ASSERT_TRUE(MakeCircle(10.0, 350.0, 3, false));
    ExpectAzimuths({10.0, 0.0, 350.0});
}

TEST_F(PlaneArcTest, TwoPointsAreTheEndsInBothDirections) {
    for (const bool clockwise : {true, false}) {
        ASSERT_TRUE(MakeCircle(350.0, 10.0, 2, clockwise));
        ExpectAzimuths({350.0, 10.0});
    }
}

TEST_F(PlaneArcTest, AnglesAreBroughtIntoOneTurn) {
    ASSERT_TRUE(MakeCircle(-90.0, 0.0, 4, true));
    ExpectAzimuths({270.0, 300.0, 330.0, 0.0});
    ASSERT_TRUE(MakeCircle(730.0, -340.0, 2, true));
    ExpectAzimuths({10.0, 20.0});
    // A tiny negative angle is a whole turn short of 0, which is 0.
    ASSERT_TRUE(MakeCircle(-1e-20, 0.0, 3, true));
    ExpectAzimuths({0.0, 180.0, 0.0});
    // 1000 is 2 * 360 + 280 and 2800 is 7 * 360 + 280: every higher power of ten is 280, too.
    ASSERT_TRUE(MakeCircle(1e22, 0.0, 2, true));
    ExpectAzimuths({280.0, 0.0});
    ASSERT_TRUE(MakeCircle(-1e22, 0.0, 2, true));
    ExpectAzimuths({80.0, 0.0});
    ASSERT_TRUE(MakeCircle(1e300, -1e300, 2, true));
}

TEST_F(PlaneArcTest, PointsLieInThePlaneAtTheRadiusAndEquallyFarApart) {
    Random random(671);
    for (int i = 0; i < 50; ++i) {
        centre =
            Place(random.Between(-90.0, 90.0), random.Between(-180.0, 180.0), random.Between(-100.0, 3000.0));
        const double radius = std::pow(10.0, random.Between(0.0, 6.0));
        const bool clockwise = i % 2 == 0;
        const double start = random.Between(-720.0, 720.0);
        const double end = random.Between(-720.0, 720.0);
        ASSERT_TRUE(MakeCircle(start, end, 8, clockwise, radius));
        const std::vector<double> azimuths = Azimuths();
        const double span = std::remainder(azimuths[1] - azimuths[0], 360.0);
        EXPECT_EQ(span > 0.0, clockwise);
        const double step = Distance(XyzOf(PointAt(0)), XyzOf(PointAt(1)));
        for (std::uint32_t k = 0; k < 8; ++k) {
            const Offset offset = OffsetAt(k);
            // Metres: positions of 6.4e6 m, some roundings of their latitude, longitude and height.
            EXPECT_NEAR(offset.up, 0.0, 1e-6);
            EXPECT_NEAR(std::hypot(offset.east, offset.north), radius, 1e-6);
        }
        for (std::uint32_t k = 1; k < 8; ++k)
            EXPECT_NEAR(Distance(XyzOf(PointAt(k - 1)), XyzOf(PointAt(k))), step, 1e-6);
        const double lastTurn = std::remainder(azimuths[7] - end, 360.0);
        EXPECT_NEAR(lastTurn * PI_180 * radius, 0.0, 1e-6);
    }
}

// r^2 / (2 R), with the radius of curvature R of the direction at 48 degrees: 6.3698e6 m north (a (1 - e2) /
// (1 - e2 sin^2)^1.5), 6.3900e6 m east (a / sqrt(1 - e2 sin^2)): 7.849 m and 7.825 m.
TEST_F(PlaneArcTest, PointsLieAboveTheEllipsoid) {
    ASSERT_TRUE(MakeCircle(0.0, 90.0, 2, true, 10000.0));
    EXPECT_NEAR(PointAt(0)->GetHeight(), 7.849, 0.005);
    EXPECT_NEAR(PointAt(1)->GetHeight(), 7.825, 0.005);
}

TEST_F(PlaneArcTest, AnEllipseOfEqualAxesIsTheTurnedCircle) {
    const IRef<IArray> circlePoints(CreateClassArray());
    ASSERT_TRUE(circle->MakeCircle(centre.Get(), 75.0, 165.0, 500.0, circlePoints.Get(), 10, true));
    ASSERT_TRUE(ellipse->MakeEllipse(centre.Get(), 75.0, 500.0, 500.0, 0.0, 90.0, points.Get(), 10, true));
    for (std::uint32_t i = 0; i < 10; ++i)
        EXPECT_LT(Distance(XyzOf(PointAt(i)), XyzOf(IRef<ICoord>(circlePoints->GetAt(i)))), 1e-6);
}

TEST_F(PlaneArcTest, TheAxesOfAnEllipseFollowItsRotation) {
    ASSERT_TRUE(ellipse->MakeEllipse(centre.Get(), 30.0, 1000.0, 500.0, 0.0, 90.0, points.Get(), 2, true));
    // 1000 sin 30, 1000 cos 30; then 500 cos 30, -500 sin 30.
    EXPECT_NEAR(OffsetAt(0).east, 500.0, 1e-6);
    EXPECT_NEAR(OffsetAt(0).north, 866.0254037844, 1e-6);
    EXPECT_NEAR(OffsetAt(1).east, 433.0127018922, 1e-6);
    EXPECT_NEAR(OffsetAt(1).north, -250.0, 1e-6);
}

TEST_F(PlaneArcTest, PointsAreEcefInTheDatumOfTheCentre) {
    centre = Place(48.0, 16.0, 0.0, DATUM_GER);
    ASSERT_TRUE(centre->SetReference(ReferenceOf(DATUM_GER, KOORD_GK).Get()));
    ASSERT_TRUE(MakeCircle(0.0, 0.0, 4, true));
    for (std::uint32_t i = 0; i < 4; ++i) {
        EXPECT_EQ(KoordOf(PointAt(i)).datum, static_cast<std::uint32_t>(DATUM_GER));
        EXPECT_EQ(KoordOf(PointAt(i)).type, static_cast<std::uint32_t>(KOORD_ECEF));
        EXPECT_TRUE(HoldsPosition(PointAt(i)));
        EXPECT_EQ(testing::CountOf(points->GetAt(i)), 1u) << "held by the list alone";
    }
    ExpectAzimuths({0.0, 120.0, 240.0, 0.0});
}

TEST_F(PlaneArcTest, FewerThanTwoPointsAreNoArc) {
    EXPECT_FALSE(MakeCircle(0.0, 90.0, 1, true));
    EXPECT_EQ(points->GetCount(), 0u);
    points->Add(centre.Get());
    EXPECT_FALSE(MakeCircle(0.0, 90.0, 0, true));
    EXPECT_EQ(points->GetCount(), 0u);
}

TEST_F(PlaneArcTest, NumbersThatAreNotFiniteMakeNoArc) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE}) {
        EXPECT_FALSE(MakeCircle(bad, 90.0, 3, true));
        EXPECT_EQ(points->GetCount(), 0u);
        EXPECT_FALSE(MakeCircle(0.0, bad, 3, false));
        EXPECT_FALSE(MakeCircle(0.0, 90.0, 3, true, bad));
        EXPECT_FALSE(ellipse->MakeEllipse(centre.Get(), bad, 10.0, 20.0, 0.0, 90.0, points.Get(), 3, true));
        EXPECT_FALSE(ellipse->MakeEllipse(centre.Get(), 0.0, bad, 20.0, 0.0, 90.0, points.Get(), 3, true));
        EXPECT_FALSE(ellipse->MakeEllipse(centre.Get(), 0.0, 10.0, bad, 0.0, 90.0, points.Get(), 3, true));
        EXPECT_EQ(points->GetCount(), 0u);
    }
}

TEST_F(PlaneArcTest, RefusesMissingAndForeignArgumentsAndEmptiesTheList) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    const IRef<ICoord> pixel(CreateClassCoord());
    pixel->SetPixel(1.0, 2.0);
    const IRef<ICoord> fresh(CreateClassCoord());
    for (ICoord* wrong : {static_cast<ICoord*>(nullptr), Disguised<ICoord>(stranger), foreign.Get(),
                          pixel.Get(), fresh.Get()}) {
        points->Add(centre.Get());
        EXPECT_FALSE(circle->MakeCircle(wrong, 0.0, 90.0, 10.0, points.Get(), 3, true));
        EXPECT_EQ(points->GetCount(), 0u);
        points->Add(centre.Get());
        EXPECT_FALSE(ellipse->MakeEllipse(wrong, 0.0, 20.0, 10.0, 0.0, 90.0, points.Get(), 3, true));
        EXPECT_EQ(points->GetCount(), 0u);
    }
    for (IArray* wrong : {static_cast<IArray*>(nullptr), Disguised<IArray>(stranger)}) {
        EXPECT_FALSE(circle->MakeCircle(centre.Get(), 0.0, 90.0, 10.0, wrong, 3, true));
        EXPECT_FALSE(ellipse->MakeEllipse(centre.Get(), 0.0, 20.0, 10.0, 0.0, 90.0, wrong, 3, true));
    }
    EXPECT_EQ(testing::CountOf(centre), 1u);
}

// The list may hold the only count of the centre.
TEST_F(PlaneArcTest, TheCentreMayBeAPointOfTheList) {
    points->Clear();
    points->Add(centre.Get());
    centre = IRef<ICoord>();
    EXPECT_TRUE(circle->MakeCircle(PointAt(0).Get(), 0.0, 90.0, 10.0, points.Get(), 3, true));
    EXPECT_EQ(points->GetCount(), 3u);
}

// An object of count 0 ends in the operation that it is given to, at its end and no earlier.
TEST_F(PlaneArcTest, TakesObjectsFreshFromTheirCreation) {
    EXPECT_FALSE(circle->MakeCircle(CreateClassCoord(), 0.0, 90.0, 10.0, CreateClassArray(), 3, true));
    EXPECT_TRUE(circle->MakeCircle(centre.Get(), 0.0, 90.0, 10.0, CreateClassArray(), 3, true));
}

TEST_F(PlaneArcTest, SingletonsOfTheManagerWorkAlike) {
    const auto managedCircle = library.Make<ICircleOnTangentPlane>(CLSID_CircleOnTangentPlane);
    const auto managedEllipse = library.Make<IEllipseOnTangentPlane>(CLSID_EllipseOnTangentPlane);
    ASSERT_TRUE(managedCircle.IsValid() && managedEllipse.IsValid());
    EXPECT_TRUE(managedCircle->MakeCircle(centre.Get(), 0.0, 90.0, 10.0, points.Get(), 3, true));
    EXPECT_TRUE(managedEllipse->MakeEllipse(centre.Get(), 0.0, 20.0, 10.0, 0.0, 90.0, points.Get(), 3, true));
}

class PlaneArcWithoutManager : public testing::BalancedTest {
  protected:
    // Whether both classes make an arc; the list comes in with something to be cleared.
    bool MakeArcs() {
        points->Add(centre.Get());
        const bool isCircle = circle->MakeCircle(centre.Get(), 0.0, 90.0, 10.0, points.Get(), 3, true) &&
                              points->GetCount() == 3;
        EXPECT_TRUE(isCircle || points->GetCount() == 0);
        points->Add(centre.Get());
        const bool isEllipse =
            ellipse->MakeEllipse(centre.Get(), 0.0, 20.0, 10.0, 0.0, 90.0, points.Get(), 3, true) &&
            points->GetCount() == 3;
        EXPECT_TRUE(isEllipse || points->GetCount() == 0);
        EXPECT_EQ(isCircle, isEllipse);
        return isCircle && isEllipse;
    }

    void Create() {
        circle = IRef<ICircleOnTangentPlane>(CreateClassCircleOnTangentPlane());
        ellipse = IRef<IEllipseOnTangentPlane>(CreateClassEllipseOnTangentPlane());
    }

    IRef<ICircleOnTangentPlane> circle;
    IRef<IEllipseOnTangentPlane> ellipse;
    IRef<ICoord> centre = Place(48.0, 16.0);
    IRef<IArray> points{CreateClassArray()};
};

TEST_F(PlaneArcWithoutManager, CirclesAndEllipsesAreMadeByTheLibrarysOwnParts) {
    Create();
    EXPECT_TRUE(MakeArcs());
}

TEST_F(PlaneArcWithoutManager, AManagerThatLeavesTakesNothingAlong) {
    {
        const testing::ManagedLibrary library;
        Create();
    }
    EXPECT_TRUE(MakeArcs());
}

TEST_F(PlaneArcWithoutManager, AManagerThatGivesNothingLeavesTheListEmpty) {
    {
        const testing::ManagedLibrary library{testing::MakeEmptyHandedManager()};
        Create();
        EXPECT_FALSE(MakeArcs());
    }
    // What was made without its parts stays so.
    EXPECT_FALSE(MakeArcs());
}

TEST_F(PlaneArcWithoutManager, ArithmeticThatIsMissingOrGivesNothingLeavesTheListEmpty) {
    const testing::SubstitutingManager::Make makers[] = {[] { return IRef<IUnknown>(); },
                                                         [] { return testing::MakeEmptyVectors(true); }};
    for (const auto& make : makers) {
        const testing::ManagedLibrary library{testing::Substituting(CLSID_EuclideanVector, make)};
        Create();
        EXPECT_FALSE(MakeArcs());
    }
}

}  // namespace
}  // namespace tessara
