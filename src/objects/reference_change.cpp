#include "objects/reference_change.h"

#include "objects/koord_access.h"
#include "tessara/kernel/constants.h"

namespace tessara {

ReferenceChange::ReferenceChange(std::int32_t datum, std::int32_t system)
    : datum_(datum),
      system_(system),
      reference_(CreateClassCoordinateReference()),
      scratch_(CreateClassCoord()) {}

bool ReferenceChange::Apply(const CKoord& source, CKoord* result) const {
    const auto datum = datum_ == NO_DATUM ? static_cast<std::int32_t>(source.datum) : datum_;
    const auto system = system_ == NO_SYSTEM ? static_cast<std::int32_t>(source.type) : system_;
    return reference_.IsValid() && reference_->SetDatum(datum) && reference_->SetSystem(system) &&
           KoordToCoord(&source, scratch_.Get()) && scratch_->SetReference(reference_.Get()) &&
           KoordFromCoord(scratch_.Get(), result);
}

}  // namespace tessara
