#include "columns/datum_loops.h"

#include <cmath>

#include "columns/block_loop.h"
#include "kernel/datum_step.h"
#include "numerics/conditions.h"

namespace tessara {
namespace {

struct Start {
    double latitude, longitude;
    Place place;
    bool isOrdinary;
};

Start StartOf(const Block& block, std::size_t row, const StepConstants& step) {
    const double latitude = block.latitude[row];
    const double longitude = block.longitude[row];
    const double phi = latitude * RADIANS_PER_DEGREE;
    const double lambda = longitude * RADIANS_PER_DEGREE;
    return {latitude, longitude, PlaceOf(DoublingBySeries<1>(phi), DoublingBySeries<2>(lambda), step),
            AllOf(std::fabs(latitude) < LAST_DIGITS_COUNT, IsInReachOfDoubling<2>(lambda))};
}

// Short shifts from such a start pass no pole and leave the longitudes within a turn.
bool IsShort(const Shift& shift) {
    constexpr double limit = 0.01;  // radians
    return AllOf(std::fabs(shift.phi) < limit, std::fabs(shift.lambda) < limit);
}

void Move(Block& block, std::size_t row, const Start& start, const Shift& shift) {
    block.latitude[row] = start.latitude + shift.phi * DEGREES_PER_RADIAN;
    block.longitude[row] = start.longitude + shift.lambda * DEGREES_PER_RADIAN;
}

struct ToHub {
    StepConstants step;

    void operator()(Block& block, std::size_t row) const {
        const Start start = StartOf(block, row, step);
        const Shift shift = ShiftAt(start.place, step);
        Move(block, row, start, {shift.phi, start.place.eastward == 0.0 ? 0.0 : shift.lambda});
        block.Refuse(row, !AllOf(start.isOrdinary, IsShort(shift)));
    }
};

// Of a refinement the first step is done here; whoever needs more is special.
struct FromHub {
    StepConstants step, back;

    void operator()(Block& block, std::size_t row) const {
        constexpr double worthRefining = WORTH_REFINING / DEGREES_PER_RADIAN;
        const Start start = StartOf(block, row, step);
        const Shift shift = ShiftAt(start.place, step);
        const double latLon[2] = {start.latitude, start.longitude};
        const bool isPlain = IsPlain(latLon, start.place, shift);
        const Refinement refined = Refined(Opposite(start.place, back.e2), back, shift);
        const bool isRefined =
            !AllOf(std::fabs(shift.phi) <= worthRefining, std::fabs(shift.lambda) <= worthRefining);
        Move(block, row, start,
             {isRefined ? refined.shift.phi : shift.phi, isRefined ? refined.shift.lambda : shift.lambda});
        block.Refuse(row, !AllOf(start.isOrdinary, isPlain));
        block.Refuse(row, AllOf(isRefined, !refined.isLast));
    }
};

// Where the formulas for many don't apply to any.
struct Refuse {  // GCOVR_EXCL_START: a table with a datum whose two steps differ would need it
    void operator()(Block& block, std::size_t row) const { block.Refuse(row, true); }
};  // GCOVR_EXCL_STOP

}  // namespace

BlockStep ShiftToHub(std::int32_t datum) {
    return datum == DATUM_WGS84 ? BlockStep() : StepOver(ToHub{StepToHub(datum)});
}

BlockStep ShiftFromHub(std::int32_t datum) {
    if (datum == DATUM_WGS84) return {};
    const FromHub formula{StepFromHub(datum), StepToHub(datum)};
    return AreOpposite(formula.step, formula.back) ? StepOver(formula) : StepOver(Refuse{});
}

}  // namespace tessara
