// Draws values from the bytes of a fuzzer. Every draw has a value: after the last byte all bytes are 0. Never
// put two draws in one list of arguments: compilers evaluate arguments in different orders, so that a corpus
// would differ between compilers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>

namespace tessara::fuzz {

class ByteReader {
  public:
    ByteReader(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

    [[nodiscard]] bool IsAtEnd() const { return size_ == 0; }

    template <class T>
    [[nodiscard]] T Raw() {
        static_assert(std::is_trivially_copyable_v<T>);
        T value{};
        const std::size_t count = sizeof value < size_ ? sizeof value : size_;
        if (count > 0) std::memcpy(&value, data_, count);
        data_ += count;
        size_ -= count;
        return value;
    }

    [[nodiscard]] std::uint8_t Byte() { return Raw<std::uint8_t>(); }

    // One of 0..count-1; count is at most 65536.
    [[nodiscard]] std::uint32_t Below(std::uint32_t count) {
        return (count <= 256 ? Byte() : Raw<std::uint16_t>()) % count;
    }

    template <class T, std::size_t N>
    [[nodiscard]] const T& OneOf(const T (&values)[N]) {
        return values[Below(static_cast<std::uint32_t>(N))];
    }

    // Plausible numbers of degrees, metres or pixels, limits of types, and arbitrary bits.
    [[nodiscard]] double Number() {
        using Limits = std::numeric_limits<double>;
        static constexpr double SPECIAL[] = {0.0,
                                             -0.0,
                                             1.0,
                                             -1.0,
                                             0.5,
                                             90.0,
                                             -90.0,
                                             180.0,
                                             -180.0,
                                             360.0,
                                             84.0,
                                             -80.0,
                                             1e-300,
                                             -1e-300,
                                             1e300,
                                             -1e300,
                                             500000.0,
                                             10000000.0,
                                             6378137.0,
                                             2147483647.0,
                                             -2147483648.0,
                                             2147483648.5,
                                             1e15,
                                             -1e15,
                                             1e-9,
                                             89.9999999,
                                             Limits::quiet_NaN(),
                                             Limits::infinity(),
                                             -Limits::infinity(),
                                             Limits::max(),
                                             Limits::min(),
                                             Limits::denorm_min()};
        switch (Below(8)) {
            case 0:
                return Raw<double>();
            case 1:
                return OneOf(SPECIAL);
            case 2:
                return Raw<std::int16_t>();
            case 3:
                return Raw<std::int16_t>() / 64.0;
            case 4:
                return Raw<std::int8_t>();
            case 5:
                return Raw<std::int32_t>() / 100.0;
            case 6:
                return Raw<std::int32_t>() / 1e7;
            default:
                return Raw<std::uint16_t>() * 100.0;
        }
    }

    // Mostly small, sometimes at the limits of the type.
    [[nodiscard]] std::int32_t Integer() {
        static constexpr std::int32_t SPECIAL[] = {0,  1,   -1,  2,   4,         22,
                                                   23, 238, 239, 999, INT32_MAX, INT32_MIN};
        switch (Below(4)) {
            case 0:
                return OneOf(SPECIAL);
            case 1:
                return Raw<std::int32_t>();
            case 2:
                return Raw<std::int16_t>();
            default:
                return Raw<std::int8_t>();
        }
    }

    // Up to `limit` bytes, either characters of positions or any bytes except 0.
    [[nodiscard]] std::string Text(std::uint32_t limit) {
        static constexpr char LETTERS[] =
            "0123456789.,-+ NSEWUXTC'\"\xb0"
            "eIh:;/abmn\t";
        const bool isTypical = Below(4) != 0;
        std::string text(Below(limit + 1), ' ');
        for (char& c : text) {
            c = isTypical ? LETTERS[Below(sizeof LETTERS - 1)] : Raw<char>();
            if (c == '\0') c = ' ';
        }
        return text;
    }

    // All bytes that are left.
    [[nodiscard]] std::string Rest() {
        std::string text(data_, data_ + size_);
        data_ += size_;
        size_ = 0;
        return text;
    }

  private:
    const std::uint8_t* data_;
    std::size_t size_;
};

// Aborts if a property that holds for all inputs is violated.
inline void Require(bool holds) {
    if (!holds) __builtin_trap();
}

}  // namespace tessara::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
