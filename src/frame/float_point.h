#pragma once

#include "tessara/float_point.h"
#include "tessara/object.h"

namespace tessara {

class FloatPoint : public IFloatPoint {
  public:
    using Faces = FaceList<IFloatPoint>;

    FloatPoint() = default;
    FloatPoint(double x, double y, double z) : x_(x), y_(y), z_(z) {}

    void SetX(double x) override { x_ = x; }
    void SetY(double y) override { y_ = y; }
    void SetZ(double z) override { z_ = z; }
    double GetX() override { return x_; }
    double GetY() override { return y_; }
    double GetZ() override { return z_; }

  protected:
    ~FloatPoint() = default;

  private:
    double x_ = 0.0;
    double y_ = 0.0;
    double z_ = 0.0;
};

}  // namespace tessara
