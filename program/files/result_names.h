// Names of the results among the members of a record. They are chosen once per file from the names of all its
// members, so that a result never replaces another member.
#pragma once

#include <string>
#include <vector>

#include "files/record_conversion.h"

namespace tessara::program {

struct ResultNames {
    std::vector<std::vector<std::string>> values;  // for each target
    std::string height;                            // for heights that are not members
};

[[nodiscard]] ResultNames NameResults(const RecordConversion& conversion, const Layout& layout);

// Fills in the members of a layout with columns that are copied.
void KeepColumns(const RecordConversion& conversion, Layout* layout);

// Whether the results replace a member. In GeoJSON the height is part of the geometry.
[[nodiscard]] inline bool IsReplaced(const RecordConversion& conversion, const PositionMembers& at,
                                     std::size_t member) {
    return member == at.north || member == at.east ||
           (member == at.height && conversion.output == Form::GEOJSON);
}

}  // namespace tessara::program
