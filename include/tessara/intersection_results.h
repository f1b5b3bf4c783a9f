// The crossings of two lines: a list of pairs, one ILineIntersectionParameters for each line.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ILineIntersectionParameters;

inline constexpr GUID CLSID_IntersectionResults = ParseGuid("4770F202-2EF5-4ADA-9318-56B81E8C3093");
inline constexpr GUID IID_IIntersectionResults = ParseGuid("73D3361D-E2DC-42D3-A4E4-DDBA41154279");

// The two lists inside come from the host's object manager, as CLSID_HostArray, or are the library's own if
// there is no manager at all. An object to which a manager gave none stays without them: Add and RemoveAt are
// false, the count is -1.
class IIntersectionResults : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IIntersectionResults;

    virtual ~IIntersectionResults() = default;

    // Appends a crossing as the first and as the second line see it. False for null, a foreign object and
    // without memory; nothing is added then.
    virtual bool Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) = 0;
    // False for an index at or past the count.
    virtual bool RemoveAt(std::uint32_t index) = 0;
    // -1 if the two lists are of different length.
    virtual std::int32_t GetCount() = 0;
    // The entry without a count, as IArray gives it; null for an index at or past the count.
    virtual IUnknown* GetFirstAt(std::uint32_t index) = 0;
    virtual IUnknown* GetSecondAt(std::uint32_t index) = 0;
    virtual void Clear() = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IIntersectionResults* CreateClassIntersectionResults();

}  // namespace tessara
