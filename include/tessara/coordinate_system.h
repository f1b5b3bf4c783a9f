// A coordinate system by its number 0..23, a KoordType; -1 means none.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_CoordinateSystem = ParseGuid("4A3A7895-F7D5-4AB2-867A-516F92020DE8");
inline constexpr GUID IID_ICoordinateSystem = ParseGuid("EFD18247-8544-48F7-9BF5-AC4C71EEB756");

// Example:
//
//     const tessara::IRef system = tessara::CreateClassCoordinateSystem();
//     system->SetSystem(tessara::KOORD_UTM);
//     system->GetName(text);  // "UTM"
class ICoordinateSystem : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateSystem;

    // A new object holds -1.
    virtual std::int32_t GetSystem() = 0;
    // True for -1..23. Any other number is false and has no effect.
    virtual bool SetSystem(std::int32_t system) = 0;
    // Replaces the text by the name of the system, such as "UTM"; -1 and 23 have none and give an empty
    // text. Without effect for null or an object of another kind.
    virtual void GetName(ITessaraString* text) = 0;

  protected:
    ~ICoordinateSystem() = default;
};

// Creates an object with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API ICoordinateSystem* CreateClassCoordinateSystem();

}  // namespace tessara
