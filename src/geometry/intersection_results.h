#pragma once

#include "frame/managed_object.h"
#include "tessara/array.h"
#include "tessara/intersection_results.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {

class IntersectionResults : public IIntersectionResults {
  public:
    using Faces = FaceList<IIntersectionResults>;

    bool Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) override;
    bool RemoveAt(std::uint32_t index) override;
    std::int32_t GetCount() override;
    IUnknown* GetFirstAt(std::uint32_t index) override;
    IUnknown* GetSecondAt(std::uint32_t index) override;
    void Clear() override;

  protected:
    ~IntersectionResults() override = default;

  private:
    [[nodiscard]] bool HasLists() const { return firstList_.IsValid() && secondList_.IsValid(); }

    IRef<IArray> firstList_ = ManagedPart(CLSID_HostArray, CreateClassArray);
    IRef<IArray> secondList_ = ManagedPart(CLSID_HostArray, CreateClassArray);
};

}  // namespace tessara
