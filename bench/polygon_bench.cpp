// Measures polygons: a point in a polygon, splitting, overlays; with objects as a host calls them, and on
// plain vertex lists of 10 to 10000 vertices.

#include <benchmark/benchmark.h>

#include "bench/rings.h"
#include "polygons/polygon_inside.h"
#include "polygons/polygon_overlay.h"
#include "polygons/polygon_split.h"
#include "tessara/array.h"
#include "tessara/coord.h"
#include "tessara/coordinate_area.h"
#include "tessara/ref.h"

namespace tessara::bench {
namespace {

constexpr double TOLERANCE = 2.220446049250313e-11;
constexpr PlanePoint MIDDLE{500.0, 500.0};
constexpr PlanePoint FAR{5000.0, 5000.0};

Ring StarAt(std::int64_t count, double shift = 0.0) {
    return Star<Ring>(count, MIDDLE.x + shift);
}

// A wave that crosses its own baseline with every second edge.
Ring Wave(std::int64_t count) {
    Ring wave{{static_cast<double>(count), 0.0}};
    for (std::int64_t i = 0; i + 1 < count; ++i)
        wave.push_back({static_cast<double>(i), i == 0 ? 0.0 : (i % 2 == 0 ? 3.0 : -2.0)});
    return wave;
}

IRef<ICoord> Pixel(const PlanePoint& place) {
    IRef<ICoord> coord(CreateClassCoord());
    coord->SetPixel(place.x, place.y);
    return coord;
}

IRef<IArray> Polygon(const Ring& ring) {
    IRef<IArray> polygon(CreateClassArray());
    for (const PlanePoint& place : ring)
        polygon->Add(Pixel(place).Get());
    return polygon;
}

void IsInsidePixels(benchmark::State& state, const PlanePoint& place) {
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    const IRef<ICoord> point = Pixel(place);
    const IRef<IArray> polygon = Polygon(StarAt(state.range(0)));
    for (auto _ : state)
        benchmark::DoNotOptimize(area->IsInsidePixels(point.Get(), polygon.Get()));
}
BENCHMARK_CAPTURE(IsInsidePixels, near, MIDDLE)->Arg(1000)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(IsInsidePixels, far, FAR)->Arg(1000)->Unit(benchmark::kMicrosecond);

void Overlay(benchmark::State& state) {
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    const IRef<IArray> first = Polygon(StarAt(state.range(0)));
    const IRef<IArray> second = Polygon(StarAt(state.range(0), 100.0));
    const IRef<IArray> parts[] = {IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray()),
                                  IRef<IArray>(CreateClassArray()), IRef<IArray>(CreateClassArray())};
    for (auto _ : state) {
        benchmark::DoNotOptimize(area->Overlay(first.Get(), second.Get(), parts[0].Get(), parts[1].Get(),
                                               parts[2].Get(), parts[3].Get()));
    }
}
BENCHMARK(Overlay)->Arg(200)->Unit(benchmark::kMicrosecond);

void PointInStar(benchmark::State& state, const PlanePoint& place) {
    const Ring star = StarAt(state.range(0));
    for (auto _ : state)
        benchmark::DoNotOptimize(PointInPolygon(place, star, TOLERANCE));
    state.SetComplexityN(state.range(0));
}

void Split(benchmark::State& state, Ring (*make)(std::int64_t)) {
    const Ring ring = make(state.range(0));
    std::size_t parts = 0;
    for (auto _ : state) {
        const std::vector<Ring> split = SplitVertices(ring);
        parts = split.size();
        benchmark::DoNotOptimize(split.data());
    }
    state.counters["parts"] = static_cast<double>(parts);
    state.SetComplexityN(state.range(0));
}

Ring PlainStar(std::int64_t count) {
    return StarAt(count);
}

void OverlayStars(benchmark::State& state) {
    const Ring first = StarAt(state.range(0));
    const Ring second = StarAt(state.range(0), 100.0);
    OverlayParts parts;
    for (auto _ : state)
        benchmark::DoNotOptimize(OverlayVertices(first, second, TOLERANCE, &parts));
    state.counters["parts"] = static_cast<double>(parts.both.size() + parts.onlyFirst.size() +
                                                  parts.onlySecond.size() + parts.neither.size());
    state.SetComplexityN(state.range(0));
}

void Growing(benchmark::internal::Benchmark* rows) {
    rows->RangeMultiplier(10)->Range(10, 10000)->Unit(benchmark::kMicrosecond)->Complexity();
}
BENCHMARK_CAPTURE(PointInStar, near, MIDDLE)->Apply(Growing);
BENCHMARK_CAPTURE(PointInStar, far, FAR)->Apply(Growing);
BENCHMARK_CAPTURE(Split, star, PlainStar)->Apply(Growing);
BENCHMARK_CAPTURE(Split, wave, Wave)->Apply(Growing);
BENCHMARK(OverlayStars)->Apply(Growing);

}  // namespace
}  // namespace tessara::bench
