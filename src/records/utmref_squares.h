// The 100 km squares of UTMREF that exist: those that lie at least partly within their zone and their band.
#pragma once

#include <cstdint>
#include <string>

#include "tessara/kernel/koord.h"

namespace tessara {

namespace utmref {

// The column letters of a zone 1..60 and a band, from west to east. Empty for a band that doesn't exist or a
// datum outside 0..238.
[[nodiscard]] std::string Columns(std::int32_t datum, std::int32_t zone, char band);

// The row letters in such a column, from south to north. Empty also for a column that the zone and band
// don't have.
[[nodiscard]] std::string Rows(std::int32_t datum, std::int32_t zone, char band, char column);

// Whether a UTMREF record names an existing square, in capital or small letters, with metres that aren't
// negative. False for other systems and for datums outside 0..238.
[[nodiscard]] bool NamesSquare(const tagKOORD& record);

}  // namespace utmref

}  // namespace tessara
