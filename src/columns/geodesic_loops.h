// The geodesic problems for blocks of rows.
#pragma once

#include <cstddef>

#include "columns/block_step.h"
#include "kernel/geodesic_formulas.h"

namespace tessara {

struct alignas(64) GeodesicBlock {
    static constexpr std::size_t SIZE = 128;
    using Column = double[SIZE];

    // As the problem has them: a latitude and a longitude, then those of the other position, or a distance
    // and an azimuth.
    Column in[4];
    // As in GeodesicResult.
    Column out[3];
    // Not 0.0 for a row that the formulas for the common case aren't good for, whose results mean nothing.
    Column special;

    // What the iteration on the longitude keeps of a row: the longitude's difference on the ellipsoid and
    // that on the sphere, radians, and the directions of both latitudes.
    Column onEllipsoid, onSphere;
    Column next;  // of `onSphere`: a column of its own, so that no store depends on a condition
    Column firstSine, firstCosine, sumSine, sumCosine, differenceSine, differenceCosine;
    Column pending;  // not 0.0 for a row that hasn't converged
};

void SolveInverse(InstructionSet set, const geodesic::Ellipsoid& ellipsoid, GeodesicBlock& block,
                  std::size_t rows);
void SolveDirect(InstructionSet set, const geodesic::Ellipsoid& ellipsoid, GeodesicBlock& block,
                 std::size_t rows);

}  // namespace tessara
