// The contract as a host declares it, written a second time from its tables. Nothing in this directory
// includes a header of the library, so that the tests detect interfaces whose operations change order and
// records whose fields move.
#pragma once

#include <cstdint>
#include <cstring>
#include <string_view>
#include <utility>

namespace contract {

using std::int16_t;
using std::int32_t;
using std::uint32_t;

struct Guid {
    uint32_t data1;
    std::uint16_t data2, data3;
    unsigned char data4[8];

    friend bool operator==(const Guid& left, const Guid& right) {
        return std::memcmp(&left, &right, sizeof(Guid)) == 0;
    }
};
static_assert(sizeof(Guid) == 16 && alignof(Guid) == 4);

// "11815BAA-8A3A-4D45-9639-46E784AEC270"
constexpr Guid Id(std::string_view text) {
    Guid id{};
    int digits = 0;
    for (const char c : text) {
        if (c == '-') continue;
        const unsigned value = static_cast<unsigned>(c <= '9' ? c - '0' : c - 'A' + 10);
        if (digits < 8) {
            id.data1 = id.data1 * 16 + value;
        } else if (digits < 12) {
            id.data2 = static_cast<std::uint16_t>(id.data2 * 16 + value);
        } else if (digits < 16) {
            id.data3 = static_cast<std::uint16_t>(id.data3 * 16 + value);
        } else {
            unsigned char& byte = id.data4[(digits - 16) / 2];
            byte = static_cast<unsigned char>(byte * 16 + value);
        }
        ++digits;
    }
    return id;
}

constexpr int32_t OK = 0;
constexpr int32_t NO_INTERFACE = static_cast<int32_t>(0x80004002u);
constexpr int32_t FAIL = static_cast<int32_t>(0x80004005u);
constexpr int32_t NO_AGGREGATION = static_cast<int32_t>(0x80040110u);

class IUnknown {
  public:
    static constexpr Guid ID = Id("00000000-0000-0000-C000-000000000046");
    virtual int32_t QueryInterface(const Guid* id, void** out) = 0;
    virtual uint32_t AddRef() = 0;
    virtual uint32_t Release() = 0;

  protected:
    ~IUnknown() = default;
};

// A vector as host and library exchange it: whoever allocates the numbers provides the function that frees
// them.
struct Sequence {
    double* items = nullptr;
    uint32_t size = 0;
    uint32_t capacity = 0;
    void (*free)(double* items) = [](double* own) { delete[] own; };

    Sequence() = default;
    Sequence(double x, double y, double z) : items(new double[3]{x, y, z}), size(3), capacity(3) {}
    Sequence(double x, double y) : items(new double[2]{x, y}), size(2), capacity(2) {}
    Sequence(const Sequence&) = delete;
    Sequence(Sequence&& other) noexcept { *this = std::move(other); }
    Sequence& operator=(Sequence&& other) noexcept {
        std::swap(items, other.items);
        std::swap(size, other.size);
        std::swap(capacity, other.capacity);
        std::swap(free, other.free);
        return *this;
    }
    ~Sequence() {
        if (items != nullptr) free(items);
    }
};
static_assert(sizeof(Sequence) == 2 * sizeof(void*) + 8);

}  // namespace contract
