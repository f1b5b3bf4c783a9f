#include "files/rejects.h"

#include "files/toolkit_names.h"
#include "lines/input_files.h"

namespace tessara::program {
namespace {

constexpr const char* CANT_BE_WRITTEN = ": can't be written";

}  // namespace

std::string Rejects::Open(const std::optional<std::string>& file, const std::vector<std::string>& inputs) {
    if (!file) return {};
    // Opening it empties it.
    if (IsOneOf(*file, inputs)) return *file + ": is to be read, and can't take the rejects";
    file_ = file;
    stream_.open(*file, std::ios::binary);
    return stream_.is_open() ? "" : *file + CANT_BE_WRITTEN;
}

std::string Rejects::Finish() {
    return file_ && !stream_.flush() ? *file_ + CANT_BE_WRITTEN : "";
}

}  // namespace tessara::program
