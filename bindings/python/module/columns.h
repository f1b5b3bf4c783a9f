// Columns: strided memory with the values of one field for many positions.
#pragma once

#include <pybind11/numpy.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

#include "tessara/kernel/koord_status.h"

namespace tessara::python {

// Input values. A stride of 0 means one value for all positions; a null pointer means that there is no
// column.
struct InColumn {
    const std::byte* data = nullptr;
    std::ptrdiff_t stride = 0;

    [[nodiscard]] bool IsThere() const { return data != nullptr; }

    // Arrays can have any alignment.
    [[nodiscard]] double Number(std::size_t i) const {
        double value;
        std::memcpy(&value, At(i), sizeof value);
        return value;
    }
    [[nodiscard]] const std::byte* At(std::size_t i) const {
        return data + static_cast<std::ptrdiff_t>(i) * stride;
    }
};

// Output values, contiguous.
struct OutColumn {
    std::byte* data = nullptr;

    [[nodiscard]] bool IsThere() const { return data != nullptr; }

    template <class Value>
    void Put(std::size_t i, Value value) const {
        std::memcpy(data + i * sizeof value, &value, sizeof value);
    }
    [[nodiscard]] double Number(std::size_t i) const {
        double value;
        std::memcpy(&value, data + i * sizeof value, sizeof value);
        return value;
    }
    template <class Value>
    [[nodiscard]] std::byte* At(std::size_t i) const {
        return data + i * sizeof(Value);
    }
};

// Arrays of one shape as columns. Keeps the arrays alive.
class InputArrays {
  public:
    explicit InputArrays(std::vector<pybind11::ssize_t> shape);

    // The array must have the shape. It is copied only if its elements have no common stride.
    [[nodiscard]] InColumn Add(const pybind11::array& array);

    [[nodiscard]] const std::vector<pybind11::ssize_t>& Shape() const { return shape_; }
    [[nodiscard]] std::size_t Count() const { return count_; }

  private:
    std::vector<pybind11::ssize_t> shape_;
    std::size_t count_;
    std::vector<pybind11::array> held_;
};

// Allocates arrays of one shape.
class OutputArrays {
  public:
    explicit OutputArrays(const std::vector<pybind11::ssize_t>& shape) : shape_(shape) {}

    [[nodiscard]] OutColumn Add(const pybind11::dtype& type);

    // The arrays in the order in which they were added.
    [[nodiscard]] pybind11::list Arrays() const { return arrays_; }

  private:
    std::vector<pybind11::ssize_t> shape_;
    pybind11::list arrays_;
};

// The first position without a result.
struct Failure {
    std::size_t index;
    KoordStatus status;
};

// The index of an element in an array of a shape: a number, or a tuple of numbers.
[[nodiscard]] pybind11::object IndexOf(std::size_t element, const std::vector<pybind11::ssize_t>& shape);

}  // namespace tessara::python
