// Uses all classes randomly for a long time. At the end no object is alive, and memory is close to that at
// the beginning. TESSARA_SOAK_OPERATIONS sets the number of operations: `ctest -C Soak -R soak` runs a
// million.
#include <gtest/gtest.h>

#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "geometry/creation.h"
#include "support/legal_positions.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/managed_library.h"
#include "support/objects.h"
#include "support/sanitized.h"
#include "support/setting.h"
#include "tessara/host/rect.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using namespace testing;

// Objects of the kinds that operations are called with, drawn at random: now and then null, an object that is
// something else, or twice the same.
class Pool {
  public:
    explicit Pool(std::uint64_t seed) : random(seed) {
        for (int i = 0; i < 24; ++i)
            coords_.push_back(NewCoord());
        for (int i = 0; i < 6; ++i)
            lines_.push_back(NewLine());
        maps_ = {MapOf(MunichSheet()), DegreeMap(5.0, 52.0, 300.0),
                 MapOf(WithReference(testing::Map(MAP_MERCATOR, MapMercatorParams{0.0, {}}),
                                     GeodezRecord(50.0, 9.0), 500, 500, 250000, 10.0)),
                 MapOf(testing::Map(MAP_CH, MapPlaneParams{600000.0, 200000.0, 5.0, 5.0})),
                 MapOf(CountedRecord(0))};
        for (int i = 0; i < 8; ++i)
            references_.push_back(ReferenceOf(random.Below(239), random.Below(24)));
        for (int i = 0; i < 6; ++i)
            texts_.push_back(MakeText("32 500000.000"));
    }

    [[nodiscard]] ICoord* Coord() { return Draw(coords_); }
    [[nodiscard]] IArray* Line() { return Draw(lines_); }
    [[nodiscard]] IMapCoordOperations* Map() { return Draw(maps_); }
    [[nodiscard]] ICoordinateReference* Reference() { return Draw(references_); }
    [[nodiscard]] ITessaraString* Text() { return Draw(texts_); }
    [[nodiscard]] std::int32_t Datum() {
        return random.Below(20) == 0 ? random.Below(300) : random.Below(10);
    }
    [[nodiscard]] double Length() { return random.Between(-1000.0, 1000.0); }
    [[nodiscard]] double Angle() { return random.Between(-360.0, 720.0); }

    // Other positions in place of some: legal ones, and sixty-four bytes of anything.
    void Renew() { coords_[Index(coords_)] = NewCoord(); }
    void RenewLine() { lines_[Index(lines_)] = NewLine(); }

    Random random;

  private:
    template <class I>
    std::size_t Index(const std::vector<IRef<I>>& from) {
        return static_cast<std::size_t>(random.Below(static_cast<std::int32_t>(from.size())));
    }

    template <class I>
    I* Draw(const std::vector<IRef<I>>& from) {
        const std::int32_t kind = random.Below(50);
        if (kind == 0) return nullptr;
        if (kind == 1) return Disguised<I>(stranger_);
        return from[Index(from)].Get();
    }

    IRef<ICoord> NewCoord() {
        if (random.Below(8) == 0) {
            tagKOORD garbage;
            for (std::size_t i = 0; i < sizeof garbage; ++i)
                reinterpret_cast<unsigned char*>(&garbage)[i] = static_cast<unsigned char>(random.Below(256));
            garbage.datum = static_cast<std::uint32_t>(random.Below(240));
            garbage.type = static_cast<std::uint32_t>(random.Below(25));
            return CoordOf(garbage);
        }
        const LegalArea& area = LEGAL_AREAS[random.Below(static_cast<std::int32_t>(std::size(LEGAL_AREAS)))];
        return CoordOf(RandomLegal(area, &random));
    }

    // A few places near each other, in degrees or pixels.
    IRef<IArray> NewLine() {
        const bool isPixel = random.Below(2) == 0;
        std::vector<tagKOORD> records;
        for (std::int32_t i = random.Below(7); i > 0; --i) {
            records.push_back(isPixel ? FloatPixel(random.Below(9), random.Below(9))
                                      : GeodezRecord(47.0 + random.Below(5), 8.0 + random.Below(5)));
        }
        return LineOf(records);
    }

    IRef<IUnknown> stranger_ = MakeStranger();
    std::vector<IRef<ICoord>> coords_;
    std::vector<IRef<IArray>> lines_;
    std::vector<IRef<IMapCoordOperations>> maps_;
    std::vector<IRef<ICoordinateReference>> references_;
    std::vector<IRef<ITessaraString>> texts_;
};

template <class I>
IRef<I> New(I* (*create)()) {
    return IRef<I>(create());
}

using Operation = void (*)(Pool&);

// Each takes microseconds. What they answer is the business of other tests.
const Operation QUICK[] = {
    [](Pool& p) { p.Renew(); },
    [](Pool& p) { p.RenewLine(); },
    [](Pool& p) {
        const IRef<ICoord> coord(p.Coord());
        if (coord.IsValid()) coord->SetReference(p.Reference());
    },
    [](Pool& p) {
        const IRef<ICoord> coord(p.Coord());
        const auto place = New(CreateClassCoordGeographic);
        if (coord.IsValid() && coord->GetGeographic(place.Get())) coord->SetGeographic(place.Get());
    },
    [](Pool& p) {
        const IRef<ICoordInternal> coord(p.Coord());
        if (coord.IsValid()) coord->ShiftEast(p.Length());
    },
    [](Pool& p) {
        const IRef<ICoordInternal> coord(p.Coord());
        if (coord.IsValid()) coord->NorthDifference(p.Coord());
    },
    [](Pool& p) {
        const IRef<ICoord> coord = New(CreateClassCoord);
        coord->SetReference(p.Reference());
        New(CreateClassCoordinateInit)->InitCoord(coord.Get());
    },
    [](Pool& p) { New(CreateClassCoordinateTransfer)->Transfer(p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateTransfer)->TransferNorth(p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateTransfer)->TransferToMap(p.Map(), p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateAverage)->Average(p.Coord(), p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateCompare)->CompareEastWest(p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateNeighbor)->GetNorthNeighbor(p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateChecker)->CheckCoord(p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateChecker)->CheckConvertible(p.Coord(), p.Reference()); },
    [](Pool& p) { New(CreateClassZoneCoordOperations)->GetEastNeighbour(p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassZoneCoordOperations)->MoveToZone(p.random.Below(9) - 4, p.Coord()); },
    [](Pool& p) {
        const auto system = New(CreateClassCoordinateSystem);
        system->SetSystem(p.random.Below(30) - 3);
        system->GetName(p.Text());
        const auto datum = New(CreateClassGeoDate);
        datum->SetDatum(p.Datum());
        datum->GetName(p.Text());
    },
    [](Pool& p) {
        const auto string = New(CreateClassCoordinateString);
        string->SetCoord(p.Coord());
        string->SetEastPrecision(p.random.Between(0.0, 10.0));
        string->GetNorthText(p.Text());
        string->GetEastDisplayText(p.Text());
        string->ParseCoord(p.Reference(), p.Text(), p.Text());
    },
    [](Pool& p) {
        const auto guide = New(CreateClassCoordCheckerUTMREF);
        guide->CheckCoord(p.Coord());
        CKoord koord;
        guide->ComposeCoord(p.Text(), p.Text(), p.Text(), p.Text(), p.Text(), p.Text(), &koord);
    },
    [](Pool& p) {
        const IRef<IMapCoordOperations> map(p.Map());
        double x = 0.0, y = 0.0;
        if (map.IsValid() && map->CoordToFloatPixel(p.Coord(), &x, &y))
            map->FloatPixelToCoord(x, y, p.Coord());
    },
    [](Pool& p) {
        const IRef<IMapCoordOperations> map(p.Map());
        const auto list = New(CreateClassArray);
        if (map.IsValid()) map->GetReferencePoints(list.Get());
    },
    [](Pool& p) {
        const auto point = New(CreateClassReferencePoint);
        point->SetFloat(p.Coord(), p.Length(), p.Length());
        const MapParam map = CountedRecord(static_cast<std::uint32_t>(p.random.Below(23)));
        const IRef<IMapCoordOperations> made(New(CreateClassMapCoordOperationsFactory)
                                                 ->CreateFromReferencePoint(point.Get(), p.random.Below(9),
                                                                            2.0, DateOf(2).Get(),
                                                                            ProjectionOf(map).Get()));
        if (made.IsValid()) made->PixelCoordToCoord(p.Coord(), p.Coord());
    },
    [](Pool& p) {
        const MapVdgParams params{p.Angle(), 0.0};
        const IRef<IProjection> projection(New(CreateClassProjectionFactory)->CreateVanDerGrinten(&params));
        projection->GetProjectionName(p.Text());
    },
    [](Pool& p) {
        const IRef<IMapCoordCreator> creator(
            New(CreateClassMapCoordCreatorFactory)->CreateMapCoordCreator(p.Map()));
        if (!creator.IsValid()) return;
        const IRef<ICoord> pixel(creator->CreateCoordFrom(p.Coord()));
        const IRef<IArray> pixels(creator->CreateCoordsFrom(p.Line()));
    },
    [](Pool& p) {
        const auto vectors = New(CreateClassEuclideanVector);
        const Vector v{p.Length(), p.Length(), p.Length()};
        const Vector sum =
            vectors->Add(vectors->Cross(v, v), vectors->MakeZero(p.random.Below(2) == 0 ? 3u : 4u));
    },
    [](Pool& p) {
        const IRef<IEllipsoidOfRevolution> ellipsoid(CreateClassEllipsoidOfRevolution());
        Vector xyz;
        if (ellipsoid->CoordToEcefVector(p.Coord(), &xyz)) ellipsoid->EcefVectorToCoord(&xyz, p.Coord());
        ellipsoid->PointAtGeodesicDistance(p.Coord(), p.Angle(), p.Length(), p.Coord());
    },
    [](Pool& p) {
        const auto plane = New(CreateClassTangentPlane);
        plane->SetOrigin(p.Coord());
        plane->MapByChord(p.Coord(), p.Coord());
    },
    [](Pool& p) {
        const auto points = New(CreateClassArray);
        const std::uint32_t count = static_cast<std::uint32_t>(p.random.Below(8));
        New(CreateClassCircleOnTangentPlane)
            ->MakeCircle(p.Coord(), p.Angle(), p.Angle(), p.Length(), points.Get(), count, true);
        New(CreateClassEllipseOnTangentPlane)
            ->MakeEllipse(p.Coord(), p.Angle(), 9.0, p.Length(), p.Angle(), 0.0, points.Get(), count, false);
    },
    [](Pool& p) {
        const auto points = New(CreateClassArray);
        New(CreateClassLinePoints)->IntersectPixelLinesToArray(p.Line(), p.Line(), points.Get());
        New(CreateClassLinePoints)
            ->IntersectPixelLines(p.Line(), p.Line(), New(CreateClassIntersectionResults).Get());
    },
    [](Pool& p) {
        const auto parameters = New(NewLineIntersectionParameters);
        parameters->SetLineStart(p.Coord());
        parameters->SetLineEnd(p.Coord());
        const auto results = New(CreateClassIntersectionResults);
        results->Add(parameters.Get(), parameters.Get());
    },
    [](Pool& p) { New(CreateClassLinePoints)->GetSignedDistance(p.Map(), p.Coord(), p.Coord(), p.Coord()); },
    [](Pool& p) { New(CreateClassLinePoints)->IsPointOnLine(p.Map(), p.Coord(), p.Line()); },
    [](Pool& p) { New(CreateClassCoordinateArea)->GetSystemNorth(p.Coord()); },
    [](Pool& p) { New(CreateClassCoordinateArea)->IsInsideOnMap(p.Map(), p.Coord(), p.Line()); },
    [](Pool& p) { New(CreateClassCoordinateArea)->IsInsidePixels(p.Coord(), p.Line()); },
    [](Pool& p) {
        const auto point = New(CreateClassFloatPoint);
        point->SetX(p.Length());
        const auto list = New(CreateClassArray);
        list->Add(point.Get());
        list->Add(p.Coord());
        list->RemoveAt(static_cast<std::uint32_t>(p.random.Below(3)));
    },
};

// Each takes up to a millisecond.
const Operation SLOW[] = {
    [](Pool& p) {
        const auto chain = New(CreateClassArray);
        const auto lines = New(CreateClassLinePoints);
        lines->DensifyMapStraight(p.Map(), p.Coord(), p.Coord(), chain.Get());
        ICoord* const same = p.Coord();
        lines->DensifyGeodesic(p.Map(), same, same, chain.Get());
    },
    [](Pool& p) {
        const IRef<ICoord> a = CoordOf(GeodezRecord(48.0, 11.0));
        const IRef<ICoord> b = CoordOf(GeodezRecord(49.0, 12.0));
        const auto chain = New(CreateClassArray);
        New(CreateClassLinePoints)->DensifyGeodesic(p.Map(), a.Get(), b.Get(), chain.Get());
        New(CreateClassLinePoints)->DensifyInReference(a.Get(), b.Get(), p.Reference(), chain.Get());
    },
    [](Pool& p) { New(CreateClassCoordinateArea)->GetLineNorth(p.Line(), p.Coord()); },
    [](Pool& p) {
        const IRef<IRect> rect(NewObject<host::Rect>(p.random.Below(50), p.random.Below(50), 200, 100));
        New(CreateClassCoordinateArea)->GetMapRectEast(p.Map(), rect.Get(), p.Coord());
        New(CreateClassTransformableMapPixel)->FindValidCoordInRect(p.Map(), rect.Get(), p.Coord());
    },
    [](Pool& p) {
        const auto point = [&p] {
            IRef<IFloatPoint> made = New(CreateClassFloatPoint);
            made->SetX(p.random.Between(0.0, 50.0));
            made->SetY(p.random.Between(0.0, 50.0));
            return made;
        };
        New(CreateClassTransformableMapPixel)
            ->ClipLineToValid(p.Map(), p.Reference(), point().Get(), point().Get(), point().Get(),
                              point().Get());
    },
    [](Pool& p) {
        const auto area = New(CreateClassCoordinateArea);
        const IRef<IArray> parts[] = {New(CreateClassArray), New(CreateClassArray), New(CreateClassArray),
                                      New(CreateClassArray)};
        area->OverlayPixels(p.Map(), p.Line(), p.Line(), parts[0].Get(), parts[1].Get(), parts[2].Get(),
                            parts[3].Get());
        area->SplitPolygon(p.Map(), p.Line(), parts[0].Get());
        area->Overlay(p.Line(), p.Line(), parts[0].Get(), parts[0].Get(), parts[2].Get(), parts[3].Get());
    },
    [](Pool& p) {
        const IRef<ICoordinateGrid> grid(
            New(CreateClassCoordinateGridFactory)->CreateGeodezGrid(p.Map(), DATUM_WGS84, 0.5, 0.25));
        if (!grid.IsValid()) return;
        const IRef<ICoord> corner = CoordOf(FloatPixel(0.0, 0.0));
        const IRef<ICoord> other = CoordOf(FloatPixel(300.0, 300.0));
        grid->SetWindow(corner.Get(), other.Get(), corner.Get(), other.Get());
        const auto lines = New(CreateClassArray);
        grid->GetEastLines(lines.Get());
        grid->GetNorthLinePixels(lines.Get());
    },
};

// One operation in this many is a slow one.
constexpr std::int32_t SLOW_SHARE = 100;

template <std::size_t Count>
void DoOne(const Operation (&operations)[Count], Pool& pool) {
    operations[pool.random.Below(static_cast<std::int32_t>(Count))](pool);
}

// The resident pages of the program; 0 if the system doesn't provide the number.
std::int64_t ResidentPages() {
    FILE* const file = std::fopen("/proc/self/statm", "r");
    if (file == nullptr) return 0;
    long long total = 0, resident = 0;
    if (std::fscanf(file, "%lld %lld", &total, &resident) != 2) resident = 0;
    std::fclose(file);
    return resident;
}

class Soak : public BalancedTest {};

TEST_F(Soak, MixedOperationsLeaveNothingBehind) {
    constexpr int STAGES = 10;
    const int perStage = static_cast<int>(testing::Setting("TESSARA_SOAK_OPERATIONS", 20000)) / STAGES;
    std::vector<std::int64_t> blocks, pages;
    blocks.reserve(STAGES);
    pages.reserve(STAGES);
    for (int stage = 0; stage < STAGES; ++stage) {
        const std::int64_t before = LiveBlocks();
        {
            const ManagedLibrary library;
            Pool pool(static_cast<std::uint64_t>(stage));
            for (int i = 0; i < perStage; ++i) {
                if (pool.random.Below(SLOW_SHARE) == 0) {
                    DoOne(SLOW, pool);
                } else {
                    DoOne(QUICK, pool);
                }
            }
        }
        blocks.push_back(LiveBlocks() - before);
        pages.push_back(ResidentPages());
    }
    EXPECT_EQ(blocks, std::vector<std::int64_t>(STAGES, 0)) << "blocks left over by each stage";
    // The memory that the first stages touched is used again. The heap itself may vary by a quarter of a
    // megabyte.
    constexpr std::int64_t SLACK = 64;
    if (testing::IS_SANITIZED) return;  // sanitizers keep what is freed for a while
    EXPECT_LE(pages.back(), pages[2] + SLACK) << "pages in memory";
}

}  // namespace
}  // namespace tessara
