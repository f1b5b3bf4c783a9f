// A growing list of objects.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IArray = ParseGuid("71562280-B94E-40E4-8A40-0AC853189111");

// Lines and polygons are passed as such lists: an IArray whose elements are the ICoord of their vertices, in
// order. There is no separate class for a line.
//
// Example: a line of two positions.
//
//     const tessara::IRef line = tessara::CreateClassArray();
//     line->Add(munich);
//     line->Add(tokyo);
//     for (std::uint32_t i = 0; i < line->GetCount(); ++i) {
//         const tessara::IRef<tessara::ICoord> vertex(line->GetAt(i));
//         if (vertex.IsValid()) heights.push_back(vertex->GetHeight());  // 520, then 40
//     }
//
// The list holds each element by its IUnknown and so keeps it alive; an IRef asks an element for the
// interface you need. Growing may throw std::length_error or std::bad_alloc and then leaves the list
// unchanged. One thread at a time may use a list; its elements may be in lists of other threads.
class IArray : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IArray;

    // Appends an element. Null, or an object that doesn't answer IUnknown, is appended as an empty element.
    virtual void Add(IUnknown* object) = 0;
    // Removes an element; those behind it move up by one. Ignores an index that isn't below the count.
    virtual void RemoveAt(std::uint32_t index) = 0;
    virtual std::uint32_t GetCount() = 0;
    // The element, with no reference added for the caller. Null for an empty element and for an index that
    // isn't below the count.
    virtual IUnknown* GetAt(std::uint32_t index) = 0;
    virtual void Clear() = 0;

  protected:
    ~IArray() = default;
};

// Creates an empty list with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IArray* CreateClassArray();

}  // namespace tessara
