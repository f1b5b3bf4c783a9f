// Objects that answer a query and refuse the next one, as a host's object may: an operation that got an
// interface once must not rely on getting it again.
#pragma once

#include "tessara/unknown.h"

#if defined(__unix__) && (defined(__x86_64__) || defined(__aarch64__))

#include <deque>

namespace tessara::testing {

enum class Refusal { ONCE, FROM_THEN_ON };

// Takes over the queries of objects: each gets a function table of its own, whose first operation asks here
// before it asks the object. The objects must end before this does.
class RefusedQueries {
  public:
    RefusedQueries();
    ~RefusedQueries();
    RefusedQueries(const RefusedQueries&) = delete;
    RefusedQueries& operator=(const RefusedQueries&) = delete;

    // Null is nothing to take over, and so is an object that is taken over already.
    void TakeOver(IUnknown* object);

    // Refuses the `nth` query, counted from now; 0 refuses none.
    void Refuse(int nth, Refusal refusal);
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

    static ResultCode Ask(IUnknown* object, const GUID* iid, void** out);
    [[nodiscard]] static Table* TableOf(IUnknown* object);

    std::deque<Table> tables_;
    int asked_ = 0;
    int nth_ = 0;
    Refusal refusal_ = Refusal::ONCE;
};

}  // namespace tessara::testing

#endif
