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

// The choices for each of the first four pieces, as texts. The latter two depend on the pieces before, of
// which empty ones stand for a default; false if those don't exist.
[[nodiscard]] std::vector<std::string> Utmref_ZoneChoices();
[[nodiscard]] std::vector<std::string> Utmref_BandChoices();
bool Utmref_ColumnChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);
bool Utmref_RowChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);

// False for other systems and for datums outside 0..238; *pieces is then unchanged.
bool Utmref_Split(const tagKOORD& record, UtmrefPieces* pieces);
// On the datum that the target has. False as the interface says.
bool Utmref_Compose(const UtmrefPieces& pieces, tagKOORD* target);
// Whether each piece of a record is among the choices for the pieces before it.
[[nodiscard]] bool Utmref_HasExistingPieces(const tagKOORD& record);

}  // namespace tessara
