// Reads the contents of a text argument.
#pragma once

#include <string>

#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

// Copies the contents up to the terminating zero. False for null or a wrong object; *out is then unchanged.
inline bool TextOf(ITessaraString* text, std::string* out) {
    const IRef<ITessaraString> source(text);
    if (!source.IsValid()) return false;
    const char* const characters = source->GetText();
    *out = characters != nullptr ? characters : "";
    return true;
}

}  // namespace tessara
