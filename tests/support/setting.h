// Numbers that whoever runs the tests may set in the environment, mostly sizes of random samples.
#pragma once

#include <cstdint>
#include <cstdlib>

namespace tessara::testing {

[[nodiscard]] inline std::uint64_t Setting(const char* name, std::uint64_t usual) {
    const char* const text = std::getenv(name);
    return text != nullptr ? std::strtoull(text, nullptr, 10) : usual;
}

}  // namespace tessara::testing
