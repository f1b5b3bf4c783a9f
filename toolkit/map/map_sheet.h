// The map behind a picture: places become points of the picture, whose units are pixels of the map, counted
// from the window's corner and scaled.
#pragma once

#include <optional>
#include <vector>

#include "map/map_description.h"
#include "map/picture_point.h"

namespace tessara::toolkit {

class MapSheet {
  public:
    // The longer side of the window becomes `size` long. Throws DescriptionError if there is no such map.
    MapSheet(const SheetDescription& description, const Window& window, double size);

    [[nodiscard]] IMapCoordOperations* Map() const { return map_.Get(); }
    [[nodiscard]] IProjection* Projection() const { return projection_.Get(); }
    [[nodiscard]] std::int32_t Datum() const { return datum_; }
    [[nodiscard]] const Window& MapWindow() const { return window_; }
    // Of the window, in the picture.
    [[nodiscard]] double Width() const { return window_.Width() * zoom_; }
    [[nodiscard]] double Height() const { return window_.Height() * zoom_; }
    [[nodiscard]] double Zoom() const { return zoom_; }

    // In pixels of the map and on the window's side of the globe; nothing for a coordinate without a pixel.
    [[nodiscard]] std::optional<PicturePoint> NearPixelOf(ICoord* coord) const;
    // As it stands, in the picture.
    [[nodiscard]] std::optional<PicturePoint> PointOf(ICoord* coord) const;
    // The same on the window's side of the globe.
    [[nodiscard]] std::optional<PicturePoint> NearPointOf(ICoord* coord) const;
    // That one, or nothing where the map shows another place on the pixel, as polar maps do for the other
    // hemisphere.
    [[nodiscard]] std::optional<PicturePoint> ShownPointOf(ICoord* coord) const;
    // The same of degrees on the map's datum as they stand.
    [[nodiscard]] std::optional<PicturePoint> ShownPointAt(const GeodezPayload& degrees) const;
    // The direction of north at a point of the picture, in radians clockwise from the top; nothing where it
    // has none, as at a pole.
    [[nodiscard]] std::optional<double> NorthAt(const PicturePoint& point) const;
    [[nodiscard]] PicturePoint PointOfPixel(const PicturePoint& pixel) const;

    // The place as degrees on the map's datum, on the window's side of the globe; nothing for what can't be
    // converted.
    [[nodiscard]] std::optional<GeodezPayload> NearDegreesOf(ICoord* coord) const;
    // What lies in the middle of the window; 0 if that is nothing.
    [[nodiscard]] double CentreLongitude() const { return centreLongitude_; }
    // What lies at a point of the picture.
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
    bool hasRowsOfLatitude_;  // each row of the map shows one latitude: no place has the pixel of another
    double zoom_;
    double centreLongitude_;
};

}  // namespace tessara::toolkit
