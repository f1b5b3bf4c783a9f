#include "record_fields.h"

#include <array>
#include <cmath>
#include <limits>
#include <string>

namespace tessara::python {
namespace py = pybind11;
namespace {

constexpr std::size_t MOST_LETTERS = 4;
using Letters = std::array<char32_t, MOST_LETTERS>;  // as NumPy holds text

template <class Value>
Value At(const tagKOORD& record, const OutputField& field) {
    Value value;
    std::memcpy(&value, record.payload + field.offset, sizeof value);
    return value;
}

template <class Value>
void Set(tagKOORD& record, const OutputField& field, Value value) {
    std::memcpy(record.payload + field.offset, &value, sizeof value);
}

// What is no whole number of the type becomes its least one, which no system has in a field.
template <class Whole>
Whole WholeOf(double value) {
    using Limits = std::numeric_limits<Whole>;
    const bool fits = value >= Limits::min() && value <= Limits::max() && value == std::floor(value);
    return fits ? static_cast<Whole>(value) : Limits::min();
}

void ReadLetters(const OutputField& field, const InColumn& column, std::size_t i, tagKOORD& record) {
    Letters letters{};
    std::memcpy(letters.data(), column.At(i), field.count * sizeof letters[0]);
    for (std::size_t k = 0; k < field.count; ++k) {
        const char letter = letters[k] < 0x80 ? static_cast<char>(letters[k]) : '?';
        std::memcpy(record.payload + field.offset + k, &letter, 1);
    }
}

void WriteLetters(const OutputField& field, const tagKOORD& record, std::size_t i, const OutColumn& column) {
    Letters letters{};
    for (std::size_t k = 0; k < field.count; ++k)
        letters[k] = static_cast<unsigned char>(record.payload[field.offset + k]);
    std::memcpy(column.data + i * field.count * sizeof letters[0], letters.data(),
                field.count * sizeof letters[0]);
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

void ReadField(const OutputField& field, const InColumn& column, std::size_t first,
               std::span<tagKOORD> records) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            for (std::size_t i = 0; i < records.size(); ++i)
                ReadLetters(field, column, first + i, records[i]);
            return;
        case ColumnKind::Whole16:
            for (std::size_t i = 0; i < records.size(); ++i)
                Set(records[i], field, WholeOf<std::int16_t>(column.Number(first + i)));
            return;
        case ColumnKind::Whole32:
            for (std::size_t i = 0; i < records.size(); ++i)
                Set(records[i], field, WholeOf<std::int32_t>(column.Number(first + i)));
            return;
        case ColumnKind::Number:
            for (std::size_t i = 0; i < records.size(); ++i)
                Set(records[i], field, column.Number(first + i));
            return;
    }
}

void WriteField(const OutputField& field, std::span<const tagKOORD> records, std::size_t first,
                const OutColumn& column) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            for (std::size_t i = 0; i < records.size(); ++i)
                WriteLetters(field, records[i], first + i, column);
            return;
        case ColumnKind::Whole16:
            for (std::size_t i = 0; i < records.size(); ++i)
                column.Put(first + i, At<std::int16_t>(records[i], field));
            return;
        case ColumnKind::Whole32:
            for (std::size_t i = 0; i < records.size(); ++i)
                column.Put(first + i, At<std::int32_t>(records[i], field));
            return;
        case ColumnKind::Number:
            for (std::size_t i = 0; i < records.size(); ++i)
                column.Put(first + i, At<double>(records[i], field));
            return;
    }
}

void WriteMissing(const OutputField& field, std::size_t at, const OutColumn& column) {
    switch (KindOf(field)) {
        case ColumnKind::Letters:
            return WriteLetters(field, tagKOORD{}, at, column);
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
