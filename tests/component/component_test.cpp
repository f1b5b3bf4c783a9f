#include "tessara/component.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "frame/managed_object.h"
#include "support/factories.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/array.h"
#include "tessara/host/object_manager.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::CountOf;

// Records the calls of the library.
class Diary : public IObjectManager {
  public:
    using Faces = FaceList<IObjectManager>;

    explicit Diary(std::vector<std::string>* pages) : pages_(pages) {}

    ResultCode RegisterClass(const GUID* classId, MClassFactory* factory) override {
        EXPECT_EQ(classId, factory->ClassId());
        pages_->push_back(std::string("+") + factory->ClassName());
        return RESULT_FAIL;  // results don't matter
    }
    ResultCode UnregisterClass(const GUID* classId) override {
        pages_->push_back(std::string("-") + testing::FactoryOf(*classId)->ClassName());
        if (onUnregister != nullptr) onUnregister();
        return RESULT_FAIL;
    }
    ResultCode CreateInstance(const GUID*, const GUID*, void**) override { return RESULT_FAIL; }

    void (*onUnregister)() = nullptr;

  protected:
    ~Diary() = default;

  private:
    std::vector<std::string>* pages_;
};

class Component : public testing::BalancedTest {
  protected:
    ~Component() override { GetTessaraComponent(nullptr, &component); }

    static ITessaraComponent* Get(IUnknown* manager) {
        ITessaraComponent* out = nullptr;
        EXPECT_EQ(GetTessaraComponent(manager, &out), RESULT_OK);
        EXPECT_NE(out, nullptr);
        return out;
    }

    static std::vector<std::string> ClassNames(const char* prefix) {
        std::vector<std::string> names;
        for (auto* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next())
            names.push_back(std::string(prefix) + factory->ClassName());
        return names;
    }

    ITessaraComponent* component = nullptr;
};

TEST_F(Component, IsThereWithoutAnObjectManager) {
    component = Get(nullptr);
    EXPECT_TRUE(component->Initialize());
    EXPECT_TRUE(component->Terminate());
    EXPECT_TRUE(component->Terminate());
    EXPECT_TRUE(component->Initialize());
}

TEST_F(Component, IsThereWithAnObjectThatIsNoManager) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    component = Get(stranger.Get());
    EXPECT_EQ(CountOf(stranger), 1u);
    EXPECT_TRUE(component->Initialize());
    EXPECT_TRUE(component->Terminate());
}

TEST_F(Component, IsAlwaysTheSame) {
    EXPECT_EQ(Get(nullptr), Get(testing::MakeStranger().Get()));
}

TEST_F(Component, ANullOutFails) {
    std::vector<std::string> pages;
    const IRef<IObjectManager> manager(NewObject<Diary>(&pages));
    EXPECT_EQ(GetTessaraComponent(manager.Get(), nullptr), static_cast<ResultCode>(0x80004005u));
    EXPECT_EQ(CountOf(manager), 3u) << "the manager is taken before the component is asked for";
}

TEST_F(Component, DoesntCount) {
    component = Get(nullptr);
    const IRef<ITessaraComponentInit> init(component);
    ASSERT_TRUE(init.IsValid());
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(component->AddRef(), 2u);
        EXPECT_EQ(init->AddRef(), 2u);
    }
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(component->Release(), 1u);
        EXPECT_EQ(init->Release(), 1u);
    }
}

TEST_F(Component, AnswersAlikeOnBothFaces) {
    component = Get(nullptr);
    const IRef<ITessaraComponentInit> init(component);
    ASSERT_TRUE(init.IsValid());
    IUnknown* const faces[] = {component, init.Get()};
    for (IUnknown* face : faces) {
        void* out = nullptr;
        EXPECT_EQ(face->QueryInterface(&IID_IUnknown, &out), RESULT_OK);
        EXPECT_EQ(out, component);
        EXPECT_EQ(face->QueryInterface(&IID_ITessaraComponent, &out), RESULT_OK);
        EXPECT_EQ(out, component);
        EXPECT_EQ(face->QueryInterface(&IID_ITessaraComponentInit, &out), RESULT_OK);
        EXPECT_EQ(out, init.Get());
        EXPECT_EQ(face->QueryInterface(&IID_IObjectManager, &out), RESULT_NO_INTERFACE);
        EXPECT_EQ(out, nullptr);
        EXPECT_EQ(face->QueryInterface(&IID_ITessaraComponent, nullptr), RESULT_FAIL);
    }
}

TEST_F(Component, TheInitParametersGiveZero) {
    const IRef<ITessaraComponentInit> init(Get(nullptr));
    int something = 0;
    EXPECT_EQ(init->InitParameterA(nullptr), 0);
    EXPECT_EQ(init->InitParameterA(&something), 0);
    EXPECT_EQ(init->InitParameterB(nullptr), 0);
    EXPECT_EQ(init->InitParameterB(&something), 0);
}

TEST_F(Component, QueryFlagIsFalse) {
    EXPECT_FALSE(Get(nullptr)->QueryFlag());
}

TEST_F(Component, HoldsTheManagerTwiceAndGivesUpOneAtTheEnd) {
    std::vector<std::string> pages;
    const IRef<IObjectManager> manager(NewObject<Diary>(&pages));
    component = Get(manager.Get());
    EXPECT_EQ(CountOf(manager), 3u);
    component->Initialize();
    EXPECT_EQ(CountOf(manager), 3u);
    component->Terminate();
    EXPECT_EQ(CountOf(manager), 2u);
    component->Terminate();
    EXPECT_EQ(CountOf(manager), 2u);
    Get(nullptr);
    EXPECT_EQ(CountOf(manager), 1u);
}

TEST_F(Component, ASecondCallReplacesTheManager) {
    std::vector<std::string> pages;
    const IRef<IObjectManager> first(NewObject<Diary>(&pages));
    const IRef<IObjectManager> second(NewObject<Diary>(&pages));
    Get(first.Get());
    Get(first.Get());
    EXPECT_EQ(CountOf(first), 3u) << "the same one again changes nothing";
    Get(second.Get());
    EXPECT_EQ(CountOf(first), 1u);
    EXPECT_EQ(CountOf(second), 3u);
    Get(testing::MakeStranger().Get());
    EXPECT_EQ(CountOf(second), 1u);
}

TEST_F(Component, TakesAManagerOfCountZero) {
    const std::int64_t before = testing::LiveBlocks();
    Get(NewObject<host::ObjectManager>());
    EXPECT_GT(testing::LiveBlocks(), before);
    Get(nullptr);
    EXPECT_EQ(testing::LiveBlocks(), before);
}

TEST_F(Component, RegistersEveryClassInListOrder) {
    std::vector<std::string> pages;
    const IRef<IObjectManager> manager(NewObject<Diary>(&pages));
    component = Get(manager.Get());
    EXPECT_TRUE(component->Initialize());
    EXPECT_EQ(pages, ClassNames("+"));
}

TEST_F(Component, UnregistersEveryClassInListOrder) {
    std::vector<std::string> pages;
    const IRef<IObjectManager> manager(NewObject<Diary>(&pages));
    component = Get(manager.Get());
    component->Initialize();
    pages.clear();
    EXPECT_TRUE(component->Terminate());
    EXPECT_EQ(pages, ClassNames("-"));
}

IUnknown* g_singleton = nullptr;
bool g_singletonLivesOn = true;

TEST_F(Component, EndsTheSingletonsAfterAllClassesAreUnregistered) {
    std::vector<std::string> pages;
    auto* const diary = NewObject<Diary>(&pages);
    const IRef<IObjectManager> manager(diary);
    diary->onUnregister = [] { g_singletonLivesOn = g_singletonLivesOn && CountOf(g_singleton) == 2; };
    component = Get(manager.Get());
    component->Initialize();

    void* out = nullptr;
    MClassFactory* const factory = testing::FactoryOf(CLSID_ZoneCoordOperations);
    ASSERT_EQ(factory->CreateInstance(nullptr, &IID_IUnknown, &out), RESULT_OK);
    g_singleton = static_cast<IUnknown*>(out);
    component->Terminate();
    EXPECT_FALSE(pages.empty());
    EXPECT_TRUE(g_singletonLivesOn) << "held by its factory at every unregistering";
    EXPECT_EQ(g_singleton->Release(), 0u) << "and no longer afterwards";
}

class Sink : public IClassSink {
  public:
    using Faces = FaceList<IUnknown>;

    explicit Sink(std::vector<std::string>* names) : names_(names) {}
    void OnClass(ITypeInfoDesc* description) override { names_->push_back(description->GetClassName()); }

  protected:
    ~Sink() = default;

  private:
    std::vector<std::string>* names_;
};

TEST_F(Component, EnumeratesTheClassesInListOrder) {
    std::vector<std::string> names;
    auto* const sink = NewObject<Sink>(&names);
    const IRef<IUnknown> held(sink);
    component = Get(nullptr);
    EXPECT_TRUE(component->EnumerateClasses(sink));
    EXPECT_EQ(names, ClassNames(""));
    EXPECT_EQ(CountOf(held), 1u);
}

TEST_F(Component, EnumeratesForNobody) {
    EXPECT_TRUE(Get(nullptr)->EnumerateClasses(nullptr));
}

TEST_F(Component, ObjectsAreMadeThroughTheManager) {
    auto* const kit = NewObject<host::ObjectManager>(CreateClassArray);
    const IRef<IObjectManager> manager(kit);
    component = Get(manager.Get());
    EXPECT_FALSE(IRef<ICoord>(CLSID_Coord, kit).IsValid()) << "nothing is registered yet";
    EXPECT_EQ(HostObjectManager(), manager.Get());
    component->Initialize();
    EXPECT_EQ(kit->ClassCount(), ClassNames("").size());
    {
        const IRef<ICoord> coord(CLSID_Coord, kit);
        ASSERT_TRUE(coord.IsValid());
        EXPECT_EQ(CountOf(coord), 1u);
        const IRef<ICoordInternal> internal(CLSID_Coord, kit);
        EXPECT_TRUE(internal.IsValid()) << "by its second face";
        const IRef<IArray> array(CLSID_HostArray, kit);
        ASSERT_TRUE(array.IsValid());
        EXPECT_EQ(CountOf(array), 1u);
        EXPECT_FALSE(IRef<IArray>(CLSID_Coord, kit).IsValid());
        EXPECT_FALSE(IRef<ICoord>(IID_ICoord, kit).IsValid()) << "no class of this id";
    }
    component->Terminate();
    EXPECT_EQ(kit->ClassCount(), 0u);
    EXPECT_FALSE(IRef<ICoord>(CLSID_Coord, kit).IsValid());
    EXPECT_EQ(HostObjectManager(), nullptr) << "the library has no manager any more";
}

}  // namespace
}  // namespace tessara
