// What a reference says besides system and datum: `TM:lon0=9,k=0.9996,fe=500000`, `UTM:zone=33`.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tessara/kernel/koord.h"

namespace tessara::toolkit {

struct ParameterRow;

struct Parameter {
    const ParameterRow* row;
    double value;
};

using Parameters = std::vector<Parameter>;

// What stands behind the colon; nothing if it isn't a list of parameters of the system.
[[nodiscard]] std::optional<Parameters> ReadParameters(std::int32_t system, std::string_view list);

// What is wrong with such a list; empty if nothing is.
[[nodiscard]] std::string WrongParameters(std::int32_t system, std::string_view list);

// As it is written: `lon0=9,k=0.9996`.
[[nodiscard]] std::string TextOf(const Parameters& parameters);

// The wanted zone, strip or meridian as a parameter; nothing for a system without, or a number that isn't
// one.
[[nodiscard]] std::optional<Parameter> WantedZone(std::int32_t system, std::int32_t number);
// What the zones of a system are called, with their numbers: "zone 1..60"; empty for a system without.
[[nodiscard]] std::string ZonesOf(std::int32_t system);

// Puts them where the record has them.
void StoreParameters(const Parameters& parameters, tagKOORD* record);

}  // namespace tessara::toolkit
