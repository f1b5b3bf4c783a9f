// The coordinate, its reference, its transfer and its zones.
#pragma once

#include "abi/contract/frame.h"
#include "abi/contract/records.h"

namespace contract {

class IMapCoordOperations;

class ICoordGeographic : public IUnknown {
  public:
    static constexpr Guid ID = Id("0A8D3EB2-ADE6-4399-B54D-313ABC81AB70");
    virtual bool Set(double longitude, double latitude, double height) = 0;
    virtual void Get(double* longitude, double* latitude, double* height) = 0;
    virtual double GetLatitude() = 0;
    virtual double GetLongitude() = 0;
    virtual double GetHeight() = 0;
    virtual bool SetLatitude(double latitude) = 0;
    virtual bool SetLongitude(double longitude) = 0;
    virtual bool SetHeight(double height) = 0;

  protected:
    ~ICoordGeographic() = default;
};

class IGeoDate : public IUnknown {
  public:
    static constexpr Guid ID = Id("A3CC5B2B-FAA7-4564-B704-A4285730035F");
    virtual int32_t GetDatum() = 0;
    virtual bool SetDatum(int32_t datum) = 0;
    virtual void GetName(ITessaraString* name) = 0;

  protected:
    ~IGeoDate() = default;
};

class ICoordinateSystem : public IUnknown {
  public:
    static constexpr Guid ID = Id("EFD18247-8544-48F7-9BF5-AC4C71EEB756");
    virtual int32_t GetSystem() = 0;
    virtual bool SetSystem(int32_t system) = 0;
    virtual void GetName(ITessaraString* name) = 0;

  protected:
    ~ICoordinateSystem() = default;
};

class ICoordinateReference : public IUnknown {
  public:
    static constexpr Guid ID = Id("BA2B919A-E90A-4E1D-B032-E1B96D137DD8");
    virtual int32_t GetDatum() = 0;
    virtual bool SetDatum(int32_t datum) = 0;
    virtual int32_t GetSystem() = 0;
    virtual bool SetSystem(int32_t system) = 0;
    virtual void GetDatumName(ITessaraString* name) = 0;
    virtual void GetSystemName(ITessaraString* name) = 0;

  protected:
    ~ICoordinateReference() = default;
};

class ICoord : public IUnknown {
  public:
    static constexpr Guid ID = Id("B0371A07-D1E1-4F35-A7E6-D6CB8B851B3B");
    virtual bool SetPixel(double x, double y) = 0;
    virtual bool GetPixel(double* x, double* y) = 0;
    virtual bool SetHeight(double height) = 0;
    virtual double GetHeight() = 0;
    virtual bool GetGeographic(ICoordGeographic* target) = 0;
    virtual bool SetGeographic(ICoordGeographic* source) = 0;
    virtual bool SetReference(ICoordinateReference* reference) = 0;
    virtual bool GetReference(ICoordinateReference* reference) = 0;

  protected:
    ~ICoord() = default;
};

class ICoordInternal : public IUnknown {
  public:
    static constexpr Guid ID = Id("461B9FF0-EE7F-4BF5-ABE6-F9BB0EEDF512");
    virtual bool SetKoord(const KoordFields* koord) = 0;
    virtual bool GetKoord(KoordFields* koord) = 0;
    virtual bool ShiftEast(double delta) = 0;
    virtual bool ShiftNorth(double delta) = 0;
    virtual double EastDifference(ICoord* other) = 0;
    virtual double NorthDifference(ICoord* other) = 0;

  protected:
    ~ICoordInternal() = default;
};

class ICoordinateInit : public IUnknown {
  public:
    static constexpr Guid ID = Id("CDFEF2F5-40D2-459B-9B42-9E291DE57ABF");
    virtual bool InitCoord(ICoord* coord) = 0;

  protected:
    ~ICoordinateInit() = default;
};

class ICoordinateTransfer : public IUnknown {
  public:
    static constexpr Guid ID = Id("390FAA7E-DBE5-4734-94FA-905C72130D32");
    virtual bool Transfer(ICoord* source, ICoord* target) = 0;
    virtual bool TransferNorth(ICoord* source, ICoord* target) = 0;
    virtual bool TransferEast(ICoord* source, ICoord* target) = 0;
    virtual bool TransferToMap(IMapCoordOperations* map, ICoord* source, ICoord* target) = 0;
    virtual bool TransferBetweenMaps(IMapCoordOperations* sourceMap, ICoord* source,
                                     IMapCoordOperations* targetMap, ICoord* target) = 0;

  protected:
    ~ICoordinateTransfer() = default;
};

class IZoneCoordOperations : public IUnknown {
  public:
    static constexpr Guid ID = Id("64B1999A-FA32-4F61-85A3-55796E0FD00F");
    virtual bool HasZones(ICoord* coord) = 0;
    virtual int32_t GetEastBorder(ICoord* coord, ICoord* out) = 0;
    virtual bool GetEastNeighbour(ICoord* coord, ICoord* out) = 0;
    virtual int32_t GetWestBorder(ICoord* coord, ICoord* out) = 0;
    virtual bool GetWestNeighbour(ICoord* coord, ICoord* out) = 0;
    virtual bool GetZoneCentre(ICoord* coord, ICoord* out) = 0;
    virtual int32_t GetZoneNumber(ICoord* coord) = 0;
    virtual int32_t GetZoneFactor(ICoord* coord) = 0;
    virtual bool MoveToZone(int32_t delta, ICoord* coord) = 0;
    virtual bool GetEastNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;
    virtual bool GetWestNeighbourAtEquator(ICoord* coord, ICoord* out) = 0;

  protected:
    ~IZoneCoordOperations() = default;
};

}  // namespace contract
