// Polygons of any vertices: points inside, overlays, splitting.
#include "fuzz/draw.h"
#include "support/managed_library.h"
#include "tessara/coordinate_area.h"

namespace tessara::fuzz {
namespace {

// Enough for every kind of intersection, and few enough for the time limit of an input.
constexpr std::uint32_t MOST_VERTICES = 12;

struct Parts {
    IRef<IArray> list[4]{IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray()),
                         IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray())};
};

void CheckOverlay(std::int32_t result, const Parts& parts) {
    Require(result >= OVERLAY_FAILURE && result <= OVERLAY_TOUCHING);
    if (result == OVERLAY_CROSSING) return;
    for (const IRef<IArray>& list : parts.list)
        Require(list->GetCount() == 0);
}

void Overlay(const IRef<ICoordinateArea>& area, const IRef<IMapCoordOperations>& map, const IRef<IArray>& a,
             const IRef<IArray>& b) {
    const Parts onMap, plain, pixels;
    const auto& m = onMap.list;
    const auto& p = plain.list;
    const auto& x = pixels.list;
    CheckOverlay(
        area->OverlayOnMap(map.Get(), a.Get(), b.Get(), m[0].Get(), m[1].Get(), m[2].Get(), m[3].Get()),
        onMap);
    CheckOverlay(area->Overlay(a.Get(), b.Get(), p[0].Get(), p[1].Get(), p[2].Get(), p[3].Get()), plain);
    CheckOverlay(
        area->OverlayPixels(map.Get(), a.Get(), b.Get(), x[0].Get(), x[1].Get(), x[2].Get(), x[3].Get()),
        pixels);
}

void Ask(const IRef<ICoordinateArea>& area, const IRef<IMapCoordOperations>& map, const IRef<ICoord>& point,
         const IRef<IArray>& polygon) {
    area->IsInsideCoordEdges(map.Get(), point.Get(), polygon.Get());
    area->IsInsideCoordEdgesNoMap(point.Get(), polygon.Get());
    area->IsInsideMapEdges(map.Get(), point.Get(), polygon.Get());
    area->IsInsideTransferred(map.Get(), point.Get(), polygon.Get());
    area->IsInsideOnMap(map.Get(), point.Get(), polygon.Get());
    area->IsInsidePixels(point.Get(), polygon.Get());
    const IRef<IArray> parts(CreateClassArray());
    Require(area->SplitPolygon(map.Get(), polygon.Get(), parts.Get()) || parts->GetCount() == 0);
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara;
    using namespace tessara::fuzz;
    static const tessara::testing::ManagedLibrary library;
    ByteReader bytes(data, size);
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    if (bytes.Below(4) == 0) area->SetTolerance(bytes.Number());
    const IRef<IMapCoordOperations> map = DrawMapObject(bytes);
    const IRef<ICoord> point = DrawCoord(bytes);
    const IRef<IArray> first = DrawLine(bytes, MOST_VERTICES);
    const IRef<IArray> second = bytes.Below(8) == 0 ? first : DrawLine(bytes, MOST_VERTICES);
    Ask(area, map, point, first);
    Overlay(area, map, first, second);
    return 0;
}
