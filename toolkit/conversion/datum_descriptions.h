// Names, areas of use and accuracies of the datums.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara::toolkit {

struct DatumDescription {
    const char* name;    // in the registries
    const char* region;  // a continent or an ocean; empty for the user-defined datum
    const char* area;    // of the translation: countries and parts of them
    double accuracy;     // metres, according to the registry; 0 if unknown
    const char*
        code;  // of the translation in the registry; empty if the registry has a different one or none
};

// Returns null for a number outside 0..238.
[[nodiscard]] const DatumDescription* DescribeDatum(std::int32_t datum);

// The description as one line: `Adindan; Africa: Ethiopia; within 6 m (EPSG 1103)`.
[[nodiscard]] std::string DatumLine(std::int32_t datum);

// Whether the names, the ellipsoid, the region and the area of a datum contain each word of a search, in
// upper or lower case.
[[nodiscard]] bool MatchesDatum(std::int32_t datum, std::string_view search);

}  // namespace tessara::toolkit
