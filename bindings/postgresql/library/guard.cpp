#include "guard.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>

#include "conversion/statuses.h"

namespace tessara::postgresql {

void CopyText(std::string_view text, char (&copy)[TESSARA_TEXT_SIZE]) {
    std::size_t size = std::min<std::size_t>(text.size(), TESSARA_TEXT_SIZE - 1);
    const auto continues = [&](std::size_t i) {
        return (static_cast<unsigned char>(text[i]) & 0xC0U) == 0x80U;
    };
    while (size < text.size() && size > 0 && continues(size))
        --size;
    std::memcpy(copy, text.data(), size);
    copy[size] = '\0';
}

bool NoPosition(double north, double east, KoordStatus status, TessaraError* error) noexcept {
    *error = TessaraError{};
    error->kind = TESSARA_NO_POSITION;
    std::snprintf(error->message, sizeof error->message, "position (%.9g, %.9g) has no result", north, east);
    std::snprintf(error->detail, sizeof error->detail, "%s.", toolkit::StatusReason(status));
    error->detail[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(error->detail[0])));
    std::snprintf(error->hint, sizeof error->hint,
                  "The function of this name with _or_null behind it returns NULL instead.");
    return false;
}

void WriteError(const Thrown& thrown, TessaraError* error) noexcept {
    error->kind = thrown.kind;
    CopyText(thrown.message, error->message);
    CopyText(thrown.detail, error->detail);
    CopyText(thrown.hint, error->hint);
}

}  // namespace tessara::postgresql
