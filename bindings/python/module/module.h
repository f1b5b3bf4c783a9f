// What the module consists of: each source binds its own.
#pragma once

#include <pybind11/pybind11.h>

namespace tessara::python {

void BindTables(pybind11::module_& module);
void BindConversion(pybind11::module_& module);
void BindGeodesics(pybind11::module_& module);
void BindZones(pybind11::module_& module);
void BindGridFactors(pybind11::module_& module);
void BindMaps(pybind11::module_& module);
void BindAreas(pybind11::module_& module);
void BindTexts(pybind11::module_& module);
void BindCensus(pybind11::module_& module);

}  // namespace tessara::python
