#include "tessara/object.h"

#include <gtest/gtest.h>

#include <new>
#include <thread>
#include <vector>

#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/float_point.h"

namespace tessara {
namespace {

using testing::CountOf;

constexpr GUID IID_IFirst = ParseGuid("11111111-2222-3333-4444-555555555555");
constexpr GUID IID_ISecond = ParseGuid("11111111-2222-3333-4444-555555555556");

class IFirst : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IFirst;
    virtual void First() {}

  protected:
    ~IFirst() = default;
};

class ISecond : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ISecond;
    virtual ~ISecond() = default;
};

class OneFace : public IFirst {
  public:
    using Faces = FaceList<IFirst>;
    explicit OneFace(int* deaths) : deaths_(deaths) {}

  protected:
    ~OneFace() { ++*deaths_; }

  private:
    int* deaths_;
};

class TwoFaces : public IFirst, public ISecond {
  public:
    using Faces = FaceList<IFirst, ISecond>;
};

class NeedsMemory : public IFirst {
  public:
    using Faces = FaceList<IFirst>;
    NeedsMemory() { throw std::bad_alloc(); }

  protected:
    ~NeedsMemory() = default;
};

class Object : public testing::BalancedTest {};

IRef<IFirst> MakeTwoFaces() {
    IFirst* const fresh = NewObject<TwoFaces>();
    return IRef<IFirst>(fresh);
}

TEST_F(Object, IsMadeWithTheCountZero) {
    int deaths = 0;
    auto* const object = NewObject<OneFace>(&deaths);
    EXPECT_EQ(object->AddRef(), 1u);
    EXPECT_EQ(object->AddRef(), 2u);
    EXPECT_EQ(object->Release(), 1u);
    EXPECT_EQ(deaths, 0);
    EXPECT_EQ(object->Release(), 0u);
    EXPECT_EQ(deaths, 1);
}

TEST_F(Object, AnswersIUnknownAndItsInterface) {
    int deaths = 0;
    const IRef<IFirst> object(NewObject<OneFace>(&deaths));
    for (const GUID* iid : {&IID_IUnknown, &IID_IFirst}) {
        void* out = nullptr;
        EXPECT_EQ(object->QueryInterface(iid, &out), RESULT_OK);
        EXPECT_EQ(out, object.Get());
        EXPECT_EQ(object->Release(), 1u) << "the query counted once";
    }
}

TEST_F(Object, AnswersAnIdByItsBytes) {
    int deaths = 0;
    const IRef<IFirst> object(NewObject<OneFace>(&deaths));
    const GUID copy = IID_IFirst;
    void* out = nullptr;
    EXPECT_EQ(object->QueryInterface(&copy, &out), RESULT_OK);
    EXPECT_EQ(out, object.Get());
    object->Release();
}

TEST_F(Object, AnUnknownIdWritesNullAndCountsNothing) {
    int deaths = 0;
    const IRef<IFirst> object(NewObject<OneFace>(&deaths));
    for (const GUID* iid : {&IID_ISecond, static_cast<const GUID*>(nullptr)}) {
        void* out = &deaths;
        EXPECT_EQ(object->QueryInterface(iid, &out), static_cast<ResultCode>(0x80004002u));
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(CountOf(object), 1u);
    }
}

TEST_F(Object, ANullOutFails) {
    int deaths = 0;
    const IRef<IFirst> object(NewObject<OneFace>(&deaths));
    EXPECT_EQ(object->QueryInterface(&IID_IFirst, nullptr), static_cast<ResultCode>(0x80004005u));
    EXPECT_EQ(object->QueryInterface(&IID_ISecond, nullptr), static_cast<ResultCode>(0x80004005u));
    EXPECT_EQ(CountOf(object), 1u);
}

TEST_F(Object, EachFaceAnswersEachIdWithTheRightFace) {
    const IRef<IFirst> first = MakeTwoFaces();
    const IRef<ISecond> second(first);
    ASSERT_TRUE(second.IsValid());
    ASSERT_NE(static_cast<void*>(first.Get()), static_cast<void*>(second.Get()));
    for (IUnknown* face : {static_cast<IUnknown*>(first.Get()), static_cast<IUnknown*>(second.Get())}) {
        void* out = nullptr;
        EXPECT_EQ(face->QueryInterface(&IID_IUnknown, &out), RESULT_OK);
        EXPECT_EQ(out, static_cast<IUnknown*>(first.Get())) << "one identity, the primary face";
        EXPECT_EQ(face->QueryInterface(&IID_IFirst, &out), RESULT_OK);
        EXPECT_EQ(out, first.Get());
        EXPECT_EQ(face->QueryInterface(&IID_ISecond, &out), RESULT_OK);
        EXPECT_EQ(out, second.Get());
        EXPECT_EQ(face->QueryInterface(&IID_IArray, &out), RESULT_NO_INTERFACE);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(face->QueryInterface(&IID_ISecond, nullptr), RESULT_FAIL);
        for (int i = 0; i < 3; ++i)
            face->Release();
        EXPECT_EQ(CountOf(face), 2u);
    }
}

TEST_F(Object, CountsAtomically) {
    const IRef<IFirst> object = MakeTwoFaces();
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 8; ++i) {
            threads.emplace_back([&object] {
                for (int turn = 0; turn < 20000; ++turn) {
                    object->AddRef();
                    object->Release();
                }
            });
        }
    }
    EXPECT_EQ(CountOf(object), 1u);
}

TEST_F(Object, IsNullWithoutMemory) {
    const testing::FailAllocation failure(1);
    EXPECT_EQ(NewObject<TwoFaces>(), nullptr);
    EXPECT_TRUE(failure.HasFailed());
}

TEST_F(Object, IsNullWhenItsConstructorFindsNoMemory) {
    EXPECT_EQ(NewObject<NeedsMemory>(), nullptr);
}

TEST_F(Object, OfCountZeroEndsInTheFirstOperationThatIsGivenIt) {
    int deaths = 0;
    const IRef<IArray> array(CreateClassArray());
    array->Add(NewObject<OneFace>(&deaths));
    EXPECT_EQ(deaths, 0) << "the list holds it";
    array->Clear();
    EXPECT_EQ(deaths, 1);

    const IRef<ITessaraString> text = testing::MakeText();
    EXPECT_FALSE(text->Assign(IRef<IFirst>(NewObject<OneFace>(&deaths)).Get()));
    EXPECT_EQ(deaths, 2) << "a handle on the same line ends with it";
    const IRef<IFirst> held(NewObject<OneFace>(&deaths));
    EXPECT_FALSE(text->Assign(held.Get()));
    EXPECT_EQ(deaths, 2) << "somebody holds it";
}

TEST(StaticObjectTest, AnswersQueriesAndDoesntCount) {
    StaticObject<TwoFaces> object;
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(object.AddRef(), 2u);
        EXPECT_EQ(object.Release(), 1u);
    }
    void* out = nullptr;
    EXPECT_EQ(object.QueryInterface(&IID_ISecond, &out), RESULT_OK);
    EXPECT_EQ(out, static_cast<ISecond*>(&object));
    EXPECT_EQ(object.QueryInterface(&IID_IArray, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);
}

TEST(ResultCodes, AreThePlatforms) {
    EXPECT_EQ(RESULT_OK, 0);
    EXPECT_EQ(RESULT_FALSE, 1);
    EXPECT_EQ(static_cast<std::uint32_t>(RESULT_NO_INTERFACE), 0x80004002u);
    EXPECT_EQ(static_cast<std::uint32_t>(RESULT_FAIL), 0x80004005u);
    EXPECT_EQ(static_cast<std::uint32_t>(RESULT_NO_AGGREGATION), 0x80040110u);
    EXPECT_EQ(static_cast<std::uint32_t>(RESULT_OUT_OF_MEMORY), 0x8007000Eu);
}

}  // namespace
}  // namespace tessara
