// A UTMREF position as six texts: zone, band, column, row, and the digit groups of easting and northing.
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

// The possible texts of the first four pieces. Columns and rows depend on the pieces before them, and empty
// pieces there stand for a default; false if those pieces don't exist.
[[nodiscard]] std::vector<std::string> ZoneChoices();
[[nodiscard]] std::vector<std::string> BandChoices();
bool ColumnChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);
bool RowChoices(std::int32_t datum, const UtmrefPieces& pieces, std::vector<std::string>* choices);

// Splits a record. False for other systems and for datums outside 0..238; *pieces is then unchanged.
bool Split(const tagKOORD& record, UtmrefPieces* pieces);
// Makes a record on the datum of *target, wanting no zone. False for pieces that aren't possible and a datum
// outside 0..238; *target is then unchanged. False also for a digit group of six or more characters; the
// type of *target is UTMREF then.
bool Compose(const UtmrefPieces& pieces, tagKOORD* target);

}  // namespace utmref

}  // namespace tessara
