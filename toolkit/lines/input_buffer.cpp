#include "lines/input_buffer.h"

#include <algorithm>
#include <utility>

namespace tessara::toolkit {
namespace {

constexpr std::size_t BYTES_AT_ONCE = std::size_t{1} << 16;

constexpr std::string_view BYTE_ORDER_MARK = "\xEF\xBB\xBF";

// Waits for the first byte only.
std::size_t ReadWhatIsThere(std::istream& stream, char* bytes, std::size_t most) {
    if (stream.peek() == std::istream::traits_type::eof()) return 0;
    return static_cast<std::size_t>(stream.readsome(bytes, static_cast<std::streamsize>(most)));
}

}  // namespace

InputBuffer::InputBuffer(std::istream& stream)
    : source_([&stream](char* bytes, std::size_t most) { return ReadWhatIsThere(stream, bytes, most); }),
      hasMoreAtOnce_([&stream] { return stream.good() && stream.rdbuf()->in_avail() > 0; }) {
    SkipByteOrderMark();
}

bool InputBuffer::ReadMore() {
    if (taken_ > 0) bytes_.erase(0, std::exchange(taken_, 0));
    // The buffer grows by half its size, so that repeated scans of a long piece take linear time.
    const std::size_t wanted = std::max(BYTES_AT_ONCE, bytes_.size() / 2);
    const std::size_t held = bytes_.size();
    bytes_.resize(held + wanted);
    std::size_t count = source_(bytes_.data() + held, wanted);
    while (count > 0 && count < wanted && held >= BYTES_AT_ONCE) {
        const std::size_t more = source_(bytes_.data() + held + count, wanted - count);
        if (more == 0) break;
        count += more;
    }
    bytes_.resize(held + count);
    return count > 0;
}

void InputBuffer::Take(std::size_t count) {
    taken_ += count;
    offset_ += count;
}

void InputBuffer::SkipByteOrderMark() {
    while (Held().size() < BYTE_ORDER_MARK.size() && BYTE_ORDER_MARK.starts_with(Held()) && ReadMore()) {
    }
    if (Held().starts_with(BYTE_ORDER_MARK)) Take(BYTE_ORDER_MARK.size());
}

}  // namespace tessara::toolkit
