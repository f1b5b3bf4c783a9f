// How a class becomes an object: the three operations of IUnknown, for this library and for hosts that
// implement an interface of their own.
//
// A class derives from its interfaces, lists them in a FaceList called `Faces` with the primary one first,
// holds its data and has a protected destructor. CountedObject<Class> is the object: it answers queries from
// that list and has the count as its last member. So no class implements queries itself, and none can be
// created without a count.
//
//     class Sink : public IClassSink {
//       public:
//         using Faces = FaceList<IUnknown>;
//         void OnClass(ITypeInfoDesc* description) override;
//
//       protected:
//         ~Sink() = default;
//     };
//     IRef<IUnknown> sink(NewObject<Sink>());
//
// The count is atomic, so several threads may hold one object: the one that releases last deletes it and
// sees all that the others did before. Nothing protects the data of a class.
#pragma once

#include <atomic>
#include <cstdint>
#include <new>
#include <utility>

#include "tessara/internal/object_census.h"
#include "tessara/unknown.h"

namespace tessara {

template <class Primary, class... Others>
struct FaceList {
    using PrimaryFace = Primary;

    // The interface of `object` that answers `iid`, as an address of that interface, or null. IUnknown
    // always answers with the primary interface, which is the identity of the object.
    template <class Object>
    static void* Find(Object* object, const GUID& iid) {
        if (iid == IID_IUnknown || iid == IidOf<Primary>) return static_cast<Primary*>(object);
        void* face = nullptr;
        ((iid == IidOf<Others> ? void(face = static_cast<Others*>(object)) : void()), ...);
        return face;
    }
};

template <class Class>
ResultCode AnswerQuery(Class* object, const GUID* iid, void** out) {
    if (out == nullptr) return RESULT_FAIL;
    *out = iid != nullptr ? Class::Faces::Find(object, *iid) : nullptr;
    if (*out == nullptr) return RESULT_NO_INTERFACE;
    object->AddRef();
    return RESULT_OK;
}

template <class Class>
class CountedObject final : public Class, private CensusMember<Class> {
  public:
    using Class::Class;

    ResultCode QueryInterface(const GUID* iid, void** out) override { return AnswerQuery(this, iid, out); }

    std::uint32_t AddRef() override {
        return static_cast<std::uint32_t>(count_.fetch_add(1, std::memory_order_relaxed) + 1);
    }

    std::uint32_t Release() override {
        const std::int32_t count = count_.fetch_sub(1, std::memory_order_acq_rel) - 1;
        if (count == 0) delete this;
        return static_cast<std::uint32_t>(count);
    }

  private:
    // Only Release deletes an object; where an interface has a virtual destructor, this overrides it.
    ~CountedObject() = default;  // NOLINT(modernize-use-override): not everywhere is there one to override

    std::atomic<std::int32_t> count_{0};
};

// An object that lives as long as the program: it answers queries and isn't counted.
template <class Class>
class StaticObject final : public Class {
  public:
    using Class::Class;

    ResultCode QueryInterface(const GUID* iid, void** out) override { return AnswerQuery(this, iid, out); }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
};

// A new object with count 0, or null if memory runs out. Put it into a handle on the same line: an operation
// that gets an object of count 0 counts it to 1 and back, which deletes it.
template <class Class, class... Arguments>
[[nodiscard]] CountedObject<Class>* NewObject(Arguments&&... arguments) {
    try {
        return new CountedObject<Class>(std::forward<Arguments>(arguments)...);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

}  // namespace tessara
