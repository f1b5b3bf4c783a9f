#include "grids/longitude_arc.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "grids/longitudes.h"
#include "grids/window_samples.h"
#include "numerics/rounding.h"
#include "records/check_record.h"

namespace tessara {
namespace {

constexpr int SAMPLES_OF_A_LINE = 256;

// The longitudes found along some rows and columns of the window, its sides included.
class LongitudeSurvey {
  public:
    LongitudeSurvey(const MapPlane& map, const PixelRect& window, const Extremes& extremes)
        : west_(extremes[Compass::West]), east_(extremes[Compass::East]) {
        double last = NAN;
        WalkAcrossWindow(window, SAMPLES_OF_A_LINE, [&](const PlanePoint& pixel, bool isFirst) {
            CKoord place = west_;
            const bool isThere =
                map.ToWorld(pixel, &place) && IsInSystemArea(place) && IsBetweenExtremes(place);
            const double longitude = isThere ? LongitudeOf(place) : NAN;
            if (isThere) Note(longitude, isFirst ? NAN : last);
            last = longitude;
        });
        std::sort(seen_.begin(), seen_.end());
    }

    // Sorted from west to east.
    [[nodiscard]] const std::vector<double>& Seen() const { return seen_; }
    // The window extends at most this far beyond the outermost samples.
    [[nodiscard]] double Margin() const { return margin_; }

  private:
    void Note(double longitude, double last) {
        seen_.push_back(longitude);
        if (!std::isnan(last)) margin_ = std::max(margin_, std::fabs(Remainder(longitude - last, FULL_TURN)));
    }

    // The extremes may be cut where the codes of a system end.
    [[nodiscard]] bool IsBetweenExtremes(const CKoord& place) const {
        const double longitude = LongitudeOf(place);
        return longitude >= LongitudeOf(west_) && longitude <= LongitudeOf(east_);
    }

    const CKoord& west_;
    const CKoord& east_;
    std::vector<double> seen_;
    double margin_ = 0.0;
};

}  // namespace

std::optional<LongitudeArc> FindLongitudeArc(const MapPlane& map, const PixelRect& window,
                                             const Extremes& extremes) {
    const CKoord& west = extremes[Compass::West];
    if (west.type != KOORD_GEODEZ) return std::nullopt;
    if (LongitudeOf(extremes[Compass::East]) - LongitudeOf(west) <= HALF_TURN) return std::nullopt;

    const LongitudeSurvey survey(map, window, extremes);
    const std::vector<double>& seen = survey.Seen();
    if (seen.empty()) return std::nullopt;
    LongitudeArc arc{0.0, 0.0};  // the ends of the widest gap
    for (std::size_t i = 1; i < seen.size(); ++i) {
        if (seen[i] - seen[i - 1] > arc.west - arc.east) arc = {seen[i], seen[i - 1]};
    }
    const bool isWider = arc.west - arc.east > seen.front() + FULL_TURN - seen.back();
    arc = {arc.west - survey.Margin(), arc.east + survey.Margin()};
    return isWider && arc.east < arc.west ? std::optional(arc) : std::nullopt;
}

}  // namespace tessara
