// Owns an object of count 0 until it is handed out, and deletes it otherwise.
#pragma once

#include <cassert>
#include <utility>

#include "tessara/ref.h"

namespace tessara {

// Only the object's own operations may be called before it is handed out. As an argument it would be wrapped
// in a handle, which counts it to 1 and back to 0 and so deletes it.
template <class I>
class Fresh {
  public:
    explicit Fresh(I* object) : object_(object) {}
    Fresh(const Fresh&) = delete;
    Fresh& operator=(const Fresh&) = delete;
    // This handle's count is the first and the last one of the object.
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
