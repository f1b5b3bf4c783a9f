// The library with a host's object manager, which creates the parts of some classes.
#pragma once

#include <functional>
#include <utility>

#include "tessara/array.h"
#include "tessara/component.h"
#include "tessara/host/object_manager.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

// A manager that accepts every class and returns no object.
class EmptyHandedManager : public host::ObjectManager {
  public:
    ResultCode CreateInstance(const GUID*, const GUID*, void** out) override {
        *out = nullptr;
        return RESULT_FAIL;
    }

  protected:
    ~EmptyHandedManager() = default;
};

[[nodiscard]] inline IRef<IObjectManager> MakeEmptyHandedManager() {
    return IRef<IObjectManager>(NewObject<EmptyHandedManager>());
}

// A manager with objects of the host's own for one class; an empty handle stands for none.
class SubstitutingManager : public host::ObjectManager {
  public:
    using Make = std::function<IRef<IUnknown>()>;

    SubstitutingManager(const GUID& classId, Make make)
        : host::ObjectManager(CreateClassArray), classId_(classId), make_(std::move(make)) {}

    ResultCode CreateInstance(const GUID* classId, const GUID* iid, void** out) override {
        if (*classId != classId_) return host::ObjectManager::CreateInstance(classId, iid, out);
        *out = nullptr;
        const IRef<IUnknown> made = make_();
        return made.IsValid() ? made->QueryInterface(iid, out) : RESULT_FAIL;
    }

  protected:
    ~SubstitutingManager() = default;

  private:
    GUID classId_;
    Make make_;
};

[[nodiscard]] inline IRef<IObjectManager> Substituting(const GUID& classId, SubstitutingManager::Make make) {
    return IRef<IObjectManager>(NewObject<SubstitutingManager>(classId, std::move(make)));
}

// Gives the library a manager; the default one creates every class of the class table.
class ManagedLibrary {
  public:
    ManagedLibrary()
        : ManagedLibrary(IRef<IObjectManager>(NewObject<host::ObjectManager>(CreateClassArray))) {}
    explicit ManagedLibrary(const IRef<IObjectManager>& manager) : manager_(manager) {
        GetTessaraComponent(manager_.Get(), &component_);
        component_->Initialize();
    }
    ~ManagedLibrary() {
        component_->Terminate();
        GetTessaraComponent(nullptr, &component_);
    }
    ManagedLibrary(const ManagedLibrary&) = delete;
    ManagedLibrary& operator=(const ManagedLibrary&) = delete;

    // A new object of a class, or the object of a singleton.
    template <class I>
    [[nodiscard]] IRef<I> Make(const GUID& classId) const {
        return IRef<I>(classId, manager_.Get());
    }

  private:
    IRef<IObjectManager> manager_;
    ITessaraComponent* component_ = nullptr;
};

}  // namespace tessara::testing
