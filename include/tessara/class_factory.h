// How a host's object manager makes objects: one factory a class, registered by the component.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

inline constexpr GUID IID_IClassFactory = ParseGuid("00000001-0000-0000-C000-000000000046");
inline constexpr GUID IID_ITypeInfoDesc = ParseGuid("F0C06911-B2E4-4953-8766-4A298A2514FA");
inline constexpr GUID IID_ITerminator = ParseGuid("BE5E3D60-D9C9-4003-AF90-9E8C98AFBA3A");

class IClassFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IClassFactory;

    // Writes null to *out first. A non-null `outer` gives RESULT_NO_AGGREGATION, missing memory
    // RESULT_OUT_OF_MEMORY, a null `out` RESULT_FAIL; otherwise what the object's QueryInterface answers. A
    // class is either multi (each call makes an object) or a singleton (all calls give the same one until it
    // is terminated).
    virtual ResultCode CreateInstance(IUnknown* outer, const GUID* iid, void** out) = 0;
    // Does nothing and gives RESULT_FALSE.
    virtual ResultCode LockServer(std::int32_t lock) = 0;

  protected:
    ~IClassFactory() = default;
};

// A class factory in the library's list of classes; the library alone makes them. A host keeps the pointer
// that RegisterClass hands it: a query on a factory answers IUnknown, ITypeInfoDesc and ITerminator, and no
// id leads back to IClassFactory.
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
    // For the library's own factories, and not exported: links the new one in at the head of the class list.
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

    // Both point into the library.
    virtual const GUID* GetClassId() = 0;
    virtual const char* GetClassName() = 0;

  protected:
    ~ITypeInfoDesc() = default;
};

class ITerminator : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITerminator;

    // A singleton's factory gives up its object; the next CreateInstance makes a new one.
    virtual void Terminate() = 0;

  protected:
    ~ITerminator() = default;
};

}  // namespace tessara
