// Converts records into one reference; ICoordinateTransfer does the same for coordinates.
#pragma once

#include <cstdint>

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/coordinate_reference.h"
#include "tessara/ref.h"

namespace tessara {

class ReferenceChange {
  public:
    ReferenceChange(std::int32_t datum, std::int32_t system);

    // False if the record doesn't convert; *result is then unchanged. Between a pixel and a position on the
    // earth there is no conversion, so *result becomes the default record of the reference, with a true
    // result. The numbers for "no datum" and "no system" stand for the source's. `source` and `result` may
    // be the same record.
    bool Apply(const CKoord& source, CKoord* result) const;

  private:
    std::int32_t datum_;
    std::int32_t system_;
    IRef<ICoordinateReference> reference_;
    IRef<ICoord> scratch_;
};

}  // namespace tessara
