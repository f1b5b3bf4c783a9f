// How many objects of the library are alive, in builds that count them.
#include "tessara/internal/object_census.h"

#include "module.h"

namespace tessara::python {
namespace py = pybind11;

#if defined(TESSARA_COUNT_OBJECTS)

void BindCensus(py::module_& module) {
    module.def("living_objects", [] {
        py::dict living;
        for (const CensusEntry* entry = CensusEntry::First(); entry != nullptr; entry = entry->Next())
            living[entry->ClassName()] = entry->Living();
        return living;
    });
}

#else

void BindCensus(py::module_&) {}

#endif

}  // namespace tessara::python
