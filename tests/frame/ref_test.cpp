#include "tessara/ref.h"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <utility>

#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/component.h"
#include "tessara/float_point.h"

namespace tessara {
namespace {

using testing::CountOf;

class Ref : public testing::BalancedTest {};

// Records the calls it gets: "a?" a query, "a+" a count, "a-" a release.
class Recorder final : public IUnknown {
  public:
    Recorder(char name, std::string* log) : name_(name), log_(log) {}

    ResultCode QueryInterface(const GUID*, void** out) override {
        Note('?');
        *out = static_cast<IUnknown*>(this);
        ++count_;
        return result;
    }
    std::uint32_t AddRef() override {
        Note('+');
        return ++count_;
    }
    std::uint32_t Release() override {
        Note('-');
        return --count_;
    }

    ResultCode result = RESULT_OK;

  private:
    void Note(char what) {
        *log_ += name_;
        *log_ += what;
    }

    char name_;
    std::string* log_;
    std::uint32_t count_ = 0;
};

// Fails every query and forgets to write null.
class Silent final : public IUnknown {
  public:
    ResultCode QueryInterface(const GUID*, void**) override { return RESULT_NO_INTERFACE; }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
};

TEST_F(Ref, DefaultIsEmpty) {
    const IRef<IArray> handle;
    EXPECT_FALSE(handle.IsValid());
    EXPECT_EQ(handle.Get(), nullptr);
}

TEST_F(Ref, IsOnePointerAndATablePointer) {
    static_assert(sizeof(IRef<IArray>) == 2 * sizeof(void*));
    static_assert(std::has_virtual_destructor_v<IRef<IArray>>);
}

TEST_F(Ref, FromNullIsEmpty) {
    EXPECT_FALSE(IRef<IArray>(static_cast<IUnknown*>(nullptr)).IsValid());
    EXPECT_FALSE(IRef<IArray>(IRef<IFloatPoint>()).IsValid());
}

TEST_F(Ref, TakesAFreshObjectToOneAndEndsItWhenItGoes) {
    const std::int64_t before = testing::LiveBlocks();
    {
        const IRef<IArray> handle(CreateClassArray());
        ASSERT_TRUE(handle.IsValid());
        EXPECT_EQ(CountOf(handle), 1u);
        EXPECT_GT(testing::LiveBlocks(), before);
    }
    EXPECT_EQ(testing::LiveBlocks(), before);
}

TEST_F(Ref, OfAnObjectWithoutTheInterfaceIsEmptyAndCountsNothing) {
    const IRef<IArray> array(CreateClassArray());
    const IRef<IFloatPoint> point(array);
    EXPECT_FALSE(point.IsValid());
    EXPECT_EQ(CountOf(array), 1u);
}

TEST_F(Ref, AsksTheObjectBehindAHandleForAnotherFace) {
    const IRef<ICoord> coord(CreateClassCoord());
    {
        const IRef<ICoordInternal> internal(coord);
        ASSERT_TRUE(internal.IsValid());
        EXPECT_EQ(CountOf(coord), 2u);
        EXPECT_EQ(CountOf(internal), 2u) << "one count for all faces";
    }
    EXPECT_EQ(CountOf(coord), 1u);
}

TEST_F(Ref, ANonNullPointerIsQueriedOnce) {
    std::string log;
    Recorder a('a', &log);
    { const IRef<IUnknown> handle(&a); }
    EXPECT_EQ(log, "a?a-");
}

TEST_F(Ref, LooksAtThePointerThatAQueryWritesNotAtItsResult) {
    std::string log;
    Recorder a('a', &log);
    a.result = RESULT_FAIL;
    const IRef<IUnknown> handle(&a);
    EXPECT_EQ(handle.Get(), &a);
}

TEST_F(Ref, IsEmptyWhenAFailingQueryWritesNothing) {
    Silent silent;
    EXPECT_FALSE(IRef<IUnknown>(&silent).IsValid());
}

TEST_F(Ref, CopiesCount) {
    const IRef<IArray> first(CreateClassArray());
    {
        const IRef<IArray> second(first);
        EXPECT_EQ(second.Get(), first.Get());
        EXPECT_EQ(CountOf(first), 2u);
    }
    EXPECT_EQ(CountOf(first), 1u);
    const IRef<IArray> empty;
    EXPECT_FALSE(IRef<IArray>(empty).IsValid());
}

TEST_F(Ref, MovesDontCount) {
    std::string log;
    Recorder a('a', &log);
    {
        IRef<IUnknown> first(&a);
        IRef<IUnknown> second(std::move(first));
        EXPECT_FALSE(first.IsValid());
        IRef<IUnknown> third;
        third = std::move(second);
        EXPECT_FALSE(second.IsValid());
        EXPECT_EQ(third.Get(), &a);
    }
    EXPECT_EQ(log, "a?a-");
}

TEST_F(Ref, MovingOntoAHandleReleasesWhatItHeld) {
    std::string log;
    Recorder a('a', &log);
    Recorder b('b', &log);
    IRef<IUnknown> first(&a);
    IRef<IUnknown> second(&b);
    log.clear();
    first = std::move(second);
    EXPECT_EQ(log, "a-");
    EXPECT_EQ(first.Get(), &b);
    EXPECT_FALSE(second.IsValid());
}

TEST_F(Ref, AHandleMovedOntoItselfKeepsItsObject) {
    std::string log;
    Recorder a('a', &log);
    IRef<IUnknown> handle(&a);
    log.clear();
    IRef<IUnknown>& same = handle;
    handle = std::move(same);
    EXPECT_EQ(handle.Get(), &a);
    EXPECT_EQ(log, "");
}

TEST_F(Ref, AssignmentCountsTheNewObjectBeforeItReleasesTheOld) {
    std::string log;
    Recorder a('a', &log);
    Recorder b('b', &log);
    IRef<IUnknown> handle(&a);
    const IRef<IUnknown> other(&b);
    log.clear();
    handle = other;
    EXPECT_EQ(log, "b+a-");
    EXPECT_EQ(handle.Get(), &b);
}

TEST_F(Ref, AssignmentOfEqualPointersDoesNothing) {
    std::string log;
    Recorder a('a', &log);
    IRef<IUnknown> handle(&a);
    const IRef<IUnknown> other(&a);
    const IRef<IUnknown>& self = handle;
    log.clear();
    handle = other;
    handle = self;
    EXPECT_EQ(log, "");
}

TEST_F(Ref, AssignmentFromAndToAnEmptyHandle) {
    std::string log;
    Recorder a('a', &log);
    const IRef<IUnknown> empty;
    const IRef<IUnknown> full(&a);
    IRef<IUnknown> handle;
    log.clear();
    handle = full;
    EXPECT_EQ(log, "a+");
    handle = empty;
    EXPECT_EQ(log, "a+a-");
    EXPECT_FALSE(handle.IsValid());
}

TEST_F(Ref, ReleaseAndGetAddressEmptiesAndIsAnOutArgument) {
    std::string log;
    Recorder a('a', &log);
    Recorder b('b', &log);
    IRef<IUnknown> handle(&a);
    log.clear();
    IUnknown** const out = handle.ReleaseAndGetAddress();
    EXPECT_EQ(log, "a-");
    EXPECT_FALSE(handle.IsValid());
    b.AddRef();
    *out = &b;
    EXPECT_EQ(handle.Get(), &b);

    IRef<IUnknown> empty;
    EXPECT_EQ(*empty.ReleaseAndGetAddress(), nullptr);
}

TEST_F(Ref, TheHolderAndTheCountedHandleAreMadeFromAnObjectToo) {
    using Holder = ObjectManagerUtils::COMCounterMT<IID_IUnknown, IArray>;
    using Handle = ObjectManagerUtils::CPPRef<IArray, Holder>;
    static_assert(std::is_base_of_v<Holder, Handle> && std::is_base_of_v<Handle, IRef<IArray, IUnknown>>);
    static_assert(sizeof(Holder) == sizeof(IRef<IArray>));

    const IRef<IArray> array(CreateClassArray());
    {
        const Holder holder(array.Get());
        const Handle handle(array.Get());
        EXPECT_EQ(handle.Get(), array.Get());
        EXPECT_EQ(CountOf(array), 3u);
    }
    EXPECT_EQ(CountOf(array), 1u);
    EXPECT_FALSE(Handle(nullptr).IsValid());
    EXPECT_FALSE(Handle(testing::MakeStranger().Get()).IsValid());
}

TEST_F(Ref, TheHolderTakesNothingOfAQueryThatFails) {
    std::string log;
    Recorder a('a', &log);
    a.result = RESULT_FAIL;
    {
        using Holder = ObjectManagerUtils::COMCounterMT<IID_IUnknown, IUnknown>;
        const ObjectManagerUtils::CPPRef<IUnknown, Holder> handle(&a);
        EXPECT_FALSE(handle.IsValid());
    }
    EXPECT_EQ(log, "a?") << "nor releases it";
}

// An object that looks, while it dies, at the handle that held it.
class Witness : public IUnknown {
  public:
    using Faces = FaceList<IUnknown>;

    Witness(const IRef<IUnknown>* holder, bool* sawItEmpty) : holder_(holder), sawItEmpty_(sawItEmpty) {}

  protected:
    ~Witness() { *sawItEmpty_ = !holder_->IsValid(); }

  private:
    const IRef<IUnknown>* holder_;
    bool* sawItEmpty_;
};

TEST_F(Ref, IsEmptyAlreadyWhileItsObjectDies) {
    bool sawItEmpty = false;
    IRef<IUnknown> handle;
    handle = IRef<IUnknown>(NewObject<Witness>(&handle, &sawItEmpty));
    ASSERT_TRUE(handle.IsValid());
    *handle.ReleaseAndGetAddress() = nullptr;
    EXPECT_TRUE(sawItEmpty);
}

// A class id alone doesn't name a creator, so that a host doesn't have to link a function of the library.
static_assert(!std::is_constructible_v<IRef<ICoord>, const GUID&>);
static_assert(!std::is_convertible_v<const GUID&, IRef<ICoord>>);

TEST_F(Ref, TakesTheResultOfACreationFunction) {
    const IRef<IArray> list = CreateClassArray();
    ASSERT_TRUE(list.IsValid());
    EXPECT_EQ(CountOf(list.Get()), 1u);
    const IRef point = CreateClassFloatPoint();
    static_assert(std::is_same_v<decltype(point), const IRef<IFloatPoint>>);
    ASSERT_TRUE(point.IsValid());
}

TEST_F(Ref, IsAnArgumentAsItStands) {
    const IRef<IArray> list = CreateClassArray();
    const IRef<IFloatPoint> point = CreateClassFloatPoint();
    list->Add(point);
    EXPECT_EQ(IRef<IFloatPoint>(list->GetAt(0)).Get(), point.Get());
    EXPECT_EQ(CountOf(point.Get()), 2u) << "the handle and the list";
}

TEST_F(Ref, GivesNullAsAnArgumentWhenItIsEmpty) {
    const IRef<IFloatPoint> empty;
    IFloatPoint* const argument = empty;
    EXPECT_EQ(argument, nullptr);
}

// A handle that ends with the expression would leave a pointer to nothing.
static_assert(std::is_convertible_v<IRef<ICoord>&, ICoord*>);
static_assert(!std::is_convertible_v<IRef<ICoord>, ICoord*>);
static_assert(!std::is_convertible_v<const IRef<ICoord>, ICoord*>);
// An interface has to be queried; it is never converted implicitly.
static_assert(!std::is_convertible_v<IRef<IArray>&, ICoord*>);

TEST_F(Ref, OfAClassIdTakesTheManagersHandle) {
    const IRef<IObjectManager> nobody;
    EXPECT_FALSE(IRef<ICoord>(CLSID_Coord, nobody).IsValid());
}

TEST_F(Ref, OfAClassIdIsEmptyWithoutAnObjectManager) {
    IObjectManager* const nobody = nullptr;
    EXPECT_FALSE(IRef<ICoord>(CLSID_Coord, nobody).IsValid());
}

#if !defined(NDEBUG)
TEST(RefDeathTest, AnEmptyHandleStopsADebugBuild) {
    const IRef<ICoord> empty;
    EXPECT_DEATH(empty->GetHeight(), "IsValid");
}
#endif

}  // namespace
}  // namespace tessara
