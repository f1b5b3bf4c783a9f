#include "tessara/kernel/convert.h"

#include <cstddef>
#include <cstring>

#include "kernel/datum_rows.h"
#include "systems/range_check.h"
#include "systems/range_checks.h"
#include "systems/reading.h"
#include "systems/system_row.h"

namespace tessara {
namespace {

// A conversion between two projections on datums of the table, prepared for any number of positions.
class Conversion {
  public:
    void Prepare(const tagKOORD& source, const tagKOORD& target) {
        from_ = &SystemOf(source);
        to_ = &SystemOf(target);
        PrepareProjection(source, &source_);
        PrepareProjection(target, &target_);
    }

    KoordStatus Convert(const tagKOORD& source, tagKOORD* target, RangeCheck check) const {
        double position[3] = {};
        KoordStatus status = from_->read(source, source_, position);
        if (status != KOORD_OK) return status;
        if (source.datum != target->datum) ShiftBetween(DatumOf(source), DatumOf(*target), position);

        KoordStatus verdict = KOORD_OK;
        if (check == RangeCheck::On && target->type != KOORD_GEODEZ) {
            verdict = CheckPosition(position, *to_);
            if (verdict != KOORD_OK && verdict != KOORD_CHECK_AFTER) return verdict;
        }
        status = to_->write(position, target_, target);
        const bool isDone = status == KOORD_OK && to_->range.holdsOnceWritten;
        if (verdict != KOORD_CHECK_AFTER || isDone) return status;
        verdict = to_->range.check(*target, *to_);
        return verdict == KOORD_OK ? status : verdict;
    }

  private:
    const SystemRow* from_;
    const SystemRow* to_;
    Projection source_, target_;
};

// Any number but 1 turns the tests off.
RangeCheck CheckOf(std::int32_t checkRange) {
    return checkRange == 1 ? RangeCheck::On : RangeCheck::Off;
}

bool HaveDatums(const tagKOORD& source, const tagKOORD& target) {
    return RowOf(DatumOf(source)) != nullptr && RowOf(DatumOf(target)) != nullptr;
}

// A conversion that is prepared anew only where another projection begins.
class RunOfConversions {
  public:
    KoordStatus Convert(const tagKOORD& source, tagKOORD* target, RangeCheck check) {
        if (!isPrepared_ || !HaveSameProjection(source, firstSource_) ||
            !HaveSameProjection(*target, firstTarget_)) {
            isPrepared_ = HaveDatums(source, *target);
            if (!isPrepared_) return KOORD_ERR_DATUM;
            conversion_.Prepare(source, *target);
            firstSource_ = source;
            firstTarget_ = *target;
        }
        return conversion_.Convert(source, target, check);
    }

  private:
    static bool HaveSameProjection(const tagKOORD& record, const tagKOORD& other) {
        return record.datum == other.datum && record.type == other.type &&
               std::memcmp(record.payload, other.payload, SystemOf(record).parameterBytes) == 0;
    }

    bool isPrepared_ = false;
    Conversion conversion_;
    tagKOORD firstSource_, firstTarget_;  // copies: the caller's may overlap
};

}  // namespace

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

KoordStatus KoordConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count,
                             std::int32_t checkRange, KoordStatus* status) {
    const bool hasRecords = source != nullptr && target != nullptr;
    KoordStatus first = KOORD_OK;
    RunOfConversions run;
    for (std::size_t i = 0; i < count; ++i) {
        const KoordStatus result =
            hasRecords ? run.Convert(source[i], &target[i], CheckOf(checkRange)) : KOORD_ERR_GENERAL;
        if (status != nullptr) status[i] = result;
        if (first == KOORD_OK) first = result;
    }
    return first;
}

}  // namespace tessara
