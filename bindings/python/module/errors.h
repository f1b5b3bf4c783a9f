// Positions that have no result, as exceptions.
#pragma once

#include <pybind11/pybind11.h>

#include <string>

#include "tessara/kernel/koord_status.h"

namespace tessara::python {

// What becomes the Python exception PositionError: a status, and what it means.
struct PositionError {
    KoordStatus status;
    pybind11::object index = pybind11::none();
};

void BindErrors(pybind11::module_& module);

}  // namespace tessara::python
