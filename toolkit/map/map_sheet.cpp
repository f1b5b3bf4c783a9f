#include "map/map_sheet.h"

#include <algorithm>
#include <cmath>

#include "conversion/made.h"
#include "conversion/units.h"

namespace tessara::toolkit {
namespace {

// A tolerance that keeps a longitude 180 degrees away on its side despite rounding.
constexpr double ON_ITS_SIDE = 180.0 + 1e-7;
constexpr double ANOTHER_PLACE = 1.0;    // degrees of latitude
constexpr double NORTH_STEP = 0.05;      // degrees
constexpr double SAME_LONGITUDE = 1e-3;  // degrees; far above the rounding of any map

IRef<IMapCoordOperations> MakeMap(const SheetDescription& description) {
    const IRef<IGeoDate> datum = Made(CreateClassGeoDate());
    datum->SetDatum(description.datum);
    const IRef<IArray> points = Made(CreateClassArray());
    for (const ReferenceSite& reference : description.references) {
        const IRef<IReferencePoint> point = Made(CreateClassReferencePoint());
        point->SetFloat(reference.site.coord.Get(), reference.x, reference.y);
        points->Add(point.Get());
    }
    const IRef<IMapCoordOperationsFactory> maps = Made(CreateClassMapCoordOperationsFactory());
    return IRef<IMapCoordOperations>(
        maps->CreateFromReferencePoints(points.Get(), description.scaleDenominator, description.resolution,
                                        datum.Get(), description.projection.Get()));
}

GeodezPayload DegreesIn(const IRef<ICoord>& coord) {
    return Load<GeodezPayload>(host::RecordOf(coord));
}

bool IsPixelCoord(ICoord* coord) {
    double x = 0.0;
    double y = 0.0;
    return coord->GetPixel(&x, &y);
}

bool AreFinite(const PicturePoint& point) {
    return std::isfinite(point.x) && std::isfinite(point.y);
}

}  // namespace

MapSheet::MapSheet(const SheetDescription& description, const Window& window, double size)
    : map_(MakeMap(description)),
      projection_(description.projection),
      datum_(description.datum),
      window_(window),
      hasRowsOfLatitude_(description.projection->GetProjectionType() == MAP_MERCATOR),
      zoom_(size / std::max(window.Width(), window.Height())),
      centreLongitude_(0.0) {
    if (!map_.IsValid()) throw DescriptionError("cannot create a map from this description");
    const std::optional<GeodezPayload> centre = DegreesAt({Width() / 2.0, Height() / 2.0});
    if (centre) centreLongitude_ = centre->longitude;
}

std::optional<GeodezPayload> MapSheet::DegreesAt(const PicturePoint& point) const {
    return DegreesAtPixel({point.x / zoom_ + window_.left, point.y / zoom_ + window_.top});
}

std::optional<GeodezPayload> MapSheet::DegreesAtPixel(const PicturePoint& pixel) const {
    const IRef<ICoord> there = EmptyDegrees();
    if (!map_->FloatPixelToCoord(pixel.x, pixel.y, there.Get())) return std::nullopt;
    const GeodezPayload degrees = DegreesIn(there);
    const bool isPlace = std::isfinite(degrees.latitude) && std::isfinite(degrees.longitude);
    return isPlace ? std::optional(degrees) : std::nullopt;
}

PicturePoint MapSheet::PointOfPixel(const PicturePoint& pixel) const {
    return {(pixel.x - window_.left) * zoom_, (pixel.y - window_.top) * zoom_};
}

std::optional<PicturePoint> MapSheet::PixelOf(ICoord* coord) const {
    PicturePoint pixel{};
    if (!coord->GetPixel(&pixel.x, &pixel.y) && !map_->CoordToFloatPixel(coord, &pixel.x, &pixel.y))
        return std::nullopt;
    return AreFinite(pixel) ? std::optional(pixel) : std::nullopt;
}

std::optional<PicturePoint> MapSheet::PointOf(ICoord* coord) const {
    const std::optional<PicturePoint> pixel = PixelOf(coord);
    return pixel ? std::optional(PointOfPixel(*pixel)) : std::nullopt;
}

bool MapSheet::IsAnotherPlace(const PicturePoint& at, double latitude) const {
    const std::optional<GeodezPayload> shown = DegreesAt(at);
    return shown && std::abs(shown->latitude - latitude) > ANOTHER_PLACE;
}

std::optional<PicturePoint> MapSheet::ShownPointOf(ICoord* coord) const {
    const std::optional<PicturePoint> at = NearPointOf(coord);
    if (hasRowsOfLatitude_) return at;
    const std::optional<GeodezPayload> degrees = DegreesOf(coord);
    if (!at || !degrees) return at;
    return IsAnotherPlace(*at, degrees->latitude) ? std::nullopt : at;
}

std::optional<PicturePoint> MapSheet::ShownPointAt(const GeodezPayload& degrees) const {
    const auto at = PointOf(DegreesCoord(degrees.latitude, degrees.longitude, datum_).Get());
    if (!at || hasRowsOfLatitude_) return at;
    return IsAnotherPlace(*at, degrees.latitude) ? std::nullopt : at;
}

std::optional<double> MapSheet::NorthAt(const PicturePoint& point) const {
    const std::optional<GeodezPayload> here = DegreesAt(point);
    if (!here) return std::nullopt;
    // A step north and south, within which the meridian is straight.
    const double step = std::min(NORTH_STEP, (POLE - std::abs(here->latitude)) / 2.0);
    const auto north = ShownPointAt({here->latitude + step, here->longitude, 0.0});
    const auto south = ShownPointAt({here->latitude - step, here->longitude, 0.0});
    if (!north || !south || (north->x == south->x && north->y == south->y)) return std::nullopt;
    return std::atan2(north->x - south->x, south->y - north->y);
}

IRef<ICoord> MapSheet::EmptyDegrees() const {
    IRef<ICoord> coord = Made(CreateClassCoord());
    coord->SetReference(MakeReference({.datum = datum_, .system = KOORD_GEODEZ}).Get());
    return coord;
}

std::optional<GeodezPayload> MapSheet::DegreesOf(ICoord* coord) const {
    const IRef<ICoord> copy = EmptyDegrees();
    const IRef<ICoordinateTransfer> transfer = Made(CreateClassCoordinateTransfer());
    const bool isThere = IsPixelCoord(coord) ? map_->PixelCoordToCoord(coord, copy.Get())
                                             : transfer->Transfer(coord, copy.Get());
    return isThere ? std::optional(DegreesIn(copy)) : std::nullopt;
}

std::optional<GeodezPayload> MapSheet::NearDegreesOf(ICoord* coord) const {
    const std::optional<GeodezPayload> degrees = DegreesOf(coord);
    return degrees ? std::optional(Near(*degrees)) : std::nullopt;
}

GeodezPayload MapSheet::Near(GeodezPayload degrees) const {
    const double east = degrees.longitude - centreLongitude_;
    if (std::abs(east) > ON_ITS_SIDE) degrees.longitude = centreLongitude_ + std::remainder(east, 360.0);
    return degrees;
}

// A position near the window keeps its longitude. So does a position that the map does not return from the
// shifted longitude, because a cone ends 180 degrees from its central meridian.
std::optional<PicturePoint> MapSheet::NearPixelOf(ICoord* coord) const {
    const std::optional<PicturePoint> asItStands = PixelOf(coord);
    if (IsPixelCoord(coord)) return asItStands;
    const std::optional<GeodezPayload> degrees = DegreesOf(coord);
    if (!degrees) return asItStands;
    const GeodezPayload near = Near(*degrees);
    if (near.longitude == degrees->longitude) return asItStands;
    const std::optional<PicturePoint> other =
        PixelOf(DegreesCoord(near.latitude, near.longitude, datum_).Get());
    const std::optional<GeodezPayload> back = other ? DegreesAtPixel(*other) : std::nullopt;
    const bool leadsBack = back && std::abs(back->longitude - near.longitude) <= SAME_LONGITUDE;
    return leadsBack ? other : asItStands;
}

std::optional<PicturePoint> MapSheet::NearPointOf(ICoord* coord) const {
    const std::optional<PicturePoint> pixel = NearPixelOf(coord);
    return pixel ? std::optional(PointOfPixel(*pixel)) : std::nullopt;
}

}  // namespace tessara::toolkit
