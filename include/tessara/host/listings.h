// The systems and datums as lists, for a host that offers them in a menu. They are data of this header: no
// object and no library is needed.
//
//     for (const NameRow& system : host::Systems()) menu.Add(system.name, system.number);
//     for (const DatumRow& datum : host::Datums()) menu.Add(datum.name, datum.id);
#pragma once

#include <span>

#include "tessara/internal/datum_table.h"
#include "tessara/kernel/names.h"

namespace tessara::host {

// The coordinate types that have a name, 0..22.
[[nodiscard]] constexpr std::span<const NameRow> Systems() {
    return CoordinateType_Names();
}

// The datums 0..238: names, ellipsoids and shifts.
[[nodiscard]] constexpr std::span<const DatumRow> Datums() {
    return internal::DATUMS;
}

// The name of an ellipsoid; null for a code outside 0..25 and for the user-defined ellipsoid, 25.
[[nodiscard]] constexpr const char* EllipsoidName(std::uint32_t code) {
    return code < internal::ELLIPSOIDS.size() ? internal::ELLIPSOIDS[code].name : nullptr;
}

}  // namespace tessara::host
