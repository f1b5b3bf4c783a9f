// A coordinate record together with a height, which every coordinate type has.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/unknown.h"

namespace tessara {

// The height, in metres above the ellipsoid, is stored beside the record. The payloads of GEODEZ and
// GEODEZMIN have a field for it as well, and the class keeps both equal. In an ECEF record the height
// follows from x, y and z: the class computes it when GetHeight asks for it, and keeps it with the x, y, z
// and datum it belongs to. GetHeight therefore writes although it is const: two threads must not call it on
// the same ECEF CKoord without a lock.
class TESSARA_API CKoord : public tagKOORD {
  public:
    // A WGS84 GEODEZ record of zeros, height 0.0.
    CKoord();
    // Takes the height from the payload (GEODEZ, GEODEZMIN) or from x, y and z (ECEF); otherwise it is 0.0.
    CKoord(const tagKOORD& record);
    CKoord(const CKoord& other);
    // Like the constructor, except that a type without a height in its record keeps the old height.
    CKoord& operator=(const tagKOORD& record);
    CKoord& operator=(const CKoord& other);

    // In an ECEF record this moves x, y and z along the normal of the ellipsoid.
    void SetHeight(const double& newHeight);
    double GetHeight() const;

  private:
    void ECEF_INIT();
    bool ECEF_CalcHeight();
    bool ECEF_RecalcHeight() const;
    bool ECEF_RecalcCoords();

    mutable double height;
    mutable double ecefX;  // the ECEF payload and datum for which the height was computed
    mutable double ecefY;
    mutable double ecefZ;
    mutable std::uint32_t ecefDatum;
};

}  // namespace tessara
