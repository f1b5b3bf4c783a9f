#include "record_fields.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace tessara::python {
namespace py = pybind11;
namespace {

using Letters = std::array<char32_t, MOST_LETTERS>;  // the text format of NumPy

constexpr double NO_WHOLE = 1e300;

template <class Value>
Value At(const tagKOORD& record, const OutputField& field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

// A row without a position contains NaN.
template <class Whole>
void WriteWholes(std::span<const double> values, std::size_t first, std::size_t count,
                 const OutColumn& column) {
    for (std::size_t i = 0; i < count; ++i)
        column.Put(first + i, std::isfinite(values[i]) ? static_cast<Whole>(values[i]) : Whole{0});
}

void PutLetters(const OutputField& field, const char* letters, std::size_t i, const OutColumn& column) {
    Letters wide{};
    for (std::size_t k = 0; k < field.count; ++k)
        wide[k] = static_cast<unsigned char>(letters[k]);
    std::memcpy(column.data + i * field.count * sizeof wide[0], wide.data(), field.count * sizeof wide[0]);
}

}  // namespace

ColumnKind KindOf(const OutputField& field) {
    switch (field.kind) {
        case OutputKind::Letters:
            return ColumnKind::Letters;
        case OutputKind::Whole16:
        case OutputKind::GeorefMinutes:
            return ColumnKind::Whole16;
        case OutputKind::Whole32:
        case OutputKind::SquareMetres:
            return ColumnKind::Whole32;
        default:
            return ColumnKind::Number;
    }
}

py::dtype TypeOf(const OutputField& field) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            return py::dtype("U" + std::to_string(field.count));
        case ColumnKind::Whole16:
            return py::dtype::of<std::int16_t>();
        case ColumnKind::Whole32:
            return py::dtype::of<std::int32_t>();
        case ColumnKind::Number:
            break;
    }
    return py::dtype::of<double>();
}

void ReadLetters(const OutputField& field, const InColumn& column, std::size_t first, std::size_t count,
                 std::span<char> letters) {
    for (std::size_t i = 0; i < count; ++i) {
        Letters wide{};
        std::memcpy(wide.data(), column.At(first + i), field.count * sizeof wide[0]);
        for (std::size_t k = 0; k < field.count; ++k)
            letters[i * field.count + k] = wide[k] < 0x80 ? static_cast<char>(wide[k]) : '?';
    }
}

void ReadWholes(const InColumn& column, std::size_t first, std::size_t count, std::span<double> wholes) {
    for (std::size_t i = 0; i < count; ++i) {
        const double value = column.Number(first + i);
        wholes[i] = value == std::floor(value) ? value : NO_WHOLE;
    }
}

void WriteColumn(const OutputField& field, std::span<const double> values, std::size_t first,
                 std::size_t count, const OutColumn& column) {
    switch (KindOf(field)) {
        case ColumnKind::Letters: {
            const auto* const letters = reinterpret_cast<const char*>(values.data());
            for (std::size_t i = 0; i < count; ++i)
                PutLetters(field, letters + i * field.count, first + i, column);
            return;
        }
        case ColumnKind::Whole16:
            return WriteWholes<std::int16_t>(values, first, count, column);
        case ColumnKind::Whole32:
            return WriteWholes<std::int32_t>(values, first, count, column);
        case ColumnKind::Number:
            return;
    }
}

void WriteMissing(const OutputField& field, std::size_t at, const OutColumn& column) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            return PutLetters(field, "\0\0\0", at, column);
        case ColumnKind::Whole16:
            return column.Put(at, std::int16_t{0});
        case ColumnKind::Whole32:
            return column.Put(at, std::int32_t{0});
        case ColumnKind::Number:
            return column.Put(at, std::numeric_limits<double>::quiet_NaN());
    }
}

py::object ValueOf(const OutputField& field, const tagKOORD& record) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            return py::str(reinterpret_cast<const char*>(record.payload + field.offset), field.count);
        case ColumnKind::Whole16:
            return py::int_(At<std::int16_t>(record, field));
        case ColumnKind::Whole32:
            return py::int_(At<std::int32_t>(record, field));
        case ColumnKind::Number:
            break;
    }
    return py::float_(At<double>(record, field));
}

bool IsFinite(const OutputField& field, const tagKOORD& record) {
    return KindOf(field) != ColumnKind::Number || std::isfinite(At<double>(record, field));
}

}  // namespace tessara::python
