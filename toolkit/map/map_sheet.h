// The map behind a picture. It converts positions to points of the picture: scaled pixels of the map,
// relative to the corner of the window.
#pragma once

#include <optional>
#include <vector>

#include "map/map_description.h"
#include "map/picture_point.h"

namespace tessara::toolkit {

class MapSheet {
  public:
    // The longer side of the window becomes `size` long. Throws DescriptionError for an invalid map.
    MapSheet(const SheetDescription& description, const Window& window, double size);

    [[nodiscard]] IMapCoordOperations* Map() const { return map_.Get(); }
    [[nodiscard]] IProjection* Projection() const { return projection_.Get(); }
    [[nodiscard]] std::int32_t Datum() const { return datum_; }
    [[nodiscard]] const Window& MapWindow() const { return window_; }
    // The size of the window in the picture.
    [[nodiscard]] double Width() const { return window_.Width() * zoom_; }
    [[nodiscard]] double Height() const { return window_.Height() * zoom_; }
    [[nodiscard]] double Zoom() const { return zoom_; }

    // The pixel on the map, with the longitude nearest to the window; nothing for a coordinate without a
    // pixel.
    [[nodiscard]] std::optional<PicturePoint> NearPixelOf(ICoord* coord) const;
    // The point in the picture, with the longitude as given.
    [[nodiscard]] std::optional<PicturePoint> PointOf(ICoord* coord) const;
    // The point with the longitude nearest to the window.
    [[nodiscard]] std::optional<PicturePoint> NearPointOf(ICoord* coord) const;
    // The same, but nothing if the map shows a different position at that point, as polar maps do for the
    // other hemisphere.
    [[nodiscard]] std::optional<PicturePoint> ShownPointOf(ICoord* coord) const;
    // The same for degrees on the map's datum, with the longitude as given.
    [[nodiscard]] std::optional<PicturePoint> ShownPointAt(const GeodezPayload& degrees) const;
    // The direction of north at a point of the picture, in radians clockwise from the top; nothing if it is
    // undefined, as at a pole.
    [[nodiscard]] std::optional<double> NorthAt(const PicturePoint& point) const;
    [[nodiscard]] PicturePoint PointOfPixel(const PicturePoint& pixel) const;

    // The position in degrees on the map's datum, with the longitude nearest to the window; nothing if it
    // cannot be converted.
    [[nodiscard]] std::optional<GeodezPayload> NearDegreesOf(ICoord* coord) const;
    // The longitude of the middle of the window; 0 if the middle is outside the map.
    [[nodiscard]] double CentreLongitude() const { return centreLongitude_; }
    // The position at a point of the picture.
    [[nodiscard]] std::optional<GeodezPayload> DegreesAt(const PicturePoint& point) const;

  private:
    [[nodiscard]] std::optional<PicturePoint> PixelOf(ICoord* coord) const;
    [[nodiscard]] std::optional<GeodezPayload> DegreesOf(ICoord* coord) const;
    [[nodiscard]] GeodezPayload Near(GeodezPayload degrees) const;
    [[nodiscard]] std::optional<GeodezPayload> DegreesAtPixel(const PicturePoint& pixel) const;
    [[nodiscard]] bool IsAnotherPlace(const PicturePoint& at, double latitude) const;
    [[nodiscard]] IRef<ICoord> EmptyDegrees() const;

    IRef<IMapCoordOperations> map_;
    IRef<IProjection> projection_;
    std::int32_t datum_;
    Window window_;
    bool hasRowsOfLatitude_;  // each row shows one latitude, so positions never share a pixel
    double zoom_;
    double centreLongitude_;
};

}  // namespace tessara::toolkit
