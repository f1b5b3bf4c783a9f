// The component, the factories, and the small objects that every part uses.
#pragma once

#include "abi/contract/root.h"

namespace contract {

class IClassFactory : public IUnknown {
  public:
    virtual int32_t CreateInstance(IUnknown* outer, const Guid* id, void** out) = 0;
    virtual int32_t LockServer(int32_t lock) = 0;

  protected:
    ~IClassFactory() = default;
};

class MClassFactory : public IClassFactory {
  public:
    const Guid* classId;
    const char* className;
    MClassFactory* next;

  protected:
    ~MClassFactory() = default;
};

class ITypeInfoDesc : public IUnknown {
  public:
    static constexpr Guid ID = Id("F0C06911-B2E4-4953-8766-4A298A2514FA");
    virtual const Guid* GetClassId() = 0;
    virtual const char* GetClassName() = 0;

  protected:
    ~ITypeInfoDesc() = default;
};

class ITerminator : public IUnknown {
  public:
    static constexpr Guid ID = Id("BE5E3D60-D9C9-4003-AF90-9E8C98AFBA3A");
    virtual void Terminate() = 0;

  protected:
    ~ITerminator() = default;
};

class IObjectManager : public IUnknown {
  public:
    static constexpr Guid ID = Id("11815BAA-8A3A-4D45-9639-46E784AEC270");
    virtual void Place3() = 0;
    virtual int32_t RegisterClass(const Guid* classId, MClassFactory* factory) = 0;
    virtual int32_t UnregisterClass(const Guid* classId) = 0;
    virtual int32_t CreateInstance(const Guid* classId, const Guid* id, void** out) = 0;

  protected:
    ~IObjectManager() = default;
};

// The class id by which the library asks a host for a list.
constexpr Guid HOST_ARRAY = Id("F952C76B-DD15-4938-BA49-872AE81AB89D");

class IClassSink : public IUnknown {
  public:
    virtual int32_t OnClass(ITypeInfoDesc* description) = 0;

  protected:
    ~IClassSink() = default;
};

class ITessaraComponent : public IUnknown {
  public:
    static constexpr Guid ID = Id("47D38CE0-BD40-4117-A738-7C3FBC8C3E4A");
    virtual ~ITessaraComponent() = default;
    virtual bool Initialize() = 0;
    virtual bool Terminate() = 0;
    virtual bool EnumerateClasses(IClassSink* sink) = 0;
    virtual bool QueryFlag() = 0;
};

class ITessaraComponentInit : public IUnknown {
  public:
    static constexpr Guid ID = Id("EC32B33F-4EC0-490B-93FB-39C25FF24F84");
    virtual ~ITessaraComponentInit() = default;
    virtual int32_t InitParameterA(void* parameter) = 0;
    virtual int32_t InitParameterB(void* parameter) = 0;
};

class IArray : public IUnknown {
  public:
    static constexpr Guid ID = Id("71562280-B94E-40E4-8A40-0AC853189111");
    virtual void Add(IUnknown* object) = 0;
    virtual void RemoveAt(uint32_t index) = 0;
    virtual uint32_t GetCount() = 0;
    virtual IUnknown* GetAt(uint32_t index) = 0;
    virtual void Clear() = 0;

  protected:
    ~IArray() = default;
};

class IFloatPoint : public IUnknown {
  public:
    static constexpr Guid ID = Id("5FC9D1D6-3A2C-47F0-AE34-8C65C59406AB");
    virtual void SetX(double x) = 0;
    virtual void SetY(double y) = 0;
    virtual void SetZ(double z) = 0;
    virtual double GetX() = 0;
    virtual double GetY() = 0;
    virtual double GetZ() = 0;

  protected:
    ~IFloatPoint() = default;
};

class ITessaraString : public IUnknown {
  public:
    static constexpr Guid ID = Id("FB8A0FB3-57DA-4B19-BAF4-C2AD58AC3B73");
    virtual ~ITessaraString() = default;
    virtual bool Assign(IUnknown* text) = 0;
    virtual void AssignText(const char* text) = 0;
    virtual const char* GetText() = 0;
    virtual int32_t GetLength() = 0;
    virtual bool IsEmpty() = 0;
    virtual int32_t CompareText(const char* text) = 0;
    virtual int32_t Compare(IUnknown* text) = 0;
    virtual int32_t CompareTextNoCase(const char* text) = 0;
    virtual int32_t CompareNoCase(IUnknown* text) = 0;
    virtual void Clear() = 0;
};

// A rectangle of the host: the library reads operations 8 to 11.
class IRect : public IUnknown {
  public:
    static constexpr Guid ID = Id("BE741B91-24DD-44F0-AA80-6B652E6E48BD");
    virtual void Place3() = 0;
    virtual void Place4() = 0;
    virtual void Place5() = 0;
    virtual void Place6() = 0;
    virtual void Place7() = 0;
    virtual int32_t GetTop() = 0;
    virtual int32_t GetLeft() = 0;
    virtual int32_t GetBottom() = 0;
    virtual int32_t GetRight() = 0;

  protected:
    ~IRect() = default;
};

}  // namespace contract
