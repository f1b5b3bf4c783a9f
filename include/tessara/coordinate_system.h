// A coordinate system by its type code, 0..23; -1 is no system.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class ITessaraString;

inline constexpr GUID CLSID_CoordinateSystem = ParseGuid("4A3A7895-F7D5-4AB2-867A-516F92020DE8");
inline constexpr GUID IID_ICoordinateSystem = ParseGuid("EFD18247-8544-48F7-9BF5-AC4C71EEB756");

class ICoordinateSystem : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_ICoordinateSystem;

    // A new one holds -1.
    virtual std::int32_t GetSystem() = 0;
    // True for -1..23; anything else is false and changes nothing.
    virtual bool SetSystem(std::int32_t system) = 0;
    // Fills the text with the type name, such as "UTM"; empty for -1 and 23, which have none. No effect on a
    // null or wrong object.
    virtual void GetName(ITessaraString* text) = 0;

  protected:
    ~ICoordinateSystem() = default;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API ICoordinateSystem* CreateClassCoordinateSystem();

}  // namespace tessara
