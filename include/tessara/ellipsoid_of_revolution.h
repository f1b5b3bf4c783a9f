// The ellipsoid in space: coordinates to earth-centred vectors and back, the axes at a point, and points at a
// distance. The ellipsoid is that of the datum of the coordinate that an operation is given.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_EllipsoidOfRevolution = ParseGuid("4A5D89C2-2D2E-49B0-BD6D-09D0455EEA3E");
inline constexpr GUID IID_IEllipsoidOfRevolution = ParseGuid("EC4DDAC3-5262-4775-B65D-8D6C3688C90A");

// Angles are degrees, lengths metres, vectors have three elements: x through the equator at longitude 0, y at
// longitude 90, z north.
//
// Every operation gives false for a null or wrong object and a null pointer. Vector outputs are emptied at
// the start, and mean nothing after a failure. An object gets its vector arithmetic when it is made, and the
// references that it reads when it is used, from the host's object manager, or from the library itself if
// there is no manager at all. With a manager that doesn't give them everything but GetNormal is false.
//
// Directions at a coordinate (GetLocalAxes, GetNormal, GetDirection) are those of its WGS84 position, while
// vectors (CoordToEcefVector) lie in the space of its own datum. For a coordinate of another datum than WGS84
// the two differ by the shift between them, some ten to some hundred metres on the ground.
class IEllipsoidOfRevolution : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IEllipsoidOfRevolution;

    virtual ~IEllipsoidOfRevolution() = default;

    // Unit vectors to the east and north. At a pole they follow the longitude. False for an invalid
    // coordinate and a pixel, which have no WGS84 position; likewise GetNormal and GetDirection.
    virtual bool GetLocalAxes(ICoord* p, Vector* east, Vector* north) = 0;
    // The unit vector up, square to the ellipsoid.
    virtual bool GetNormal(ICoord* p, Vector* normal) = 0;
    // The unit vector in the horizontal plane, its azimuth clockwise from north.
    virtual bool GetDirection(ICoord* p, double azimuth, Vector* direction) = 0;

    // The coordinate, with its height, in the space of its own datum. The coordinate's validity isn't looked
    // at: one without a position gives that of its default record, and a pixel gives latitude and longitude
    // 0. False if the conversion to latitude and longitude fails.
    virtual bool CoordToEcefVector(ICoord* p, Vector* xyz) = 0;

    // The vector as a position in the reference that `out` has. Latitude and height are computed on the
    // ellipsoid of the datum of `out`, in turns, h = p / cos(phi) - N and tan(phi) = z / (p (1 - e2 N / (N +
    // h))) (B. Hofmann-Wellenhof, H. Lichtenegger, J. Collins, "Global Positioning System: Theory and
    // Practice", section 10.2.1), and are then taken for WGS84 values: a datum other than WGS84 is thus
    // shifted once more than it should be.
    //
    // The iteration ends at a step of 0.01 m and 1e-6 degrees, and the height isn't computed again for the
    // last latitude. For heights from -10 to 100 km this leaves the latitude good to 1e-8 degrees, and the
    // height to the smaller of 0.114 m times the tangent of the latitude and 0.7 % of itself:
    //
    //     latitude, degrees    10     30     45     60     70     80     85     89
    //     height, metres     0.02   0.06   0.11   0.19   0.31   0.64    1.3    6.4
    //
    // Points of the ellipsoid keep their height 0. Near the axis the rounding of the latitude counts, too,
    // 0.02 m at one metre from it and in inverse proportion; on the axis the result is the pole, longitude 0
    // for an x of 0.0. Within some 100 km of the centre the position may be kilometres off.
    //
    // False for a vector of another size, the zero vector, numbers that aren't finite and a point near the
    // centre for which the iteration doesn't settle, all of which leave `out` unchanged, and for a conversion
    // that fails, after which it is an invalid coordinate.
    virtual bool EcefVectorToCoord(const Vector* xyz, ICoord* out) = 0;

    // The point of the ellipsoid at a geodesic distance from `start`, to 0.01 m: on the horizontal line of
    // the azimuth the place is sought from which the drop along the normal of `start` hits that point. So the
    // azimuth is that of the plane at the start, not of the geodesic. The way through ECEF coordinates high
    // above the ground turns the point aside of it, by up to 1 mm at 500 km, 2 cm at 1000 km, 1 m at 3000 km
    // and 7 m at 6300 km. The search takes at most 20 secant steps and converges for all distances from 0 to
    // 6340 km. It is false for a negative one and where the drop misses the ellipsoid, from 6340 to 6395 km
    // on depending on latitude and azimuth. The result is an ECEF coordinate in the datum of `start`,
    // whatever the reference of `out`; on failure that is the last point tried, if there was one.
    //
    // The distance counts from the WGS84 values of `start`, taken for values on its own datum: with another
    // datum the point lies off by the shift between the two, and a distance shorter than that has no
    // solution.
    virtual bool PointAtGeodesicDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;

    // The point of the ellipsoid, to 0.01 m in height, in the vertical plane of the azimuth at a
    // straight-line distance from `start`, in the reference that `out` has. At most 20 secant steps; it
    // converges up to 12700 km, nearly the diameter of the ellipsoid, for a start that isn't higher than the
    // distance. A negative distance goes the other way. On failure `out` is unchanged, or invalid if only the
    // conversion into its reference failed.
    virtual bool PointAtChordDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;

    // Where the line from `origin` along `direction`, of any length, both ways, meets the ellipsoid: the
    // nearer point and the farther one; of two equally far ones the one ahead is `near`. Both outputs become
    // ECEF coordinates in the datum of `origin`, whatever their reference. False for a line that misses the
    // ellipsoid or has no direction, and numbers that aren't finite; the outputs are then unchanged.
    virtual bool IntersectLine(ICoord* origin, const Vector* direction, ICoord* near, ICoord* far) = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IEllipsoidOfRevolution* CreateClassEllipsoidOfRevolution();

}  // namespace tessara
