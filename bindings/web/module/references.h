// References by their names, as JavaScript passes them.
#pragma once

#include <stdexcept>
#include <string>

#include "conversion/names.h"
#include "conversion/references.h"

namespace tessara::web {

// SYSTEM[:PARAMETERS][@DATUM], on WGS84 where it names no datum. Throws std::invalid_argument with what is
// wrong.
[[nodiscard]] inline toolkit::Reference ReferenceOf(const std::string& name) {
    const auto reference = toolkit::ReferenceByName(name, DATUM_WGS84);
    if (!reference) throw std::invalid_argument(toolkit::WrongReference(name));
    return *reference;
}

[[nodiscard]] inline std::int32_t DatumOf(const std::string& name) {
    const auto datum = toolkit::DatumByName(name);
    if (!datum) throw std::invalid_argument(toolkit::WrongDatum(name));
    return *datum;
}

}  // namespace tessara::web
