// Convergence and scale of grids.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "columns.h"
#include "errors.h"
#include "module.h"
#include "prepared.h"
#include "reference.h"
#include "tessara/kernel/convergence.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

KoordStatus FactorsAt(const PreparedConversion& conversion, double latitude, double longitude,
                      GridFactors* factors) {
    tagKOORD record;
    const KoordStatus status =
        conversion.Convert(conversion.SourceAt(*conversion.NorthAndEast(), latitude, longitude), &record);
    return status == KOORD_OK ? Grid_Factors(&record, nullptr, factors) : status;
}

py::list Factors(const std::vector<py::ssize_t>& shape, const py::array_t<double>& latitudes,
                 const py::array_t<double>& longitudes, const std::string& datum, const std::string& system,
                 std::optional<std::int32_t> zone, const std::string& errors) {
    const PreparedConversion conversion({.datum = DatumOf(datum), .system = KOORD_GEODEZ},
                                        ReferenceOf(system), zone);
    if (!Grid_HasFactors(conversion.To().system))
        throw std::invalid_argument(system + " is not a conformal grid");
    InputArrays inputs(shape);
    const InColumn latitude = inputs.Add(latitudes);
    const InColumn longitude = inputs.Add(longitudes);
    OutputArrays outputs(shape);
    const OutColumn convergence = outputs.Add(py::dtype::of<double>());
    const OutColumn scale = outputs.Add(py::dtype::of<double>());
    OutColumn statuses;
    if (errors == "status") statuses = outputs.Add(py::dtype::of<std::int32_t>());

    std::optional<Failure> failure;
    {
        const py::gil_scoped_release released;
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            GridFactors factors{std::nan(""), std::nan("")};
            const KoordStatus status =
                FactorsAt(conversion, latitude.Number(i), longitude.Number(i), &factors);
            convergence.Put(i, factors.convergence);
            scale.Put(i, factors.scale);
            if (statuses.IsThere()) statuses.Put(i, status);
            if (status != KOORD_OK && !failure) failure = {i, status};
        }
    }
    if (failure && errors == "raise") throw PositionError{failure->status, IndexOf(failure->index, shape)};
    return outputs.Arrays();
}

}  // namespace

void BindGridFactors(py::module_& module) {
    module.def("grid_factors", &Factors);
}

}  // namespace tessara::python
