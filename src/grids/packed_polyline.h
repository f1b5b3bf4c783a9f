// A polyline of records in few bytes. Each record is stored as the words in which it differs from the
// previous one, along a grid line one or two numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "tessara/kernel/koord.h"

namespace tessara {

class PackedPolyline {
  public:
    void Append(const tagKOORD& record);
    // Releases the spare capacity once all points are appended.
    void Finish() { bytes_ = std::vector<std::uint8_t>(bytes_.begin(), bytes_.end()); }

    [[nodiscard]] std::size_t Size() const { return size_; }

    // Calls visit(record) for each record in order, until one call returns false. Returns whether none did.
    template <class Visit>
    bool ForEach(const Visit& visit) const {
        Words words{};
        const std::uint8_t* at = bytes_.data();
        for (std::size_t i = 0; i < size_; ++i) {
            at = Read(at, &words);
            if (!visit(ToRecord(words))) return false;
        }
        return true;
    }

  private:
    static constexpr std::size_t WORDS = sizeof(tagKOORD) / sizeof(std::uint64_t);
    struct Words {
        std::uint64_t at[WORDS];
    };
    static_assert(sizeof(Words) == sizeof(tagKOORD) && WORDS == 8, "a byte says which of them change");

    static const std::uint8_t* Read(const std::uint8_t* bytes, Words* words);
    static tagKOORD ToRecord(const Words& words);

    Words last_{};
    std::vector<std::uint8_t> bytes_;
    std::size_t size_ = 0;
};

}  // namespace tessara
