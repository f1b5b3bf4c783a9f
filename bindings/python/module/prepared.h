// A conversion that is prepared once and applied to columns.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "columns.h"
#include "conversion/references.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/systems.h"

namespace tessara::python {

struct SourceColumns {
    std::vector<InColumn> fields;  // one for each field of the source; one that isn't there keeps its default
    InColumn height;
};

struct TargetColumns {
    std::vector<OutColumn> fields;
    OutColumn height;
    OutColumn status;  // a KoordStatus each
};

// What a position without a result leaves in the columns.
enum class Keep { Nothing, DistantZones };

class PreparedConversion {
  public:
    // `zone` is the zone or the meridian that is wanted of the target.
    PreparedConversion(toolkit::Reference from, toolkit::Reference to, std::optional<std::int16_t> zone);

    [[nodiscard]] const toolkit::Reference& From() const { return from_; }
    [[nodiscard]] const toolkit::Reference& To() const { return to_; }
    [[nodiscard]] std::span<const OutputField> SourceFields() const { return sourceFields_; }
    [[nodiscard]] std::span<const OutputField> TargetFields() const { return targetFields_; }

    // Whether a position of the source has a height of its own, and has one in the target.
    [[nodiscard]] bool KnowsHeight() const;
    [[nodiscard]] bool GivesHeight() const;

    // The record that the source's fields are written into.
    [[nodiscard]] const tagKOORD& Source() const { return source_; }

    // One position. The height is read and written.
    [[nodiscard]] KoordStatus Convert(tagKOORD source, double* height, tagKOORD* target) const;

    // Many positions, and the first of them that has no result. Touches nothing of Python.
    [[nodiscard]] std::optional<Failure> Convert(const SourceColumns& source, std::size_t count, Keep keep,
                                                 const TargetColumns& target) const;

  private:
    class Block;

    void ConvertBlock(Block& block) const;

    toolkit::Reference from_;
    toolkit::Reference to_;
    std::span<const OutputField> sourceFields_;
    std::span<const OutputField> targetFields_;
    tagKOORD source_;
    tagKOORD target_;
};

}  // namespace tessara::python
