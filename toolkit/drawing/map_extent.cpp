#include "drawing/map_extent.h"

#include <algorithm>
#include <cmath>

#include "conversion/made.h"
#include "conversion/units.h"
#include "drawing/map_drawing.h"
#include "drawing/map_grid_labels.h"
#include "tessara/host/rect.h"

namespace tessara::toolkit {
namespace {

// Whether a pole is a point of the window. On some maps a pole is a line, where the longitude stays bounded.
bool ShowsPole(const MapSheet& sheet, double latitude) {
    const auto at = sheet.ShownPointAt({latitude, 0.0, 0.0});
    const auto same = sheet.ShownPointAt({latitude, HALF_TURN / 2.0, 0.0});
    if (!at || !same || std::hypot(at->x - same->x, at->y - same->y) > SAME_PLACE) return false;
    return at->x >= 0.0 && at->x <= sheet.Width() && at->y >= 0.0 && at->y <= sheet.Height();
}

// All meridians meet at a pole, so a window with a pole contains every longitude.
Extent WithPoles(const MapSheet& sheet, Extent extent) {
    for (const double pole : {-POLE, POLE}) {
        if (!ShowsPole(sheet, pole)) continue;
        (pole > 0.0 ? extent.north : extent.south) = pole;
        extent.west = std::min(extent.west, sheet.CentreLongitude() - HALF_TURN);
        extent.east = std::max(extent.east, sheet.CentreLongitude() + HALF_TURN);
    }
    return extent;
}

}  // namespace

std::optional<Extremes> ExtremesOf(const MapSheet& sheet, const Reference& reference) {
    const auto whole = [](double pixel) { return static_cast<std::int32_t>(std::lround(pixel)); };
    const Window& window = sheet.MapWindow();
    const IRef<IRect> rect = Made<IRect>(NewObject<host::Rect>(whole(window.left), whole(window.top),
                                                               whole(window.right), whole(window.bottom)));
    const auto empty = [&reference] {
        IRef<ICoord> coord = Made(CreateClassCoord());
        coord->SetReference(MakeReference(reference).Get());
        return coord;
    };
    const Extremes extremes{empty(), empty(), empty(), empty()};
    const IRef<ICoordinateArea> area = Made(CreateClassCoordinateArea());
    const bool isThere =
        area->GetMapRectExtremes(sheet.Map(), rect.Get(), extremes.north.Get(), extremes.east.Get(),
                                 extremes.south.Get(), extremes.west.Get());
    return isThere ? std::optional(extremes) : std::nullopt;
}

std::optional<Extent> ExtentOf(const MapSheet& sheet, std::int32_t datum) {
    const std::optional<Extremes> extremes = ExtremesOf(sheet, {.datum = datum, .system = KOORD_GEODEZ});
    if (!extremes) return std::nullopt;
    const auto value = [](const IRef<ICoord>& coord, Axis axis) {
        return AxisValue(coord.Get(), axis).value_or(0.0);
    };
    return WithPoles(sheet, {value(extremes->north, Axis::North), value(extremes->east, Axis::East),
                             value(extremes->south, Axis::North), value(extremes->west, Axis::East)});
}

Extent OnceAround(const MapSheet& sheet, Extent extent) {
    extent.west = std::max(extent.west, sheet.CentreLongitude() - HALF_TURN);
    extent.east = std::min(extent.east, sheet.CentreLongitude() + HALF_TURN);
    return extent;
}

}  // namespace tessara::toolkit
