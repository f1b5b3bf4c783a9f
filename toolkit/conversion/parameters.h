// The parameters of a reference: `TM:lon0=9,k=0.9996,fe=500000`, `UTM:zone=33`.
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

// Reads the text after the colon; nothing if it is not a list of parameters of the system.
[[nodiscard]] std::optional<Parameters> ReadParameters(std::int32_t system, std::string_view list);

// The error in such a list; empty for a valid list.
[[nodiscard]] std::string WrongParameters(std::int32_t system, std::string_view list);

// The list as a text: `lon0=9,k=0.9996`.
[[nodiscard]] std::string TextOf(const Parameters& parameters);

// The wanted zone, strip or meridian as a parameter; nothing for a system without zones or an invalid number.
[[nodiscard]] std::optional<Parameter> WantedZone(std::int32_t system, std::int32_t number);
// The name and range of the zones of a system: "zone 1..60"; empty for a system without zones.
[[nodiscard]] std::string ZonesOf(std::int32_t system);

// Stores the parameters in the record.
void StoreParameters(const Parameters& parameters, tagKOORD* record);

}  // namespace tessara::toolkit
