#include "tessara/kernel/convert.h"

#include "systems/conversion.h"

namespace tessara {

KoordStatus KoordConvert(const tagKOORD* source, tagKOORD* target) {
    return KoordConvertEx(source, target, static_cast<std::int32_t>(RangeCheck::On));
}

KoordStatus KoordConvertEx(const tagKOORD* source, tagKOORD* target, std::int32_t checkRange) {
    if (source == nullptr || target == nullptr) return KOORD_ERR_GENERAL;
    if (!HaveDatums(*source, *target)) return KOORD_ERR_DATUM;
    Conversion conversion;
    conversion.Prepare(*source, *target);
    return conversion.Convert(*source, target, CheckOf(checkRange));
}

}  // namespace tessara
