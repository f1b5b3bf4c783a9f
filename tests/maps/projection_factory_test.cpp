#include "tessara/projection_factory.h"

#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <vector>

#include "support/live_objects.h"
#include "support/map_objects.h"

namespace tessara::testing {
namespace {

class ProjectionFactoryTest : public BalancedTest {
  protected:
    IRef<IProjectionFactory> factory{CreateClassProjectionFactory()};
};

// One operation, on parameters that are 1, 2, 3 ... byte by byte.
struct Operation {
    std::uint32_t type;
    std::function<IProjection*(IProjectionFactory*)> create;
    std::function<IProjection*(IProjectionFactory*)> createFromNull;
    std::size_t size;
};

template <class Params>
Operation Row(std::uint32_t type, IProjection* (IProjectionFactory::*create)(const Params*)) {
    return {type,
            [create](IProjectionFactory* factory) {
                std::byte bytes[sizeof(Params)];
                for (std::size_t i = 0; i < sizeof bytes; ++i)
                    bytes[i] = static_cast<std::byte>(i + 1);
                Params params;
                std::memcpy(&params, bytes, sizeof params);
                return (factory->*create)(&params);
            },
            [create](IProjectionFactory* factory) { return (factory->*create)(nullptr); }, sizeof(Params)};
}

std::vector<Operation> Operations() {
    using F = IProjectionFactory;
    return {Row(2, &F::CreateUtm),
            Row(3, &F::CreateGaussKrueger),
            Row(13, &F::CreateGaussKrueger6),
            Row(4, &F::CreateLambert2),
            Row(6, &F::CreateEqualArc),
            Row(7, &F::CreatePolynom),
            Row(8, &F::CreateMercator),
            Row(9, &F::CreateBmn),
            Row(10, &F::CreateCh),
            Row(11, &F::CreateAzyl),
            Row(12, &F::CreateDd),
            Row(14, &F::CreateUps),
            Row(15, &F::CreateTm),
            Row(16, &F::CreatePoMilitary),
            Row(20, &F::CreateLuref),
            Row(5, &F::CreateLambertFr),
            Row(19, &F::CreateLambertCc),
            Row(7, &F::CreatePolynomSecond),
            Row(17, &F::CreateVanDerGrinten),
            Row(18, &F::CreateStereographicNl),
            Row(1, &F::CreateNone),
            Row(21, &F::CreateWagnerIv)};
}

TEST_F(ProjectionFactoryTest, MakesEachTypeWithItsParameters) {
    for (const Operation& operation : Operations()) {
        const IRef<IProjection> projection(operation.create(factory.Get()));
        ASSERT_TRUE(projection.IsValid()) << operation.type;
        EXPECT_EQ(projection->GetProjectionType(), operation.type);
        MapParam record;
        ASSERT_TRUE(IRef<IMapParamInternal>(projection)->GetMapParam(&record));
        EXPECT_EQ(record.worldType, operation.type == MAP_POLYNOM ? 4 : -1) << operation.type;
        // Padding may change when the record is copied.
        for (std::size_t i = operation.size - 8; i < operation.size; ++i)
            EXPECT_EQ(record.params[i], static_cast<std::byte>(i + 1)) << operation.type;
    }
}

TEST_F(ProjectionFactoryTest, GivesThemWithCountZero) {
    for (const Operation& operation : Operations()) {
        IProjection* const projection = operation.create(factory.Get());
        ASSERT_NE(projection, nullptr);
        EXPECT_EQ(projection->AddRef(), 1u) << operation.type;
        EXPECT_EQ(projection->Release(), 0u) << operation.type;
    }
}

TEST_F(ProjectionFactoryTest, MakesNothingFromNull) {
    const std::int64_t before = LiveBlocks();
    for (const Operation& operation : Operations())
        EXPECT_EQ(operation.createFromNull(factory.Get()), nullptr) << operation.type;
    EXPECT_EQ(LiveBlocks(), before);
}

TEST_F(ProjectionFactoryTest, MakesNothingWithoutMemory) {
    for (const Operation& operation : Operations()) {
        // The row's own function object was made before.
        IProjection* projection = nullptr;
        {
            const FailAllocation fail(1);
            projection = operation.create(factory.Get());
        }
        EXPECT_EQ(projection, nullptr) << operation.type;
    }
}

// The constants of the Luxembourg grid, given by hand, come out as they went in.
TEST_F(ProjectionFactoryTest, ALuxembourgProjectionHasTmParameters) {
    const MapTmParams params{6.16666666667, 49.8333333333, 80000.0, 100000.0, 1.0,
                             70000.0,       82000.0,       1.25,    1.5};
    const IRef<IProjection> projection(factory->CreateLuref(&params));
    MapTmParams out{};
    ASSERT_TRUE(projection->GetTmParams(&out));
    EXPECT_EQ(std::memcmp(&out, &params, sizeof out), 0);
    MapUtmParams utm{'q', 7, 1.0, 2.0, 3.0, 4.0};
    EXPECT_FALSE(projection->GetUtmParams(&utm));
    EXPECT_EQ(utm.hemisphere, 'q');
    EXPECT_EQ(utm.metresPerPixelY, 4.0);
}

}  // namespace
}  // namespace tessara::testing
