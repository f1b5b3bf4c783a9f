#include "geometry/plane_lines.h"

#include <cmath>
#include <limits>

namespace tessara {
namespace {

double Length(const PlanePoint& v) {
    return std::sqrt(v.x * v.x + v.y * v.y);
}

PlanePoint From(const PlanePoint& a, const PlanePoint& b) {
    return {b.x - a.x, b.y - a.y};
}

bool IsMark(double t) {
    return std::fabs(t) == COLLINEAR_LINES;
}

double ParallelParameter(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1,
                         const PlanePoint& b2) {
    const bool isPoint = b1 == b2;
    const double distance = isPoint ? SignedDistance(b1, a1, a2) : SignedDistance(a1, b1, b2);
    const bool isOnLine = std::fabs(distance) < OnLineTolerance(isPoint ? b1 : a1);
    if (!isOnLine) return PARALLEL_LINES;
    if (a1 == a2) return 0.0;
    return isPoint ? ParameterOnSegment(b1, a1, a2) : COLLINEAR_LINES;
}

// One coordinate of an intersection, from its values on two segments; `a` and `b` are the lengths of the
// segments along that axis.
double Reconciled(double onA, double onB, double a, double b) {
    if (onA == onB || a == 0.0) return onA;
    return b == 0.0 ? onB : (onB - onA) / 2.0 + onA;
}

PlanePoint PlaceAt(double t, const PlanePoint& start, const PlanePoint& direction) {
    return {t * direction.x + start.x, t * direction.y + start.y};
}

}  // namespace

double OnLineTolerance(const PlanePoint& p) {
    return (Length(p) + 1.0) * std::numeric_limits<double>::epsilon();
}

bool IsLongerInX(const PlanePoint& a, const PlanePoint& b) {
    return std::fabs(a.x - b.x) > std::fabs(a.y - b.y);
}

double ParameterOnSegment(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b) {
    return IsLongerInX(a, b) ? (p.x - a.x) / (b.x - a.x) : (p.y - a.y) / (b.y - a.y);
}

double LineParameter(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1, const PlanePoint& b2) {
    const PlanePoint d1 = From(a1, a2);
    const PlanePoint d2 = From(b1, b2);
    if (d1.x * d2.y == d1.y * d2.x) return ParallelParameter(a1, a2, b1, b2);
    return ((a1.x - b1.x) * d2.y - (a1.y - b1.y) * d2.x) / (d1.y * d2.x - d1.x * d2.y);
}

double SignedDistance(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b) {
    if (a == b) return Length(From(a, p));
    const PlanePoint d = From(a, b);
    const double length = Length(d);
    return (p.y - a.y) * d.x / length - (p.x - a.x) * d.y / length;
}

bool FootPoint(const PlanePoint& p, const PlanePoint& a, const PlanePoint& b, PlanePoint* foot) {
    const PlanePoint d = From(a, b);
    if (d.x == 0.0 && d.y == 0.0) {
        *foot = a;
        return p == a;
    }
    double t = 0.0;
    if (d.y == 0.0) {
        t = (p.x - a.x) / d.x;
    } else if (d.x == 0.0) {
        t = (p.y - a.y) / d.y;
    } else {
        t = ((p.x - a.x) * d.x + (p.y - a.y) * d.y) / (d.x * d.x + d.y * d.y);
    }
    *foot = {a.x + t * d.x, a.y + t * d.y};
    return true;
}

bool PointOnSegments(const PlanePoint& a1, const PlanePoint& a2, const PlanePoint& b1, const PlanePoint& b2,
                     double t, PlanePoint* place) {
    if (IsMark(t)) return false;
    const PlanePoint a = From(a1, a2);
    const PlanePoint onA = PlaceAt(t, a1, a);
    *place = onA;
    if (SignedDistance(onA, b1, b2) == 0.0) return true;

    const double s = LineParameter(b1, b2, a1, a2);
    if (IsMark(s)) return true;  // parallel lines have no second place to compare with
    const PlanePoint b = From(b1, b2);
    const PlanePoint onB = PlaceAt(s, b1, b);
    *place = {Reconciled(onA.x, onB.x, a.x, b.x), Reconciled(onA.y, onB.y, a.y, b.y)};
    return onA == onB;
}

}  // namespace tessara
