// An input that is read twice: a file is wound back, and anything else is kept in a temporary file meanwhile.
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

    // Each of them once, in this order; the first one to its end.
    [[nodiscard]] InputBuffer First();
    [[nodiscard]] InputBuffer Second();

  private:
    using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

    std::istream& stream_;
    std::istream::pos_type start_;
    File copy_;
};

}  // namespace tessara::program
