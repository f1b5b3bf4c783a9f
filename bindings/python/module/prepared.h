// A prepared conversion of columns. Only its source calls the column conversion of the library.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "columns.h"
#include "conversion/references.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/systems.h"

namespace tessara::python {

struct GivenColumns {
    std::vector<InColumn> fields;  // one for each field of the source; a missing field keeps its default
    InColumn height;
};

struct WantedColumns {
    std::vector<OutColumn> fields;
    OutColumn height;
    OutColumn status;  // one KoordStatus per row
};

// The treatment of a position far from the wanted zone.
enum class DistantZones { Missing, Kept };

// The numbers of two fields.
struct FieldPair {
    std::size_t north;
    std::size_t east;
};

class PreparedConversion {
  public:
    // `zone` is the wanted zone, strip or meridian of the target.
    PreparedConversion(toolkit::Reference from, toolkit::Reference to, std::optional<std::int32_t> zone);

    [[nodiscard]] const toolkit::Reference& From() const { return from_; }
    [[nodiscard]] const toolkit::Reference& To() const { return to_; }
    [[nodiscard]] std::span<const OutputField> SourceFields() const { return sourceFields_; }
    [[nodiscard]] std::span<const OutputField> TargetFields() const { return targetFields_; }

    // Whether a position of the source has a height of its own, and whether one of the target comes with a
    // height.
    [[nodiscard]] bool KnowsHeight() const;
    [[nodiscard]] bool GivesHeight() const;

    // The two numeric fields that define a position of the source, if there are such fields.
    [[nodiscard]] std::optional<FieldPair> NorthAndEast() const;
    // A record of the source with the pair, and defaults in the other fields.
    [[nodiscard]] tagKOORD SourceAt(FieldPair pair, double north, double east) const;

    // Converts one position at height 0.
    [[nodiscard]] KoordStatus Convert(const tagKOORD& source, tagKOORD* target) const;

    // Converts many positions and returns the first one without a result. Doesn't use Python objects.
    [[nodiscard]] std::optional<Failure> Convert(const GivenColumns& given, std::size_t count,
                                                 DistantZones distant, const WantedColumns& wanted) const;

  private:
    class Block;

    toolkit::Reference from_;
    toolkit::Reference to_;
    std::span<const OutputField> sourceFields_;
    std::span<const OutputField> targetFields_;
    tagKOORD source_;
    tagKOORD target_;
};

}  // namespace tessara::python
