// Solves geodesics for columns of degrees.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "columns.h"
#include "conversion/geodesic_checks.h"
#include "errors.h"
#include "module.h"
#include "reference.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/kernel/geodesic_columns.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

constexpr std::size_t IN_COUNT = 4;
constexpr std::size_t OUT_COUNT = 3;
using Numbers = py::array_t<double>;
using In = std::array<double, IN_COUNT>;
using Out = std::array<double, OUT_COUNT>;
using Sources = std::array<SourceColumn, IN_COUNT>;
using Targets = std::array<TargetColumn, OUT_COUNT>;

struct Axes {
    explicit Axes(std::int32_t datum) { Geodesic_LoadAxes(values, datum); }
    double values[2];
};

// A problem solves all rows, and then looks at each: at what it was, and at the result.
struct Inverse {
    static void Solve(const Sources& in, const Targets& out, std::size_t count, const Axes& axes) {
        const GeodesicInverseColumns columns{in[0], in[1], in[2], in[3], out[0], out[1], out[2]};
        Geodesic_InverseColumns(&columns, count, axes.values[0], axes.values[1]);
    }
    static KoordStatus Check(const In& in, Out* out) {
        return toolkit::CheckWay(in[0], in[1], in[2], in[3], (*out)[0]);
    }
};

struct Direct {
    // In: latitude, longitude, azimuth, distance.
    static void Solve(const Sources& in, const Targets& out, std::size_t count, const Axes& axes) {
        const GeodesicDirectColumns columns{in[0], in[1], in[3], in[2], out[0], out[1], out[2]};
        Geodesic_DirectColumns(&columns, count, axes.values[0], axes.values[1]);
    }
    static KoordStatus Check(const In& in, Out* out) {
        return toolkit::CheckEnd(in[0], in[1], in[2], in[3], (*out)[0], &(*out)[1]);
    }
};

// Returns three results for each row of four numbers, and the statuses if they are wanted.
template <class Problem>
py::list Solve(const std::vector<py::ssize_t>& shape, const std::array<Numbers, IN_COUNT>& arrays,
               const std::string& datum, const std::string& errors) {
    const Axes axes(DatumOf(datum));
    InputArrays inputs(shape);
    std::array<InColumn, IN_COUNT> in;
    Sources sources;
    for (std::size_t k = 0; k < IN_COUNT; ++k) {
        in[k] = inputs.Add(arrays[k]);
        sources[k] = {in[k].data, in[k].stride};
    }
    OutputArrays outputs(shape);
    std::array<OutColumn, OUT_COUNT> out;
    Targets targets;
    for (std::size_t k = 0; k < OUT_COUNT; ++k) {
        out[k] = outputs.Add(py::dtype::of<double>());
        targets[k] = {out[k].data, sizeof(double)};
    }
    OutColumn statuses;
    if (errors == "status") statuses = outputs.Add(py::dtype::of<std::int32_t>());

    std::optional<Failure> failure;
    {
        const py::gil_scoped_release released;
        Problem::Solve(sources, targets, inputs.Count(), axes);
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            In values;
            for (std::size_t k = 0; k < IN_COUNT; ++k)
                values[k] = in[k].Number(i);
            Out results;
            for (std::size_t k = 0; k < OUT_COUNT; ++k)
                results[k] = out[k].Number(i);
            const KoordStatus status = Problem::Check(values, &results);
            if (status != KOORD_OK) results.fill(std::nan(""));
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
