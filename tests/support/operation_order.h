// The indices of the operations in an interface's table; hosts call operations by index.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <initializer_list>

#if defined(__x86_64__) && defined(__unix__)

namespace tessara::testing {

// The index of a virtual function, from its member pointer (Itanium C++ ABI: one more than its offset in the
// table).
template <class Operation>
std::ptrdiff_t PlaceOf(Operation operation) {
    std::ptrdiff_t value = 0;
    std::memcpy(&value, &operation, sizeof value);
    return (value - 1) / static_cast<std::ptrdiff_t>(sizeof(void*));
}

// Expects that the operations are consecutive in the table.
template <class... Operations>
void ExpectInOrder(std::ptrdiff_t first, Operations... operations) {
    std::ptrdiff_t place = first;
    for (const std::ptrdiff_t actual : {PlaceOf(operations)...})
        EXPECT_EQ(actual, place++);
}

}  // namespace tessara::testing

#endif
