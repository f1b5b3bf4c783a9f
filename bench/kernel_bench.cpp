// Measures the kernel alone: every coordinate type in both directions through KoordConvertEx, the datum
// shift and the geodesic, on arrays of 4096 random legal positions, per position. Then measures whole arrays
// in one call, on one thread and on two, in positions per second.

#include <benchmark/benchmark.h>

#include <string>

#include "bench/positions.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::bench {
namespace {

void ConvertAll(benchmark::State& state, const std::vector<tagKOORD>& sources, tagKOORD target,
                std::int32_t checkRange) {
    if (sources.size() != POSITIONS) {
        state.SkipWithError("a position doesn't convert");
        return;
    }
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(KoordConvertEx(&sources[i], &target, checkRange));
        benchmark::ClobberMemory();
        i = (i + 1) % POSITIONS;
    }
    state.SetItemsProcessed(state.iterations());
}

void RegisterConversions() {
    for (const Area& area : AREAS) {
        benchmark::RegisterBenchmark(
            (std::string("to ") + area.name).c_str(), [&area](benchmark::State& state) {
                ConvertAll(state, RandomPositions(area), Target(area), CheckRange(area));
            });
        benchmark::RegisterBenchmark(
            (std::string("from ") + area.name).c_str(), [&area](benchmark::State& state) {
                ConvertAll(state, Converted(area), MakeKoord(area.datum, KOORD_GEODEZ), 1);
            });
    }
}

// Converts all positions with one call per thread, each for its share. The figure is elapsed time per
// position.
void RegisterBatches() {
    for (const Area& area : AREAS) {
        for (const bool isForward : {true, false}) {
            const auto run = [&area, isForward](benchmark::State& state) {
                const std::vector<tagKOORD> sources = isForward ? RandomPositions(area) : Converted(area);
                const tagKOORD target = isForward ? Target(area) : MakeKoord(area.datum, KOORD_GEODEZ);
                const std::int32_t checkRange = isForward ? CheckRange(area) : 1;
                std::vector<tagKOORD> targets(sources.size(), target);
                const std::size_t part = POSITIONS / static_cast<std::size_t>(state.threads());
                const std::size_t first = part * static_cast<std::size_t>(state.thread_index());
                for (auto _ : state) {
                    benchmark::DoNotOptimize(
                        KoordConvertMany(&sources[first], &targets[first], part, checkRange, nullptr));
                }
                state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(part));
            };
            const std::string name = std::string(isForward ? "many to " : "many from ") + area.name;
            benchmark::RegisterBenchmark(name.c_str(), run)->ThreadRange(1, 2)->UseRealTime();
        }
    }
}

constexpr Area GERMANY{"Germany", KOORD_GEODEZ, 3, 47.5, 55.0, 6.0, 15.0};

void RegisterShifts() {
    benchmark::RegisterBenchmark("Bessel to WGS84", [](benchmark::State& state) {
        ConvertAll(state, RandomPositions(GERMANY), MakeKoord(DATUM_WGS84, KOORD_GEODEZ), 1);
    });
    benchmark::RegisterBenchmark("WGS84 to Bessel", [](benchmark::State& state) {
        std::vector<tagKOORD> positions = RandomPositions(GERMANY);
        for (tagKOORD& position : positions)
            position.datum = DATUM_WGS84;
        ConvertAll(state, positions, MakeKoord(3, KOORD_GEODEZ), 1);
    });
    benchmark::RegisterBenchmark("Bessel to WGS84 to UTM", [](benchmark::State& state) {
        ConvertAll(state, RandomPositions(GERMANY), MakeKoord(DATUM_WGS84, KOORD_UTM), 1);
    });
}

constexpr Area WORLD{"world", KOORD_GEODEZ, 2, -85.0, 85.0, -80.0, 80.0};

void RegisterGeodesics() {
    benchmark::RegisterBenchmark("geodesic inverse", [](benchmark::State& state) {
        const std::vector<tagKOORD> positions = RandomPositions(WORLD);
        std::size_t i = 0;
        double distance, azimuth12, azimuth21;
        for (auto _ : state) {
            const std::size_t next = (i + 1) % POSITIONS;
            benchmark::DoNotOptimize(Geodesic_Inverse(&positions[i], &positions[next], DATUM_WGS84, &distance,
                                                      &azimuth12, &azimuth21));
            i = next;
        }
        state.SetItemsProcessed(state.iterations());
    });
    benchmark::RegisterBenchmark("geodesic direct", [](benchmark::State& state) {
        const std::vector<tagKOORD> positions = RandomPositions(WORLD);
        tagKOORD target = MakeKoord(DATUM_WGS84, KOORD_GEODEZ);
        std::size_t i = 0;
        for (auto _ : state) {
            const double distance = 1000.0 + 2000.0 * static_cast<double>(i);
            benchmark::DoNotOptimize(Geodesic_Direct(&positions[i], DATUM_WGS84, distance, 37.0, &target));
            i = (i + 1) % POSITIONS;
        }
        state.SetItemsProcessed(state.iterations());
    });
}

const bool REGISTERED = [] {
    RegisterConversions();
    RegisterBatches();
    RegisterShifts();
    RegisterGeodesics();
    return true;
}();

}  // namespace
}  // namespace tessara::bench
