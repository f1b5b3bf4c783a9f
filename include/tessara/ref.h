// The counted handle in which all code holds objects.
//
// Example:
//
//     const tessara::IRef coord = tessara::CreateClassCoord();     // the count is 1
//     const tessara::IRef<tessara::ICoordInternal> record(coord);  // another interface, the count is 2
//     if (!record.IsValid()) return;
//     compare->CompareNorthSouth(coord, other);  // handles are passed directly
//
// An operation puts each interface argument into a handle and tests it. An empty handle stands for null and
// for an object that doesn't have the interface: "an object of another kind" in the headers. Both are
// ordinary failures.
//
// An object from a CreateClass function has the count 0. Put it into a handle on the same line: an operation
// that gets the bare pointer counts it to 1 and back to 0, and so deletes it.
//
// The count is atomic: handles of one object may be on different threads. A single handle is like a pointer,
// for one thread at a time.
#pragma once

#include <cassert>
#include <type_traits>
#include <utility>

#include "tessara/unknown.h"

namespace tessara {

namespace ObjectManagerUtils {

// The holder: a pointer that is null or owns one count.
template <const GUID& UnknownId, class I>
class COMCounterMT {
  public:
    constexpr COMCounterMT() = default;
    // Takes what a query gives only if it gives RESULT_OK.
    explicit COMCounterMT(IUnknown* object) {
        if (Query(object) != RESULT_OK) pointer_ = nullptr;
    }
    COMCounterMT(const COMCounterMT& other) : pointer_(other.pointer_) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    COMCounterMT(COMCounterMT&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    COMCounterMT& operator=(const COMCounterMT&) = delete;
    virtual ~COMCounterMT() { ReleasePointer(); }

  protected:
    // Fills an empty holder with what the object answers: null for a query that writes nothing.
    ResultCode Query(IUnknown* object) {
        if (object == nullptr) return RESULT_NO_INTERFACE;
        void* face = nullptr;
        const ResultCode result = object->QueryInterface(&IidOf<I>, &face);
        pointer_ = static_cast<I*>(face);
        return result;
    }

    void ReleasePointer() {
        // Emptied first: what the object does while it dies may come back to this handle.
        I* const last = std::exchange(pointer_, nullptr);
        if (last != nullptr) last->Release();
    }

    I* pointer_ = nullptr;
};

template <class I, class Holder>
class CPPRef : public Holder {
  public:
    constexpr CPPRef() = default;
    explicit CPPRef(IUnknown* object) : Holder(object) {}
    CPPRef(const CPPRef&) = default;
    CPPRef(CPPRef&&) noexcept = default;

    // Counts the new object before it gives up the old one; equal pointers change nothing.
    CPPRef& operator=(const CPPRef& other) {
        if (this->pointer_ == other.pointer_) return *this;
        if (other.pointer_ != nullptr) other.pointer_->AddRef();
        I* const last = std::exchange(this->pointer_, other.pointer_);
        if (last != nullptr) last->Release();
        return *this;
    }

    CPPRef& operator=(CPPRef&& other) noexcept {
        if (this == &other) return *this;
        I* const last = std::exchange(this->pointer_, std::exchange(other.pointer_, nullptr));
        if (last != nullptr) last->Release();
        return *this;
    }

    [[nodiscard]] bool IsValid() const { return this->pointer_ != nullptr; }
    // The raw pointer, no count taken.
    [[nodiscard]] I* Get() const { return this->pointer_; }
    // The same for arguments. A handle that ends with the expression gives no pointer away: it would dangle.
    operator I*() const& { return this->pointer_; }
    operator I*() const&& = delete;
    // An empty handle is the caller's mistake: debug builds stop at it, others don't test.
    I* operator->() const {
        assert(IsValid());
        return this->pointer_;
    }

    // Empties the handle and gives the address of its pointer, for a function that fills an I**.
    [[nodiscard]] I** ReleaseAndGetAddress() {
        this->ReleasePointer();
        return &this->pointer_;
    }
};

}  // namespace ObjectManagerUtils

template <class I, class Unknown = IUnknown>
class IRef : public ObjectManagerUtils::CPPRef<I, ObjectManagerUtils::COMCounterMT<IID_IUnknown, I>> {
    using Base = ObjectManagerUtils::CPPRef<I, ObjectManagerUtils::COMCounterMT<IID_IUnknown, I>>;

  public:
    constexpr IRef() = default;
    // Asks the object for I; empty if it is null or has none. The result code isn't looked at: a query that
    // fails writes null.
    IRef(Unknown* object) { this->Query(object); }
    // Asks the object behind another handle.
    template <class Other>
    explicit IRef(const IRef<Other, Unknown>& other) : IRef(other.Get()) {}
    // Asks an object manager (IObjectManager of component.h) for an object of a class; empty without a
    // manager, for a class that it doesn't know, and for one without I.
    template <class Manager>
    IRef(const GUID& classId, const IRef<Manager, Unknown>& manager) : IRef(classId, manager.Get()) {}
    template <class Manager>
    IRef(const GUID& classId, Manager* manager) {
        if (manager == nullptr) return;
        void* face = nullptr;
        manager->CreateInstance(&classId, &IidOf<I>, &face);
        this->pointer_ = static_cast<I*>(face);
    }
};

// `const IRef coord = CreateClassCoord();` holds an ICoord. A class that implements interfaces names the one
// it is held by: IRef<ITessaraString> text = NewObject<host::Text>();
template <class I>
requires std::is_abstract_v<I> IRef(I*)
->IRef<I>;

}  // namespace tessara
