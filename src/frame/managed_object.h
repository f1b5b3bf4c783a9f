// The objects that some classes ask the host's object manager for.
#pragma once

#include <new>

#include "tessara/component.h"
#include "tessara/ref.h"

namespace tessara {

// The manager that the host handed over last; null without one.
[[nodiscard]] IObjectManager* HostObjectManager();

// An object of a class from the host's object manager, empty if the manager gives none. Without a manager it
// is what `create` makes, so that a host without one has every class.
template <class I>
[[nodiscard]] IRef<I> ManagedObject(const GUID& classId, I* (*create)()) {
    const IRef<IObjectManager> manager(HostObjectManager());
    return manager.IsValid() ? IRef<I>(classId, manager.Get()) : IRef<I>(create());
}

// The same as a part of an object in the making. Missing memory for one of the library's own throws
// std::bad_alloc, which ends the object; what a manager doesn't give stays empty.
template <class I>
[[nodiscard]] IRef<I> ManagedPart(const GUID& classId, I* (*create)()) {
    IRef<I> part = ManagedObject(classId, create);
    if (!part.IsValid() && HostObjectManager() == nullptr) throw std::bad_alloc();
    return part;
}

}  // namespace tessara
