// Extents and grids of every system on maps of every type, in windows next to and across the edges of zones,
// systems and maps, compared with a dense sample of the window.
//
// TESSARA_SWEEP_WINDOWS sets the number of windows for each system on each type of map: `ctest -C Soak -R
// sweep` uses twelve. TESSARA_SWEEP_SAMPLES sets the samples on a side. TESSARA_SWEEP_SEED repeats one
// window with the seed from its message.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <map>
#include <set>
#include <utility>

#include "areas/coordinate_area.h"
#include "areas/extremes.h"
#include "records/check_record.h"
#include "records/default_koord.h"
#include "records/zones.h"
#include "support/edge_windows.h"
#include "support/grids.h"
#include "support/live_objects.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "support/window_ruler.h"
#include "tessara/host/rect.h"
#include "tessara/kernel/convert.h"

namespace tessara::testing {
namespace {

// ECEF and TM have no valid positions.
constexpr std::int32_t SYSTEMS[] = {
    KOORD_UTM,  KOORD_UTMREF, KOORD_GEODEZ,    KOORD_GEOGRAD, KOORD_GEOREF, KOORD_GK,          KOORD_BMN,
    KOORD_OEM,  KOORD_CH,     KOORD_GEODEZMIN, KOORD_GK6,     KOORD_UPS,    KOORD_PO_MILITARY, KOORD_VDG,
    KOORD_GKAT, KOORD_BNG,    KOORD_ING,       KOORD_RD,      KOORD_LUREF};

class WindowSweep : public BalancedTest, public ::testing::WithParamInterface<int> {
  protected:
    [[nodiscard]] static const EdgeMap& Type() { return EDGE_MAPS[GetParam()]; }

    bool Locate(double x, double y, tagKOORD* koord) const {
        const tagKOORD pixel = FloatPixel(x, y);
        *koord = fresh;
        return MapPixelToWorld(&window.map, &pixel, koord) == KOORD_OK;
    }

    // The same; where the map continues in degrees beyond the meridian 180 and the system isn't one of
    // degrees, the position a turn back.
    bool LocateOnAnyTurn(double x, double y, tagKOORD* koord) const {
        if (Locate(x, y, koord)) return true;
        if (IsInDegrees(system)) return false;
        const tagKOORD pixel = FloatPixel(x, y);
        tagKOORD degrees = MakeKoord(window.datum, KOORD_GEODEZ);
        if (MapPixelToWorld(&window.map, &pixel, &degrees) != KOORD_OK) return false;
        auto position = Load<GeodezPayload>(degrees);
        position.longitude = std::remainder(position.longitude, 360.0);
        Store(degrees, position);
        *koord = fresh;
        return KoordConvert(&degrees, koord) == KOORD_OK;
    }

    // Direction by direction, a larger number lies further out.
    static double Outward(Compass direction, const Sampled& at) {
        return SignOf(direction) * (AxisOf(direction) == Axis::East ? at.east : at.north);
    }

    bool FindValid(double x, double y, Sampled* at) const {
        tagKOORD koord;
        if (!Locate(x, y, &koord) || !IsInSystemArea(koord)) return false;
        *at = {KeyOf(Axis::East, koord), KeyOf(Axis::North, koord)};
        return true;
    }

    bool Choose(std::int32_t newSystem, std::uint64_t seed) {
        system = newSystem;
        const std::optional<EdgeWindow> made = MakeEdgeWindow(Type(), system, seed);
        if (!made) return false;
        window = *made;
        CKoord koord;
        if (!DefaultKoord(window.datum, system, &koord)) return false;
        fresh = koord;
        if (Type().make == MercatorEdgeMap && !IsBelowTheCut()) return false;
        name = window.name + ", system " + std::to_string(system);
        return true;
    }

    // A Mercator map cuts latitudes short of the poles, and shows places there that it finds elsewhere.
    bool IsBelowTheCut() const {
        constexpr double CUT = 89.9;
        const PixelRect& r = window.rect;
        return std::fabs(ToWorld(window.map, r.left, r.top).Degrees().latitude) < CUT &&
               std::fabs(ToWorld(window.map, r.left, r.bottom).Degrees().latitude) < CUT;
    }

    [[nodiscard]] double ColumnAt(int i) const { return Between(window.rect.left, window.rect.right, i); }
    [[nodiscard]] double RowAt(int j) const { return Between(window.rect.top, window.rect.bottom, j); }
    [[nodiscard]] double Between(std::int32_t low, std::int32_t high, int i) const {
        return low + (static_cast<double>(high) - low) * i / (samples - 1);
    }
    [[nodiscard]] double Cell() const {
        return std::max({1.0, (window.rect.right - window.rect.left) / (samples - 1.0),
                         (window.rect.bottom - window.rect.top) / (samples - 1.0)});
    }

    // Fills `field` and the values that valid places reach. False if no place is valid.
    bool Sample(bool (WindowSweep::*locate)(double, double, tagKOORD*) const) {
        field.assign(static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples), {NAN, NAN});
        reach.fill(-HUGE_VAL);
        for (int j = 0; j < samples; ++j) {
            for (int i = 0; i < samples; ++i) {
                tagKOORD koord;
                if (!(this->*locate)(ColumnAt(i), RowAt(j), &koord)) continue;
                Sampled& at = field[static_cast<std::size_t>(j * samples + i)];
                at = {KeyOf(Axis::East, koord), KeyOf(Axis::North, koord)};
                bool isFurther = false;
                for (const Compass direction : DIRECTIONS)
                    isFurther = isFurther || Outward(direction, at) > reach[Index(direction)];
                if (!isFurther) continue;
                if (!IsInSystemArea(koord)) {
                    at = {NAN, NAN};
                    continue;
                }
                for (const Compass direction : DIRECTIONS) {
                    if (Outward(direction, at) <= reach[Index(direction)]) continue;
                    reach[Index(direction)] = Outward(direction, at);
                    furthest[Index(direction)] = j * samples + i;
                }
            }
        }
        return reach[0] > -HUGE_VAL;
    }

    static std::size_t Index(Compass direction) { return static_cast<std::size_t>(direction); }

    bool Ask() {
        map = MapOf(window.map);
        for (IRef<ICoord>& result : results)
            result = EmptyCoord(window.datum, system);
        const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
        const PixelRect& r = window.rect;
        const IRef<IRect> rect(NewObject<host::Rect>(r.left, r.top, r.right, r.bottom));
        return area->GetMapRectExtremes(map.Get(), rect.Get(), results[0].Get(), results[1].Get(),
                                        results[2].Get(), results[3].Get());
    }

    [[nodiscard]] double ExtremeKey(Compass direction) const {
        return SignOf(direction) * KeyOf(AxisOf(direction), KoordOf(results[Index(direction)]));
    }

    // A place counts as missed if it and the pixels around it lie further out: a limit is found to a pixel.
    bool IsMissed(Compass direction, double extreme, double x, double y) const {
        const double around[][2] = {{0, 0}, {1, 0}, {-1, 0}, {0, 1}, {0, -1}};
        return std::all_of(std::begin(around), std::end(around), [&](const double(&offset)[2]) {
            Sampled at{};
            return FindValid(x + offset[0], y + offset[1], &at) &&
                   Compared(direction, Outward(direction, at)) > extreme + UnitOf(system);
        });
    }

    // Whether the place that lies furthest out is neither on the rim nor among valid places: there the system
    // or the map ends, and its edge isn't followed.
    bool EndsAmidWindow(Compass direction) const {
        const int k = furthest[Index(direction)], i = k % samples, j = k / samples;
        if (i == 0 || j == 0 || i == samples - 1 || j == samples - 1) return false;
        for (int row = j - 2; row <= j + 2; ++row) {
            for (int column = i - 2; column <= i + 2; ++column) {
                Sampled at{};
                if (!FindValid(ColumnAt(column), RowAt(row), &at)) return true;
            }
        }
        return false;
    }
    // The number of sampled places of the window whose position has another pixel on the map: beyond its
    // outline or a pole the map repeats positions from inside, and beyond its limits it finds none.
    int CountLost() const {
        int lost = 0;
        for (int k = 0; k < 36; ++k) {
            const double x = ColumnAt(k % 6 * (samples - 1) / 5), y = RowAt(k / 6 * (samples - 1) / 5);
            tagKOORD koord;
            if (!Locate(x, y, &koord)) continue;
            const PixelResult back = ToPixel(window.map, koord);
            // Whole metres and minutes count up to 18 metres.
            const double most = system == KOORD_UTMREF || system == KOORD_GEOREF ? 40.0 : 2.0;
            lost += back.status != KOORD_OK || std::hypot(back.x - x, back.y - y) > most ? 1 : 0;
        }
        return lost;
    }

    // GEOREF compares by whole degrees.
    [[nodiscard]] double Compared(Compass direction, double outward) const {
        if (system != KOORD_GEOREF) return outward;
        return SignOf(direction) * std::floor(SignOf(direction) * outward);
    }

    void ExpectNothingMissed(Compass direction) {
        const double extreme = Compared(direction, ExtremeKey(direction));
        for (int k = 0; k < samples * samples; ++k) {
            const double outward =
                Compared(direction, Outward(direction, field[static_cast<std::size_t>(k)]));
            const double x = ColumnAt(k % samples), y = RowAt(k / samples);
            if (!(outward > extreme) || !IsMissed(direction, extreme, x, y)) continue;
            Report(MISSED, EndsAmidWindow(direction),
                   Text("direction %d: %.9g at %.9g %.9g, the extreme is %.9g", static_cast<int>(direction),
                        outward, x, y, extreme));
            return;
        }
    }

    // Checks that the extreme is a place of the window: the pixels around its own have values close to its
    // value, in its zone and on its side of the meridian 180. Measures the ground size of a pixel there.
    // False for an extreme without a pixel: a map may show positions for which it finds no pixel.
    bool ExpectReal(Compass direction) {
        const double extreme = ExtremeKey(direction);
        double x = 0.0, y = 0.0;
        if (!map->CoordToFloatPixel(results[Index(direction)].Get(), &x, &y)) return false;
        const PixelRect& r = window.rect;
        // A limit counts as inside by its rounded pixel. Whole metres and minutes move a place.
        const double margin = system == KOORD_UTMREF      ? 2.0
                              : system == KOORD_GEOREF    ? 30.0
                              : window.map.type == MAP_CH ? 1.0
                                                          : 0.51;
        const bool isInside =
            x >= r.left - margin && x <= r.right + margin && y >= r.top - margin && y <= r.bottom + margin;
        double nearest = HUGE_VAL, most = 0.0;
        for (int j = -8; j <= 8; ++j) {
            for (int i = -8; i <= 8; ++i) {
                Sampled at{};
                if (!FindValid(x + i / 8.0, y + j / 8.0, &at)) continue;
                const double distance = std::fabs(Outward(direction, at) - extreme);
                if (distance > ZONE_WEIGHT / 10.0 || (IsInDegrees(system) && distance >= 180.0)) continue;
                nearest = std::min(nearest, distance);
                most = std::max(most, distance);
            }
        }
        // By whole degrees GEOREF's extremes may be any.
        const double ofLatitude = system == KOORD_GEOREF ? window.metresPerPixel / METRES_PER_DEGREE : 0.0;
        worth[Index(direction)] = std::max(most, ofLatitude);
        // Far off its own country a grid's values may come again.
        if (!isInside && IsShown(direction, x, y)) return false;
        if (!isInside || !(nearest <= std::max(most / 2.0, UnitOf(system)))) {
            Report(UNREAL, false,
                   Text("direction %d: %.9g at pixel %.9g %.9g, around it from %.3g to %.3g",
                        static_cast<int>(direction), extreme, x, y, nearest, most));
        }
        return true;
    }

    // Whether a sample of the window reaches as far, although the pixel lies elsewhere.
    bool IsShown(Compass direction, double x, double y) const {
        const PixelRect& r = window.rect;
        const bool isFarOff =
            x < r.left - 10.0 || x > r.right + 10.0 || y < r.top - 10.0 || y > r.bottom + 10.0;
        const double range = reach[Index(direction)] + reach[Index(Opposite(direction))];
        return isFarOff && reach[Index(direction)] >= ExtremeKey(direction) - range / 20.0;
    }
    static Compass Opposite(Compass direction) {
        const Compass opposites[] = {Compass::South, Compass::West, Compass::North, Compass::East};
        return opposites[Index(direction)];
    }

    // A search of a few hundred places may not see a system in a corner.
    void ExpectLittleIsValid() {
        int valid = 0;
        for (int k = 0; k < samples * samples; ++k) {
            Sampled at{};
            valid += FindValid(ColumnAt(k % samples), RowAt(k / samples), &at) ? 1 : 0;
        }
        if (valid * 50 > samples * samples) Report(MISSED, false, "nothing found");
    }

    void Check() {
        reported.fill(false);
        if (!Sample(&WindowSweep::Locate)) {
            ++empty;
            return;
        }
        if (CountLost() > 0) {
            ++lossy;
            return;
        }
        ++windows;
        if (!Ask()) return ExpectLittleIsValid();
        bool haveAllPixels = true;
        for (const Compass direction : DIRECTIONS) {
            haveAllPixels = ExpectReal(direction) && haveAllPixels;
            ExpectNothingMissed(direction);
        }
        if (haveAllPixels) CheckGrids();
    }

    using Chain = std::vector<Pixel>;

    // The widest range of an axis in one zone.
    double WidthOf(Axis axis) const {
        std::map<int, std::pair<double, double>> ranges;
        for (const Sampled& at : field) {
            const double key = ValueOn(axis, at);
            if (std::isnan(key) || !IsReached(at)) continue;
            const int zone = axis == Axis::East && zones::Exist(system)
                                 ? static_cast<int>(std::lround(key / ZONE_WEIGHT))
                                 : 0;
            auto& [low, high] = ranges.try_emplace(zone, key, key).first->second;
            low = std::min(low, key);
            high = std::max(high, key);
        }
        double width = 0.0;
        for (const auto& range : ranges)
            width = std::max(width, range.second.second - range.second.first);
        return width;
    }

    // Whether a place lies in the rectangle of the values that valid places reach, a pixel's worth inside.
    bool IsReached(const Sampled& at) const {
        return std::all_of(std::begin(DIRECTIONS), std::end(DIRECTIONS), [&](Compass direction) {
            return Outward(direction, at) <= reach[Index(direction)];
        });
    }
    bool IsReached(const Ruler& ruler, const LineName& line) const {
        if (ruler.isZoned && ruler.axis == Axis::East) return true;
        const double value = ruler.anchor + static_cast<double>(line.second) * ruler.step;
        const Compass high = ruler.axis == Axis::East ? Compass::East : Compass::North;
        const Compass low = ruler.axis == Axis::East ? Compass::West : Compass::South;
        return value <= reach[Index(high)] - worth[Index(high)] - UnitOf(system) &&
               -value <= reach[Index(low)] - worth[Index(low)] - UnitOf(system);
    }
    bool IsBeyondReach(const Ruler& ruler, double key) const {
        const Compass high = ruler.axis == Axis::East ? Compass::East : Compass::North;
        const Compass low = ruler.axis == Axis::East ? Compass::West : Compass::South;
        const double slack = 2.0 * Cell();
        return key > reach[Index(high)] + slack * worth[Index(high)] ||
               -key > reach[Index(low)] + slack * worth[Index(low)];
    }

    // Whether the window goes on in degrees where the codes of GEOREF end.
    bool EndsAtTheCodes() const {
        if (system != KOORD_GEOREF) return false;
        const PixelRect& r = window.rect;
        for (const std::int32_t x : {r.left, r.right}) {
            for (const std::int32_t y : {r.top, r.bottom}) {
                if (std::fabs(ToWorld(window.map, x, y).Degrees().longitude) > 180.0) return true;
            }
        }
        return false;
    }

    // Zones and degrees may start anew within a window, and a pole or the end of the codes may lie on its
    // rim. Lines that enter the window there belong to it, although no sample has their value.
    bool IsMeasuredByPixels(const Ruler& ruler) const {
        return (ruler.axis == Axis::East && (ruler.isZoned || IsInDegrees(system))) || EndsAtTheCodes();
    }

    // Whether the map finds a place where it shows it. Far off its own country a grid's values come again.
    bool IsFound(const Pixel& place) const {
        tagKOORD koord;
        if (!LocateOnAnyTurn(place.x, place.y, &koord)) return false;
        if (!Locate(place.x, place.y, &koord)) return true;  // found by degrees, which are as good as pixels
        const PixelResult back = ToPixel(window.map, koord);
        return back.status == KOORD_OK && std::hypot(back.x - place.x, back.y - place.y) <= Cell();
    }

    // Calls see(line, sample, neighbour) where two places next to each other lie on both sides of a line.
    template <class See>
    void FindCrossings(const Ruler& ruler, const See& see) const {
        const auto cross = [&](int k, int next) {
            const Sampled& a = field[static_cast<std::size_t>(k)];
            const Sampled& b = field[static_cast<std::size_t>(next)];
            if (std::isnan(a.east) || std::isnan(b.east) || !IsReached(a) || !IsReached(b)) return;
            const double keyA = ValueOn(ruler.axis, a), keyB = ValueOn(ruler.axis, b);
            const double low = std::min(keyA, keyB), high = std::max(keyA, keyB);
            // A sample that is rounded onto a line may lie on its other side.
            const LineName line = NameOf(ruler, high, std::floor(ruler.CountOf(high - UnitOf(system))));
            const LineName below = NameOf(ruler, low, std::floor(ruler.CountOf(low)));
            if (line.first == below.first && line.second - below.second == 1 && IsReached(ruler, line))
                see(line, k, next);
        };
        for (int k = 0; k < samples * samples; ++k) {
            if (k % samples + 1 < samples) cross(k, k + 1);
            if (k / samples + 1 < samples) cross(k, k + samples);
        }
    }

    std::set<LineName> LinesIn(const Ruler& ruler) const {
        std::set<LineName> lines;
        FindCrossings(ruler, [&](const LineName& line, int, int) { lines.insert(line); });
        return lines;
    }

    // Places of the window, some for each line, and the lines on which they lie.
    std::vector<std::pair<LineName, Pixel>> PlacesOnLines(const Ruler& ruler) const {
        std::vector<std::pair<LineName, Pixel>> places;
        std::map<LineName, int> counts;
        FindCrossings(ruler, [&](const LineName& line, int k, int next) {
            if (++counts[line] % std::max(1, samples / 8) != 0) return;
            const double from = ruler.CountOf(ValueOn(ruler.axis, field[static_cast<std::size_t>(k)]));
            const double to = ruler.CountOf(ValueOn(ruler.axis, field[static_cast<std::size_t>(next)]));
            const double t = (static_cast<double>(line.second) - from) / (to - from);
            const Pixel place{ColumnAt(k % samples) + t * (ColumnAt(next % samples) - ColumnAt(k % samples)),
                              RowAt(k / samples) + t * (RowAt(next / samples) - RowAt(k / samples))};
            if (IsFound(place)) places.push_back({line, place});
        });
        return places;
    }

    enum Finding { MISSED, UNREAL, REFUSED, EXTRA, ABSENT, BESIDE, FAR, FINDING_COUNT };
    static constexpr const char* FINDINGS[] = {"extremes missed", "extremes unreal", "grids refused",
                                               "lines extra",     "lines absent",    "lines beside",
                                               "lines far"};

    template <class... Values>
    static std::string Text(const char* format, Values... values) {
        char text[300];
        std::snprintf(text, sizeof text, format, values...);
        return text;
    }

    // Reports only the first finding of each kind in a window.
    void Report(Finding finding, bool isKnown, const std::string& text) {
        if (std::exchange(reported[finding], true)) return;
        ++(isKnown ? known : found)[finding];
        const std::string message = std::string(FINDINGS[finding]) + ": " + name + ", " + text;
        if (!isKnown) {
            ADD_FAILURE() << message;
        } else if (Setting("TESSARA_SWEEP_VERBOSE", 0) != 0) {
            std::printf("known: %s\n", message.c_str());
        }
    }

    using Lines = std::map<LineName, std::vector<Chain>>;

    static Chain PixelsOf(const IRef<IArray>& line) {
        Chain chain;
        for (std::uint32_t i = 0; i < line->GetCount(); ++i) {
            const IRef<IFloatPoint> point(line->GetAt(i));
            chain.push_back({point->GetX(), point->GetY()});
        }
        return chain;
    }

    // The grid lines that a grid draws, without borders of zones.
    bool Draw(const Ruler& ruler, const IRef<ICoordinateGrid>& grid, Lines* lines) {
        const IRef<IArray> list(CreateClassArray()), pixelList(CreateClassArray());
        const bool isEast = ruler.axis == Axis::East;
        if (!(isEast ? grid->GetEastLines(list.Get()) : grid->GetNorthLines(list.Get())) ||
            !(isEast ? grid->GetEastLinePixels(pixelList.Get())
                     : grid->GetNorthLinePixels(pixelList.Get()))) {
            Report(REFUSED, false,
                   Text("step %.9g, after %d lines", ruler.step, static_cast<int>(list->GetCount())));
            return false;
        }
        for (std::uint32_t i = 0; i < list->GetCount(); ++i) {
            const std::vector<CKoord> line = KoordsOf(LineAt(list, i));
            if (line.empty()) continue;
            const double key = KeyOf(ruler.axis, line.front());
            const double whole = std::round(ruler.CountOf(key));
            // A border between zones has other values at its other end.
            const auto isOnLine = [&](double own) {
                const double rounding = 1e-9 * std::fabs(own - ruler.ZoneOf(own) * ZONE_WEIGHT);
                return std::fabs(ruler.CountOf(own) - whole) * ruler.step <= 2.0 * UnitOf(system) + rounding;
            };
            const bool isLine = isOnLine(key) && isOnLine(KeyOf(ruler.axis, line.back()));
            if (!isLine) {
                if (!(ruler.isZoned && isEast))
                    Report(EXTRA, false, Text("step %.9g: no multiple, %.17g", ruler.step, key));
                continue;
            }
            if (!IsMeasuredByPixels(ruler) && IsBeyondReach(ruler, key))
                Report(EXTRA, false, Text("step %.9g: beyond the window, %.9g", ruler.step, key));
            (*lines)[NameOf(ruler, key, whole)].push_back(PixelsOf(LineAt(pixelList, i)));
        }
        return true;
    }

    // Lines run as a single piece each, which may lie up to some pixels beside where they should.
    static constexpr double LINE_MARGIN = 4.0;

    bool IsInWindow(const Chain& chain) const {
        for (std::size_t i = 1; i < chain.size(); ++i) {
            if (Meets(window.rect, LINE_MARGIN, chain[i - 1], chain[i])) return true;
        }
        return false;
    }

    void CheckLines(const Ruler& ruler, const IRef<ICoordinateGrid>& grid) {
        Lines lines;
        if (!Draw(ruler, grid, &lines)) return;
        const auto about = [&](const LineName& line) {
            return Text("%s lines, step %.9g, number %lld of zone %d",
                        ruler.axis == Axis::East ? "east" : "north", ruler.step, line.second, line.first);
        };
        for (const LineName& line : LinesIn(ruler)) {
            const auto drawn = lines.find(line);
            if (drawn == lines.end() || drawn->second.size() != 1) Report(ABSENT, false, about(line));
        }
        for (const auto& [line, chains] : lines) {
            const bool areInside = std::all_of(chains.begin(), chains.end(),
                                               [&](const Chain& chain) { return IsInWindow(chain); });
            if (!areInside) Report(BESIDE, false, about(line));
        }
        for (const auto& [line, place] : PlacesOnLines(ruler)) {
            const auto drawn = lines.find(line);
            if (drawn == lines.end()) continue;
            double nearest = HUGE_VAL;
            for (const Chain& chain : drawn->second)
                nearest = std::min(nearest, DistanceToPolyline(place, chain));
            if (nearest > LINE_MARGIN + Cell())
                Report(FAR, false, about(line) + Text(" is %.3g from %.9g %.9g", nearest, place.x, place.y));
        }
    }

    void CheckGrids() {
        if (!Sample(&WindowSweep::LocateOnAnyTurn)) return;
        const double eastWidth = WidthOf(Axis::East), northWidth = WidthOf(Axis::North);
        if (!(eastWidth > 100.0 * UnitOf(system) && northWidth > 100.0 * UnitOf(system))) return;
        const Ruler eastRuler{Axis::East, RoundStep(eastWidth / 3.0), zones::Exist(system), system,
                              KeyOf(Axis::East, fresh)};
        const Ruler northRuler{Axis::North, RoundStep(northWidth / 3.0), zones::Exist(system), system,
                               // Of UTMREF it is the equator, which not every datum's squares can name.
                               system == KOORD_UTMREF ? 0.0 : KeyOf(Axis::North, fresh)};
        const auto grid = GridOf(system, map, eastRuler.step, northRuler.step, window.datum);
        const PixelRect& r = window.rect;
        if (!SetWindow(grid, r.left, r.top, r.right, r.bottom))
            return Report(REFUSED, false, "no window where there are extents");
        ++grids;
        CheckLines(eastRuler, grid);
        CheckLines(northRuler, grid);
    }

    const int samples = static_cast<int>(Setting("TESSARA_SWEEP_SAMPLES", IS_SANITIZED ? 16 : 60));
    EdgeWindow window{};
    std::int32_t system = 0;
    tagKOORD fresh{};
    std::string name;
    std::vector<Sampled> field;                 // row by row; NaN where there is no place
    std::array<double, COMPASS_COUNT> reach{};  // of valid samples
    std::array<int, COMPASS_COUNT> furthest{};  // samples
    std::array<double, COMPASS_COUNT> worth{};  // of a pixel at the extremes
    IRef<IMapCoordOperations> map;
    IRef<ICoord> results[COMPASS_COUNT];
    int windows = 0, empty = 0, lossy = 0, grids = 0;
    std::array<int, FINDING_COUNT> found{}, known{};
    std::array<bool, FINDING_COUNT> reported{};
};

TEST_P(WindowSweep, ExtentsAndGridsAreThoseOfADenseSample) {
    const std::uint64_t only = Setting("TESSARA_SWEEP_SEED", 0);
    const std::uint64_t wanted = only != 0 ? 1 : Setting("TESSARA_SWEEP_WINDOWS", IS_SANITIZED ? 1 : 2);
    for (const std::int32_t each : SYSTEMS) {
        for (std::uint64_t i = 0; i < wanted; ++i) {
            const std::uint64_t seed =
                only != 0 ? only : 1 + i + 1000 * static_cast<std::uint64_t>(each + 100 * GetParam());
            if (Choose(each, seed)) Check();
        }
    }
    std::printf("%s: %d windows, %d without a place, %d not found again, %d grids", Type().name, windows,
                empty, lossy, grids);
    for (std::size_t i = 0; i < FINDING_COUNT; ++i) {
        const int all = found[i] + known[i];
        if (all > 0) std::printf(", %d %s (%d known)", all, FINDINGS[i], known[i]);
    }
    std::printf("\n");
    std::fflush(stdout);
}

INSTANTIATE_TEST_SUITE_P(Maps, WindowSweep, ::testing::Range(0, static_cast<int>(std::size(EDGE_MAPS))),
                         [](const auto& type) { return std::string(EDGE_MAPS[type.param].name); });

}  // namespace
}  // namespace tessara::testing
