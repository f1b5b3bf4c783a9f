// The entry point for hosts with an object manager. Hosts without one call the CreateClass functions and
// don't need this header.
//
// Example: a host with the ready-made object manager.
//
//     const tessara::IRef<tessara::IObjectManager> manager(
//         tessara::NewObject<tessara::host::ObjectManager>(tessara::CreateClassArray));
//     tessara::ITessaraComponent* component = nullptr;
//     tessara::GetTessaraComponent(manager, &component);
//     component->Initialize();  // registers every class
//     const tessara::IRef<tessara::ICoord> coord(tessara::CLSID_Coord, manager);
//     component->Terminate();                             // unregisters them and ends the singletons
//     tessara::GetTessaraComponent(nullptr, &component);  // drops the manager
//
// The library keeps a second reference to the manager after Terminate and until it is unloaded. The last
// call drops both references; a host needs it if its manager ends earlier than the library.
//
// The library takes no locks, so a host must not run Initialize and Terminate on two threads at once, nor
// create the first object of a singleton class on two.
#pragma once

#include "tessara/class_factory.h"
#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IObjectManager = ParseGuid("11815BAA-8A3A-4D45-9639-46E784AEC270");
inline constexpr GUID IID_ITessaraComponent = ParseGuid("47D38CE0-BD40-4117-A738-7C3FBC8C3E4A");
inline constexpr GUID IID_ITessaraComponentInit = ParseGuid("EC32B33F-4EC0-490B-93FB-39C25FF24F84");

// The class id under which the library requests an IArray from the host's manager. The host has to resolve
// it; host::ObjectManager does.
inline constexpr GUID CLSID_HostArray = ParseGuid("F952C76B-DD15-4938-BA49-872AE81AB89D");

// The host's object manager. Of CreateInstance the library reads the out pointer; it ignores all result
// codes. tessara/host/object_manager.h has an implementation.
class IObjectManager : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IObjectManager;

    // An operation of the host, which the library never calls.
    virtual void Reserved3() {}

    virtual ResultCode RegisterClass(const GUID* classId, MClassFactory* factory) = 0;
    virtual ResultCode UnregisterClass(const GUID* classId) = 0;
    virtual ResultCode CreateInstance(const GUID* classId, const GUID* iid, void** out) = 0;

  protected:
    ~IObjectManager() = default;
};

// Receives the classes from EnumerateClasses, which calls OnClass only and ignores the result.
class IClassSink : public IUnknown {
  public:
    virtual void OnClass(ITypeInfoDesc* description) = 0;

  protected:
    ~IClassSink() = default;
};

// The component is a static object: AddRef always returns 2 and Release 1.
class ITessaraComponent : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraComponent;

    virtual ~ITessaraComponent() = default;
    // Registers the factories with the object manager, from the last class of the class table to the first.
    // Always true; without an object manager it registers nothing.
    virtual bool Initialize() = 0;
    // Unregisters all classes, then terminates all factories, then drops the first of the two references to
    // the object manager. Always true.
    virtual bool Terminate() = 0;
    // Calls the sink once for each class, in the order of Initialize. Always true, also for a null sink.
    virtual bool EnumerateClasses(IClassSink* sink) = 0;
    // Always false.
    virtual bool QueryFlag() = 0;
};

// Both operations ignore the argument and return 0.
class ITessaraComponentInit : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITessaraComponentInit;

    virtual ~ITessaraComponentInit() = default;
    virtual std::int32_t InitParameterA(void* parameter) = 0;
    virtual std::int32_t InitParameterB(void* parameter) = 0;
};

// Takes the host's object manager and writes the component to *out. Null, or an object without
// IObjectManager, leaves the library without a manager. RESULT_OK, or RESULT_FAIL if `out` is null.
extern "C" TESSARA_API ResultCode GetTessaraComponent(IUnknown* objectManager, ITessaraComponent** out);

}  // namespace tessara
