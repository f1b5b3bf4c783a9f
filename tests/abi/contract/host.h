// What a host brings along: the loaded library, handles, a text, a rectangle and an object manager.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "abi/contract/frame.h"
#include "support/live_objects.h"
#include "support/shared_library.h"

namespace contract {

// Holds one count of an object.
template <class I>
class Held {
  public:
    Held() = default;
    // An object as a creation function gives it, with count 0.
    explicit Held(I* fresh) : pointer_(fresh) {
        if (pointer_ != nullptr) pointer_->AddRef();
    }
    Held(Held&& other) noexcept : pointer_(std::exchange(other.pointer_, nullptr)) {}
    Held& operator=(Held&& other) noexcept {
        std::swap(pointer_, other.pointer_);
        return *this;
    }
    ~Held() {
        if (pointer_ != nullptr) pointer_->Release();
    }

    [[nodiscard]] I* Get() const { return pointer_; }
    I* operator->() const { return pointer_; }
    operator I*() const { return pointer_; }  // NOLINT(google-explicit-constructor): arguments are pointers

  private:
    I* pointer_ = nullptr;
};

// Another interface of an object; empty if the object doesn't have it.
template <class I>
[[nodiscard]] Held<I> As(IUnknown* object) {
    void* face = nullptr;
    if (object != nullptr) object->QueryInterface(&I::ID, &face);
    Held<I> held(static_cast<I*>(face));
    if (face != nullptr) static_cast<I*>(face)->Release();
    return held;
}

template <class I>
class HostObject final : public I {
  public:
    template <class... Arguments>
    explicit HostObject(Arguments&&... arguments) : I(std::forward<Arguments>(arguments)...) {}

    int32_t QueryInterface(const Guid* id, void** out) override {
        const bool isKnown = *id == IUnknown::ID || *id == I::ID;
        *out = isKnown ? this : nullptr;
        if (isKnown) ++count_;
        return isKnown ? OK : NO_INTERFACE;
    }
    uint32_t AddRef() override { return ++count_; }
    uint32_t Release() override {
        const uint32_t count = --count_;
        if (count == 0) delete this;
        return count;
    }

  private:
    uint32_t count_ = 0;
};

class TextBody : public ITessaraString {
  public:
    explicit TextBody(const char* text = "") : text_(text) {}
    // The library calls only these four operations of a host's text.
    void AssignText(const char* text) override { text_ = text == nullptr ? "" : text; }
    const char* GetText() override { return text_.c_str(); }
    int32_t GetLength() override { return static_cast<int32_t>(text_.size()); }
    void Clear() override { text_.clear(); }

    bool IsEmpty() override { return text_.empty(); }
    bool Assign(IUnknown*) override { return false; }
    int32_t CompareText(const char*) override { return INT32_MIN; }
    int32_t Compare(IUnknown*) override { return INT32_MIN; }
    int32_t CompareTextNoCase(const char*) override { return INT32_MIN; }
    int32_t CompareNoCase(IUnknown*) override { return INT32_MIN; }

  private:
    std::string text_;
};

class RectBody : public IRect {
  public:
    RectBody(int32_t left, int32_t top, int32_t right, int32_t bottom)
        : left_(left), top_(top), right_(right), bottom_(bottom) {}
    void Place3() override {}
    void Place4() override {}
    void Place5() override {}
    void Place6() override {}
    void Place7() override {}
    int32_t GetTop() override { return top_; }
    int32_t GetLeft() override { return left_; }
    int32_t GetBottom() override { return bottom_; }
    int32_t GetRight() override { return right_; }

  protected:
    ~RectBody() = default;

  private:
    int32_t left_, top_, right_, bottom_;
};

using Text = HostObject<TextBody>;
using Rect = HostObject<RectBody>;

[[nodiscard]] inline Held<ITessaraString> NewText(const char* text = "") {
    return Held<ITessaraString>(new Text(text));
}

[[nodiscard]] inline Held<IRect> NewRect(int32_t left, int32_t top, int32_t right, int32_t bottom) {
    return Held<IRect>(new Rect(left, top, right, bottom));
}

class Library : public tessara::testing::SharedLibrary {
  public:
    Library() : SharedLibrary(TESSARA_LIBRARY) {}

    // Make<ICoord>("Coord")
    template <class I>
    [[nodiscard]] Held<I> Make(const std::string& className) const {
        return Held<I>(Find<I*()>("CreateClass" + className)());
    }
};

// Keeps the factories that the component registers, and makes objects by them.
class ManagerBody : public IObjectManager {
  public:
    struct Registration {
        Guid id;
        MClassFactory* factory;
    };

    explicit ManagerBody(const Library& library)
        : createArray_(library.Find<IArray*()>("CreateClassArray")) {}

    void Place3() override { ADD_FAILURE() << "the host's own operation"; }
    int32_t RegisterClass(const Guid* classId, MClassFactory* factory) override {
        registered.push_back({*classId, factory});
        return OK;
    }
    int32_t UnregisterClass(const Guid* classId) override {
        unregistered.push_back(*classId);
        return OK;
    }
    int32_t CreateInstance(const Guid* classId, const Guid* id, void** out) override {
        *out = nullptr;
        if (*classId == HOST_ARRAY) return Held<IArray>(createArray_())->QueryInterface(id, out);
        MClassFactory* const factory = FactoryOf(*classId);
        return factory != nullptr ? factory->CreateInstance(nullptr, id, out) : FAIL;
    }

    [[nodiscard]] MClassFactory* FactoryOf(const Guid& classId) const {
        for (const Registration& row : registered) {
            if (row.id == classId) return row.factory;
        }
        return nullptr;
    }

    std::vector<Registration> registered;
    std::vector<Guid> unregistered;

  protected:
    ~ManagerBody() = default;

  private:
    IArray* (*createArray_)();
};

// A test in the life of the library, which has the host's manager and has registered its classes with it.
class ContractHost : public tessara::testing::BalancedTest {
  protected:
    ContractHost() : kit(new HostObject<ManagerBody>(library)), manager(kit) {
        const auto getComponent =
            library.Find<int32_t(IUnknown*, ITessaraComponent**)>("GetTessaraComponent");
        EXPECT_EQ(getComponent(manager, &component), OK);
        EXPECT_TRUE(component->Initialize());
    }
    ~ContractHost() override {
        component->Terminate();
        library.Find<int32_t(IUnknown*, ITessaraComponent**)>("GetTessaraComponent")(nullptr, &component);
    }

    template <class I>
    [[nodiscard]] Held<I> Make(const std::string& className) const {
        return library.Make<I>(className);
    }

    // Classes without a creation function come from the manager.
    template <class I>
    [[nodiscard]] Held<I> MakeByClassId(const Guid& classId) const {
        void* face = nullptr;
        EXPECT_EQ(kit->CreateInstance(&classId, &I::ID, &face), OK);
        Held<I> held(static_cast<I*>(face));
        if (face != nullptr) held->Release();
        return held;
    }

    Library library;
    HostObject<ManagerBody>* kit;
    Held<IObjectManager> manager;
    ITessaraComponent* component = nullptr;
};

}  // namespace contract
