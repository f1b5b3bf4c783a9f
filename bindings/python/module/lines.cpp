#include "lines.h"

#include <cmath>
#include <stdexcept>

#include "conversion/made.h"
#include "map/map_sites.h"
#include "record_fields.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

// Degrees on the datum; NaN where there are none.
GeodezPayload DegreesOf(ICoord* coord, std::int32_t datum, IMapCoordOperations* map) {
    const IRef<ICoord> degrees = EmptyCoord({.datum = datum, .system = KOORD_GEODEZ});
    const IRef<ICoordinateTransfer> transfer = toolkit::Made(CreateClassCoordinateTransfer());
    const auto type = static_cast<std::int32_t>(host::RecordOf(coord).type);
    const bool isThere = toolkit::IsPixel(type)
                             ? map != nullptr && map->PixelCoordToCoord(coord, degrees.Get())
                             : transfer->Transfer(coord, degrees.Get());
    if (!isThere) return {std::nan(""), std::nan(""), 0.0};
    return Load<GeodezPayload>(host::RecordOf(degrees));
}

}  // namespace

IRef<ICoord> EmptyCoord(const toolkit::Reference& reference) {
    IRef<ICoord> coord = toolkit::Made(CreateClassCoord());
    coord->SetReference(toolkit::MakeReference(reference).Get());
    return coord;
}

IRef<IArray> LineOf(const DegreeRows& rows, std::int32_t datum) {
    if (rows.ndim() != 2 || rows.shape(1) != 2)
        throw std::invalid_argument("a line or polygon is an array of rows: latitude, longitude");
    const auto degrees = rows.unchecked<2>();
    IRef<IArray> line = toolkit::Made(CreateClassArray());
    for (py::ssize_t i = 0; i < degrees.shape(0); ++i) {
        if (!std::isfinite(degrees(i, 0)) || !std::isfinite(degrees(i, 1)))
            throw std::invalid_argument("point " + std::to_string(i) + " isn't finite");
        line->Add(toolkit::DegreesCoord(degrees(i, 0), degrees(i, 1), datum).Get());
    }
    return line;
}

DegreeRows RowsOf(IArray* line, std::int32_t datum, IMapCoordOperations* map) {
    const py::ssize_t count = line != nullptr ? static_cast<py::ssize_t>(line->GetCount()) : 0;
    DegreeRows rows({count, py::ssize_t{2}});
    auto degrees = rows.mutable_unchecked<2>();
    for (py::ssize_t i = 0; i < count; ++i) {
        const IRef<ICoord> coord = toolkit::Made(IRef<ICoord>(line->GetAt(static_cast<std::uint32_t>(i))));
        const GeodezPayload at = DegreesOf(coord.Get(), datum, map);
        degrees(i, 0) = at.latitude;
        degrees(i, 1) = at.longitude;
    }
    return rows;
}

DegreeRows RowsOf(IArray* line, std::int32_t datum) {
    return RowsOf(line, datum, nullptr);
}

py::list LinesOf(IArray* lines, std::int32_t datum, IMapCoordOperations* map) {
    py::list made;
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i)
        made.append(RowsOf(toolkit::Made(IRef<IArray>(lines->GetAt(i))).Get(), datum, map));
    return made;
}

py::list LinesOf(IArray* lines, std::int32_t datum) {
    return LinesOf(lines, datum, nullptr);
}

py::tuple FieldsOf(ICoord* coord) {
    const tagKOORD record = host::RecordOf(coord);
    py::list values;
    for (const OutputField& field : System_Outputs(static_cast<std::int32_t>(record.type)))
        values.append(ValueOf(field, record));
    return values;
}

Extremes::Extremes(const toolkit::Reference& reference)
    : north(EmptyCoord(reference)),
      east(EmptyCoord(reference)),
      south(EmptyCoord(reference)),
      west(EmptyCoord(reference)) {}

py::tuple Extremes::Fields() const {
    return py::make_tuple(FieldsOf(north.Get()), FieldsOf(east.Get()), FieldsOf(south.Get()),
                          FieldsOf(west.Get()));
}

}  // namespace tessara::python
