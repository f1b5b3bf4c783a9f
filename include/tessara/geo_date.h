// A geodetic datum, identified by its number 0..238; 999 means none.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_GeoDate = ParseGuid("6577718A-7E52-4F54-9847-6A85E7DB3145");
inline constexpr GUID IID_IGeoDate = ParseGuid("A3CC5B2B-FAA7-4564-B704-A4285730035F");

// Example:
//
//     const tessara::IRef datum = tessara::CreateClassGeoDate();
//     datum->SetDatum(tessara::DATUM_WGS84);
//     datum->GetName(text);  // "WGS84"
class IGeoDate : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IGeoDate;

    // Returns the number. A new object has 999.
    virtual std::int32_t GetDatum() = 0;
    // Returns true for 0..238 and 999, and false without effect for any other number.
    virtual bool SetDatum(std::int32_t datum) = 0;
    // Replaces the text by the short name of the datum, such as "WGS84", or by an empty text for 999. Has no
    // effect for null or an object of another kind.
    virtual void GetName(ITessaraString* text) = 0;

  protected:
    ~IGeoDate() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IGeoDate* CreateClassGeoDate();

}  // namespace tessara
