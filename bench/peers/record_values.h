// What the records and texts of the contests say, as numbers that can be compared.
#pragma once

#include <string>
#include <vector>

#include "bench/peers/contest.h"
#include "tessara/kernel/koord.h"

namespace tessara::bench {

// Letters and metres of a reference as two numbers that differ by as much as the references do in metres,
// within one square. A text is ZZBCR and two times five digits.
Values ValuesOfMgrs(int zone, char band, char column, char row, int easting, int northing);
Values ValuesOfMgrsText(const std::string& text);

Values ValuesOf(const tagKOORD& record);
std::vector<Values> ValuesOf(const std::vector<tagKOORD>& records);

}  // namespace tessara::bench
