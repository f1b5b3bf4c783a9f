// Records as the positions of the boundary.
#pragma once

#include <cstring>
#include <optional>
#include <span>
#include <vector>

#include "boundary.h"
#include "conversion/references.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/systems.h"

namespace tessara::postgresql {

static_assert(sizeof(TessaraPosition) == sizeof(tagKOORD));

[[nodiscard]] inline tagKOORD RecordOf(const TessaraPosition& position) {
    tagKOORD record;
    std::memcpy(&record, &position, sizeof record);
    return record;
}

[[nodiscard]] inline TessaraPosition PositionOf(const tagKOORD& record) {
    TessaraPosition position;
    std::memcpy(&position, &record, sizeof position);
    return position;
}

// The datum and the reference of a name; throw what is wrong with it. Pixels are no reference here.
[[nodiscard]] std::int32_t DatumOf(const char* name);
[[nodiscard]] toolkit::Reference ReferenceOf(const char* name);

// The parameters of a projection that a record holds.
[[nodiscard]] std::span<const OutputField> ParametersOf(std::int32_t system);

// The fields that make a position in its system: those that the library lists, and before them the
// parameters of a projection that has some.
[[nodiscard]] std::vector<OutputField> FieldsOf(std::int32_t system);

[[nodiscard]] std::size_t SizeOf(const OutputField& field);
[[nodiscard]] double NumberOf(const OutputField& field, const tagKOORD& record);

// A number of a record, or nothing for letters and names that the system doesn't have.
[[nodiscard]] std::optional<double> NumberCalled(std::string_view name, const tagKOORD& record);

// The two fields that say where a position is; nothing for a system that has none.
struct FieldPair {
    OutputField north;
    OutputField east;
};
[[nodiscard]] std::optional<FieldPair> NorthAndEast(std::int32_t system);

// What the records of a reference have in common.
class RecordForm {
  public:
    RecordForm(std::int32_t datum, std::int32_t system);

    // The record with nothing in it but its fields: zones that were wanted are gone, so that equal positions
    // have equal bytes.
    [[nodiscard]] tagKOORD Canonical(const tagKOORD& record) const;

    [[nodiscard]] const std::vector<OutputField>& Fields() const { return fields_; }
    [[nodiscard]] const tagKOORD& Empty() const { return empty_; }

  private:
    tagKOORD empty_;
    std::vector<OutputField> fields_;
};

// In degrees on WGS84. KOORD_OK for each record that may become a position of the boundary.
[[nodiscard]] KoordStatus ToDegrees(const tagKOORD& record, double degrees[2]);

}  // namespace tessara::postgresql
