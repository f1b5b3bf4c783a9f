#include "run/rejects.h"

#include <cerrno>

#include "lines/input_files.h"
#include "run/toolkit_names.h"

namespace tessara::program {
namespace {

std::string NotWritten(const std::string& file) {
    return file + ": cannot write the file" + SystemReason(errno);
}

}  // namespace

std::string Rejects::Open(const std::optional<std::string>& file, const std::vector<std::string>& inputs) {
    if (!file) return {};
    // Opening the file truncates it.
    if (IsOneOf(*file, inputs)) return *file + ": cannot write rejects to an input file";
    file_ = file;
    errno = 0;
    stream_.open(*file, std::ios::binary);
    return stream_.is_open() ? "" : NotWritten(*file);
}

std::string Rejects::Finish() {
    errno = 0;
    return file_ && !stream_.flush() ? NotWritten(*file_) : "";
}

}  // namespace tessara::program
