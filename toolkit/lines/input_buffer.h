// The bytes of an input, read piece by piece as they come, and held until they are taken.
#pragma once

#include <cstddef>
#include <functional>
#include <istream>
#include <string>
#include <string_view>

namespace tessara::toolkit {

// The most that is held of one line, record or feature. What is longer isn't read.
inline constexpr std::size_t LONGEST_PIECE = std::size_t{16} << 20;

class InputBuffer {
  public:
    // Gives what is there, one byte at least, and 0 at the end.
    using Source = std::function<std::size_t(char* bytes, std::size_t most)>;

    explicit InputBuffer(Source source) : source_(std::move(source)) { SkipByteOrderMark(); }
    explicit InputBuffer(std::istream& stream);

    // What is read and not taken yet.
    [[nodiscard]] std::string_view Held() const { return std::string_view(bytes_).substr(taken_); }

    // Reads more behind what is held, waiting for it if need be. False at the end.
    bool ReadMore();

    void Take(std::size_t count);

    // How many bytes are taken, which is where the held ones stand in the input.
    [[nodiscard]] std::size_t Offset() const { return offset_; }

    // Whether reading more needs no waiting. Where nobody knows it does.
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
