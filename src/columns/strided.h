// Columns of callers, from some row on: values any distance apart, aligned or not.
#pragma once

#include <cstddef>
#include <cstring>

#include "tessara/kernel/columns.h"

namespace tessara {

// Chars or doubles.
class StridedSource {
  public:
    StridedSource(const SourceColumn& column, std::size_t first)
        : at_(column.first == nullptr ? nullptr
                                      : static_cast<const char*>(column.first) +
                                            static_cast<std::ptrdiff_t>(first) * column.stride),
          stride_(column.stride) {}

    [[nodiscard]] bool Exists() const { return at_ != nullptr; }
    [[nodiscard]] const char* Letters(std::size_t row) const {
        return at_ + static_cast<std::ptrdiff_t>(row) * stride_;
    }
    [[nodiscard]] double Number(std::size_t row) const {
        double value;
        std::memcpy(&value, Letters(row), sizeof value);
        return value;
    }
    void CopyNumbers(std::size_t rows, double* numbers) const {
        if (stride_ == sizeof *numbers) {
            std::memcpy(numbers, at_, rows * sizeof *numbers);
            return;
        }
        for (std::size_t row = 0; row < rows; ++row)
            numbers[row] = Number(row);
    }

  private:
    const char* at_;
    std::ptrdiff_t stride_;
};

class StridedTarget {
  public:
    StridedTarget(const TargetColumn& column, std::size_t first)
        : at_(column.first == nullptr
                  ? nullptr
                  : static_cast<char*>(column.first) + static_cast<std::ptrdiff_t>(first) * column.stride),
          stride_(column.stride) {}

    [[nodiscard]] bool Exists() const { return at_ != nullptr; }
    template <class Value>
    void Put(std::size_t row, Value value) const {
        std::memcpy(Letters(row), &value, sizeof value);
    }
    [[nodiscard]] char* Letters(std::size_t row) const {
        return at_ + static_cast<std::ptrdiff_t>(row) * stride_;
    }
    void PutNumbers(std::size_t rows, const double* numbers) const {
        if (stride_ == sizeof *numbers) {
            std::memcpy(at_, numbers, rows * sizeof *numbers);
            return;
        }
        for (std::size_t row = 0; row < rows; ++row)
            Put(row, numbers[row]);
    }

  private:
    char* at_;
    std::ptrdiff_t stride_;
};

}  // namespace tessara
