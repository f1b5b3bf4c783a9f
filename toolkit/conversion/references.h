// References in the notation of the command line: SYSTEM[:PARAMETERS][@DATUM].
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

    // The notation of the command line, SYSTEM@DATUM, with the given parameters.
    [[nodiscard]] std::string Name() const;
};

// Reads a reference; a default datum applies if the name has no datum. Returns nothing for an invalid name.
[[nodiscard]] std::optional<Reference> ReferenceByName(const std::string& name, std::int32_t defaultDatum);

// The error in such a name; empty for a valid name.
[[nodiscard]] std::string WrongReference(const std::string& name);

// Whether two references have the same system and datum.
[[nodiscard]] bool AreAlike(const Reference& one, const Reference& other);

// The default record of a reference with its parameters, as the target of a conversion.
[[nodiscard]] CKoord DefaultRecord(const Reference& reference);

// The reference as an object of the library, without parameters.
[[nodiscard]] IRef<ICoordinateReference> MakeReference(const Reference& reference);

[[nodiscard]] bool IsPixel(std::int32_t system);
// Whether the system is latitude and longitude, in decimal degrees or with minutes and seconds.
[[nodiscard]] bool IsDegrees(std::int32_t system);

}  // namespace tessara::toolkit
