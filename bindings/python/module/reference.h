// References by their names, as Python passes them.
#pragma once

#include <cstdint>
#include <string>

#include "conversion/references.h"
#include "tessara/tessara.h"

namespace tessara::python {

// SYSTEM[:PARAMETERS][@DATUM], on WGS84 where it names no datum. Throws std::invalid_argument with what is
// wrong.
[[nodiscard]] toolkit::Reference ReferenceOf(const std::string& name);
[[nodiscard]] std::int32_t DatumOf(const std::string& name);

}  // namespace tessara::python
