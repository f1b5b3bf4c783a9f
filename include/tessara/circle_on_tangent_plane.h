// Arcs of a circle around a coordinate, such as a range ring, as a chain of points.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;

inline constexpr GUID CLSID_CircleOnTangentPlane = ParseGuid("F601D12D-BB6D-4D39-879C-7934B673EF28");
inline constexpr GUID IID_ICircleOnTangentPlane = ParseGuid("07D17B1D-7E47-4421-96B2-3CE912714ED9");

class ICircleOnTangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICircleOnTangentPlane;

    virtual ~ICircleOnTangentPlane() = default;

    // Fills `out` with `count` points of the arc from startAngle to endAngle, both included, at equal steps.
    // Angles are degrees clockwise from north, brought into 0..360 first; equal ones make a whole turn. The
    // radius is metres.
    //
    // The points lie in the horizontal plane at the centre and not on the ground: at a radius r they are
    // about r^2 / (2 * 6378000 m) above the ellipsoid, 8 m for 10 km. They are ECEF coordinates in the datum
    // of the centre, in directions that are those of its WGS84 position.
    //
    // False, with `out` empty, for a count below 2, a centre without a position, and numbers that aren't
    // finite; likewise for a null or wrong object. The ellipsoid and the vector arithmetic come from the
    // host's object manager, if there is one: always false in an object to which it didn't give them.
    virtual bool MakeCircle(ICoord* centre, double startAngle, double endAngle, double radius, IArray* out,
                            std::uint32_t count, bool clockwise) = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICircleOnTangentPlane* CreateClassCircleOnTangentPlane();

}  // namespace tessara
