// Coordinates of a host that give up in the middle of an operation, which then fails.
#include <gtest/gtest.h>

#include "support/coords.h"
#include "support/failing_coord.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/map_objects.h"
#include "tessara/tessara.h"

namespace tessara::testing::failing_coords_test {
namespace {

constexpr std::int32_t ON_BESSEL = 3;

const tagKOORD VIENNA = GeodezRecord(48.2, 16.4, 170.0);
const tagKOORD LINZ = GeodezRecord(48.3, 14.3, 260.0);
const tagKOORD GRAZ = GeodezRecord(47.1, 15.4, 350.0);
const tagKOORD ZWETTL =
    GeodezRecord(48.6, 15.2, 520.0);  // seen from Graz, beyond the line from Vienna to Linz

class FailingCoords : public BalancedTest {
  protected:
    IRef<ICoord> Failing(const tagKOORD& record) { return MakeFailingCoord(CoordOf(CKoord(record)), &calls); }
    IRef<ICoord> FailingIn(std::int32_t system, std::int32_t datum = DATUM_WGS84) {
        return MakeFailingCoord(EmptyCoord(datum, system), &calls);
    }
    IRef<IArray> FailingLine(const tagKOORD& from, const tagKOORD& to) {
        return ListOf({Failing(from).Get(), Failing(to).Get()});
    }

    CallBudget calls;
    IRef<IMapCoordOperations> map = DegreeMap(14.0, 49.0, 1000.0);
};

TEST_F(FailingCoords, FailTheEllipsoid) {
    const IRef<IEllipsoidOfRevolution> ellipsoid(CreateClassEllipsoidOfRevolution());
    Vector xyz;
    ExpectFailureAtEachCall(&calls,
                            [&] { return ellipsoid->CoordToEcefVector(Failing(VIENNA).Get(), &xyz); });
    for (const std::int32_t system : {KOORD_GEODEZ, KOORD_UTM, KOORD_ECEF}) {
        ExpectFailureAtEachCall(&calls,
                                [&] { return ellipsoid->EcefVectorToCoord(&xyz, FailingIn(system).Get()); });
    }
    ExpectFailureAtEachCall(&calls, [&] {
        return ellipsoid->PointAtGeodesicDistance(Failing(VIENNA).Get(), 30.0, 1000.0,
                                                  FailingIn(KOORD_GEODEZ).Get());
    });
    ExpectFailureAtEachCall(&calls, [&] {
        return ellipsoid->PointAtChordDistance(Failing(VIENNA).Get(), 30.0, 1000.0,
                                               FailingIn(KOORD_GEODEZ).Get());
    });
    // Straight through the earth.
    const Vector down{-xyz[0], -xyz[1], -xyz[2]};
    ExpectFailureAtEachCall(&calls, [&] {
        return ellipsoid->IntersectLine(Failing(VIENNA).Get(), &down, FailingIn(KOORD_ECEF).Get(),
                                        FailingIn(KOORD_ECEF).Get());
    });
}

TEST_F(FailingCoords, FailTheTangentPlane) {
    ExpectFailureAtEachCall(&calls, [&] {
        const IRef<ITangentPlane> plane(CreateClassTangentPlane());
        double x, y, z;
        return plane->SetOrigin(Failing(VIENNA).Get()) &&
               plane->GetPlaneCoords(Failing(LINZ).Get(), &x, &y, &z) &&
               plane->PlaneCoordsToCoord(x, y, z, FailingIn(KOORD_UTM).Get()) &&
               plane->MapByGeodesic(Failing(LINZ).Get(), FailingIn(KOORD_UTM).Get()) &&
               plane->GetOrigin(FailingIn(KOORD_UTM).Get());
    });
}

TEST_F(FailingCoords, FailTransfers) {
    const IRef<ICoordinateTransfer> transfer(CreateClassCoordinateTransfer());
    ExpectFailureAtEachCall(
        &calls, [&] { return transfer->Transfer(Failing(VIENNA).Get(), FailingIn(KOORD_UTM).Get()); });
    ExpectFailureAtEachCall(
        &calls, [&] { return transfer->TransferNorth(Failing(VIENNA).Get(), Failing(LINZ).Get()); });
    for (const tagKOORD& source : {VIENNA, FloatPixel(100.0, 200.0)}) {
        ExpectFailureAtEachCall(&calls, [&] {
            return transfer->TransferToMap(map.Get(), Failing(source).Get(), FailingIn(KOORD_UTM).Get());
        });
    }
    const IRef<IMapCoordOperations> target = DegreeMap(13.0, 50.0, 500.0);
    for (const std::int32_t system : {KOORD_FLOATPIXEL, KOORD_LONGPIXEL, KOORD_UTM}) {
        ExpectFailureAtEachCall(&calls, [&] {
            return transfer->TransferBetweenMaps(map.Get(), Failing(FloatPixel(100.0, 200.0)).Get(),
                                                 target.Get(), FailingIn(system, ON_BESSEL).Get());
        });
    }
}

TEST_F(FailingCoords, FailNeighboursMeansAndChecks) {
    const IRef<ICoordinateNeighbor> neighbor(CreateClassCoordinateNeighbor());
    ExpectFailureAtEachCall(&calls, [&] {
        return neighbor->GetNorthNeighbor(Failing(VIENNA).Get(), FailingIn(KOORD_GEODEZ).Get());
    });
    const IRef<ICoordinateAverage> average(CreateClassCoordinateAverage());
    ExpectFailureAtEachCall(&calls, [&] {
        return average->Average(Failing(VIENNA).Get(), Failing(LINZ).Get(), FailingIn(KOORD_GEODEZ).Get());
    });
    const IRef<ICoordinateChecker> checker(CreateClassCoordinateChecker());
    ExpectFailureAtEachCall(&calls, [&] { return checker->CheckCoord(Failing(VIENNA).Get()); });
}

TEST_F(FailingCoords, FailTexts) {
    ExpectFailureAtEachCall(&calls, [&] {
        const IRef<ICoordinateString> text(CreateClassCoordinateString());
        return text->SetCoord(Failing(VIENNA).Get()) && text->GetCoord(FailingIn(KOORD_GEODEZ).Get());
    });
}

TEST_F(FailingCoords, FailLinesOnAMap) {
    const IRef<ILinePoints> lines(CreateClassLinePoints());
    const IRef<IArray> points(CreateClassArray());
    ExpectFailureAtEachCall(&calls, [&] {
        return lines->DensifyCoordStraight(map.Get(), Failing(VIENNA).Get(), Failing(LINZ).Get(),
                                           points.Get());
    });
    for (const std::int32_t system : {KOORD_UTM, KOORD_FLOATPIXEL}) {
        ExpectFailureAtEachCall(&calls, [&] {
            return lines->GetFootPoint(map.Get(), Failing(GRAZ).Get(), Failing(VIENNA).Get(),
                                       Failing(LINZ).Get(), FailingIn(system, ON_BESSEL).Get());
        });
    }
    ExpectFailureAtEachCall(&calls, [&] {
        return lines->IntersectOnMapToArray(map.Get(), FailingLine(VIENNA, LINZ).Get(),
                                            FailingLine(GRAZ, ZWETTL).Get(), points.Get());
    });
    EXPECT_EQ(points->GetCount(), 1u);
    ExpectFailureAtEachCall(&calls, [&] {
        return lines->IsPointOnLine(map.Get(), Failing(VIENNA).Get(), FailingLine(VIENNA, LINZ).Get());
    });
}

TEST_F(FailingCoords, FailWhatBringsThemToAMap) {
    const IRef<IMapCoordCreatorFactory> factory(CreateClassMapCoordCreatorFactory());
    const IRef<IMapCoordCreator> creator(factory->CreateMapCoordCreator(map.Get()));
    for (const tagKOORD& record : {VIENNA, FloatPixel(100.0, 200.0)}) {
        ExpectFailureAtEachCall(&calls, [&] { return creator->ConvertCoord(Failing(record).Get()); });
        ExpectFailureAtEachCall(
            &calls, [&] { return IRef<ICoord>(creator->CreateCoordFrom(Failing(record).Get())).IsValid(); });
    }
}

}  // namespace
}  // namespace tessara::testing::failing_coords_test
