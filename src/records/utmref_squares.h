// Which 100 km squares of UTMREF exist: those that lie at least partly within their zone and their band.
#pragma once

#include <cstdint>
#include <string>

#include "tessara/kernel/koord.h"

namespace tessara {

namespace utmref {

// The letters of the columns of a zone 1..60 and a band, from west to east. Empty for a band that doesn't
// exist or a datum outside 0..238.
[[nodiscard]] std::string Columns(std::int32_t datum, std::int32_t zone, char band);

// The letters of the rows in such a column, from south to north. Empty for a column that it isn't, too.
[[nodiscard]] std::string Rows(std::int32_t datum, std::int32_t zone, char band, char column);

// Whether the square of a UTMREF record exists, letters of either case, and its metres aren't negative. False
// for other systems and for datums outside 0..238.
[[nodiscard]] bool NamesSquare(const tagKOORD& record);

}  // namespace utmref

}  // namespace tessara
