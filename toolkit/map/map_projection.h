// Reads the projection of a map description: a type and the fields of its parameters (tessara/kernel/map.h).
#pragma once

#include <optional>

#include "map/json_reader.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// `metresPerPixel` follows from the scale and the resolution of the sheet; with it, the parameters of a grid
// can omit the pixel size.
[[nodiscard]] IRef<IProjection> ReadProjection(const JsonValue& value, std::optional<double> metresPerPixel);

// The name of a projection's type.
[[nodiscard]] std::string ProjectionName(const IRef<IProjection>& projection);

// Whether a map of the projection is tied to the earth by a reference point and a scale.
[[nodiscard]] bool NeedsReference(const IRef<IProjection>& projection);

// Whether the projection ignores the scale and has no pixel size.
[[nodiscard]] bool IsFreeOfScale(const IRef<IProjection>& projection);

}  // namespace tessara::toolkit
