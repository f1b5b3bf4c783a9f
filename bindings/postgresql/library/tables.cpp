#include "boundary.h"
#include "conversion/names.h"
#include "tessara/host/listings.h"
#include "tessara/kernel/systems.h"

namespace tessara::postgresql {
extern "C" {

bool Tessara_SystemAt(size_t index, TessaraSystem* system) noexcept {
    const auto rows = host::Systems();
    if (index >= rows.size()) return false;
    const auto number = static_cast<std::int32_t>(rows[index].number);
    *system = {number, rows[index].name, toolkit::UnitName(System_Unit(number)), {}, 0};
    for (const OutputField& field : System_Outputs(number))
        system->fields[system->fieldCount++] = field.name;
    return true;
}

bool Tessara_DatumAt(size_t index, TessaraDatumRow* datum) noexcept {
    const auto rows = host::Datums();
    if (index >= rows.size()) return false;
    const DatumRow& row = rows[index];
    *datum = {static_cast<std::int32_t>(row.id),
              row.name,
              host::EllipsoidName(row.ellipsoid),
              row.a,
              row.f,
              row.dx,
              row.dy,
              row.dz};
    return true;
}

}  // extern "C"

}  // namespace tessara::postgresql
