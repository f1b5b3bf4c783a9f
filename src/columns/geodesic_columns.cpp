#include "columns/geodesic_columns.h"

#include <algorithm>
#include <array>

#include "columns/geodesic_loops.h"
#include "columns/strided.h"
#include "tessara/kernel/geodesic.h"

namespace tessara {
namespace {

using geodesic::Ellipsoid;

using Sources = std::array<SourceColumn, 4>;
using Targets = std::array<TargetColumn, 3>;

// One of the two problems: for a block, and for a row.
struct Problem {
    void (*solve)(InstructionSet set, const Ellipsoid& ellipsoid, GeodesicBlock& block, std::size_t rows);
    GeodesicResult (*solveOne)(double, double, double, double, double a, double b);
};

constexpr Problem INVERSE{SolveInverse, Geodesic_InverseCore};
constexpr Problem DIRECT{SolveDirect, Geodesic_DirectCore};

void SolveRow(const Problem& problem, const Ellipsoid& ellipsoid, GeodesicBlock& block, std::size_t row) {
    const auto& in = block.in;
    const GeodesicResult result =
        problem.solveOne(in[0][row], in[1][row], in[2][row], in[3][row], ellipsoid.a, ellipsoid.b);
    block.out[0][row] = result.distance;
    block.out[1][row] = result.azimuth12;
    block.out[2][row] = result.azimuth21;
}

void ReadBlock(const Sources& sources, std::size_t first, GeodesicBlock& block, std::size_t rows,
               InstructionSet set) {
    for (std::size_t i = 0; i < sources.size(); ++i) {
        StridedSource(sources[i], first).CopyNumbers(rows, block.in[i]);
        std::fill(block.in[i] + rows, block.in[i] + WholeRegisters(set, rows), 0.0);
    }
}

void SolveBlock(const Problem& problem, const Ellipsoid& ellipsoid, GeodesicBlock& block, std::size_t rows,
                InstructionSet set) {
    if (rows == 1) return SolveRow(problem, ellipsoid, block, 0);
    problem.solve(set, ellipsoid, block, rows);
    for (std::size_t row = 0; row < rows; ++row) {
        if (block.special[row] != 0.0) SolveRow(problem, ellipsoid, block, row);
    }
}

bool AllExist(const Sources& sources) {
    return std::all_of(sources.begin(), sources.end(),
                       [](const SourceColumn& column) { return column.first != nullptr; });
}

// Target columns may be source columns: all rows of a block are read before one is written. `visit(block,
// rows)` sees the results of each block.
template <class Visit>
void Solve(const Problem& problem, const Sources& sources, const Targets& targets, std::size_t count,
           const Ellipsoid& ellipsoid, InstructionSet set, Visit visit) {
    GeodesicBlock block;
    for (std::size_t first = 0; first < count; first += GeodesicBlock::SIZE) {
        const std::size_t rows = std::min(count - first, GeodesicBlock::SIZE);
        ReadBlock(sources, first, block, rows, set);
        SolveBlock(problem, ellipsoid, block, rows, set);
        visit(block, rows);
        for (std::size_t i = 0; i < targets.size(); ++i) {
            const StridedTarget target(targets[i], first);
            if (target.Exists()) target.PutNumbers(rows, block.out[i]);
        }
    }
}

}  // namespace

KoordStatus InverseColumns(const GeodesicInverseColumns* columns, std::size_t count, double a, double b,
                           InstructionSet set) {
    if (columns == nullptr) return KOORD_ERR_GENERAL;
    const Sources sources{columns->latitude1, columns->longitude1, columns->latitude2, columns->longitude2};
    if (!AllExist(sources)) return KOORD_ERR_GENERAL;
    KoordStatus status = KOORD_OK;
    const auto look = [&status](const GeodesicBlock& block, std::size_t rows) {
        const bool areSolved =
            std::all_of(block.out[0], block.out[0] + rows, [](double distance) { return distance >= 0.0; });
        if (!areSolved) status = GEODESIC_NO_SOLUTION;
    };
    Solve(INVERSE, sources, {columns->distance, columns->azimuth12, columns->azimuth21}, count,
          Ellipsoid(a, b), set, look);
    return status;
}

KoordStatus DirectColumns(const GeodesicDirectColumns* columns, std::size_t count, double a, double b,
                          InstructionSet set) {
    if (columns == nullptr) return KOORD_ERR_GENERAL;
    const Sources sources{columns->latitude, columns->longitude, columns->distance, columns->azimuth};
    if (!AllExist(sources)) return KOORD_ERR_GENERAL;
    Solve(DIRECT, sources, {columns->endLatitude, columns->endLongitude, columns->backAzimuth}, count,
          Ellipsoid(a, b), set, [](const GeodesicBlock&, std::size_t) {});
    return KOORD_OK;
}

KoordStatus Geodesic_InverseColumns(const GeodesicInverseColumns* columns, std::size_t count, double a,
                                    double b) {
    return InverseColumns(columns, count, a, b, BestInstructionSet());
}

KoordStatus Geodesic_DirectColumns(const GeodesicDirectColumns* columns, std::size_t count, double a,
                                   double b) {
    return DirectColumns(columns, count, a, b, BestInstructionSet());
}

}  // namespace tessara
