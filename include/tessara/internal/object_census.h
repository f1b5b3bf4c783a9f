// Counts the living objects of each class, to find those that nobody released. Counting takes time and is
// compiled in only where TESSARA_COUNT_OBJECTS is defined, alike for all sources of a program or library;
// this library's debug builds define it. A module counts the objects that its own code creates.
#pragma once

#if defined(TESSARA_COUNT_OBJECTS)

#include <atomic>
#include <cstdint>
#include <typeinfo>

namespace tessara {

// A class and the number of its living objects. An entry exists from the first object of its class on and is
// never removed.
class CensusEntry {
  public:
    explicit CensusEntry(const char* className) : className_(className), next_(First().load()) {
        while (!First().compare_exchange_weak(next_, this)) {
        }
    }
    CensusEntry(const CensusEntry&) = delete;
    CensusEntry& operator=(const CensusEntry&) = delete;

    void Count(std::int64_t change) { living_.fetch_add(change, std::memory_order_relaxed); }

    // The name in the compiler's spelling.
    [[nodiscard]] const char* ClassName() const { return className_; }
    [[nodiscard]] std::int64_t Living() const { return living_.load(std::memory_order_relaxed); }
    [[nodiscard]] const CensusEntry* Next() const { return next_; }

    // The head of the list of entries, the newest class first.
    [[nodiscard]] static std::atomic<CensusEntry*>& First() {
        static constinit std::atomic<CensusEntry*> first{nullptr};
        return first;
    }

  private:
    const char* className_;
    std::atomic<std::int64_t> living_{0};
    CensusEntry* next_;
};

template <class Class>
class CensusMember {
  protected:
    CensusMember() { Entry().Count(1); }
    ~CensusMember() { Entry().Count(-1); }

  private:
    static CensusEntry& Entry() {
        static CensusEntry entry(typeid(Class).name());
        return entry;
    }
};

}  // namespace tessara

#else

namespace tessara {

template <class Class>
class CensusMember {};

}  // namespace tessara

#endif
