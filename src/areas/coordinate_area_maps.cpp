// The extents and polygon operations that take lines to points, and maps to pixels.
#include "areas/coordinate_area.h"

namespace tessara {
namespace {

constexpr std::int32_t OVERLAY_FAILURE = -1;

}  // namespace

bool CoordinateArea::GetMapRectNorth(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectEast(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectSouth(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectWest(IMapCoordOperations*, IRect*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapRectExtremes(IMapCoordOperations*, IRect*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetRectExtremes(IMapCoordOperations*, IRect*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineNorth(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineNorth(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineEast(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineEast(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineSouth(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineSouth(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineWest(IMapCoordOperations*, IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineWest(IArray*, ICoord*) {
    return false;
}
bool CoordinateArea::GetMapLineExtremes(IMapCoordOperations*, IArray*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::GetLineExtremes(IArray*, ICoord*, ICoord*, ICoord*, ICoord*) {
    return false;
}
bool CoordinateArea::IsInsideCoordEdges(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideCoordEdgesNoMap(ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideMapEdges(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideTransferred(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsideOnMap(IMapCoordOperations*, ICoord*, IArray*) {
    return false;
}
bool CoordinateArea::IsInsidePixels(ICoord*, IArray*) {
    return false;
}
std::int32_t CoordinateArea::OverlayOnMap(IMapCoordOperations*, IArray*, IArray*, IArray*, IArray*, IArray*,
                                          IArray*) {
    return OVERLAY_FAILURE;
}
std::int32_t CoordinateArea::Overlay(IArray*, IArray*, IArray*, IArray*, IArray*, IArray*) {
    return OVERLAY_FAILURE;
}
std::int32_t CoordinateArea::OverlayPixels(IMapCoordOperations*, IArray*, IArray*, IArray*, IArray*, IArray*,
                                           IArray*) {
    return OVERLAY_FAILURE;
}
bool CoordinateArea::SplitPolygon(IMapCoordOperations*, IArray*, IArray*) {
    return false;
}

}  // namespace tessara
