// Operations that stand on each other - a shift on zone borders, a border on the border of another system -
// call each other in one order only. A debug build counts how deep they are nested in a thread, so that a
// call against the order fails at once and not as a stack overflow.
#pragma once

#include <cassert>
#include <cstdint>

namespace tessara {

// The deepest nesting there is: the shift of a UTMREF, done in UTM, up to the limit at its easting, which the
// zone's border draws.
inline constexpr std::int32_t MAX_CALL_DEPTH = 4;

class CallDepth {
  public:
    CallDepth(const CallDepth&) = delete;
    CallDepth& operator=(const CallDepth&) = delete;
#ifdef NDEBUG
    CallDepth() {}
#else
    CallDepth() {
        ++Depth();
        assert(Depth() <= MAX_CALL_DEPTH);
    }
    ~CallDepth() {
        --Depth();
    }

  private:
    static std::int32_t& Depth() {
        thread_local std::int32_t depth = 0;
        return depth;
    }
#endif
};

}  // namespace tessara
