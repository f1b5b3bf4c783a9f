// Conversion of columns: arrays of latitudes, of eastings, of zones, as data frames, databases and browsers
// hold them. The results are those of KoordConvertEx, bit for bit.
//
// A type's columns are its fields in the order of System_Columns. Columns of letters hold as many chars a row
// as the field has, side by side; all others hold doubles, those of zones and whole metres, too.
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
// Pure functions of their arguments and constant tables: no state, no allocation, any thread at any time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"
#include "tessara/kernel/systems.h"

namespace tessara {

// The most fields that a type has.
inline constexpr std::size_t COLUMN_COUNT = 8;

// Where a column's first value is, and how many bytes further each next one. A stride may be negative, 0 (one
// value for all rows) and any number of bytes: values needn't be aligned. Null for no column.
struct SourceColumn {
    const void* first = nullptr;
    std::ptrdiff_t stride = 0;
};
struct TargetColumn {
    void* first = nullptr;
    std::ptrdiff_t stride = 0;
};

// Of what has no column each row has the value of the source record: a zone that is the same everywhere, or
// the letters of a grid whose whole values are known.
struct SourceColumns {
    SourceColumn fields[COLUMN_COUNT];
    SourceColumn height;  // doubles, metres; 0 without a column
};

// What has no column isn't written.
struct TargetColumns {
    TargetColumn fields[COLUMN_COUNT];
    TargetColumn height;  // doubles, metres
    TargetColumn status;  // KoordStatus
};

// The fields of a type, 0..23: those of System_Outputs, and for LAMBERTCC easting and northing.
[[nodiscard]] std::span<const OutputField> System_Columns(std::int32_t type);

// Row by row what KoordConvertEx gives. The two records say the datums, types and parameters of all rows:
// those of a TM, VDG or LAMBERTCC, the zone or meridian that a target wants.
//
// The height of a row is kept; that of an ECEF source is computed. A row that fails has its status, NaN in
// all columns of doubles and zeros for letters; one of KOORD_ERR_ZONE_DISTANT is complete. KOORD_ERR_GENERAL
// is also the status of a source row with a number that its field can't hold; fractions of whole numbers are
// cut off.
//
// The first status that isn't KOORD_OK is returned. Nothing is written and KOORD_ERR_GENERAL returned for a
// null argument, and where the source has no column of a field. Target columns may be source columns of the
// same stride and type of value, and overlap nothing else. Parts of columns can be converted by several
// threads at once.
KoordStatus KoordConvertColumns(const tagKOORD* source, const SourceColumns* from, const tagKOORD* target,
                                const TargetColumns* to, std::size_t count, std::int32_t checkRange);

}  // namespace tessara
