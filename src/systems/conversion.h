// A conversion between two projections on datums of the table, prepared for any number of positions.
#pragma once

#include "kernel/datum_rows.h"
#include "systems/projection.h"
#include "systems/range_check.h"
#include "systems/range_checks.h"
#include "systems/reading.h"
#include "systems/system_row.h"
#include "tessara/kernel/koord.h"
#include "tessara/kernel/koord_status.h"

namespace tessara {

class Conversion {
  public:
    // The types and parameters of two records whose datums are 0..238.
    void Prepare(const tagKOORD& source, const tagKOORD& target);

    KoordStatus Convert(const tagKOORD& source, tagKOORD* target, RangeCheck check) const;

    // The first and the last phase. The caller zeroes `position`; that of the last one is on the target's
    // datum.
    KoordStatus Read(const tagKOORD& source, double position[3]) const {
        return from_->read(source, source_, position);
    }
    KoordStatus Write(const double position[3], tagKOORD* target, RangeCheck check) const;

    [[nodiscard]] const SystemRow& From() const { return *from_; }
    [[nodiscard]] const SystemRow& To() const { return *to_; }
    [[nodiscard]] const Projection& Source() const { return source_; }
    [[nodiscard]] const Projection& Target() const { return target_; }

  private:
    const SystemRow* from_;
    const SystemRow* to_;
    Projection source_, target_;
};

inline void Conversion::Prepare(const tagKOORD& source, const tagKOORD& target) {
    from_ = &SystemOf(source);
    to_ = &SystemOf(target);
    PrepareProjection(source, &source_);
    PrepareProjection(target, &target_);
}

inline KoordStatus Conversion::Convert(const tagKOORD& source, tagKOORD* target, RangeCheck check) const {
    double position[3] = {};
    const KoordStatus status = Read(source, position);
    if (status != KOORD_OK) return status;
    if (source.datum != target->datum) ShiftBetween(DatumOf(source), DatumOf(*target), position);
    return Write(position, target, check);
}

inline KoordStatus Conversion::Write(const double position[3], tagKOORD* target, RangeCheck check) const {
    KoordStatus verdict = KOORD_OK;
    if (check == RangeCheck::On && target->type != KOORD_GEODEZ) {
        verdict = CheckPosition(position, *to_);
        if (verdict != KOORD_OK && verdict != KOORD_CHECK_AFTER) return verdict;
    }
    const KoordStatus status = to_->write(position, target_, target);
    to_->numbers.GiveOneNan(target);
    if (verdict != KOORD_CHECK_AFTER) return status;
    if (status == KOORD_OK && to_->range.holdsOnceWritten) return status;
    verdict = to_->range.check(*target, *to_);
    return verdict == KOORD_OK ? status : verdict;
}

[[nodiscard]] inline bool HaveDatums(const tagKOORD& source, const tagKOORD& target) {
    return RowOf(DatumOf(source)) != nullptr && RowOf(DatumOf(target)) != nullptr;
}

// Any number other than 1 turns the tests off.
[[nodiscard]] inline RangeCheck CheckOf(std::int32_t checkRange) {
    return checkRange == 1 ? RangeCheck::On : RangeCheck::Off;
}

}  // namespace tessara
