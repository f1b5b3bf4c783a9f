// Calls the two map functions with random maps, pixels and positions: each call ends with a defined status
// and writes only its output.
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <limits>
#include <random>
#include <set>

#include "support/maps.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::testing::map_kernel_fuzz_test {
namespace {

constexpr int ROUNDS = 20000;

const std::set<KoordStatus> STATUSES = {KOORD_OK,
                                        GEODESIC_NO_SOLUTION,
                                        KOORD_ERR_GENERAL,
                                        KOORD_ERR_DATUM,
                                        KOORD_ERR_MERIDIAN,
                                        KOORD_ERR_UTM_ZONE,
                                        KOORD_ERR_ZONE_DISTANT,
                                        KOORD_ERR_GRID_RANGE,
                                        KOORD_ERR_MAP_TYPE,
                                        KOORD_ERR_POLYNOM_ORDER,
                                        KOORD_ERR_TYPE,
                                        KOORD_ERR_PIXEL_TYPE,
                                        KOORD_ERR_OUTSIDE,
                                        KOORD_ERR_GK_EAST,
                                        KOORD_ERR_EAST_LOW,
                                        KOORD_ERR_EAST_HIGH,
                                        KOORD_ERR_NORTH_HIGH,
                                        KOORD_ERR_NORTH_LOW};

class Dice {
  public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}

    std::uint32_t Draw() { return static_cast<std::uint32_t>(engine_()); }
    std::uint32_t Below(std::size_t count) { return Draw() % static_cast<std::uint32_t>(count); }
    bool OneIn(std::size_t count) { return Below(count) == 0; }

    // A number with arbitrary bits or, more often, one that is plausible in a map.
    double Number() {
        constexpr double infinite = std::numeric_limits<double>::infinity();
        constexpr std::array<double, 14> special{
            0.0,    -0.0,  1.0, -1.0,         90.0,     -90.0,     180.0,
            1e-300, 1e300, 1e9, 2147483648.0, infinite, -infinite, std::numeric_limits<double>::quiet_NaN()};
        constexpr std::array<double, 6> scales{1.0, 10.0, 100.0, 1e4, 1e6, 1e7};
        if (OneIn(8)) return special[Below(special.size())];
        if (OneIn(10)) return Bits<double>();
        return scales[Below(scales.size())] * (Draw() / 2147483648.0 - 1.0);
    }

    template <class T>
    T Bits() {
        T value;
        std::array<std::uint8_t, sizeof(T)> bytes;
        for (std::uint8_t& byte : bytes)
            byte = static_cast<std::uint8_t>(Draw());
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }

    // A record of any type whose payload is numbers, or bits.
    tagKOORD AnyRecord() {
        tagKOORD record = OneIn(8) ? Bits<tagKOORD>() : tagKOORD{};
        if (!OneIn(20)) record.datum = Below(239);
        if (!OneIn(20)) record.type = Below(24);
        if (OneIn(3)) record.type = KOORD_GEODEZ;
        for (std::size_t at = 0; at + sizeof(double) <= sizeof record.payload; at += sizeof(double))
            PutNumber(record.payload + at);
        if (OneIn(2)) {
            const auto small = static_cast<std::int16_t>(Below(61));
            std::memcpy(record.payload + 2 * Below(3), &small, sizeof small);
        }
        return record;
    }

    tagKOORD AnyPixel() {
        tagKOORD pixel = AnyRecord();
        if (!OneIn(20)) pixel.type = Below(2);
        return pixel;
    }

    MapParam AnyMap() {
        MapParam map;
        map.type = OneIn(50) ? Bits<std::uint32_t>() : Below(MAP_TYPE_COUNT + 1);
        map.datum = OneIn(20) ? Bits<std::uint32_t>() : Below(240);
        map.reference.world = AnyRecord();
        map.reference.pixelX = Bits<std::int32_t>() % 10000;
        map.reference.pixelY = Bits<std::int32_t>() % 10000;
        map.scaleDenominator = OneIn(8) ? Bits<std::int32_t>() : static_cast<std::int32_t>(Below(1000000));
        map.resolution = Number();
        for (std::size_t at = 0; at + sizeof(double) <= MAP_PARAMS_SIZE; at += sizeof(double)) {
            if (!OneIn(20)) PutNumber(map.params + at);
        }
        PutHead(&map);
        return map;
    }

  private:
    void PutNumber(std::byte* place) {
        const double number = Number();
        std::memcpy(place, &number, sizeof number);
    }

    // The letters, zones and orders in front of the numbers.
    void PutHead(MapParam* map) {
        constexpr std::array<std::int16_t, 12> zones{0, 9, 18, 28, 31, 34, 32, -6, 60, 61, 32767, -32768};
        constexpr std::array<std::uint32_t, 6> orders{3, 4, 6, 10, 0, 11};
        constexpr std::array<char, 5> letters{'N', 'S', 'n', 's', 'x'};
        switch (map->type) {
            case MAP_UTM:
            case MAP_UPS:
            case MAP_GAUKRU:
            case MAP_GAUKRU6: {
                const std::int16_t zone = zones[Below(zones.size())];
                map->params[0] = static_cast<std::byte>(letters[Below(letters.size())]);
                std::memcpy(map->params + 2, &zone, sizeof zone);
                break;
            }
            case MAP_BMN:
            case MAP_EQUALARC: {
                const std::int16_t zone = zones[Below(zones.size())];
                std::memcpy(map->params, &zone, sizeof zone);
                break;
            }
            case MAP_POLYNOM: {
                const std::uint32_t order = orders[Below(orders.size())];
                std::memcpy(map->params, &order, sizeof order);
                break;
            }
            case MAP_LAMBERTFR: {
                const auto zone = static_cast<std::int32_t>(Below(6));
                std::memcpy(map->params, &zone, sizeof zone);
                break;
            }
            default:
                break;
        }
    }

    std::mt19937 engine_;
};

bool AreSame(const MapParam& a, const MapParam& b) {
    return std::memcmp(&a, &b, sizeof a) == 0;
}

TEST(MapFuzz, EveryPixelOfEveryMapEndsSomewhere) {
    Dice dice(20240611);
    int found = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const MapParam map = dice.AnyMap();
        const MapParam before = map;
        const tagKOORD pixel = dice.AnyPixel();
        tagKOORD world = dice.AnyRecord();
        const tagKOORD wanted = world;
        const KoordStatus status = MapPixelToWorld(&map, &pixel, &world);
        EXPECT_TRUE(STATUSES.contains(status) || (status <= KOORD_ERR_UTM_LON && status > KOORD_ERR_EAST_LOW))
            << status << " in round " << round;
        EXPECT_EQ(world.datum, wanted.datum);
        EXPECT_EQ(world.type, wanted.type);
        EXPECT_TRUE(AreSame(map, before));
        found += status == KOORD_OK;
    }
    // Some of the random inputs were legal.
    EXPECT_GT(found, ROUNDS / 20);
}

TEST(MapFuzz, EveryPositionOnEveryMapEndsSomewhere) {
    Dice dice(20240612);
    int found = 0;
    for (int round = 0; round < ROUNDS; ++round) {
        const MapParam map = dice.AnyMap();
        const MapParam before = map;
        const tagKOORD world = dice.AnyRecord();
        tagKOORD pixel = dice.AnyPixel();
        const tagKOORD wanted = pixel;
        const KoordStatus status = MapWorldToPixel(&map, &world, &pixel);
        EXPECT_TRUE(STATUSES.contains(status) || (status <= KOORD_ERR_UTM_LON && status > KOORD_ERR_EAST_LOW))
            << status << " in round " << round;
        EXPECT_EQ(pixel.datum, wanted.datum);
        EXPECT_EQ(pixel.type, wanted.type);
        EXPECT_TRUE(status == KOORD_OK || std::memcmp(&pixel, &wanted, sizeof pixel) == 0) << round;
        EXPECT_TRUE(AreSame(map, before));
        found += status == KOORD_OK;
    }
    EXPECT_GT(found, ROUNDS / 20);
}

}  // namespace
}  // namespace tessara::testing::map_kernel_fuzz_test
