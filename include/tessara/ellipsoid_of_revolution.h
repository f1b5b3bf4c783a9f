// The ellipsoid in space: earth-centred vectors of coordinates, directions at a point, and points at a
// distance.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_EllipsoidOfRevolution = ParseGuid("4A5D89C2-2D2E-49B0-BD6D-09D0455EEA3E");
inline constexpr GUID IID_IEllipsoidOfRevolution = ParseGuid("EC4DDAC3-5262-4775-B65D-8D6C3688C90A");

// Example: a point on the equator as a vector, and the direction up there.
//
//     const tessara::IRef ellipsoids = tessara::CreateClassEllipsoidOfRevolution();
//     tessara::Vector position, up;
//     if (!ellipsoids->CoordToEcefVector(coord, &position) || !ellipsoids->GetNormal(coord, &up)) return;
//     // latitude 0, longitude 90: position 0, 6378137, 0 and up 0, 1, 0
//
// Operations use the ellipsoid of the datum of their coordinate. Angles are in degrees,
// lengths in metres. Vectors have three elements: x through the equator at longitude 0, y through the
// equator at longitude 90, z north.
//
// Every operation returns false for null and for objects of another kind. Vector outputs are emptied at the
// start and undefined after a failure. An object obtains its vector arithmetic when it is created, and
// references when it needs them, from the host's object manager, or from the library itself if there is no
// manager. If a manager doesn't provide them, every operation except GetNormal returns false.
//
// Directions (GetLocalAxes, GetNormal, GetDirection) are those at the WGS84 position of the coordinate,
// while vectors (CoordToEcefVector) are in the space of its own datum. On a datum other than WGS84 the two
// differ by the shift between the datums, some ten to some hundred metres on the ground.
class IEllipsoidOfRevolution : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IEllipsoidOfRevolution;

    virtual ~IEllipsoidOfRevolution() = default;

    // Writes unit vectors to the east and to the north; at a pole they follow from the longitude.
    // GetLocalAxes, GetNormal and GetDirection return false for an invalid coordinate and for a pixel, which
    // have no WGS84 position.
    virtual bool GetLocalAxes(ICoord* p, Vector* east, Vector* north) = 0;
    // Writes the unit vector that points up, perpendicular to the ellipsoid.
    virtual bool GetNormal(ICoord* p, Vector* normal) = 0;
    // Writes the unit vector in the horizontal plane at an azimuth, clockwise from north.
    virtual bool GetDirection(ICoord* p, double azimuth, Vector* direction) = 0;

    // Writes the coordinate with its height as a vector in the space of its own datum. Doesn't check whether
    // the coordinate is valid: an invalid one gives the vector of its default record, and a pixel that of
    // latitude and longitude 0. Returns false if the conversion to latitude and longitude fails.
    virtual bool CoordToEcefVector(ICoord* p, Vector* xyz) = 0;

    // Writes the position of a vector into `out`, in the reference that `out` has. Latitude and height are
    // iterated on the ellipsoid of that datum with h = p / cos(phi) - N and tan(phi) = z / (p (1 - e2 N / (N
    // + h))) (B. Hofmann-Wellenhof, H. Lichtenegger, J. Collins, "Global Positioning System: Theory and
    // Practice", section 10.2.1). The result is then converted as a WGS84 position, so on another datum it
    // contains one additional shift between the datums.
    //
    // The iteration ends at a step of 0.01 m and 1e-6 degrees, without computing the height again for the
    // last latitude. For heights from -10 to 100 km the latitude is within 1e-8 degrees; the error of the
    // height is the smaller of 0.114 m times the tangent of the latitude and 0.7 % of the height itself:
    //
    //     latitude, degrees    10     30     45     60     70     80     85     89
    //     height, metres     0.02   0.06   0.11   0.19   0.31   0.64    1.3    6.4
    //
    // Points of the ellipsoid keep their height 0. Near the axis the rounding of the latitude adds an error
    // in inverse proportion to the distance from it, 0.02 m at one metre; on the axis the result is the
    // pole, with longitude 0 for an x of 0.0. Within some 100 km of the earth's centre the position may be
    // off by kilometres.
    //
    // Returns false, with `out` unchanged, for a vector without three elements, the zero vector, numbers that
    // aren't finite, and a point near the centre for which the iteration doesn't converge. Returns false,
    // with `out` invalid, if the conversion fails.
    virtual bool EcefVectorToCoord(const Vector* xyz, ICoord* out) = 0;

    // Writes the point of the ellipsoid at a geodesic distance from `start`, to 0.01 m, into `out`, as an
    // ECEF coordinate on the datum of `start`, whatever the reference of `out`.
    //
    // The point is found on the horizontal line of the azimuth and brought down to the ellipsoid along the
    // normal of `start`. So the azimuth is that of the plane at the start, not of the geodesic. The search
    // uses ECEF coordinates high above the ground, which put the point beside that plane by up to 1 mm at
    // 500 km, 2 cm at 1000 km, 1 m at 3000 km and 7 m at 6300 km. It takes at most 20 secant steps and
    // converges for all distances from 0 to 6340 km.
    //
    // Returns false for a negative distance, and if the normal misses the ellipsoid: beyond 6340 to 6395 km,
    // depending on latitude and azimuth. `out` is then the last point of the search, if there was one. The
    // distance counts from the WGS84 latitude and longitude of `start`, used on its own datum: on another
    // datum the point is off by the shift between the datums, and a distance shorter than the shift has no
    // solution.
    virtual bool PointAtGeodesicDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;

    // Writes the point of the ellipsoid at a straight-line distance from `start`, in the vertical plane of
    // the azimuth, into `out`, in the reference that `out` has. The height is within 0.01 m. A negative
    // distance goes the other way. The search takes at most 20 secant steps; it converges up to 12700 km,
    // nearly the diameter of the ellipsoid, for a start that isn't higher than the distance. On failure
    // `out` is unchanged, or invalid if only the conversion into its reference failed.
    virtual bool PointAtChordDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;

    // Writes the two intersections of the ellipsoid with the line through `origin` along `direction`, a
    // vector of any length other than 0. `near` is the closer one; of two at equal distance it is the one in
    // the direction. Both outputs become ECEF coordinates on the datum of `origin`, whatever their
    // references. Returns false, with the outputs unchanged, for a line that misses the ellipsoid, a
    // direction of length 0 and numbers that aren't finite.
    virtual bool IntersectLine(ICoord* origin, const Vector* direction, ICoord* near, ICoord* far) = 0;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IEllipsoidOfRevolution* CreateClassEllipsoidOfRevolution();

}  // namespace tessara
