// Converts columns: arrays of latitudes, of eastings, of zones, as in data frames, databases and browsers.
// The results are those of KoordConvertEx, bit for bit.
//
// The columns of a type are its fields in the order of System_Columns. In a column of letters, each row has
// as many chars as the field; all other columns hold doubles, including zones and whole metres.
//
//     // Latitudes and longitudes to UTM.
//     const tagKOORD degrees = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
//     const tagKOORD utm = MakeKoord(DATUM_WGS84, KOORD_UTM);
//     SourceColumns from;
//     from.fields[0] = {latitudes.data(), sizeof(double)};
//     from.fields[1] = {longitudes.data(), sizeof(double)};
//     TargetColumns to;  // zone, hemisphere, easting, northing
//     to.fields[2] = {eastings.data(), sizeof(double)};
//     to.fields[3] = {northings.data(), sizeof(double)};
//     KoordConvertColumns(&degrees, &from, &utm, &to, latitudes.size(), 1);
//
// The functions are pure: they keep no state and allocate no memory, and any thread may call them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/systems.h"

namespace tessara {

// The largest number of fields of a type.
inline constexpr std::size_t COLUMN_COUNT = 8;

// The address of the first value of a column (null for no column), and the distance in bytes from each value
// to the next. A stride may be negative or 0, which uses one value for all rows. Values needn't be aligned.
struct SourceColumn {
    const void* first = nullptr;
    std::ptrdiff_t stride = 0;
};
struct TargetColumn {
    void* first = nullptr;
    std::ptrdiff_t stride = 0;
};

// A field without a column takes its value from the source record in every row, for example a common zone,
// or the letters of a grid that also has full values.
struct SourceColumns {
    SourceColumn fields[COLUMN_COUNT];
    SourceColumn height;  // doubles, metres; 0 without a column
};

// The conversion doesn't write fields without a column.
struct TargetColumns {
    TargetColumn fields[COLUMN_COUNT];
    TargetColumn height;  // doubles, metres
    TargetColumn status;  // KoordStatus
};

// The fields of a type, 0..23: those of System_Outputs, and for LAMBERTCC easting and northing.
[[nodiscard]] std::span<const OutputField> System_Columns(std::int32_t type);

// Converts each row as KoordConvertEx does. The two records define the datums, types and parameters of all
// rows: the projection parameters of TM, VDG or LAMBERTCC, and the wanted zone or meridian of a target.
//
// Heights are copied, except that an ECEF source computes them. A row that fails gets its status, NaN in all
// columns of doubles, and zeros for letters; a row with KOORD_ERR_ZONE_DISTANT is complete. The status is
// also KOORD_ERR_GENERAL for a source row with a number that its field can't hold. Fractions of whole
// numbers are truncated.
//
// Returns the first status other than KOORD_OK. Returns KOORD_ERR_GENERAL, without writing anything, for a
// null argument and for a source without any columns of fields. A target column may be a source column with
// the same stride and type of value; no other columns may overlap. Several threads may convert parts of the
// same columns at once.
KoordStatus KoordConvertColumns(const tagKOORD* source, const SourceColumns* from, const tagKOORD* target,
                                const TargetColumns* to, std::size_t count, std::int32_t checkRange);

}  // namespace tessara
