// A host with declarations of its own calls every operation of the coordinate's classes.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "abi/contract/objects.h"
#include "abi/contract/places.h"

namespace contract {
namespace {

using ContractObjects = ContractPlaces;

TEST_F(ContractObjects, CoordGeographic) {
    const auto place = Make<ICoordGeographic>("CoordGeographic");
    EXPECT_TRUE(place->Set(1.0, 2.0, 3.0));
    double longitude = 0.0, latitude = 0.0, height = 0.0;
    place->Get(&longitude, &latitude, &height);
    EXPECT_EQ(longitude, 1.0);
    EXPECT_EQ(latitude, 2.0);
    EXPECT_EQ(height, 3.0);
    EXPECT_TRUE(place->SetLatitude(20.0));
    EXPECT_TRUE(place->SetLongitude(10.0));
    EXPECT_TRUE(place->SetHeight(30.0));
    EXPECT_EQ(place->GetLongitude(), 10.0);
    EXPECT_EQ(place->GetLatitude(), 20.0);
    EXPECT_EQ(place->GetHeight(), 30.0);
}

TEST_F(ContractObjects, GeoDate) {
    const auto datum = Make<IGeoDate>("GeoDate");
    EXPECT_EQ(datum->GetDatum(), 999);
    EXPECT_FALSE(datum->SetDatum(239));
    EXPECT_TRUE(datum->SetDatum(2));
    EXPECT_EQ(datum->GetDatum(), 2);
    const auto name = NewText();
    datum->GetName(name);
    EXPECT_STREQ(name->GetText(), "WGS84");
}

TEST_F(ContractObjects, CoordinateSystem) {
    const auto system = Make<ICoordinateSystem>("CoordinateSystem");
    EXPECT_EQ(system->GetSystem(), -1);
    EXPECT_FALSE(system->SetSystem(24));
    EXPECT_TRUE(system->SetSystem(14));
    EXPECT_EQ(system->GetSystem(), 14);
    const auto name = NewText();
    system->GetName(name);
    EXPECT_STREQ(name->GetText(), "GK-AT");
}

TEST_F(ContractObjects, CoordinateReference) {
    const auto reference = Make<ICoordinateReference>("CoordinateReference");
    EXPECT_FALSE(reference->SetSystem(238));
    EXPECT_TRUE(reference->SetDatum(2));
    EXPECT_TRUE(reference->SetSystem(3));
    EXPECT_EQ(reference->GetDatum(), 2);
    EXPECT_EQ(reference->GetSystem(), 3);
    const auto name = NewText();
    reference->GetDatumName(name);
    EXPECT_STREQ(name->GetText(), "WGS84");
    reference->GetSystemName(name);
    EXPECT_STREQ(name->GetText(), "UTMREF");
}

TEST_F(ContractObjects, Coord) {
    const auto coord = Make<ICoord>("Coord");
    double x = 0.0, y = 0.0;
    EXPECT_FALSE(coord->GetPixel(&x, &y));
    EXPECT_TRUE(coord->SetPixel(10.0, 20.0));
    EXPECT_TRUE(coord->GetPixel(&x, &y));
    EXPECT_EQ(x, 10.0);
    EXPECT_EQ(y, 20.0);
    EXPECT_TRUE(coord->SetHeight(5.0));
    EXPECT_EQ(coord->GetHeight(), 5.0);

    const auto reference = Make<ICoordinateReference>("CoordinateReference");
    EXPECT_TRUE(coord->GetReference(reference));
    EXPECT_EQ(reference->GetSystem(), 1);
    EXPECT_TRUE(coord->SetReference(Reference(2, GEODEZ)));
    EXPECT_TRUE(coord->GetReference(reference));
    EXPECT_EQ(reference->GetSystem(), 4);

    const auto place = Make<ICoordGeographic>("CoordGeographic");
    EXPECT_FALSE(coord->GetGeographic(place)) << "no position since the pixel went";
    EXPECT_TRUE(place->Set(9.0, 50.0, 7.0));
    EXPECT_TRUE(coord->SetGeographic(place));
    EXPECT_TRUE(place->Set(0.0, 0.0, 0.0));
    EXPECT_TRUE(coord->GetGeographic(place));
    EXPECT_EQ(place->GetLongitude(), 9.0);
    EXPECT_EQ(place->GetLatitude(), 50.0);
    EXPECT_EQ(coord->GetHeight(), 7.0);
}

TEST_F(ContractObjects, CoordInternal) {
    const auto coord = Make<ICoord>("Coord");
    const Held<ICoordInternal> inner = As<ICoordInternal>(coord);
    ASSERT_NE(inner.Get(), nullptr);
    EXPECT_FALSE(inner->SetKoord(nullptr));
    KoordFields set{};
    set.record = UtmRecord(32, 500000.0, 5400000.0);
    EXPECT_TRUE(inner->SetKoord(&set));
    EXPECT_TRUE(inner->ShiftEast(10.0));
    EXPECT_TRUE(inner->ShiftNorth(-20.0));
    KoordFields got{};
    EXPECT_TRUE(inner->GetKoord(&got));
    EXPECT_EQ(got.record.At<double>(8), 500010.0);
    EXPECT_EQ(got.record.At<double>(16), 5399980.0);
    const auto other = Utm(500110.0, 5400180.0);
    EXPECT_EQ(inner->EastDifference(other), 100.0);
    EXPECT_EQ(inner->NorthDifference(other), 200.0);
}

TEST_F(ContractObjects, CoordinateInit) {
    const auto coord = Make<ICoord>("Coord");
    EXPECT_TRUE(coord->SetReference(Reference(2, CH)));
    EXPECT_TRUE(Make<ICoordinateInit>("CoordinateInit")->InitCoord(coord));
    EXPECT_EQ(RecordOf(coord).At<double>(0), 600000.0);
    EXPECT_EQ(RecordOf(coord).At<double>(8), 200000.0);
}

TEST_F(ContractObjects, CoordinateTransfer) {
    const auto transfer = Make<ICoordinateTransfer>("CoordinateTransfer");
    const auto source = Geodez(50.0, 9.0);
    const auto north = Geodez(1.0, 2.0);
    EXPECT_TRUE(transfer->TransferNorth(source, north));
    EXPECT_EQ(RecordOf(north).At<double>(0), 50.0);
    EXPECT_EQ(RecordOf(north).At<double>(8), 2.0);
    const auto east = Geodez(1.0, 2.0);
    EXPECT_TRUE(transfer->TransferEast(source, east));
    EXPECT_EQ(RecordOf(east).At<double>(0), 1.0);
    EXPECT_EQ(RecordOf(east).At<double>(8), 9.0);
    const auto whole = Geodez(1.0, 2.0);
    EXPECT_TRUE(transfer->Transfer(source, whole));
    EXPECT_EQ(RecordOf(whole).At<double>(0), 50.0);
    EXPECT_EQ(RecordOf(whole).At<double>(8), 9.0);

    const auto sheet = Sheet();
    const auto world = Geodez(0.0, 0.0);
    EXPECT_TRUE(transfer->TransferToMap(sheet, Pixel(7.0, 9.0), world));
    ExpectUtm(world, 400070.0, 5599820.0);
    // The same ground on a sheet whose pixels are ten times as large.
    const MapUtmParams params{'N', 32, 400000.0, 5600000.0, 100.0, 200.0};
    const auto coarse =
        MapOn(Held<IProjection>(Make<IProjectionFactory>("ProjectionFactory")->CreateUtm(&params)));
    const auto there = Pixel(0.0, 0.0);
    EXPECT_TRUE(transfer->TransferBetweenMaps(sheet, Pixel(7.0, 9.0), coarse, there));
    ExpectPixel(there, 0.7, 0.9);
}

// Zone 32 reaches from longitude 6 to 12.
TEST_F(ContractObjects, ZonesAndTheirNumbers) {
    const auto zones = Make<IZoneCoordOperations>("ZoneCoordOperations");
    const auto coord = Utm(600000.0, 5500000.0);
    EXPECT_TRUE(zones->HasZones(coord));
    EXPECT_FALSE(zones->HasZones(Geodez(50.0, 9.0)));
    EXPECT_EQ(zones->GetZoneNumber(coord), 32);
    EXPECT_EQ(zones->GetZoneFactor(coord), 1000000);
    const auto out = Utm(0.0, 0.0);
    EXPECT_TRUE(zones->GetZoneCentre(coord, out));
    ExpectUtm(out, 500000.0, 5500000.0);
    const auto moved = Utm(600000.0, 5500000.0);
    EXPECT_TRUE(zones->MoveToZone(2, moved));
    EXPECT_EQ(RecordOf(moved).At<int16_t>(4), 34);
    EXPECT_EQ(RecordOf(moved).At<double>(8), 600000.0);
}

TEST_F(ContractObjects, TheLimitsOfAZone) {
    const auto zones = Make<IZoneCoordOperations>("ZoneCoordOperations");
    const auto coord = Utm(600000.0, 5500000.0);
    const auto out = Utm(0.0, 0.0);
    const auto expectAt = [&](double longitude) {
        const auto place = Make<ICoordGeographic>("CoordGeographic");
        EXPECT_TRUE(out->GetGeographic(place));
        EXPECT_NEAR(place->GetLongitude(), longitude, 1e-6) << "degrees, a tenth of a metre";
    };
    constexpr double TENTH_METRE = 0.1;

    // Due grid north and south the border is met where it has come as near to the centre as the coordinate.
    EXPECT_EQ(zones->GetEastBorder(coord, out), 1);
    expectAt(12.0);
    EXPECT_EQ(RecordOf(out).At<char>(0), 'N');
    EXPECT_NEAR(RecordOf(out).At<double>(8), 600000.0, TENTH_METRE);
    EXPECT_EQ(zones->GetWestBorder(coord, out), 1);
    expectAt(12.0);
    EXPECT_EQ(RecordOf(out).At<char>(0), 'S');

    EXPECT_TRUE(zones->GetEastNeighbour(coord, out));
    expectAt(12.0);
    EXPECT_NEAR(RecordOf(out).At<double>(16), 5500000.0, TENTH_METRE);
    EXPECT_TRUE(zones->GetWestNeighbour(coord, out));
    expectAt(6.0);
    EXPECT_NEAR(RecordOf(out).At<double>(16), 5500000.0, TENTH_METRE);

    // On the equator a zone is 667957 m wide: echo "12 0" | cs2cs -f %.1f EPSG:4326 +to EPSG:32632 gives the
    // easting 833978.6.
    EXPECT_TRUE(zones->GetEastNeighbourAtEquator(coord, out));
    EXPECT_NEAR(RecordOf(out).At<double>(8), 833978.6, TENTH_METRE);
    EXPECT_EQ(RecordOf(out).At<double>(16), 0.0);
    EXPECT_TRUE(zones->GetWestNeighbourAtEquator(coord, out));
    EXPECT_NEAR(RecordOf(out).At<double>(8), 166021.4, TENTH_METRE);
}

}  // namespace
}  // namespace contract
