// How functions of the module are called from JavaScript: numbers and places in the memory go in, a number
// comes out. A text that comes out is the answer, which stays until the next call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <string>
#include <string_view>

#define TESSARA_EXPORT(name) extern "C" __attribute__((export_name(#name), visibility("default")))

namespace tessara::web {

enum class Outcome : std::int32_t { Done = 0, Refused = 1, NoMemory = 2 };

// What the latest call answers: its result, or why it refuses.
[[nodiscard]] std::string& Answer();

[[nodiscard]] inline std::string_view TextAt(const char* first, std::size_t size) {
    return {first, size};
}

// No exception leaves the module: it would end it.
template <class Call>
Outcome Try(const Call& call) {
    try {
        Answer().clear();
        call();
        return Outcome::Done;
    } catch (const std::bad_alloc&) {
        return Outcome::NoMemory;
    } catch (const std::exception& refusal) {
        Answer() = refusal.what();
        return Outcome::Refused;
    }
}

}  // namespace tessara::web
