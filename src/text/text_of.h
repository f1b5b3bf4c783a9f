// The contents of a text argument.
#pragma once

#include <string>

#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

// A copy, up to the zero that ends it. False for null or a wrong object; *out is then unchanged.
inline bool TextOf(ITessaraString* text, std::string* out) {
    const IRef<ITessaraString> source(text);
    if (!source.IsValid()) return false;
    const char* const characters = source->GetText();
    *out = characters != nullptr ? characters : "";
    return true;
}

}  // namespace tessara
