#include "geometry/line_points.h"

#include <gtest/gtest.h>

#include <limits>

#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::DegreeMap;
using testing::FloatPixel;
using testing::LineOf;
using testing::LongPixel;
using testing::PixelLine;
using testing::PixelOf;
using testing::Utm32;

constexpr double FAILED = -std::numeric_limits<double>::max();
constexpr std::int32_t GER = 3;

class LinePointsTest : public testing::BalancedTest {
  protected:
    bool IsOn(const CKoord& point, const IRef<IArray>& line) {
        return lines->IsPointOnLine(map.Get(), CoordOf(point).Get(), line.Get());
    }
    double Distance(const CKoord& p, const CKoord& a, const CKoord& b) {
        return lines->GetSignedDistance(map.Get(), CoordOf(p).Get(), CoordOf(a).Get(), CoordOf(b).Get());
    }
    bool Foot(const CKoord& p, const CKoord& a, const CKoord& b, const IRef<ICoord>& out) {
        return lines->GetFootPoint(map.Get(), CoordOf(p).Get(), CoordOf(a).Get(), CoordOf(b).Get(),
                                   out.Get());
    }

    IRef<ILinePoints> lines{CreateClassLinePoints()};
    // Ten pixels a degree: (90 - latitude) * 10 is the row, longitude * 10 the column.
    IRef<IMapCoordOperations> map = DegreeMap(0.0, 90.0, 10.0);
};

TEST_F(LinePointsTest, PointsOfSegmentsLieOnTheLine) {
    const auto line = PixelLine({{0, 0}, {4, 0}, {4, 4}, {8, 8}});
    for (const auto& [x, y] :
         {std::pair{0.0, 0.0}, {2.0, 0.0}, {4.0, 0.0}, {4.0, 3.5}, {6.0, 6.0}, {8.0, 8.0}})
        EXPECT_TRUE(IsOn(FloatPixel(x, y), line)) << x << ' ' << y;
    for (const auto& [x, y] :
         {std::pair{-1.0, 0.0}, {2.0, 1e-9}, {2.0, -1e-9}, {4.0 + 1e-9, 2.0}, {6.0, 6.5}, {9.0, 9.0}})
        EXPECT_FALSE(IsOn(FloatPixel(x, y), line)) << x << ' ' << y;
}

TEST_F(LinePointsTest, ThePixelToleranceDoesntCount) {
    ASSERT_TRUE(lines->SetPixelTolerance(100.0));
    EXPECT_FALSE(IsOn(FloatPixel(2, 1), PixelLine({{0, 0}, {4, 0}})));
}

TEST_F(LinePointsTest, ThePrecisionIsThatOfTheNumbers) {
    // At (3, 4) the tolerance is 6 * 2^-52: a point beside the diagonal y = 4 x / 3 by one unit in the last
    // place of 4 (2^-50, with the slope 0.6 * 2^-50 = 2.4 * 2^-52) lies on it, one by four doesn't.
    const auto line = PixelLine({{0, 0}, {6, 8}});
    EXPECT_TRUE(IsOn(FloatPixel(3, 4), line));
    EXPECT_TRUE(IsOn(FloatPixel(3, 4 + 0x1p-50), line));
    EXPECT_FALSE(IsOn(FloatPixel(3, 4 + 0x1p-48), line));
}

TEST_F(LinePointsTest, APointAsFarOffAsThePrecisionIsStillOnTheLine) {
    // At (3, 0) the tolerance is 4 * 2^-52 = 2^-50, two units in the last place of 3.
    EXPECT_TRUE(IsOn(FloatPixel(3, 0), PixelLine({{3 + 0x1p-50, 0}})));
    EXPECT_FALSE(IsOn(FloatPixel(3, 0), PixelLine({{3 + 0x3p-51, 0}})));
}

TEST_F(LinePointsTest, AnEmptyLineHasNoPoints) {
    EXPECT_FALSE(IsOn(FloatPixel(0, 0), PixelLine({})));
}

TEST_F(LinePointsTest, ALineOfOnePointIsThatPoint) {
    EXPECT_TRUE(IsOn(FloatPixel(2, 3), PixelLine({{2, 3}})));
    EXPECT_FALSE(IsOn(FloatPixel(2, 3.0001), PixelLine({{2, 3}})));
}

TEST_F(LinePointsTest, PositionsLieOnTheLineOfTheMap) {
    const auto line = LineOf({GeodezRecord(90, 0), GeodezRecord(50, 0), LongPixel(400, 400)});
    EXPECT_TRUE(IsOn(GeodezRecord(70, 0), line));
    EXPECT_TRUE(IsOn(GeodezRecord(50, 20), line));
    EXPECT_TRUE(IsOn(FloatPixel(100, 400), line));
    EXPECT_FALSE(IsOn(GeodezRecord(70, 1), line));
    EXPECT_FALSE(IsOn(testing::Nowhere(), line)) << "no pixel";
    EXPECT_FALSE(IsOn(GeodezRecord(70, 0), LineOf({GeodezRecord(90, 0), testing::Nowhere()})));
}

TEST_F(LinePointsTest, DistancesHaveASide) {
    EXPECT_EQ(Distance(FloatPixel(0, 1), FloatPixel(0, 0), FloatPixel(1, 0)), 1.0);
    EXPECT_EQ(Distance(FloatPixel(0, 1), FloatPixel(1, 0), FloatPixel(0, 0)), -1.0);
    EXPECT_EQ(Distance(LongPixel(0, 1), FloatPixel(0, 0), LongPixel(1, 0)), 1.0);
    EXPECT_EQ(Distance(FloatPixel(3, 4), FloatPixel(0, 0), FloatPixel(0, 0)), 5.0);
    // One degree south of the parallel of 50, ten pixels.
    EXPECT_NEAR(Distance(GeodezRecord(49, 5), GeodezRecord(50, 0), GeodezRecord(50, 10)), 10.0, 1e-12);
}

TEST_F(LinePointsTest, ADistanceThatFailsIsTheNegatedLargestDouble) {
    const CKoord pixel = FloatPixel(0, 0);
    const CKoord nowhere = testing::Nowhere();
    EXPECT_EQ(Distance(nowhere, pixel, pixel), FAILED);
    EXPECT_EQ(Distance(pixel, nowhere, pixel), FAILED);
    EXPECT_EQ(Distance(pixel, pixel, nowhere), FAILED);
    const IRef<ICoord> valid = CoordOf(pixel);
    const IRef<ICoord> invalid = EmptyCoord(2, KOORD_FLOATPIXEL);
    EXPECT_EQ(lines->GetSignedDistance(map.Get(), invalid.Get(), valid.Get(), valid.Get()), FAILED);
    EXPECT_EQ(lines->GetSignedDistance(nullptr, valid.Get(), valid.Get(), valid.Get()), FAILED);
}

TEST_F(LinePointsTest, TheFootLiesOnTheLineAlsoBeyondItsEnds) {
    const IRef<ICoord> out = EmptyCoord(2, KOORD_FLOATPIXEL);
    EXPECT_TRUE(Foot(FloatPixel(5, 5), FloatPixel(0, 0), FloatPixel(1, 0), out));
    EXPECT_EQ(PixelOf(out).x, 5.0);
    EXPECT_EQ(PixelOf(out).y, 0.0);
}

TEST_F(LinePointsTest, OfEqualPointsTheFootIsWrittenThoughTheResultIsFalse) {
    const IRef<ICoord> out = EmptyCoord(2, KOORD_FLOATPIXEL);
    EXPECT_FALSE(Foot(FloatPixel(2, 2), FloatPixel(1, 1), FloatPixel(1, 1), out));
    EXPECT_EQ(PixelOf(out).x, 1.0);
    EXPECT_EQ(PixelOf(out).y, 1.0);
    EXPECT_TRUE(Foot(FloatPixel(7, 7), FloatPixel(7, 7), FloatPixel(7, 7), out));
    EXPECT_EQ(PixelOf(out).x, 7.0);
}

TEST_F(LinePointsTest, TheFootHasTheReferenceThatIsAskedFor) {
    const IRef<ICoord> degrees = EmptyCoord(2, KOORD_GEODEZ);
    degrees->SetHeight(80.0);
    ASSERT_TRUE(Foot(GeodezRecord(60, 5), GeodezRecord(50, 0), GeodezRecord(50, 10), degrees));
    // Degrees and pixels, some units of the last place.
    EXPECT_NEAR(PayloadOf<GeodezPayload>(degrees).latitude, 50.0, 1e-12);
    EXPECT_NEAR(PayloadOf<GeodezPayload>(degrees).longitude, 5.0, 1e-12);
    EXPECT_EQ(degrees->GetHeight(), 80.0);

    for (const std::int32_t system : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        for (const std::int32_t datum : {DATUM_WGS84, GER}) {
            const IRef<ICoord> pixel = EmptyCoord(datum, system);
            ASSERT_TRUE(Foot(GeodezRecord(60, 5.03), GeodezRecord(50, 0), GeodezRecord(50, 10), pixel));
            EXPECT_EQ(KoordOf(pixel).type, KOORD_FLOATPIXEL);
            EXPECT_EQ(KoordOf(pixel).datum, 2u) << "the map's";
            EXPECT_NEAR(PixelOf(pixel).x, 50.3, 1e-12);
            EXPECT_NEAR(PixelOf(pixel).y, 400.0, 1e-12);
        }
    }
}

TEST_F(LinePointsTest, AFootWithoutAPositionFails) {
    const IRef<ICoord> out = CoordOf(Utm32(5e5, 5e6));
    // The row of 89.5 degrees, where UTM has ended.
    EXPECT_FALSE(Foot(FloatPixel(50, 9), FloatPixel(0, 5), FloatPixel(100, 5), out));
    EXPECT_FALSE(Foot(testing::Nowhere(), FloatPixel(0, 5), FloatPixel(100, 5), out));
}

TEST_F(LinePointsTest, TheResultMayBeAnArgument) {
    const IRef<ICoord> p = CoordOf(FloatPixel(5, 5));
    const IRef<ICoord> a = CoordOf(FloatPixel(0, 0));
    const IRef<ICoord> b = CoordOf(FloatPixel(1, 0));
    EXPECT_TRUE(lines->GetFootPoint(map.Get(), p.Get(), a.Get(), b.Get(), p.Get()));
    EXPECT_EQ(PixelOf(p).x, 5.0);
    EXPECT_EQ(PixelOf(p).y, 0.0);
    EXPECT_FALSE(lines->GetFootPoint(map.Get(), p.Get(), a.Get(), a.Get(), a.Get()));
    EXPECT_EQ(PixelOf(a).x, 0.0);
}

// An object of count 0 ends in the operation that it is given to, at its end and no earlier.
TEST_F(LinePointsTest, TakesObjectsFreshFromTheirCreation) {
    const auto freshPixel = [] {
        ICoord* const pixel = CreateClassCoord();
        EXPECT_TRUE(pixel->SetPixel(3.0, 4.0));
        return pixel;
    };
    ICoord* const allThree = freshPixel();
    EXPECT_EQ(lines->GetSignedDistance(map.Get(), allThree, allThree, allThree), 0.0);
    ICoord* const allFour = freshPixel();
    EXPECT_TRUE(lines->GetFootPoint(map.Get(), allFour, allFour, allFour, allFour));
    EXPECT_FALSE(lines->IsPointOnLine(map.Get(), freshPixel(), CreateClassArray()));
    const IRef<ICoord> other = CoordOf(FloatPixel(0, 0));
    EXPECT_EQ(lines->GetSignedDistance(map.Get(), freshPixel(), other.Get(), other.Get()), 5.0);
    EXPECT_FALSE(lines->GetFootPoint(map.Get(), freshPixel(), other.Get(), other.Get(), freshPixel()));
}

TEST_F(LinePointsTest, NullAndForeignObjectsFail) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> coord = CoordOf(FloatPixel(1, 2));
    const IRef<ICoord> out = CoordOf(FloatPixel(7, 8));
    const auto line = PixelLine({{1, 2}});
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const mapIn = reinterpret_cast<IMapCoordOperations*>(other);
        auto* const point = reinterpret_cast<ICoord*>(other);
        EXPECT_FALSE(lines->IsPointOnLine(mapIn, coord.Get(), line.Get())) << "also for pixels";
        EXPECT_FALSE(lines->IsPointOnLine(map.Get(), point, line.Get()));
        EXPECT_FALSE(lines->IsPointOnLine(map.Get(), coord.Get(), reinterpret_cast<IArray*>(other)));
        EXPECT_EQ(lines->GetSignedDistance(mapIn, coord.Get(), coord.Get(), coord.Get()), FAILED);
        EXPECT_EQ(lines->GetSignedDistance(map.Get(), point, coord.Get(), coord.Get()), FAILED);
        EXPECT_EQ(lines->GetSignedDistance(map.Get(), coord.Get(), point, coord.Get()), FAILED);
        EXPECT_EQ(lines->GetSignedDistance(map.Get(), coord.Get(), coord.Get(), point), FAILED);
        EXPECT_FALSE(lines->GetFootPoint(mapIn, coord.Get(), coord.Get(), coord.Get(), out.Get()));
        EXPECT_FALSE(lines->GetFootPoint(map.Get(), point, coord.Get(), coord.Get(), out.Get()));
        EXPECT_FALSE(lines->GetFootPoint(map.Get(), coord.Get(), point, coord.Get(), out.Get()));
        EXPECT_FALSE(lines->GetFootPoint(map.Get(), coord.Get(), coord.Get(), point, out.Get()));
        EXPECT_FALSE(lines->GetFootPoint(map.Get(), coord.Get(), coord.Get(), coord.Get(), point));
    }
    EXPECT_EQ(PixelOf(out).x, 7.0);
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(coord), 1u);
}

}  // namespace
}  // namespace tessara
