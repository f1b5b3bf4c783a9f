// The library's own text, made where a text is handed to a caller. It is the one that hosts get, too.
#pragma once

#include "tessara/host/text.h"

namespace tessara {

using TessaraString = host::Text;

}  // namespace tessara
