// A range ring around a position, and the geodesic to a far one on a world map. The class that makes rings
// gets its helpers from the host's object manager, where there is one; tessara/host has one ready-made.
#include <iomanip>
#include <iostream>

#include "tessara/host/object_manager.h"
#include "tessara/tessara.h"

using namespace tessara;

namespace {

IRef<ICoord> CoordAt(double latitude, double longitude) {
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    place->Set(longitude, latitude, 0.0);
    IRef<ICoord> coord(CreateClassCoord());
    coord->SetGeographic(place.Get());
    return coord;
}

IRef<ICoordGeographic> PlaceAt(IArray* line, std::uint32_t index) {
    IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    IRef<ICoord>(line->GetAt(index))->GetGeographic(place.Get());
    return place;
}

void Write(const char* what, IArray* line, std::uint32_t index) {
    const IRef<ICoordGeographic> place = PlaceAt(line, index);
    std::cout << what << place->GetLatitude() << ' ' << place->GetLongitude() << '\n';
}

// Wagner's fourth projection, 1:100000000, with latitude and longitude 0 on pixel (500, 300).
IRef<IMapCoordOperations> MakeWorldMap() {
    const MapWagnerIvParams params{.originLongitude = 0.0, .stretchX = 1.0, .stretchY = 1.0};
    const IRef<IProjectionFactory> projections(CreateClassProjectionFactory());
    const IRef<IProjection> projection(projections->CreateWagnerIv(&params));
    const IRef<IGeoDate> datum(CreateClassGeoDate());
    datum->SetDatum(DATUM_WGS84);
    const IRef<IReferencePoint> point(CreateClassReferencePoint());
    point->SetLong(CoordAt(0.0, 0.0).Get(), 500, 300);
    const IRef<IMapCoordOperationsFactory> maps(CreateClassMapCoordOperationsFactory());
    return IRef<IMapCoordOperations>(
        maps->CreateFromReferencePoint(point.Get(), 100000000, 2.5, datum.Get(), projection.Get()));
}

bool WriteRingAndWay() {
    const IRef<ICoord> munich = CoordAt(48.1375, 11.5755);
    const IRef<IArray> line(CreateClassArray());

    // Equal angles make a whole turn: nine points, of which the last is the first again.
    const IRef<ICircleOnTangentPlane> circles(CreateClassCircleOnTangentPlane());
    if (!circles->MakeCircle(munich.Get(), 0.0, 0.0, 10000.0, line.Get(), 9, true)) return false;
    for (std::uint32_t i = 0; i + 1 < line->GetCount(); ++i)
        Write("ring ", line.Get(), i);

    const IRef<ILinePoints> lines(CreateClassLinePoints());
    const IRef<IMapCoordOperations> world = MakeWorldMap();
    const IRef<ICoord> tokyo = CoordAt(35.6895, 139.6917);
    if (!lines->DensifyGeodesic(world.Get(), munich.Get(), tokyo.Get(), line.Get())) return false;
    std::uint32_t northernmost = 0;
    for (std::uint32_t i = 1; i < line->GetCount(); ++i) {
        if (PlaceAt(line.Get(), i)->GetLatitude() > PlaceAt(line.Get(), northernmost)->GetLatitude())
            northernmost = i;
    }
    Write("to Tokyo by ", line.Get(), northernmost);
    return true;
}

}  // namespace

int main() {
    const IRef<IObjectManager> manager(NewObject<host::ObjectManager>(CreateClassArray));
    ITessaraComponent* component = nullptr;
    GetTessaraComponent(manager.Get(), &component);
    component->Initialize();
    std::cout << std::fixed << std::setprecision(6);
    const bool isWritten = WriteRingAndWay();
    component->Terminate();
    GetTessaraComponent(nullptr, &component);
    return isWritten ? 0 : 1;
}
