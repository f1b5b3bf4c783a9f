// Maps of a host's own, which have no record and show what another map shows.
#pragma once

#include <utility>

#include "support/call_budget.h"
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
    bool GetGeoDate(IGeoDate* out) override { return Answers() && map_->GetGeoDate(out); }
    bool GetProjection(IProjection* out) override { return Answers() && map_->GetProjection(out); }
    bool FloatPixelToCoord(double x, double y, ICoord* out) override {
        return Answers() && map_->FloatPixelToCoord(x, y, out);
    }
    bool LongPixelToCoord(std::int32_t x, std::int32_t y, ICoord* out) override {
        return Answers() && map_->LongPixelToCoord(x, y, out);
    }
    bool PixelCoordToCoord(ICoord* pixel, ICoord* out) override {
        return Answers() && map_->PixelCoordToCoord(pixel, out);
    }
    bool CoordToFloatPixel(ICoord* in, double* x, double* y) override {
        return Answers() && map_->CoordToFloatPixel(in, x, y);
    }
    bool CoordToLongPixel(ICoord* in, std::int32_t* x, std::int32_t* y) override {
        return Answers() && map_->CoordToLongPixel(in, x, y);
    }
    bool CoordToPixelCoord(ICoord* in, ICoord* pixel) override {
        return Answers() && map_->CoordToPixelCoord(in, pixel);
    }

  protected:
    ~HostMap() = default;

  private:
    // Asked at each request for a position, a pixel, the datum or the projection.
    virtual bool Answers() { return true; }

    IRef<IMapCoordOperations> map_;
};

// Refuses the nth request and no other.
class RefusingMap : public HostMap {
  public:
    RefusingMap(IRef<IMapCoordOperations> map, int nth) : HostMap(std::move(map)), left_(nth) {}

    [[nodiscard]] bool HasRefused() const { return left_ <= 0; }

  protected:
    ~RefusingMap() = default;

  private:
    bool Answers() override { return --left_ != 0; }

    int left_;
};

// Gives up after some requests.
class FailingMap : public HostMap, public CallBudget {
  public:
    FailingMap(IRef<IMapCoordOperations> map, int requests) : HostMap(std::move(map)) {
        GiveUpAfter(requests);
    }

  protected:
    ~FailingMap() = default;

  private:
    bool Answers() override { return Take(); }
};

}  // namespace tessara::testing
