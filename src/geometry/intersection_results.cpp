#include "geometry/intersection_results.h"

#include <new>

#include "tessara/line_intersection_parameters.h"

namespace tessara {
namespace {

constexpr std::int32_t COUNTS_DIFFER = -1;

IUnknown* EntryAt(const IRef<IArray>& list, std::uint32_t index) {
    return list.IsValid() && index < list->GetCount() ? list->GetAt(index) : nullptr;
}

// False without memory, and if the list doesn't accept the object.
bool Append(IUnknown* object, const IRef<IArray>& list) try {
    const std::uint32_t index = list->GetCount();
    list->Add(object);
    return list->GetAt(index) != nullptr;
} catch (const std::bad_alloc&) {
    return false;
}

}  // namespace

bool IntersectionResults::Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) {
    const IRef<ILineIntersectionParameters> onFirst(first);
    const IRef<ILineIntersectionParameters> onSecond(second);
    if (!HasLists() || !onFirst.IsValid() || !onSecond.IsValid()) return false;
    const std::uint32_t firstIndex = firstList_->GetCount();
    const std::uint32_t secondIndex = secondList_->GetCount();
    if (Append(onFirst.Get(), firstList_) && Append(onSecond.Get(), secondList_)) return true;
    // A pair that can't be completed is taken back.
    firstList_->RemoveAt(firstIndex);
    secondList_->RemoveAt(secondIndex);
    return false;
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
