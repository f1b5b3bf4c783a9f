// Coordinates of a host's own, which keep their position in one of the library's and give up after some
// calls.
#pragma once

#include <utility>

#include "support/call_budget.h"
#include "tessara/coord.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

class FailingCoord : public ICoord, public ICoordInternal {
  public:
    using Faces = FaceList<ICoord, ICoordInternal>;

    // The budget outlives the coordinate.
    FailingCoord(IRef<ICoord> coord, CallBudget* calls)
        : coord_(std::move(coord)), record_(coord_), calls_(*calls) {}

    bool SetPixel(double x, double y) override { return calls_.Take() && coord_->SetPixel(x, y); }
    bool GetPixel(double* x, double* y) override { return calls_.Take() && coord_->GetPixel(x, y); }
    bool SetHeight(double height) override { return calls_.Take() && coord_->SetHeight(height); }
    double GetHeight() override { return coord_->GetHeight(); }
    bool GetGeographic(ICoordGeographic* target) override {
        return calls_.Take() && coord_->GetGeographic(target);
    }
    bool SetGeographic(ICoordGeographic* source) override {
        return calls_.Take() && coord_->SetGeographic(source);
    }
    bool SetReference(ICoordinateReference* reference) override {
        return calls_.Take() && coord_->SetReference(reference);
    }
    bool GetReference(ICoordinateReference* target) override {
        return calls_.Take() && coord_->GetReference(target);
    }

    bool SetKoord(const CKoord* koord) override { return calls_.Take() && record_->SetKoord(koord); }
    bool GetKoord(CKoord* koord) override { return calls_.Take() && record_->GetKoord(koord); }
    bool ShiftEast(double delta) override { return calls_.Take() && record_->ShiftEast(delta); }
    bool ShiftNorth(double delta) override { return calls_.Take() && record_->ShiftNorth(delta); }
    double EastDifference(ICoord* other) override { return record_->EastDifference(other); }
    double NorthDifference(ICoord* other) override { return record_->NorthDifference(other); }

  protected:
    ~FailingCoord() = default;

  private:
    IRef<ICoord> coord_;
    IRef<ICoordInternal> record_;
    CallBudget& calls_;
};

// A coordinate that answers calls while there are any left.
[[nodiscard]] inline IRef<ICoord> MakeFailingCoord(const IRef<ICoord>& coord, CallBudget* calls) {
    return IRef<ICoord>(static_cast<ICoord*>(NewObject<FailingCoord>(coord, calls)));
}

}  // namespace tessara::testing
