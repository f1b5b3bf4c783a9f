// Builds maps.
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

// Each operation gives a new map with count 0, or null without memory or for a null or wrong argument. Only a
// POLYNOM map may go without reference points; it leaves them aside if it gets any. A reference point that is
// empty, and any element of the list that isn't one, gives null; an empty list is fine. The scale is a
// fraction (0.00002 for 1:50000), turned into the nearest whole denominator, or the denominator itself; the
// resolution is in pixels per millimetre of the sheet. No number is checked.
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

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IMapCoordOperationsFactory* CreateClassMapCoordOperationsFactory();

}  // namespace tessara
