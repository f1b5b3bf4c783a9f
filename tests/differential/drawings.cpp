// Densified lines and extents of windows beside dense samples of the same.
#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>

#include "areas/rect_extents.h"
#include "differential/check.h"
#include "records/check_record.h"
#include "records/default_koord.h"
#include "support/edge_windows.h"
#include "support/lines.h"
#include "support/window_ruler.h"
#include "tessara/kernel/convert.h"
#include "tessara/kernel/geodesic.h"
#include "tessara/line_points.h"

namespace tessara::differential {
namespace {

using testing::Pixel;

constexpr double TOLERANCE = 0.25;  // pixels, of a new ILinePoints

struct Line {
    GeodezPayload from, to;
};

// The piece of a line at a part of its length, in degrees.
using Curve = tagKOORD (*)(const Line& line, double part);

tagKOORD StraightInDegrees(const Line& line, double part) {
    return GeodezRecord(line.from.latitude + part * (line.to.latitude - line.from.latitude),
                        line.from.longitude + part * (line.to.longitude - line.from.longitude));
}

tagKOORD AlongGeodesic(const Line& line, double part) {
    const tagKOORD from = GeodezRecord(line.from.latitude, line.from.longitude);
    const tagKOORD to = GeodezRecord(line.to.latitude, line.to.longitude);
    double distance = 0.0, azimuth = 0.0, back = 0.0;
    tagKOORD end = from;
    Geodesic_Inverse(&from, &to, DATUM_WGS84, &distance, &azimuth, &back);
    Geodesic_Direct(&from, DATUM_WGS84, part * distance, azimuth, &end);
    return end;
}

using Densifier = bool (ILinePoints::*)(IMapCoordOperations*, ICoord*, ICoord*, IArray*);

// How far a densified line runs beside its curve, in pixels of a map of central Europe.
Outcome LinesOnMaps(Random& random, std::size_t cases, Densifier densify, Curve curve) {
    constexpr int SAMPLES = 500;
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    const IRef<IMapCoordOperations> maps[] = {
        testing::MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 200000.0, 5800000.0, 100.0, 100.0})),
        testing::MapOf(testing::WithReference(
            testing::Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.33333333333333}),
            GeodezRecord(47.5, 13.33333333333333), 6000, 3600, 500000, 10.0)),
    };
    Outcome outcome;
    for (std::size_t i = 0; i < cases; ++i) {
        const auto anywhere = [&] {
            return GeodezPayload{random.Between(46, 51), random.Between(6.5, 11.5), 0.0};
        };
        const Line line{anywhere(), anywhere()};
        const IRef<IMapCoordOperations>& map = maps[i % std::size(maps)];
        const IRef<IArray> polyline(CreateClassArray());
        const bool isDone =
            (lines.Get()->*densify)(map.Get(), CoordOf(StraightInDegrees(line, 0.0)).Get(),
                                    CoordOf(StraightInDegrees(line, 1.0)).Get(), polyline.Get());
        double most = isDone ? 0.0 : NAN;
        const std::vector<Pixel> pixels = testing::PixelsOn(map, polyline);
        for (int k = 0; k <= SAMPLES && isDone; ++k) {
            const Pixel p = testing::PixelOn(map, CKoord(curve(line, static_cast<double>(k) / SAMPLES)));
            most = std::max(most, testing::DistanceToPolyline(p, pixels));
        }
        outcome.Note(most, [&] {
            char text[200];
            std::snprintf(text, sizeof text, "%.9f %.9f to %.9f %.9f", line.from.latitude,
                          line.from.longitude, line.to.latitude, line.to.longitude);
            return std::string(text);
        });
    }
    return outcome;
}

// The values of a window at raster points, as numbers that grow outward.
class Sample {
  public:
    static constexpr int SIDE = 61;

    // Takes only windows that are valid everywhere, in which values change little from point to point.
    bool Take(const testing::EdgeWindow& window, const tagKOORD& fresh) {
        const auto system = static_cast<std::int32_t>(fresh.type);
        for (int j = 0; j < SIDE; ++j) {
            for (int i = 0; i < SIDE; ++i) {
                const tagKOORD pixel = testing::FloatPixel(At(window.rect.left, window.rect.right, i),
                                                           At(window.rect.top, window.rect.bottom, j));
                tagKOORD koord = fresh;
                if (MapPixelToWorld(&window.map, &pixel, &koord) != KOORD_OK || !IsInSystemArea(koord))
                    return false;
                for (const Axis axis : {Axis::East, Axis::North})
                    ValueAt(axis, i, j) = testing::KeyOf(axis, koord);
            }
        }
        return !Jumps(Axis::East) && !Jumps(Axis::North) &&
               !(testing::IsInDegrees(system) && TouchesMeridian180());
    }

    [[nodiscard]] double Furthest(Compass direction) const {
        double furthest = -HUGE_VAL;
        for (const double value : values_[Index(AxisOf(direction))])
            furthest = std::max(furthest, SignOf(direction) * value);
        return furthest;
    }

    // The largest change from one point to the next.
    [[nodiscard]] double Change(Axis axis) const {
        double most = 0.0;
        for (int j = 0; j < SIDE; ++j) {
            for (int i = 1; i < SIDE; ++i) {
                most = std::max(most, std::fabs(ValueAt(axis, i, j) - ValueAt(axis, i - 1, j)));
                most = std::max(most, std::fabs(ValueAt(axis, j, i) - ValueAt(axis, j, i - 1)));
            }
        }
        return most;
    }

  private:
    static double At(std::int32_t low, std::int32_t high, int i) {
        return low + (static_cast<double>(high) - low) * i / (SIDE - 1);
    }
    static std::size_t Index(Axis axis) { return axis == Axis::East ? 0 : 1; }
    [[nodiscard]] const double& ValueAt(Axis axis, int i, int j) const {
        return values_[Index(axis)][static_cast<std::size_t>(j * SIDE + i)];
    }
    double& ValueAt(Axis axis, int i, int j) {
        return const_cast<double&>(std::as_const(*this).ValueAt(axis, i, j));
    }
    // A border of a zone, the meridian 180, or a pole.
    [[nodiscard]] bool Jumps(Axis axis) const {
        const double range = Furthest(axis == Axis::East ? Compass::East : Compass::North) +
                             Furthest(axis == Axis::East ? Compass::West : Compass::South);
        return !(Change(axis) <= range / 8.0);
    }

    // Which has two longitudes.
    [[nodiscard]] bool TouchesMeridian180() const {
        return std::max(Furthest(Compass::East), Furthest(Compass::West)) > 180.0 - 1e-9;
    }

    std::array<std::array<double, SIDE * SIDE>, 2> values_{};
};

// How far the extreme of a window is from the furthest place of a sample, in steps of the sample.
Outcome ExtentsOfWindows(Random& random, std::size_t cases) {
    constexpr std::int32_t SYSTEMS[] = {KOORD_UTM,   KOORD_GEODEZ, KOORD_GEODEZMIN,   KOORD_GK,  KOORD_GK6,
                                        KOORD_BMN,   KOORD_CH,     KOORD_PO_MILITARY, KOORD_VDG, KOORD_BNG,
                                        KOORD_LUREF, KOORD_RD,     KOORD_UPS};
    const auto sample = std::make_unique<Sample>();
    Outcome outcome;
    for (std::size_t i = 0; i < cases; ++i) {
        const std::int32_t system = random.OneOf(SYSTEMS);
        const testing::EdgeMap& type = random.OneOf(testing::EDGE_MAPS);
        const auto window = testing::MakeEdgeWindow(type, system, random.Bits());
        CKoord fresh;
        if (!window || !DefaultKoord(window->datum, system, &fresh) || !sample->Take(*window, fresh))
            continue;
        Extremes extremes;
        const bool isDone =
            ExtentOfRect(testing::MapOf(window->map).Get(), window->rect, window->datum, system, &extremes);
        for (const Compass direction : DIRECTIONS) {
            const double extreme = SignOf(direction) * testing::KeyOf(AxisOf(direction), extremes[direction]);
            const double step = sample->Change(AxisOf(direction));
            const double difference = std::fabs(extreme - sample->Furthest(direction));
            const double miss = difference == 0.0 ? 0.0 : difference / step;
            outcome.Note(isDone ? miss : NAN, [&] {
                return window->name + ", system " + std::to_string(system) + ", direction " +
                       std::to_string(static_cast<int>(direction)) + ": " + std::to_string(extreme) +
                       ", the sample reaches " + std::to_string(sample->Furthest(direction));
            });
        }
    }
    return outcome;
}

Check LineCheck(const char* subject, Densifier densify, Curve curve) {
    return {subject,
            "500 points of the curve",
            "pixels",
            2.0 * TOLERANCE,
            4000,
            [=](Random& random, std::size_t cases) { return LinesOnMaps(random, cases, densify, curve); }};
}

}  // namespace

void AddDrawings(Checks* checks) {
    checks->push_back(
        LineCheck("lines straight in degrees", &ILinePoints::DensifyCoordStraight, StraightInDegrees));
    checks->push_back(LineCheck("geodesics on maps", &ILinePoints::DensifyGeodesic, AlongGeodesic));
    checks->push_back(
        {"extents of windows", "3721 points of the window", "steps", 1.0, 40000, ExtentsOfWindows});
}

}  // namespace tessara::differential
