#include "grids/packed_polyline.h"

#include <cstring>

namespace tessara {

void PackedPolyline::Append(const tagKOORD& record) {
    Words words;
    std::memcpy(&words, &record, sizeof words);
    std::uint8_t bytes[1 + sizeof words]{};
    std::size_t count = 1;
    for (std::size_t i = 0; i < WORDS; ++i) {
        if (words.at[i] == last_.at[i]) continue;
        bytes[0] = static_cast<std::uint8_t>(bytes[0] | 1U << i);
        std::memcpy(bytes + count, &words.at[i], sizeof words.at[i]);
        count += sizeof words.at[i];
    }
    bytes_.insert(bytes_.end(), bytes, bytes + count);
    last_ = words;
    ++size_;
}

const std::uint8_t* PackedPolyline::Read(const std::uint8_t* bytes, Words* words) {
    const std::uint8_t changed = *bytes++;
    for (std::size_t i = 0; i < WORDS; ++i) {
        if ((changed & 1U << i) == 0) continue;
        std::memcpy(&words->at[i], bytes, sizeof words->at[i]);
        bytes += sizeof words->at[i];
    }
    return bytes;
}

tagKOORD PackedPolyline::ToRecord(const Words& words) {
    tagKOORD record;
    std::memcpy(&record, &words, sizeof record);
    return record;
}

}  // namespace tessara
