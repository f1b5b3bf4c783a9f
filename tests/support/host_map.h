// Maps of a host's own, which have no record and show what another map shows.
#pragma once

#include <utility>

#include "tessara/map_coord_operations.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

class HostMap : public IMapCoordOperations {
  public:
    using Faces = FaceList<IMapCoordOperations>;

    explicit HostMap(IRef<IMapCoordOperations> map) : map_(std::move(map)) {}

    bool GetMapDefinition(IArray*, std::int32_t*, double*, IGeoDate*, IProjection*) override { return false; }
    bool GetReferencePoint(IReferencePoint*) override { return false; }
    bool GetReferencePoints(IArray*) override { return false; }
    std::int32_t GetScaleDenominator() override { return 0; }
    double GetScale() override { return 0.0; }
    double GetResolution() override { return 0.0; }
    bool GetGeoDate(IGeoDate* out) override { return map_->GetGeoDate(out); }
    bool GetProjection(IProjection*) override { return false; }
    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        return map_->FloatPixelToCoord(x, y, out);
    }
    bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) override {
        return map_->LongPixelToCoord(x, y, out);
    }
    bool PixelCoordToCoord(ICoord* pixel, ICoord* out) override {
        return map_->PixelCoordToCoord(pixel, out);
    }
    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        return map_->CoordToFloatPixel(in, x, y);
    }
    bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) override {
        return map_->CoordToLongPixel(in, x, y);
    }
    bool CoordToPixelCoord(ICoord*, ICoord*) override { return false; }

  protected:
    ~HostMap() = default;

  private:
    IRef<IMapCoordOperations> map_;
};

// Refuses the nth request for a position, a pixel or its datum, and no other.
class FailingMap : public HostMap {
  public:
    FailingMap(IRef<IMapCoordOperations> map, int nth) : HostMap(std::move(map)), left_(nth) {}

    bool GetGeoDate(IGeoDate* out) override { return Answers() && HostMap::GetGeoDate(out); }
    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        return Answers() && HostMap::FloatPixelToCoord(x, y, out);
    }
    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        return Answers() && HostMap::CoordToFloatPixel(in, x, y);
    }

    [[nodiscard]] bool HasFailed() const { return left_ <= 0; }

  protected:
    ~FailingMap() = default;

  private:
    bool Answers() { return --left_ != 0; }

    int left_;
};

}  // namespace tessara::testing
