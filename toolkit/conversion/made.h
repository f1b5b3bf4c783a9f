// Objects of the library for code that reports what goes wrong by exceptions.
#pragma once

#include <new>

#include "tessara/ref.h"

namespace tessara::toolkit {

// A handle that isn't empty. The library gives null if memory runs out; here that is std::bad_alloc, as for
// anything else that allocates.
template <class I>
[[nodiscard]] IRef<I> Made(IRef<I> object) {
    if (!object.IsValid()) throw std::bad_alloc();
    return object;
}

// Holds a new object: const IRef coord = Made(CreateClassCoord()).
template <class I>
[[nodiscard]] IRef<I> Made(I* object) {
    return Made(IRef<I>(object));
}

}  // namespace tessara::toolkit
