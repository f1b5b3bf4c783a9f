// How the vocabulary objects give their names.
#pragma once

#include <new>

#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

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
