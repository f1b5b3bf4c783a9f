#include "frame/array.h"

namespace tessara {

void Array::Add(IUnknown* object) {
    elements_.Append(IRef<IUnknown>(object));
}

void Array::RemoveAt(std::uint32_t index) {
    if (index >= elements_.Size()) return;
    // The element is released after the gap has closed, because its destructor may call this list.
    const IRef<IUnknown> removed = elements_.Extract(index);
}

std::uint32_t Array::GetCount() {
    return static_cast<std::uint32_t>(elements_.Size());
}

IUnknown* Array::GetAt(std::uint32_t index) {
    return index < elements_.Size() ? elements_[index].Get() : nullptr;
}

void Array::Clear() {
    // The elements are released after the list is empty, for the same reason.
    Sequence<IRef<IUnknown>> removed;
    removed.Swap(elements_);
}

IArray* CreateClassArray() {
    return NewObject<Array>();
}

}  // namespace tessara
