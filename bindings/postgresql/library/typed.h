// Texts as people type them, and what is thrown for those that are no position.
#pragma once

#include "boundary.h"
#include "guard.h"
#include "typed/typed_reader.h"

namespace tessara::postgresql {

// The position of a text; throws the piece that is wrong and why.
[[nodiscard]] TessaraPosition ReadTyped(const toolkit::TypedReader& reader, const char* text);

// The piece, and the reason as a sentence.
[[nodiscard]] Thrown WrongText(const char* type, std::string_view text, const toolkit::Fault& fault);

// For a text or bytes that have a form but stand for no place.
[[nodiscard]] Thrown NoPlace(KoordStatus status);

}  // namespace tessara::postgresql
