// The tables of systems and datums.
#include "conversion/names.h"
#include "module.h"
#include "tessara/host/listings.h"
#include "tessara/kernel/constants.h"
#include "tessara/kernel/datum.h"
#include "tessara/kernel/systems.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

py::list Systems() {
    py::list rows;
    for (const NameRow& row : host::Systems()) {
        const auto number = static_cast<std::int32_t>(row.number);
        py::list fields;
        for (const OutputField& field : System_Outputs(number))
            fields.append(field.name);
        rows.append(
            py::make_tuple(number, row.name, toolkit::UnitName(System_Unit(number)), py::tuple(fields)));
    }
    return rows;
}

py::list Datums() {
    py::list rows;
    for (const DatumRow& row : host::Datums()) {
        const char* const ellipsoid = host::EllipsoidName(row.ellipsoid);
        rows.append(py::make_tuple(row.id, row.name, ellipsoid != nullptr ? ellipsoid : "", row.a, row.f,
                                   row.dx, row.dy, row.dz));
    }
    return rows;
}

}  // namespace

void BindTables(py::module_& module) {
    module.def("systems", &Systems);
    module.def("datums", &Datums);
}

}  // namespace tessara::python
