// What isn't a number has one pattern of bits in results, the positive quiet one without digits. Operations
// give either sign, depending on the processor, and pass on the digits of an argument.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "numerics/special_values.h"
#include "tessara/kernel/koord.h"

namespace tessara {

static_assert(std::bit_cast<std::uint64_t>(NOT_A_NUMBER) == 0x7FF8000000000000);

[[nodiscard]] constexpr double WithOneNan(double value) {
    return value != value ? NOT_A_NUMBER : value;
}

// Where a payload has the doubles that a conversion writes, as far as they may be none.
class Numbers {
  public:
    constexpr Numbers() = default;
    constexpr Numbers(std::size_t first, std::size_t second) : Numbers(first, second, second) {}
    constexpr Numbers(std::size_t first, std::size_t second, std::size_t third)
        : offsets_{static_cast<std::uint8_t>(first), static_cast<std::uint8_t>(second),
                   static_cast<std::uint8_t>(third)},
          exist_(true) {}

    // Gives the pattern to those that are none.
    void GiveOneNan(tagKOORD* record) const {
        // A payload without doubles has just been written in pieces, which a processor doesn't read as one
        // number before they are in memory.
        if (!exist_) return;
        // A few instructions for a case that is rare. Infinite numbers may lead beyond them, too.
        const double sum = At(*record, 0) + At(*record, 1);
        if (__builtin_isunordered(sum, At(*record, 2))) [[unlikely]]
            Replace(record);
    }

  private:
    [[nodiscard]] double At(const tagKOORD& record, std::size_t number) const {
        double value;
        std::memcpy(&value, record.payload + offsets_[number], sizeof value);
        return value;
    }

    void Replace(tagKOORD* record) const;

    std::array<std::uint8_t, 3> offsets_{};
    bool exist_ = false;  // else the payload's first bytes are something else
};

}  // namespace tessara
