// Lines of any points: densified, intersected, with distances and extents.
#include "fuzz/draw.h"
#include "support/managed_library.h"
#include "tessara/coordinate_area.h"
#include "tessara/intersection_results.h"
#include "tessara/line_points.h"

namespace tessara::fuzz {
namespace {

constexpr std::uint32_t MOST_POINTS = 6;

void Densify(ByteReader& bytes, const IRef<ILinePoints>& lines, const IRef<IMapCoordOperations>& map,
             ICoord* a, ICoord* b) {
    const IRef<IArray> chain(CreateClassArray());
    lines->DensifyMapStraight(map.Get(), a, b, chain.Get());
    lines->DensifyCoordStraight(map.Get(), a, b, chain.Get());
    lines->DensifyCoordStraightZoned(map.Get(), a, b, chain.Get());
    lines->DensifyGeodesic(map.Get(), a, b, chain.Get());
    const std::int32_t datum = DrawDatum(bytes);
    const auto reference = testing::MakeHostReference(datum, DrawType(bytes));
    lines->DensifyInReference(a, b, reference.Get(), chain.Get());
}

void Cross(const IRef<ILinePoints>& lines, const IRef<IMapCoordOperations>& map, const IRef<IArray>& a,
           const IRef<IArray>& b) {
    const IRef<IIntersectionResults> results(CreateClassIntersectionResults());
    const IRef<IArray> points(CreateClassArray());
    lines->IntersectOnMap(map.Get(), a.Get(), b.Get(), results.Get());
    lines->IntersectOnMapToArray(map.Get(), a.Get(), b.Get(), points.Get());
    lines->IntersectPixelLines(a.Get(), b.Get(), results.Get());
    lines->IntersectPixelLinesToArray(a.Get(), b.Get(), points.Get());
}

void Measure(const IRef<ILinePoints>& lines, const IRef<IMapCoordOperations>& map, ICoord* point, ICoord* a,
             ICoord* b, const IRef<IArray>& line) {
    lines->IsPointOnLine(map.Get(), point, line.Get());
    lines->GetSignedDistance(map.Get(), point, a, b);
    // The output may be the same object as the point.
    lines->GetFootPoint(map.Get(), point, a, b, point);
}

void Reach(const IRef<IMapCoordOperations>& map, const IRef<IArray>& line, ICoord* point) {
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    area->GetMapLineNorth(map.Get(), line.Get(), point);
    area->GetLineEast(line.Get(), point);
    const IRef<ICoord> west(CreateClassCoord());
    area->GetMapLineExtremes(map.Get(), line.Get(), point, point, point, west.Get());
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    static const tessara::testing::ManagedLibrary library;
    ByteReader bytes(data, size);
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    if (bytes.Below(4) == 0) lines->SetPixelTolerance(bytes.Number());
    const IRef<IMapCoordOperations> map = DrawMapObject(bytes);
    const IRef<ICoord> point = DrawCoord(bytes);
    const IRef<IArray> first = DrawLine(bytes, MOST_POINTS);
    const IRef<IArray> second = bytes.Below(8) == 0 ? first : DrawLine(bytes, MOST_POINTS);
    const IRef<ICoord> a(first->GetAt(0)), b(first->GetAt(1));
    Densify(bytes, lines, map, a.Get(), b.Get());
    Cross(lines, map, first, second);
    Measure(lines, map, point.Get(), a.Get(), b.Get(), second);
    Reach(map, first, point.Get());
    return 0;
}
