// A host with an object manager, from the loading of the library to its unloading. It sees the public headers
// and the library's file, and nothing else. Where its own operator new and delete serve the library too,
// every object of either side is counted.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "support/exports.h"
#include "support/live_objects.h"
#include "support/shared_library.h"
#include "tessara/host/object_manager.h"
#include "tessara/host/text.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::LiveBlocks;

class Library : public testing::SharedLibrary {
  public:
    Library() : SharedLibrary(TESSARA_LIBRARY) {}

    [[nodiscard]] static bool IsLoaded() { return SharedLibrary::IsLoaded(TESSARA_LIBRARY); }
};

// A host: its object manager, and the component that the library returned for it.
class Host {
  public:
    explicit Host(const Library& library)
        : getComponent_(library.Find<decltype(GetTessaraComponent)>("GetTessaraComponent")),
          kit_(NewObject<host::ObjectManager>(library.Find<decltype(CreateClassArray)>("CreateClassArray"))),
          manager_(kit_) {
        EXPECT_EQ(getComponent_(kit_, &component_), RESULT_OK);
    }

    [[nodiscard]] ITessaraComponent* Component() const { return component_; }
    [[nodiscard]] std::size_t ClassCount() const { return kit_->ClassCount(); }

    [[nodiscard]] std::uint32_t ManagerCount() const {
        manager_->AddRef();
        return manager_->Release();
    }

    // Takes the manager back from the library.
    void TakeLeave() { EXPECT_EQ(getComponent_(nullptr, &component_), RESULT_OK); }

    template <class I>
    [[nodiscard]] IRef<I> Make(const GUID& classId) const {
        return IRef<I>(classId, manager_.Get());
    }

  private:
    decltype(GetTessaraComponent)* getComponent_;
    host::ObjectManager* kit_;
    IRef<IObjectManager> manager_;
    ITessaraComponent* component_ = nullptr;
};

class NameSink final : public IClassSink {
  public:
    ResultCode QueryInterface(const GUID*, void**) override { return RESULT_NO_INTERFACE; }
    std::uint32_t AddRef() override { return 2; }
    std::uint32_t Release() override { return 1; }
    void OnClass(ITypeInfoDesc* description) override { names.push_back(description->GetClassName()); }

    std::vector<std::string> names;
};

class ComponentHost : public testing::BalancedTest {
  protected:
    ~ComponentHost() override { EXPECT_FALSE(Library::IsLoaded()); }
};

TEST_F(ComponentHost, LoadsAndUnloadsTheLibrary) {
    const Library library;
    EXPECT_TRUE(Library::IsLoaded());
}

TEST_F(ComponentHost, WalksTheWholeLifeCycle) {
    const std::int64_t blocksBefore = LiveBlocks();
    {
        const Library library;
        {
            Host host(library);
            ASSERT_NE(host.Component(), nullptr);
            EXPECT_EQ(host.ManagerCount(), 3u) << "the host and two references of the library";
            EXPECT_EQ(host.ClassCount(), 0u);

            EXPECT_TRUE(host.Component()->Initialize());
            EXPECT_GT(host.ClassCount(), 0u);
            EXPECT_TRUE(host.Make<ICoord>(CLSID_Coord).IsValid());

            EXPECT_TRUE(host.Component()->Terminate());
            EXPECT_EQ(host.ClassCount(), 0u);
            EXPECT_FALSE(host.Make<ICoord>(CLSID_Coord).IsValid());
            EXPECT_EQ(host.ManagerCount(), 2u) << "one reference stays until the library is unloaded";
            host.TakeLeave();
            EXPECT_EQ(host.ManagerCount(), 1u);
        }
        EXPECT_EQ(LiveBlocks(), blocksBefore) << "everything is gone before the library is";
    }
}

TEST_F(ComponentHost, TheComponentListsTheClassesThatItRegisters) {
    const Library library;
    Host host(library);
    host.Component()->Initialize();
    NameSink sink;
    EXPECT_TRUE(host.Component()->EnumerateClasses(&sink));
    EXPECT_EQ(sink.names.size(), host.ClassCount());
    EXPECT_EQ(std::set<std::string>(sink.names.begin(), sink.names.end()).size(), host.ClassCount());
    EXPECT_EQ(std::count(sink.names.begin(), sink.names.end(), "CLSID_Coord"), 1);
    host.Component()->Terminate();
    host.TakeLeave();
}

TEST_F(ComponentHost, ConvertsAPositionWithObjectsOfTheManager) {
    const Library library;
    Host host(library);
    host.Component()->Initialize();
    {
        const std::int64_t blocks = LiveBlocks();
        const auto coord = host.Make<ICoord>(CLSID_Coord);
        if (testing::SharedLibrary::ALLOCATES_THROUGH_PROGRAM) {
            EXPECT_GT(LiveBlocks(), blocks);
        }
        const auto geographic = host.Make<ICoordGeographic>(CLSID_CoordGeographic);
        const auto reference = host.Make<ICoordinateReference>(CLSID_CoordinateReference);
        ASSERT_TRUE(coord.IsValid() && geographic.IsValid() && reference.IsValid());
        reference->SetDatum(2);
        reference->SetSystem(2);

        const IRef<ITessaraString> text(NewObject<host::Text>());
        reference->GetDatumName(text.Get());
        EXPECT_STREQ(text->GetText(), "WGS84");
        reference->GetSystemName(text.Get());
        EXPECT_STREQ(text->GetText(), "UTM");

        geographic->Set(9.0, 50.0, 171.5);
        EXPECT_TRUE(coord->SetGeographic(geographic.Get()));
        EXPECT_TRUE(coord->SetReference(reference.Get()));
        geographic->Set(0.0, 0.0, 0.0);
        EXPECT_TRUE(coord->GetGeographic(geographic.Get()));
        EXPECT_NEAR(geographic->GetLatitude(), 50.0, 1e-10) << "degrees, there and back by the series";
        EXPECT_NEAR(geographic->GetLongitude(), 9.0, 1e-10);
        EXPECT_EQ(geographic->GetHeight(), 171.5);

        const auto zones = host.Make<IZoneCoordOperations>(CLSID_ZoneCoordOperations);
        EXPECT_EQ(zones->GetZoneNumber(coord.Get()), 32);
        EXPECT_EQ(host.Make<IZoneCoordOperations>(CLSID_ZoneCoordOperations).Get(), zones.Get())
            << "a singleton";

        const auto array = host.Make<IArray>(CLSID_HostArray);
        array->Add(coord.Get());
        EXPECT_EQ(IRef<ICoord>(array->GetAt(0)).Get(), coord.Get());
    }
    host.Component()->Terminate();
    host.TakeLeave();
}

TEST_F(ComponentHost, ObjectsOutliveTheirRegistration) {
    const Library library;
    Host host(library);
    host.Component()->Initialize();
    const auto coord = host.Make<ICoord>(CLSID_Coord);
    const auto zones = host.Make<IZoneCoordOperations>(CLSID_ZoneCoordOperations);
    host.Component()->Terminate();
    host.TakeLeave();
    EXPECT_TRUE(coord->SetPixel(1.0, 2.0));
    EXPECT_FALSE(zones->HasZones(coord.Get()));
}

TEST_F(ComponentHost, MakesObjectsWithoutAManager) {
    const Library library;
    int created = 0;
    for (const std::string& name : testing::ListedExports()) {
        if (name.rfind("CreateClass", 0) != 0) continue;
        ++created;
        // All of them give an object whose first face begins as an IUnknown.
        const auto create = library.Find<IUnknown*()>(name);
        IUnknown* const first = create();
        IUnknown* const second = create();
        ASSERT_TRUE(first != nullptr && second != nullptr) << name;
        EXPECT_NE(first, second) << name;
        EXPECT_EQ(first->AddRef(), 1u) << name;
        EXPECT_EQ(first->Release(), 0u) << name;
        const IRef<IUnknown> held(second);
        EXPECT_EQ(held.Get(), second) << name << ": the primary face";
    }
    EXPECT_GT(created, 0);
}

TEST_F(ComponentHost, UnloadingGivesBackTheManagerAndEndsTheSingletons) {
    auto* const kit = NewObject<host::ObjectManager>();
    const IRef<IObjectManager> manager(kit);
    {
        const Library library;
        ITessaraComponent* component = nullptr;
        library.Find<decltype(GetTessaraComponent)>("GetTessaraComponent")(kit, &component);
        component->Initialize();
        void* zones = nullptr;
        EXPECT_EQ(manager->CreateInstance(&CLSID_ZoneCoordOperations, &IID_IUnknown, &zones), RESULT_OK);
        EXPECT_EQ(static_cast<IUnknown*>(zones)->Release(), 1u) << "held by its factory";
        manager->AddRef();
        EXPECT_EQ(manager->Release(), 3u);
    }
    EXPECT_FALSE(Library::IsLoaded());
    manager->AddRef();
    EXPECT_EQ(manager->Release(), 1u) << "both references went with the library";
}

TEST_F(ComponentHost, LivesAgainAfterItWasUnloaded) {
    for (int life = 0; life < 3; ++life) {
        const Library library;
        Host host(library);
        host.Component()->Initialize();
        EXPECT_TRUE(host.Make<ICoord>(CLSID_Coord).IsValid());
        host.Component()->Terminate();
        host.TakeLeave();
    }
}

TEST_F(ComponentHost, InitializesAgainWithANewManager) {
    const Library library;
    for (int round = 0; round < 2; ++round) {
        Host host(library);
        host.Component()->Initialize();
        EXPECT_TRUE(host.Make<ICoord>(CLSID_Coord).IsValid());
        host.Component()->Terminate();
        host.TakeLeave();
    }
}

}  // namespace
}  // namespace tessara
