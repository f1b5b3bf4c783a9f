// The factory of a class, with its two policies: a new object for each creation, or one object for all.
#pragma once

#include "tessara/class_factory.h"
#include "tessara/object.h"

namespace tessara {

// Each creation makes a new object.
template <class T>
class COMMultiAllocPolicy {
  protected:
    static IUnknown* Allocate() { return static_cast<typename T::Faces::PrimaryFace*>(NewObject<T>()); }
    static void GiveUp() {}
};

// All creations return one object, which the factory keeps alive with a count of its own.
template <class T>
class COMSingletonAllocPolicy {
  public:
    COMSingletonAllocPolicy() = default;
    COMSingletonAllocPolicy(const COMSingletonAllocPolicy&) = delete;
    COMSingletonAllocPolicy& operator=(const COMSingletonAllocPolicy&) = delete;

  protected:
    ~COMSingletonAllocPolicy() { GiveUp(); }

    IUnknown* Allocate() {
        if (instance_ == nullptr) {
            instance_ = NewObject<T>();
            if (instance_ != nullptr) instance_->AddRef();
        }
        return instance_ != nullptr ? static_cast<typename T::Faces::PrimaryFace*>(instance_) : nullptr;
    }

    void GiveUp() {
        if (instance_ != nullptr) instance_->Release();
        instance_ = nullptr;
    }

  private:
    CountedObject<T>* instance_ = nullptr;
};

template <class AllocPolicy>
class COMCreatePolicy : public AllocPolicy {
  protected:
    ResultCode Create(const GUID* iid, void** out) {
        IUnknown* const object = this->Allocate();
        if (object == nullptr) return RESULT_OUT_OF_MEMORY;
        // Counted during the query, so that a new object is deleted if the query fails.
        object->AddRef();
        const ResultCode result = object->QueryInterface(iid, out);
        object->Release();
        return result;
    }
};

template <class T, class Policy>
class COMClassFactory : public MClassFactory, public ITypeInfoDesc, public ITerminator, public Policy {
  public:
    using Faces = FaceList<MClassFactory, ITypeInfoDesc, ITerminator>;

    COMClassFactory(const GUID* classId, const char* className) : MClassFactory(classId, className) {}
    virtual ~COMClassFactory() = default;

    ResultCode CreateInstance(IUnknown* outer, const GUID* iid, void** out) override {
        if (out == nullptr) return RESULT_FAIL;
        *out = nullptr;
        if (outer != nullptr) return RESULT_NO_AGGREGATION;
        return this->Create(iid, out);
    }

    ResultCode LockServer(std::int32_t) override { return RESULT_FALSE; }

    const GUID* GetClassId() override { return ClassId(); }
    const char* GetClassName() override { return ClassName(); }

    void Terminate() override { this->GiveUp(); }
};

// The head of the class list: the factory constructed last.
[[nodiscard]] MClassFactory* FirstClassFactory();

template <class T>
using MultiFactory = StaticObject<COMClassFactory<T, COMCreatePolicy<COMMultiAllocPolicy<T>>>>;

template <class T>
using SingletonFactory = StaticObject<COMClassFactory<T, COMCreatePolicy<COMSingletonAllocPolicy<T>>>>;

}  // namespace tessara
