// The geodesic problems for columns, with the instructions to use, of which all give the same.
#pragma once

#include <cstddef>

#include "columns/block_step.h"
#include "tessara/kernel/geodesic_columns.h"

namespace tessara {

KoordStatus InverseColumns(const GeodesicInverseColumns* columns, std::size_t count, double a, double b,
                           InstructionSet set);
KoordStatus DirectColumns(const GeodesicDirectColumns* columns, std::size_t count, double a, double b,
                          InstructionSet set);

}  // namespace tessara
