// What the datums are called, where they are used and how well their translations to WGS84 fit.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessara::toolkit {

struct DatumDescription {
    const char* name;    // in the registries
    const char* region;  // a continent or an ocean; empty for the user-defined datum
    const char* area;    // of the translation: countries and parts of them
    double accuracy;     // metres, as the registry has it; 0 where it has none
    const char* code;    // of the translation in the registry; empty where it has another one or none
};

// Null for an id outside 0..238.
[[nodiscard]] const DatumDescription* DescribeDatum(std::int32_t datum);

// One line: `Adindan; Africa: Ethiopia; within 6 m (EPSG 1103)`.
[[nodiscard]] std::string DatumLine(std::int32_t datum);

// Whether each word of a search is in the names, the ellipsoid, the region or the area of a datum, in upper
// or lower case.
[[nodiscard]] bool MatchesDatum(std::int32_t datum, std::string_view search);

}  // namespace tessara::toolkit
