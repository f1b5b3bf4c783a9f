// A plane that touches the ellipsoid, with axes east (x) and north (y): a local metric frame around an
// origin.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_TangentPlane = ParseGuid("1959E014-7388-4CAE-A519-3B1B3F19D074");
inline constexpr GUID IID_ITangentPlane = ParseGuid("B74B889B-9FA1-4829-8F0C-698EFD49378D");

// Example: a mast of 30 m at the origin.
//
//     const tessara::IRef plane = tessara::CreateClassTangentPlane();
//     double x = 0.0, y = 0.0, z = 0.0;
//     if (!plane->SetOrigin(foot) || !plane->GetPlaneCoords(top, &x, &y, &z)) return;  // 0, 0, 30
//
// Plane coordinates and heights z above the plane are in metres, azimuths in degrees clockwise from north.
// For null or an object of another kind, for a vector that hasn't three elements, and before an origin is
// set, a bool result is false and a double result is MISSING_NUMBER. On failure outputs are unchanged unless
// an operation says otherwise, or unless only the conversion of the result into the reference of the output
// failed.
//
// The plane computes through the ellipsoid in space; what tessara/ellipsoid_of_revolution.h says of the
// object manager and of datums applies here, too: points in space are on the datum of each coordinate, the
// axes are those at the WGS84 position of the origin.
class ITangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITangentPlane;

    virtual ~ITangentPlane() = default;

    // Copies latitude, longitude and height of `p` in its own datum, and may be called again. False also for
    // a pixel and for a conversion that fails; the previous settings stay, and the plane may lack its axes
    // then.
    virtual bool SetOrigin(ICoord* p) = 0;
    // The origin, in the reference that `origin` has, and the unit vectors of the axes.
    virtual bool GetFrame(ICoord* origin, Vector* east, Vector* north) = 0;
    // The origin. True, with latitude and longitude 0 on WGS84, if none is set. After a conversion that
    // fails `out` holds the origin in its own reference.
    virtual bool GetOrigin(ICoord* out) = 0;
    // The unit vector up, perpendicular to the plane. GetNormal and GetDirection empty the output on
    // failure.
    virtual bool GetNormal(Vector* out) = 0;
    // The unit vector in the plane at an azimuth.
    virtual bool GetDirection(double azimuth, Vector* out) = 0;
    // The azimuth, in -180..180, of the foot of `p` in the plane; 0.0 for the origin itself.
    virtual double GetAzimuth(ICoord* p) = 0;

    // Intersects the line point + t direction with the plane. Returns t, in lengths of `direction`, and
    // writes the plane coordinates of the intersection. A line in the plane, or within 0.01 mm of it, gives
    // RAY_IN_PLANE and the plane coordinates of `point`. A line that misses the plane, and numbers that
    // aren't finite, give MISSING_NUMBER and the plane coordinates 0.0.
    virtual double IntersectRay(const Vector* point, const Vector* direction, double* x, double* y) = 0;
    // Moves `p` along the direction onto the plane and writes the place into `out`, in the reference that
    // `out` has. Returns t as IntersectRay does; with RAY_IN_PLANE `out` is the position of `p`.
    // MISSING_NUMBER also for a conversion that fails.
    virtual double ProjectAlong(ICoord* p, const Vector* direction, ICoord* out) = 0;
    // Writes into `out`, in its reference, the place in the plane that has the azimuth of `p` and, as its
    // distance from the origin, the geodesic distance of `p`. That distance is between the WGS84 positions,
    // on the ellipsoid of the datum of `p`. False also where the geodesic has no solution.
    virtual bool MapByGeodesic(ICoord* p, ICoord* out) = 0;
    // The same with the straight-line distance.
    virtual bool MapByChord(ICoord* p, ICoord* out) = 0;
    // The foot of `p` in the plane and the height of `p` above it. If `p` isn't finite *x and *y become 0.0.
    virtual bool GetPlaneCoords(ICoord* p, double* x, double* y, double* z) = 0;
    // The inverse of GetPlaneCoords, into the reference that `out` has, as accurate as
    // IEllipsoidOfRevolution::EcefVectorToCoord.
    virtual bool PlaneCoordsToCoord(double x, double y, double z, ICoord* out) = 0;
};

// Creates a plane without an origin, with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ITangentPlane* CreateClassTangentPlane();

}  // namespace tessara
