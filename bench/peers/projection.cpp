#include "bench/peers/projection.h"

#include "bench/peers/contest.h"

namespace tessara::bench {

Projection MakeProjection(const std::string& definition) {
    Projection projection(proj_create(PJ_DEFAULT_CTX, definition.c_str()), proj_destroy);
    if (projection == nullptr) Fail("PROJ doesn't know " + definition);
    return projection;
}

}  // namespace tessara::bench
