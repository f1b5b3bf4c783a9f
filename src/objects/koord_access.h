// Moves records in and out of ICoord objects, and reads the datum of a map. Only this library's own
// coordinates hold a record: any other implementation of ICoord, and null, is an ordinary failure.
//
// Each of these counts its coordinates up and down again. An operation that uses one more than once, to read
// it and then to write it, holds it in a handle of its own: the argument of a host may have the count 0.
#pragma once

#include <cstdint>

#include "tessara/ckoord.h"
#include "tessara/coord.h"
#include "tessara/map_coord_operations.h"

namespace tessara {

// False for null or a foreign object; *out is then unchanged. An invalid coordinate gives its record, too.
bool KoordFromCoord(ICoord* coord, CKoord* out);
// Makes the coordinate valid. False for null or a foreign object.
bool KoordToCoord(const CKoord* koord, ICoord* coord);
// One after the other, so the copy is valid, whatever the source was. Source and target may be the same.
bool CopyCoord(ICoord* source, ICoord* target);

// The datum that a map draws on. False if the map doesn't tell, or without memory; *datum is then unchanged.
bool ReadMapDatum(IMapCoordOperations* map, std::int32_t* datum);

}  // namespace tessara
