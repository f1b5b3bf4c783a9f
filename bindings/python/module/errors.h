// Exceptions for positions without a result.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "tessara/kernel/koord_status.h"

namespace tessara::python {

// Becomes the Python exception PositionError, with a status and its description.
struct PositionError {
    KoordStatus status;
    pybind11::object index = pybind11::none();
};

void BindErrors(pybind11::module_& module);

}  // namespace tessara::python
