// A projection of PROJ, kept as long as a contest needs it.
#pragma once

#include <proj.h>

#include <memory>
#include <string>

namespace tessara::bench {

using Projection = std::shared_ptr<PJ>;

// Ends the program if PROJ doesn't know the definition.
Projection MakeProjection(const std::string& definition);

}  // namespace tessara::bench
