// Helper objects that some classes take from the host's object manager.
#pragma once

#include <new>

#include "tessara/component.h"
#include "tessara/ref.h"

namespace tessara {

// The object manager that the host passed last; null if there is none.
[[nodiscard]] IObjectManager* HostObjectManager();

// A helper object: from the host's object manager, empty if that gives none; without a manager the result of
// `create`. So hosts without a manager can use every class.
template <class I>
[[nodiscard]] IRef<I> ManagedObject(const GUID& classId, I* (*create)()) {
    const IRef<IObjectManager> manager(HostObjectManager());
    return manager.IsValid() ? IRef<I>(classId, manager.Get()) : IRef<I>(create());
}

// The same, for a part of an object under construction. If the library runs out of memory for its own part,
// the constructor throws std::bad_alloc. A part that a manager doesn't give stays empty.
template <class I>
[[nodiscard]] IRef<I> ManagedPart(const GUID& classId, I* (*create)()) {
    IRef<I> part = ManagedObject(classId, create);
    if (!part.IsValid() && HostObjectManager() == nullptr) throw std::bad_alloc();
    return part;
}

}  // namespace tessara
