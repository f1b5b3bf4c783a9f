// Converts a record of arbitrary bytes to any system. The status must belong to the contract and be the same
// in a second call, and the conversion must not write outside the target.
#include <cstring>

#include "fuzz/draw.h"
#include "tessara/kernel/range_checks.h"

namespace tessara::fuzz {
namespace {

void CheckRange(const tagKOORD& record) {
    std::int32_t detail = 0;
    const KoordStatus status = Range_CheckRecord(&record, &detail);
    Require(status == KOORD_OK ? detail == KOORD_OK : status == KOORD_ERR_GENERAL && detail < 0);
}

bool IsStatus(KoordStatus status) {
    return status == KOORD_OK || (status >= KOORD_ERR_NORTH_LOW && status <= KOORD_ERR_GENERAL);
}

void Convert(const tagKOORD& source, const tagKOORD& wanted, std::int32_t checkRange) {
    const tagKOORD before = source;
    tagKOORD first = wanted, second = wanted;
    const KoordStatus status = KoordConvertEx(&source, &first, checkRange);
    Require(IsStatus(status));
    Require(KoordConvertEx(&source, &second, checkRange) == status);
    Require(std::memcmp(&first, &second, sizeof first) == 0);
    Require(std::memcmp(&source, &before, sizeof source) == 0);
    Require(first.datum == wanted.datum && first.type == wanted.type);
    CheckRange(first);

    // Source and target may be the same record.
    tagKOORD both = source;
    KoordConvertEx(&both, &both, checkRange);
}

}  // namespace
}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace tessara::fuzz;
    ByteReader bytes(data, size);
    const std::int32_t checkRange = bytes.Integer();
    const tessara::tagKOORD source = DrawRecord(bytes);
    CheckRange(source);
    Convert(source, DrawRecord(bytes), checkRange);
    return 0;
}
