#pragma once

#include "tessara/coord_geographic.h"
#include "tessara/object.h"

namespace tessara {

class CoordGeographic : public ICoordGeographic {
  public:
    using Faces = FaceList<ICoordGeographic>;

    bool Set(double longitude, double latitude, double height) override;
    bool Get(double* longitude, double* latitude, double* height) override;
    double GetLatitude() override { return latitude_; }
    double GetLongitude() override { return longitude_; }
    double GetHeight() override { return height_; }
    bool SetLatitude(double latitude) override;
    bool SetLongitude(double longitude) override;
    bool SetHeight(double height) override;

  protected:
    ~CoordGeographic() = default;

  private:
    double longitude_ = 0.0;
    double latitude_ = 0.0;
    double height_ = 0.0;
};

}  // namespace tessara
