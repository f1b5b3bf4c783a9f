// The intersections of two polylines, as ILinePoints fills them in.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ILineIntersectionParameters;

inline constexpr GUID CLSID_IntersectionResults = ParseGuid("4770F202-2EF5-4ADA-9318-56B81E8C3093");
inline constexpr GUID IID_IIntersectionResults = ParseGuid("73D3361D-E2DC-42D3-A4E4-DDBA41154279");

// Example: the intersections of two lines of pixels.
//
//     const tessara::IRef lines = tessara::CreateClassLinePoints();
//     const tessara::IRef results = tessara::CreateClassIntersectionResults();
//     if (!lines->IntersectPixelLines(lineA, lineB, results)) return;
//     for (std::int32_t i = 0; i < results->GetCount(); ++i) {
//         const tessara::IRef<tessara::ILineIntersectionParameters> onA(
//             results->GetFirstAt(static_cast<std::uint32_t>(i)));
//         alongA.push_back(onA->GetParameter());  // 0.5 of its segment, from (0, 0) to (10, 10)
//     }
//
// Each intersection has two entries, one ILineIntersectionParameters for each line. The two lists inside
// come from the host's object manager, under CLSID_HostArray, or are the library's own if there is no
// manager. If a manager provides none, Add and RemoveAt are false and the count is -1.
class IIntersectionResults : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IIntersectionResults;

    virtual ~IIntersectionResults() = default;

    // Appends an intersection by its entries for the first and the second line. False, with nothing added,
    // for null or objects of another kind and if memory runs out.
    virtual bool Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) = 0;
    // False for an index that isn't below the count.
    virtual bool RemoveAt(std::uint32_t index) = 0;
    // -1 if the two lists differ in length.
    virtual std::int32_t GetCount() = 0;
    // An entry, with no reference added, as IArray::GetAt; null for an index that isn't below the count.
    virtual IUnknown* GetFirstAt(std::uint32_t index) = 0;
    virtual IUnknown* GetSecondAt(std::uint32_t index) = 0;
    virtual void Clear() = 0;
};

// Creates an empty object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IIntersectionResults* CreateClassIntersectionResults();

}  // namespace tessara
