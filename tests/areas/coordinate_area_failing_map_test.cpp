// A map of a host may stop answering at any call. Then extents of lines and questions about polygons fail.
#include <gtest/gtest.h>

#include "support/host_map.h"
#include "support/polygons.h"

namespace tessara::testing {
namespace {

class AreaOnAFailingMap : public PolygonTest {
  protected:
    bool ExtremesOfLine(const IRef<IArray>& line, std::int32_t system) {
        const auto result = [system] { return EmptyCoord(DATUM_WGS84, system); };
        return area->GetMapLineExtremes(map.Get(), line.Get(), result().Get(), result().Get(), result().Get(),
                                        result().Get());
    }

    FailingMap* host = NewObject<FailingMap>(DegreeMap(8.0, 49.0, 1000.0), 0);
    IRef<IMapCoordOperations> map{host};
    IRef<IArray> triangle =
        LineOf({Utm32(450000.0, 5300000.0), Utm32(650000.0, 5310000.0), Utm32(550000.0, 5400000.0)});
};

TEST_F(AreaOnAFailingMap, TheExtentOfALineNeedsEachAnswer) {
    ExpectFailureAtEachCall(host, [&] {
        return ExtremesOfLine(PixelLine({{100, 100}, {300, 200}, {500, 100}}), KOORD_GEODEZ);
    });
    ExpectFailureAtEachCall(host, [&] {
        // An edge has none in pixels.
        return ExtremesOfLine(LineOf({GeodezRecord(48.0, 8.5)}), KOORD_FLOATPIXEL);
    });
}

// coordinate_area_polygons_test.cpp asks the other questions.
TEST_F(AreaOnAFailingMap, APointIsInsideTransferredEdgesOnlyWithEachAnswer) {
    const IRef<ICoord> inside = CoordOf(Utm32(550000.0, 5340000.0));
    ExpectFailureAtEachCall(
        host, [&] { return area->IsInsideTransferred(map.Get(), inside.Get(), triangle.Get()); });
}

TEST_F(AreaOnAFailingMap, PolygonsAreSplitAndOverlaidWithEachAnswer) {
    const IRef<IArray> parts(CreateClassArray());
    ExpectFailureAtEachCall(host, [&] {
        Fill(parts);
        const bool isDone = area->SplitPolygon(map.Get(), triangle.Get(), parts.Get());
        EXPECT_TRUE(isDone || IsUntouched(parts));
        return isDone;
    });
    const IRef<IArray> other =
        LineOf({Utm32(500000.0, 5290000.0), Utm32(600000.0, 5290000.0), Utm32(550000.0, 5350000.0)});
    const IRef<IArray> lists[4] = {IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray()),
                                   IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray())};
    ExpectFailureAtEachCall(host, [&] {
        for (const IRef<IArray>& list : lists)
            Fill(list);
        const std::int32_t relation =
            area->OverlayOnMap(map.Get(), triangle.Get(), other.Get(), lists[0].Get(), lists[1].Get(),
                               lists[2].Get(), lists[3].Get());
        EXPECT_TRUE(relation != OVERLAY_FAILURE || IsUntouched(lists[3]));
        return relation == OVERLAY_CROSSING;
    });
}

}  // namespace
}  // namespace tessara::testing
