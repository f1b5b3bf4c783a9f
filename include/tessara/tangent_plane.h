// The plane that touches the ellipsoid at an origin, with axes east (x) and north (y): coordinates near the
// origin in the plane, and back.
#pragma once

#include "tessara/unknown.h"
#include "tessara/vector.h"

namespace tessara {

class ICoord;

inline constexpr GUID CLSID_TangentPlane = ParseGuid("1959E014-7388-4CAE-A519-3B1B3F19D074");
inline constexpr GUID IID_ITangentPlane = ParseGuid("B74B889B-9FA1-4829-8F0C-698EFD49378D");

// Plane coordinates and heights z above the plane are metres, azimuths degrees clockwise from north. A bool
// result is false, and a double result MISSING_NUMBER, for a null or wrong object, a null pointer, a vector
// that hasn't three elements, and as long as no origin is set. Outputs are unchanged on failure where nothing
// else is said, but for a coordinate that can't take the result over into its reference.
//
// The plane works through the ellipsoid in space (ellipsoid_of_revolution.h), whose remarks on the object
// manager and on datums hold here, too: points in space lie in the datum of each coordinate, the axes are
// those of the WGS84 position of the origin.
class ITangentPlane : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ITangentPlane;

    virtual ~ITangentPlane() = default;

    // Takes over latitude, longitude and height of `p` in its own datum; may be called again. False also for
    // a pixel and a conversion that fails; what was set so far stays, and the plane may be without axes then.
    virtual bool SetOrigin(ICoord* p) = 0;
    // The origin, converted to the reference that `origin` has, and the unit vectors of the axes.
    virtual bool GetFrame(ICoord* origin, Vector* east, Vector* north) = 0;
    // Without an origin the position is latitude and longitude 0, WGS84, and the result is true. After a
    // conversion that fails `out` holds the origin in its own reference.
    virtual bool GetOrigin(ICoord* out) = 0;
    // The unit vector up, square to the plane. The output is empty on failure, here and in GetDirection.
    virtual bool GetNormal(Vector* out) = 0;
    // The unit vector in the plane.
    virtual bool GetDirection(double azimuth, Vector* out) = 0;
    // The azimuth of the foot of `p` in the plane, in -180..180, and 0.0 for the origin itself.
    virtual double GetAzimuth(ICoord* p) = 0;

    // Where the line point + t direction meets the plane: t, and the plane coordinates of that place in *x
    // and *y. t counts lengths of `direction`. A line in the plane, up to 0.01 mm beside it, gives
    // RAY_IN_PLANE and the plane coordinates of `point`. A line that misses the plane, and numbers that
    // aren't finite, give MISSING_NUMBER, and both coordinates 0.0.
    virtual double IntersectRay(const Vector* point, const Vector* direction, double* x, double* y) = 0;
    // Moves `p` along the direction onto the plane and writes the place into `out`, which keeps its
    // reference. The result is the t of IntersectRay; for RAY_IN_PLANE `out` is the position of `p`. A
    // conversion that fails gives MISSING_NUMBER, too.
    virtual double ProjectAlong(ICoord* p, const Vector* direction, ICoord* out) = 0;
    // The place in the plane that lies in the azimuth of `p` at the geodesic distance of `p` from the origin,
    // written into `out`, which keeps its reference. The distance is taken between the WGS84 positions on the
    // ellipsoid of the datum of `p`. False also where the geodesic has no solution.
    virtual bool MapByGeodesic(ICoord* p, ICoord* out) = 0;
    // The same with the straight-line distance.
    virtual bool MapByChord(ICoord* p, ICoord* out) = 0;
    // The foot of `p` in the plane and its height above it. A `p` that isn't finite leaves *x and *y 0.0.
    virtual bool GetPlaneCoords(ICoord* p, double* x, double* y, double* z) = 0;
    // The way back, into the reference that `out` has. It undoes GetPlaneCoords as well as
    // IEllipsoidOfRevolution::EcefVectorToCoord finds latitude and height.
    virtual bool PlaneCoordsToCoord(double x, double y, double z, ICoord* out) = 0;
};

// A new one without an origin, with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ITangentPlane* CreateClassTangentPlane();

}  // namespace tessara
