// Maps: pixels and positions, grids, extents, and the picture.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>
#include <stdexcept>

#include "columns.h"
#include "conversion/made.h"
#include "conversion/names.h"
#include "drawing/map_grid_lines.h"
#include "drawing/map_page.h"
#include "errors.h"
#include "lines.h"
#include "map/layer_files.h"
#include "map/map_around.h"
#include "map/map_description.h"
#include "map/map_grids.h"
#include "map/map_sheet.h"
#include "map/map_sites.h"
#include "module.h"
#include "reference.h"
#include "tessara/host/rect.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

constexpr double ANY_SIZE = 1000.0;  // of a picture that nobody draws

toolkit::MapDescription ReadDescription(const std::string& json, const std::string& directory) {
    return toolkit::ReadMapDescription(json, toolkit::FilesIn(directory));
}

struct PixelPair {
    double column = std::nan("");
    double row = std::nan("");
};

class Map {
  public:
    Map(const std::string& json, const std::string& directory)
        : description_(ReadDescription(json, directory)),
          sheet_(description_.sheet, description_.window, ANY_SIZE) {}

    [[nodiscard]] std::string Datum() const { return toolkit::DatumName(sheet_.Datum()); }

    // The SVG, and what couldn't be drawn.
    [[nodiscard]] py::tuple Draw(double size) const {
        toolkit::MapPage page = toolkit::DrawMapPage(description_, size);
        std::vector<std::string> problems = description_.problems;
        problems.insert(problems.end(), page.problems.begin(), page.problems.end());
        return py::make_tuple(page.svg, problems);
    }

    [[nodiscard]] py::list Pixels(const std::vector<py::ssize_t>& shape, const py::array_t<double>& latitudes,
                                  const py::array_t<double>& longitudes, const std::string& datum,
                                  const std::string& errors) const {
        const std::int32_t number = DatumOf(datum);
        const auto pixelOf = [&](double latitude, double longitude, PixelPair* pixel) {
            const IRef<ICoord> coord = toolkit::DegreesCoord(latitude, longitude, number);
            PixelPair found;
            const bool isThere = sheet_.Map()->CoordToFloatPixel(coord.Get(), &found.column, &found.row);
            if (!isThere || !std::isfinite(found.column) || !std::isfinite(found.row)) return false;
            *pixel = found;
            return true;
        };
        return Each(shape, latitudes, longitudes, errors, pixelOf);
    }

    [[nodiscard]] py::list Places(const std::vector<py::ssize_t>& shape, const py::array_t<double>& columns,
                                  const py::array_t<double>& rows, const std::string& datum,
                                  const std::string& errors) const {
        const toolkit::Reference degrees{.datum = DatumOf(datum), .system = KOORD_GEODEZ};
        const auto placeOf = [&](double column, double row, PixelPair* place) {
            const IRef<ICoord> coord = EmptyCoord(degrees);
            if (!sheet_.Map()->FloatPixelToCoord(column, row, coord.Get())) return false;
            const auto found = Load<GeodezPayload>(host::RecordOf(coord));
            if (!std::isfinite(found.latitude) || !std::isfinite(found.longitude)) return false;
            *place = {found.latitude, found.longitude};
            return true;
        };
        return Each(shape, columns, rows, errors, placeOf);
    }

    // The lines of equal east value and those of equal north value, in degrees.
    [[nodiscard]] py::tuple Grid(const std::string& system, double eastStep, double northStep,
                                 const std::string& datum) const {
        const toolkit::Reference reference = ReferenceOf(system);
        if (!toolkit::HasGrid(reference.system)) throw std::invalid_argument(system + " has no grid lines");
        RequireFewLines(system, toolkit::Axis::East, eastStep);
        RequireFewLines(system, toolkit::Axis::North, northStep);
        const IRef<ICoordinateGrid> grid = toolkit::MakeGrid(sheet_, reference, eastStep, northStep);
        const IRef<IArray> east = toolkit::Made(CreateClassArray());
        const IRef<IArray> north = toolkit::Made(CreateClassArray());
        if (!grid.IsValid() || !grid->GetEastLines(east.Get()) || !grid->GetNorthLines(north.Get()))
            throw NoGrid(system);
        const std::int32_t number = DatumOf(datum);
        return py::make_tuple(LinesOf(east.Get(), number, sheet_.Map()),
                              LinesOf(north.Get(), number, sheet_.Map()));
    }

    // The extremes of the window.
    [[nodiscard]] py::tuple Extent(const std::string& system) const {
        const Extremes extremes(ReferenceOf(system));
        const auto whole = [](double pixel) { return static_cast<std::int32_t>(std::lround(pixel)); };
        const toolkit::Window& window = sheet_.MapWindow();
        const IRef<IRect> rect = toolkit::Made<IRect>(NewObject<host::Rect>(
            whole(window.left), whole(window.top), whole(window.right), whole(window.bottom)));
        const IRef<ICoordinateArea> area = toolkit::Made(CreateClassCoordinateArea());
        if (!area->GetMapRectExtremes(sheet_.Map(), rect.Get(), extremes.north.Get(), extremes.east.Get(),
                                      extremes.south.Get(), extremes.west.Get()))
            throw std::invalid_argument("the window has no extent in " + system);
        return extremes.Fields();
    }

    // Edges that are geodesics, straight on the map, or straight in a system.
    [[nodiscard]] DegreeRows Densify(const DegreeRows& rows, const std::string& datum,
                                     const std::string& straight) const {
        const std::int32_t number = DatumOf(datum);
        const IRef<IArray> line = LineOf(rows, number);
        const IRef<ILinePoints> points = toolkit::Made(CreateClassLinePoints());
        const IRef<IArray> all = toolkit::Made(CreateClassArray());
        const auto densify = straight == "geodesic" ? &ILinePoints::DensifyGeodesic
                             : straight == "map"    ? &ILinePoints::DensifyMapStraight
                                                    : &ILinePoints::DensifyCoordStraight;
        for (std::uint32_t i = 1; i < line->GetCount(); ++i) {
            const IRef<IArray> chain = toolkit::Made(CreateClassArray());
            if (!(points.Get()->*densify)(sheet_.Map(), toolkit::Made(IRef<ICoord>(line->GetAt(i - 1))).Get(),
                                          toolkit::Made(IRef<ICoord>(line->GetAt(i))).Get(), chain.Get()))
                throw std::invalid_argument("edge " + std::to_string(i - 1) +
                                            " can't be followed on the map");
            for (std::uint32_t k = i == 1 ? 0 : 1; k < chain->GetCount(); ++k)
                all->Add(toolkit::Made(IRef<ICoord>(chain->GetAt(k))).Get());
        }
        return line->GetCount() < 2 ? rows : RowsOf(all.Get(), number);
    }

  private:
    [[nodiscard]] static std::invalid_argument NoGrid(const std::string& system) {
        return std::invalid_argument("the window has no grid of " + system + " with these steps");
    }

    // A step may have a sign, which doesn't count, and be 0, which the grid refuses.
    void RequireFewLines(const std::string& system, toolkit::Axis axis, double step) const {
        if (step == 0.0) return;
        const toolkit::LinesOutcome foreseen =
            toolkit::ForeseeLines(sheet_, ReferenceOf(system), axis, std::abs(step));
        if (foreseen == toolkit::LinesOutcome::SOME) throw NoGrid(system);
        if (foreseen == toolkit::LinesOutcome::TOO_MANY)
            throw std::invalid_argument("the window has more than " + std::to_string(toolkit::MOST_LINES) +
                                        " lines with these steps");
    }

    template <class Operation>
    [[nodiscard]] static py::list Each(const std::vector<py::ssize_t>& shape,
                                       const py::array_t<double>& first, const py::array_t<double>& second,
                                       const std::string& errors, const Operation& operation) {
        InputArrays inputs(shape);
        const InColumn in[] = {inputs.Add(first), inputs.Add(second)};
        OutputArrays outputs(shape);
        const OutColumn out[] = {outputs.Add(py::dtype::of<double>()), outputs.Add(py::dtype::of<double>())};
        OutColumn statuses;
        if (errors == "status") statuses = outputs.Add(py::dtype::of<std::int32_t>());
        std::optional<Failure> failure;
        {
            const py::gil_scoped_release released;
            for (std::size_t i = 0; i < inputs.Count(); ++i) {
                PixelPair result;
                const bool isThere = operation(in[0].Number(i), in[1].Number(i), &result);
                const KoordStatus status = isThere ? KOORD_OK : KOORD_ERR_OUTSIDE;
                out[0].Put(i, result.column);
                out[1].Put(i, result.row);
                if (statuses.IsThere()) statuses.Put(i, status);
                if (!isThere && !failure) failure = {i, status};
            }
        }
        if (failure && errors == "raise")
            throw PositionError{failure->status, IndexOf(failure->index, shape)};
        return outputs.Arrays();
    }

    toolkit::MapDescription description_;
    toolkit::MapSheet sheet_;
};

}  // namespace

void BindMaps(py::module_& module) {
    module.def("describe_map_around", [](double latitude, double longitude, double width) {
        return toolkit::DescribeMapAround({latitude, longitude, width});
    });
    py::register_exception<toolkit::DescriptionError>(module, "DescriptionError", PyExc_ValueError);
    py::class_<Map>(module, "Map")
        .def(py::init<const std::string&, const std::string&>())
        .def_property_readonly("datum", &Map::Datum)
        .def("draw", &Map::Draw)
        .def("pixels", &Map::Pixels)
        .def("places", &Map::Places)
        .def("grid", &Map::Grid)
        .def("extent", &Map::Extent)
        .def("densify", &Map::Densify);
}

}  // namespace tessara::python
