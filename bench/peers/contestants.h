// The three that compete: the kernel, PROJ and GeographicLib.
#pragma once

#include <proj.h>

#include <cstdint>
#include <string>
#include <vector>

#include "bench/peers/contest.h"
#include "tessara/kernel/koord.h"

namespace tessara::bench {

// The positions of an area in its system, all of them.
std::vector<tagKOORD> AllConverted(const Area& area);

// One call of the pipeline a position, with everything it does.
Contestant Ours(const std::vector<tagKOORD>& sources, const tagKOORD& target, std::int32_t checkRange);

// One call of proj_trans a position. It takes and gives radians, longitude first; degrees become radians by
// hand, as a pipeline with a step for that is slower.
enum class Axes { DEGREES, GRID, SPACE };
Contestant Proj(const std::string& definition, PJ_DIRECTION direction, const std::vector<Values>& sources,
                Axes sourceAxes, Axes resultAxes);

// One call of GeographicLib's class for the task a position; a null step makes no contestant.
using Step = void (*)(const Values& in, Values& out);
Contestant Geographic(Step step, const std::vector<Values>& sources);

}  // namespace tessara::bench
