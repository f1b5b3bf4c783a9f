// References as they are written on the command line: SYSTEM[:PARAMETERS][@DATUM].
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "conversion/parameters.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

struct Reference {
    std::int32_t datum;
    std::int32_t system;
    Parameters parameters{};

    // As it is written on the command line: SYSTEM@DATUM, with the parameters that were given.
    [[nodiscard]] std::string Name() const;
};

// The reference of a name, on a default datum where it names none; nothing if it isn't one.
[[nodiscard]] std::optional<Reference> ReferenceByName(const std::string& name, std::int32_t defaultDatum);

// What is wrong with such a name; empty if nothing is.
[[nodiscard]] std::string WrongReference(const std::string& name);

// Whether two have the same system and datum.
[[nodiscard]] bool AreAlike(const Reference& one, const Reference& other);

// The default record of a reference, with its parameters: the target of a conversion.
[[nodiscard]] CKoord DefaultRecord(const Reference& reference);

// The library's form of a reference, without its parameters.
[[nodiscard]] IRef<ICoordinateReference> MakeReference(const Reference& reference);

[[nodiscard]] bool IsPixel(std::int32_t system);
// Whether it is latitude and longitude in one of their spellings, codes aside.
[[nodiscard]] bool IsDegrees(std::int32_t system);

}  // namespace tessara::toolkit
