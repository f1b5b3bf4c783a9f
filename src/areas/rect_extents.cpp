// The extreme of a coordinate over a closed window lies on the rim of the window, unless the coordinate
// turns around inside. Systems turn around only at their own extremes: a pole, a limit, the border of a
// zone. So the search walks the rim, as lines that are straight on the map, and then tries the extremes of
// the system.
//
// Corners that the map or the system can't show move inward. The search then walks the valid pieces of each
// side on their own, and the rims of a few narrower windows as well.
//
// Where the values of a system jump, a densified line skips the extreme beside the jump: a northing turns at
// every border of a zone, a longitude at 180 degrees. Such sides are walked in pieces, too.
#include "areas/rect_extents.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <vector>

#include "areas/leads_back.h"
#include "geometry/densify.h"
#include "geometry/map_plane.h"
#include "kernel/numeric.h"
#include "maps/pixel_search.h"
#include "records/axis_copy.h"
#include "records/check_record.h"
#include "records/compare_records.h"
#include "records/convert_records.h"
#include "records/default_koord.h"
#include "records/system_extremes.h"
#include "records/zone_borders.h"
#include "records/zones.h"
#include "systems/system_row.h"
#include "tessara/kernel/convert.h"
#include "tessara/map_coord_operations.h"
#include "tessara/ref.h"

namespace tessara {
namespace {

constexpr int NARROWING_PASSES = 4;
constexpr int SAMPLES_OF_A_SIDE = 64;
constexpr int COARSE_STEP = 8;  // samples
// A fully split polyline has its two ends and at least one middle from each of the six halvings.
constexpr std::size_t FEWEST_OF_FINEST = 8;
constexpr double ONE_PIXEL = 1.0;
constexpr double END_OF_PIECE = 0.5;  // pixels; how exactly the end of a piece is found

// The rectangle without a quarter of its size, in whole pixels, on each side. Its width may exceed 32 bits.
PixelRect Narrowed(const PixelRect& rect) {
    const auto dx = static_cast<std::int32_t>((std::int64_t{rect.right} - rect.left) / 4);
    const auto dy = static_cast<std::int32_t>((std::int64_t{rect.bottom} - rect.top) / 4);
    return {rect.left + dx, rect.top + dy, rect.right - dx, rect.bottom - dy};
}

struct Corner {
    std::int64_t x, y;
};

// Clockwise from the top left corner.
std::array<Corner, 4> CornersOf(const PixelRect& rect) {
    return {
        {{rect.left, rect.top}, {rect.right, rect.top}, {rect.right, rect.bottom}, {rect.left, rect.bottom}}};
}

PlanePoint PixelAt(std::int64_t x, std::int64_t y) {
    return {static_cast<double>(x), static_cast<double>(y)};
}

PlanePoint PlaceOnSide(const PlanePoint& from, const PlanePoint& to, int sample) {
    const double t = static_cast<double>(sample) / SAMPLES_OF_A_SIDE;
    return {from.x + (to.x - from.x) * t, from.y + (to.y - from.y) * t};
}

// A pixel whose position is valid.
struct Found {
    PlanePoint pixel;
    CKoord koord;
};

// In the order of CornersOf.
using Corners = std::array<std::optional<Found>, 4>;

class WindowSearch {
  public:
    WindowSearch(IMapCoordOperations* map, const PixelRect& window, std::int32_t datum, std::int32_t system,
                 Extremes* extremes)
        : plane_(map), window_(window), empty_(MakeKoord(datum, system)), extremes_(*extremes) {}

    bool Run() {
        if (!plane_.IsComplete()) return false;
        if (IsPixelType(static_cast<std::int32_t>(empty_.type))) return TakeCornersAsPixels();
        if (!StartAnywhere()) return false;

        Corners corners;
        bool areCornersValid = FindCorners(window_, &corners);
        for (const Compass direction : {Compass::North, Compass::South, Compass::East, Compass::West}) {
            if (!TrySystemExtreme(direction)) return false;
        }
        WalkRim(corners);
        if (!areCornersValid || HasJumps()) WalkSidesByPieces();
        if (IsInDegrees()) TryDateLine();
        PixelRect narrow = window_;
        for (int pass = 0; pass < NARROWING_PASSES && !areCornersValid; ++pass) {
            const PixelRect next = Narrowed(narrow);
            if (next.left == narrow.left && next.top == narrow.top) break;
            narrow = next;
            areCornersValid = FindCorners(narrow, &corners);
            WalkRim(corners);
        }
        return true;
    }

  private:
    // In a pixel system the corners of the window are its extremes; the map has no part in it.
    bool TakeCornersAsPixels() {
        const auto pixelAt = [this](std::int32_t x, std::int32_t y) {
            tagKOORD record = empty_;
            if (record.type == KOORD_LONGPIXEL) {
                Store(record, LongPixelPayload{x, y});
            } else {
                Store(record, FloatPixelPayload{static_cast<double>(x), static_cast<double>(y)});
            }
            return CKoord(record);
        };
        extremes_.Start(pixelAt(window_.left, window_.top));
        extremes_.Set(Compass::East, pixelAt(window_.right, window_.top));
        extremes_.Set(Compass::South, pixelAt(window_.right, window_.bottom));
        return true;
    }

    // Starts with any valid position of the window.
    bool StartAnywhere() {
        const auto startAt = [this](std::int32_t x, std::int32_t y) {
            const std::optional<Found> found = FindValid(PixelAt(x, y));
            if (found) extremes_.Start(found->koord);
            return found.has_value();
        };
        return FindValidPixel(window_, LEVELS_IN_RECTANGLE, startAt) || StartAtDefault() ||
               FindValidPixelOnRim(window_, LEVELS_ON_RIM, startAt);
    }

    // Starts with the default position of the system, which helps where the system covers a small part of
    // the window.
    bool StartAtDefault() {
        CKoord koord;
        const bool isFound = DefaultKoord(static_cast<std::int32_t>(empty_.datum),
                                          static_cast<std::int32_t>(empty_.type), &koord) &&
                             IsInWindow(Axis::East, koord) && IsInWindow(Axis::North, koord);
        if (isFound) extremes_.Start(koord);
        return isFound;
    }

    [[nodiscard]] std::optional<Found> FindValid(const PlanePoint& pixel) const {
        Found found{pixel, empty_};
        const bool isValid = plane_.ToWorld(found.pixel, &found.koord) && IsInSystemArea(found.koord);
        return isValid ? std::optional<Found>(found) : std::nullopt;
    }

    // The corner itself, or the first valid pixel a quarter, half or all of the way from there to the
    // centre.
    [[nodiscard]] std::optional<Found> FindCorner(const Corner& corner, std::int64_t centreX,
                                                  std::int64_t centreY, bool* isTheCorner) const {
        const auto [x, y] = corner;
        std::optional<Found> found = FindValid(PixelAt(x, y));
        *isTheCorner = found.has_value();
        for (const int divisor : {4, 2, 1}) {
            if (found) break;
            found = FindValid(PixelAt((centreX - x) / divisor + x, (centreY - y) / divisor + y));
        }
        return found;
    }

    // Whether all four corners are valid without having been moved.
    bool FindCorners(const PixelRect& rect, Corners* corners) {
        const std::int64_t centreX = (std::int64_t{rect.left} + rect.right) / 2;
        const std::int64_t centreY = (std::int64_t{rect.top} + rect.bottom) / 2;
        const auto places = CornersOf(rect);
        bool areAllValid = true;
        for (std::size_t i = 0; i < corners->size(); ++i) {
            bool isTheCorner = false;
            (*corners)[i] = FindCorner(places[i], centreX, centreY, &isTheCorner);
            if ((*corners)[i]) extremes_.Extend((*corners)[i]->koord);
            areAllValid = areAllValid && isTheCorner;
        }
        return areAllValid;
    }

    void WalkRim(const Corners& corners) {
        std::vector<const Found*> valid;
        for (const auto& corner : corners) {
            if (corner) valid.push_back(&*corner);
        }
        for (std::size_t i = 0; i < valid.size(); ++i) {
            const std::size_t last = (i == 0 ? valid.size() : i) - 1;
            WalkSide(*valid[last], *valid[i]);
        }
    }

    void WalkSide(const Found& from, const Found& to) {
        std::vector<CKoord> polyline;
        const bool isWalked = IsFoundAgain(from) && IsFoundAgain(to) &&
                              DensifyOnMap(plane_, from.koord, to.koord, DensifyMode::MapStraight,
                                           DEFAULT_PIXEL_TOLERANCE, &polyline);
        if (!isWalked) SampleSide(from.pixel, to.pixel, &polyline);
        for (const CKoord& koord : polyline)
            extremes_.Extend(koord);
        SearchFinestPieces(from.pixel, to.pixel, polyline);
    }

    // False where the map shows the position elsewhere, too: a map that repeats itself returns only one of
    // the pixels, and a pole that fills a row of pixels returns a single one. A densified line can only
    // start from the pixel that the map returns.
    [[nodiscard]] bool IsFoundAgain(const Found& found) const {
        PlanePoint pixel{};
        return plane_.ToPlane(found.koord, &pixel) && std::fabs(pixel.x - found.pixel.x) <= ONE_PIXEL &&
               std::fabs(pixel.y - found.pixel.y) <= ONE_PIXEL;
    }

    void SampleSide(const PlanePoint& from, const PlanePoint& to, std::vector<CKoord>* polyline) const {
        for (int k = 0; k <= SAMPLES_OF_A_SIDE; ++k) {
            const auto sample = FindValid(PlaceOnSide(from, to, k));
            if (sample) polyline->push_back(sample->koord);
        }
    }

    // The densifier stops splitting at a fixed depth. Beside a pole that is too coarse: the side reaches
    // further out between two points of the polyline than at any of them.
    void SearchFinestPieces(const PlanePoint& from, const PlanePoint& to,
                            const std::vector<CKoord>& polyline) {
        if (polyline.size() < FEWEST_OF_FINEST) return;
        for (const Compass direction : DIRECTIONS) {
            const auto furthest = std::find_if(polyline.begin(), polyline.end(), [&](const CKoord& koord) {
                return CompareRecords(AxisOf(direction), koord, extremes_[direction]) == 0;
            });
            PlanePoint place{};
            if (furthest == polyline.end() || !plane_.ToPlane(*furthest, &place)) continue;
            const double share = 1.0 / SAMPLES_OF_A_SIDE;
            const PlanePoint step{(to.x - from.x) * share, (to.y - from.y) * share};
            const auto isFinest = [&](const CKoord& neighbour) {
                PlanePoint next{};
                return plane_.ToPlane(neighbour, &next) &&
                       std::fabs(next.x - place.x) <= 1.5 * std::fabs(step.x) + END_OF_PIECE &&
                       std::fabs(next.y - place.y) <= 1.5 * std::fabs(step.y) + END_OF_PIECE;
            };
            const bool isSplitUp = (furthest != polyline.begin() && isFinest(furthest[-1])) ||
                                   (furthest + 1 != polyline.end() && isFinest(furthest[1]));
            if (isSplitUp) SearchAround(direction, place, step);
        }
    }

    // Bisects around the furthest place so far: tries both sides of it at half the step, until the step is
    // small.
    void SearchAround(Compass direction, PlanePoint place, PlanePoint step) {
        while (std::fabs(step.x) > DEFAULT_PIXEL_TOLERANCE || std::fabs(step.y) > DEFAULT_PIXEL_TOLERANCE) {
            step = {step.x / 2.0, step.y / 2.0};
            for (const double side : {1.0, -1.0}) {
                const auto found = FindValid(InWindow({place.x + side * step.x, place.y + side * step.y}));
                if (!found || !extremes_.IsFurther(direction, found->koord)) continue;
                extremes_.Set(direction, found->koord);
                place = found->pixel;
                break;
            }
        }
    }

    // The place of the window that is closest to a pixel.
    [[nodiscard]] PlanePoint InWindow(const PlanePoint& pixel) const {
        return {std::clamp<double>(pixel.x, window_.left, window_.right),
                std::clamp<double>(pixel.y, window_.top, window_.bottom)};
    }

    [[nodiscard]] bool IsInDegrees() const {
        return empty_.type == KOORD_GEODEZ || empty_.type == KOORD_GEOGRAD || empty_.type == KOORD_GEODEZMIN;
    }

    // Whether the values of the system jump anywhere on the earth.
    [[nodiscard]] bool HasJumps() const {
        return SystemOf(empty_).wraps || zones::Exist(static_cast<std::int32_t>(empty_.type));
    }

    // Walks the valid pieces of each side of the window between jumps, as far as samples find them.
    void WalkSidesByPieces() {
        const auto corners = CornersOf(window_);
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const auto& [x, y] = corners[i];
            const auto& [nextX, nextY] = corners[(i + 1) % corners.size()];
            const PlanePoint from = PixelAt(x, y);
            const PlanePoint to = PixelAt(nextX, nextY);
            if (!IsOnePiece(from, to)) WalkPieces(from, to);
        }
    }

    // Whether a few samples find the side valid and free of jumps; the walk along the rim has then covered
    // it.
    [[nodiscard]] bool IsOnePiece(const PlanePoint& from, const PlanePoint& to) const {
        const std::optional<Found> start = FindValid(from);
        for (int k = COARSE_STEP; start && k <= SAMPLES_OF_A_SIDE; k += COARSE_STEP) {
            const std::optional<Found> sample = FindValid(PlaceOnSide(from, to, k));
            if (!sample || !IsWithoutJump(*start, *sample)) return false;
        }
        return start.has_value();
    }

    void WalkPieces(const PlanePoint& from, const PlanePoint& to) {
        std::optional<Found> start;  // of the current piece
        std::optional<Found> last;   // the latest sample of the current piece
        for (int k = 0; k <= SAMPLES_OF_A_SIDE; ++k) {
            const PlanePoint place = PlaceOnSide(from, to, k);
            const std::optional<Found> sample = FindValid(place);
            if (start && !(sample && IsWithoutJump(*last, *sample))) {
                WalkSide(*start, WalkedTo(*last, place));
                start.reset();
            }
            if (sample && !start) start = k == 0 ? sample : WalkedTo(*sample, PlaceOnSide(from, to, k - 1));
            last = sample;
        }
        if (start) WalkSide(*start, *last);
    }

    // Finds the end of a piece. Another piece may begin between there and the next sample; it is walked,
    // too.
    Found WalkedTo(const Found& inside, const PlanePoint& beyond) {
        Found end = EndOfPiece(inside, beyond);
        const auto towards = [](double here, double there) {
            return here + std::clamp(there - here, -ONE_PIXEL, ONE_PIXEL);
        };
        const auto next = FindValid({towards(end.pixel.x, beyond.x), towards(end.pixel.y, beyond.y)});
        if (next && !IsWithoutJump(end, *next)) WalkSide(*next, EndOfPiece(*next, beyond));
        return end;
    }

    // Whether two places lie in one zone or, in systems without zones, on the same side of Greenwich.
    [[nodiscard]] bool IsWithoutJump(const Found& a, const Found& b) const {
        if (zones::Exist(static_cast<std::int32_t>(empty_.type)))
            return zones::Number(a.koord) == zones::Number(b.koord);
        return IsInEasternHalf(a) == IsInEasternHalf(b);
    }

    [[nodiscard]] static bool IsInEasternHalf(const Found& found) {
        tagKOORD geodez = MakeKoord(static_cast<std::int32_t>(found.koord.datum), KOORD_GEODEZ);
        return KoordConvert(&found.koord, &geodez) == KOORD_OK &&
               Load<GeodezPayload>(geodez).longitude >= 0.0;
    }

    // The last place of the piece on the way to a place beyond its end.
    [[nodiscard]] Found EndOfPiece(Found inside, PlanePoint beyond) const {
        while (std::fabs(inside.pixel.x - beyond.x) > END_OF_PIECE ||
               std::fabs(inside.pixel.y - beyond.y) > END_OF_PIECE) {
            const PlanePoint middle{(inside.pixel.x + beyond.x) / 2.0, (inside.pixel.y + beyond.y) / 2.0};
            const std::optional<Found> found = FindValid(middle);
            if (found && IsWithoutJump(inside, *found)) {
                inside = *found;
            } else {
                beyond = middle;
            }
        }
        return inside;
    }

    // The place beside the extreme so far at which the system, or the zone of that extreme, ends in a
    // direction.
    [[nodiscard]] static std::optional<CKoord> PlaceOfLimit(Compass direction, const CKoord& extreme,
                                                            const CKoord& limit) {
        CKoord place = extreme;
        const Axis axis = AxisOf(direction);
        const bool hasZones = zones::Exist(static_cast<std::int32_t>(place.type));
        if (hasZones && axis == Axis::North && !zones::MoveToCentre(&place)) return std::nullopt;
        if (!CopyAxis(axis, limit, &place)) return std::nullopt;
        if (hasZones && axis == Axis::East) {
            if (!zones::MoveToCentre(&place) || !zones::MoveToBorder(direction, &place)) return std::nullopt;
        }
        return place;
    }

    // A limit of the system that lies in the window is the extreme, either beside the extreme so far or
    // where the system reaches furthest: along the border of a zone the two have different northings. False
    // if the system has no limit.
    bool TrySystemExtreme(Compass direction) {
        tagKOORD record;
        if (!FindSystemExtreme(direction, static_cast<std::int32_t>(empty_.datum),
                               static_cast<std::int32_t>(empty_.type), &record)) {
            return false;  // GCOVR_EXCL_LINE: a system with positions has extremes
        }
        const CKoord limit(record);
        const CKoord& extreme = extremes_[direction];
        if (CompareRecords(AxisOf(direction), extreme, limit) == 0) return true;
        const std::optional<CKoord> beside = PlaceOfLimit(direction, extreme, limit);
        if (beside && IsInWindow(AxisOf(direction), *beside)) extremes_.Set(direction, *beside);
        if (extremes_.IsFurther(direction, limit) && IsInWindow(AxisOf(direction), limit))
            extremes_.Set(direction, limit);
        return true;
    }

    // Where the map's degrees end at the meridian 180, that meridian is the extreme.
    void TryDateLine() {
        for (const Compass direction : {Compass::East, Compass::West}) {
            tagKOORD meridian = MakeKoord(static_cast<std::int32_t>(empty_.datum), KOORD_GEODEZ);
            Store(meridian, GeodezPayload{0.0, SignOf(direction) * 180.0, 0.0});
            CKoord place = extremes_[direction];
            if (!ConvertTo(static_cast<std::int32_t>(empty_.type), &meridian)) continue;
            if (!CopyAxis(Axis::East, meridian, &place) || !extremes_.IsFurther(direction, place)) continue;
            if (IsInWindow(Axis::East, place)) extremes_.Set(direction, place);
        }
    }

    // Whether the value of a place on an axis occurs in the window. All edges count, since the extreme
    // beside which a limit is tried often lies on one of them.
    [[nodiscard]] bool IsInWindow(Axis axis, const CKoord& place) const {
        PlanePoint pixel{};
        if (!plane_.ToPlane(place, &pixel)) return false;
        const std::int32_t x = RoundPixel(pixel.x);
        const std::int32_t y = RoundPixel(pixel.y);
        return x >= window_.left && x <= window_.right && y >= window_.top && y <= window_.bottom &&
               LeadsBack(plane_, axis, place, pixel);
    }

    MapPlane plane_;
    PixelRect window_;
    CKoord empty_;  // a record of the reference, without a position
    Extremes& extremes_;
};

}  // namespace

bool ExtentOfRect(IMapCoordOperations* map, const PixelRect& rect, std::int32_t datum, std::int32_t system,
                  Extremes* extremes) {
    return WindowSearch(map, Normalised(rect), datum, system, extremes).Run();
}

}  // namespace tessara
