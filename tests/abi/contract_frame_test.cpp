// A host with declarations of its own calls the component, the factories and the small objects.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "abi/contract/classes.h"
#include "abi/contract/host.h"

namespace contract {
namespace {

using ContractFrame = ContractHost;

class SinkBody : public IClassSink {
  public:
    static constexpr Guid ID = Id("00000000-0000-0000-0000-000000000001");
    int32_t OnClass(ITypeInfoDesc* description) override {
        names.insert(description->GetClassName());
        ids += description->GetClassId() != nullptr ? 1 : 0;
        return OK;
    }
    std::set<std::string> names;
    int ids = 0;

  protected:
    ~SinkBody() = default;
};

TEST_F(ContractFrame, TheComponentListsRegistersAndUnregistersItsClasses) {
    EXPECT_EQ(kit->registered.size(), CLASSES.size());
    auto* const body = new HostObject<SinkBody>;
    const Held<IClassSink> sink(body);
    EXPECT_TRUE(component->EnumerateClasses(sink));
    EXPECT_EQ(body->ids, 32);
    for (const ClassRow& row : CLASSES)
        EXPECT_EQ(body->names.count(row.text), 1u) << row.name;
    EXPECT_FALSE(component->QueryFlag());
    EXPECT_TRUE(kit->unregistered.empty());
    EXPECT_TRUE(component->Terminate());
    EXPECT_EQ(kit->unregistered.size(), 32u);
}

TEST_F(ContractFrame, TheComponentCountsNothing) {
    EXPECT_EQ(component->AddRef(), 2u);
    EXPECT_EQ(component->Release(), 1u);
    const Held<ITessaraComponentInit> init = As<ITessaraComponentInit>(component);
    ASSERT_NE(init.Get(), nullptr);
    EXPECT_EQ(init->AddRef(), 2u);
    EXPECT_EQ(init->InitParameterA(&kit), 0);
    EXPECT_EQ(init->InitParameterB(&kit), 0);
    EXPECT_EQ(As<ITessaraComponent>(init).Get(), component);
}

TEST_F(ContractFrame, EveryClassAnswersItsIdsAndNoOther) {
    const Guid foreign = Id("12345678-1234-1234-1234-123456789ABC");
    for (const ClassRow& row : CLASSES) {
        void* primary = nullptr;
        ASSERT_EQ(kit->CreateInstance(&row.id, row.faces[0], &primary), OK) << row.name;
        auto* const object = static_cast<IUnknown*>(primary);
        for (const Guid* face : row.faces) {
            void* other = nullptr;
            EXPECT_EQ(object->QueryInterface(face, &other), OK) << row.name;
            void* identity = nullptr;
            EXPECT_EQ(static_cast<IUnknown*>(other)->QueryInterface(&IUnknown::ID, &identity), OK)
                << row.name;
            EXPECT_EQ(identity, primary) << row.name << ": the primary face stands for the object";
            static_cast<IUnknown*>(identity)->Release();
            static_cast<IUnknown*>(other)->Release();
        }
        void* none = &primary;
        EXPECT_EQ(object->QueryInterface(&foreign, &none), NO_INTERFACE) << row.name;
        EXPECT_EQ(none, nullptr) << row.name;
        object->Release();
    }
}

TEST_F(ContractFrame, FactoriesFollowTheirPolicy) {
    for (const ClassRow& row : CLASSES) {
        MClassFactory* const factory = kit->FactoryOf(row.id);
        ASSERT_NE(factory, nullptr) << row.name;
        EXPECT_TRUE(*factory->classId == row.id) << row.name;
        EXPECT_STREQ(factory->className, row.text);
        EXPECT_EQ(factory->LockServer(1), 1) << row.name;

        void* first = &first;
        EXPECT_EQ(factory->CreateInstance(factory, &IUnknown::ID, &first), NO_AGGREGATION) << row.name;
        EXPECT_EQ(first, nullptr) << row.name;
        void* second = nullptr;
        EXPECT_EQ(factory->CreateInstance(nullptr, &IUnknown::ID, &first), OK) << row.name;
        EXPECT_EQ(factory->CreateInstance(nullptr, &IUnknown::ID, &second), OK) << row.name;
        const bool isShared = row.policy == Policy::SINGLETON;
        EXPECT_EQ(first == second, isShared) << row.name;
        static_cast<IUnknown*>(second)->Release();
        // A shared object is held by its factory, and some by other shared objects.
        EXPECT_EQ(static_cast<IUnknown*>(first)->Release() > 0, isShared) << row.name;
    }
}

TEST_F(ContractFrame, FactoriesDescribeTheirClass) {
    for (const ManagerBody::Registration& row : kit->registered) {
        const Held<ITypeInfoDesc> description = As<ITypeInfoDesc>(row.factory);
        ASSERT_NE(description.Get(), nullptr) << row.factory->className;
        EXPECT_EQ(description->GetClassId(), row.factory->classId);
        EXPECT_EQ(description->GetClassName(), row.factory->className);
        EXPECT_EQ(description->AddRef(), 2u);
        EXPECT_NE(As<ITerminator>(row.factory).Get(), nullptr) << row.factory->className;
    }
}

TEST_F(ContractFrame, ATerminatedFactoryLetsGoOfItsObject) {
    const ClassRow& row = CLASSES[0];
    ASSERT_EQ(row.policy, Policy::SINGLETON);
    MClassFactory* const factory = kit->FactoryOf(row.id);
    void* object = nullptr;
    ASSERT_EQ(factory->CreateInstance(nullptr, &IUnknown::ID, &object), OK);
    As<ITerminator>(factory)->Terminate();
    EXPECT_EQ(static_cast<IUnknown*>(object)->Release(), 0u) << "the host's was the last count";
}

TEST_F(ContractFrame, FactoriesAreLinkedThroughTheirThirdMember) {
    for (std::size_t i = 1; i < kit->registered.size(); ++i)
        EXPECT_EQ(kit->registered[i - 1].factory->next, kit->registered[i].factory);
    EXPECT_EQ(kit->registered.back().factory->next, nullptr);
}

TEST_F(ContractFrame, Array) {
    const auto array = Make<IArray>("Array");
    const auto first = Make<IFloatPoint>("FloatPoint");
    const auto second = Make<IFloatPoint>("FloatPoint");
    array->Add(first);
    array->Add(second);
    array->Add(nullptr);
    EXPECT_EQ(array->GetCount(), 3u);
    EXPECT_EQ(array->GetAt(1), second.Get());
    EXPECT_EQ(array->GetAt(2), nullptr);
    array->RemoveAt(0);
    EXPECT_EQ(array->GetCount(), 2u);
    EXPECT_EQ(array->GetAt(0), second.Get());
    array->Clear();
    EXPECT_EQ(array->GetCount(), 0u);
}

TEST_F(ContractFrame, FloatPoint) {
    const auto point = Make<IFloatPoint>("FloatPoint");
    point->SetX(1.0);
    point->SetY(2.0);
    point->SetZ(3.0);
    EXPECT_EQ(point->GetX(), 1.0);
    EXPECT_EQ(point->GetY(), 2.0);
    EXPECT_EQ(point->GetZ(), 3.0);
}

TEST_F(ContractFrame, TextsThatTheLibraryMakes) {
    const auto zones = Make<IArray>("Array");
    ASSERT_TRUE(Make<ICoordCheckerUTMREF>("CoordCheckerUTMREF")->GetZoneList(zones));
    const Held<ITessaraString> text = As<ITessaraString>(zones->GetAt(11));
    const Held<ITessaraString> other = As<ITessaraString>(zones->GetAt(1));
    ASSERT_TRUE(text.Get() != nullptr && other.Get() != nullptr);
    EXPECT_STREQ(text->GetText(), "12");
    EXPECT_EQ(text->GetLength(), 2);
    EXPECT_FALSE(text->IsEmpty());

    text->AssignText("Axb");
    EXPECT_STREQ(text->GetText(), "Axb");
    other->AssignText("aXb");
    EXPECT_LT(text->CompareText("axb"), 0);
    EXPECT_EQ(text->CompareTextNoCase("axb"), 0);
    EXPECT_LT(text->Compare(other), 0) << "capitals come first";
    EXPECT_EQ(text->CompareNoCase(other), 0);
    EXPECT_GT(text->CompareTextNoCase("AXA"), 0);
    EXPECT_EQ(text->Compare(zones), INT32_MIN);
    EXPECT_EQ(text->CompareText(nullptr), INT32_MIN);
    EXPECT_TRUE(text->Assign(other));
    EXPECT_STREQ(text->GetText(), "aXb");
    EXPECT_FALSE(text->Assign(zones));
    text->Clear();
    EXPECT_TRUE(text->IsEmpty());
    EXPECT_EQ(text->GetLength(), 0);
}

}  // namespace
}  // namespace contract
