// The overlay operations of the class: the coordinates of the parts, and the contents of the lists after a
// failure.
#include <gtest/gtest.h>

#include "areas/coordinate_area.h"
#include "support/polygons.h"

namespace tessara::overlay_call_test {
namespace {

using testing::AreasOf;
using testing::At;
using testing::CountOf;
using testing::DATUM_GER;
using testing::LineOf;
using testing::LongPixel;
using testing::Nowhere;
using testing::Part;
using testing::PixelPolygon;
using testing::PolarSquare;
using testing::RingOf;
using testing::Utm32;

enum { NEITHER, ONLY_SECOND, ONLY_FIRST, BOTH };

IRef<IArray> Rectangle(double left, double top, double right, double bottom) {
    return PixelPolygon(testing::Rectangle(left, top, right, bottom));
}

IRef<IArray> Field(double south, double west, double north, double east, std::int32_t datum = DATUM_WGS84) {
    return LineOf({GeodezRecord(south, west, 0, datum), GeodezRecord(south, east, 0, datum),
                   GeodezRecord(north, east, 0, datum), GeodezRecord(north, west, 0, datum)});
}

class OverlayCallTest : public testing::PolygonTest {
  protected:
    enum class Kind { OnMap, NoMap, Pixels };
    static constexpr Kind KINDS[] = {Kind::OnMap, Kind::NoMap, Kind::Pixels};

    OverlayCallTest() {
        for (IRef<IArray>& list : lists)
            list = IRef<IArray>(CreateClassArray());
    }

    std::int32_t Run(Kind kind, IMapCoordOperations* on, IArray* first, IArray* second) {
        IArray* out[4];
        for (std::size_t i = 0; i < 4; ++i)
            out[i] = lists[i].Get();
        return Run(kind, on, first, second, out);
    }
    std::int32_t Run(Kind kind, IMapCoordOperations* on, IArray* first, IArray* second, IArray* const* out) {
        if (kind == Kind::OnMap) return area->OverlayOnMap(on, first, second, out[0], out[1], out[2], out[3]);
        if (kind == Kind::NoMap) return area->Overlay(first, second, out[0], out[1], out[2], out[3]);
        return area->OverlayPixels(on, first, second, out[0], out[1], out[2], out[3]);
    }
    std::int32_t Run(Kind kind, const IRef<IArray>& first, const IRef<IArray>& second) {
        return Run(kind, map.Get(), first.Get(), second.Get());
    }

    void FillLists() {
        for (const IRef<IArray>& list : lists)
            Fill(list);
    }
    [[nodiscard]] bool AreListsEmpty() const {
        return std::all_of(std::begin(lists), std::end(lists),
                           [](const IRef<IArray>& list) { return list->GetCount() == 0; });
    }
    [[nodiscard]] bool AreListsUntouched() const {
        return std::all_of(std::begin(lists), std::end(lists),
                           [&](const IRef<IArray>& list) { return IsUntouched(list); });
    }

    IRef<IArray> lists[4];
    IRef<IMapCoordOperations> map = testing::HundredPixelsADegree();
};

TEST_F(OverlayCallTest, EachListGetsItsParts) {
    const auto u = PixelPolygon({{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 3}, {3, 3}, {3, 10}, {0, 10}});
    const auto bar = Rectangle(-1, 5, 11, 7);
    for (const Kind kind : KINDS) {
        FillLists();
        ASSERT_EQ(Run(kind, u, bar), OVERLAY_CROSSING);
        EXPECT_EQ(AreasOf(lists[NEITHER]), (std::vector<double>{8}));
        EXPECT_EQ(AreasOf(lists[ONLY_SECOND]), (std::vector<double>{2, 2, 8}));
        EXPECT_EQ(AreasOf(lists[ONLY_FIRST]), (std::vector<double>{9, 9, 42}));
        EXPECT_EQ(AreasOf(lists[BOTH]), (std::vector<double>{6, 6}));
    }
}

TEST_F(OverlayCallTest, PixelPartsAreClosedFloatingPixels) {
    const auto whole = LineOf({LongPixel(0, 0), LongPixel(4, 0), LongPixel(4, 4), LongPixel(0, 4)});
    const auto other = LineOf({LongPixel(2, 2), LongPixel(6, 2), LongPixel(6, 6), LongPixel(2, 6)});
    for (const Kind kind : KINDS) {
        ASSERT_EQ(Run(kind, whole, other), OVERLAY_CROSSING);
        const IRef<IArray> both = Part(lists[BOTH], 0);
        ASSERT_EQ(both->GetCount(), 5u);
        EXPECT_EQ(RingOf(both).front(), RingOf(both).back());
        const CKoord vertex = KoordOf(At(both, 0));
        EXPECT_EQ(vertex.type, static_cast<std::uint32_t>(KOORD_FLOATPIXEL));
        // On the map's datum, or without a map on that of the polygons.
        const std::int32_t datum = kind == Kind::NoMap ? DATUM_WGS84 : DATUM_GER;
        EXPECT_EQ(vertex.datum, static_cast<std::uint32_t>(datum));
        EXPECT_EQ(At(both, 0)->GetHeight(), 0.0);
    }
}

TEST_F(OverlayCallTest, OtherResultsLeaveTheListsEmpty) {
    const auto square = Rectangle(0, 0, 4, 4);
    const struct {
        IRef<IArray> first, second;
        std::int32_t result;
    } cases[] = {
        {square, Rectangle(5, 5, 6, 6), OVERLAY_APART},
        {square, square, OVERLAY_EQUAL},
        {Rectangle(1, 1, 3, 3), square, OVERLAY_FIRST_INSIDE},
        {square, Rectangle(1, 1, 3, 3), OVERLAY_SECOND_INSIDE},
        {square, Rectangle(4, 1, 6, 3), OVERLAY_TOUCHING},
        {square, PixelPolygon({}), OVERLAY_APART},
        {PixelPolygon({}), square, OVERLAY_APART},
        {PixelPolygon({}), PixelPolygon({}), OVERLAY_APART},
    };
    for (const Kind kind : KINDS) {
        for (const auto& [first, second, result] : cases) {
            FillLists();
            EXPECT_EQ(Run(kind, first, second), result);
            EXPECT_TRUE(AreListsEmpty());
        }
    }
}

TEST_F(OverlayCallTest, PositionsAreOverlaidOnTheMap) {
    // On the map [100, 300] x [200, 400] and [200, 400] x [100, 300], in pixels.
    const auto first = Field(47, 9, 49, 11, DATUM_GER);
    const auto second = Field(48, 10, 50, 12, DATUM_GER);
    ASSERT_EQ(Run(Kind::OnMap, first, second), OVERLAY_CROSSING);
    EXPECT_EQ(AreasOf(lists[BOTH]), (std::vector<double>{100.0 * 100.0}));
    EXPECT_EQ(AreasOf(lists[ONLY_FIRST]), (std::vector<double>{30000}));
    EXPECT_EQ(AreasOf(lists[ONLY_SECOND]), (std::vector<double>{30000}));
    EXPECT_EQ(AreasOf(lists[NEITHER]), (std::vector<double>{}));
}

TEST_F(OverlayCallTest, PositionsWithoutAMapGiveOpenPartsInTheirReference) {
    for (const std::int32_t datum : {DATUM_WGS84, DATUM_GER}) {
        const auto first = Field(47, 9, 49, 11, datum);
        const auto second = Field(48, 10, 50, 12, datum);
        ASSERT_EQ(Run(Kind::NoMap, first, second), OVERLAY_CROSSING);
        EXPECT_EQ(lists[NEITHER]->GetCount(), 0u);
        ASSERT_EQ(lists[BOTH]->GetCount(), 1u);
        const IRef<IArray> both = Part(lists[BOTH], 0);
        ASSERT_EQ(both->GetCount(), 4u) << "without the closing vertex";
        int corners = 0;
        for (std::uint32_t i = 0; i < 4; ++i) {
            const CKoord koord = KoordOf(At(both, i));
            EXPECT_EQ(koord.type, static_cast<std::uint32_t>(KOORD_GEODEZ));
            EXPECT_EQ(koord.datum, static_cast<std::uint32_t>(datum));
            const auto at = Load<GeodezPayload>(koord);
            // The two corners come back from the map to 1e-6 degrees, which is 0.1 m or a hundredth of a
            // pixel: the datum shift there and back isn't closer.
            const bool isFirst = std::fabs(at.latitude - 49) < 1e-6 && std::fabs(at.longitude - 11) < 1e-6;
            const bool isSecond = std::fabs(at.latitude - 48) < 1e-6 && std::fabs(at.longitude - 10) < 1e-6;
            corners += isFirst || isSecond;
        }
        EXPECT_EQ(corners, 2);
        EXPECT_EQ(Part(lists[ONLY_FIRST], 0)->GetCount(), 6u);
    }
}

TEST_F(OverlayCallTest, PolarPositionsWithoutAMapKeepTheirGrid) {
    // Straight edges on the grid are straight on the map: the common square is [2.0e6, 2.1e6] both ways.
    ASSERT_EQ(Run(Kind::NoMap, PolarSquare(1.9e6, 1.9e6, 2e5), PolarSquare(2.0e6, 2.0e6, 2e5)),
              OVERLAY_CROSSING);
    const IRef<IArray> both = Part(lists[BOTH], 0);
    ASSERT_EQ(both->GetCount(), 4u);
    for (std::uint32_t i = 0; i < 4; ++i) {
        const auto at = PayloadOf<UpsPayload>(At(both, i));
        // A pixel is 10 m; through degrees and back the grid keeps 0.1 mm.
        EXPECT_NEAR(std::min(std::fabs(at.easting - 2.0e6), std::fabs(at.easting - 2.1e6)), 0, 1e-4);
        EXPECT_NEAR(std::min(std::fabs(at.northing - 2.0e6), std::fabs(at.northing - 2.1e6)), 0, 1e-4);
    }
}

// CH ends at the northing -300000. Edges are straight on a map whose parallels are straight lines, and in the
// grid a parallel runs further south in its middle than at its ends.
TEST_F(OverlayCallTest, APartBeyondTheLimitOfItsSystemFailsAndEmptiesTheLists) {
    const auto relation = [&](double south) {
        const auto triangle = [south](double west, double east) {
            std::vector<tagKOORD> vertices = {testing::Grid(KOORD_CH, west, south),
                                              testing::Grid(KOORD_CH, east, south),
                                              testing::Grid(KOORD_CH, (west + east) / 2.0, 100000.0)};
            for (tagKOORD& vertex : vertices)
                vertex.datum = testing::DATUM_CH1903;
            return LineOf(vertices);
        };
        FillLists();
        return Run(Kind::NoMap, triangle(0.0, 800000.0), triangle(400000.0, 1200000.0));
    };
    EXPECT_EQ(relation(-200000.0), OVERLAY_CROSSING);
    EXPECT_EQ(relation(-299999.0), OVERLAY_FAILURE);
    EXPECT_TRUE(AreListsEmpty());
}

TEST_F(OverlayCallTest, MixedReferencesFailAndLeaveTheLists) {
    const auto wgs84 = Field(47, 9, 49, 11);
    const auto german = Field(48, 10, 50, 12, DATUM_GER);
    const auto utm = LineOf({Utm32(500000, 5300000), Utm32(600000, 5300000), Utm32(600000, 5400000)});
    const auto mixed = LineOf({GeodezRecord(47, 9), GeodezRecord(47, 11), Utm32(500000, 5400000)});
    for (const Kind kind : {Kind::OnMap, Kind::NoMap}) {
        for (const auto& other : {german, utm, mixed, Rectangle(0, 0, 4, 4)}) {
            FillLists();
            EXPECT_EQ(Run(kind, wgs84, other), OVERLAY_FAILURE);
            EXPECT_EQ(Run(kind, other, wgs84), OVERLAY_FAILURE);
            EXPECT_TRUE(AreListsUntouched());
        }
    }
}

TEST_F(OverlayCallTest, PositionsWithoutAPixelFailAndLeaveTheLists) {
    const auto nowhere = LineOf({Nowhere(), Nowhere(), Nowhere()});
    FillLists();
    EXPECT_EQ(Run(Kind::OnMap, nowhere, nowhere), OVERLAY_FAILURE);
    EXPECT_EQ(Run(Kind::NoMap, nowhere, nowhere), OVERLAY_FAILURE);
    EXPECT_TRUE(AreListsUntouched());
}

TEST_F(OverlayCallTest, PixelOverlaysEmptyTheListsWhenAVertexIsNoPixel) {
    const auto square = Rectangle(0, 0, 4, 4);
    const auto invalid = SquareWith(EmptyCoord(2, KOORD_FLOATPIXEL).Get());
    for (const auto& broken : {Field(47, 9, 49, 11), invalid, SquareWith(nullptr)}) {
        FillLists();
        EXPECT_EQ(Run(Kind::Pixels, square, broken), OVERLAY_FAILURE);
        EXPECT_TRUE(AreListsEmpty());
        FillLists();
        EXPECT_EQ(Run(Kind::Pixels, broken, square), OVERLAY_FAILURE);
        EXPECT_TRUE(AreListsEmpty());
    }
    FillLists();
    EXPECT_EQ(Run(Kind::NoMap, square, invalid), OVERLAY_FAILURE);
    EXPECT_TRUE(AreListsEmpty());
    EXPECT_EQ(Run(Kind::Pixels, PixelPolygon({}), Field(47, 9, 49, 11)), OVERLAY_APART);
}

TEST_F(OverlayCallTest, NoNumbersFailAndEmptyTheLists) {
    const auto square = Rectangle(0, 0, 4, 4);
    for (const double bad : {NONE, HUGE_VAL, -1e300}) {
        const auto broken = PixelPolygon({{0, 0}, {4, bad}, {4, 4}, {0, 4}});
        for (const Kind kind : KINDS) {
            FillLists();
            EXPECT_EQ(Run(kind, square, broken), OVERLAY_FAILURE);
            EXPECT_TRUE(AreListsEmpty());
        }
    }
}

TEST_F(OverlayCallTest, NullAndForeignObjectsFailAndLeaveTheLists) {
    const auto square = Rectangle(0, 0, 4, 4);
    const auto other = Rectangle(2, 2, 6, 6);
    for (const Kind kind : KINDS) {
        FillLists();
        for (IArray* const wrong : Wrong<IArray>()) {
            EXPECT_EQ(Run(kind, map.Get(), wrong, other.Get()), OVERLAY_FAILURE);
            EXPECT_EQ(Run(kind, map.Get(), square.Get(), wrong), OVERLAY_FAILURE);
            for (std::size_t odd = 0; odd < 4; ++odd) {
                IArray* out[] = {lists[0].Get(), lists[1].Get(), lists[2].Get(), lists[3].Get()};
                out[odd] = wrong;
                EXPECT_EQ(Run(kind, map.Get(), square.Get(), other.Get(), out), OVERLAY_FAILURE);
            }
        }
        if (kind != Kind::NoMap) {
            for (IMapCoordOperations* const wrong : Wrong<IMapCoordOperations>())
                EXPECT_EQ(Run(kind, wrong, square.Get(), other.Get()), OVERLAY_FAILURE);
        }
        EXPECT_TRUE(AreListsUntouched());
    }
}

TEST_F(OverlayCallTest, OneListMayTakeAllParts) {
    for (const Kind kind : KINDS) {
        IArray* const out[] = {lists[0].Get(), lists[0].Get(), lists[0].Get(), lists[0].Get()};
        const auto first = Rectangle(0, 0, 4, 4);
        const auto second = Rectangle(2, 2, 6, 6);
        EXPECT_EQ(Run(kind, map.Get(), first.Get(), second.Get(), out), OVERLAY_CROSSING);
        EXPECT_EQ(AreasOf(lists[0]), (std::vector<double>{4, 12, 12}));
    }
}

TEST_F(OverlayCallTest, APolygonMayBecomeTheListOfItsParts) {
    for (const Kind kind : KINDS) {
        const auto first = Rectangle(0, 0, 4, 4);
        const auto second = Rectangle(2, 2, 6, 6);
        IArray* const out[] = {lists[0].Get(), second.Get(), first.Get(), lists[3].Get()};
        EXPECT_EQ(Run(kind, map.Get(), first.Get(), second.Get(), out), OVERLAY_CROSSING);
        EXPECT_EQ(AreasOf(first), (std::vector<double>{12}));
        EXPECT_EQ(AreasOf(second), (std::vector<double>{12}));
    }
}

TEST_F(OverlayCallTest, InputsStayAsTheyAre) {
    const auto first = Rectangle(0, 0, 4, 4);
    const auto second = Rectangle(2, 2, 6, 6);
    for (const Kind kind : KINDS)
        EXPECT_EQ(Run(kind, first, second), OVERLAY_CROSSING);
    EXPECT_EQ(RingOf(first), testing::Rectangle(0, 0, 4, 4));
    EXPECT_EQ(RingOf(second), testing::Rectangle(2, 2, 6, 6));
    EXPECT_EQ(CountOf(first), 1u);
    EXPECT_EQ(CountOf(At(first, 0)), 2u);
    EXPECT_EQ(CountOf(map), 1u);
}

TEST_F(OverlayCallTest, TheObjectsToleranceCounts) {
    // The first vertex is 0.2 / 1.414 = 0.14 beyond the diamond's edge on x + y = 4.
    const auto diamond = PixelPolygon({{0, -4}, {4, 0}, {0, 4}, {-4, 0}});
    const auto beside = Rectangle(2.1, 2.1, 3, 3);
    for (const Kind kind : KINDS) {
        ASSERT_TRUE(area->SetTolerance(0.1));
        EXPECT_EQ(Run(kind, beside, diamond), OVERLAY_APART);
        ASSERT_TRUE(area->SetTolerance(0.2));
        EXPECT_EQ(Run(kind, beside, diamond), OVERLAY_FIRST_INSIDE);
        EXPECT_EQ(Run(kind, diamond, beside), OVERLAY_SECOND_INSIDE);
    }
}

TEST_F(OverlayCallTest, AMapWithoutADatumTakesEmptyPixelPolygonsOnly) {
    map = testing::HundredPixelsADegree(5000);
    const auto square = Rectangle(0, 0, 4, 4);
    FillLists();
    EXPECT_EQ(Run(Kind::Pixels, square, square), OVERLAY_FAILURE);
    EXPECT_TRUE(AreListsEmpty());
    FillLists();
    EXPECT_EQ(Run(Kind::Pixels, square, PixelPolygon({})), OVERLAY_APART);
    EXPECT_TRUE(AreListsEmpty());
    FillLists();
    EXPECT_EQ(Run(Kind::OnMap, square, square), OVERLAY_FAILURE);
    EXPECT_TRUE(AreListsUntouched());
}

TEST_F(OverlayCallTest, ObjectsOfCountZeroMayBeArguments) {
    EXPECT_EQ(area->Overlay(CreateClassArray(), CreateClassArray(), CreateClassArray(), CreateClassArray(),
                            CreateClassArray(), CreateClassArray()),
              OVERLAY_APART);
}

}  // namespace
}  // namespace tessara::overlay_call_test
