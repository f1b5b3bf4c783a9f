// A UTMREF position in six texts, as coord_checker_utmref.h says.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tessara/kernel/koord.h"

namespace tessara {

struct UtmrefPieces {
    std::string zone;
    std::string band;
    std::string column;
    std::string row;
    std::string easting;
    std::string northing;
};

namespace utmref {

// The choices for each of the first four pieces, as texts. The latter two depend on the pieces before, of
// which empty ones stand for a default; false if those don't exist.
[[nodiscard]] std::vector<std::string> ZoneChoices();
[[nodiscard]] std::vector<std::string> BandChoices();
bool ColumnChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);
bool RowChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);

// False for other systems and for datums outside 0..238; *pieces is then unchanged.
bool Split(const tagKOORD& record, UtmrefPieces* pieces);
// On the datum that the target has. False as the interface says.
bool Compose(const UtmrefPieces& pieces, tagKOORD* target);

}  // namespace utmref

}  // namespace tessara
