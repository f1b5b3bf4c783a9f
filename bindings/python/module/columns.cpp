#include "columns.h"

#include <algorithm>
#include <new>
#include <stdexcept>

namespace tessara::python {
namespace py = pybind11;
namespace {

std::size_t CountOf(const std::vector<py::ssize_t>& shape) {
    std::size_t count = 1;
    for (const py::ssize_t size : shape)
        count *= static_cast<std::size_t>(size);
    return count;
}

}  // namespace

InputArrays::InputArrays(std::vector<py::ssize_t> shape)
    : shape_(std::move(shape)), count_(CountOf(shape_)) {}

InColumn InputArrays::Add(const py::array& array) {
    if (!std::equal(shape_.begin(), shape_.end(), array.shape(), array.shape() + array.ndim()))
        throw std::invalid_argument("the arrays have different shapes");
    const auto strides = array.strides();
    const bool isOneValue =
        std::all_of(strides, strides + array.ndim(), [](py::ssize_t s) { return s == 0; });
    const bool isEven = isOneValue || array.ndim() <= 1 || (array.flags() & py::array::c_style) != 0;
    held_.push_back(isEven ? array : py::array::ensure(array, py::array::c_style));
    const py::array& held = held_.back();
    if (!held) throw std::bad_alloc();
    const py::ssize_t stride = isOneValue ? 0 : held.ndim() == 1 ? held.strides(0) : held.itemsize();
    return {static_cast<const std::byte*>(held.data()), stride};
}

OutColumn OutputArrays::Add(const py::dtype& type) {
    py::array array(type, shape_);
    arrays_.append(array);
    return {static_cast<std::byte*>(array.mutable_data())};
}

py::object IndexOf(std::size_t element, const std::vector<py::ssize_t>& shape) {
    if (shape.empty()) return py::none();
    py::list index;
    for (std::size_t axis = shape.size(); axis-- > 0;) {
        const auto size = static_cast<std::size_t>(shape[axis]);
        index.insert(0, element % size);
        element /= size;
    }
    if (shape.size() == 1) return index[0];
    return py::tuple(index);
}

}  // namespace tessara::python
