#include <gtest/gtest.h>

#include <limits>

#include "geometry/line_points.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/managed_library.h"
#include "support/objects.h"
#include "support/refused_queries.h"
#include "tessara/intersection_results.h"
#include "tessara/line_intersection_parameters.h"

namespace tessara {
namespace {

using testing::At;
using testing::CountOf;
using testing::DegreeMap;
using testing::FloatPixel;
using testing::LineOf;
using testing::LongPixel;
using testing::PixelLine;
using testing::PixelOf;
using testing::Utm32;

constexpr std::int32_t DATUM_GER = 3;

class LineIntersectionsTest : public testing::BalancedTest {
  protected:
    // Something to be cleared.
    void SetUp() override { points->Add(lines.Get()); }

    // An intersection as one of the lines sees it.
    IRef<ILineIntersectionParameters> First(std::uint32_t i) {
        return IRef<ILineIntersectionParameters>(results->GetFirstAt(i));
    }
    IRef<ILineIntersectionParameters> Second(std::uint32_t i) {
        return IRef<ILineIntersectionParameters>(results->GetSecondAt(i));
    }
    testing::Pixel PlaceOf(std::uint32_t i) { return PixelOf(IRef<ICoord>(First(i)->GetIntersection())); }

    bool Cross(const IRef<IArray>& a, const IRef<IArray>& b) {
        return lines->IntersectPixelLines(a.Get(), b.Get(), results.Get());
    }
    bool CrossOn(const IRef<IArray>& a, const IRef<IArray>& b) {
        return lines->IntersectOnMapToArray(map.Get(), a.Get(), b.Get(), points.Get());
    }

    testing::ManagedLibrary library;
    IRef<ILinePoints> lines{CreateClassLinePoints()};
    IRef<IIntersectionResults> results{CreateClassIntersectionResults()};
    IRef<IArray> points{CreateClassArray()};
    IRef<IMapCoordOperations> map = DegreeMap(6.0, 50.0, 100.0);
    IRef<IArray> square = PixelLine({{0, 0}, {4, 0}, {4, 4}, {0, 4}, {0, 0}});
    IRef<IArray> across = PixelLine({{-1, 0}, {5, 0}});
};

TEST_F(LineIntersectionsTest, RecordsTellBothLinesOfEachIntersection) {
    ASSERT_TRUE(Cross(square, across));
    ASSERT_EQ(results->GetCount(), 2);
    EXPECT_EQ(PlaceOf(0).x, 0.0);
    EXPECT_EQ(PlaceOf(0).y, 0.0);
    EXPECT_EQ(PlaceOf(1).x, 4.0);
    EXPECT_EQ(PlaceOf(1).y, 0.0);
    for (std::uint32_t i = 0; i < 2; ++i) {
        EXPECT_EQ(First(i)->GetSegmentIndex(), i + 1);
        EXPECT_EQ(First(i)->GetParameter(), 0.0);
        EXPECT_EQ(First(i)->GetLineStart(), At(square, i).Get());
        EXPECT_EQ(First(i)->GetLineEnd(), At(square, i + 1).Get());
        EXPECT_EQ(Second(i)->GetSegmentIndex(), 1u);
        EXPECT_EQ(Second(i)->GetParameter(), (1.0 + 4.0 * i) / 6.0);
        EXPECT_EQ(Second(i)->GetLineStart(), At(across, 0).Get());
        EXPECT_EQ(Second(i)->GetLineEnd(), At(across, 1).Get());
        EXPECT_EQ(First(i)->GetIntersection(), Second(i)->GetIntersection());
    }
}

TEST_F(LineIntersectionsTest, PointsAloneAreTheSameIntersections) {
    ASSERT_TRUE(lines->IntersectPixelLinesToArray(square.Get(), across.Get(), points.Get()));
    ASSERT_EQ(points->GetCount(), 2u);
    EXPECT_EQ(PixelOf(At(points, 0)).x, 0.0);
    EXPECT_EQ(PixelOf(At(points, 1)).x, 4.0);
}

TEST_F(LineIntersectionsTest, AVertexIsCrossedOnce) {
    const auto roof = PixelLine({{0, 0}, {2, 2}, {4, 0}});
    ASSERT_TRUE(Cross(roof, PixelLine({{2, 0}, {2, 4}})));
    ASSERT_EQ(results->GetCount(), 1);
    EXPECT_EQ(First(0)->GetSegmentIndex(), 2u);
    EXPECT_EQ(First(0)->GetParameter(), 0.0);
    EXPECT_EQ(Second(0)->GetParameter(), 0.5);
    ASSERT_TRUE(Cross(roof, PixelLine({{0, 2}, {4, 2}})));
    EXPECT_EQ(results->GetCount(), 1);
}

TEST_F(LineIntersectionsTest, ALineOfOnePointHasNoEnd) {
    const auto point = PixelLine({{2, 2}});
    const auto diagonal = PixelLine({{0, 0}, {4, 4}});
    ASSERT_TRUE(Cross(point, diagonal));
    ASSERT_EQ(results->GetCount(), 1);
    EXPECT_EQ(First(0)->GetSegmentIndex(), 1u);
    EXPECT_EQ(First(0)->GetParameter(), 0.0);
    EXPECT_EQ(First(0)->GetLineStart(), At(point, 0).Get());
    EXPECT_EQ(First(0)->GetLineEnd(), nullptr);
    EXPECT_EQ(Second(0)->GetParameter(), 0.5);
    EXPECT_EQ(Second(0)->GetLineEnd(), At(diagonal, 1).Get());
    ASSERT_TRUE(Cross(diagonal, point));
    ASSERT_EQ(results->GetCount(), 1);
    EXPECT_EQ(Second(0)->GetLineEnd(), nullptr);
    EXPECT_EQ(point->GetCount(), 1u);
}

TEST_F(LineIntersectionsTest, TwoPointsMeetWhenTheyAreEqual) {
    ASSERT_TRUE(Cross(PixelLine({{2, 2}}), PixelLine({{2, 2}})));
    EXPECT_EQ(results->GetCount(), 1);
    ASSERT_TRUE(Cross(PixelLine({{2, 2}}), PixelLine({{2, 3}})));
    EXPECT_EQ(results->GetCount(), 0);
}

TEST_F(LineIntersectionsTest, AnOverlapGivesItsEndsInTheOrderOfTheFirstLine) {
    ASSERT_TRUE(Cross(PixelLine({{0, 0}, {10, 0}}), PixelLine({{3, 0}, {7, 0}})));
    ASSERT_EQ(results->GetCount(), 2);
    EXPECT_EQ(PlaceOf(0).x, 3.0);
    EXPECT_EQ(PlaceOf(1).x, 7.0);
    EXPECT_EQ(First(0)->GetParameter(), 0.3);
    EXPECT_EQ(First(1)->GetParameter(), 0.7);
    EXPECT_EQ(Second(0)->GetParameter(), 0.0);
    EXPECT_EQ(Second(1)->GetParameter(), 1.0);
}

TEST_F(LineIntersectionsTest, WholePixelsCrossInFractions) {
    ASSERT_TRUE(
        Cross(LineOf({LongPixel(0, 0), LongPixel(1, 1)}), LineOf({LongPixel(0, 1), LongPixel(1, 0)})));
    ASSERT_EQ(results->GetCount(), 1);
    EXPECT_EQ(PlaceOf(0).x, 0.5);
    EXPECT_EQ(KoordOf(IRef<ICoord>(First(0)->GetIntersection())).type, KOORD_FLOATPIXEL);
}

TEST_F(LineIntersectionsTest, AnEmptyLineLeavesTheResultsAlone) {
    const auto nothing = PixelLine({});
    ASSERT_TRUE(Cross(square, across));
    EXPECT_TRUE(Cross(nothing, across));
    EXPECT_TRUE(Cross(square, nothing));
    EXPECT_TRUE(lines->IntersectOnMap(map.Get(), nothing.Get(), across.Get(), results.Get()));
    EXPECT_EQ(results->GetCount(), 2);
    EXPECT_TRUE(CrossOn(square, nothing));
    EXPECT_EQ(points->GetCount(), 1u);
}

TEST_F(LineIntersectionsTest, PixelLinesNeedPixels) {
    ASSERT_TRUE(Cross(square, across));
    const auto world = LineOf({GeodezRecord(48, 9), GeodezRecord(47, 10)});
    EXPECT_FALSE(Cross(world, across));
    EXPECT_EQ(results->GetCount(), 2) << "nothing is cleared";
    EXPECT_FALSE(Cross(square, world));
    EXPECT_EQ(results->GetCount(), 0);
    // An invalid pixel has no numbers.
    const auto invalid = PixelLine({{0, 0}});
    invalid->Add(EmptyCoord(2, KOORD_FLOATPIXEL).Get());
    EXPECT_FALSE(Cross(invalid, across));
    invalid->Add(nullptr);
    EXPECT_FALSE(Cross(across, invalid));
}

TEST_F(LineIntersectionsTest, IntersectionsOfOneReferenceKeepIt) {
    // Degrees on a degree map: the diagonals of a square cross in its middle.
    const auto a = LineOf({GeodezRecord(48, 8), GeodezRecord(46, 10)});
    const auto b = LineOf({GeodezRecord(46, 8), GeodezRecord(48, 10)});
    ASSERT_TRUE(CrossOn(a, b));
    ASSERT_EQ(points->GetCount(), 1u);
    const auto middle = PayloadOf<GeodezPayload>(At(points, 0));
    EXPECT_NEAR(middle.latitude, 47.0, 1e-12);  // degrees; a few roundings
    EXPECT_NEAR(middle.longitude, 9.0, 1e-12);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, 2u);
    ASSERT_TRUE(lines->IntersectOnMap(map.Get(), a.Get(), b.Get(), results.Get()));
    ASSERT_EQ(results->GetCount(), 1);
    EXPECT_EQ(First(0)->GetLineStart(), At(a, 0).Get());
    EXPECT_NEAR(First(0)->GetParameter(), 0.5, 1e-12);
}

TEST_F(LineIntersectionsTest, TwoSystemsCrossInPixels) {
    const auto a = LineOf({Utm32(4e5, 5.3e6), Utm32(6e5, 5.1e6)});
    const auto b = LineOf({GeodezRecord(46, 8), GeodezRecord(48, 10)});
    ASSERT_TRUE(CrossOn(a, b));
    ASSERT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(KoordOf(At(points, 0)).type, KOORD_FLOATPIXEL);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, 2u);
}

TEST_F(LineIntersectionsTest, AnySingleCoordinateOfAnotherSystemMakesPixels) {
    const tagKOORD ends[] = {Utm32(4e5, 5.3e6), Utm32(6e5, 5.1e6), Utm32(4e5, 5.1e6), Utm32(6e5, 5.3e6)};
    // Degrees near those ends.
    const tagKOORD others[] = {GeodezRecord(47.8, 7.7), GeodezRecord(46, 10.3), GeodezRecord(46, 7.7),
                               GeodezRecord(47.8, 10.3)};
    for (std::size_t i = 0; i < std::size(ends); ++i) {
        std::vector<tagKOORD> records(std::begin(ends), std::end(ends));
        records[i] = others[i];
        ASSERT_TRUE(CrossOn(LineOf({records[0], records[1]}), LineOf({records[2], records[3]})));
        ASSERT_EQ(points->GetCount(), 1u) << i;
        EXPECT_EQ(KoordOf(At(points, 0)).type, KOORD_FLOATPIXEL) << i;
    }
}

TEST_F(LineIntersectionsTest, TwoSystemsOfAnotherDatumCrossOnTheMaps) {
    const auto a = LineOf({GeodezRecord(48, 8, 0.0, DATUM_GER), GeodezRecord(46, 10, 0.0, DATUM_GER)});
    CKoord utm[2] = {Utm32(4e5, 5.1e6), Utm32(6e5, 5.3e6)};
    for (CKoord& koord : utm)
        koord.datum = DATUM_GER;
    ASSERT_TRUE(CrossOn(a, LineOf({utm[0], utm[1]})));
    ASSERT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(KoordOf(At(points, 0)).type, KOORD_FLOATPIXEL);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, 2u);
}

TEST_F(LineIntersectionsTest, TwoDatumsCrossOnTheMaps) {
    const auto a = LineOf({GeodezRecord(48, 8, 0.0, DATUM_GER), GeodezRecord(46, 10, 0.0, DATUM_GER)});
    const auto b = LineOf({GeodezRecord(46, 8), GeodezRecord(48, 10)});
    ASSERT_TRUE(CrossOn(a, b));
    ASSERT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(KoordOf(At(points, 0)).type, KOORD_GEODEZ);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, 2u);
    // Two lines of one datum keep it, whatever the map's.
    const auto c = LineOf({GeodezRecord(46, 8, 0.0, DATUM_GER), GeodezRecord(48, 10, 0.0, DATUM_GER)});
    ASSERT_TRUE(CrossOn(a, c));
    ASSERT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, static_cast<std::uint32_t>(DATUM_GER));
    EXPECT_NEAR(PayloadOf<GeodezPayload>(At(points, 0)).latitude, 47.0, 1e-4);  // degrees: the datums differ
}

TEST_F(LineIntersectionsTest, PixelsOfAnyDatumAreThoseOfTheMap) {
    CKoord other[2] = {FloatPixel(0, 4), FloatPixel(4, 0)};
    for (CKoord& koord : other)
        koord.datum = DATUM_GER;
    ASSERT_TRUE(CrossOn(PixelLine({{0, 0}, {4, 4}}), LineOf({other[0], other[1]})));
    ASSERT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(PixelOf(At(points, 0)).x, 2.0);
    EXPECT_EQ(KoordOf(At(points, 0)).datum, 2u);
}

TEST_F(LineIntersectionsTest, CoordinatesWithoutAPixelFail) {
    const auto beyond = LineOf({GeodezRecord(48, 8), testing::Nowhere()});
    const auto b = LineOf({GeodezRecord(46, 8), GeodezRecord(48, 10)});
    EXPECT_FALSE(CrossOn(beyond, b));
    EXPECT_FALSE(CrossOn(b, beyond));
    EXPECT_EQ(points->GetCount(), 1u) << "nothing is cleared";
    const auto gap = LineOf({GeodezRecord(48, 8)});
    gap->Add(nullptr);
    EXPECT_FALSE(CrossOn(gap, b));
    EXPECT_FALSE(CrossOn(b, gap));
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    EXPECT_FALSE(CrossOn(b, b)) << "an empty map";
}

TEST_F(LineIntersectionsTest, AnIntersectionWithoutAPositionEndsTheWork) {
    // From cap to cap in UPS: the lines meet at 85 north, where the system is at home, and at the equator.
    map = DegreeMap(-180.0, 90.0, 10.0);
    const auto ups = [](double latitude, double longitude) {
        const IRef<ICoord> coord = CoordOf(GeodezRecord(latitude, longitude));
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UPS).Get()));
        return KoordOf(coord);
    };
    const auto a = LineOf({ups(85, -10), ups(85, 10), ups(-85, -10)});
    const auto b = LineOf({ups(85, -10), ups(-85, 10)});
    EXPECT_FALSE(CrossOn(a, b));
    EXPECT_EQ(points->GetCount(), 1u) << "what was found before";
}

TEST_F(LineIntersectionsTest, RecordsNeedTheirLists) {
    // A manager that provides no lists leaves the results without any.
    const testing::ManagedLibrary emptyHanded{testing::MakeEmptyHandedManager()};
    const IRef<IIntersectionResults> useless(CreateClassIntersectionResults());
    EXPECT_FALSE(lines->IntersectPixelLines(square.Get(), across.Get(), useless.Get()));
    EXPECT_TRUE(lines->IntersectPixelLines(square.Get(), PixelLine({{9, 9}}).Get(), useless.Get()));
}

TEST_F(LineIntersectionsTest, NullAndForeignObjectsFail) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    ASSERT_TRUE(Cross(square, across));
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const mapIn = reinterpret_cast<IMapCoordOperations*>(other);
        auto* const array = reinterpret_cast<IArray*>(other);
        auto* const list = reinterpret_cast<IIntersectionResults*>(other);
        EXPECT_FALSE(lines->IntersectOnMap(mapIn, square.Get(), across.Get(), results.Get()));
        EXPECT_FALSE(lines->IntersectOnMap(map.Get(), array, across.Get(), results.Get()));
        EXPECT_FALSE(lines->IntersectOnMap(map.Get(), square.Get(), array, results.Get()));
        EXPECT_FALSE(lines->IntersectOnMap(map.Get(), square.Get(), across.Get(), list));
        EXPECT_FALSE(lines->IntersectOnMapToArray(mapIn, square.Get(), across.Get(), points.Get()));
        EXPECT_FALSE(lines->IntersectOnMapToArray(map.Get(), square.Get(), across.Get(), array));
        EXPECT_FALSE(lines->IntersectPixelLines(array, across.Get(), results.Get()));
        EXPECT_FALSE(lines->IntersectPixelLines(square.Get(), array, results.Get()));
        EXPECT_FALSE(lines->IntersectPixelLines(square.Get(), across.Get(), list));
        EXPECT_FALSE(lines->IntersectPixelLinesToArray(square.Get(), across.Get(), array));
    }
    // Neither is the other.
    auto* const arrayAsList = reinterpret_cast<IIntersectionResults*>(points.Get());
    EXPECT_FALSE(lines->IntersectPixelLines(square.Get(), across.Get(), arrayAsList));
    EXPECT_EQ(results->GetCount(), 2);
    EXPECT_EQ(points->GetCount(), 1u);
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_EQ(CountOf(map), 1u);
}

#if defined(__unix__)
// The list answers the first query of the operation and refuses the one before the intersections are added.
TEST_F(LineIntersectionsTest, AListThatIsNoneAnyMoreFails) {
    for (const bool isEmpty : {false, true}) {
        const IRef<IArray> other = isEmpty ? IRef<IArray>(CreateClassArray()) : across;
        testing::RefusedQueries queries;
        const IRef<IIntersectionResults> records(CreateClassIntersectionResults());
        const IRef<IArray> list(CreateClassArray());
        queries.TakeOver(records.Get());
        queries.TakeOver(list.Get());
        const auto refuse = [&] { queries.Refuse(2, testing::Refusal::FROM_THEN_ON); };
        refuse();
        EXPECT_EQ(lines->IntersectOnMap(map.Get(), square.Get(), other.Get(), records.Get()), isEmpty);
        refuse();
        EXPECT_EQ(lines->IntersectOnMapToArray(map.Get(), square.Get(), other.Get(), list.Get()), isEmpty);
        refuse();
        EXPECT_EQ(lines->IntersectPixelLines(square.Get(), other.Get(), records.Get()), isEmpty);
        refuse();
        EXPECT_EQ(lines->IntersectPixelLinesToArray(square.Get(), other.Get(), list.Get()), isEmpty);
    }
}
#endif

// An object of count 0 ends in the operation that it is given to, at its end and no earlier.
TEST_F(LineIntersectionsTest, TakesObjectsFreshFromTheirCreation) {
    const auto fresh = [] {
        IArray* const line = CreateClassArray();
        line->Add(CoordOf(FloatPixel(2, 2)).Get());
        return line;
    };
    EXPECT_TRUE(lines->IntersectPixelLines(fresh(), fresh(), CreateClassIntersectionResults()));
    EXPECT_TRUE(lines->IntersectOnMap(map.Get(), fresh(), fresh(), CreateClassIntersectionResults()));
    EXPECT_TRUE(lines->IntersectPixelLinesToArray(fresh(), fresh(), CreateClassArray()));
    // One line for all of them, which is cleared before it is read; on a map it has been read by then.
    IArray* const all = fresh();
    EXPECT_FALSE(lines->IntersectPixelLinesToArray(all, all, all));
    IArray* const allOnMap = fresh();
    EXPECT_TRUE(lines->IntersectOnMapToArray(map.Get(), allOnMap, allOnMap, allOnMap));
}

TEST_F(LineIntersectionsTest, AResultMayBeTheLineItself) {
    EXPECT_FALSE(lines->IntersectPixelLinesToArray(square.Get(), across.Get(), square.Get()));
    EXPECT_EQ(square->GetCount(), 0u);
    const auto world = LineOf({GeodezRecord(48, 8), GeodezRecord(46, 10)});
    const auto other = LineOf({GeodezRecord(46, 8), GeodezRecord(48, 10)});
    EXPECT_TRUE(lines->IntersectOnMapToArray(map.Get(), world.Get(), other.Get(), world.Get()));
    EXPECT_EQ(world->GetCount(), 1u);
}

}  // namespace
}  // namespace tessara
