// Calls any operation of any interface with arguments drawn from bytes: its own objects or those of another
// class, the same one twice, null, and objects of a host that answer no query.
#pragma once

#include <cstddef>
#include <new>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "fuzz/draw.h"
#include "support/live_objects.h"
#include "tessara/euclidean_vector.h"
#include "tessara/tessara_string.h"
#include "tessara/vector.h"

namespace tessara::fuzz {

// An object of a host that counts its references.
class CountingHost : public IUnknown {
  public:
    std::uint32_t AddRef() final { return ++count_; }
    std::uint32_t Release() final { return --count_; }

    // Whether only its owner has a reference.
    [[nodiscard]] bool IsReleased() const { return count_ == 1; }

  protected:
    ~CountingHost() = default;

  private:
    std::uint32_t count_ = 1;
};

// Claims to have an interface but writes none.
class SilentHost final : public CountingHost {
  public:
    ResultCode QueryInterface(const GUID*, void**) override { return RESULT_OK; }
};

// Has no interface at all, not even IUnknown.
class RefusingHost final : public CountingHost {
  public:
    ResultCode QueryInterface(const GUID*, void** out) override {
        if (out != nullptr) *out = nullptr;
        return RESULT_NO_INTERFACE;
    }
};

// The objects and arguments for the operations of one input. No object leaves the stage, so that it controls
// their reference counts.
class Stage {
  public:
    explicit Stage(ByteReader& bytes) : bytes_(bytes) { objects_.reserve(MOST_OBJECTS); }
    ~Stage();
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    [[nodiscard]] ByteReader& Bytes() { return bytes_; }

    void Add(const IRef<IUnknown>& object) {
        if (object.IsValid() && objects_.size() < MOST_OBJECTS) objects_.push_back(object);
    }

    // An argument of a host's own class, whose operations only the library calls.
    void AddHost(const IRef<IUnknown>& object) { hosts_.push_back(object); }

    template <class I>
    [[nodiscard]] IRef<I> Object() {
        return OneWith<I>(objects_);
    }

    // Rarely an object of another class, or of a host. The stage holds a reference to each.
    template <class I>
    [[nodiscard]] I* Argument() {
        switch (bytes_.Below(16)) {
            case 0:
                return nullptr;
            case 1:
                return reinterpret_cast<I*>(static_cast<IUnknown*>(&silent_));
            case 2:
                return reinterpret_cast<I*>(static_cast<IUnknown*>(&refusing_));
            case 3:
                return reinterpret_cast<I*>(objects_[bytes_.Below(256) % objects_.size()].Get());
            case 4:
                return OneWith<I>(hosts_).Get();
            case 5:
                return IRef<I>(last_).Get();
            default:
                return Object<I>().Get();
        }
    }

    // Which allocation of a call fails; mostly none.
    [[nodiscard]] int FailingAllocation() {
        return bytes_.Below(4) == 0 ? 1 + static_cast<int>(bytes_.Below(32)) : 0;
    }

    // The object of the call, or the argument before, so that the next argument can be the same one.
    void SetLast(const IRef<IUnknown>& object) { last_ = object; }

    // Empties long lists: the intersections of two lines may be a line of the next call, which has as many as
    // the product of the numbers of points.
    void EmptyLongLists() {
        for (const IRef<IUnknown>& object : objects_) {
            const IRef<IArray> list(object);
            if (list.IsValid() && list->GetCount() > LONG_LIST) list->Clear();
        }
    }

  private:
    static constexpr std::size_t MOST_OBJECTS = 64;
    static constexpr std::uint32_t LONG_LIST = 200;

    // The next object with the interface, starting at the drawn one, if there is one.
    template <class I>
    [[nodiscard]] IRef<I> OneWith(const std::vector<IRef<IUnknown>>& objects) {
        const std::size_t first = bytes_.Below(256);
        for (std::size_t i = 0; i < objects.size(); ++i) {
            IRef<I> object(objects[(first + i) % objects.size()]);
            if (object.IsValid()) return object;
        }
        return IRef<I>();
    }

    ByteReader& bytes_;
    std::vector<IRef<IUnknown>> objects_;
    std::vector<IRef<IUnknown>> hosts_;
    IRef<IUnknown> last_;
    SilentHost silent_;
    RefusingHost refusing_;
};

// Lists can contain each other.
inline Stage::~Stage() {
    for (const IRef<IUnknown>& object : objects_) {
        const IRef<IArray> list(object);
        if (list.IsValid()) list->Clear();
    }
    last_ = {};
    objects_.clear();
    hosts_.clear();
    Require(silent_.IsReleased() && refusing_.IsReleased());
}

// An argument, or the space for an output.
template <class T>
struct Slot;

template <>
struct Slot<double> {
    double value;
    explicit Slot(Stage& stage) : value(stage.Bytes().Number()) {}
    double Get() { return value; }
};

template <>
struct Slot<bool> {
    bool value;
    explicit Slot(Stage& stage) : value(stage.Bytes().Below(2) == 0) {}
    bool Get() { return value; }
};

template <>
struct Slot<std::int32_t> {
    std::int32_t value;
    explicit Slot(Stage& stage) : value(stage.Bytes().Integer()) {}
    std::int32_t Get() { return value; }
};

// Indices and counts; some counts are numbers of points to create.
template <>
struct Slot<std::uint32_t> {
    std::uint32_t value;
    explicit Slot(Stage& stage) : value(stage.Bytes().Below(300)) {}
    std::uint32_t Get() { return value; }
};

template <>
struct Slot<const char*> {
    std::string text;
    bool isNull;
    explicit Slot(Stage& stage) : text(stage.Bytes().Text(40)), isNull(stage.Bytes().Below(16) == 0) {}
    const char* Get() { return isNull ? nullptr : text.c_str(); }
};

template <>
struct Slot<const Vector&> {
    Vector vector;
    explicit Slot(Stage& stage) {
        for (std::uint32_t left = stage.Bytes().Below(5); left > 0; --left)
            vector.Append(stage.Bytes().Number());
    }
    const Vector& Get() { return vector; }
};

// Plain structs, in and out: null, or any bytes.
template <class T>
struct Slot<T*> {
    static_assert(!std::is_base_of_v<IUnknown, T>);
    std::remove_const_t<T> value{};
    bool isNull;
    explicit Slot(Stage& stage) : isNull(stage.Bytes().Below(16) == 0) {
        using Value = std::remove_const_t<T>;
        if constexpr (std::is_same_v<Value, Vector>)
            value = Slot<const Vector&>(stage).vector;
        else if constexpr (std::is_same_v<Value, CKoord>)
            value = DrawRecord(stage.Bytes());
        else if constexpr (std::is_same_v<Value, double>)
            value = stage.Bytes().Number();
        else if constexpr (std::is_same_v<Value, MapParam>)
            value = DrawMap(stage.Bytes());
        else
            value = stage.Bytes().Raw<Value>();
    }
    T* Get() { return isNull ? nullptr : &value; }
};

template <class T>
requires std::is_base_of_v<IUnknown, T>
struct Slot<T*> {
    T* object;
    explicit Slot(Stage& stage) : object(stage.Argument<T>()) {
        if (IRef<T>(object).IsValid()) stage.SetLast(IRef<IUnknown>(object));
    }
    T* Get() { return object; }
};

// Interfaces whose operations grow lists, vectors and texts, and may throw.
template <class I>
inline constexpr bool MAY_THROW =
    std::is_same_v<I, IArray> || std::is_same_v<I, IVector> || std::is_same_v<I, ITessaraString>;

// Calls the operation on an object with the interface. Memory runs out in some calls.
template <class I, class Result, class... Arguments>
void Call(Stage& stage, Result (I::*operation)(Arguments...)) {
    const IRef<I> object = stage.Object<I>();
    if (!object.IsValid()) return;
    stage.SetLast(IRef<IUnknown>(object));
    // Braces guarantee the order of the draws.
    std::tuple<Slot<Arguments>...> slots{Slot<Arguments>(stage)...};
    const auto call = [&](auto&... slot) { return (object.Get()->*operation)(slot.Get()...); };
    const int nth = stage.FailingAllocation();
    const auto callShortOfMemory = [&] {
        const testing::FailAllocation failure(nth);
        return std::apply(call, slots);
    };
    try {
        if constexpr (std::is_convertible_v<Result, IUnknown*>)
            stage.Add(IRef<IUnknown>(callShortOfMemory()));
        else
            callShortOfMemory();
    } catch (const std::bad_alloc&) {
        Require(MAY_THROW<I> && nth > 0);
    } catch (const std::length_error&) {
        Require(MAY_THROW<I>);
    } catch (const std::out_of_range&) {
        Require(MAY_THROW<I>);
    }
}

}  // namespace tessara::fuzz
