// The library's own text, made where a text is handed to a caller (it is the one that hosts get, too), and
// how a name gets into the text of a caller.
#pragma once

#include <new>

#include "tessara/host/text.h"
#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

using TessaraString = host::Text;

// Empties the text and fills in the name, if there is one. Without memory the text stays empty.
inline void FillWithName(ITessaraString* text, const char* name) {
    const IRef<ITessaraString> target(text);
    if (!target.IsValid()) return;
    target->Clear();
    try {
        if (name != nullptr) target->AssignText(name);
    } catch (const std::bad_alloc&) {  // names have no failure to tell
    }
}

}  // namespace tessara
