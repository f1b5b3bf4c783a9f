// Numbers that whoever runs the tests may set in the environment, mostly sizes of random samples.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>

namespace tessara::testing {

[[nodiscard]] inline std::uint64_t Setting(const char* name, std::uint64_t usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::strtoull(text, nullptr, 10) : usual;
}

// The same for how many things are held at once.
[[nodiscard]] inline std::size_t SizeSetting(const char* name, std::size_t usual) {
    return static_cast<std::size_t>(Setting(name, usual));
}

}  // namespace tessara::testing
