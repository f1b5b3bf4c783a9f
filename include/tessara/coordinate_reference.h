// The reference of a position: a datum and a coordinate system.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_CoordinateReference = ParseGuid("AE783125-E16F-4773-8CB7-F225A3EEDC3E");
inline constexpr GUID IID_ICoordinateReference = ParseGuid("BA2B919A-E90A-4E1D-B032-E1B96D137DD8");

// Example: the target of a conversion to Gauss-Krueger on the German datum.
//
//     const tessara::IRef reference = tessara::CreateClassCoordinateReference();
//     reference->SetDatum(3);
//     reference->SetSystem(tessara::KOORD_GK);
//     coord->SetReference(reference);
class ICoordinateReference : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateReference;

    // Datum and system have the numbers and rules of IGeoDate and ICoordinateSystem. A new reference has
    // neither: 999 and -1.
    virtual std::int32_t GetDatum() = 0;
    virtual bool SetDatum(std::int32_t datum) = 0;
    virtual std::int32_t GetSystem() = 0;
    virtual bool SetSystem(std::int32_t system) = 0;
    virtual void GetDatumName(ITessaraString* text) = 0;
    virtual void GetSystemName(ITessaraString* text) = 0;

  protected:
    ~ICoordinateReference() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateReference* CreateClassCoordinateReference();

}  // namespace tessara
