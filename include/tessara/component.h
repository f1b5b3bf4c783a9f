// The front door for hosts with an object manager:
//
//     ITessaraComponent* component = nullptr;
//     GetTessaraComponent(manager, &component);
//     component->Initialize();                 // registers every class
//     const IRef<ICoord> coord(CLSID_Coord, manager);
//     component->Terminate();                  // unregisters them and ends the singletons
//
// The library keeps a second reference on the manager until it is unloaded. A host whose manager ends earlier
// calls GetTessaraComponent(nullptr, &component) once more, which replaces both references by empty ones.
//
// Initialize, Terminate and the first creation of a singleton are calls for one thread at a time.
#pragma once

#include "tessara/class_factory.h"
#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IObjectManager = ParseGuid("11815BAA-8A3A-4D45-9639-46E784AEC270");
inline constexpr GUID IID_ITessaraComponent = ParseGuid("47D38CE0-BD40-4117-A738-7C3FBC8C3E4A");
inline constexpr GUID IID_ITessaraComponentInit = ParseGuid("EC32B33F-4EC0-490B-93FB-39C25FF24F84");

// The class id by which the library asks the host's manager for an IArray. It is the host's to resolve.
inline constexpr GUID CLSID_HostArray = ParseGuid("F952C76B-DD15-4938-BA49-872AE81AB89D");

// The host's object manager. The library ignores the results; of CreateInstance it reads the out pointer.
// tessara/host/object_manager.h has an implementation.
class IObjectManager : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IObjectManager;

    // The host's own operation; the library never calls it.
    virtual void Reserved3() {}

    virtual ResultCode RegisterClass(const GUID* classId, MClassFactory* factory) = 0;
    virtual ResultCode UnregisterClass(const GUID* classId) = 0;
    virtual ResultCode CreateInstance(const GUID* classId, const GUID* iid, void** out) = 0;

  protected:
    ~IObjectManager() = default;
};

// Receives the classes of EnumerateClasses. Only its fourth operation is called; the result is ignored.
class IClassSink : public IUnknown {
  public:
    virtual void OnClass(ITypeInfoDesc* description) = 0;

  protected:
    ~IClassSink() = default;
};

// The component is static: AddRef always gives 2 and Release 1.
class ITessaraComponent : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraComponent;

    virtual ~ITessaraComponent() = default;
    // Registers the factories with the object manager, the last class of the class table first. Always true;
    // without an object manager nothing is registered.
    virtual bool Initialize() = 0;
    // Unregisters all classes, then terminates all factories, then gives up the first of the two references
    // on the object manager. Always true.
    virtual bool Terminate() = 0;
    // Calls the sink once a class, in the order of Initialize. Always true; null is no sink.
    virtual bool EnumerateClasses(IClassSink* sink) = 0;
    // Always false.
    virtual bool QueryFlag() = 0;
};

// Both operations ignore the argument and give 0.
class ITessaraComponentInit : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraComponentInit;

    virtual ~ITessaraComponentInit() = default;
    virtual std::int32_t InitParameterA(void* parameter) = 0;
    virtual std::int32_t InitParameterB(void* parameter) = 0;
};

// Takes the host's object manager (null, or an object without IObjectManager, leaves the library without one)
// and writes the component to *out. RESULT_OK, or RESULT_FAIL for a null `out`.
extern "C" TESSARA_API ResultCode GetTessaraComponent(IUnknown* objectManager, ITessaraComponent** out);

}  // namespace tessara
