#include "systems/convert_many.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <functional>
#include <optional>
#include <span>

#include "systems/block_conversion.h"
#include "systems/conversion.h"
#include "tessara/kernel/convert.h"

namespace tessara {
namespace {

// What tells records of one projection from others: datum and type as they lie in memory, and the parameters.
class SameProjection {
  public:
    explicit SameProjection(const tagKOORD& first)
        : first_(first), key_(KeyOf(first)), parameterBytes_(SystemOf(first).parameterBytes) {}
    [[nodiscard]] const tagKOORD& First() const { return first_; }
    [[nodiscard]] bool Holds(const tagKOORD& record) const {
        return KeyOf(record) == key_ &&
               (parameterBytes_ == 0 || std::memcmp(record.payload, first_.payload, parameterBytes_) == 0);
    }

  private:
    static std::uint64_t KeyOf(const tagKOORD& record) {
        std::uint64_t key;
        std::memcpy(&key, &record, sizeof key);
        return key;
    }

    tagKOORD first_;  // a copy: the caller's may overlap
    std::uint64_t key_;
    std::size_t parameterBytes_;
};

// The conversions of an array, prepared anew only where another projection begins.
class ArrayConversion {
  public:
    ArrayConversion(RangeCheck check, InstructionSet set) : check_(check), set_(set) {}

    KoordStatus ConvertOne(const tagKOORD& source, tagKOORD* target) {
        return Begin(source, *target) ? single_.Convert(source, target, check_) : KOORD_ERR_DATUM;
    }

    // Converts the first of some records, as many as are of one projection; says how many.
    std::size_t ConvertRun(std::span<const tagKOORD> sources, std::span<tagKOORD> targets,
                           std::span<KoordStatus> statuses) {
        if (!Begin(sources[0], targets[0])) {
            statuses[0] = KOORD_ERR_DATUM;
            return 1;
        }
        std::size_t count = 1;
        while (count < sources.size() && Belongs(sources[count], targets[count]))
            ++count;
        if (count >= BlockConversion::FEWEST && BlocksAreWorthwhile()) {
            blocks_.Convert(sources.first(count), targets.first(count), statuses.first(count), *block_, set_);
            return count;
        }
        for (std::size_t i = 0; i < count; ++i)
            statuses[i] = single_.Convert(sources[i], &targets[i], check_);
        return count;
    }

  private:
    struct Ends {
        SameProjection source, target;
    };

    // False for datums that don't exist.
    bool Begin(const tagKOORD& source, const tagKOORD& target) {
        if (prepared_ && Belongs(source, target)) return true;
        if (!HaveDatums(source, target)) return false;
        single_.Prepare(source, target);
        areBlocksPrepared_ = false;
        prepared_ = Ends{SameProjection(source), SameProjection(target)};
        return true;
    }

    [[nodiscard]] bool Belongs(const tagKOORD& source, const tagKOORD& target) const {
        return prepared_->source.Holds(source) && prepared_->target.Holds(target);
    }

    bool BlocksAreWorthwhile() {
        if (!areBlocksPrepared_) {
            blocks_.Prepare(single_, prepared_->source.First(), prepared_->target.First(), check_);
            if (blocks_.IsWorthwhile() && !block_) block_.emplace();
            areBlocksPrepared_ = true;
        }
        return blocks_.IsWorthwhile();
    }

    RangeCheck check_;
    InstructionSet set_;
    std::optional<Ends> prepared_;
    bool areBlocksPrepared_ = false;
    Conversion single_;
    BlockConversion blocks_;
    std::optional<Block> block_;
};

// Whether no record is the target of one and the source of another.
bool AreApart(const tagKOORD* source, const tagKOORD* target, std::size_t count) {
    const std::less_equal<> isNotBeyond;
    return source == target || isNotBeyond(source + count, target) || isNotBeyond(target + count, source);
}

KoordStatus FirstFailure(std::span<const KoordStatus> statuses) {
    const auto failure =
        std::find_if(statuses.begin(), statuses.end(), [](KoordStatus status) { return status != KOORD_OK; });
    return failure != statuses.end() ? *failure : KOORD_OK;
}

}  // namespace

KoordStatus ConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count, RangeCheck check,
                        KoordStatus* status, InstructionSet set) {
    if (count == 0) return KOORD_OK;
    if (source == nullptr || target == nullptr) {
        if (status != nullptr) std::fill_n(status, count, KOORD_ERR_GENERAL);
        return KOORD_ERR_GENERAL;
    }

    KoordStatus first = KOORD_OK;
    KoordStatus own[Block::SIZE];
    const bool inBlocks = AreApart(source, target, count);
    ArrayConversion conversion(check, set);
    for (std::size_t done = 0; done < count;) {
        const std::size_t most = std::min(count - done, Block::SIZE);
        const std::span<KoordStatus> statuses(status != nullptr ? status + done : own, most);
        std::size_t now = 1;
        if (inBlocks) {
            now = conversion.ConvertRun({source + done, most}, {target + done, most}, statuses);
        } else {
            statuses[0] = conversion.ConvertOne(source[done], &target[done]);
        }
        if (first == KOORD_OK) first = FirstFailure(statuses.first(now));
        done += now;
    }
    return first;
}

KoordStatus KoordConvertMany(const tagKOORD* source, tagKOORD* target, std::size_t count,
                             std::int32_t checkRange, KoordStatus* status) {
    return ConvertMany(source, target, count, CheckOf(checkRange), status, BestInstructionSet());
}

}  // namespace tessara
