// The letters of the British and the Irish grid, apart from the projection.
#pragma once

#include "tessara/kernel/koord.h"

namespace tessara {

struct GridValues {
    double easting, northing;
};

// Letters, metres within the square and whole values, for grid values within the limits.
void BngWriteReference(const GridValues& values, LetterGridPayload* payload);
void IngWriteReference(const GridValues& values, LetterGridPayload* payload);

// The grid values that a payload stands for; false for letters that aren't the grid's.
[[nodiscard]] bool BngReadReference(const LetterGridPayload& payload, GridValues* values);
[[nodiscard]] bool IngReadReference(const LetterGridPayload& payload, GridValues* values);

}  // namespace tessara
