// Arcs of a circle around a coordinate, such as a range ring, as polylines.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class ICoord;

inline constexpr GUID CLSID_CircleOnTangentPlane = ParseGuid("F601D12D-BB6D-4D39-879C-7934B673EF28");
inline constexpr GUID IID_ICircleOnTangentPlane = ParseGuid("07D17B1D-7E47-4421-96B2-3CE912714ED9");

// Example: a range ring of 10 km, a point every 45 degrees.
//
//     const tessara::IRef circles = tessara::CreateClassCircleOnTangentPlane();
//     const tessara::IRef ring = tessara::CreateClassArray();
//     circles->MakeCircle(munich, 0.0, 0.0, 10000.0, ring, 9, true);  // the ninth point is the first again
class ICircleOnTangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICircleOnTangentPlane;

    virtual ~ICircleOnTangentPlane() = default;

    // Replaces the contents of `out` by `count` points at equal angles from startAngle to endAngle, both
    // included. Angles are degrees clockwise from north and are reduced to 0..360 first; equal angles give
    // the whole circle. `clockwise` is the direction from the start to the end. The radius is in metres.
    //
    // The points are in the horizontal plane through the centre, not on the ground: at a radius r they are
    // about r^2 / (2 * 6378000 m) above the ellipsoid, 8 m at 10 km. They are ECEF coordinates on the datum
    // of the centre; the directions of the plane's axes are those at the centre's WGS84 position.
    //
    // False, with `out` empty, for a count below 2, a centre without a position, and numbers that aren't
    // finite; false also for null or an object of another kind. Where the host has an object manager, the
    // ellipsoid and the vector arithmetic come from it: an object to which it didn't give them always
    // answers false.
    virtual bool MakeCircle(ICoord* centre, double startAngle, double endAngle, double radius, IArray* out,
                            std::uint32_t count, bool clockwise) = 0;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICircleOnTangentPlane* CreateClassCircleOnTangentPlane();

}  // namespace tessara
