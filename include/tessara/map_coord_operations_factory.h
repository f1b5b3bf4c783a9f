// Creates maps.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IArray;
class IGeoDate;
class IMapCoordOperations;
class IProjection;
class IReferencePoint;

inline constexpr GUID CLSID_MapCoordOperationsFactory = ParseGuid("BC6402A2-B616-45AF-A50F-6B036921B0E4");
inline constexpr GUID IID_IMapCoordOperationsFactory = ParseGuid("D0C0CA6B-7659-40D9-B7FF-BEEA27EC9A30");

// Example: a sheet 1:50000 with 20 pixels per millimetre; a grid map needs no reference points.
//
//     const tessara::IRef datum = tessara::CreateClassGeoDate();
//     datum->SetDatum(tessara::DATUM_WGS84);
//     const tessara::IRef noPoints = tessara::CreateClassArray();
//     const tessara::IRef factory = tessara::CreateClassMapCoordOperationsFactory();
//     const tessara::IRef map = factory->CreateFromReferencePoints(noPoints, 50000, 20.0, datum, projection);
//
// Each operation creates a map with count 0. The scale is a fraction (0.00002 for 1:50000), stored as the
// nearest whole denominator, or the denominator itself; the resolution is in pixels per millimetre of the
// sheet. Numbers aren't checked.
//
// Null for a null argument or an object of another kind, for an empty reference point, for a list with an
// element that isn't a reference point, and if memory runs out. An empty list is accepted. A POLYNOM map
// ignores reference points, and for it they may be null.
class IMapCoordOperationsFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordOperationsFactory;

    virtual IMapCoordOperations* CreateFromReferencePointsScale(IArray* points, double scale,
                                                                double resolution, IGeoDate* datum,
                                                                IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePointScale(IReferencePoint* point, double scale,
                                                               double resolution, IGeoDate* datum,
                                                               IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePoints(IArray* points, std::int32_t scaleDenominator,
                                                           double resolution, IGeoDate* datum,
                                                           IProjection* projection) = 0;
    virtual IMapCoordOperations* CreateFromReferencePoint(IReferencePoint* point,
                                                          std::int32_t scaleDenominator, double resolution,
                                                          IGeoDate* datum, IProjection* projection) = 0;

  protected:
    ~IMapCoordOperationsFactory() = default;
};

// Creates a factory with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IMapCoordOperationsFactory* CreateClassMapCoordOperationsFactory();

}  // namespace tessara
