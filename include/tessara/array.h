// The list of objects. A line or a polygon is a list of ICoord and has no class of its own.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IArray = ParseGuid("71562280-B94E-40E4-8A40-0AC853189111");

// Elements are held by their IUnknown: the list keeps them alive, and a reader asks each for the interface it
// needs. Growing may throw std::length_error or std::bad_alloc; the list is then as it was. A list is for one
// thread at a time; its elements may stand in lists of other threads, too.
class IArray : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IArray;

    // Appends. Null, or an object that doesn't answer IUnknown, takes up a place as an empty element.
    virtual void Add(IUnknown* object) = 0;
    // Closes the gap and keeps the order. An index at or past the count does nothing.
    virtual void RemoveAt(std::uint32_t index) = 0;
    virtual std::uint32_t GetCount() = 0;
    // The element, with no count taken; null for an empty element or an index at or past the count.
    virtual IUnknown* GetAt(std::uint32_t index) = 0;
    virtual void Clear() = 0;

  protected:
    ~IArray() = default;
};

// A new empty list with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IArray* CreateClassArray();

}  // namespace tessara
