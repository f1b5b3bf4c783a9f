// The fields of records as columns: what a system's positions are made of, and where it stands in the record.
#pragma once

#include <pybind11/numpy.h>

#include <cstdint>
#include <span>
#include <vector>

#include "columns.h"
#include "tessara/kernel/systems.h"

namespace tessara::python {

enum class ColumnKind { Number, Letters, Whole16, Whole32 };

[[nodiscard]] ColumnKind KindOf(const OutputField& field);

// The type of an array with a field's values: texts, whole numbers or doubles.
[[nodiscard]] pybind11::dtype TypeOf(const OutputField& field);

// A field of many records, from and to a column. Text stands in a column as NumPy has it, 4 bytes a letter.
void ReadField(const OutputField& field, const InColumn& column, std::size_t first,
               std::span<tagKOORD> records);
void WriteField(const OutputField& field, std::span<const tagKOORD> records, std::size_t first,
                const OutColumn& column);

// What stands there for a position that has no result: NaN, 0, or no letter.
void WriteMissing(const OutputField& field, std::size_t at, const OutColumn& column);

// A field of one record as a Python object.
[[nodiscard]] pybind11::object ValueOf(const OutputField& field, const tagKOORD& record);

// Whether the number of a field is finite; others are.
[[nodiscard]] bool IsFinite(const OutputField& field, const tagKOORD& record);

}  // namespace tessara::python
