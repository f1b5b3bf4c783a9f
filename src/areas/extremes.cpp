#include "areas/extremes.h"

#include "records/axis_copy.h"
#include "records/compare_records.h"

namespace tessara {

void Extremes::Start(const CKoord& koord) {
    at_.fill(koord);
    hasStarted_ = true;
}

bool Extremes::IsFurther(Compass direction, const CKoord& koord) const {
    const std::int32_t order = CompareRecords(AxisOf(direction), koord, (*this)[direction]);
    return order == (SignOf(direction) > 0.0 ? 1 : -1);
}

void Extremes::Extend(const CKoord& koord) {
    for (const Compass direction : DIRECTIONS) {
        if (IsFurther(direction, koord)) Set(direction, koord);
    }
}

bool Extremes::ExtendAxes(const CKoord& koord) {
    for (const Compass direction : DIRECTIONS) {
        if (!IsFurther(direction, koord)) continue;
        if (!CopyAxis(AxisOf(direction), koord, &at_[static_cast<std::size_t>(direction)])) return false;
    }
    return true;
}

}  // namespace tessara
