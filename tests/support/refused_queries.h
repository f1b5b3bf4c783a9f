// Makes objects answer one query and refuse the next, as a host's object may: an operation must not rely on a
// second query for the same interface.
#pragma once

#include "tessara/unknown.h"

#if defined(__unix__)

#include <deque>
#include <functional>

namespace tessara::testing {

enum class Refusal { ONCE, FROM_THEN_ON };

// Intercepts the queries of objects: each gets its own function table, whose first operation calls this
// object before the original. The objects must end before this object.
class RefusedQueries {
  public:
    RefusedQueries();
    ~RefusedQueries();
    RefusedQueries(const RefusedQueries&) = delete;
    RefusedQueries& operator=(const RefusedQueries&) = delete;

    // Ignores null and objects that are already intercepted.
    void TakeOver(IUnknown* object);

    // Refuses the `nth` query from now on; 0 refuses none.
    void Refuse(int nth, Refusal refusal);
    // Calls a function once, before the answer to the `nth` query from now on.
    void Interrupt(int nth, std::function<void()> action);
    [[nodiscard]] int Asked() const { return asked_; }

  private:
    // The two words before a table's first operation, and space for the longest table of the library
    // (Itanium C++ ABI).
    struct Table {
        void* const* original;
        void* offsetToTop;
        void* typeInfo;
        void* operations[64];
    };

    [[nodiscard]] bool IsRefused() const;
    static ResultCode Ask(IUnknown* object, const GUID* iid, void** out);
    [[nodiscard]] static Table* TableOf(IUnknown* object);

    std::deque<Table> tables_;
    int asked_ = 0;
    int nth_ = 0;
    Refusal refusal_ = Refusal::ONCE;
    std::function<void()> action_;
};

}  // namespace tessara::testing

#endif
