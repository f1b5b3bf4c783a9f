#include "systems/not_a_number.h"

namespace tessara {

void Numbers::Replace(tagKOORD* record) const {
    for (std::size_t number = 0; number < offsets_.size(); ++number) {
        const double value = WithOneNan(At(*record, number));
        std::memcpy(record->payload + offsets_[number], &value, sizeof value);
    }
}

}  // namespace tessara
