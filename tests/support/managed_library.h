// The library with a host's object manager, from which some classes get their parts.
#pragma once

#include "tessara/array.h"
#include "tessara/component.h"
#include "tessara/host/object_manager.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara::testing {

// While it lives, the library has a manager; the default one makes every class of the class table.
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

  private:
    IRef<IObjectManager> manager_;
    ITessaraComponent* component_ = nullptr;
};

}  // namespace tessara::testing
