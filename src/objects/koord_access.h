// Moves records in and out of ICoord objects. Only this library's own coordinates hold a record: any other
// implementation of ICoord, and null, is an ordinary failure.
#pragma once

#include "tessara/ckoord.h"
#include "tessara/coord.h"

namespace tessara {

// False for null or a foreign object; *out is then unchanged. An invalid coordinate gives its record, too.
bool KoordFromCoord(ICoord* coord, CKoord* out);
// Makes the coordinate valid. False for null or a foreign object.
bool KoordToCoord(const CKoord* koord, ICoord* coord);
bool CopyCoord(ICoord* source, ICoord* target);

}  // namespace tessara
