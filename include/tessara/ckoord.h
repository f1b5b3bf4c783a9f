// A coordinate record with a height that works the same for every coordinate type.
#pragma once

#include "tessara/kernel/koord.h"
#include "tessara/unknown.h"

namespace tessara {

// The height, in metres above the ellipsoid, is kept beside the record. GEODEZ and GEODEZMIN have room for it
// in their payload, too, and the two are kept equal. ECEF has no height of its own: it follows from x, y and
// z and is computed when it is asked for, so GetHeight writes a cache although it is const. One ECEF CKoord
// isn't to be used from two threads without a lock.
class TESSARA_API CKoord : public tagKOORD {
  public:
    // WGS84, GEODEZ, all zeros.
    CKoord();
    // Takes the height from the payload (GEODEZ, GEODEZMIN), from x, y and z (ECEF), else 0.0.
    CKoord(const tagKOORD& record);
    CKoord(const CKoord& other);
    // As the constructor; of a type that has no height in its record, the old height stays.
    CKoord& operator=(const tagKOORD& record);
    CKoord& operator=(const CKoord& other);

    // Of an ECEF record this moves x, y and z along the ellipsoid's normal.
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
