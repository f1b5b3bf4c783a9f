// Vectors, the ellipsoid, the tangent plane and lines.
#pragma once

#include "abi/contract/maps.h"

namespace contract {

class IVector : public IUnknown {
  public:
    static constexpr Guid ID = Id("3C41A22E-B213-4CC6-89DB-0BA5F769AB4A");
    virtual ~IVector() = default;
    virtual Sequence Normalize(const Sequence& v) = 0;
    virtual Sequence MakeZero(uint32_t n) = 0;
    virtual double Length(const Sequence& v) = 0;
    virtual Sequence Add(const Sequence& a, const Sequence& b) = 0;
    virtual Sequence Subtract(const Sequence& a, const Sequence& b) = 0;
    virtual double Dot(const Sequence& a, const Sequence& b) = 0;
    virtual Sequence Cross(const Sequence& a, const Sequence& b) = 0;
    virtual double TripleProduct(const Sequence& a, const Sequence& b, const Sequence& c) = 0;
    virtual Sequence Scale(const Sequence& v, double s) = 0;
};

class IEllipsoidOfRevolution : public IUnknown {
  public:
    static constexpr Guid ID = Id("EC4DDAC3-5262-4775-B65D-8D6C3688C90A");
    virtual ~IEllipsoidOfRevolution() = default;
    virtual bool GetLocalAxes(ICoord* p, Sequence* east, Sequence* north) = 0;
    virtual bool GetNormal(ICoord* p, Sequence* normal) = 0;
    virtual bool GetDirection(ICoord* p, double azimuth, Sequence* direction) = 0;
    virtual bool CoordToEcefVector(ICoord* p, Sequence* xyz) = 0;
    virtual bool EcefVectorToCoord(const Sequence* xyz, ICoord* out) = 0;
    virtual bool PointAtGeodesicDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;
    virtual bool PointAtChordDistance(ICoord* start, double azimuth, double distance, ICoord* out) = 0;
    virtual bool IntersectLine(ICoord* origin, const Sequence* direction, ICoord* near, ICoord* far) = 0;
};

class ITangentPlane : public IUnknown {
  public:
    static constexpr Guid ID = Id("B74B889B-9FA1-4829-8F0C-698EFD49378D");
    virtual ~ITangentPlane() = default;
    virtual bool SetOrigin(ICoord* p) = 0;
    virtual bool GetFrame(ICoord* origin, Sequence* east, Sequence* north) = 0;
    virtual bool GetOrigin(ICoord* out) = 0;
    virtual bool GetNormal(Sequence* out) = 0;
    virtual bool GetDirection(double azimuth, Sequence* out) = 0;
    virtual double GetAzimuth(ICoord* p) = 0;
    virtual double IntersectRay(const Sequence* point, const Sequence* direction, double* x, double* y) = 0;
    virtual double ProjectAlong(ICoord* p, const Sequence* direction, ICoord* out) = 0;
    virtual bool MapByGeodesic(ICoord* p, ICoord* out) = 0;
    virtual bool MapByChord(ICoord* p, ICoord* out) = 0;
    virtual bool GetPlaneCoords(ICoord* p, double* x, double* y, double* z) = 0;
    virtual bool PlaneCoordsToCoord(double x, double y, double z, ICoord* out) = 0;
};

class ICircleOnTangentPlane : public IUnknown {
  public:
    static constexpr Guid ID = Id("07D17B1D-7E47-4421-96B2-3CE912714ED9");
    virtual ~ICircleOnTangentPlane() = default;
    virtual bool MakeCircle(ICoord* centre, double startAngle, double endAngle, double radius, IArray* out,
                            uint32_t count, bool clockwise) = 0;
};

class IEllipseOnTangentPlane : public IUnknown {
  public:
    static constexpr Guid ID = Id("A59825D9-16A1-49F3-A0BF-DAC5C6804A11");
    virtual ~IEllipseOnTangentPlane() = default;
    virtual bool MakeEllipse(ICoord* centre, double rotation, double axisAlong, double axisAcross,
                             double startAngle, double endAngle, IArray* out, uint32_t count,
                             bool clockwise) = 0;
};

class ILineIntersectionParameters : public IUnknown {
  public:
    static constexpr Guid ID = Id("C5B6DC61-BD05-425F-BDFB-0E5B6FDFC259");
    virtual ~ILineIntersectionParameters() = default;
    virtual ICoord* GetIntersection() = 0;
    virtual bool SetIntersection(ICoord* coord) = 0;
    virtual ICoord* GetLineStart() = 0;
    virtual bool SetLineStart(ICoord* coord) = 0;
    virtual ICoord* GetLineEnd() = 0;
    virtual bool SetLineEnd(ICoord* coord) = 0;
    virtual uint32_t GetSegmentIndex() = 0;
    virtual bool SetSegmentIndex(uint32_t index) = 0;
    virtual double GetParameter() = 0;
    virtual bool SetParameter(double parameter) = 0;
};

class IIntersectionResults : public IUnknown {
  public:
    static constexpr Guid ID = Id("73D3361D-E2DC-42D3-A4E4-DDBA41154279");
    virtual ~IIntersectionResults() = default;
    virtual bool Add(ILineIntersectionParameters* first, ILineIntersectionParameters* second) = 0;
    virtual bool RemoveAt(uint32_t index) = 0;
    virtual int32_t GetCount() = 0;
    virtual IUnknown* GetFirstAt(uint32_t index) = 0;
    virtual IUnknown* GetSecondAt(uint32_t index) = 0;
    virtual void Clear() = 0;
};

class ILinePoints : public IUnknown {
  public:
    static constexpr Guid ID = Id("027100B5-A4DC-4004-9E06-2CE5710DCD8B");
    virtual bool SetPixelTolerance(double tolerance) = 0;
    virtual double GetPixelTolerance() = 0;
    virtual bool DensifyMapStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    virtual bool DensifyCoordStraight(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    virtual bool DensifyCoordStraightZoned(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    virtual bool DensifyGeodesic(IMapCoordOperations* map, ICoord* a, ICoord* b, IArray* out) = 0;
    virtual bool DensifyInReference(ICoord* a, ICoord* b, ICoordinateReference* reference, IArray* out) = 0;
    virtual bool IntersectOnMap(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                IIntersectionResults* results) = 0;
    virtual bool IntersectOnMapToArray(IMapCoordOperations* map, IArray* lineA, IArray* lineB,
                                       IArray* points) = 0;
    virtual bool IntersectPixelLines(IArray* lineA, IArray* lineB, IIntersectionResults* results) = 0;
    virtual bool IntersectPixelLinesToArray(IArray* lineA, IArray* lineB, IArray* points) = 0;
    virtual bool IsPointOnLine(IMapCoordOperations* map, ICoord* point, IArray* line) = 0;
    virtual double GetSignedDistance(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b) = 0;
    virtual bool GetFootPoint(IMapCoordOperations* map, ICoord* point, ICoord* a, ICoord* b, ICoord* out) = 0;

  protected:
    ~ILinePoints() = default;
};

}  // namespace contract
