#include "areas/line_extents.h"

#include <vector>

#include "geometry/densify.h"
#include "geometry/map_plane.h"
#include "objects/koord_access.h"
#include "objects/reference_change.h"
#include "systems/reference.h"
#include "tessara/array.h"
#include "tessara/coord.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

// Walks a line in the reference in which its extent is wanted.
class LineWalk {
  public:
    LineWalk(IMapCoordOperations* map, std::int32_t datum, std::int32_t system)
        : map_(map), plane_(map), datum_(datum), system_(system), change_(datum, system) {}

    // The position of one of the line's coordinates in the reference.
    bool Carry(const CKoord& koord, CKoord* carried) const {
        if (!map_.IsValid() || IsPixel(koord) == IsPixelType(system_)) return change_.Apply(koord, carried);
        return IsPixel(koord) ? CarryToWorld(koord, carried) : CarryToPixel(koord, carried);
    }

    // The edge between two of the line's coordinates, as a polyline in the reference.
    bool WalkEdge(const CKoord& from, const CKoord& to, std::vector<CKoord>* polyline) const {
        if (from.datum != to.datum || from.type != to.type) return false;
        CKoord a;
        CKoord b;
        if (!Carry(from, &a) || !Carry(to, &b)) return false;
        if (map_.IsValid() && IsPixel(from)) {
            return DensifyOnMap(plane_, a, b, DensifyMode::MapStraight, DEFAULT_PIXEL_TOLERANCE, polyline);
        }
        return DensifyAcrossReferences(a, b, static_cast<std::int32_t>(from.datum),
                                       static_cast<std::int32_t>(from.type), polyline);
    }

  private:
    bool CarryToWorld(const CKoord& pixel, CKoord* carried) const {
        CKoord world(MakeKoord(datum_, system_));
        PlanePoint place{};
        if (!plane_.ToPlane(pixel, &place) || !plane_.ToWorld(place, &world)) return false;
        *carried = world;
        return true;
    }

    bool CarryToPixel(const CKoord& world, CKoord* carried) const {
        const IRef<ICoord> source(CreateClassCoord());
        const IRef<ICoord> target(CreateClassCoord());
        const CKoord empty(MakeKoord(datum_, system_));
        return KoordToCoord(&world, source.Get()) && KoordToCoord(&empty, target.Get()) &&
               map_->CoordToPixelCoord(source.Get(), target.Get()) && KoordFromCoord(target.Get(), carried);
    }

    IRef<IMapCoordOperations> map_;
    MapPlane plane_;
    std::int32_t datum_;
    std::int32_t system_;
    ReferenceChange change_;
};

bool RecordAt(IArray* line, std::uint32_t index, CKoord* koord) {
    const IRef<ICoord> coord(line->GetAt(index));
    return KoordFromCoord(coord.Get(), koord);
}

}  // namespace

bool ExtentOfLine(IMapCoordOperations* map, IArray* line, std::int32_t datum, std::int32_t system,
                  Extremes* extremes) {
    const std::uint32_t count = line->GetCount();
    const LineWalk walk(map, datum, system);
    CKoord from;
    CKoord first;
    if (count == 0 || !RecordAt(line, 0, &from) || !walk.Carry(from, &first)) return false;
    extremes->Start(first);

    std::vector<CKoord> polyline;
    for (std::uint32_t i = 1; i < count; ++i) {
        CKoord to;
        if (!RecordAt(line, i, &to) || !walk.WalkEdge(from, to, &polyline)) return false;
        for (const CKoord& koord : polyline) {
            if (!extremes->ExtendAxes(koord)) return false;
        }
        from = to;
    }
    return true;
}

}  // namespace tessara
