// The fields of positions as columns of Python and as Python objects.
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

inline constexpr std::size_t MOST_LETTERS = 4;

// Texts of a column, which has 4 bytes a letter as NumPy holds them, as letters side by side. What isn't
// ASCII becomes a letter that no system has.
void ReadLetters(const OutputField& field, const InColumn& column, std::size_t first, std::size_t count,
                 std::span<char> letters);

// What is no whole number becomes one that no field can hold.
void ReadWholes(const InColumn& column, std::size_t first, std::size_t count, std::span<double> wholes);

// Letters side by side or doubles as texts or whole numbers of a column. A column of numbers is left alone.
void WriteColumn(const OutputField& field, std::span<const double> values, std::size_t first,
                 std::size_t count, const OutColumn& column);

// What stands there for a position that has no result: NaN, 0, or no letter.
void WriteMissing(const OutputField& field, std::size_t at, const OutColumn& column);

// A field of one record as a Python object.
[[nodiscard]] pybind11::object ValueOf(const OutputField& field, const tagKOORD& record);

// Whether the number of a field is finite; others are.
[[nodiscard]] bool IsFinite(const OutputField& field, const tagKOORD& record);

}  // namespace tessara::python
