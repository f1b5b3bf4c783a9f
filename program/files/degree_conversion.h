// From a line `latitude longitude [height]` to the line with the position in other references.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "conversion/conversion.h"
#include "conversion/results.h"
#include "files/line_blocks.h"
#include "files/toolkit_names.h"

namespace tessara::program {

struct DegreeConversion {
    std::int32_t datum;  // of the positions
    std::vector<Reference> to;
    bool json = false;
};

// Does the conversion for one thread.
class DegreeConverter {
  public:
    explicit DegreeConverter(const DegreeConversion& conversion);

    // Appends the line that is to be written, if the line has a position; otherwise says what is wrong.
    std::string Convert(std::string_view line, const Place& place, std::string* out) const;

  private:
    [[nodiscard]] std::string JsonOf(const Place& place, const Position& position,
                                     const std::vector<Result>& results) const;

    bool json_;
    std::string datum_;
    std::vector<Conversion> conversions_;
};

}  // namespace tessara::program
