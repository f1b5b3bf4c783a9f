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
    error->kind = TESSARA_NO_POSITION;
    error->status = status;
    error->north = north;
    error->east = east;
    return false;
}

void WriteError(const Thrown& thrown, TessaraError* error) noexcept {
    error->kind = thrown.kind;
    CopyText(thrown.message, error->message);
    CopyText(thrown.detail, error->detail);
    CopyText(thrown.hint, error->hint);
}

extern "C" void Tessara_Describe(TessaraError* error) noexcept {
    if (error->kind != TESSARA_NO_POSITION) return;
    const char* const reason = error->status == GEODESIC_NO_SOLUTION ? "there is no such geodesic"
                                                                     : toolkit::StatusReason(error->status);
    std::snprintf(error->message, sizeof error->message, "position (%.9g, %.9g) has no result", error->north,
                  error->east);
    std::snprintf(error->detail, sizeof error->detail, "%s.", reason);
    error->detail[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(error->detail[0])));
    std::snprintf(error->hint, sizeof error->hint,
                  "The function of this name with _or_null behind it returns NULL instead.");
}

}  // namespace tessara::postgresql
