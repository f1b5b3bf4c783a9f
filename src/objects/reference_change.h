// Carries records into one reference, as ICoordinateTransfer carries coordinates into another coordinate's.
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

    // False if the record doesn't convert; *result is then unchanged. A pixel and a world position can't be
    // related: the result is the default record of the reference, and true. The numbers for no datum and no
    // system stand for the source's. Source and result may be the same.
    bool Apply(const CKoord& source, CKoord* result) const;

  private:
    std::int32_t datum_;
    std::int32_t system_;
    IRef<ICoordinateReference> reference_;
    IRef<ICoord> scratch_;
};

}  // namespace tessara
