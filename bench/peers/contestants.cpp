#include "bench/peers/contestants.h"

#include "bench/peers/projection.h"
#include "bench/peers/record_values.h"
#include "tessara/kernel/convert.h"

namespace tessara::bench {
namespace {

PJ_COORD ToProj(const Values& v, Axes axes) {
    if (axes == Axes::DEGREES) return proj_coord(proj_torad(v[1]), proj_torad(v[0]), 0.0, 0.0);
    return proj_coord(v[0], v[1], v[2], 0.0);
}

Values FromProj(const PJ_COORD& c, Axes axes) {
    if (axes == Axes::DEGREES) return {proj_todeg(c.lp.phi), proj_todeg(c.lp.lam), 0.0};
    return {c.xyz.x, c.xyz.y, axes == Axes::SPACE ? c.xyz.z : 0.0};
}

}  // namespace

std::vector<tagKOORD> AllConverted(const Area& area) {
    std::vector<tagKOORD> records = Converted(area);
    if (records.size() != POSITIONS) Fail(std::string(area.name) + ": a position doesn't convert");
    return records;
}

Contestant Ours(const std::vector<tagKOORD>& sources, const tagKOORD& target, std::int32_t checkRange) {
    return Compete(
        target,
        [sources, checkRange](std::size_t i, tagKOORD& output) {
            if (KoordConvertEx(&sources[i], &output, checkRange) != KOORD_OK) Fail("a position fails");
        },
        [](const tagKOORD& output) { return ValuesOf(output); });
}

Contestant Proj(const std::string& definition, PJ_DIRECTION direction, const std::vector<Values>& sources,
                Axes sourceAxes, Axes resultAxes) {
    return Compete(
        Values{},
        [projection = MakeProjection(definition), direction, sources, sourceAxes, resultAxes](
            std::size_t i, Values& output) {
            output =
                FromProj(proj_trans(projection.get(), direction, ToProj(sources[i], sourceAxes)), resultAxes);
        },
        [](const Values& output) { return output; });
}

Contestant Geographic(Step step, const std::vector<Values>& sources) {
    if (step == nullptr) return {};
    return Compete(
        Values{}, [step, sources](std::size_t i, Values& output) { step(sources[i], output); },
        [](const Values& output) { return output; });
}

}  // namespace tessara::bench
