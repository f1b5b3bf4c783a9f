// How the results are called among the other members of a record: decided once a file, from all names that
// its records have, so that a result never stands in a member of the user's own.
#pragma once

#include <string>
#include <vector>

#include "files/record_conversion.h"

namespace tessara::program {

struct ResultNames {
    std::vector<std::vector<std::string>> values;  // of each target
    std::string height;                            // where it comes from outside of the members
};

[[nodiscard]] ResultNames NameResults(const RecordConversion& conversion, const Layout& layout);

// Fills in which members of a layout with columns are kept.
void KeepColumns(const RecordConversion& conversion, Layout* layout);

// Whether a member is replaced by the results. GeoJSON has the height within the point.
[[nodiscard]] inline bool IsReplaced(const RecordConversion& conversion, const PositionMembers& at,
                                     std::size_t member) {
    return member == at.north || member == at.east ||
           (member == at.height && conversion.output == Form::GEOJSON);
}

}  // namespace tessara::program
