// The zones that positions lie in, and their borders.
#include <pybind11/numpy.h>
#include <pybind11/stl.h>

#include <cmath>

#include "columns.h"
#include "conversion/made.h"
#include "conversion/names.h"
#include "drawing/window_lines.h"
#include "errors.h"
#include "lines.h"
#include "module.h"
#include "reference.h"
#include "tessara/kernel/convert.h"

namespace tessara::python {
namespace py = pybind11;
namespace {

struct Zone {
    std::int32_t number = 0;
    double centre = std::nan("");  // longitudes at the position's northing, in degrees
    double west = std::nan("");
    double east = std::nan("");
};

class ZoneFinder {
  public:
    ZoneFinder(std::int32_t datum, const toolkit::Reference& system)
        : datum_(datum),
          target_(toolkit::DefaultRecord(system)),
          zones_(toolkit::Made(CreateClassZoneCoordOperations())) {
        if (!zones_->HasZones(toolkit::Made(host::CoordOf(target_)).Get()))
            throw std::invalid_argument(toolkit::SystemName(system.system) + " has no zones");
    }

    [[nodiscard]] KoordStatus Find(double latitude, double longitude, Zone* zone) const {
        tagKOORD degrees = MakeKoord(datum_, KOORD_GEODEZ);
        Store(degrees, GeodezPayload{latitude, longitude, 0.0});
        tagKOORD record = target_;
        const KoordStatus status = KoordConvert(&degrees, &record);
        if (status != KOORD_OK) return status;
        const IRef<ICoord> coord = toolkit::Made(host::CoordOf(record));
        *zone = {zones_->GetZoneNumber(coord.Get()), Longitude(&IZoneCoordOperations::GetZoneCentre, coord),
                 Longitude(&IZoneCoordOperations::GetWestNeighbour, coord),
                 Longitude(&IZoneCoordOperations::GetEastNeighbour, coord)};
        return KOORD_OK;
    }

  private:
    using Neighbour = bool (IZoneCoordOperations::*)(ICoord*, ICoord*);

    [[nodiscard]] double Longitude(Neighbour neighbour, const IRef<ICoord>& coord) const {
        const IRef<ICoord> there = toolkit::Made(CreateClassCoord());
        if (!(zones_.Get()->*neighbour)(coord.Get(), there.Get())) return std::nan("");
        const tagKOORD record = host::RecordOf(there);
        tagKOORD degrees = MakeKoord(datum_, KOORD_GEODEZ);
        if (KoordConvert(&record, &degrees) != KOORD_OK) return std::nan("");
        return Load<GeodezPayload>(degrees).longitude;
    }

    std::int32_t datum_;
    tagKOORD target_;
    IRef<IZoneCoordOperations> zones_;
};

py::list Zones(const std::vector<py::ssize_t>& shape, const py::array_t<double>& latitudes,
               const py::array_t<double>& longitudes, const std::string& datum, const std::string& system,
               const std::string& errors) {
    const ZoneFinder finder(DatumOf(datum), ReferenceOf(system));
    InputArrays inputs(shape);
    const InColumn latitude = inputs.Add(latitudes);
    const InColumn longitude = inputs.Add(longitudes);
    OutputArrays outputs(shape);
    const OutColumn number = outputs.Add(py::dtype::of<std::int32_t>());
    const OutColumn centre = outputs.Add(py::dtype::of<double>());
    const OutColumn west = outputs.Add(py::dtype::of<double>());
    const OutColumn east = outputs.Add(py::dtype::of<double>());
    OutColumn statuses;
    if (errors == "status") statuses = outputs.Add(py::dtype::of<std::int32_t>());

    std::optional<Failure> failure;
    {
        const py::gil_scoped_release released;
        for (std::size_t i = 0; i < inputs.Count(); ++i) {
            Zone zone;
            const KoordStatus status = finder.Find(latitude.Number(i), longitude.Number(i), &zone);
            number.Put(i, zone.number);
            centre.Put(i, zone.centre);
            west.Put(i, zone.west);
            east.Put(i, zone.east);
            if (statuses.IsThere()) statuses.Put(i, status);
            if (status != KOORD_OK && !failure) failure = {i, status};
        }
    }
    if (failure && errors == "raise") throw PositionError{failure->status, IndexOf(failure->index, shape)};
    return outputs.Arrays();
}

DegreeRows RowsOf(const toolkit::DegreeLine& line) {
    DegreeRows rows({static_cast<py::ssize_t>(line.size()), py::ssize_t{2}});
    auto degrees = rows.mutable_unchecked<2>();
    for (std::size_t i = 0; i < line.size(); ++i) {
        degrees(static_cast<py::ssize_t>(i), 0) = line[i].latitude;
        degrees(static_cast<py::ssize_t>(i), 1) = line[i].longitude;
    }
    return rows;
}

// The zones to the west and to the east of each border in the window, and a line for each of its parts.
py::list ZoneBorders(double south, double west, double north, double east, const std::string& system) {
    py::list borders;
    for (const toolkit::WindowBorder& border :
         toolkit::BordersInWindow({south, west, north, east}, ReferenceOf(system))) {
        py::list parts;
        for (const toolkit::DegreeLine& part : border.parts)
            parts.append(RowsOf(part));
        borders.append(py::make_tuple(border.west, border.east, parts));
    }
    return borders;
}

}  // namespace

void BindZones(py::module_& module) {
    module.def("zones", &Zones);
    module.def("zone_borders", &ZoneBorders);
}

}  // namespace tessara::python
