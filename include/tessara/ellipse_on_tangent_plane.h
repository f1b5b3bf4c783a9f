// Arcs of an ellipse around a coordinate, such as an error ellipse, as polylines.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;

inline constexpr GUID CLSID_EllipseOnTangentPlane = ParseGuid("6174F97A-BC76-43C0-94FB-64E69B7A4F7D");
inline constexpr GUID IID_IEllipseOnTangentPlane = ParseGuid("A59825D9-16A1-49F3-A0BF-DAC5C6804A11");

// Example: an ellipse of 200 m by 100 m whose longer axis points north-east.
//
//     const tessara::IRef ellipses = tessara::CreateClassEllipseOnTangentPlane();
//     const tessara::IRef points = tessara::CreateClassArray();
//     ellipses->MakeEllipse(munich, 45.0, 200.0, 100.0, 0.0, 0.0, points, 5, true);
//     // the first point is 200 m from the centre, the second 100 m
class IEllipseOnTangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IEllipseOnTangentPlane;

    virtual ~IEllipseOnTangentPlane() = default;

    // Replaces the contents of `out` by `count` points of the ellipse from startAngle to endAngle, as
    // ICircleOnTangentPlane::MakeCircle does for a circle. The semi-axis axisAlong has the azimuth
    // `rotation` and axisAcross is perpendicular to it; both are in metres. Angles count clockwise from
    // axisAlong, and are those of the circle whose flattening gives the ellipse: equal steps of angle aren't
    // equal distances.
    //
    // False, with `out` empty, for a count below 2, a centre without a position, and numbers that aren't
    // finite; false also for null or an object of another kind, and where the host's object manager didn't
    // provide the ellipsoid and the vector arithmetic.
    virtual bool MakeEllipse(ICoord* centre, double rotation, double axisAlong, double axisAcross,
                             double startAngle, double endAngle, IArray* out, std::uint32_t count,
                             bool clockwise) = 0;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IEllipseOnTangentPlane* CreateClassEllipseOnTangentPlane();

}  // namespace tessara
