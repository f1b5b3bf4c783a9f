// A position that is typed as a north and an east text.
#pragma once

#include <string>

#include "conversion/references.h"
#include "tessara/tessara.h"

namespace tessara::toolkit {

// Reads texts of one reference. For one thread at a time.
class TypedPosition {
  public:
    explicit TypedPosition(const Reference& reference);

    // What is wrong with the texts; empty if they are a legal position, which is then held.
    [[nodiscard]] std::string Read(const std::string& north, const std::string& east);

    // The position that was read last.
    [[nodiscard]] const IRef<ICoordinateString>& Held() const { return string_; }

  private:
    Reference reference_;
    IRef<ICoordinateReference> libraryReference_;
    IRef<ICoordinateString> string_;
    IRef<ITessaraString> north_;
    IRef<ITessaraString> east_;
};

}  // namespace tessara::toolkit
