// From positions to records in another system and datum.
#pragma once

#include <cstdint>

#include "conversion/positions.h"
#include "conversion/references.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

class Conversion {
  public:
    // From degrees on the datum `from`.
    Conversion(std::int32_t from, Reference to);

    // The record and height of the position in the target, or why there is no such position. A record that is
    // in the target's system and datum already stays as it is.
    [[nodiscard]] KoordStatus Convert(const Position& position, CKoord* result) const;
    [[nodiscard]] KoordStatus Convert(const CKoord& source, CKoord* result) const;

    [[nodiscard]] const Reference& Target() const { return to_; }

  private:
    std::int32_t from_;
    Reference to_;
    CKoord target_;  // without a position
};

}  // namespace tessara::toolkit
