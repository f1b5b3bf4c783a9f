// The payload of a record, in place.
#pragma once

#include <new>

#include "tessara/kernel/koord.h"

namespace tessara {

// The payload as an object within the record. A local copy would be written field by field and read back by
// wider loads, for which a processor has to wait until the fields have reached memory.
template <class Payload>
[[nodiscard]] Payload* PayloadIn(tagKOORD* record) {
    return ::new (static_cast<void*>(record->payload)) Payload(Load<Payload>(*record));
}

}  // namespace tessara
