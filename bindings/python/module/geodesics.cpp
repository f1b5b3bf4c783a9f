// Solves geodesics for columns of degrees.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "columns.h"
#include "errors.h"
#include "module.h"
#include "reference.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/limits.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

constexpr std::size_t IN_COUNT = 4;
constexpr std::size_t OUT_COUNT = 3;
using Numbers = py::array_t<double>;
using In = std::array<double, IN_COUNT>;
using Out = std::array<double, OUT_COUNT>;

struct Axes {
    explicit Axes(std::int32_t datum) { Geodesic_LoadAxes(values, datum); }
    double values[2];
};

KoordStatus CheckDegrees(double latitude, double longitude) {
    if (!(std::abs(latitude) <= GEOGRAPHIC_LIMITS.north)) return KOORD_ERR_GEO_LAT;
    if (!(std::abs(longitude) <= GEOGRAPHIC_LIMITS.east)) return KOORD_ERR_GEO_LON;
    return KOORD_OK;
}

KoordStatus Inverse(const In& in, const Axes& axes, Out* out) {
    for (const std::size_t k : {std::size_t{0}, std::size_t{2}}) {
        const KoordStatus status = CheckDegrees(in[k], in[k + 1]);
        if (status != KOORD_OK) return status;
    }
    const GeodesicResult way =
        Geodesic_InverseCore(in[0], in[1], in[2], in[3], axes.values[0], axes.values[1]);
    if (!(way.distance >= 0.0)) return GEODESIC_NO_SOLUTION;
    *out = {way.distance, way.azimuth12, way.azimuth21};
    return KOORD_OK;
}

KoordStatus Direct(const In& in, const Axes& axes, Out* out) {
    const KoordStatus status = CheckDegrees(in[0], in[1]);
    if (status != KOORD_OK) return status;
    if (!std::isfinite(in[2]) || !std::isfinite(in[3])) return GEODESIC_NO_SOLUTION;
    const GeodesicResult end =
        Geodesic_DirectCore(in[0], in[1], in[3], in[2], axes.values[0], axes.values[1]);
    if (!std::isfinite(end.latitude) || !std::isfinite(end.longitude)) return GEODESIC_NO_SOLUTION;
    *out = {end.latitude, std::remainder(end.longitude, 360.0), end.backAzimuth};
    return KOORD_OK;
}

// Returns three results for each row of four numbers, and the statuses if they are wanted.
template <KoordStatus (*solve)(const In&, const Axes&, Out*)>
py::list Solve(const std::vector<py::ssize_t>& shape, const std::array<Numbers, IN_COUNT>& arrays,
               const std::string& datum, const std::string& errors) {
    const Axes axes(DatumOf(datum));
    InputArrays inputs(shape);
    std::array<InColumn, IN_COUNT> in;
    for (std::size_t k = 0; k < IN_COUNT; ++k)
        in[k] = inputs.Add(arrays[k]);
    OutputArrays outputs(shape);
    std::array<OutColumn, OUT_COUNT> out;
    for (OutColumn& column : out)
        column = outputs.Add(py::dtype::of<double>());
    OutColumn statuses;
    if (errors == "status") statuses = outputs.Add(py::dtype::of<std::int32_t>());

    std::optional<Failure> failure;
    {
        const py::gil_scoped_release released;
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            In values;
            for (std::size_t k = 0; k < IN_COUNT; ++k)
                values[k] = in[k].Number(i);
            Out results;
            results.fill(std::nan(""));
            const KoordStatus status = solve(values, axes, &results);
            for (std::size_t k = 0; k < OUT_COUNT; ++k)
                out[k].Put(i, results[k]);
            if (statuses.IsThere()) statuses.Put(i, status);
            if (status != KOORD_OK && !failure) failure = {i, status};
        }
    }
    if (failure && errors == "raise") throw PositionError{failure->status, IndexOf(failure->index, shape)};
    return outputs.Arrays();
}

}  // namespace

void BindGeodesics(py::module_& module) {
    module.def("inverse", &Solve<Inverse>, py::arg("shape"), py::arg("arrays"), py::arg("datum"),
               py::arg("errors"));
    module.def("direct", &Solve<Direct>, py::arg("shape"), py::arg("arrays"), py::arg("datum"),
               py::arg("errors"));
}

}  // namespace tessara::python
