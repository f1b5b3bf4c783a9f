// Creates the coordinate creators of maps.
#pragma once

#include "tessara/unknown.h"

namespace tessara {

class IMapCoordCreator;
class IMapCoordOperations;

inline constexpr GUID CLSID_MapCoordCreatorFactory = ParseGuid("48098E17-BC03-48EA-A555-35F345633CF5");
inline constexpr GUID IID_IMapCoordCreatorFactory = ParseGuid("B861988E-EF3B-4E77-8112-936BF1E5B332");

// Example: the pixel of a position, as a coordinate.
//
//     const tessara::IRef factory = tessara::CreateClassMapCoordCreatorFactory();
//     const tessara::IRef creator = factory->CreateMapCoordCreator(map);
//     const tessara::IRef pixel = creator->CreateCoordFrom(munich);
//     double x = 0.0, y = 0.0;
//     if (!pixel.IsValid() || !pixel->GetPixel(&x, &y)) return;
class IMapCoordCreatorFactory : public IUnknown {
  public:
    static constexpr const GUID& Iid = IID_IMapCoordCreatorFactory;

    virtual ~IMapCoordCreatorFactory() = default;
    // Creates a creator with count 0, which keeps the map. Null for null or an object of another kind, and
    // if memory runs out.
    virtual IMapCoordCreator* CreateMapCoordCreator(IMapCoordOperations* map) = 0;
};

// Creates a factory with count 0: put it into an IRef at once. Null if memory runs out.
extern "C" [[nodiscard]] TESSARA_API IMapCoordCreatorFactory* CreateClassMapCoordCreatorFactory();

}  // namespace tessara
