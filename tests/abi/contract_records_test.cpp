// The fields of the records have the offsets of the contract: the tests read by byte offsets what the
// library writes, and write what it reads.
#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "abi/contract/places.h"

namespace contract {
namespace {

using ContractRecords = ContractPlaces;

// The default positions of the systems reveal the offsets of most fields.
TEST_F(ContractRecords, DefaultPositions) {
    const auto initial = [this](uint32_t type) {
        const auto coord = Make<ICoord>("Coord");
        EXPECT_TRUE(coord->SetReference(Reference(WGS84, type)));
        EXPECT_TRUE(Make<ICoordinateInit>("CoordinateInit")->InitCoord(coord));
        const Record record = RecordOf(coord);
        EXPECT_EQ(record.datum, WGS84);
        EXPECT_EQ(record.type, type);
        return record;
    };
    const Record utm = initial(UTM);
    EXPECT_EQ(utm.At<char>(0), 'N');
    EXPECT_EQ(utm.At<int16_t>(2), -1000);
    EXPECT_EQ(utm.At<int16_t>(4), 30);
    EXPECT_EQ(utm.At<double>(8), 500000.0);
    EXPECT_EQ(utm.At<double>(16), 0.0);
    const Record utmref = initial(UTMREF);
    EXPECT_EQ(utmref.At<int16_t>(0), -1000);
    EXPECT_EQ(utmref.At<int16_t>(2), 30);
    EXPECT_EQ(utmref.At<char>(4), 'N');
    EXPECT_EQ(utmref.At<char>(6), 'W');
    EXPECT_EQ(utmref.At<char>(7), 'F');
    const Record geograd = initial(GEOGRAD);
    EXPECT_EQ(geograd.At<char>(16), 'N');
    EXPECT_EQ(geograd.At<char>(32), 'W');
    const Record georef = initial(GEOREF);
    EXPECT_EQ(georef.At<int16_t>(0), 8);
    EXPECT_EQ(georef.At<char>(2), 'N');
    EXPECT_EQ(georef.At<char>(3), 'G');
    EXPECT_EQ(georef.At<char>(4), 'A');
    EXPECT_EQ(georef.At<char>(5), 'A');
    for (const auto& [type, easting] : {std::pair{GK, 3500000.0}, {GK6, 2500000.0}}) {
        const Record strip = initial(type);
        EXPECT_EQ(strip.At<int16_t>(2), -1000);
        EXPECT_EQ(strip.At<double>(8), easting);
    }
    struct Austrian {
        uint32_t type;
        double easting, northing;
    };
    for (const Austrian& row : {Austrian{BMN, 500000.0, 200000.0}, Austrian{OEM, 800000.0, 5200000.0},
                                Austrian{GK_AT, 0.0, 5200000.0}}) {
        const Record austrian = initial(row.type);
        EXPECT_EQ(austrian.At<int16_t>(0), -1000);
        EXPECT_EQ(austrian.At<int16_t>(2), 31);
        EXPECT_EQ(austrian.At<double>(8), row.easting);
        EXPECT_EQ(austrian.At<double>(16), row.northing);
    }
    struct Plane {
        uint32_t type;
        double easting, northing;
    };
    for (const Plane& row : {Plane{CH, 600000.0, 200000.0}, Plane{RD, 200000.0, 400000.0},
                             Plane{PO_MILITARY, 200000.0, 200000.0}, Plane{LUREF, 0.0, 0.0}}) {
        const Record plane = initial(row.type);
        EXPECT_EQ(plane.At<double>(0), row.easting);
        EXPECT_EQ(plane.At<double>(8), row.northing);
    }
    const Record geodezmin = initial(GEODEZMIN);
    EXPECT_EQ(geodezmin.At<char>(16), 'N');
    EXPECT_EQ(geodezmin.At<char>(32), 'W');
    const Record ups = initial(UPS);
    EXPECT_EQ(ups.At<char>(0), 'N');
    EXPECT_EQ(ups.At<double>(8), 2000000.0);
    EXPECT_EQ(ups.At<double>(16), 2000000.0);
    EXPECT_EQ(initial(TM).At<double>(32), 1.0);
}

// 50.50833... degrees are 50 degrees 30 minutes 30 seconds, -9.25 degrees 9 degrees 15 minutes west.
TEST_F(ContractRecords, GeographicForms) {
    const auto converted = [this](uint32_t type) {
        const auto coord = Geodez(50.0 + 30.5 / 60.0, -9.25);
        EXPECT_TRUE(coord->SetHeight(123.0));
        EXPECT_EQ(RecordOf(coord).At<double>(16), 123.0);
        EXPECT_TRUE(coord->SetReference(Reference(WGS84, type)));
        return RecordOf(coord);
    };
    constexpr double SECONDS = 1e-9;
    const Record geograd = converted(GEOGRAD);
    EXPECT_EQ(geograd.At<int16_t>(0), 50);
    EXPECT_EQ(geograd.At<int16_t>(2), 30);
    EXPECT_NEAR(geograd.At<double>(8), 30.0, SECONDS);
    EXPECT_EQ(geograd.At<int16_t>(18), 9);
    EXPECT_EQ(geograd.At<int16_t>(20), 15);
    EXPECT_NEAR(geograd.At<double>(24), 0.0, SECONDS);
    EXPECT_EQ(geograd.At<char>(32), 'W');
    const Record geodezmin = converted(GEODEZMIN);
    EXPECT_EQ(geodezmin.At<int16_t>(0), 50);
    EXPECT_NEAR(geodezmin.At<double>(8), 30.5, SECONDS);
    EXPECT_EQ(geodezmin.At<int16_t>(18), 9);
    EXPECT_NEAR(geodezmin.At<double>(24), 15.0, SECONDS);
    EXPECT_EQ(geodezmin.At<char>(32), 'W');
    EXPECT_EQ(geodezmin.At<double>(40), 123.0);
}

// Degree 50 north lies in the zone of 45, letter K, as its degree F; degree 9 east in the zone of 0, letter
// N, as its degree K. The half and the quarter degree are 30 and 15 minutes,
// written in tenths.
TEST_F(ContractRecords, Georef) {
    const auto coord = Coord(NewRecord(WGS84, GEOREF)
                                 .With<int16_t>(0, 4)
                                 .With<char>(2, 'N')
                                 .With<char>(3, 'K')
                                 .With<char>(4, 'K')
                                 .With<char>(5, 'F')
                                 .With<int16_t>(6, 150)
                                 .With<int16_t>(8, 300));
    const auto place = Make<ICoordGeographic>("CoordGeographic");
    ASSERT_TRUE(coord->GetGeographic(place));
    EXPECT_NEAR(place->GetLatitude(), 50.5, 0.01) << "degrees, the side of a cell";
    EXPECT_NEAR(place->GetLongitude(), 9.25, 0.01);
}

TEST_F(ContractRecords, EarthCentred) {
    const auto coord = Coord(NewRecord(WGS84, ECEF).With<double>(0, 0.0).With<double>(8, 6378137.0));
    const auto place = Make<ICoordGeographic>("CoordGeographic");
    ASSERT_TRUE(coord->GetGeographic(place));
    // Degrees; the polar axis is given to a tenth of a millimetre.
    EXPECT_NEAR(place->GetLongitude(), 90.0, 1e-12);
    EXPECT_NEAR(place->GetLatitude(), 0.0, 1e-12);
    const auto pole = Coord(NewRecord(WGS84, ECEF).With<double>(16, 6356752.3142));
    ASSERT_TRUE(pole->GetGeographic(place));
    EXPECT_NEAR(place->GetLatitude(), 90.0, 1e-7);
}

// A difference is read from the two fields of the axis.
TEST_F(ContractRecords, FieldsOfTheAxes) {
    struct Row {
        uint32_t type;
        std::size_t east, north;
    };
    for (const Row& row :
         {Row{FLOATPIXEL, 0, 8}, Row{UTM, 8, 16}, Row{GEODEZ, 8, 0}, Row{GK, 8, 16}, Row{GK6, 8, 16},
          Row{BMN, 8, 16}, Row{OEM, 8, 16}, Row{GK_AT, 8, 16}, Row{CH, 0, 8}, Row{RD, 0, 8}, Row{LUREF, 0, 8},
          Row{PO_MILITARY, 0, 8}, Row{UPS, 8, 16}, Row{TM, 40, 48}, Row{VDG, 16, 24}, Row{BNG, 24, 32},
          Row{ING, 24, 32}}) {
        Record first = NewRecord(WGS84, row.type);
        Record second = first;
        second.With<double>(row.east, 2.0).With<double>(row.north, 5.0);
        const auto coord = Coord(first);
        const auto other = Coord(second);
        const Held<ICoordInternal> inner = As<ICoordInternal>(coord);
        EXPECT_EQ(inner->EastDifference(other), 2.0) << "type " << row.type;
        EXPECT_EQ(inner->NorthDifference(other), row.type == FLOATPIXEL ? -5.0 : 5.0) << "type " << row.type;
    }
    const auto pixel = Coord(NewRecord(WGS84, LONGPIXEL).With<int32_t>(0, 7).With<int32_t>(4, 9));
    double x = 0.0, y = 0.0;
    EXPECT_TRUE(pixel->GetPixel(&x, &y));
    EXPECT_EQ(x, 7.0);
    EXPECT_EQ(y, 9.0);
}

// The origin of a free projection is the place of its false values.
TEST_F(ContractRecords, FreeParameters) {
    const auto place = Make<ICoordGeographic>("CoordGeographic");
    const auto expectAt = [&](const Record& record, double latitude, double longitude) {
        ASSERT_TRUE(Coord(record)->GetGeographic(place)) << record.type;
        EXPECT_NEAR(place->GetLatitude(), latitude, 1e-6)
            << record.type << ", in degrees, a tenth of a metre";
        EXPECT_NEAR(place->GetLongitude(), longitude, 1e-6) << record.type;
    };
    expectAt(NewRecord(WGS84, TM)
                 .With<double>(0, 9.0)
                 .With<double>(8, 40.0)
                 .With<double>(16, 1000.0)
                 .With<double>(24, 2000.0)
                 .With<double>(32, 0.9996)
                 .With<double>(40, 1000.0)
                 .With<double>(48, 2000.0),
             40.0, 9.0);
    expectAt(NewRecord(WGS84, LAMBERTCC)
                 .With<float>(0, 30.0f)
                 .With<float>(4, 60.0f)
                 .With<float>(8, 9.0f)
                 .With<float>(12, 45.0f)
                 .With<double>(16, 1000.0)
                 .With<double>(24, 2000.0)
                 .With<double>(32, 1000.0)
                 .With<double>(40, 2000.0),
             45.0, 9.0);
    expectAt(NewRecord(WGS84, VDG).With<double>(0, 9.0), 0.0, 9.0);
}

// The exported class, by the names of its members in the binary interface.
TEST_F(ContractRecords, TheExportedRecordWithHeight) {
    const std::string prefix = "_ZN7tessara6CKoord";
    using Construct = void(KoordFields*);
    using Copy = void(KoordFields*, const void*);
    using Assign = KoordFields*(KoordFields*, const void*);

    KoordFields koord;
    std::memset(&koord, 0xEE, sizeof koord);
    library.Find<Construct>(prefix + "C1Ev")(&koord);
    EXPECT_EQ(koord.record.datum, WGS84);
    EXPECT_EQ(koord.record.type, GEODEZ);
    EXPECT_EQ(koord.height, 0.0);
    EXPECT_EQ(koord.ecefX, 0.0);
    EXPECT_EQ(koord.ecefDatum, WGS84);

    const double height = 100.0;
    library.Find<void(KoordFields*, const double*)>(prefix + "9SetHeightERKd")(&koord, &height);
    EXPECT_EQ(koord.height, 100.0);
    EXPECT_EQ(koord.record.At<double>(16), 100.0);
    const auto getHeight = library.Find<double(const KoordFields*)>("_ZNK7tessara6CKoord9GetHeightEv");
    EXPECT_EQ(getHeight(&koord), 100.0);

    // On the equator the height is what x has beyond the semi-major axis.
    const Record ecef = NewRecord(WGS84, ECEF).With<double>(0, 6378137.0 + 50.0);
    KoordFields space;
    library.Find<Copy>(prefix + "C1ERKNS_8tagKOORDE")(&space, &ecef);
    EXPECT_NEAR(getHeight(&space), 50.0, 1e-6) << "metres";
    EXPECT_EQ(space.ecefX, 6378187.0);
    EXPECT_EQ(space.ecefY, 0.0);
    KoordFields copy;
    library.Find<Copy>(prefix + "C1ERKS0_")(&copy, &koord);
    EXPECT_EQ(copy.height, 100.0);
    EXPECT_EQ(library.Find<Assign>(prefix + "aSERKNS_8tagKOORDE")(&copy, &ecef), &copy);
    EXPECT_EQ(copy.record.type, ECEF);
    EXPECT_EQ(library.Find<Assign>(prefix + "aSERKS0_")(&copy, &koord), &copy);
    EXPECT_EQ(copy.record.type, GEODEZ);
}

}  // namespace
}  // namespace contract
