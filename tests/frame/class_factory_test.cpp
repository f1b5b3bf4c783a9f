#include "frame/class_factory.h"

#include <gtest/gtest.h>

#include "support/factories.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/zone_coord_operations.h"

namespace tessara {
namespace {

using testing::CountOf;
using testing::FactoryOf;
using testing::TerminateFactory;

class ClassFactory : public testing::BalancedTest {
  protected:
    ~ClassFactory() override { TerminateFactory(singleton); }

    // What CreateInstance hands out, whose count the host owns.
    static IUnknown* Create(MClassFactory* factory, const GUID& iid) {
        void* out = nullptr;
        EXPECT_EQ(factory->CreateInstance(nullptr, &iid, &out), RESULT_OK);
        return static_cast<IUnknown*>(out);
    }

    MClassFactory* const multi = FactoryOf(CLSID_Coord);
    MClassFactory* const singleton = FactoryOf(CLSID_ZoneCoordOperations);
};

TEST_F(ClassFactory, AnswersThreeIdsOnEachOfItsFaces) {
    const IRef<ITypeInfoDesc> description(multi);
    const IRef<ITerminator> terminator(multi);
    ASSERT_TRUE(description.IsValid() && terminator.IsValid());
    IUnknown* const faces[] = {multi, description.Get(), terminator.Get()};
    for (IUnknown* face : faces) {
        void* out = nullptr;
        EXPECT_EQ(face->QueryInterface(&IID_IUnknown, &out), RESULT_OK);
        EXPECT_EQ(out, multi) << "the primary face";
        EXPECT_EQ(face->QueryInterface(&IID_ITypeInfoDesc, &out), RESULT_OK);
        EXPECT_EQ(out, description.Get());
        EXPECT_EQ(face->QueryInterface(&IID_ITerminator, &out), RESULT_OK);
        EXPECT_EQ(out, terminator.Get());
    }
}

TEST_F(ClassFactory, AnswersNoOtherIdNotEvenItsOwnInterfaces) {
    const IRef<ITypeInfoDesc> description(multi);
    const IRef<ITerminator> terminator(multi);
    IUnknown* const faces[] = {multi, description.Get(), terminator.Get()};
    for (IUnknown* face : faces) {
        for (const GUID* iid : {&IID_IClassFactory, &IID_ICoord, &CLSID_Coord}) {
            void* out = this;
            EXPECT_EQ(face->QueryInterface(iid, &out), RESULT_NO_INTERFACE);
            EXPECT_EQ(out, nullptr);
        }
    }
}

TEST_F(ClassFactory, AQueryWithoutAnOutFailsWhateverTheId) {
    const IRef<ITypeInfoDesc> description(multi);
    const IRef<ITerminator> terminator(multi);
    IUnknown* const faces[] = {multi, description.Get(), terminator.Get()};
    for (IUnknown* face : faces) {
        for (const GUID* iid : {&IID_IUnknown, &IID_ITypeInfoDesc, &IID_ITerminator, &IID_IClassFactory})
            EXPECT_EQ(face->QueryInterface(iid, nullptr), RESULT_FAIL);
    }
}

TEST_F(ClassFactory, DoesntCount) {
    const IRef<ITypeInfoDesc> description(multi);
    const IRef<ITerminator> terminator(multi);
    IUnknown* const faces[] = {multi, description.Get(), terminator.Get()};
    for (IUnknown* face : faces) {
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(face->AddRef(), 2u);
        for (int i = 0; i < 5; ++i)
            EXPECT_EQ(face->Release(), 1u);
    }
}

TEST_F(ClassFactory, LockServerGivesOne) {
    EXPECT_EQ(multi->LockServer(1), 1);
    EXPECT_EQ(multi->LockServer(0), 1);
}

TEST_F(ClassFactory, DescribesItsClass) {
    const IRef<ITypeInfoDesc> description(multi);
    EXPECT_EQ(description->GetClassId(), multi->ClassId());
    EXPECT_EQ(description->GetClassName(), multi->ClassName());
    EXPECT_STREQ(description->GetClassName(), "CLSID_Coord");
}

TEST_F(ClassFactory, OfAMultiMakesAFreshObjectEachTime) {
    IUnknown* const first = Create(multi, IID_ICoord);
    IUnknown* const second = Create(multi, IID_ICoord);
    EXPECT_NE(first, second);
    EXPECT_EQ(first->Release(), 0u) << "the one count is the host's";
    EXPECT_EQ(second->Release(), 0u);
}

TEST_F(ClassFactory, GivesTheFaceThatIsAskedFor) {
    auto* const coord = Create(multi, IID_ICoord);
    auto* const internal = Create(multi, IID_ICoordInternal);
    EXPECT_TRUE(IRef<ICoord>(internal).IsValid());
    EXPECT_NE(static_cast<IUnknown*>(IRef<ICoord>(internal).Get()), internal);
    EXPECT_EQ(IRef<IUnknown>(internal).Get(), IRef<ICoord>(internal).Get()) << "one identity";
    EXPECT_EQ(internal->Release(), 0u);
    EXPECT_EQ(coord->Release(), 0u);
}

TEST_F(ClassFactory, OfASingletonGivesOneObjectAndHoldsACountOfIt) {
    IUnknown* const first = Create(singleton, IID_IZoneCoordOperations);
    EXPECT_EQ(CountOf(first), 2u) << "the factory and the host";
    IUnknown* const second = Create(singleton, IID_IZoneCoordOperations);
    EXPECT_EQ(first, second);
    EXPECT_EQ(CountOf(first), 3u);
    second->Release();
    EXPECT_EQ(first->Release(), 1u);
}

TEST_F(ClassFactory, TerminatedItMakesANewSingletonWhileTheOldOneLivesOn) {
    IUnknown* const first = Create(singleton, IID_IZoneCoordOperations);
    TerminateFactory(singleton);
    EXPECT_EQ(CountOf(first), 1u);
    IUnknown* const second = Create(singleton, IID_IZoneCoordOperations);
    EXPECT_NE(first, second);
    EXPECT_EQ(IRef<IZoneCoordOperations>(first)->GetZoneNumber(nullptr), INT32_MIN) << "still of use";
    EXPECT_EQ(first->Release(), 0u);
    second->Release();
}

TEST_F(ClassFactory, TerminatingTwiceOrWithoutAnObjectIsHarmless) {
    TerminateFactory(singleton);
    Create(singleton, IID_IUnknown)->Release();
    TerminateFactory(singleton);
    TerminateFactory(singleton);
    TerminateFactory(multi);
    Create(multi, IID_IUnknown)->Release();
    TerminateFactory(multi);
}

TEST_F(ClassFactory, RefusesAggregationAndWritesNull) {
    for (MClassFactory* factory : {multi, singleton}) {
        void* out = this;
        EXPECT_EQ(factory->CreateInstance(testing::MakeStranger().Get(), &IID_IUnknown, &out),
                  static_cast<ResultCode>(0x80040110u));
        EXPECT_EQ(out, nullptr);
    }
}

TEST_F(ClassFactory, AnInterfaceThatAMultiObjectLacksMakesItVanish) {
    const std::int64_t before = testing::LiveBlocks();
    void* out = this;
    EXPECT_EQ(multi->CreateInstance(nullptr, &IID_IArray, &out), static_cast<ResultCode>(0x80004002u));
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(testing::LiveBlocks(), before);
}

TEST_F(ClassFactory, AnInterfaceThatASingletonLacksLeavesItWithItsFactory) {
    void* out = this;
    EXPECT_EQ(singleton->CreateInstance(nullptr, &IID_IArray, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);
    IUnknown* const object = Create(singleton, IID_IUnknown);
    EXPECT_EQ(CountOf(object), 2u);
    out = this;
    EXPECT_EQ(singleton->CreateInstance(nullptr, &IID_IArray, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(CountOf(object), 2u);
    object->Release();
}

TEST_F(ClassFactory, WithoutMemoryGivesTheCodeForIt) {
    for (MClassFactory* factory : {multi, singleton}) {
        void* out = this;
        const testing::FailAllocation failure(1);
        EXPECT_EQ(factory->CreateInstance(nullptr, &IID_IUnknown, &out),
                  static_cast<ResultCode>(0x8007000Eu));
        EXPECT_EQ(out, nullptr);
    }
    Create(singleton, IID_IUnknown)->Release();
}

TEST_F(ClassFactory, WithoutAnOutMakesNothing) {
    const std::int64_t before = testing::LiveBlocks();
    for (MClassFactory* factory : {multi, singleton})
        EXPECT_EQ(factory->CreateInstance(nullptr, &IID_IUnknown, nullptr), RESULT_FAIL);
    EXPECT_EQ(testing::LiveBlocks(), before);
}

TEST_F(ClassFactory, WithoutAnIdGivesNothing) {
    void* out = this;
    EXPECT_EQ(multi->CreateInstance(nullptr, nullptr, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);
}

class Thing : public IUnknown {
  public:
    using Faces = FaceList<IUnknown>;

  protected:
    ~Thing() = default;
};

TEST_F(ClassFactory, ASingletonPolicyThatEndsReleasesItsObject) {
    struct Policy : COMSingletonAllocPolicy<Thing> {
        using COMSingletonAllocPolicy<Thing>::Allocate;
    };
    const std::int64_t before = testing::LiveBlocks();
    IRef<IUnknown> held;
    {
        Policy policy;
        held = IRef<IUnknown>(policy.Allocate());
        EXPECT_EQ(CountOf(held), 2u);
        EXPECT_EQ(policy.Allocate(), held.Get());
        EXPECT_EQ(CountOf(held), 2u) << "asking again counts nothing";
    }
    EXPECT_EQ(CountOf(held), 1u);
    held = IRef<IUnknown>();
    EXPECT_EQ(testing::LiveBlocks(), before);
    { const Policy unused; }
}

}  // namespace
}  // namespace tessara
