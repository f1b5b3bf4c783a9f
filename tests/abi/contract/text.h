// Texts of coordinates: written, read and checked.
#pragma once

#include "abi/contract/objects.h"

namespace contract {

class ICoordinateString : public IUnknown {
  public:
    static constexpr Guid ID = Id("FFEFADFA-A9D9-4F9D-815F-29B95410DE17");
    virtual bool SetCoord(ICoord* coord) = 0;
    virtual bool GetCoord(ICoord* coord) = 0;
    virtual bool ParseCoord(ICoordinateReference* reference, ITessaraString* north, ITessaraString* east) = 0;
    virtual bool SetNorthPrecision(double resolution) = 0;
    virtual bool SetEastPrecision(double resolution) = 0;
    virtual bool SetDefaultNorthPrecision() = 0;
    virtual bool SetDefaultEastPrecision() = 0;
    virtual bool GetNorthText(ITessaraString* text) = 0;
    virtual bool GetEastText(ITessaraString* text) = 0;
    virtual bool GetCartesianTexts(ITessaraString* x, ITessaraString* y, ITessaraString* z) = 0;
    virtual bool GetGeographicTexts(ITessaraString* latitude, ITessaraString* longitude,
                                    ITessaraString* height) = 0;
    virtual bool GetNorthDisplayText(ITessaraString* text) = 0;
    virtual bool GetEastDisplayText(ITessaraString* text) = 0;

  protected:
    ~ICoordinateString() = default;
};

class ICoordinateChecker : public IUnknown {
  public:
    static constexpr Guid ID = Id("4B68D48E-2688-462B-BF4C-B9F6D8DF0417");
    virtual bool CheckCoord(ICoord* coord) = 0;
    virtual bool CheckInSystemArea(ICoord* coord) = 0;
    virtual bool CheckConvertible(ICoord* coord, ICoordinateReference* reference) = 0;

  protected:
    ~ICoordinateChecker() = default;
};

class ICoordCheckerUTMREF : public IUnknown {
  public:
    static constexpr Guid ID = Id("08E3B2CA-C8D6-42E8-9E1C-90CA164EA4AA");
    virtual bool CheckCoord(ICoord* coord) = 0;
    virtual bool GetZoneList(IArray* list) = 0;
    virtual bool GetBandList(IArray* list) = 0;
    virtual bool GetColumnList(IArray* list, int32_t datum, ITessaraString* zone, ITessaraString* band,
                               ITessaraString* column, ITessaraString* row) = 0;
    virtual bool GetColumnListOf(IArray* list, ICoord* coord) = 0;
    virtual bool GetRowList(IArray* list, int32_t datum, ITessaraString* zone, ITessaraString* band,
                            ITessaraString* column, ITessaraString* row) = 0;
    virtual bool GetRowListOf(IArray* list, ICoord* coord) = 0;
    virtual bool SplitCoord(ICoord* coord, ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                            ITessaraString* row, ITessaraString* easting, ITessaraString* northing) = 0;
    virtual bool ComposeCoord(ITessaraString* zone, ITessaraString* band, ITessaraString* column,
                              ITessaraString* row, ITessaraString* easting, ITessaraString* northing,
                              KoordFields* target) = 0;

  protected:
    ~ICoordCheckerUTMREF() = default;
};

}  // namespace contract
