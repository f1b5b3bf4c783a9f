// References of a host's own, which keep their numbers in one of the library's and give up after some calls.
#pragma once

#include "support/call_budget.h"
#include "tessara/coordinate_reference.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

class FailingReference : public ICoordinateReference {
  public:
    using Faces = FaceList<ICoordinateReference>;

    // The budget outlives the reference.
    explicit FailingReference(CallBudget* calls) : calls_(*calls) {}

    std::int32_t GetDatum() override { return reference_->GetDatum(); }
    bool SetDatum(std::int32_t datum) override { return calls_.Take() && reference_->SetDatum(datum); }
    std::int32_t GetSystem() override { return reference_->GetSystem(); }
    bool SetSystem(std::int32_t system) override { return calls_.Take() && reference_->SetSystem(system); }
    void GetDatumName(ITessaraString* text) override { reference_->GetDatumName(text); }
    void GetSystemName(ITessaraString* text) override { reference_->GetSystemName(text); }

  protected:
    ~FailingReference() = default;

  private:
    IRef<ICoordinateReference> reference_{CreateClassCoordinateReference()};
    CallBudget& calls_;
};

}  // namespace tessara::testing
