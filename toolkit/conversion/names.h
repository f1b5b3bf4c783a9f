// Systems and datums by their names, as the library's own tables spell them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tessara/kernel/constants.h"
#include "tessara/kernel/koord.h"

namespace tessara::toolkit {

// Empty for a number that has no name.
[[nodiscard]] std::string SystemName(std::int32_t system);
[[nodiscard]] std::string DatumName(std::int32_t datum);

// The number of a name, in upper or lower case. UTMREF is called MGRS, too.
[[nodiscard]] std::optional<std::int32_t> SystemByName(const std::string& name);
[[nodiscard]] std::optional<std::int32_t> DatumByName(const std::string& name);

// What is wrong with a name; empty if nothing is.
[[nodiscard]] std::string WrongSystem(const std::string& name);
[[nodiscard]] std::string WrongDatum(const std::string& name);

}  // namespace tessara::toolkit
