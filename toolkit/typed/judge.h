// Checks whether a record is a position that the library accepts.
#pragma once

#include <optional>
#include <span>
#include <vector>

#include "tessara/tessara.h"
#include "typed/result.h"

namespace tessara::toolkit {

// Not for concurrent use.
class Judge {
  public:
    Judge();

    // Returns a fault without a piece. A position in the wanted zone of the reference may lie outside the
    // zone's borders.
    [[nodiscard]] Fault Check(const Reading& reading) const;

  private:
    [[nodiscard]] bool IsLegal(const tagKOORD& record) const;
    [[nodiscard]] bool IsLegalNearby(const Reading& reading, const tagKOORD& degrees) const;

    IRef<ICoordinateChecker> checker_;
    IRef<ICoord> coord_;
};

// Whether a conversion writes a military reference again for its own position. Then a judge finds no fault in
// it, along a way that takes many times as long.
[[nodiscard]] bool IsWrittenAgain(const tagKOORD& reference);

// The same for many at once, all on one datum: the degrees of those that are.
[[nodiscard]] std::vector<std::optional<GeodezPayload>> DegreesOfWrittenAgain(
    std::span<const tagKOORD> references);

// Converts a record to degrees on its own datum; false if that fails.
[[nodiscard]] bool DegreesOf(const tagKOORD& record, GeodezPayload* degrees);

}  // namespace tessara::toolkit
