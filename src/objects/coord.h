#pragma once

#include "records/axis.h"
#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/object.h"

namespace tessara {

class Coord : public ICoord, public ICoordInternal {
  public:
    using Faces = FaceList<ICoord, ICoordInternal>;

    bool SetPixel(double x, double y) override;
    bool GetPixel(double* x, double* y) override;
    bool SetHeight(double height) override;
    double GetHeight() override;
    bool GetGeographic(ICoordGeographic* target) override;
    bool SetGeographic(ICoordGeographic* source) override;
    bool SetReference(ICoordinateReference* newReference) override;
    bool GetReference(ICoordinateReference* target) override;

    bool SetKoord(const CKoord* koord) override;
    bool GetKoord(CKoord* koord) override;
    bool ShiftEast(double delta) override;
    bool ShiftNorth(double delta) override;
    double EastDifference(ICoord* other) override;
    double NorthDifference(ICoord* other) override;

  protected:
    ~Coord() = default;

  private:
    bool SetPixelReference(std::int32_t datum, std::int32_t system);
    void SetEmptyReference(std::int32_t datum, std::int32_t system);
    bool ConvertTo(std::int32_t datum, std::int32_t system);
    double DifferenceTo(ICoord* other, Axis axis);

    CKoord koord_;
    bool valid_ = false;
};

}  // namespace tessara
