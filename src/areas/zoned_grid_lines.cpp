// Zones are walked from west to east: by their numbers, but over the date line. Within a zone places are
// plain eastings and northings; those of UTM count from the equator in both hemispheres.
#include "areas/zoned_grid_lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

#include "areas/compare_records.h"
#include "areas/grid_steps.h"
#include "objects/axis_values.h"
#include "objects/zone_borders.h"
#include "objects/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

// What the search for the end of a line takes, roughly.
constexpr std::size_t POINTS_OF_A_SEARCH = 10;

// The eastings of a zone's borders at one northing.
struct Borders {
    double west, east;

    [[nodiscard]] bool Enclose(double easting) const { return easting >= west && easting <= east; }
};

// A zone, by its central line. Its places want no zone: a place on a border stays in this one.
class Zone {
  public:
    // The zone in which a place lies; nothing if it doesn't exist.
    static std::optional<Zone> Of(const CKoord& place) {
        tagKOORD centre = place;
        if (!Zones_MoveToCentre(&centre)) return std::nullopt;
        Zones_Want(NO_WANTED_ZONE, &centre);
        return Zone(centre);
    }

    // The next one to the east; nothing where the system ends.
    [[nodiscard]] std::optional<Zone> Next() const {
        tagKOORD moved = centre_;
        if (!Zones_Move(1, &moved) || Zones_Number(moved) <= Number()) return std::nullopt;
        return Of(CKoord(moved));
    }

    [[nodiscard]] std::int32_t Number() const { return Zones_Number(centre_); }

    [[nodiscard]] CKoord At(double easting, double northing) const {
        tagKOORD place = centre_;
        Zones_SetEast(easting, &place);
        Axis_SetSignedNorthing(northing, &place);
        return CKoord(place);
    }

    [[nodiscard]] std::optional<Borders> BordersAt(double northing) const {
        tagKOORD west = centre_;
        Axis_SetSignedNorthing(northing, &west);
        tagKOORD east = west;
        if (!Zones_MoveToBorder(Compass::West, &west) || !Zones_MoveToBorder(Compass::East, &east)) {
            return std::nullopt;  // GCOVR_EXCL_LINE: all northings of a window have borders
        }
        return Borders{Zones_East(west), Zones_East(east)};
    }

    // The northing at which the zone is widest, in all the world.
    [[nodiscard]] std::optional<double> WidestNorthing() const {
        tagKOORD foot = centre_;
        if (!Zones_MoveToEquator(&foot)) return std::nullopt;
        return Axis_SignedNorthing(foot);
    }

  private:
    explicit Zone(const tagKOORD& centre) : centre_(centre) {}

    tagKOORD centre_;
};

// The zones of the window from west to east.
std::vector<Zone> ZonesOf(const GridWindow& window) {
    const std::int32_t last = Zones_Number(window.extremes[Compass::East]);
    std::vector<Zone> zones;
    for (auto zone = Zone::Of(window.extremes[Compass::West]); zone && zone->Number() <= last;
         zone = zone->Next()) {
        zones.push_back(*zone);
    }
    if (!window.gap) return zones;
    // Over the date line the western zones are those of the highest numbers.
    const ZoneGap gap = *window.gap;
    const auto westernmost =
        std::find_if(zones.begin(), zones.end(), [&](const Zone& zone) { return zone.Number() > gap.last; });
    std::rotate(zones.begin(), westernmost, zones.end());
    zones.erase(std::remove_if(zones.begin(), zones.end(),
                               [&](const Zone& zone) { return gap.Holds(zone.Number()); }),
                zones.end());
    return zones;
}

class ZonedLines {
  public:
    ZonedLines(const GridWindow& window, GridPen* pen)
        : west_(window.extremes[Compass::West]),
          east_(window.extremes[Compass::East]),
          southPlace_(window.extremes[Compass::South]),
          northPlace_(window.extremes[Compass::North]),
          zones_(ZonesOf(window)),
          isOverDateLine_(window.gap.has_value()),
          south_(Axis_SignedNorthing(southPlace_)),
          north_(Axis_SignedNorthing(northPlace_)),
          eastStep_(window.eastStep),
          eastSteps_(Axis::East, window.eastStep, window.finestStep),
          northSteps_(Axis::North, window.northStep, window.finestStep),
          pen_(*pen) {}

    bool DrawEastLines() {
        return ForEachZone([this](const Zone& zone) { return DrawZone(zone); });
    }

    bool DrawNorthLines() {
        CKoord place = southPlace_;
        const FirstLine found = northSteps_.MoveToFirst(&place);
        if (found != FirstLine::Found) return found == FirstLine::None;
        return northSteps_.Walk(place, northPlace_, [this](const CKoord& line) {
            return DrawNorthLine(Axis_SignedNorthing(line));
        });
    }

  private:
    // One zone's share of the window.
    struct Share {
        const Zone& zone;
        double widest;  // the northing at which the zone is widest in the window
        Borders atNorth, atSouth, atWidest;
    };

    // False if visit is for one of them, or if there are none.
    template <class Visit>
    bool ForEachZone(const Visit& visit) const {
        return !zones_.empty() && std::all_of(zones_.begin(), zones_.end(), visit);
    }

    // Over the date line no zone is: there the extremes are ends of the system and not of the window.
    [[nodiscard]] bool IsFirst(const Zone& zone) const {
        return !isOverDateLine_ && zone.Number() == Zones_Number(west_);
    }
    [[nodiscard]] bool IsLast(const Zone& zone) const {
        return !isOverDateLine_ && zone.Number() == Zones_Number(east_);
    }

    [[nodiscard]] std::optional<Share> ShareOf(const Zone& zone) const {
        const std::optional<double> foot = zone.WidestNorthing();
        if (!foot) return std::nullopt;
        const double widest = std::clamp(*foot, south_, std::max(south_, north_));
        const auto atNorth = zone.BordersAt(north_);
        const auto atSouth = zone.BordersAt(south_);
        const auto atWidest = zone.BordersAt(widest);
        if (!atNorth || !atSouth || !atWidest) return std::nullopt;
        return Share{zone, widest, *atNorth, *atSouth, *atWidest};
    }

    bool DrawZone(const Zone& zone) {
        const std::optional<Share> share = ShareOf(zone);
        if (!share) return false;
        const double start = IsFirst(zone) ? Zones_East(west_) : share->atWidest.west;
        CKoord place = zone.At(start, share->widest);
        const FirstLine found = eastSteps_.MoveToFirst(&place);
        if (found == FirstLine::Failed) return false;

        const bool hasLines = found == FirstLine::Found;
        if (HasWestBorder(*share, hasLines ? &place : nullptr) && !DrawBorder(*share, &Borders::west)) {
            return false;
        }
        if (hasLines && !DrawLines(*share, place)) return false;
        return !HasEastBorder(*share) || DrawBorder(*share, &Borders::east);
    }

    // Inside the window the border belongs to the eastern of two zones.
    [[nodiscard]] bool HasWestBorder(const Share& share, const CKoord* firstLine) const {
        if (!IsFirst(share.zone) || Touches(share.zone, west_, &Borders::west)) return true;
        if (firstLine == nullptr) return false;
        return std::fabs(Zones_East(*firstLine) - share.atWidest.west) < eastStep_ / 4.0;
    }

    [[nodiscard]] bool HasEastBorder(const Share& share) const {
        return IsLast(share.zone) && Touches(share.zone, east_, &Borders::east);
    }

    // Whether an extreme of the window lies on a border of its zone, to a pixel: the edge of a system is
    // searched no finer than that.
    [[nodiscard]] bool Touches(const Zone& zone, const CKoord& extreme, double Borders::*side) const {
        const double northing = Axis_SignedNorthing(extreme);
        const auto borders = zone.BordersAt(northing);
        return borders && pen_.IsWithinAPixel(extreme, zone.At((*borders).*side, northing));
    }

    bool DrawBorder(const Share& share, double Borders::*side) {
        return pen_.Draw(share.zone.At(share.atNorth.*side, north_),
                         share.zone.At(share.atSouth.*side, south_), DensifyMode::CoordStraightZoned);
    }

    // From a place on the first line to the end of the zone or the window.
    bool DrawLines(const Share& share, const CKoord& first) {
        const CKoord border = share.zone.At(share.atWidest.east, share.widest);
        const bool endsInside = IsLast(share.zone) && Compare_Records(Axis::East, east_, border) < 0;
        return eastSteps_.Walk(first, endsInside ? east_ : border,
                               [&](const CKoord& place) { return DrawLine(share, Zones_East(place)); });
    }

    // Zones narrow toward the poles, where a line may leave its zone before it leaves the window. What would
    // stand on the eastern border is no line of this zone.
    bool DrawLine(const Share& share, double easting) {
        if (!(easting < share.atWidest.east)) return true;
        double top = north_;
        double bottom = south_;
        if (!share.atNorth.Enclose(easting) && !Clip(share, easting, Compass::North, &top)) return false;
        if (!share.atSouth.Enclose(easting) && !Clip(share, easting, Compass::South, &bottom)) return false;
        return pen_.Draw(share.zone.At(easting, top), share.zone.At(easting, bottom));
    }

    // Moves an end of a line to where it meets the border of the zone.
    bool Clip(const Share& share, double easting, Compass direction, double* end) {
        if (!pen_.Spend(POINTS_OF_A_SEARCH)) return false;
        tagKOORD place = share.zone.At(easting, share.widest);
        const ZoneLimit limit = Zones_MoveToLimit(direction, &place);
        if (limit == ZoneLimit::Border) *end = Axis_SignedNorthing(place);
        return limit != ZoneLimit::Failure;
    }

    // One line of a piece for each zone.
    bool DrawNorthLine(double northing) {
        GridLine line;
        const bool isDrawn =
            ForEachZone([&](const Zone& zone) { return AppendPiece(zone, northing, &line); });
        return isDrawn && (line.empty() || pen_.Finish(line));
    }

    // From border to border, or from and to the ends of the window. At this northing the window may end
    // beyond the border: then the zone has no piece.
    bool AppendPiece(const Zone& zone, double northing, GridLine* line) {
        const std::optional<Borders> borders = zone.BordersAt(northing);
        if (!borders) return false;
        const double left = IsFirst(zone) ? std::max(Zones_East(west_), borders->west) : borders->west;
        const double right = IsLast(zone) ? std::min(Zones_East(east_), borders->east) : borders->east;
        if (!(left < right)) return pen_.Spend(1);
        return pen_.Append(zone.At(left, northing), zone.At(right, northing), DensifyMode::CoordStraight,
                           line);
    }

    const CKoord& west_;
    const CKoord& east_;
    const CKoord& southPlace_;
    const CKoord& northPlace_;
    std::vector<Zone> zones_;
    bool isOverDateLine_;
    double south_, north_;
    double eastStep_;
    GridSteps eastSteps_, northSteps_;
    GridPen& pen_;
};

}  // namespace

bool DrawZonedEastLines(const GridWindow& window, GridPen* pen) {
    return ZonedLines(window, pen).DrawEastLines();
}

bool DrawZonedNorthLines(const GridWindow& window, GridPen* pen) {
    return ZonedLines(window, pen).DrawNorthLines();
}

}  // namespace tessara
