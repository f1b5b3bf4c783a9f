#include "geometry/intersection_results.h"

#include "tessara/line_intersection_parameters.h"

namespace tessara {
namespace {

constexpr std::int32_t COUNTS_DIFFER = -1;

IUnknown* EntryAt(const IRef<IArray>& list, std::uint32_t index) {
    return list.IsValid() && index < list->GetCount() ? list->GetAt(index) : nullptr;
}

}  // namespace

bool IntersectionResults::Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) {
    const IRef<ILineIntersectionParameters> onFirst(first);
    const IRef<ILineIntersectionParameters> onSecond(second);
    if (!HasLists() || !onFirst.IsValid() || !onSecond.IsValid()) return false;
    firstList_->Add(onFirst.Get());
    try {
        secondList_->Add(onSecond.Get());
    } catch (...) {
        // Without memory for the second of a pair its first goes again.
        firstList_->RemoveAt(firstList_->GetCount() - 1);
        throw;
    }
    return true;
}

bool IntersectionResults::RemoveAt(std::uint32_t index) {
    if (!HasLists() || index >= firstList_->GetCount() || index >= secondList_->GetCount()) return false;
    firstList_->RemoveAt(index);
    secondList_->RemoveAt(index);
    return true;
}

std::int32_t IntersectionResults::GetCount() {
    if (!HasLists() || firstList_->GetCount() != secondList_->GetCount()) return COUNTS_DIFFER;
    return static_cast<std::int32_t>(firstList_->GetCount());
}

IUnknown* IntersectionResults::GetFirstAt(std::uint32_t index) {
    return EntryAt(firstList_, index);
}

IUnknown* IntersectionResults::GetSecondAt(std::uint32_t index) {
    return EntryAt(secondList_, index);
}

void IntersectionResults::Clear() {
    if (!HasLists()) return;
    firstList_->Clear();
    secondList_->Clear();
}

IIntersectionResults* CreateClassIntersectionResults() {
    return NewObject<IntersectionResults>();
}

}  // namespace tessara
