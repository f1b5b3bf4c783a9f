#include "grids/coordinate_grid.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <utility>
#include <vector>

#include "areas/rect_extents.h"
#include "grids/creation.h"
#include "grids/date_line_map.h"
#include "grids/grid_line_array.h"
#include "grids/longitudes.h"
#include "grids/packed_polyline.h"
#include "kernel/numeric.h"
#include "maps/owned_map_param.h"
#include "objects/koord_access.h"
#include "records/axis_copy.h"
#include "records/compare_records.h"
#include "records/convert_records.h"
#include "records/default_koord.h"
#include "records/system_extremes.h"
#include "records/zones.h"
#include "systems/system_row.h"
#include "tessara/array.h"
#include "tessara/coordinate_reference.h"
#include "tessara/float_point.h"
#include "tessara/internal/map_param_internal.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// Systems of codes or rounded parts can't draw their own lines: whole metres or degrees are too coarse to
// place a point on one, and the line would bend. Their lines are drawn in the exact system behind them.
std::int32_t DrawingSystem(std::int32_t system) {
    const std::int32_t exact = SystemOf(system).exact;
    return exact != NO_SYSTEM ? exact : system;
}

// Converts a position from the drawing system to the grid's.
bool ToGridSystem(std::int32_t system, CKoord* koord) {
    if (static_cast<std::int32_t>(koord->type) == system) return true;
    tagKOORD record = *koord;
    const bool isConverted =
        system == KOORD_UTMREF ? ConvertInZone(system, UNCHECKED, &record) : ConvertTo(system, &record);
    if (!isConverted) return false;
    zones::Want(NO_WANTED_ZONE, &record);
    *koord = CKoord(record);
    return true;
}

// Degrees continue beyond the codes of GEOREF, so the window is cut where the codes end. A window that spans
// more than 360 degrees covers all codes. False for a window without any.
bool KeepWithinCodes(std::int32_t datum, std::int32_t system, Extremes* extremes) {
    if (system != KOORD_GEOREF) return true;
    const double width = LongitudeOf((*extremes)[Compass::East]) - LongitudeOf((*extremes)[Compass::West]);
    const bool goesAround = width > 360.0;
    for (const Compass direction : DIRECTIONS) {
        const Axis axis = AxisOf(direction);
        tagKOORD limit;
        if (!FindSystemExtreme(direction, datum, system, &limit) || !ConvertTo(KOORD_GEODEZ, &limit))
            return false;  // GCOVR_EXCL_LINE: a system with positions has extremes
        CKoord extreme = (*extremes)[direction];
        const bool isBeyond = CompareRecords(axis, extreme, limit) == (SignOf(direction) > 0.0 ? 1 : -1);
        if (!isBeyond && !(goesAround && axis == Axis::East)) continue;
        if (!CopyAxis(axis, limit, &extreme)) return false;
        extremes->Set(direction, extreme);
    }
    return LongitudeOf((*extremes)[Compass::West]) <= LongitudeOf((*extremes)[Compass::East]);
}

struct LongPixelPlace {
    std::int32_t x, y;
};

// A pixel is rounded, whatever its datum; a position goes through the map.
bool FindPixel(IMapCoordOperations* map, const MapPlane& plane, ICoord* coord, LongPixelPlace* place) {
    CKoord koord;
    if (!KoordFromCoord(coord, &koord)) return false;
    if (!IsPixelType(static_cast<std::int32_t>(koord.type))) {
        return map->CoordToLongPixel(coord, &place->x, &place->y);
    }
    PlanePoint point{};
    if (!plane.ToPlane(koord, &point)) return false;
    if (!IsWithin(point.x, INT32_MIN, INT32_MAX) || !IsWithin(point.y, INT32_MIN, INT32_MAX)) return false;
    *place = {RoundPixel(point.x), RoundPixel(point.y)};
    return true;
}

IRef<IUnknown> MakeCoord(const tagKOORD& record) {
    const CKoord koord(record);
    const IRef<ICoord> coord(CreateClassCoord());
    return KoordToCoord(&koord, coord.Get()) ? IRef<IUnknown>(coord) : IRef<IUnknown>();
}

IRef<IUnknown> MakeFloatPoint(const tagKOORD& record) {
    const IRef<IFloatPoint> point(CreateClassFloatPoint());
    if (!point.IsValid()) return {};
    const auto pixel = Load<FloatPixelPayload>(record);
    point->SetX(pixel.x);
    point->SetY(pixel.y);
    point->SetZ(0.0);
    return IRef<IUnknown>(point);
}

// Adds one line to the lines. False without memory.
bool AddLine(PackedPolyline polyline, GridLineArray::PointMaker maker, IArray* lines) {
    polyline.Finish();
    const IRef<IArray> line(NewObject<GridLineArray>(std::move(polyline), maker));
    if (line.IsValid()) lines->Add(line.Get());
    return line.IsValid();
}

// Converts a line from the drawing system to the grid's.
bool ToGridSystem(std::int32_t system, const GridLine& line, PackedPolyline* polyline) {
    return std::all_of(line.begin(), line.end(), [&](CKoord koord) {
        if (!ToGridSystem(system, &koord)) return false;
        polyline->Append(koord);
        return true;
    });
}

// The pixels of a drawn line's points, rounded as the grid's system rounds them. Where the rounded point
// lies beyond the edge of the map, the exact point is used.
bool ToPixels(const MapPlane& map, std::int32_t system, const PackedPolyline& line, PackedPolyline* pixels) {
    return line.ForEach([&](const tagKOORD& record) {
        CKoord koord(record);
        PlanePoint place{};
        if (!ToGridSystem(system, &koord)) return false;
        if (!map.ToPlane(koord, &place) && !map.ToPlane(CKoord(record), &place)) return false;
        tagKOORD pixel = MakeKoord(static_cast<std::int32_t>(record.datum), KOORD_FLOATPIXEL);
        Store(pixel, FloatPixelPayload{place.x, place.y});
        pixels->Append(pixel);
        return true;
    });
}

bool IsStep(double step) {
    return std::isfinite(step) && step != 0.0;
}

}  // namespace

bool CoordinateGrid::SetWindowFromPoints(IFloatPoint* a, IFloatPoint* b, IFloatPoint* c, IFloatPoint* d) {
    const IRef<IFloatPoint> points[] = {IRef<IFloatPoint>(a), IRef<IFloatPoint>(b), IRef<IFloatPoint>(c),
                                        IRef<IFloatPoint>(d)};
    std::int32_t datum = 0;
    if (!map_.IsValid() || !ReadMapDatum(map_.Get(), &datum)) return false;
    IRef<ICoord> coords[std::size(points)];
    for (std::size_t i = 0; i < std::size(points); ++i) {
        if (!points[i].IsValid()) return false;
        CKoord pixel(MakeKoord(datum, KOORD_FLOATPIXEL));
        Store(pixel, FloatPixelPayload{points[i]->GetX(), points[i]->GetY()});
        coords[i] = IRef<ICoord>(CreateClassCoord());
        if (!KoordToCoord(&pixel, coords[i].Get())) return false;
    }
    return SetWindow(coords[0].Get(), coords[1].Get(), coords[2].Get(), coords[3].Get());
}

bool CoordinateGrid::SetWindow(ICoord* a, ICoord* b, ICoord* c, ICoord* d) try {
    const IRef<ICoord> coords[] = {IRef<ICoord>(a), IRef<ICoord>(b), IRef<ICoord>(c), IRef<ICoord>(d)};
    const MapPlane plane(map_.Get());
    if (!plane.IsComplete()) return false;
    PixelRect rect{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const IRef<ICoord>& coord : coords) {
        LongPixelPlace at{};
        if (!FindPixel(map_.Get(), plane, coord.Get(), &at)) return false;
        rect = {std::min(rect.left, at.x), std::min(rect.top, at.y), std::max(rect.right, at.x),
                std::max(rect.bottom, at.y)};
    }
    const std::int32_t system = DrawingSystem(system_);
    const IRef<IMapCoordOperations> map = system == KOORD_GEODEZ ? map_ : MapOverDateLine(map_, rect);
    Extremes extremes;
    if (!map.IsValid() || !ExtentOfRect(map.Get(), rect, datum_, system, &extremes)) return false;
    if (!KeepWithinCodes(datum_, system_, &extremes)) return false;
    const MapPlane windowPlane(map.Get());
    if (!windowPlane.IsComplete()) return false;
    windowMap_ = map;
    window_ = GridWindow{extremes,
                         rect,
                         FindZoneArc(windowPlane, rect, extremes),
                         FindLongitudeArc(windowPlane, rect, extremes),
                         eastStep_,
                         northStep_,
                         SystemOf(system_).finestStep};
    return true;
} catch (const std::exception&) {
    return false;
}

bool CoordinateGrid::Draw(Axis axis, const GridLineSink& sink) const {
    if (!window_) return false;
    const MapPlane plane(windowMap_.Get());
    if (!plane.IsComplete()) return false;
    GridPen pen(plane, window_->rect, sink);
    return DrawGridLines(axis, *window_, &pen);
}

bool CoordinateGrid::WriteLines(Axis axis, IArray* lines) const try {
    const IRef<IArray> out(lines);
    if (!map_.IsValid() || !out.IsValid()) return false;
    out->Clear();
    return Draw(axis, [&](const GridLine& line) {
        PackedPolyline polyline;
        return ToGridSystem(system_, line, &polyline) && AddLine(std::move(polyline), MakeCoord, out.Get());
    });
} catch (const std::exception&) {
    return false;
}

bool CoordinateGrid::WriteLinePixels(Axis axis, IArray* lines) const try {
    const IRef<IArray> out(lines);
    if (!map_.IsValid() || !out.IsValid()) return false;
    out->Clear();
    std::vector<PackedPolyline> drawn;
    const bool isDrawn = Draw(axis, [&](const GridLine& line) {
        drawn.emplace_back();
        for (const CKoord& koord : line)
            drawn.back().Append(koord);
        drawn.back().Finish();
        return true;
    });
    if (!isDrawn) return false;
    const MapPlane plane(windowMap_.Get());
    return plane.IsComplete() && std::all_of(drawn.begin(), drawn.end(), [&](PackedPolyline& line) {
               PackedPolyline pixels;
               const bool isPlaced = ToPixels(plane, system_, line, &pixels);
               line = PackedPolyline();
               return isPlaced && AddLine(std::move(pixels), MakeFloatPoint, out.Get());
           });
} catch (const std::exception&) {
    return false;
}

bool CoordinateGrid::GetEastLines(IArray* lines) {
    return WriteLines(Axis::East, lines);
}

bool CoordinateGrid::GetNorthLines(IArray* lines) {
    return WriteLines(Axis::North, lines);
}

bool CoordinateGrid::GetEastLinePixels(IArray* lines) {
    return WriteLinePixels(Axis::East, lines);
}

bool CoordinateGrid::GetNorthLinePixels(IArray* lines) {
    return WriteLinePixels(Axis::North, lines);
}

bool CoordinateGrid::CopyMapTo(IMapCoordOperations* target) {
    const IRef<IMapParamInternal> from(map_);
    const IRef<IMapCoordOperations> map(target);
    const IRef<IMapParamInternal> to(map);
    if (!from.IsValid() || !to.IsValid()) return false;
    if (from.Get() == to.Get()) return true;
    MapParam record;
    OwnedMapParam copy;
    if (!from->GetMapParam(&record) || !copy.CopyWithChain(record)) return false;
    if (!to->SetMapParam(&*copy)) return false;
    copy.Release();  // now owned by the target
    return true;
}

bool CoordinateGrid::GetReference(ICoordinateReference* target) {
    const IRef<ICoordinateReference> reference(target);
    return map_.IsValid() && reference.IsValid() && reference->SetSystem(system_) &&
           reference->SetDatum(datum_);
}

ICoordinateGrid* NewCoordinateGrid(IMapCoordOperations* map, std::int32_t datum, std::int32_t system,
                                   double eastStep, double northStep) {
    const IRef<IMapCoordOperations> on(map);
    CKoord probe;
    if (!on.IsValid() || !DefaultKoord(datum, system, &probe)) return nullptr;
    if (!IsStep(eastStep) || !IsStep(northStep)) return nullptr;
    return NewObject<CoordinateGrid>(on, datum, system, std::fabs(eastStep), std::fabs(northStep));
}

ICoordinateGrid* CreateClassCoordinateGrid() {
    return NewObject<CoordinateGrid>();
}

}  // namespace tessara
