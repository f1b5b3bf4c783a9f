// From a position in degrees to a record in another system and datum.
#pragma once

#include <cstdint>
#include <optional>

#include "conversion/positions.h"
#include "conversion/references.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

class Conversion {
  public:
    // From degrees on the datum `from`.
    Conversion(std::int32_t from, Reference to);

    // The record and height of the position in the target; nothing if there is no such position.
    [[nodiscard]] std::optional<CKoord> Convert(const Position& position) const;

    [[nodiscard]] const Reference& Target() const { return to_; }

  private:
    std::int32_t from_;
    Reference to_;
    IRef<ICoordinateReference> reference_;
};

}  // namespace tessara::toolkit
