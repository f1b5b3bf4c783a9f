#include "columns/geodesic_loops.h"

#include <algorithm>
#include <cmath>

#include "columns/block_loop.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

using geodesic::ArcOfLongitude;
using geodesic::Ellipsoid;
using geodesic::Latitudes;
using geodesic::SphericalArc;
using geodesic::ToRadians;
using Elementary = geodesic::Elementary<Cases::Choose>;

struct Start {
    Ellipsoid ellipsoid;

    void operator()(GeodesicBlock& block, std::size_t row) const {
        Elementary elementary;
        const auto [first, sum, difference] =
            LatitudesOf(ToRadians(block.in[0][row]), ToRadians(block.in[2][row]), ellipsoid, elementary);
        block.firstSine[row] = first.sine;
        block.firstCosine[row] = first.cosine;
        block.sumSine[row] = sum.sine;
        block.sumCosine[row] = sum.cosine;
        block.differenceSine[row] = difference.sine;
        block.differenceCosine[row] = difference.cosine;
        const double L = ToRadians(block.in[3][row]) - ToRadians(block.in[1][row]);
        block.onEllipsoid[row] = L;
        block.onSphere[row] = L;
        block.special[row] = elementary.AreOrdinary() ? 0.0 : 1.0;
    }
};

Latitudes LatitudesIn(const GeodesicBlock& block, std::size_t row) {
    return {{block.firstSine[row], block.firstCosine[row]},
            {block.sumSine[row], block.sumCosine[row]},
            {block.differenceSine[row], block.differenceCosine[row]}};
}

// A row that has converged stays where it is.
struct Iterate {
    Ellipsoid ellipsoid;

    void operator()(GeodesicBlock& block, std::size_t row) const {
        Elementary elementary;
        const double lam = block.onSphere[row];
        const SphericalArc arc = ArcOfLongitude(lam, LatitudesIn(block, row), ellipsoid, elementary);
        const double next = arc.longitudeExcess + block.onEllipsoid[row];
        const bool isPending = std::fabs(next - lam) > geodesic::LONGITUDE_TOLERANCE;
        block.next[row] = isPending ? next : lam;
        const bool isOrdinary = AllOf(elementary.AreOrdinary(), next == next, block.special[row] == 0.0);
        block.special[row] = isOrdinary ? 0.0 : 1.0;
        block.pending[row] = AllOf(isPending, isOrdinary) ? 1.0 : 0.0;
    }
};

struct Finish {
    Ellipsoid ellipsoid;

    void operator()(GeodesicBlock& block, std::size_t row) const {
        Elementary elementary;
        const SphericalArc arc =
            ArcOfLongitude(block.onSphere[row], LatitudesIn(block, row), ellipsoid, elementary);
        const GeodesicResult way = WayAlong(arc, ellipsoid, elementary);
        // Positions whole turns apart are special.
        const double dLon = std::fabs(block.in[3][row] - block.in[1][row]);
        const bool isOnParallel = block.in[0][row] == block.in[2][row];
        const bool coincide = AllOf(isOnParallel, dLon == 0.0);
        block.out[0][row] = coincide ? 0.0 : way.distance;
        block.out[1][row] = coincide ? 0.0 : way.azimuth12;
        block.out[2][row] = coincide ? 0.0 : way.azimuth21;
        const bool isOrdinary = AllOf(elementary.AreOrdinary(), block.special[row] == 0.0,
                                      block.pending[row] == 0.0, !AllOf(isOnParallel, dLon >= 360.0));
        block.special[row] = isOrdinary ? 0.0 : 1.0;
    }
};

struct Direct {
    Ellipsoid ellipsoid;

    void operator()(GeodesicBlock& block, std::size_t row) const {
        Elementary elementary;
        const GeodesicResult end = EndOf(block.in[0][row], block.in[1][row], block.in[2][row],
                                         block.in[3][row], ellipsoid, elementary);
        block.out[0][row] = end.latitude;
        block.out[1][row] = end.longitude;
        block.out[2][row] = end.backAzimuth;
        block.special[row] = elementary.AreOrdinary() ? 0.0 : 1.0;
    }
};

}  // namespace

// Nearly all rows converge in the same few passes. For the last ones of a block another pass would cost more
// than to solve them by themselves.
void SolveInverse(InstructionSet set, const Ellipsoid& ellipsoid, GeodesicBlock& block, std::size_t rows) {
    const auto few = static_cast<std::ptrdiff_t>(rows / 32);
    RunOver(set, Start{ellipsoid}, block, rows);
    for (int i = 0; i < geodesic::LONGITUDE_ITERATIONS; ++i) {
        RunOver(set, Iterate{ellipsoid}, block, rows);
        std::copy_n(block.next, WholeRegisters(set, rows), block.onSphere);
        if (std::count(block.pending, block.pending + rows, 1.0) <= few) break;
    }
    RunOver(set, Finish{ellipsoid}, block, rows);
}

void SolveDirect(InstructionSet set, const Ellipsoid& ellipsoid, GeodesicBlock& block, std::size_t rows) {
    RunOver(set, Direct{ellipsoid}, block, rows);
}

}  // namespace tessara
