// What is thrown on the library's side, and how it ends as an error of the boundary.
#pragma once

#include <new>
#include <stdexcept>
#include <string>
#include <string_view>

#include "boundary.h"
#include "tessara/kernel/koord_status.h"

namespace tessara::postgresql {

// As much of a text as fits, cut between characters of UTF-8.
void CopyText(std::string_view text, char (&copy)[TESSARA_TEXT_SIZE]);

struct Thrown {
    TessaraErrorKind kind;
    std::string message;
    std::string detail{};
    std::string hint{};
};

// A position without a result, and why. As fast as a result, for many rows of a table may come to it.
bool NoPosition(double north, double east, KoordStatus status, TessaraError* error) noexcept;

void WriteError(const Thrown& thrown, TessaraError* error) noexcept;

// What the body returns, or false and what it threw as the error.
template <class Body>
bool Guarded(TessaraError* error, Body body) noexcept {
    try {
        return body();
    } catch (const Thrown& thrown) {
        WriteError(thrown, error);
    } catch (const std::bad_alloc&) {
        WriteError({TESSARA_NO_MEMORY, "out of memory"}, error);
    } catch (const std::exception& exception) {
        *error = TessaraError{};
        error->kind = TESSARA_INTERNAL;
        CopyText(exception.what(), error->message);
    } catch (...) {
        *error = TessaraError{};
        error->kind = TESSARA_INTERNAL;
    }
    return false;
}

}  // namespace tessara::postgresql
