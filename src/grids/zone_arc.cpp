#include "grids/zone_arc.h"

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

#include "grids/window_samples.h"
#include "numerics/special_values.h"
#include "records/zones.h"

namespace tessara {
namespace {

constexpr int SAMPLES_OF_A_ZONE = 4;  // enough to find a sample in every zone that a line crosses

// The index of a zone, counted eastward from longitude -180. The strips of GK at -180 and 180 share a
// meridian and are the same on the ground; GK6 has no strip 0. Nothing for a zone that doesn't exist.
std::optional<std::int32_t> IndexOf(const tagKOORD& place) {
    const std::int32_t number = zones::Number(place);
    const auto system = static_cast<std::int32_t>(place.type);
    if (number < -60 || number > 60) return std::nullopt;
    const std::int32_t circle = ZonesAroundEarth(system);
    std::int32_t index = (number + 60) % 120;
    if (system == KOORD_UTM) index = number - 1;
    if (system == KOORD_GK6) index = number < 0 ? number + 30 : number + 29;
    return index >= 0 && index < circle ? std::optional(index) : std::nullopt;
}

std::int32_t NumberAt(std::int32_t system, std::int32_t index) {
    switch (system) {
        case KOORD_UTM:
            return index + 1;
        case KOORD_GK6:
            return index < 30 ? index - 30 : index - 29;
        default:
            return index == 0 ? 60 : index - 60;
    }
}

struct Sighting {
    bool isSeen = false;
    double west = INFINITE;
    double east = -INFINITE;
};

// The zones found along some rows and columns of the window, its sides included.
class ZoneSurvey {
  public:
    ZoneSurvey(const MapPlane& map, const PixelRect& window, const CKoord& empty)
        : empty_(empty), zones_(static_cast<std::size_t>(Circle())) {
        std::optional<CKoord> last;
        WalkAcrossWindow(window, SAMPLES_OF_A_ZONE * Circle(), [&](const PlanePoint& pixel, bool isFirst) {
            if (isFirst) last.reset();
            CKoord place = empty_;
            const bool isThere = map.ToWorld(pixel, &place) && IndexOf(place).has_value();
            if (isThere) Note(place, last);
            last = isThere ? std::optional(place) : std::nullopt;
        });
    }

    [[nodiscard]] const Sighting& At(std::int32_t index) const {
        return zones_[static_cast<std::size_t>(index)];
    }
    // The window extends at most this far beyond the outermost samples.
    [[nodiscard]] double Margin() const {
        if (margin_ > 0.0) return margin_;
        return INFINITE;
    }

  private:
    [[nodiscard]] std::int32_t Circle() const {
        return ZonesAroundEarth(static_cast<std::int32_t>(empty_.type));
    }

    void Note(const CKoord& place, const std::optional<CKoord>& last) {
        const double east = zones::East(place);
        Sighting& zone = zones_[static_cast<std::size_t>(*IndexOf(place))];
        zone.isSeen = true;
        zone.west = std::min(zone.west, east);
        zone.east = std::max(zone.east, east);
        const bool isInZone = last && zones::Number(*last) == zones::Number(place);
        if (isInZone) margin_ = std::max(margin_, std::fabs(zones::East(*last) - east));
    }

    const CKoord& empty_;
    std::vector<Sighting> zones_;
    double margin_ = 0.0;
};

}  // namespace

std::int32_t ZonesAroundEarth(std::int32_t system) {
    switch (system) {
        case KOORD_UTM:
        case KOORD_GK6:
            return 60;
        case KOORD_GK:
            return 120;
        default:
            return 0;
    }
}

bool MoveAroundEarth(std::int32_t delta, tagKOORD* record) {
    const auto system = static_cast<std::int32_t>(record->type);
    const std::int32_t circle = ZonesAroundEarth(system);
    if (circle == 0) return zones::Move(delta, record);
    const std::optional<std::int32_t> index = IndexOf(*record);
    if (!index) return false;
    const std::int32_t to = NumberAt(system, (*index + delta + circle) % circle);
    return zones::Move(to - zones::Number(*record), record);
}

std::optional<ZoneArc> FindZoneArc(const MapPlane& map, const PixelRect& window, const Extremes& extremes) {
    const CKoord& west = extremes[Compass::West];
    const auto system = static_cast<std::int32_t>(west.type);
    const std::int32_t circle = ZonesAroundEarth(system);
    if (circle == 0 || !IndexOf(west) || !IndexOf(extremes[Compass::East])) return std::nullopt;
    const std::int32_t first = zones::Number(west);
    const std::int32_t last = zones::Number(extremes[Compass::East]);
    if (last - first <= circle / 2) return std::nullopt;

    const ZoneSurvey survey(map, window, west);
    // The longest run of zones without a sample. The scan goes around twice, since a run may cross the end
    // of the numbers.
    std::int32_t longest = 0;
    std::int32_t end = 0;
    for (std::int32_t i = 0, run = 0; i < 2 * circle; ++i) {
        run = survey.At(i % circle).isSeen ? 0 : run + 1;
        if (run <= longest) continue;
        longest = run;
        end = i;
    }
    if (longest == 0 || longest >= circle) return std::nullopt;
    const std::int32_t begins = (end + 1) % circle;
    const std::int32_t ends = (end - longest + circle) % circle;
    const ZoneArc arc{NumberAt(system, begins), NumberAt(system, ends),
                      survey.At(begins).west - survey.Margin(), survey.At(ends).east + survey.Margin()};
    if (arc.first == first && arc.last == last) return std::nullopt;
    return arc;
}

}  // namespace tessara
