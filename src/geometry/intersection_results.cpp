#include "geometry/intersection_results.h"

#include <exception>

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
} catch (const std::exception&) {
    return false;
}

// The next entry of two lists. It is taken back unless it is kept, also if an object of the host throws.
class ListPair {
  public:
    ListPair(const IRef<IArray>& first, const IRef<IArray>& second)
        : first_(first), second_(second), firstIndex_(first->GetCount()), secondIndex_(second->GetCount()) {}
    ListPair(const ListPair&) = delete;
    ListPair& operator=(const ListPair&) = delete;
    ~ListPair() {
        if (isKept_) return;
        first_->RemoveAt(firstIndex_);
        second_->RemoveAt(secondIndex_);
    }

    void Keep() { isKept_ = true; }

  private:
    const IRef<IArray>& first_;
    const IRef<IArray>& second_;
    std::uint32_t firstIndex_;
    std::uint32_t secondIndex_;
    bool isKept_ = false;
};

}  // namespace

bool IntersectionResults::Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) {
    const IRef<ILineIntersectionParameters> onFirst(first);
    const IRef<ILineIntersectionParameters> onSecond(second);
    if (!HasLists() || !onFirst.IsValid() || !onSecond.IsValid()) return false;
    ListPair pair(firstList_, secondList_);
    if (!Append(onFirst.Get(), firstList_) || !Append(onSecond.Get(), secondList_)) return false;
    pair.Keep();
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
