// Zones are walked from west to east by their numbers, which grow that way. Within a zone places are plain
// eastings and northings; those of UTM count from the equator in both hemispheres.
#include "areas/zoned_grid_lines.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "areas/compare_records.h"
#include "areas/grid_steps.h"
#include "objects/axis_values.h"
#include "objects/zone_borders.h"
#include "objects/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

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
            return std::nullopt;
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

class ZonedLines {
  public:
    ZonedLines(const GridWindow& window, GridPen* pen)
        : west_(window.extremes[Compass::West]),
          east_(window.extremes[Compass::East]),
          southPlace_(window.extremes[Compass::South]),
          northPlace_(window.extremes[Compass::North]),
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

    // From west to east; false if visit is for one of them.
    template <class Visit>
    bool ForEachZone(const Visit& visit) const {
        const std::int32_t last = Zones_Number(east_);
        std::optional<Zone> zone = Zone::Of(west_);
        if (!zone) return false;
        for (;;) {
            if (!visit(*zone)) return false;
            if (zone->Number() >= last) return true;
            zone = zone->Next();
            if (!zone) return true;
        }
    }

    [[nodiscard]] bool IsFirst(const Zone& zone) const { return zone.Number() == Zones_Number(west_); }
    [[nodiscard]] bool IsLast(const Zone& zone) const { return zone.Number() == Zones_Number(east_); }

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
        const double border = share.atWidest.west;
        if (!IsFirst(share.zone) || Zones_East(west_) <= border) return true;
        return firstLine != nullptr && IsNear(Zones_East(*firstLine), border);
    }

    // That of the last zone, if the window reaches it, or almost where there is nothing beyond.
    [[nodiscard]] bool HasEastBorder(const Share& share) const {
        if (!IsLast(share.zone)) return false;
        const double border = share.atWidest.east;
        if (Zones_East(east_) >= border) return true;
        return !share.zone.Next() && IsNear(Zones_East(east_), border);
    }

    [[nodiscard]] bool IsNear(double easting, double border) const {
        return std::fabs(easting - border) < eastStep_ / 4.0;
    }

    bool DrawBorder(const Share& share, double Borders::*side) {
        return pen_.Draw(share.zone.At(share.atNorth.*side, north_),
                         share.zone.At(share.atSouth.*side, south_), DensifyMode::CoordStraightZoned);
    }

    // From a place on the first line to the end of the zone or the window.
    bool DrawLines(const Share& share, const CKoord& first) {
        const CKoord border = share.zone.At(share.atWidest.east, share.widest);
        const bool endsInside = Compare_Records(Axis::East, east_, border) < 0;
        return eastSteps_.Walk(first, endsInside ? east_ : border,
                               [&](const CKoord& place) { return DrawLine(share, Zones_East(place)); });
    }

    // Zones narrow toward the poles, where a line may leave its zone before it leaves the window.
    bool DrawLine(const Share& share, double easting) {
        double top = north_;
        double bottom = south_;
        if (!share.atNorth.Enclose(easting) && !Clip(share, easting, Compass::North, &top)) return false;
        if (!share.atSouth.Enclose(easting) && !Clip(share, easting, Compass::South, &bottom)) return false;
        return pen_.Draw(share.zone.At(easting, top), share.zone.At(easting, bottom));
    }

    // Moves an end of a line to where it meets the border of the zone.
    static bool Clip(const Share& share, double easting, Compass direction, double* end) {
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
    bool AppendPiece(const Zone& zone, double northing, GridLine* line) const {
        const std::optional<Borders> borders = zone.BordersAt(northing);
        if (!borders) return false;
        const double left = IsFirst(zone) ? std::max(Zones_East(west_), borders->west) : borders->west;
        const double right = IsLast(zone) ? std::min(Zones_East(east_), borders->east) : borders->east;
        if (!(left < right)) return true;
        return pen_.Append(zone.At(left, northing), zone.At(right, northing), DensifyMode::CoordStraight,
                           line);
    }

    const CKoord& west_;
    const CKoord& east_;
    const CKoord& southPlace_;
    const CKoord& northPlace_;
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
