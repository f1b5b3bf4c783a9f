#pragma once

#include "tessara/geo_date.h"
#include "tessara/kernel/constants.h"
#include "tessara/object.h"

namespace tessara {

class GeoDate : public IGeoDate {
  public:
    using Faces = FaceList<IGeoDate>;

    std::int32_t GetDatum() override { return datum_; }
    bool SetDatum(std::int32_t datum) override;
    void GetName(ITessaraString* text) override;

  protected:
    ~GeoDate() = default;

  private:
    std::int32_t datum_ = NO_DATUM;
};

}  // namespace tessara
