// Arcs of an ellipse around a coordinate, such as an error ellipse, as a chain of points.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;

inline constexpr GUID CLSID_EllipseOnTangentPlane = ParseGuid("6174F97A-BC76-43C0-94FB-64E69B7A4F7D");
inline constexpr GUID IID_IEllipseOnTangentPlane = ParseGuid("A59825D9-16A1-49F3-A0BF-DAC5C6804A11");

class IEllipseOnTangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IEllipseOnTangentPlane;

    virtual ~IEllipseOnTangentPlane() = default;

    // As ICircleOnTangentPlane::MakeCircle. The semi-axis axisAlong points to the azimuth `rotation`,
    // axisAcross square to it; both are metres. The angles count from axisAlong, clockwise, and are those of
    // the circle that the ellipse is flattened from, so the points of an equal step aren't equally far apart.
    virtual bool MakeEllipse(ICoord* centre, double rotation, double axisAlong, double axisAcross,
                             double startAngle, double endAngle, IArray* out, std::uint32_t count,
                             bool clockwise) = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IEllipseOnTangentPlane* CreateClassEllipseOnTangentPlane();

}  // namespace tessara
