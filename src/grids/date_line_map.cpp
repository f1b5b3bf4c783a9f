#include "grids/date_line_map.h"

#include <cmath>
#include <optional>

#include "geometry/map_plane.h"
#include "grids/longitudes.h"
#include "grids/window_samples.h"
#include "kernel/numeric.h"
#include "numerics/rounding.h"
#include "objects/koord_access.h"
#include "records/convert_records.h"
#include "records/default_koord.h"
#include "tessara/kernel/convert.h"
#include "tessara/object.h"

namespace tessara {
namespace {

constexpr int SAMPLES_OF_A_SIDE = 8;
constexpr double ON_ITS_SIDE = HALF_TURN + 1e-7;  // a position half a turn away stays on its side
constexpr double SAME_LONGITUDE = 1e-3;           // degrees; well above the rounding error of any map

std::optional<double> LongitudeAt(const MapPlane& plane, std::int32_t datum, const PlanePoint& pixel) {
    CKoord place(MakeKoord(datum, KOORD_GEODEZ));
    if (!plane.ToWorld(pixel, &place)) return std::nullopt;
    return LongitudeOf(place);
}

class DateLineMap : public IMapCoordOperations {
  public:
    using Faces = FaceList<IMapCoordOperations>;

    // `middle` is the longitude in the middle of the window.
    DateLineMap(IRef<IMapCoordOperations> map, MapPlane plane, std::int32_t datum, double middle)
        : map_(std::move(map)), plane_(std::move(plane)), datum_(datum), middle_(middle) {}

    // GCOVR_EXCL_START: the drawing of lines never asks for these
    bool GetMapDefinition(IArray* points, std::int32_t* scaleDenominator, double* resolution, IGeoDate* datum,
                          IProjection* projection) override {
        return map_->GetMapDefinition(points, scaleDenominator, resolution, datum, projection);
    }
    bool GetReferencePoint(IReferencePoint* out) override { return map_->GetReferencePoint(out); }
    bool GetReferencePoints(IArray* out) override { return map_->GetReferencePoints(out); }
    // GCOVR_EXCL_STOP
    std::int32_t GetScaleDenominator() override { return map_->GetScaleDenominator(); }
    double GetScale() override { return map_->GetScale(); }
    double GetResolution() override { return map_->GetResolution(); }
    bool GetGeoDate(IGeoDate* out) override { return map_->GetGeoDate(out); }
    bool GetProjection(IProjection* out) override { return map_->GetProjection(out); }

    // The map's own position, where the map gives one.
    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        const IRef<ICoord> target(out);
        CKoord wanted;
        if (!KoordFromCoord(target.Get(), &wanted)) return false;
        if (map_->FloatPixelToCoord(x, y, target.Get())) return true;
        CKoord place(MakeKoord(datum_, KOORD_GEODEZ));
        if (!plane_.ToWorld({x, y}, &place)) return false;
        auto position = Load<GeodezPayload>(place);
        if (!(std::fabs(position.longitude) > HALF_TURN)) return false;
        position.longitude = Remainder(position.longitude, FULL_TURN);
        Store(place, position);
        return ResetToDefault(&wanted) && KoordConvert(&place, &wanted) == KOORD_OK &&
               KoordToCoord(&wanted, target.Get());
    }
    bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) override {
        return FloatPixelToCoord(x, y, out);
    }
    bool PixelCoordToCoord(ICoord* pixel, ICoord* out) override {
        const IRef<ICoord> from(pixel);
        double x = 0.0;
        double y = 0.0;
        return from.IsValid() && from->GetPixel(&x, &y) && FloatPixelToCoord(x, y, out);
    }

    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        const IRef<ICoord> coord(in);
        if (const std::optional<PlanePoint> other = PlaceOnOtherTurn(coord.Get())) {
            *x = other->x;
            *y = other->y;
            return true;
        }
        return map_->CoordToFloatPixel(coord.Get(), x, y);
    }
    bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) override {
        double column = 0.0;
        double row = 0.0;
        if (!CoordToFloatPixel(in, &column, &row)) return false;
        *x = RoundPixel(column);
        *y = RoundPixel(row);
        return true;
    }
    // The drawing of lines never calls this.
    bool CoordToPixelCoord(ICoord*, ICoord*) override { return false; }

  protected:
    ~DateLineMap() = default;

  private:
    // The place a turn away, if it is nearer to the window. Nothing if the position is on the nearer side
    // already, and if the map doesn't return the other longitude from that place: a cone ends half a turn
    // from its own meridian.
    std::optional<PlanePoint> PlaceOnOtherTurn(ICoord* coord) const {
        CKoord koord;
        if (!KoordFromCoord(coord, &koord)) return std::nullopt;
        tagKOORD degrees = MakeKoord(datum_, KOORD_GEODEZ);
        if (ConvertRecord(koord, &degrees, UNCHECKED) != KOORD_OK) return std::nullopt;
        auto position = Load<GeodezPayload>(degrees);
        const double east = position.longitude - middle_;
        if (!(std::fabs(east) > ON_ITS_SIDE)) return std::nullopt;
        position.longitude = middle_ + Remainder(east, FULL_TURN);
        Store(degrees, position);
        PlanePoint found{};
        if (!plane_.ToPlane(CKoord(degrees), &found)) return std::nullopt;
        const std::optional<double> back = LongitudeAt(plane_, datum_, found);
        const bool leadsBack = back && std::fabs(*back - position.longitude) <= SAME_LONGITUDE;
        return leadsBack ? std::optional(found) : std::nullopt;
    }

    IRef<IMapCoordOperations> map_;
    MapPlane plane_;
    std::int32_t datum_;
    double middle_;
};

}  // namespace

IRef<IMapCoordOperations> MapOverDateLine(const IRef<IMapCoordOperations>& map, const PixelRect& window) {
    const MapPlane plane(map.Get());
    std::int32_t datum = 0;
    if (!plane.IsComplete() || !plane.GetDatum(&datum)) return {};
    const auto at = [&](int column, int row) {
        return LongitudeAt(plane, datum,
                           PlaceInWindow(window, static_cast<double>(column) / SAMPLES_OF_A_SIDE,
                                         static_cast<double>(row) / SAMPLES_OF_A_SIDE));
    };
    for (int row = 0; row <= SAMPLES_OF_A_SIDE; ++row) {
        for (int column = 0; column <= SAMPLES_OF_A_SIDE; ++column) {
            const std::optional<double> longitude = at(column, row);
            if (!longitude || !(std::fabs(*longitude) > HALF_TURN)) continue;
            const double middle = at(SAMPLES_OF_A_SIDE / 2, SAMPLES_OF_A_SIDE / 2).value_or(*longitude);
            return IRef<IMapCoordOperations>(NewObject<DateLineMap>(map, plane, datum, middle));
        }
    }
    return map;
}

}  // namespace tessara
