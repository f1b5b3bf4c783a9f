// How a host's object manager creates objects: the component registers one factory for each class.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IClassFactory = ParseGuid("00000001-0000-0000-C000-000000000046");
inline constexpr GUID IID_ITypeInfoDesc = ParseGuid("F0C06911-B2E4-4953-8766-4A298A2514FA");
inline constexpr GUID IID_ITerminator = ParseGuid("BE5E3D60-D9C9-4003-AF90-9E8C98AFBA3A");

class IClassFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IClassFactory;

    // Asks an object of the class for `iid`: *out and the result are those of its QueryInterface. The
    // factory of a multi class creates an object with each call; that of a singleton gives the same one
    // until ITerminator ends it.
    //
    // On failure *out is null: RESULT_NO_AGGREGATION if `outer` isn't null, RESULT_OUT_OF_MEMORY if memory
    // runs out. RESULT_FAIL if `out` is null.
    virtual ResultCode CreateInstance(IUnknown* outer, const GUID* iid, void** out) = 0;
    // Has no effect and returns RESULT_FALSE.
    virtual ResultCode LockServer(std::int32_t lock) = 0;

  protected:
    ~IClassFactory() = default;
};

// A factory in the library's list of classes; only the library creates them. A host keeps the pointer that
// RegisterClass hands it: a query on a factory answers IUnknown, ITypeInfoDesc and ITerminator, and no id
// leads back to IClassFactory.
class MClassFactory : public IClassFactory {
  public:
    // No id leads here: the factory answers as plain IUnknown.
    static constexpr const GUID& Iid = IID_IUnknown;

    MClassFactory(const MClassFactory&) = delete;
    MClassFactory& operator=(const MClassFactory&) = delete;

    [[nodiscard]] const GUID* ClassId() const { return classId_; }
    [[nodiscard]] const char* ClassName() const { return className_; }
    [[nodiscard]] MClassFactory* Next() const { return next_; }

  protected:
    // For the library's own factories; not exported. Links the new factory in at the head of the class list.
    MClassFactory(const GUID* classId, const char* className);
    ~MClassFactory() = default;

  private:
    const GUID* classId_;
    const char* className_;
    MClassFactory* next_;
};

class ITypeInfoDesc : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITypeInfoDesc;

    // Both pointers point into the library and stay valid while it is loaded.
    virtual const GUID* GetClassId() = 0;
    virtual const char* GetClassName() = 0;

  protected:
    ~ITypeInfoDesc() = default;
};

class ITerminator : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITerminator;

    // Makes a singleton's factory release its object; the next CreateInstance creates a new one. Factories
    // of multi classes ignore it.
    virtual void Terminate() = 0;

  protected:
    ~ITerminator() = default;
};

}  // namespace tessara
