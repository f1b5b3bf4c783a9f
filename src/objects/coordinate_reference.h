#pragma once

#include "tessara/coordinate_reference.h"
#include "tessara/coordinate_system.h"
#include "tessara/geo_date.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class CoordinateReference : public ICoordinateReference {
  public:
    using Faces = FaceList<ICoordinateReference>;

    // Throws std::bad_alloc if there is no memory for its two parts.
    CoordinateReference();

    std::int32_t GetDatum() override { return datum_->GetDatum(); }
    bool SetDatum(std::int32_t datum) override { return datum_->SetDatum(datum); }
    std::int32_t GetSystem() override { return system_->GetSystem(); }
    bool SetSystem(std::int32_t system) override { return system_->SetSystem(system); }
    void GetDatumName(ITessaraString* text) override { datum_->GetName(text); }
    void GetSystemName(ITessaraString* text) override { system_->GetName(text); }

  protected:
    ~CoordinateReference() = default;

  private:
    IRef<IGeoDate> datum_;
    IRef<ICoordinateSystem> system_;
};

}  // namespace tessara
