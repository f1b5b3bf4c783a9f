// Reads and writes the records inside ICoord objects, and reads the datum of a map. Only this library's
// coordinates hold a record; null and other implementations of ICoord are ordinary failures.
//
// Each function counts its coordinate up and down again, which would delete one of count 0. An operation
// that uses a coordinate more than once therefore holds it in a handle.
#pragma once

#include <cstdint>

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/map_coord_operations.h"

namespace tessara {

// Reads the record, also of an invalid coordinate. False for null or a foreign object; *out is then
// unchanged.
bool KoordFromCoord(ICoord* coord, CKoord* out);
// Writes the record and makes the coordinate valid. False for null or a foreign object.
bool KoordToCoord(const CKoord* koord, ICoord* coord);
// Copies the record of `source`; the copy is valid even if the source isn't. Both may be the same object.
bool CopyCoord(ICoord* source, ICoord* target);

// Reads the datum of a map. False if the map doesn't give it, and without memory; *datum is then unchanged.
bool ReadMapDatum(IMapCoordOperations* map, std::int32_t* datum);

}  // namespace tessara
