// Random numbers that are the same on every platform and in every run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace tessara::testing {

class Random {
  public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    // Uniformly distributed over low..high.
    [[nodiscard]] double Between(double low, double high) {
        return low + (high - low) * static_cast<double>(engine_() >> 11) * 0x1p-53;
    }

    [[nodiscard]] std::uint64_t Bits() { return engine_(); }
    [[nodiscard]] std::int32_t AnyInt32() { return static_cast<std::int32_t>(engine_()); }

    // One of 0..count-1.
    [[nodiscard]] std::int32_t Below(std::int32_t count) {
        return static_cast<std::int32_t>(engine_() % static_cast<std::uint64_t>(count));
    }

    template <class T, std::size_t N>
    [[nodiscard]] T OneOf(const T (&values)[N]) {
        return values[engine_() % N];
    }

  private:
    std::mt19937_64 engine_;
};

}  // namespace tessara::testing
