// References as they are written on the command line: SYSTEM[@DATUM].
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "tessara/tessara.h"

namespace tessara::toolkit {

struct Reference {
    std::int32_t system;
    std::int32_t datum;

    // As it is written on the command line: SYSTEM@DATUM.
    [[nodiscard]] std::string Name() const;
};

// The reference of a name, on a default datum where it names none; nothing if it isn't one.
[[nodiscard]] std::optional<Reference> ReferenceByName(const std::string& name, std::int32_t defaultDatum);

// What is wrong with such a name; empty if nothing is.
[[nodiscard]] std::string WrongReference(const std::string& name);

// The library's form of a reference.
[[nodiscard]] IRef<ICoordinateReference> MakeReference(const Reference& reference);

[[nodiscard]] bool IsPixel(std::int32_t system);
// Whether it is latitude and longitude in one of their spellings, codes aside.
[[nodiscard]] bool IsDegrees(std::int32_t system);

}  // namespace tessara::toolkit
