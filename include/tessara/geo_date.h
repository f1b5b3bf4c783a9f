// A geodetic datum by its number, 0..238; 999 is no datum.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_GeoDate = ParseGuid("6577718A-7E52-4F54-9847-6A85E7DB3145");
inline constexpr GUID IID_IGeoDate = ParseGuid("A3CC5B2B-FAA7-4564-B704-A4285730035F");

class IGeoDate : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IGeoDate;

    // A new one holds 999.
    virtual std::int32_t GetDatum() = 0;
    // True for 0..238 and 999; anything else is false and changes nothing.
    virtual bool SetDatum(std::int32_t datum) = 0;
    // Fills the text with the datum's short name, such as "WGS84"; empty for 999. No effect on a null or
    // wrong object.
    virtual void GetName(ITessaraString* text) = 0;

  protected:
    ~IGeoDate() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IGeoDate* CreateClassGeoDate();

}  // namespace tessara
