#include "prepared.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>

#include "conversion/names.h"
#include "record_fields.h"
#include "reference.h"
#include "tessara/ckoord.h"

namespace tessara::python {
namespace {

constexpr std::size_t BLOCK = 128;  // records that stay in the nearest cache

void Want(std::int16_t zone, tagKOORD* target) {
    if (auto utm = LoadIf<UtmPayload>(*target)) {
        utm->wantedZone = zone;
        return Store(*target, *utm);
    }
    if (auto utmref = LoadIf<UtmrefPayload>(*target)) {
        utmref->wantedZone = zone;
        return Store(*target, *utmref);
    }
    throw std::invalid_argument(toolkit::SystemName(static_cast<std::int32_t>(target->type)) +
                                " has no zones to choose from");
}

// A conversion to degrees isn't tested: what isn't finite there has no result either.
KoordStatus StatusOf(KoordStatus status, std::span<const OutputField> fields, const tagKOORD& target) {
    if (status != KOORD_OK) return status;
    for (const OutputField& field : fields) {
        if (!IsFinite(field, target)) return field.offset == 0 ? KOORD_ERR_GEO_LAT : KOORD_ERR_GEO_LON;
    }
    return KOORD_OK;
}

// A record with the precision with which the minutes of positions are written.
tagKOORD WrittenGeoref(std::int32_t datum) {
    const tagKOORD degrees = MakeKoord(datum, KOORD_GEODEZ);
    tagKOORD record = MakeKoord(datum, KOORD_GEOREF);
    KoordConvert(&degrees, &record);
    return record;
}

}  // namespace

// What is converted at once.
class PreparedConversion::Block {
  public:
    std::size_t count = 0;
    bool hasHeights = false;
    std::array<double, BLOCK> heights;
    std::array<tagKOORD, BLOCK> source;
    std::array<tagKOORD, BLOCK> target;
    std::array<KoordStatus, BLOCK> status;
};

PreparedConversion::PreparedConversion(toolkit::Reference from, toolkit::Reference to,
                                       std::optional<std::int16_t> zone)
    : from_(from),
      to_(to),
      sourceFields_(System_Outputs(from.system)),
      targetFields_(System_Outputs(to.system)),
      source_(DefaultRecord(from)),
      target_(DefaultRecord(to)) {
    for (const toolkit::Reference& reference : {from_, to_}) {
        if (toolkit::IsPixel(reference.system)) throw std::invalid_argument("pixels are converted by a Map");
    }
    if (zone) Want(*zone, &target_);
    if (from_.system == KOORD_GEOREF) source_ = WrittenGeoref(from_.datum);
}

bool PreparedConversion::KnowsHeight() const {
    return from_.system == KOORD_ECEF;
}

bool PreparedConversion::GivesHeight() const {
    return to_.system != KOORD_ECEF;
}

// Records without room for a height are converted as if it were 0. An earth-centred position has its height
// in x, y and z: it is taken out before and put in behind.
void PreparedConversion::ConvertBlock(Block& block) const {
    if (KnowsHeight()) {
        for (std::size_t i = 0; i < block.count; ++i)
            block.heights[i] = CKoord(block.source[i]).GetHeight();
    }
    std::fill_n(block.target.begin(), block.count, target_);
    KoordConvertMany(block.source.data(), block.target.data(), block.count, 1, block.status.data());
    if (GivesHeight() || !block.hasHeights) return;
    for (std::size_t i = 0; i < block.count; ++i) {
        CKoord raised(block.target[i]);
        raised.SetHeight(block.heights[i]);
        block.target[i] = raised;
    }
}

KoordStatus PreparedConversion::Convert(tagKOORD source, double* height, tagKOORD* target) const {
    if (height == nullptr) {
        *target = target_;
        return StatusOf(KoordConvert(&source, target), targetFields_, *target);
    }
    Block block;
    block.count = 1;
    block.hasHeights = true;
    block.heights[0] = *height;
    block.source[0] = source;
    ConvertBlock(block);
    *height = block.heights[0];
    *target = block.target[0];
    return StatusOf(block.status[0], targetFields_, *target);
}

std::optional<Failure> PreparedConversion::Convert(const SourceColumns& source, std::size_t count, Keep keep,
                                                   const TargetColumns& target) const {
    std::optional<Failure> failure;
    Block block;
    block.hasHeights = source.height.IsThere() || KnowsHeight();
    for (std::size_t first = 0; first < count; first += BLOCK) {
        block.count = std::min(BLOCK, count - first);
        std::fill_n(block.source.begin(), block.count, source_);
        const std::span records(block.source.data(), block.count);
        for (std::size_t k = 0; k < sourceFields_.size(); ++k) {
            if (source.fields[k].IsThere()) ReadField(sourceFields_[k], source.fields[k], first, records);
        }
        if (source.height.IsThere()) {
            for (std::size_t i = 0; i < block.count; ++i)
                block.heights[i] = source.height.Number(first + i);
        }
        ConvertBlock(block);

        for (std::size_t k = 0; k < targetFields_.size(); ++k)
            WriteField(targetFields_[k], {block.target.data(), block.count}, first, target.fields[k]);
        for (std::size_t i = 0; i < block.count; ++i) {
            const KoordStatus status = StatusOf(block.status[i], targetFields_, block.target[i]);
            if (target.status.IsThere()) target.status.Put(first + i, status);
            if (target.height.IsThere()) target.height.Put(first + i, block.heights[i]);
            if (status == KOORD_OK) continue;
            if (!failure) failure = {first + i, status};
            if (keep == Keep::DistantZones && status == KOORD_ERR_ZONE_DISTANT) continue;
            for (std::size_t k = 0; k < targetFields_.size(); ++k)
                WriteMissing(targetFields_[k], first + i, target.fields[k]);
            if (target.height.IsThere()) target.height.Put(first + i, std::nan(""));
        }
    }
    return failure;
}

}  // namespace tessara::python
