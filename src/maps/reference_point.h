#pragma once

#include "tessara/ckoord.h"
#include "tessara/object.h"
#include "tessara/reference_point.h"

namespace tessara {

class ReferencePoint : public IReferencePoint {
  public:
    using Faces = FaceList<IReferencePoint>;

    bool SetFloat(ICoord* world, double x, double y) override;
    bool SetLong(ICoord* world, std::int32_t x, std::int32_t y) override;
    bool GetFloat(ICoord* world, double* x, double* y) override;
    bool GetLong(ICoord* world, std::int32_t* x, std::int32_t* y) override;

  protected:
    ~ReferencePoint() = default;

  private:
    template <class Pixel>
    bool Set(ICoord* world, KoordType type, const Pixel& pixel);

    CKoord world_;
    CKoord pixel_;  // LONGPIXEL or FLOATPIXEL
    bool isSet_ = false;
};

}  // namespace tessara
