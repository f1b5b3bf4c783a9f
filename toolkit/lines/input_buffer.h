// Buffers an input: reads bytes as they arrive and holds them until they are consumed.
#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace tessara::toolkit {

// The maximum size of a line, record or feature; longer ones are rejected.
inline constexpr std::size_t LONGEST_PIECE = std::size_t{16} << 20;

class InputBuffer {
  public:
    // Reads at least one byte, waiting if necessary; returns 0 at the end.
    using Source = std::function<std::size_t(char* bytes, std::size_t most)>;

    explicit InputBuffer(Source source) : source_(std::move(source)) { SkipByteOrderMark(); }
    explicit InputBuffer(std::istream& stream);

    // The bytes that have been read and not consumed.
    [[nodiscard]] std::string_view Held() const { return std::string_view(bytes_).substr(taken_); }

    // Reads more bytes, waiting if necessary. Returns false at the end.
    bool ReadMore();

    void Take(std::size_t count);

    // The number of consumed bytes, which is the offset of the held bytes in the input.
    [[nodiscard]] std::size_t Offset() const { return offset_; }

    // Whether more bytes can be read without waiting; false if unknown.
    [[nodiscard]] bool HasMoreAtOnce() const { return hasMoreAtOnce_ && hasMoreAtOnce_(); }

  private:
    void SkipByteOrderMark();

    Source source_;
    std::function<bool()> hasMoreAtOnce_;
    std::string bytes_;
    std::size_t taken_ = 0;
    std::size_t offset_ = 0;
};

}  // namespace tessara::toolkit
