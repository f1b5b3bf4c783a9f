// Converts positions to records of another system and datum.
#pragma once

#include <cstdint>

#include "conversion/positions.h"
#include "conversion/references.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

class Conversion {
  public:
    // Converts degrees on the datum `from`.
    Conversion(std::int32_t from, Reference to);

    // Sets the record and height of the position in the target, or returns the status of the failure. A
    // record that already is in the target's system and datum stays unchanged.
    [[nodiscard]] KoordStatus Convert(const Position& position, CKoord* result) const;
    [[nodiscard]] KoordStatus Convert(const CKoord& source, CKoord* result) const;

    [[nodiscard]] const Reference& Target() const { return to_; }

  private:
    std::int32_t from_;
    Reference to_;
    CKoord target_;  // without a position
};

}  // namespace tessara::toolkit
