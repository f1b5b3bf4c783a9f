// Splitting as an operation of the class, on coordinates of all kinds.
#include <gtest/gtest.h>

#include "areas/coordinate_area.h"
#include "support/polygons.h"

namespace tessara {
namespace {

using testing::AreasOf;
using testing::At;
using testing::DATUM_GER;
using testing::FloatPixel;
using testing::LineOf;
using testing::LongPixel;
using testing::Nowhere;
using testing::Part;
using testing::PixelPolygon;
using testing::RingOf;

class SplitPolygonTest : public testing::PolygonTest {
  protected:
    bool Split(const IRef<IArray>& polygon) {
        return area->SplitPolygon(map.Get(), polygon.Get(), parts.Get());
    }

    IRef<IArray> parts{CreateClassArray()};
    IRef<IMapCoordOperations> map = testing::HundredPixelsADegree();
};

TEST_F(SplitPolygonTest, ABowTieGivesTwoClosedTrianglesInTheOrderOfTheWalk) {
    for (const bool isClosed : {false, true}) {
        Ring bowTie{{0, 0}, {2, 2}, {2, 0}, {0, 2}};
        if (isClosed) bowTie.push_back(bowTie.front());
        Fill(parts);
        ASSERT_TRUE(Split(PixelPolygon(bowTie)));
        ASSERT_EQ(parts->GetCount(), 2u);
        EXPECT_EQ(RingOf(Part(parts, 0)), (Ring{{1, 1}, {2, 2}, {2, 0}, {1, 1}}));
        EXPECT_EQ(RingOf(Part(parts, 1)), (Ring{{0, 0}, {1, 1}, {0, 2}, {0, 0}}));
        const CKoord vertex = KoordOf(At(Part(parts, 0), 0));
        EXPECT_EQ(vertex.type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
        EXPECT_EQ(vertex.datum, static_cast<std::uint32_t>(DATUM_GER));
    }
}

TEST_F(SplitPolygonTest, PositionsAreSplitOnTheMap) {
    // On the map (100, 200), (300, 100), (300, 200), (100, 100): a bow-tie that crosses in (200, 150).
    ASSERT_TRUE(Split(LineOf({GeodezRecord(49, 9, 0, DATUM_GER), GeodezRecord(50, 11, 0, DATUM_GER),
                              GeodezRecord(49, 11, 0, DATUM_GER), GeodezRecord(50, 9, 0, DATUM_GER)})));
    ASSERT_EQ(parts->GetCount(), 2u);
    const Ring first = RingOf(Part(parts, 0));
    ASSERT_EQ(first.size(), 4u);
    EXPECT_NEAR(first[0].x, 200, 1e-9);
    EXPECT_NEAR(first[0].y, 150, 1e-9);
    EXPECT_EQ(AreasOf(parts), (std::vector<double>{5000, 5000}));
}

TEST_F(SplitPolygonTest, WholeAndFractionalPixelsAndPositionsMix) {
    const auto mixed = LineOf({LongPixel(100, 200), FloatPixel(300, 100), GeodezRecord(49, 11, 0, DATUM_GER),
                               GeodezRecord(50, 9, 0, DATUM_GER)});
    ASSERT_TRUE(Split(mixed));
    EXPECT_EQ(AreasOf(parts), (std::vector<double>{5000, 5000}));
}

TEST_F(SplitPolygonTest, SmallPolygonsAreOnePart) {
    ASSERT_TRUE(Split(PixelPolygon({{0, 0}, {4, 0}, {4, 4}})));
    ASSERT_EQ(parts->GetCount(), 1u);
    EXPECT_EQ(Part(parts, 0)->GetCount(), 4u);
    ASSERT_TRUE(Split(PixelPolygon({{3, 4}})));
    ASSERT_EQ(parts->GetCount(), 1u);
    EXPECT_EQ(Part(parts, 0)->GetCount(), 1u);
    ASSERT_TRUE(Split(PixelPolygon({})));
    EXPECT_EQ(parts->GetCount(), 0u);
}

TEST_F(SplitPolygonTest, AWayThereAndBackIsAPartOfThreeVertices) {
    ASSERT_TRUE(Split(PixelPolygon({{0, 0}, {4, 0}, {4, 4}, {2, 4}, {2, 9}, {2, 4}, {0, 4}})));
    ASSERT_EQ(parts->GetCount(), 2u);
    EXPECT_EQ(RingOf(Part(parts, 0)), (Ring{{2, 4}, {2, 9}, {2, 4}}));
    EXPECT_EQ(Part(parts, 1)->GetCount(), 6u);
}

TEST_F(SplitPolygonTest, AFailureLeavesTheParts) {
    const auto invalid = SquareWith(EmptyCoord(2, KOORD_FLOATPIXEL).Get());
    const auto torn = LineOf({GeodezRecord(48, 8), Nowhere(), GeodezRecord(49, 9)});
    Fill(parts);
    for (const auto& polygon : {invalid, SquareWith(nullptr), SquareWith(stranger.Get()), torn})
        EXPECT_FALSE(Split(polygon));
    const auto square = PixelPolygon(testing::Rectangle(0, 0, 4, 4));
    for (IArray* const wrong : Wrong<IArray>()) {
        EXPECT_FALSE(area->SplitPolygon(map.Get(), wrong, parts.Get()));
        EXPECT_FALSE(area->SplitPolygon(map.Get(), square.Get(), wrong));
    }
    for (IMapCoordOperations* const wrong : Wrong<IMapCoordOperations>())
        EXPECT_FALSE(area->SplitPolygon(wrong, square.Get(), parts.Get()));
    EXPECT_TRUE(IsUntouched(parts));
}

TEST_F(SplitPolygonTest, APolygonMayBecomeTheListOfItsParts) {
    const auto bowTie = PixelPolygon({{0, 0}, {2, 2}, {2, 0}, {0, 2}});
    ASSERT_TRUE(area->SplitPolygon(map.Get(), bowTie.Get(), bowTie.Get()));
    EXPECT_EQ(AreasOf(bowTie), (std::vector<double>{1, 1}));
}

TEST_F(SplitPolygonTest, ObjectsOfCountZeroMayBeArguments) {
    EXPECT_TRUE(area->SplitPolygon(map.Get(), CreateClassArray(), CreateClassArray()));
}

}  // namespace
}  // namespace tessara
