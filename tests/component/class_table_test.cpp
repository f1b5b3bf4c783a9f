// The class table from outside: the registered classes, their order and policies, and the interfaces of
// their objects. A new class gets a row in ROWS and, if it is exported, one in CREATORS.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/factories.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::CountOf;

enum Policy { MULTI, SINGLETON };

struct Row {
    const char* name;
    const char* classId;
    Policy policy;
    std::vector<GUID> interfaces;  // primary face first
};

// In the order in which the factories are constructed.
const Row ROWS[] = {
    {"CircleOnTangentPlane", "F601D12D-BB6D-4D39-879C-7934B673EF28", SINGLETON, {IID_ICircleOnTangentPlane}},
    {"CoordGeographic", "0FB02762-1FA9-4E01-9220-5855F61D66B6", MULTI, {IID_ICoordGeographic}},
    {"Coord", "EFF9D47D-B44E-4C00-A982-CCB70E79686C", MULTI, {IID_ICoord, IID_ICoordInternal}},
    {"CoordinateString", "F9C3DBA6-9CE7-4D6B-9BD5-AE199C722BF1", MULTI, {IID_ICoordinateString}},
    {"CoordinateArea",
     "A6AE8424-CF07-486B-BC7F-075F2E73122E",
     MULTI,
     {IID_ICoordinateArea, IID_ICoordinateAreaInternal}},
    {"CoordinateAverage", "AAE43A28-9563-4F29-BA53-97EE4E1665C3", MULTI, {IID_ICoordinateAverage}},
    {"CoordinateChecker", "83084EF6-BA4F-474D-B0E4-CAB8DA0E1620", MULTI, {IID_ICoordinateChecker}},
    {"CoordCheckerUTMREF", "2FF85F4D-3D84-4DDA-8CEA-2213A7853004", MULTI, {IID_ICoordCheckerUTMREF}},
    {"CoordinateCompare", "C907BBE9-D92F-4838-8E35-BBDEEFC604FE", SINGLETON, {IID_ICoordinateCompare}},
    {"CoordinateGrid", "78728AB8-720E-422F-BADC-2E9D2B74786D", MULTI, {IID_ICoordinateGrid}},
    {"CoordinateGridFactory",
     "7A75CF12-C05A-48E4-ACAF-6A8DEF72EC68",
     SINGLETON,
     {IID_ICoordinateGridFactory}},
    {"CoordinateInit", "74DDEC17-98C8-4A0B-A403-46CD1ABEDFCA", MULTI, {IID_ICoordinateInit}},
    {"CoordinateNeighbor", "405710B7-1970-4F7D-BAF5-6580224BAA8A", SINGLETON, {IID_ICoordinateNeighbor}},
    {"CoordinateReference", "AE783125-E16F-4773-8CB7-F225A3EEDC3E", MULTI, {IID_ICoordinateReference}},
    {"CoordinateSystem", "4A3A7895-F7D5-4AB2-867A-516F92020DE8", MULTI, {IID_ICoordinateSystem}},
    {"GeoDate", "6577718A-7E52-4F54-9847-6A85E7DB3145", MULTI, {IID_IGeoDate}},
    {"CoordinateTransfer", "8523D252-81F4-4624-B1EB-DFA4626FC3E0", SINGLETON, {IID_ICoordinateTransfer}},
    {"EllipseOnTangentPlane",
     "6174F97A-BC76-43C0-94FB-64E69B7A4F7D",
     SINGLETON,
     {IID_IEllipseOnTangentPlane}},
    {"EllipsoidOfRevolution",
     "4A5D89C2-2D2E-49B0-BD6D-09D0455EEA3E",
     SINGLETON,
     {IID_IEllipsoidOfRevolution}},
    {"EuclideanVector", "D1A6E8C3-1731-4F57-8F3F-46B5DB1203DF", SINGLETON, {IID_IVector}},
    {"LineIntersectionParameters",
     "D3101BAF-3656-4536-B013-FEB1D16E8824",
     MULTI,
     {IID_ILineIntersectionParameters}},
    {"IntersectionResults", "4770F202-2EF5-4ADA-9318-56B81E8C3093", MULTI, {IID_IIntersectionResults}},
    {"LinePoints", "F9542F69-AF18-4CF3-B42F-12F058CF89BA", MULTI, {IID_ILinePoints}},
    {"MapCoordCreatorFactory",
     "48098E17-BC03-48EA-A555-35F345633CF5",
     SINGLETON,
     {IID_IMapCoordCreatorFactory}},
    {"MapCoordOperations",
     "D0E070F6-3D97-482E-9058-F2B2BCE57520",
     MULTI,
     {IID_IMapCoordOperations, IID_IMapParamInternal}},
    {"MapCoordOperationsFactory",
     "BC6402A2-B616-45AF-A50F-6B036921B0E4",
     SINGLETON,
     {IID_IMapCoordOperationsFactory}},
    {"Projection", "9421D26A-6D8D-464D-A60F-F79456DEDE4D", MULTI, {IID_IProjection, IID_IMapParamInternal}},
    {"ProjectionFactory", "07CA8BBF-4E0D-4C55-8476-B46452780DD6", SINGLETON, {IID_IProjectionFactory}},
    {"ReferencePoint", "4CF747A0-144C-4E53-869E-AFCFB9243FA0", MULTI, {IID_IReferencePoint}},
    {"TangentPlane", "1959E014-7388-4CAE-A519-3B1B3F19D074", MULTI, {IID_ITangentPlane}},
    {"TransformableMapPixel",
     "BDD0A598-26A4-4224-B5E9-C5A77CBB6923",
     MULTI,
     {IID_ITransformableMapPixel, IID_ITransformableInternal}},
    {"ZoneCoordOperations", "DD284984-BB8E-4890-A5D8-748F58C16DFC", SINGLETON, {IID_IZoneCoordOperations}},
};

MClassFactory* FactoryOf(const Row& row) {
    MClassFactory* factory = FirstClassFactory();
    while (factory != nullptr && factory->ClassName() != std::string("CLSID_") + row.name)
        factory = factory->Next();
    return factory;
}

// The exported functions, and the interface of the object that each creates.
struct Creator {
    IUnknown* (*create)();
    GUID interface;
};

template <auto Create>
IUnknown* Fresh() {
    return Create();
}

const Creator CREATORS[] = {
    {Fresh<CreateClassCircleOnTangentPlane>, IID_ICircleOnTangentPlane},
    {Fresh<CreateClassCoordGeographic>, IID_ICoordGeographic},
    {Fresh<CreateClassCoord>, IID_ICoord},
    {Fresh<CreateClassCoordinateArea>, IID_ICoordinateArea},
    {Fresh<CreateClassCoordinateAverage>, IID_ICoordinateAverage},
    {Fresh<CreateClassCoordinateCompare>, IID_ICoordinateCompare},
    {Fresh<CreateClassCoordinateString>, IID_ICoordinateString},
    {Fresh<CreateClassCoordinateChecker>, IID_ICoordinateChecker},
    {Fresh<CreateClassCoordCheckerUTMREF>, IID_ICoordCheckerUTMREF},
    {Fresh<CreateClassCoordinateGrid>, IID_ICoordinateGrid},
    {Fresh<CreateClassCoordinateGridFactory>, IID_ICoordinateGridFactory},
    {Fresh<CreateClassCoordinateInit>, IID_ICoordinateInit},
    {Fresh<CreateClassCoordinateNeighbor>, IID_ICoordinateNeighbor},
    {Fresh<CreateClassCoordinateReference>, IID_ICoordinateReference},
    {Fresh<CreateClassCoordinateSystem>, IID_ICoordinateSystem},
    {Fresh<CreateClassGeoDate>, IID_IGeoDate},
    {Fresh<CreateClassCoordinateTransfer>, IID_ICoordinateTransfer},
    {Fresh<CreateClassEllipseOnTangentPlane>, IID_IEllipseOnTangentPlane},
    {Fresh<CreateClassEllipsoidOfRevolution>, IID_IEllipsoidOfRevolution},
    {Fresh<CreateClassEuclideanVector>, IID_IVector},
    {Fresh<CreateClassTangentPlane>, IID_ITangentPlane},
    {Fresh<CreateClassIntersectionResults>, IID_IIntersectionResults},
    {Fresh<CreateClassLinePoints>, IID_ILinePoints},
    {Fresh<CreateClassMapCoordCreatorFactory>, IID_IMapCoordCreatorFactory},
    {Fresh<CreateClassMapCoordOperations>, IID_IMapCoordOperations},
    {Fresh<CreateClassMapCoordOperationsFactory>, IID_IMapCoordOperationsFactory},
    {Fresh<CreateClassProjection>, IID_IProjection},
    {Fresh<CreateClassProjectionFactory>, IID_IProjectionFactory},
    {Fresh<CreateClassReferencePoint>, IID_IReferencePoint},
    {Fresh<CreateClassTransformableMapPixel>, IID_ITransformableMapPixel},
    {Fresh<CreateClassZoneCoordOperations>, IID_IZoneCoordOperations},
    {Fresh<CreateClassFloatPoint>, IID_IFloatPoint},
    {Fresh<CreateClassArray>, IID_IArray},
};

class ClassTable : public testing::BalancedTest {
  protected:
    ~ClassTable() override {
        for (MClassFactory* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next())
            testing::TerminateFactory(factory);
    }
};

TEST_F(ClassTable, ListsTheClassesLastFirst) {
    const MClassFactory* factory = FirstClassFactory();
    for (auto row = std::rbegin(ROWS); row != std::rend(ROWS); ++row) {
        ASSERT_NE(factory, nullptr) << row->name;
        EXPECT_EQ(factory->ClassName(), std::string("CLSID_") + row->name);
        EXPECT_EQ(testing::TextOf(*factory->ClassId()), row->classId) << row->name;
        factory = factory->Next();
    }
    EXPECT_EQ(factory, nullptr) << "a class without a row here";
}

TEST_F(ClassTable, EachFactoryFollowsItsPolicy) {
    for (const Row& row : ROWS) {
        MClassFactory* const factory = FactoryOf(row);
        ASSERT_NE(factory, nullptr) << row.name;
        void* first = nullptr;
        void* second = nullptr;
        ASSERT_EQ(factory->CreateInstance(nullptr, &IID_IUnknown, &first), RESULT_OK) << row.name;
        ASSERT_EQ(factory->CreateInstance(nullptr, &IID_IUnknown, &second), RESULT_OK) << row.name;
        EXPECT_EQ(first == second, row.policy == SINGLETON) << row.name;
        EXPECT_EQ(CountOf(static_cast<IUnknown*>(first)), row.policy == SINGLETON ? 3u : 1u) << row.name;
        static_cast<IUnknown*>(first)->Release();
        static_cast<IUnknown*>(second)->Release();
    }
}

// Every interface id that a row names.
std::vector<GUID> AllInterfaces() {
    std::vector<GUID> all;
    for (const Row& row : ROWS)
        all.insert(all.end(), row.interfaces.begin(), row.interfaces.end());
    return all;
}

TEST_F(ClassTable, EachObjectAnswersItsInterfacesAndNoOther) {
    const std::vector<GUID> all = AllInterfaces();
    for (const Row& row : ROWS) {
        void* out = nullptr;
        ASSERT_EQ(FactoryOf(row)->CreateInstance(nullptr, &IID_IUnknown, &out), RESULT_OK);
        auto* const object = static_cast<IUnknown*>(out);
        for (const GUID& iid : all) {
            const bool isItsOwn = std::count(row.interfaces.begin(), row.interfaces.end(), iid) > 0;
            out = this;
            EXPECT_EQ(object->QueryInterface(&iid, &out), isItsOwn ? RESULT_OK : RESULT_NO_INTERFACE)
                << row.name;
            EXPECT_EQ(out != nullptr, isItsOwn) << row.name;
            if (out != nullptr) static_cast<IUnknown*>(out)->Release();
        }
        EXPECT_EQ(object->QueryInterface(&row.interfaces[0], &out), RESULT_OK);
        EXPECT_EQ(out, object) << "the first face is the primary one: " << row.name;
        object->Release();
        EXPECT_EQ(object->QueryInterface(&row.interfaces[0], nullptr), RESULT_FAIL) << row.name;
        object->Release();
    }
}

TEST_F(ClassTable, ExportsMakeANewObjectOfCountZeroEachTime) {
    for (const Creator& creator : CREATORS) {
        IUnknown* const first = creator.create();
        IUnknown* const second = creator.create();
        ASSERT_TRUE(first != nullptr && second != nullptr);
        EXPECT_NE(first, second) << "also of a singleton";
        EXPECT_EQ(first->AddRef(), 1u);
        void* out = nullptr;
        EXPECT_EQ(first->QueryInterface(&creator.interface, &out), RESULT_OK);
        EXPECT_EQ(out, first) << "the primary face";
        EXPECT_EQ(first->Release(), 1u);
        EXPECT_EQ(first->Release(), 0u);
        EXPECT_EQ(second->AddRef(), 1u);
        EXPECT_EQ(second->Release(), 0u);
    }
}

TEST_F(ClassTable, ExportsAreNullWithoutMemoryAndLeaveNothingBehind) {
    for (const Creator& creator : CREATORS) {
        const std::int64_t before = testing::LiveBlocks();
        bool hasFailed = true;
        // Lets each allocation of the constructor fail in turn, until none is left.
        for (int nth = 1; hasFailed; ++nth) {
            IUnknown* object = nullptr;
            {
                const testing::FailAllocation failure(nth);
                object = creator.create();
                hasFailed = failure.HasFailed();
            }
            EXPECT_EQ(object == nullptr, hasFailed);
            const IRef<IUnknown> end(object);
        }
        EXPECT_EQ(testing::LiveBlocks(), before);
    }
}

}  // namespace
}  // namespace tessara
