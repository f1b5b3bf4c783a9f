// A conversion that is prepared once and applied to blocks of columns.
#pragma once

#include <cstddef>
#include <span>

#include "conversion/references.h"
#include "handles.h"
#include "systems/conversion.h"
#include "tessara/kernel/columns.h"
#include "tessara/kernel/koord.h"

namespace tessara::web {

// A field of one row: a double, or letters in its first bytes.
struct alignas(8) Slot {
    std::byte bytes[8];
};

class PreparedConversion {
  public:
    PreparedConversion(toolkit::Reference from, toolkit::Reference to);

    [[nodiscard]] const toolkit::Reference& To() const { return to_; }
    [[nodiscard]] std::span<const OutputField> SourceFields() const;
    [[nodiscard]] std::span<const OutputField> TargetFields() const;

    // A status in each row. Whole numbers of the source that aren't whole are replaced in their columns by
    // one that no field holds.
    void Convert(const SourceColumns& from, const TargetColumns& to, std::size_t count) const;

    // One row, with the results of Convert. The bits of `given` say which fields of the source are in their
    // slots; the others have their defaults. Heights aren't converted.
    [[nodiscard]] KoordStatus ConvertRow(const Slot* from, std::uint32_t given, Slot* to) const;

    // One position in a record of the source.
    [[nodiscard]] KoordStatus Convert(const tagKOORD& source, tagKOORD* target) const;

    // A record of the source with nothing but the defaults of its other fields.
    [[nodiscard]] const tagKOORD& Source() const { return source_; }

  private:
    void Raise(const TargetColumns& to, const SourceColumn& heights, std::size_t count) const;

    toolkit::Reference from_;
    toolkit::Reference to_;
    tagKOORD source_;
    tagKOORD target_;
    Conversion single_;
};

[[nodiscard]] Handles<PreparedConversion>& Conversions();

// How JavaScript holds a field: letters, whole numbers or numbers.
enum class ColumnKind : char { Letters = 'L', Whole = 'W', Number = 'N' };
[[nodiscard]] ColumnKind KindOf(const OutputField& field);

}  // namespace tessara::web
