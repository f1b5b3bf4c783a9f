// The projection of a map description: a type and the fields of its parameters (tessara/kernel/map.h).
#pragma once

#include <optional>

#include "map/json_reader.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// `metresPerPixel` is what the scale and the resolution of the sheet give; a grid's parameters may leave
// their own out then.
[[nodiscard]] IRef<IProjection> ReadProjection(const JsonValue& value, std::optional<double> metresPerPixel);

// The name of a projection's type.
[[nodiscard]] std::string ProjectionName(const IRef<IProjection>& projection);

// Whether a map of the projection is tied to the earth by a reference point and a scale.
[[nodiscard]] bool NeedsReference(const IRef<IProjection>& projection);

// Whether it reads no scale, and its parameters have no length of a pixel either.
[[nodiscard]] bool IsFreeOfScale(const IRef<IProjection>& projection);

}  // namespace tessara::toolkit
