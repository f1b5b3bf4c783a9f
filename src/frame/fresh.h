// An object of count 0 on its way to a caller: gone again unless it is handed out.
#pragma once

#include <cassert>
#include <utility>

#include "tessara/ref.h"

namespace tessara {

// The object's own operations may be called. It mustn't be an argument before it is handed out: whoever wraps
// it counts it to 1 and back, which deletes it.
template <class I>
class Fresh {
  public:
    explicit Fresh(I* object) : object_(object) {}
    Fresh(const Fresh&) = delete;
    Fresh& operator=(const Fresh&) = delete;
    // A handle's count is the object's first and last.
    ~Fresh() { const IRef<I> last(object_); }

    [[nodiscard]] bool IsValid() const { return object_ != nullptr; }
    I* operator->() const {
        assert(IsValid());
        return object_;
    }

    [[nodiscard]] I* HandOut() { return std::exchange(object_, nullptr); }

  private:
    I* object_;
};

}  // namespace tessara
