#include "map/map_measures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

#include "conversion/numbers.h"
#include "conversion/units.h"
#include "tessara/kernel/geodesic.h"

namespace tessara::toolkit {
namespace {

constexpr double METRES_PER_KM = 1000.0;
constexpr double LONGEST_BAR = 0.3;  // of the window's width
constexpr double MEASURED = 0.005;   // of the window, on both sides of a point
constexpr double SAME_SCALE = 1.05;  // up to this ratio, the scale bar holds in the whole window
constexpr double ANY_SCALE = 2.0;    // above this ratio, there is no scale bar
constexpr double SAME_NORTH = 10.0;  // degrees
constexpr double INSET = 0.02;       // of the window, from the frame

PicturePoint Middle(const MapSheet& sheet) {
    return {sheet.Width() / 2.0, sheet.Height() / 2.0};
}

// The middle, and points near the frame.
std::vector<PicturePoint> Samples(const MapSheet& sheet) {
    std::vector<PicturePoint> samples;
    for (const double x : {0.5, INSET, 1.0 - INSET}) {
        for (const double y : {0.5, INSET, 1.0 - INSET})
            samples.push_back({x * sheet.Width(), y * sheet.Height()});
    }
    return samples;
}

std::optional<double> MetresBetween(const MapSheet& sheet, const PicturePoint& a, const PicturePoint& b) {
    const auto from = sheet.DegreesAt(a);
    const auto to = sheet.DegreesAt(b);
    if (!from || !to) return std::nullopt;
    double axes[2];
    Geodesic_LoadAxes(axes, sheet.Datum());
    const double metres =
        Geodesic_InverseCore(from->latitude, from->longitude, to->latitude, to->longitude, axes[0], axes[1])
            .distance;
    return metres > 0.0 && std::isfinite(metres) ? std::optional(metres) : std::nullopt;
}

}  // namespace

std::optional<GroundSize> GroundSizeAt(const MapSheet& sheet, const PicturePoint& point) {
    const double aside = MEASURED * std::max(sheet.Width(), sheet.Height());
    const auto across = MetresBetween(sheet, {point.x - aside, point.y}, {point.x + aside, point.y});
    const auto down = MetresBetween(sheet, {point.x, point.y - aside}, {point.x, point.y + aside});
    if (!across || !down) return std::nullopt;
    return GroundSize{*across / (2.0 * aside), *down / (2.0 * aside)};
}

double RoundLengthBelow(double number) {
    const double power = std::pow(10.0, std::floor(std::log10(number)));
    for (const double figure : {5.0, 2.0}) {
        if (figure * power <= number) return figure * power;
    }
    return power;
}

std::optional<ScaleBar> MeasureScaleBar(const MapSheet& sheet) {
    const std::optional<GroundSize> middle = GroundSizeAt(sheet, Middle(sheet));
    if (!middle) return std::nullopt;
    double least = middle->across;
    double most = middle->across;
    for (const PicturePoint& sample : Samples(sheet)) {
        const std::optional<GroundSize> size = GroundSizeAt(sheet, sample);
        if (!size) return std::nullopt;
        least = std::min({least, size->across, size->down});
        most = std::max({most, size->across, size->down});
    }
    if (most > ANY_SCALE * least) return std::nullopt;
    const double whole = RoundLengthBelow(LONGEST_BAR * sheet.Width() * middle->across);
    const int parts = std::abs(std::log10(whole / 2.0) - std::round(std::log10(whole / 2.0))) < 0.01 ? 4 : 5;
    ScaleBar bar{whole / parts / middle->across, whole / parts, parts, {}};
    if (most > SAME_SCALE * least) bar.remark = "along rows at the centre of the map";
    return bar;
}

std::optional<double> MeasureNorth(const MapSheet& sheet) {
    const std::optional<double> north = sheet.NorthAt(Middle(sheet));
    if (!north) return std::nullopt;
    for (const PicturePoint& sample : Samples(sheet)) {
        const std::optional<double> other = sheet.NorthAt(sample);
        if (!other || std::abs(std::remainder(*other - *north, FULL_TURN * RADIANS_PER_DEGREE)) >
                          SAME_NORTH * RADIANS_PER_DEGREE)
            return std::nullopt;
    }
    return north;
}

std::string LengthText(double metres) {
    return metres >= METRES_PER_KM ? FormatPlain(metres / METRES_PER_KM) + " km" : FormatPlain(metres) + " m";
}

}  // namespace tessara::toolkit
