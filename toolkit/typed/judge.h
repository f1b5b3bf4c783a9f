// Whether a record is a position that the library stands behind, and if not, why.
#pragma once

#include "tessara/tessara.h"
#include "typed/result.h"

namespace tessara::toolkit {

// For one thread at a time.
class Judge {
  public:
    Judge();

    // The fault has no piece. A position in the zone that the reference wants may lie beyond its borders.
    [[nodiscard]] Fault Check(const Reading& reading) const;

  private:
    [[nodiscard]] bool IsLegal(const tagKOORD& record) const;
    [[nodiscard]] bool IsLegalNearby(const Reading& reading, const tagKOORD& degrees) const;

    IRef<ICoordinateChecker> checker_;
    IRef<ICoord> coord_;
};

// In degrees on the record's own datum; false if it has none.
[[nodiscard]] bool DegreesOf(const tagKOORD& record, GeodezPayload* degrees);

}  // namespace tessara::toolkit
