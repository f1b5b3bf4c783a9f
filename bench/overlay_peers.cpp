// Compares overlays with GEOS: the same two rings, one thread, processor time, medians of three alternating
// runs. Tessara runs Overlay of the shared library, including the lists of coordinates that it creates. GEOS
// has two ways, and the ratio refers to the faster one: cutting the plane along both rings (union of the
// rings, polygonize), which works for every ring but doesn't determine which face is inside which ring; and
// the intersection with both differences, for rings that don't cross themselves. Before measuring, the
// number of faces and the areas of the two are compared.
//
//     overlay_peers [NAME ...]     only the inputs whose names begin with a NAME

#include <geos_c.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "bench/rings.h"
#include "tessara/array.h"
#include "tessara/coord.h"
#include "tessara/coordinate_area.h"
#include "tessara/ref.h"

namespace tessara::bench {
namespace {

struct Place {
    double x, y;
};
using Ring = std::vector<Place>;

struct Input {
    const char* name;
    Ring first, second;
    bool areSimple;  // whether neither crosses itself
};

[[noreturn]] void Fail(const std::string& message) {
    std::fprintf(stderr, "overlay_peers: %s\n", message.c_str());
    std::exit(1);
}

// The result of an overlay.
struct Outcome {
    std::size_t faces;
    double area;
};

class Ours {
  public:
    explicit Ours(const Input& input) : first_(Polygon(input.first)), second_(Polygon(input.second)) {
        for (IRef<IArray>& list : parts_)
            list = IRef<IArray>(CreateClassArray());
    }

    void Run() const {
        const std::int32_t result = area_->Overlay(first_.Get(), second_.Get(), parts_[0].Get(),
                                                   parts_[1].Get(), parts_[2].Get(), parts_[3].Get());
        if (result == OVERLAY_FAILURE) Fail("no overlay");
    }

    [[nodiscard]] Outcome Found() const {
        Outcome found{0, 0.0};
        for (const IRef<IArray>& list : parts_) {
            for (std::uint32_t i = 0; i < list->GetCount(); ++i) {
                const IRef<IArray> part(list->GetAt(i));
                ++found.faces;
                found.area += AreaOf(part.Get());
            }
        }
        return found;
    }

  private:
    static IRef<IArray> Polygon(const Ring& ring) {
        IRef<IArray> polygon(CreateClassArray());
        for (const Place& place : ring) {
            const IRef<ICoord> coord(CreateClassCoord());
            coord->SetPixel(place.x, place.y);
            polygon->Add(coord.Get());
        }
        return polygon;
    }

    static double AreaOf(IArray* closed) {
        double twice = 0.0;
        Place last{};
        for (std::uint32_t i = 0; i < closed->GetCount(); ++i) {
            const IRef<ICoord> coord(closed->GetAt(i));
            Place place{};
            coord->GetPixel(&place.x, &place.y);
            if (i > 0) twice += last.x * place.y - place.x * last.y;
            last = place;
        }
        return std::fabs(twice) / 2.0;
    }

    IRef<ICoordinateArea> area_{CreateClassCoordinateArea()};
    IRef<IArray> first_, second_;
    std::array<IRef<IArray>, 4> parts_;
};

class Geos {
  public:
    explicit Geos(const Input& input)
        : context_(GEOS_init_r(), GEOS_finish_r),
          first_(Polygon(input.first)),
          second_(Polygon(input.second)),
          areSimple_(input.areSimple) {}

    // Cuts the plane into all faces.
    void Cut() {
        const Shape a = Own(GEOSBoundary_r(Context(), first_.get()));
        const Shape b = Own(GEOSBoundary_r(Context(), second_.get()));
        const Shape pieces = Own(GEOSUnion_r(Context(), a.get(), b.get()));
        const GEOSGeometry* lines[] = {pieces.get()};
        faces_ = Own(GEOSPolygonize_r(Context(), lines, 1));
    }

    [[nodiscard]] bool HasParts() const { return areSimple_; }
    // Computes the parts in both and in only one.
    void Parts() {
        Own(GEOSIntersection_r(Context(), first_.get(), second_.get()));
        Own(GEOSDifference_r(Context(), first_.get(), second_.get()));
        Own(GEOSDifference_r(Context(), second_.get(), first_.get()));
    }

    [[nodiscard]] Outcome Found() const {
        Outcome found{static_cast<std::size_t>(GEOSGetNumGeometries_r(Context(), faces_.get())), 0.0};
        if (GEOSArea_r(Context(), faces_.get(), &found.area) != 1) Fail("GEOS finds no area");
        return found;
    }

  private:
    using Shape = std::shared_ptr<GEOSGeometry>;

    [[nodiscard]] GEOSContextHandle_t Context() const { return context_.get(); }
    Shape Own(GEOSGeometry* geometry) const {
        if (geometry == nullptr) Fail("GEOS fails");
        return {geometry, [context = Context()](GEOSGeometry* last) { GEOSGeom_destroy_r(context, last); }};
    }
    [[nodiscard]] Shape Polygon(const Ring& ring) const {
        const auto count = static_cast<unsigned>(ring.size());
        GEOSCoordSequence* sequence = GEOSCoordSeq_create_r(Context(), count + 1, 2);
        for (unsigned i = 0; i <= count; ++i) {
            const Place& place = ring[i % count];
            GEOSCoordSeq_setXY_r(Context(), sequence, i, place.x, place.y);
        }
        GEOSGeometry* shell = GEOSGeom_createLinearRing_r(Context(), sequence);
        return Own(GEOSGeom_createPolygon_r(Context(), shell, nullptr, 0));
    }

    std::unique_ptr<std::remove_pointer_t<GEOSContextHandle_t>, void (*)(GEOSContextHandle_t)> context_;
    Shape first_, second_, faces_;
    bool areSimple_;
};

// A ring of random vertices: nearly a quarter of all pairs of its edges cross.
Ring Tangle(std::size_t count, std::uint64_t seed) {
    std::mt19937_64 random(seed);
    std::uniform_real_distribution<double> anywhere(0.0, 1000.0);
    Ring tangle(count);
    for (Place& place : tangle)
        place = {anywhere(random), anywhere(random)};
    return tangle;
}

// A ring with its vertices on a raster of 12 by 12, so that edges overlap.
Ring Raster(std::size_t count, std::uint64_t seed) {
    Ring raster = Tangle(count, seed);
    for (Place& place : raster)
        place = {std::floor(place.x * 0.012), std::floor(place.y * 0.012)};
    return raster;
}

Ring Line(std::size_t count, std::uint64_t seed) {
    Ring line = Tangle(count, seed);
    for (Place& place : line)
        place.y = place.x / 2.0;
    return line;
}

std::vector<Input> Inputs() {
    return {
        {"stars 100", Star<Ring>(100, 500), Star<Ring>(100, 600), true},
        {"stars 1000", Star<Ring>(1000, 500), Star<Ring>(1000, 600), true},
        {"stars 10000", Star<Ring>(10000, 500), Star<Ring>(10000, 600), true},
        {"tangles 100", Tangle(100, 1), Tangle(100, 2), false},
        {"tangles 300", Tangle(300, 1), Tangle(300, 2), false},
        {"tangles 1000", Tangle(1000, 1), Tangle(1000, 2), false},
        {"rasters 300", Raster(300, 1), Raster(300, 2), false},
        {"on one line 100", Line(100, 1), Line(100, 2), false},
    };
}

double SecondsOf(const std::function<void()>& run) {
    const std::clock_t start = std::clock();
    run();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// Seconds; 0.0 if not applicable.
struct Times {
    double ours, cut, parts;
    [[nodiscard]] double Ratio() const { return ours / (parts == 0.0 ? cut : std::min(cut, parts)); }
};

Times Time(const Ours& ours, Geos* geos) {
    constexpr std::size_t runs = 3;
    std::array<std::array<double, runs>, 3> times{};
    for (std::size_t run = 0; run < runs; ++run) {
        times[0][run] = SecondsOf([&] { ours.Run(); });
        times[1][run] = SecondsOf([&] { geos->Cut(); });
        if (geos->HasParts()) times[2][run] = SecondsOf([&] { geos->Parts(); });
    }
    for (auto& time : times)
        std::sort(time.begin(), time.end());
    return {times[0][runs / 2], times[1][runs / 2], times[2][runs / 2]};
}

void Compare(const Input& input) {
    const Ours ours(input);
    Geos geos(input);
    ours.Run();
    geos.Cut();
    const Outcome found = ours.Found();
    const Outcome expected = geos.Found();
    // Areas to 1e-9 of a field of 1000 by 1000.
    if (found.faces != expected.faces || std::fabs(found.area - expected.area) > 1e-3)
        Fail(std::string(input.name) + ": GEOS finds " + std::to_string(expected.faces) +
             " faces, ours are " + std::to_string(found.faces));
    const Times times = Time(ours, &geos);
    char parts[16] = "-";
    if (times.parts != 0.0) std::snprintf(parts, sizeof parts, "%.2f", 1e3 * times.parts);
    std::printf("| %-16s | %7zu | %9.2f | %9.2f | %9s | %5.2f |\n", input.name, found.faces, 1e3 * times.ours,
                1e3 * times.cut, parts, times.Ratio());
    std::fflush(stdout);
}

int Main(int count, char** arguments) {
    std::printf("| %-16s | %7s | %9s | %9s | %9s | %5s |\n", "ms an overlay", "faces", "ours", "GEOS cut",
                "parts", "ratio");
    std::printf("|:-----------------|--------:|----------:|----------:|----------:|------:|\n");
    for (const Input& input : Inputs()) {
        const auto isWanted = [&](const char* name) {
            return std::string_view(input.name).starts_with(name);
        };
        if (count == 1 || std::any_of(arguments + 1, arguments + count, isWanted)) Compare(input);
    }
    return 0;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
