// A map of a host may stop giving positions at any call. Then a line or a point fails whole.
#include <gtest/gtest.h>

#include "support/host_map.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "tessara/line_points.h"

namespace tessara::testing {
namespace {

class LinePointsOnAFailingMap : public BalancedTest {
  protected:
    using Densify = bool (ILinePoints::*)(IMapCoordOperations*, ICoord*, ICoord*, IArray*);

    void ExpectNoPartsOfALine(Densify densify, const tagKOORD& a, const tagKOORD& b) {
        const IRef<ICoord> from = CoordOf(a);
        const IRef<ICoord> to = CoordOf(b);
        const IRef<IArray> out(CreateClassArray());
        ExpectFailureAtEachCall(host, [&] {
            const bool isDone = (lines.Get()->*densify)(map.Get(), from.Get(), to.Get(), out.Get());
            EXPECT_EQ(out->GetCount() > 0, isDone);
            return isDone;
        });
    }

    IRef<ILinePoints> lines{CreateClassLinePoints()};
    FailingMap* host = NewObject<FailingMap>(DegreeMap(8.0, 49.0, 1000.0), 0);
    IRef<IMapCoordOperations> map{host};
};

TEST_F(LinePointsOnAFailingMap, ADensifiedLineIsWholeOrEmpty) {
    const tagKOORD west = GeodezRecord(48.0, 8.5);
    const tagKOORD east = GeodezRecord(48.5, 10.5);
    ExpectNoPartsOfALine(&ILinePoints::DensifyMapStraight, west, east);
    ExpectNoPartsOfALine(&ILinePoints::DensifyCoordStraight, Utm32(480000.0, 5316000.0),
                         Utm32(600000.0, 5400000.0));
    ExpectNoPartsOfALine(&ILinePoints::DensifyGeodesic, west, east);
    ExpectNoPartsOfALine(&ILinePoints::DensifyGeodesic, FloatPixel(500.0, 1000.0), FloatPixel(2500.0, 500.0));
}

TEST_F(LinePointsOnAFailingMap, AFootPointIsWrittenOrFails) {
    const IRef<ICoord> point = CoordOf(GeodezRecord(48.4, 9.0));
    const IRef<ICoord> from = CoordOf(GeodezRecord(48.0, 8.5));
    const IRef<ICoord> to = CoordOf(GeodezRecord(48.0, 10.5));
    const IRef<ICoord> foot = CoordOf(GeodezRecord(0.0, 0.0));
    const auto find = [&] {
        return lines->GetFootPoint(map.Get(), point.Get(), from.Get(), to.Get(), foot.Get());
    };
    ExpectFailureAtEachCall(host, find);
    const IRef<ICoord> pixel = CoordOf(FloatPixel(0.0, 0.0));
    ExpectFailureAtEachCall(
        host, [&] { return lines->GetFootPoint(map.Get(), point.Get(), from.Get(), to.Get(), pixel.Get()); });
}

TEST_F(LinePointsOnAFailingMap, IntersectionsAreAllFoundOrNone) {
    const IRef<IArray> first = LineOf({GeodezRecord(48.0, 8.5), GeodezRecord(48.5, 10.5)});
    const IRef<IArray> second = LineOf({GeodezRecord(48.5, 8.5), GeodezRecord(48.0, 10.5)});
    const IRef<IArray> points(CreateClassArray());
    ExpectFailureAtEachCall(host, [&] {
        return lines->IntersectOnMapToArray(map.Get(), first.Get(), second.Get(), points.Get());
    });
    EXPECT_EQ(points->GetCount(), 1u);
}

}  // namespace
}  // namespace tessara::testing
