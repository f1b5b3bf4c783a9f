#include "numerics/called.h"

#include "numerics/arcs.h"
#include "numerics/exponential.h"
#include "numerics/logarithm.h"

namespace tessara {

SinCos called::SinCosOf(double angle) {
    return tessara::SinCosOf(angle);
}

double called::Atan(double tangent) {
    return tessara::Atan(tangent);
}

double called::Atan2(double y, double x) {
    return tessara::Atan2(y, x);
}

double called::Asin(double sine) {
    return tessara::Asin(sine);
}

double called::Log(double x) {
    return tessara::Log(x);
}

double called::Exp(double x) {
    return tessara::Exp(x);
}

}  // namespace tessara
