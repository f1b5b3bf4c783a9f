// The indices of the operations in an interface's table; hosts call operations by index.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <initializer_list>

#if defined(__unix__)

namespace tessara::testing {

// The first word of a member pointer to a virtual function is its offset in the table, and this mark (Itanium
// C++ ABI). On ARM the mark is in the second word.
#if defined(__arm__) || defined(__aarch64__)
inline constexpr std::ptrdiff_t VIRTUAL_MARK = 0;
#else
inline constexpr std::ptrdiff_t VIRTUAL_MARK = 1;
#endif

// The index of a virtual function, from its member pointer.
template <class Operation>
std::ptrdiff_t PlaceOf(Operation operation) {
    std::ptrdiff_t value = 0;
    std::memcpy(&value, &operation, sizeof value);
    return (value - VIRTUAL_MARK) / static_cast<std::ptrdiff_t>(sizeof(void*));
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
