// Computes a range ring around a position, and the geodesic to a distant one on a world map. The class for
// rings takes its helpers from the host's object manager, if there is one; tessara/host contains one.
#include <iomanip>
#include <iostream>

#include "tessara/tessara.h"

namespace {

tessara::IRef<tessara::ICoord> CoordAt(double latitude, double longitude) {
    const tessara::IRef place = tessara::CreateClassCoordGeographic();
    place->Set(longitude, latitude, 0.0);
    tessara::IRef coord = tessara::CreateClassCoord();
    coord->SetGeographic(place);
    return coord;
}

tessara::IRef<tessara::ICoordGeographic> PlaceAt(tessara::IArray* line, std::uint32_t index) {
    tessara::IRef place = tessara::CreateClassCoordGeographic();
    tessara::IRef<tessara::ICoord>(line->GetAt(index))->GetGeographic(place);
    return place;
}

void Write(const char* what, tessara::IArray* line, std::uint32_t index) {
    const tessara::IRef<tessara::ICoordGeographic> place = PlaceAt(line, index);
    std::cout << what << place->GetLatitude() << ' ' << place->GetLongitude() << '\n';
}

// Wagner's fourth projection at 1:100000000, with latitude and longitude 0 at pixel (500, 300).
tessara::IRef<tessara::IMapCoordOperations> MakeWorldMap() {
    const tessara::MapWagnerIvParams params{.originLongitude = 0.0, .stretchX = 1.0, .stretchY = 1.0};
    const tessara::IRef projections = tessara::CreateClassProjectionFactory();
    const tessara::IRef<tessara::IProjection> projection(projections->CreateWagnerIv(&params));
    const tessara::IRef datum = tessara::CreateClassGeoDate();
    datum->SetDatum(tessara::DATUM_WGS84);
    const tessara::IRef point = tessara::CreateClassReferencePoint();
    point->SetLong(CoordAt(0.0, 0.0).Get(), 500, 300);
    const tessara::IRef maps = tessara::CreateClassMapCoordOperationsFactory();
    return tessara::IRef<tessara::IMapCoordOperations>(
        maps->CreateFromReferencePoint(point, 100000000, 2.5, datum, projection));
}

bool WriteRingAndWay() {
    const tessara::IRef<tessara::ICoord> munich = CoordAt(48.1375, 11.5755);
    const tessara::IRef line = tessara::CreateClassArray();

    // Equal angles make a whole turn: nine points, the last of which is the first again.
    const tessara::IRef circles = tessara::CreateClassCircleOnTangentPlane();
    if (!circles->MakeCircle(munich, 0.0, 0.0, 10000.0, line, 9, true)) return false;
    for (std::uint32_t i = 0; i + 1 < line->GetCount(); ++i)
        Write("ring ", line, i);

    const tessara::IRef lines = tessara::CreateClassLinePoints();
    const tessara::IRef<tessara::IMapCoordOperations> world = MakeWorldMap();
    const tessara::IRef<tessara::ICoord> tokyo = CoordAt(35.6895, 139.6917);
    if (!lines->DensifyGeodesic(world, munich, tokyo, line)) return false;
    std::uint32_t northernmost = 0;
    for (std::uint32_t i = 1; i < line->GetCount(); ++i) {
        if (PlaceAt(line, i)->GetLatitude() > PlaceAt(line, northernmost)->GetLatitude()) northernmost = i;
    }
    Write("to Tokyo by ", line, northernmost);
    return true;
}

}  // namespace

int main() {
    const tessara::IRef<tessara::IObjectManager> manager(
        tessara::NewObject<tessara::host::ObjectManager>(tessara::CreateClassArray));
    tessara::ITessaraComponent* component = nullptr;
    tessara::GetTessaraComponent(manager, &component);
    component->Initialize();
    std::cout << std::fixed << std::setprecision(6);
    const bool isWritten = WriteRingAndWay();
    component->Terminate();
    tessara::GetTessaraComponent(nullptr, &component);
    return isWritten ? 0 : 1;
}
