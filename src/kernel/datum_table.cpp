#include <cstddef>

#include "kernel/datum_rows.h"
#include "kernel/ellipsoids.h"
#include "tessara/kernel/datum.h"

namespace tessara {

const DatumRow* Datum_Row(std::int32_t datum) {
    return RowOf(datum);
}

const char* Datum_Name(std::int32_t datum) {
    const DatumRow* row = Datum_Row(datum);
    return row ? row->name : nullptr;
}

const char* Ellipsoid_Name(std::int32_t ellipsoid) {
    const auto code = static_cast<std::size_t>(static_cast<std::uint32_t>(ellipsoid));
    return code < ELLIPSOIDS.size() ? ELLIPSOIDS[code].name : nullptr;
}

}  // namespace tessara
