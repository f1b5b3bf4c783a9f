#include "tessara/host/object_manager.h"

#include <gtest/gtest.h>

#include "support/factories.h"
#include "support/live_objects.h"
#include "support/objects.h"

namespace tessara {
namespace {

using testing::CountOf;

class HostObjectManager : public testing::BalancedTest {
  protected:
    IRef<IObjectManager> Make(host::ObjectManager::CreateArray* createArray) {
        kit = NewObject<host::ObjectManager>(createArray);
        return IRef<IObjectManager>(kit);
    }

    host::ObjectManager* kit = nullptr;
    MClassFactory* const factory = testing::FactoryOf(CLSID_Coord);
};

TEST_F(HostObjectManager, MakesObjectsOfTheClassesThatAreRegistered) {
    const auto manager = Make(nullptr);
    void* out = this;
    EXPECT_NE(manager->CreateInstance(&CLSID_Coord, &IID_ICoord, &out), RESULT_OK);
    EXPECT_EQ(out, nullptr);

    EXPECT_EQ(manager->RegisterClass(&CLSID_Coord, factory), RESULT_OK);
    ASSERT_EQ(manager->CreateInstance(&CLSID_Coord, &IID_ICoord, &out), RESULT_OK);
    EXPECT_EQ(static_cast<IUnknown*>(out)->Release(), 0u);

    EXPECT_EQ(manager->UnregisterClass(&CLSID_Coord), RESULT_OK);
    EXPECT_NE(manager->CreateInstance(&CLSID_Coord, &IID_ICoord, &out), RESULT_OK);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(manager->UnregisterClass(&CLSID_Coord), RESULT_FALSE) << "not there any more";
}

TEST_F(HostObjectManager, AClassRegisteredTwiceIsThereOnce) {
    const auto manager = Make(nullptr);
    manager->RegisterClass(&CLSID_Coord, factory);
    manager->RegisterClass(&CLSID_Coord, factory);
    EXPECT_EQ(kit->ClassCount(), 1u);
    manager->UnregisterClass(&CLSID_Coord);
    EXPECT_EQ(kit->ClassCount(), 0u);
}

TEST_F(HostObjectManager, RefusesNull) {
    const auto manager = Make(CreateClassArray);
    void* out = this;
    EXPECT_EQ(manager->RegisterClass(nullptr, factory), RESULT_FAIL);
    EXPECT_EQ(manager->RegisterClass(&CLSID_Coord, nullptr), RESULT_FAIL);
    EXPECT_EQ(manager->UnregisterClass(nullptr), RESULT_FAIL);
    EXPECT_EQ(manager->CreateInstance(nullptr, &IID_ICoord, &out), RESULT_FAIL);
    EXPECT_EQ(out, nullptr);
    EXPECT_EQ(manager->CreateInstance(&CLSID_HostArray, &IID_IArray, nullptr), RESULT_FAIL);
    EXPECT_EQ(kit->ClassCount(), 0u);
}

TEST_F(HostObjectManager, ResolvesTheArrayOfTheHost) {
    const auto manager = Make(CreateClassArray);
    void* out = nullptr;
    ASSERT_EQ(manager->CreateInstance(&CLSID_HostArray, &IID_IArray, &out), RESULT_OK);
    EXPECT_EQ(static_cast<IUnknown*>(out)->Release(), 0u);
    EXPECT_EQ(manager->CreateInstance(&CLSID_HostArray, &IID_ICoord, &out), RESULT_NO_INTERFACE);
    EXPECT_EQ(out, nullptr);

    const testing::FailAllocation failure(1);
    EXPECT_EQ(manager->CreateInstance(&CLSID_HostArray, &IID_IArray, &out), RESULT_OUT_OF_MEMORY);
    EXPECT_EQ(out, nullptr);
}

TEST_F(HostObjectManager, WithoutAWayToMakeArraysDoesntKnowThem) {
    const auto manager = Make(nullptr);
    void* out = this;
    EXPECT_EQ(manager->CreateInstance(&CLSID_HostArray, &IID_IArray, &out), RESULT_FAIL);
    EXPECT_EQ(out, nullptr);
}

}  // namespace
}  // namespace tessara
