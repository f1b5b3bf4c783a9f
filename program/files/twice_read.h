// Reads an input twice: rewinds a file, and copies other inputs to a temporary file.
#pragma once

#include <cstdio>
#include <istream>
#include <memory>

#include "lines/input_buffer.h"
#include "run/toolkit_names.h"

namespace tessara::program {

class TwiceRead {
  public:
    explicit TwiceRead(std::istream& stream);

    // Call each once, in this order, and read the first stream to its end.
    [[nodiscard]] InputBuffer First();
    [[nodiscard]] InputBuffer Second();

  private:
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    std::istream& stream_;
    std::istream::pos_type start_;
    File copy_;
};

}  // namespace tessara::program
