// The library's own text class, which it uses where it hands out a text (hosts get the same class in
// tessara/host/text.h), and the one way a name is written into a caller's text.
#pragma once

#include <exception>

#include "tessara/host/text.h"
#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

using TessaraString = host::Text;

// Empties the text, then fills in the name if there is one. Without memory the text stays empty.
inline void FillWithName(ITessaraString* text, const char* name) {
    const IRef<ITessaraString> target(text);
    if (!target.IsValid()) return;
    target->Clear();
    try {
        if (name != nullptr) target->AssignText(name);
    } catch (const std::exception&) {  // an operation that gives a name has no failure to report
    }
}

}  // namespace tessara
