// Lines and polygons: arrays of latitude and longitude here, lists of coordinates in the library.
#pragma once

#include <pybind11/numpy.h>

#include "conversion/references.h"
#include "tessara/tessara.h"

namespace tessara::python {

// Rows of latitude and longitude in degrees.
using DegreeRows = pybind11::array_t<double, pybind11::array::c_style | pybind11::array::forcecast>;

// A list of coordinates in degrees on a datum. Throws std::invalid_argument for an array of another form and
// for what isn't finite.
[[nodiscard]] IRef<IArray> LineOf(const DegreeRows& rows, std::int32_t datum);

// Degrees on a datum, of coordinates in any system; a row of NaN for one that has none.
[[nodiscard]] DegreeRows RowsOf(IArray* line, std::int32_t datum);
[[nodiscard]] pybind11::list LinesOf(IArray* lines, std::int32_t datum);

// The same for pixels, which have degrees on a map only.
[[nodiscard]] DegreeRows RowsOf(IArray* line, std::int32_t datum, IMapCoordOperations* map);
[[nodiscard]] pybind11::list LinesOf(IArray* lines, std::int32_t datum, IMapCoordOperations* map);

// A coordinate without a position.
[[nodiscard]] IRef<ICoord> EmptyCoord(const toolkit::Reference& reference);

// The values of a coordinate's fields.
[[nodiscard]] pybind11::tuple FieldsOf(ICoord* coord);

// Four coordinates of one reference.
struct Extremes {
    explicit Extremes(const toolkit::Reference& reference);

    // Their fields: of the northernmost, the easternmost, the southernmost and the westernmost one.
    [[nodiscard]] pybind11::tuple Fields() const;

    IRef<ICoord> north, east, south, west;
};

}  // namespace tessara::python
