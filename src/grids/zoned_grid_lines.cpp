// Zones are walked from west to east by their numbers, except across the date line. Within a zone, places
// are plain eastings and northings; northings of UTM count from the equator in both hemispheres.
#include "grids/zoned_grid_lines.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>
#include <vector>

#include "grids/grid_steps.h"
#include "records/axis_values.h"
#include "records/compare_records.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "tessara/kernel/constants.h"

namespace tessara {
namespace {

constexpr int PLACES_OF_A_WAY = 16;

// The approximate cost, in points, of searching for the end of a line.
constexpr std::size_t POINTS_OF_A_SEARCH = 10;

// The eastings of a zone's two borders at one northing.
struct Borders {
    double west, east;

    [[nodiscard]] bool Enclose(double easting) const { return easting >= west && easting <= east; }
};

// A zone, represented by its central line. Its places want no zone, so that a place on the border stays in
// this zone.
class Zone {
  public:
    // The zone of a place; nothing if that zone doesn't exist.
    static std::optional<Zone> Of(const CKoord& place) {
        tagKOORD centre = place;
        if (!zones::MoveToCentre(&centre)) return std::nullopt;
        zones::Want(NO_WANTED_ZONE, &centre);
        return Zone(centre);
    }

    // The next zone to the east; nothing where the system ends.
    [[nodiscard]] std::optional<Zone> Next() const {
        tagKOORD moved = centre_;
        if (!zones::Move(1, &moved) || zones::Number(moved) <= Number()) return std::nullopt;
        return Of(CKoord(moved));
    }

    // The zone `delta` steps to the east on the ground, across the date line, too.
    [[nodiscard]] std::optional<Zone> Beside(std::int32_t delta) const {
        tagKOORD moved = centre_;
        return MoveAroundEarth(delta, &moved) ? Of(CKoord(moved)) : std::nullopt;
    }

    [[nodiscard]] std::int32_t Number() const { return zones::Number(centre_); }

    [[nodiscard]] CKoord At(double easting, double northing) const {
        tagKOORD place = centre_;
        zones::SetEast(easting, &place);
        axes::SetSignedNorthing(northing, &place);
        return CKoord(place);
    }

    [[nodiscard]] std::optional<Borders> BordersAt(double northing) const {
        tagKOORD west = centre_;
        axes::SetSignedNorthing(northing, &west);
        tagKOORD east = west;
        if (!zones::MoveToBorder(Compass::West, &west) || !zones::MoveToBorder(Compass::East, &east)) {
            return std::nullopt;  // GCOVR_EXCL_LINE: all northings of a window have borders
        }
        return Borders{zones::East(west), zones::East(east)};
    }

    // The northing at which the zone is widest on the whole earth.
    [[nodiscard]] std::optional<double> WidestNorthing() const {
        tagKOORD foot = centre_;
        if (!zones::MoveToEquator(&foot)) return std::nullopt;
        return axes::SignedNorthing(foot);
    }

  private:
    explicit Zone(const tagKOORD& centre) : centre_(centre) {}

    tagKOORD centre_;
};

// The zones between the window's extremes.
std::vector<Zone> ZonesBetween(const CKoord& west, const CKoord& east) {
    const std::int32_t last = zones::Number(east);
    std::vector<Zone> zones;
    for (auto zone = Zone::Of(west); zone && zone->Number() <= last; zone = zone->Next())
        zones.push_back(*zone);
    return zones;
}

std::vector<Zone> ZonesOf(const CKoord& place, const ZoneArc& arc) {
    std::vector<Zone> zones;
    const auto isThere = [&](std::int32_t number) {
        return !zones.empty() && zones.back().Number() == number;
    };
    auto zone = Zone::Of(place);
    const std::int32_t circle = ZonesAroundEarth(static_cast<std::int32_t>(place.type));
    for (std::int32_t i = 0; i < circle && zone && zone->Number() != arc.first; ++i)
        zone = zone->Beside(1);
    for (std::int32_t i = 0; i < circle && zone && !isThere(arc.last); ++i, zone = zone->Beside(1))
        zones.push_back(*zone);
    return zones;
}

// The end of the window within an outermost zone.
struct WindowEnd {
    std::int32_t zone;
    double east;
};

class ZonedLines {
  public:
    ZonedLines(const GridWindow& window, GridPen* pen)
        : southPlace_(window.extremes[Compass::South]),
          northPlace_(window.extremes[Compass::North]),
          south_(axes::SignedNorthing(southPlace_)),
          north_(axes::SignedNorthing(northPlace_)),
          eastStep_(window.eastStep),
          northStep_(window.northStep),
          eastSteps_(Axis::East, window.eastStep, window.finestStep),
          northSteps_(Axis::North, window.northStep, window.finestStep),
          pen_(*pen) {
        const CKoord& west = window.extremes[Compass::West];
        const CKoord& east = window.extremes[Compass::East];
        if (window.arc) {
            zones_ = ZonesOf(west, *window.arc);
            westEnd_ = WindowEnd{window.arc->first, window.arc->west};
            eastEnd_ = WindowEnd{window.arc->last, window.arc->east};
            ExtendArc();
        } else {
            zones_ = ZonesBetween(west, east);
            westEnd_ = WindowEnd{zones::Number(west), zones::East(west)};
            eastEnd_ = WindowEnd{zones::Number(east), zones::East(east)};
        }
    }

    bool DrawEastLines() {
        std::vector<Share> shares;
        const bool areKnown = ForEachZone([&](const Zone& zone) {
            const std::optional<Share> share = ShareOf(zone);
            if (share) shares.push_back(*share);
            return share.has_value();
        });
        if (!areKnown || AreTooDense(shares)) return false;
        return std::all_of(shares.begin(), shares.end(),
                           [this](const Share& share) { return DrawZone(share); }) &&
               DrawLastBorder(shares);
    }

    bool DrawNorthLines() {
        if (AreNorthLinesTooDense()) return false;
        CKoord place = southPlace_;
        const FirstLine found = northSteps_.MoveToFirst(&place);
        if (found != FirstLine::Found) return found == FirstLine::None;
        return northSteps_.Walk(place, northPlace_, [this](const CKoord& line) {
            return DrawNorthLine(axes::SignedNorthing(line));
        });
    }

  private:
    // The share of the window that lies in one zone.
    struct Share {
        Zone zone;
        double widest;  // the northing at which that share is widest
        Borders atNorth, atSouth, atWidest;
    };

    // Visits each share. False if a visit returns false or there are none.
    template <class Visit>
    bool ForEachZone(const Visit& visit) const {
        return !zones_.empty() && std::all_of(zones_.begin(), zones_.end(), visit);
    }

    // Adds zones that the samples missed at the ends of the arc.
    void ExtendArc() {
        const auto circle =
            static_cast<std::size_t>(ZonesAroundEarth(static_cast<std::int32_t>(southPlace_.type)));
        const auto goesOn = [&](const Zone& zone, double Borders::*side) {
            return zones_.size() < circle && TouchesBorder(zone, side);
        };
        while (!zones_.empty() && goesOn(zones_.back(), &Borders::east)) {
            const auto next = zones_.back().Beside(1);
            if (!next) break;
            zones_.push_back(*next);
            eastEnd_.reset();
        }
        while (!zones_.empty() && goesOn(zones_.front(), &Borders::west)) {
            const auto next = zones_.front().Beside(-1);
            if (!next) break;
            zones_.insert(zones_.begin(), *next);
            westEnd_.reset();
        }
    }

    [[nodiscard]] bool TouchesBorder(const Zone& zone, double Borders::*side) const {
        const auto atNorth = zone.BordersAt(north_);
        const auto atSouth = zone.BordersAt(south_);
        return atNorth && atSouth &&
               pen_.IsBorderInWindow(zone.At((*atNorth).*side, north_), zone.At((*atSouth).*side, south_));
    }

    // No end is set where the window covers the outermost zone completely.
    [[nodiscard]] bool IsFirst(const Zone& zone) const { return westEnd_ && zone.Number() == westEnd_->zone; }
    [[nodiscard]] bool IsLast(const Zone& zone) const { return eastEnd_ && zone.Number() == eastEnd_->zone; }

    // The east values between which a zone has lines, at its widest northing.
    [[nodiscard]] Borders LinesOf(const Share& share) const {
        return {IsFirst(share.zone) ? std::max(westEnd_->east, share.atWidest.west) : share.atWidest.west,
                IsLast(share.zone) ? std::min(eastEnd_->east, share.atWidest.east) : share.atWidest.east};
    }

    [[nodiscard]] bool AreTooDense(const std::vector<Share>& shares) const {
        double width = 0.0;
        for (const Share& share : shares)
            width += std::max(0.0, LinesOf(share).east - LinesOf(share).west);
        if (!pen_.AreMany(width / eastStep_)) return false;
        double way = 0.0;
        for (const Share& share : shares) {
            const Borders lines = LinesOf(share);
            way += pen_.WayThrough(Places([&](double part) {
                return share.zone.At(lines.west + part * (lines.east - lines.west), share.widest);
            }));
        }
        return width / eastStep_ > GridPen::LINES_OF_A_PIXEL * way;
    }

    [[nodiscard]] bool AreNorthLinesTooDense() const {
        const double count = (north_ - south_) / northStep_;
        if (zones_.empty() || !pen_.AreMany(count)) return false;
        const auto zone = Zone::Of(southPlace_);
        const double way = pen_.WayThrough(Places([&](double part) {
            return zone ? zone->At(zones::East(southPlace_), south_ + part * (north_ - south_)) : southPlace_;
        }));
        return count > GridPen::LINES_OF_A_PIXEL * way;
    }

    template <class PlaceAt>
    static std::vector<CKoord> Places(const PlaceAt& placeAt) {
        std::vector<CKoord> places;
        for (int i = 0; i <= PLACES_OF_A_WAY; ++i)
            places.push_back(placeAt(static_cast<double>(i) / PLACES_OF_A_WAY));
        return places;
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

    // Within the window, the border between two zones belongs to the eastern one.
    bool DrawZone(const Share& share) {
        if (!DrawWestBorder(share)) return false;
        CKoord place = share.zone.At(LinesOf(share).west, share.widest);
        const FirstLine found = eastSteps_.MoveToFirst(&place);
        if (found != FirstLine::Found) return found == FirstLine::None;
        return DrawLines(share, place);
    }

    bool DrawWestBorder(const Share& share) {
        const bool isOutside = IsFirst(share.zone) && !Reaches(share, &Borders::west);
        return isOutside || DrawBorder(share, &Borders::west);
    }

    // Around a pole the last border is the western border of the first zone, which is drawn already.
    bool DrawLastBorder(const std::vector<Share>& shares) {
        const Share& last = shares.back();
        if (IsLast(last.zone) && !Reaches(last, &Borders::east)) return true;
        if (shares.size() > 1 && IsSameBorder(shares.front(), last)) return true;
        return DrawBorder(last, &Borders::east);
    }

    [[nodiscard]] bool IsSameBorder(const Share& first, const Share& last) const {
        const auto isSame = [&](double northing, const Borders& west, const Borders& east) {
            return pen_.IsWithinAPixel(first.zone.At(west.west, northing), last.zone.At(east.east, northing));
        };
        return isSame(north_, first.atNorth, last.atNorth) && isSame(south_, first.atSouth, last.atSouth);
    }

    // Whether a window that ends inside a zone may reach the zone's border: by its east value at the
    // northing where the zone is narrow, or there to within a pixel.
    [[nodiscard]] bool Reaches(const Share& share, double Borders::*side) const {
        const bool isWest = side == &Borders::west;
        const double end = isWest ? westEnd_->east : eastEnd_->east;
        const double atNorth = share.atNorth.*side;
        const double atSouth = share.atSouth.*side;
        const bool isNarrowInNorth = isWest ? atNorth > atSouth : atNorth < atSouth;
        const double border = isNarrowInNorth ? atNorth : atSouth;
        if (isWest ? end <= border : end >= border) return TouchesBorder(share.zone, side);
        const double northing = isNarrowInNorth ? north_ : south_;
        return pen_.IsWithinAPixel(share.zone.At(end, northing), share.zone.At(border, northing));
    }

    bool DrawBorder(const Share& share, double Borders::*side) {
        return pen_.DrawBorder(share.zone.At(share.atNorth.*side, north_),
                               share.zone.At(share.atSouth.*side, south_));
    }

    // Draws from a place on the first line to the end of the zone or the window.
    bool DrawLines(const Share& share, const CKoord& first) {
        const CKoord last = share.zone.At(LinesOf(share).east, share.widest);
        return eastSteps_.Walk(first, last,
                               [&](const CKoord& place) { return DrawLine(share, zones::East(place)); });
    }

    // Zones narrow toward the poles, where a line may leave its zone before it leaves the window. A line
    // that would coincide with the eastern border isn't drawn in this zone.
    bool DrawLine(const Share& share, double easting) {
        if (!(easting < share.atWidest.east)) return true;
        double top = north_;
        double bottom = south_;
        if (!share.atNorth.Enclose(easting) && !Clip(share, easting, Compass::North, &top)) return false;
        if (!share.atSouth.Enclose(easting) && !Clip(share, easting, Compass::South, &bottom)) return false;
        return pen_.DrawNearWindow(share.zone.At(easting, top), share.zone.At(easting, bottom));
    }

    // Moves the end of a line to the point where it meets the border of the zone.
    bool Clip(const Share& share, double easting, Compass direction, double* end) {
        if (!pen_.Spend(POINTS_OF_A_SEARCH)) return false;
        tagKOORD place = share.zone.At(easting, share.widest);
        const ZoneLimit limit = zones::MoveToLimit(direction, &place);
        if (limit == ZoneLimit::Border) *end = axes::SignedNorthing(place);
        return limit != ZoneLimit::Failure;
    }

    // Draws one line with a piece in each zone.
    bool DrawNorthLine(double northing) {
        GridLine line;
        const bool isDrawn =
            ForEachZone([&](const Zone& zone) { return AppendPiece(zone, northing, &line); });
        return isDrawn && (line.empty() || pen_.Finish(line));
    }

    // Appends the piece between the borders of the zone or the ends of the window. If the window ends beyond
    // the border at this northing, the zone has no piece.
    bool AppendPiece(const Zone& zone, double northing, GridLine* line) {
        const std::optional<Borders> borders = zone.BordersAt(northing);
        if (!borders) return false;
        const double left = IsFirst(zone) ? std::max(westEnd_->east, borders->west) : borders->west;
        const double right = IsLast(zone) ? std::min(eastEnd_->east, borders->east) : borders->east;
        if (!(left < right)) return pen_.Spend(1);
        return pen_.Append(zone.At(left, northing), zone.At(right, northing), DensifyMode::CoordStraight,
                           line);
    }

    const CKoord& southPlace_;
    const CKoord& northPlace_;
    std::vector<Zone> zones_;
    std::optional<WindowEnd> westEnd_, eastEnd_;
    double south_, north_;
    double eastStep_, northStep_;
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
