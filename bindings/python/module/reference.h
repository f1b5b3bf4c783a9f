// Reads references that Python passes by name.
#pragma once

#include <cstdint>
#include <string>

#include "conversion/references.h"
#include "tessara/tessara.h"

namespace tessara::python {

// Reads SYSTEM[:PARAMETERS][@DATUM], with the default datum WGS84. Throws std::invalid_argument with the
// error.
[[nodiscard]] toolkit::Reference ReferenceOf(const std::string& name);
[[nodiscard]] std::int32_t DatumOf(const std::string& name);

}  // namespace tessara::python
