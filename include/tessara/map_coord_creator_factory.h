// Makes the coordinate creators of maps.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IMapCoordCreator;
class IMapCoordOperations;

inline constexpr GUID CLSID_MapCoordCreatorFactory = ParseGuid("48098E17-BC03-48EA-A555-35F345633CF5");
inline constexpr GUID IID_IMapCoordCreatorFactory = ParseGuid("B861988E-EF3B-4E77-8112-936BF1E5B332");

class IMapCoordCreatorFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordCreatorFactory;

    virtual ~IMapCoordCreatorFactory() = default;
    // A new creator with count 0, which holds the map. Null for a null or wrong argument or without memory.
    virtual IMapCoordCreator* CreateMapCoordCreator(IMapCoordOperations* map) = 0;
};

// A new one with count 0, or null without memory.
extern "C" [[nodiscard]] TESSARA_API IMapCoordCreatorFactory* CreateClassMapCoordCreatorFactory();

}  // namespace tessara
