// Some operations build on each other: a shift on zone borders, a border on the limit of another system.
// They call each other in one direction only. A debug build counts how deeply they are nested in a thread,
// so that a call in the wrong direction fails at once instead of overflowing the stack.
#pragma once

#include <cassert>
#include <cstdint>

namespace tessara {

// The deepest nesting: the shift of a UTMREF, done in UTM, which looks for the limit at its easting, which
// needs the border of the zone.
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
