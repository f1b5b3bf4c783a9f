// Extents, polygons and lines without a map.
#include <pybind11/stl.h>

#include <stdexcept>

#include "columns.h"
#include "conversion/made.h"
#include "lines.h"
#include "map/map_sites.h"
#include "module.h"
#include "reference.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

// Other threads of Python run while the library works on objects that nobody else has.
template <class Operation>
auto WithoutLock(const Operation& operation) {
    const py::gil_scoped_release released;
    return operation();
}

py::object Extent(const DegreeRows& rows, const std::string& datum, const std::string& system) {
    const IRef<IArray> line = LineOf(rows, DatumOf(datum));
    const Extremes extremes(ReferenceOf(system));
    const IRef<ICoordinateArea> area = toolkit::Made(CreateClassCoordinateArea());
    const bool isThere = WithoutLock([&] {
        return area->GetLineExtremes(line.Get(), extremes.north.Get(), extremes.east.Get(),
                                     extremes.south.Get(), extremes.west.Get());
    });
    if (!isThere) throw std::invalid_argument("the line has no extent in " + system);
    return extremes.Fields();
}

DegreeRows Densify(const DegreeRows& rows, const std::string& datum, const std::string& system) {
    const IRef<IArray> line = LineOf(rows, DatumOf(datum));
    const IRef<ICoordinateReference> reference = toolkit::MakeReference(ReferenceOf(system));
    const IRef<ILinePoints> points = toolkit::Made(CreateClassLinePoints());
    const IRef<IArray> all = toolkit::Made(CreateClassArray());
    for (std::uint32_t i = 1; i < line->GetCount(); ++i) {
        const IRef<IArray> chain = toolkit::Made(CreateClassArray());
        if (!points->DensifyInReference(toolkit::Made(IRef<ICoord>(line->GetAt(i - 1))).Get(),
                                        toolkit::Made(IRef<ICoord>(line->GetAt(i))).Get(), reference.Get(),
                                        chain.Get()))
            throw std::invalid_argument("edge " + std::to_string(i - 1) + " can't be followed in " + system);
        for (std::uint32_t k = i == 1 ? 0 : 1; k < chain->GetCount(); ++k)
            all->Add(toolkit::Made(IRef<ICoord>(chain->GetAt(k))).Get());
    }
    return line->GetCount() < 2 ? rows : RowsOf(all.Get(), DatumOf(datum));
}

py::array PointInPolygon(const std::vector<py::ssize_t>& shape, const py::array_t<double>& latitudes,
                         const py::array_t<double>& longitudes, const DegreeRows& polygon,
                         const std::string& datum) {
    const std::int32_t number = DatumOf(datum);
    const IRef<IArray> ring = LineOf(polygon, number);
    const IRef<ICoordinateArea> area = toolkit::Made(CreateClassCoordinateArea());
    InputArrays inputs(shape);
    const InColumn latitude = inputs.Add(latitudes);
    const InColumn longitude = inputs.Add(longitudes);
    OutputArrays outputs(shape);
    const OutColumn inside = outputs.Add(py::dtype::of<bool>());
    {
        const py::gil_scoped_release released;
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            const IRef<ICoord> point = toolkit::DegreesCoord(latitude.Number(i), longitude.Number(i), number);
            inside.Put(i, area->IsInsideCoordEdgesNoMap(point.Get(), ring.Get()));
        }
    }
    return outputs.Arrays()[0];
}

py::tuple Overlay(const DegreeRows& first, const DegreeRows& second, const std::string& datum) {
    const std::int32_t number = DatumOf(datum);
    const IRef<IArray> one = LineOf(first, number);
    const IRef<IArray> other = LineOf(second, number);
    const IRef<IArray> neither = toolkit::Made(CreateClassArray());
    const IRef<IArray> onlySecond = toolkit::Made(CreateClassArray());
    const IRef<IArray> onlyFirst = toolkit::Made(CreateClassArray());
    const IRef<IArray> both = toolkit::Made(CreateClassArray());
    const IRef<ICoordinateArea> area = toolkit::Made(CreateClassCoordinateArea());
    const std::int32_t relation = WithoutLock([&] {
        return area->Overlay(one.Get(), other.Get(), neither.Get(), onlySecond.Get(), onlyFirst.Get(),
                             both.Get());
    });
    if (relation == OVERLAY_FAILURE)
        throw std::invalid_argument("the polygons can't be laid over each other");
    return py::make_tuple(relation, LinesOf(both.Get(), number), LinesOf(onlyFirst.Get(), number),
                          LinesOf(onlySecond.Get(), number), LinesOf(neither.Get(), number));
}

}  // namespace

void BindAreas(py::module_& module) {
    module.def("extent", &Extent);
    module.def("densify", &Densify);
    module.def("point_in_polygon", &PointInPolygon);
    module.def("overlay", &Overlay);
}

}  // namespace tessara::python
