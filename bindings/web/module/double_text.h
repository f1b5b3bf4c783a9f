// Doubles as texts, with the values, ends and errors of std::from_chars and std::to_chars. Infinities and NaN
// are written but not read.
#pragma once

#include <system_error>

namespace tessara::web {

struct ReadText {
    const char* end;
    std::errc error;
};

struct WrittenText {
    char* end;
    std::errc error;
};

// A number out of range leaves the value alone.
[[nodiscard]] ReadText ReadDouble(const char* first, const char* last, double* value);

// The shortest text that is read as the same double; of texts of one length the closest to it.
[[nodiscard]] WrittenText WriteShortest(char* first, char* last, double value);

// The exact value, rounded to so many decimals; half to even.
[[nodiscard]] WrittenText WriteFixed(char* first, char* last, double value, int decimals);

}  // namespace tessara::web
