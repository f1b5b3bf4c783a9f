// Names of systems and datums, as in the tables of the library.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/systems.h"

namespace tessara::toolkit {

// Returns an empty text for a number without a name.
[[nodiscard]] std::string SystemName(std::int32_t system);
[[nodiscard]] std::string DatumName(std::int32_t datum);

// "pixel", "degree" or "metre".
[[nodiscard]] const char* UnitName(Unit unit);

// The number of a name, in upper or lower case. MGRS is another name of UTMREF.
[[nodiscard]] std::optional<std::int32_t> SystemByName(const std::string& name);
[[nodiscard]] std::optional<std::int32_t> DatumByName(const std::string& name);

// The error in a name; empty for a valid name.
[[nodiscard]] std::string WrongSystem(const std::string& name);
[[nodiscard]] std::string WrongDatum(const std::string& name);

}  // namespace tessara::toolkit
