// Maps of a host's own, which have no record and show what another map shows.
#pragma once

#include <gtest/gtest.h>

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
class FailingMap : public HostMap {
  public:
    FailingMap(IRef<IMapCoordOperations> map, int requests) : HostMap(std::move(map)), left_(requests) {}

    void GiveUpAfter(int requests) { left_ = requests; }
    [[nodiscard]] bool HasGivenUp() const { return left_ < 0; }
    [[nodiscard]] int Left() const { return left_; }

  protected:
    ~FailingMap() = default;

  private:
    bool Answers() override {
        if (left_ > 0) {
            --left_;
            return true;
        }
        left_ = -1;
        return false;
    }

    int left_;
};

// Lets a map answer no request, one, two and so on, until that is enough. Each shorter run has to fail.
template <class Operation>
void ExpectFailureAtEachCall(FailingMap* map, const Operation& operation) {
    for (int calls = 0; calls < 100000; ++calls) {
        map->GiveUpAfter(calls);
        const bool isDone = operation();
        if (!map->HasGivenUp()) {
            EXPECT_TRUE(isDone) << "with all " << calls << " calls";
            EXPECT_GT(calls, 0);
            return;
        }
        EXPECT_FALSE(isDone) << "after " << calls << " calls";
    }
    ADD_FAILURE() << "the map is asked without end";
}

}  // namespace tessara::testing
