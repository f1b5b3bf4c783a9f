#include "files/twice_read.h"

#include <stdexcept>

namespace tessara::program {
namespace {

constexpr const char* NO_COPY = "cannot write a temporary file";

std::size_t ReadSome(std::istream& stream, char* bytes, std::size_t most) {
    if (stream.peek() == std::istream::traits_type::eof()) return 0;
    return static_cast<std::size_t>(stream.readsome(bytes, static_cast<std::streamsize>(most)));
}

}  // namespace

TwiceRead::TwiceRead(std::istream& stream)
    : stream_(stream), start_(stream.tellg()), copy_(nullptr, &std::fclose) {
    if (start_ != std::istream::pos_type(-1)) return;
    stream_.clear();
    copy_.reset(std::tmpfile());
    if (!copy_) throw std::runtime_error(NO_COPY);
}

InputBuffer TwiceRead::First() {
    if (!copy_) return InputBuffer(stream_);
    return InputBuffer([this](char* bytes, std::size_t most) {
        const std::size_t count = ReadSome(stream_, bytes, most);
        if (std::fwrite(bytes, 1, count, copy_.get()) != count) throw std::runtime_error(NO_COPY);
        return count;
    });
}

InputBuffer TwiceRead::Second() {
    if (copy_) {
        std::rewind(copy_.get());
        return InputBuffer(
            [this](char* bytes, std::size_t most) { return std::fread(bytes, 1, most, copy_.get()); });
    }
    if (!stream_.bad()) {
        stream_.clear();
        stream_.seekg(start_);
    }
    return InputBuffer(stream_);
}

}  // namespace tessara::program
