// Measures how the cost of an operation grows with its size, from 10 to 10 000: microseconds, and the
// exponent over the last two decades, which is 1 for proportional growth.
//
//     growth [NAME ...]     only the operations whose names begin with a NAME

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <functional>
#include <string_view>
#include <vector>

#include "support/lines.h"
#include "tessara/line_points.h"

namespace tessara::bench {
namespace {

using testing::LineOf;
using testing::PixelLine;

// The work for a size; returns a measure of its result.
struct Work {
    std::function<std::uint32_t()> run;
    double parameter;  // of the operation; 0.0 if the size determines it
};

struct Operation {
    const char* name;
    const char* countName;
    std::vector<std::uint32_t> sizes;
    std::function<Work(std::uint32_t size)> prepare;
};

double MicrosecondsOf(const Work& work) {
    using Clock = std::chrono::steady_clock;
    constexpr int runs = 5;
    double best = HUGE_VAL;
    for (int i = 0; i < runs; ++i) {
        const auto start = Clock::now();
        work.run();
        best = std::min(best, std::chrono::duration<double, std::micro>(Clock::now() - start).count());
    }
    return best;
}

// A straight line and a wave across it, or two waves, with the same number of segments. They cross 100
// times, or as often as their segments allow.
IRef<IArray> Wave(std::uint32_t segments, double height, double waves, double phase) {
    std::vector<testing::Pixel> pixels;
    for (std::uint32_t i = 0; i <= segments; ++i) {
        const double along = static_cast<double>(i) / segments;
        pixels.push_back({10000.0 * along, height * std::sin(TWO_PI * waves * along + phase)});
    }
    return PixelLine(pixels);
}

Work Crossing(std::uint32_t segments, double heightOfOther) {
    const double waves = std::min(50.0, segments / 4.0);
    const IRef<IArray> a = Wave(segments, heightOfOther, waves / 3.0, 0.2);
    const IRef<IArray> b = Wave(segments, 100.0, waves, 0.1);
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    const IRef<IArray> points(CreateClassArray());
    return {[=] {
                lines->IntersectPixelLinesToArray(a.Get(), b.Get(), points.Get());
                return points->GetCount();
            },
            0.0};
}

// Densifies each piece of a line across a map in degrees as a geodesic, to a tolerance in pixels. A piece
// has at most 129 points.
std::function<std::uint32_t()> Densify(std::uint32_t pieces, double tolerance) {
    const IRef<IMapCoordOperations> map = testing::DegreeMap(0.0, 60.0, 100.0);
    std::vector<tagKOORD> positions;
    for (std::uint32_t i = 0; i <= pieces; ++i)
        positions.push_back(GeodezRecord(50.0 - 5.0 * i / pieces, 1.0 + 59.0 * i / pieces));
    const IRef<IArray> line = LineOf(positions);
    const IRef<IArray> chain(CreateClassArray());
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    lines->SetPixelTolerance(tolerance);
    return [=] {
        std::uint32_t points = 0;
        for (std::uint32_t i = 0; i < pieces; ++i) {
            lines->DensifyGeodesic(map.Get(), testing::At(line, i).Get(), testing::At(line, i + 1).Get(),
                                   chain.Get());
            points += chain->GetCount();
        }
        return points;
    };
}

// Halves the tolerance until a piece has this many points.
Work DensifyTo(std::uint32_t points) {
    constexpr double finest = 1e-9;
    double tolerance = 1000.0;
    while (tolerance > finest && Densify(1, tolerance)() < points)
        tolerance /= 2.0;
    return {Densify(1, tolerance), tolerance};
}

Work DensifyPieces(std::uint32_t pieces) {
    constexpr double tolerance = 0.25;  // the default of a new object
    return {Densify(pieces, tolerance), tolerance};
}

const std::vector<std::uint32_t> DECADES = {10, 100, 1000, 10000};

const Operation OPERATIONS[] = {
    {"densify one geodesic", "points", {5, 10, 30, 60, 100}, DensifyTo},
    {"densify pieces", "points", DECADES, DensifyPieces},
    {"cross a line and a wave", "crossings", DECADES,
     [](std::uint32_t segments) { return Crossing(segments, 0.0); }},
    {"cross two waves", "crossings", DECADES,
     [](std::uint32_t segments) { return Crossing(segments, 90.0); }},
};

void Print(const Operation& operation) {
    std::vector<double> sizes, times;
    for (const std::uint32_t size : operation.sizes) {
        const Work work = operation.prepare(size);
        const std::uint32_t count = work.run();
        sizes.push_back(operation.sizes == DECADES ? size : count);
        times.push_back(MicrosecondsOf(work));
        std::printf("| %-24s | %6u | %6u %-10s|", operation.name, size, count, operation.countName);
        if (work.parameter == 0.0) std::printf(" %9s |", "");
        if (work.parameter != 0.0) std::printf(" %9.2g |", work.parameter);
        std::printf(" %10.1f |", times.back());
        const std::size_t i = times.size() - 1;
        if (times.size() == operation.sizes.size()) {
            std::printf(" %8.2f |\n", std::log(times[i] / times[i - 2]) / std::log(sizes[i] / sizes[i - 2]));
        } else {
            std::printf(" %8s |\n", "");
        }
    }
}

int Main(int count, char** arguments) {
    std::printf("| %-24s | %6s | %-17s| %9s | %10s | %8s |\n", "operation", "size", "result", "tolerance",
                "us", "exponent");
    std::printf(
        "|:-------------------------|-------:|:-----------------|----------:|-----------:|---------:|\n");
    for (const Operation& operation : OPERATIONS) {
        const auto isWanted = [&](const char* name) {
            return std::string_view(operation.name).starts_with(name);
        };
        if (count == 1 || std::any_of(arguments + 1, arguments + count, isWanted)) Print(operation);
    }
    return 0;
}

}  // namespace
}  // namespace tessara::bench

int main(int count, char** arguments) {
    return tessara::bench::Main(count, arguments);
}
