#include "polygons/polygon_reading.h"

#include "geometry/densify.h"
#include "objects/koord_access.h"
#include "records/compare_records.h"
#include "records/reference.h"
#include "tessara/coordinate_transfer.h"

namespace tessara {
namespace {

bool IsSamePlace(const CKoord& a, const CKoord& b) {
    return CompareRecords(Axis::East, a, b) == 0 && CompareRecords(Axis::North, a, b) == 0;
}

bool AppendPlace(const MapPlane& map, const CKoord& koord, Ring* ring) {
    PlanePoint place{};
    if (!map.ToPlane(koord, &place)) return false;
    ring->push_back(place);
    return true;
}

// Appends the points of an edge, its start excepted.
bool AppendEdge(const MapPlane& map, const CKoord& from, const CKoord& to, Ring* ring) {
    std::vector<CKoord> polyline;
    if (!DensifyOnMap(map, from, to, DensifyMode::CoordStraight, DEFAULT_PIXEL_TOLERANCE, &polyline))
        return false;
    for (std::size_t i = 1; i < polyline.size(); ++i) {
        if (!AppendPlace(map, polyline[i], ring)) return false;
    }
    return true;
}

}  // namespace

bool ReadRecords(IArray* polygon, std::vector<CKoord>* records) {
    const std::uint32_t count = polygon->GetCount();
    records->clear();
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> vertex(polygon->GetAt(i));
        CKoord koord;
        if (!KoordFromCoord(vertex.Get(), &koord)) return false;
        records->push_back(koord);
        if (ReferenceOf(koord) != ReferenceOf(records->front())) return false;
    }
    return true;
}

bool ReadCoordEdges(const MapPlane& map, const std::vector<CKoord>& records, Ring* ring) {
    ring->clear();
    if (records.empty()) return true;
    if (!AppendPlace(map, records.front(), ring)) return false;
    for (std::size_t i = 1; i < records.size(); ++i) {
        if (!AppendEdge(map, records[i - 1], records[i], ring)) return false;
    }
    const bool isClosed = IsSamePlace(records.front(), records.back());
    return isClosed || AppendEdge(map, records.back(), records.front(), ring);
}

bool ReadTransferredEdges(IMapCoordOperations* map, IArray* polygon, Ring* ring) {
    const IRef<ICoordinateTransfer> transfer(CreateClassCoordinateTransfer());
    if (!transfer.IsValid()) return false;
    const std::uint32_t count = polygon->GetCount();
    std::vector<CKoord> records;
    for (std::uint32_t i = 0; i < count; ++i) {
        const IRef<ICoord> vertex(polygon->GetAt(i));
        const IRef<ICoord> carried(CreateClassCoord());
        CKoord koord;
        if (!transfer->TransferToMap(map, vertex.Get(), carried.Get())) return false;
        if (!KoordFromCoord(carried.Get(), &koord)) return false;
        records.push_back(koord);
    }
    return ReadCoordEdges(MapPlane(map), records, ring);
}

}  // namespace tessara
