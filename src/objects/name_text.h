// How the vocabulary objects give their names.
#pragma once

#include "tessara/ref.h"
#include "tessara/tessara_string.h"

namespace tessara {

// Empties the text and fills in the name, if there is one.
inline void FillWithName(ITessaraString* text, const char* name) {
    const IRef<ITessaraString> target(text);
    if (!target.IsValid()) return;
    target->Clear();
    if (name != nullptr) target->AssignText(name);
}

}  // namespace tessara
