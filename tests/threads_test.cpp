// Threads may share some objects, and separate objects share nothing. With the thread sanitizer (the preset
// tsan) these tests also detect races that don't change results.
#include <gtest/gtest.h>

#include <atomic>
#include <barrier>
#include <cstring>
#include <functional>
#include <thread>
#include <vector>

#include "support/factories.h"
#include "support/legal_positions.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/managed_library.h"
#include "support/objects.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using namespace testing;

constexpr int THREADS = 8;

// Runs the work on all threads at once, each with its number.
void AtOnce(const std::function<void(int thread)>& work) {
    std::barrier start(THREADS);
    std::vector<std::thread> threads;
    for (int thread = 0; thread < THREADS; ++thread) {
        threads.emplace_back([&, thread] {
            start.arrive_and_wait();
            work(thread);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

// What one thread gets alone, all get at once.
template <class Result>
void ExpectSameAtOnce(const std::function<std::vector<Result>()>& work) {
    const std::vector<Result> alone = work();
    EXPECT_FALSE(alone.empty());
    std::vector<std::vector<Result>> results(THREADS);
    AtOnce([&](int thread) { results[static_cast<std::size_t>(thread)] = work(); });
    for (const std::vector<Result>& result : results)
        EXPECT_TRUE(result == alone);
}

// A record with the status it came with, compared by bytes.
struct Conversion {
    KoordStatus status;
    tagKOORD record;

    friend bool operator==(const Conversion& left, const Conversion& right) {
        return left.status == right.status && std::memcmp(&left.record, &right.record, sizeof(tagKOORD)) == 0;
    }
};

std::vector<tagKOORD> LegalRecords(int each) {
    Random random(20);
    std::vector<tagKOORD> records;
    for (const LegalArea& area : LEGAL_AREAS) {
        for (int i = 0; i < each; ++i)
            records.push_back(RandomLegal(area, &random));
    }
    return records;
}

class Threads : public BalancedTest {};

TEST_F(Threads, ConvertRecords) {
    const std::vector<tagKOORD> sources = LegalRecords(3);
    ExpectSameAtOnce<Conversion>([&] {
        std::vector<Conversion> conversions;
        for (const tagKOORD& source : sources) {
            for (std::int32_t type = KOORD_UTM; type <= KOORD_LUREF; ++type) {
                tagKOORD target = MakeKoord(type % 2 == 0 ? DATUM_WGS84 : 0, type);
                const KoordStatus status = KoordConvert(&source, &target);
                conversions.push_back({status, target});
            }
        }
        return conversions;
    });
}

TEST_F(Threads, ConvertPixelsOfOneMap) {
    const MapParam map = MunichSheet();
    ExpectSameAtOnce<Conversion>([&] {
        std::vector<Conversion> conversions;
        for (int i = 0; i < 300; ++i) {
            const tagKOORD pixel = FloatPixel(7.0 * i, 5.0 * i);
            tagKOORD world = MakeKoord(DATUM_WGS84, i % 2 == 0 ? KOORD_UTM : KOORD_GEODEZ);
            conversions.push_back({MapPixelToWorld(&map, &pixel, &world), world});
            tagKOORD back = FloatPixel(0.0, 0.0);
            conversions.push_back({MapWorldToPixel(&map, &world, &back), back});
        }
        return conversions;
    });
}

// A walk over the object layer, on objects of its own.
std::vector<double> WalkObjects() {
    std::vector<double> numbers;
    const IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    const IRef<ICoord> a = CoordOf(Utm32(680000.0, 5340000.0));
    const IRef<ICoord> b = CoordOf(Utm32(690000.0, 5330000.0));
    const IRef<ICoord> out(CreateClassCoord());

    const IRef<ICoordinateTransfer> transfer(CreateClassCoordinateTransfer());
    numbers.push_back(transfer->Transfer(a.Get(), out.Get()) ? 1.0 : 0.0);
    const IRef<ICoordGeographic> place(CreateClassCoordGeographic());
    out->GetGeographic(place.Get());
    numbers.push_back(place->GetLatitude());

    const IRef<IZoneCoordOperations> zones(CreateClassZoneCoordOperations());
    numbers.push_back(zones->GetEastBorder(a.Get(), out.Get()));
    const IRef<ICoordinateString> string(CreateClassCoordinateString());
    const IRef<ITessaraString> text = MakeText();
    string->SetCoord(a.Get());
    string->GetNorthText(text.Get());
    numbers.push_back(text->GetLength());
    const IRef<ICoordinateChecker> checker(CreateClassCoordinateChecker());
    numbers.push_back(checker->CheckCoord(a.Get()) ? 1.0 : 0.0);

    const IRef<IArray> chain(CreateClassArray());
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    lines->DensifyGeodesic(map.Get(), a.Get(), b.Get(), chain.Get());
    numbers.push_back(chain->GetCount());
    const IRef<ICoordinateArea> area(CreateClassCoordinateArea());
    area->GetLineNorth(chain.Get(), out.Get());
    numbers.push_back(area->IsInsideOnMap(map.Get(), a.Get(), chain.Get()) ? 1.0 : 0.0);

    const IRef<ICoordinateGridFactory> grids(CreateClassCoordinateGridFactory());
    const IRef<ICoordinateGrid> grid(grids->CreateUtmGrid(map.Get(), DATUM_WGS84, 1000.0, 1000.0));
    grid->SetWindow(a.Get(), b.Get(), a.Get(), b.Get());
    grid->GetEastLines(chain.Get());
    numbers.push_back(chain->GetCount());

    const IRef<ITangentPlane> plane(CreateClassTangentPlane());
    numbers.push_back(plane->SetOrigin(a.Get()) ? plane->GetAzimuth(b.Get()) : -1000.0);
    return numbers;
}

TEST_F(Threads, UseObjectsOfTheirOwn) {
    const ManagedLibrary library;
    ExpectSameAtOnce<double>(WalkObjects);
}

TEST_F(Threads, CountOneObject) {
    constexpr int ROUNDS = 20000;
    const IRef<ICoord> coord(CreateClassCoord());
    AtOnce([&](int thread) {
        for (int i = 0; i < ROUNDS; ++i) {
            const IRef<ICoord> copy = coord;
            const IRef<ICoordInternal> inner(coord);
            if (i % THREADS == thread) coord->AddRef();
        }
    });
    std::uint32_t count = CountOf(coord);
    EXPECT_EQ(count, 1u + ROUNDS) << "each round was kept by one thread";
    while (count-- > 1)
        coord->Release();
}

TEST_F(Threads, EndAnObjectTogether) {
    constexpr int ROUNDS = 2000;
    for (int round = 0; round < ROUNDS / THREADS; ++round) {
        std::vector<IUnknown*> objects;
        for (int i = 0; i < THREADS; ++i) {
            objects.push_back(CreateClassCoordinateString());
            for (int count = 0; count < THREADS; ++count)
                objects.back()->AddRef();
        }
        std::atomic<int> ends{0};
        AtOnce([&](int) {
            for (IUnknown* object : objects)
                ends += object->Release() == 0 ? 1 : 0;
        });
        ASSERT_EQ(ends, THREADS) << "each object ended once";
    }
}

TEST_F(Threads, HoldOneObjectInListsOfTheirOwn) {
    const IRef<ICoord> coord(CreateClassCoord());
    AtOnce([&](int) {
        const IRef<IArray> list(CreateClassArray());
        for (int i = 0; i < 1000; ++i) {
            list->Add(coord.Get());
            if (i % 3 == 0) list->RemoveAt(0);
        }
    });
    EXPECT_EQ(CountOf(coord), 1u);
}

TEST_F(Threads, ReadOneMap) {
    const IRef<IMapCoordOperations> map = MapOf(MunichSheet());
    ExpectSameAtOnce<double>([&] {
        std::vector<double> numbers;
        const IRef<ICoord> world = CoordOf(Utm32(0.0, 0.0));
        for (int i = 0; i < 200; ++i) {
            double x = 0.0, y = 0.0;
            map->FloatPixelToCoord(3.0 * i, 2.0 * i, world.Get());
            map->CoordToFloatPixel(world.Get(), &x, &y);
            numbers.insert(numbers.end(), {x, y});
        }
        return numbers;
    });
    EXPECT_EQ(CountOf(map), 1u);
}

// The services that the factories hand out as one object keep nothing between calls.
TEST_F(Threads, ShareTheSingletons) {
    const ManagedLibrary library;
    const auto compare = library.Make<ICoordinateCompare>(CLSID_CoordinateCompare);
    const auto neighbor = library.Make<ICoordinateNeighbor>(CLSID_CoordinateNeighbor);
    const auto transfer = library.Make<ICoordinateTransfer>(CLSID_CoordinateTransfer);
    const auto zones = library.Make<IZoneCoordOperations>(CLSID_ZoneCoordOperations);
    const auto vectors = library.Make<IVector>(CLSID_EuclideanVector);
    const auto ellipsoid = library.Make<IEllipsoidOfRevolution>(CLSID_EllipsoidOfRevolution);
    const auto circle = library.Make<ICircleOnTangentPlane>(CLSID_CircleOnTangentPlane);
    const auto ellipse = library.Make<IEllipseOnTangentPlane>(CLSID_EllipseOnTangentPlane);
    const auto projections = library.Make<IProjectionFactory>(CLSID_ProjectionFactory);
    ExpectSameAtOnce<double>([&] {
        std::vector<double> numbers;
        const IRef<ICoord> coord = CoordOf(Utm32(600000.0, 5500000.0));
        const IRef<ICoord> out = CoordOf(GeodezRecord(0.0, 0.0));
        const IRef<IArray> points(CreateClassArray());
        for (int i = 0; i < 20; ++i) {
            neighbor->GetNorthNeighbor(coord.Get(), coord.Get());
            zones->GetZoneCentre(coord.Get(), out.Get());
            numbers.push_back(compare->CompareEastWest(coord.Get(), out.Get()));
            transfer->Transfer(coord.Get(), out.Get());
            Vector xyz;
            ellipsoid->CoordToEcefVector(out.Get(), &xyz);
            numbers.push_back(vectors->Length(xyz));
            circle->MakeCircle(out.Get(), 0.0, 0.0, 1000.0, points.Get(), 5, true);
            ellipse->MakeEllipse(out.Get(), 10.0, 1000.0, 500.0, 0.0, 0.0, points.Get(), 5, true);
            numbers.push_back(points->GetCount());
            const MapPlaneParams plane{600000.0, 200000.0, 1.0, 1.0};
            const IRef<IProjection> projection(projections->CreateCh(&plane));
            numbers.push_back(projection->GetProjectionType());
        }
        return numbers;
    });
}

TEST_F(Threads, MakeObjectsThroughOneFactory) {
    const ManagedLibrary library;
    // The first creation of a singleton is for one thread.
    std::vector<MClassFactory*> factories;
    for (MClassFactory* factory = FirstClassFactory(); factory != nullptr; factory = factory->Next()) {
        factories.push_back(factory);
        const auto first = library.Make<IUnknown>(*factory->ClassId());
        EXPECT_TRUE(first.IsValid()) << factory->ClassName();
    }
    AtOnce([&](int) {
        for (int i = 0; i < 20; ++i) {
            for (MClassFactory* factory : factories) {
                void* object = nullptr;
                factory->CreateInstance(nullptr, &IID_IUnknown, &object);
                if (object != nullptr) static_cast<IUnknown*>(object)->Release();
            }
        }
    });
}

}  // namespace
}  // namespace tessara
