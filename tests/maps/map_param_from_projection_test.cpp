#include "maps/map_param_from_projection.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/host_projection.h"
#include "support/live_objects.h"
#include "support/map_objects.h"
#include "support/objects.h"

namespace tessara::testing {
namespace {

class MapParamFromProjectionTest : public BalancedTest {};

TEST_F(MapParamFromProjectionTest, TakesTheRecordOfTheLibrarysOwn) {
    for (std::uint32_t type : {0u, 1u, 2u, 21u, 22u}) {
        MapParam inside = CountedRecord(type);
        inside.worldType = 4;
        inside.datum = 6;
        MapParam out;
        ASSERT_TRUE(MapParamFromProjection(ProjectionOf(inside).Get(), &out));
        EXPECT_EQ(out.type, type);
        EXPECT_EQ(out.worldType, 4);
        EXPECT_EQ(std::memcmp(out.params, inside.params, MAP_PARAMS_SIZE), 0);
        EXPECT_EQ(out.datum, 999u);
    }
}

TEST_F(MapParamFromProjectionTest, AsksAProjectionOfAnotherMakerForItsParameters) {
    for (std::uint32_t type = MAP_UTM; type < MAP_TYPE_COUNT; ++type) {
        const IRef<IProjection> projection(NewObject<HostProjection>(CountedRecord(type)));
        MapParam out;
        ASSERT_TRUE(MapParamFromProjection(projection.Get(), &out)) << type;
        EXPECT_EQ(out.type, type);
        EXPECT_EQ(out.worldType, type == MAP_POLYNOM ? 4 : -1);
        EXPECT_EQ(out.params[15], static_cast<std::byte>(16)) << type;
    }
}

TEST_F(MapParamFromProjectionTest, ForeignProjectionsDoNotServeForTypesThatAreNoMaps) {
    for (std::uint32_t type : {0u, 1u, 22u, 0xFFFFFFFFu}) {
        const IRef<IProjection> projection(NewObject<HostProjection>(CountedRecord(type)));
        MapParam out;
        EXPECT_FALSE(MapParamFromProjection(projection.Get(), &out)) << type;
    }
}

TEST_F(MapParamFromProjectionTest, FailsWithTheGetter) {
    for (std::uint32_t type = MAP_UTM; type < MAP_TYPE_COUNT; ++type) {
        const IRef<IProjection> projection(NewObject<HostProjection>(CountedRecord(type), false));
        MapParam out;
        EXPECT_FALSE(MapParamFromProjection(projection.Get(), &out)) << type;
    }
}

// A projection of a host that returns the record of another host's map.
class OpenProjection : public HostProjection, public IMapParamInternal {
  public:
    using Faces = FaceList<IProjection, IMapParamInternal>;
    explicit OpenProjection(const MapParam& map, bool gives = true)
        : HostProjection(map), record_(map), gives_(gives) {}

    bool GetMapParam(MapParam* out) override {
        *out = record_;
        return gives_;
    }
    bool SetMapParam(const MapParam*) override { return false; }

  protected:
    ~OpenProjection() = default;

  private:
    MapParam record_;
    bool gives_;
};

TEST_F(MapParamFromProjectionTest, FailsWithTheRecord) {
    IProjection* const made = NewObject<OpenProjection>(CountedRecord(MAP_UTM), false);
    const IRef<IProjection> projection(made);
    MapParam out;
    EXPECT_FALSE(MapParamFromProjection(projection.Get(), &out));
    EXPECT_EQ(out.type, MapParam().type);
}

TEST_F(MapParamFromProjectionTest, TakesNoChainFromAnybody) {
    MapParam record = CountedRecord(MAP_UTM);
    record.referenceCount = 3;
    record.reference.next = reinterpret_cast<MapReferenceNode*>(8);  // nowhere
    record.datum = 5;
    IProjection* const made = NewObject<OpenProjection>(record);
    const IRef<IProjection> projection(made);
    MapParam out;
    ASSERT_TRUE(MapParamFromProjection(projection.Get(), &out));
    EXPECT_EQ(out.type, 2u);
    EXPECT_EQ(out.referenceCount, 0u);
    EXPECT_EQ(out.reference.next, nullptr);
    EXPECT_EQ(out.datum, 999u);
}

TEST_F(MapParamFromProjectionTest, RefusesWhatIsNoProjection) {
    MapParam out;
    EXPECT_FALSE(MapParamFromProjection(nullptr, &out));
    EXPECT_FALSE(MapParamFromProjection(MakeStranger().Get(), &out));
}

}  // namespace
}  // namespace tessara::testing
