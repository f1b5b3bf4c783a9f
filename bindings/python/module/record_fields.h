// Converts fields of positions to columns of Python and to Python objects.
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

// The array type for the values of a field: texts, whole numbers or doubles.
[[nodiscard]] pybind11::dtype TypeOf(const OutputField& field);

inline constexpr std::size_t MOST_LETTERS = 4;

// Converts texts of NumPy, with 4 bytes per letter, to adjacent letters. Other characters than ASCII become a
// letter that no system uses.
void ReadLetters(const OutputField& field, const InColumn& column, std::size_t first, std::size_t count,
                 std::span<char> letters);

// Other numbers than whole ones become a value that no field can hold.
void ReadWholes(const InColumn& column, std::size_t first, std::size_t count, std::span<double> wholes);

// Converts adjacent letters to texts, and doubles to whole numbers. Columns of doubles stay unchanged.
void WriteColumn(const OutputField& field, std::span<const double> values, std::size_t first,
                 std::size_t count, const OutColumn& column);

// The value for a position without a result: NaN, 0, or an empty text.
void WriteMissing(const OutputField& field, std::size_t at, const OutColumn& column);

// A field of one record as a Python object.
[[nodiscard]] pybind11::object ValueOf(const OutputField& field, const tagKOORD& record);

// Whether the number of a field is finite; true for other fields.
[[nodiscard]] bool IsFinite(const OutputField& field, const tagKOORD& record);

}  // namespace tessara::python
