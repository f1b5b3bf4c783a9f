#include "tessara/component.h"

#include "frame/class_factory.h"
#include "frame/managed_object.h"
#include "tessara/object.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// The manager that every creation by class id goes through.
constinit IRef<IObjectManager> g_objectManager;
// Set together with the first manager and never read. It keeps the host's manager alive until the library is
// unloaded.
constinit IRef<IObjectManager> g_objectManagerKeeper;

class CTessaraComponent : public ITessaraComponent, public ITessaraComponentInit {
  public:
    using Faces = FaceList<ITessaraComponent, ITessaraComponentInit>;

    bool Initialize() override;
    bool Terminate() override;
    bool EnumerateClasses(IClassSink* sink) override;
    bool QueryFlag() override { return false; }

    virtual void OnInitialize() {}
    virtual void OnTerminate() {}
    virtual std::int32_t OnParameterA(void*) { return 0; }
    virtual std::int32_t OnParameterB(void*) { return 0; }

    std::int32_t InitParameterA(void* parameter) override { return OnParameterA(parameter); }
    std::int32_t InitParameterB(void* parameter) override { return OnParameterB(parameter); }
};

StaticObject<CTessaraComponent> g_component;

bool CTessaraComponent::Initialize() {
    const IRef<IObjectManager> manager(g_objectManager.Get());
    if (manager.IsValid()) {
        for (MClassFactory* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next()) {
            manager->RegisterClass(factory->ClassId(), factory);
        }
    }
    OnInitialize();
    return true;
}

bool CTessaraComponent::Terminate() {
    OnTerminate();
    {
        const IRef<IObjectManager> manager(g_objectManager.Get());
        if (manager.IsValid()) {
            for (const MClassFactory* factory = FirstClassFactory(); factory != nullptr;
                 factory = factory->Next()) {
                manager->UnregisterClass(factory->ClassId());
            }
        }
    }
    for (MClassFactory* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next()) {
        const IRef<ITerminator> terminator(factory);
        if (terminator.IsValid()) terminator->Terminate();
    }
    g_objectManager = IRef<IObjectManager>();
    return true;
}

bool CTessaraComponent::EnumerateClasses(IClassSink* sink) {
    if (sink == nullptr) return true;
    for (MClassFactory* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next()) {
        const IRef<ITypeInfoDesc> description(factory);
        if (description.IsValid()) sink->OnClass(description.Get());
    }
    return true;
}

}  // namespace

IObjectManager* HostObjectManager() {
    return g_objectManager.Get();
}

ResultCode GetTessaraComponent(IUnknown* objectManager, ITessaraComponent** out) {
    g_objectManager = IRef<IObjectManager>(objectManager);
    g_objectManagerKeeper = IRef<IObjectManager>(objectManager);
    if (out == nullptr) return RESULT_FAIL;
    void* component = nullptr;
    const ResultCode result = g_component.QueryInterface(&IID_ITessaraComponent, &component);
    *out = static_cast<ITessaraComponent*>(component);
    return result;
}

}  // namespace tessara
