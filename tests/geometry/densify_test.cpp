#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <new>

#include "geometry/line_points.h"
#include "numerics/special_values.h"
#include "support/host_map.h"
#include "support/lines.h"
#include "support/live_objects.h"
#include "support/objects.h"
#include "support/random.h"
#include "support/reference_file.h"

namespace tessara {
namespace {

using testing::At;
using testing::CountOf;
using testing::DegreeMap;
using testing::Disguised;
using testing::DistanceToPolyline;
using testing::FloatPixel;
using testing::LongPixel;
using testing::MapOf;
using testing::Pixel;
using testing::PixelOf;
using testing::PixelOn;
using testing::PixelsOn;
using testing::Random;
using testing::Utm32;

class LineDensifyingTest : public testing::BalancedTest {
  protected:
    using Operation = bool (ILinePoints::*)(IMapCoordOperations*, ICoord*, ICoord*, IArray*);
    static constexpr Operation ON_MAP[] = {
        &ILinePoints::DensifyMapStraight, &ILinePoints::DensifyCoordStraight,
        &ILinePoints::DensifyCoordStraightZoned, &ILinePoints::DensifyGeodesic};

    // Something to be cleared.
    void SetUp() override { polyline->Add(lines.Get()); }

    bool Densify(Operation operation, const CKoord& a, const CKoord& b) {
        return (lines.Get()->*operation)(map.Get(), CoordOf(a).Get(), CoordOf(b).Get(), polyline.Get());
    }

    bool Across(const CKoord& a, const CKoord& b, std::int32_t datum, std::int32_t system) {
        return lines->DensifyInReference(CoordOf(a).Get(), CoordOf(b).Get(), ReferenceOf(datum, system).Get(),
                                         polyline.Get());
    }

    CKoord KoordAt(std::uint32_t i) { return KoordOf(At(polyline, i)); }

    IRef<ILinePoints> lines{CreateClassLinePoints()};
    IRef<IArray> polyline{CreateClassArray()};
    IRef<IMapCoordOperations> map = DegreeMap(6.0, 50.0, 100.0);
};

TEST_F(LineDensifyingTest, KeepsATolerance) {
    EXPECT_EQ(lines->GetPixelTolerance(), 0.25);
    EXPECT_FALSE(lines->SetPixelTolerance(-1.0));
    EXPECT_FALSE(lines->SetPixelTolerance(NOT_A_NUMBER));
    EXPECT_EQ(lines->GetPixelTolerance(), 0.25);
    EXPECT_TRUE(lines->SetPixelTolerance(0.0));
    EXPECT_EQ(lines->GetPixelTolerance(), 0.0);
    EXPECT_TRUE(lines->SetPixelTolerance(3.5));
    EXPECT_EQ(lines->GetPixelTolerance(), 3.5);
}

TEST_F(LineDensifyingTest, AGeodesicRunsThroughItsWayPoints) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, GeodezRecord(48, 16), GeodezRecord(52, -1)));
    ASSERT_EQ(polyline->GetCount(), 5u);
    // GeodSolve -I 48 16 52 -1 -F -p 4 of 0.25, 0.5 and 0.75
    const double expected[5][2] = {{48.0, 16.0},
                                   {49.227913481, 12.022624879},
                                   {50.311965443, 7.855374460},
                                   {51.239866839, 3.508634818},
                                   {52.0, -1.0}};
    for (std::uint32_t i = 0; i < 5; ++i) {
        const auto position = Load<GeodezPayload>(KoordAt(i));
        // Degrees: ten centimetres, for a line that is halved twice.
        EXPECT_NEAR(position.latitude, expected[i][0], 1e-6);
        EXPECT_NEAR(position.longitude, expected[i][1], 1e-6);
        EXPECT_EQ(KoordAt(i).datum, 2u);
    }
}

TEST_F(LineDensifyingTest, WithoutATolerancePiecesAreHalvedUpToTheLimit) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    ASSERT_TRUE(lines->SetPixelTolerance(0.0));
    ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, GeodezRecord(48, 16), GeodezRecord(52, -1)));
    EXPECT_EQ(polyline->GetCount(), 129u);
    map = DegreeMap(6.0, 50.0, 100.0);
    ASSERT_TRUE(Densify(&ILinePoints::DensifyMapStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.31e6)));
    EXPECT_EQ(polyline->GetCount(), 65u);
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.31e6)));
    EXPECT_EQ(polyline->GetCount(), 65u);
}

TEST_F(LineDensifyingTest, ThePolylineGoesFromLeftToRight) {
    ASSERT_TRUE(lines->SetPixelTolerance(0.0));
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Utm32(5e5, 5.3e6), Utm32(6e5, 5.4e6)));
    ASSERT_EQ(polyline->GetCount(), 65u);
    for (std::uint32_t i = 0; i < 65; ++i) {
        const auto utm = Load<UtmPayload>(KoordAt(i));
        // Halves of whole numbers are exact.
        EXPECT_EQ(utm.easting, 5e5 + i * (1e5 / 64.0));
        EXPECT_EQ(utm.northing, 5.3e6 + i * (1e5 / 64.0));
    }
}

TEST_F(LineDensifyingTest, AGeodesicBetweenTwoPixelsIsPixels) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    // The pixels of 48 16 and 52 -1.
    ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, FloatPixel(1960, 420), LongPixel(1790, 380)));
    ASSERT_EQ(polyline->GetCount(), 5u);
    for (std::uint32_t i = 0; i < 5; ++i) {
        EXPECT_EQ(KoordAt(i).type, KOORD_FLOATPIXEL);
        EXPECT_EQ(KoordAt(i).datum, 2u);
    }
    // Row (90 - latitude) * 10, column (longitude + 180) * 10 of the geodesic's middle as above.
    EXPECT_NEAR(PixelOf(At(polyline, 2)).x, 1878.55374460, 1e-5);
    EXPECT_NEAR(PixelOf(At(polyline, 2)).y, 396.88034557, 1e-5);
    EXPECT_NEAR(PixelOf(At(polyline, 0)).x, 1960.0, 1e-9);
    EXPECT_NEAR(PixelOf(At(polyline, 4)).y, 380.0, 1e-9);
}

TEST_F(LineDensifyingTest, AGeodesicWithOneEndInPixelsIsDegrees) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, FloatPixel(1960, 420), GeodezRecord(52, -1)));
    ASSERT_EQ(polyline->GetCount(), 5u);
    for (std::uint32_t i = 0; i < 5; ++i)
        EXPECT_EQ(KoordAt(i).type, KOORD_GEODEZ);
    ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, Utm32(5e5, 5.3e6), FloatPixel(1790, 380)));
    EXPECT_EQ(KoordAt(0).type, KOORD_GEODEZ);
}

TEST_F(LineDensifyingTest, AGeodesicPassesNearEveryWayPoint) {
    map = DegreeMap(-180.0, 90.0, 10.0);
    std::string ends;
    std::vector<Pixel> pixels;
    for (const auto& row : testing::ReadReferenceFile("geometry/geodesic_way_points.txt")) {
        const std::string its = row.Text(0) + row.Text(1) + row.Text(2) + row.Text(3);
        if (its != ends) {
            ASSERT_TRUE(Densify(&ILinePoints::DensifyGeodesic, GeodezRecord(row.Number(0), row.Number(1)),
                                GeodezRecord(row.Number(2), row.Number(3))));
            pixels = PixelsOn(map, polyline);
            ends = its;
        }
        const Pixel way{(row.Number(6) + 180.0) * 10.0, (90.0 - row.Number(5)) * 10.0};
        // Pixels: twice the tolerance.
        EXPECT_LE(DistanceToPolyline(way, pixels), 0.5) << row.place;
    }
}

TEST_F(LineDensifyingTest, AStraightLineOfTheCoordinatesIsBentOnTheMap) {
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.3e6)));
    ASSERT_EQ(polyline->GetCount(), 3u);
    EXPECT_EQ(Load<UtmPayload>(KoordAt(1)).easting, 6e5);
    EXPECT_EQ(Load<UtmPayload>(KoordAt(1)).northing, 5.3e6);
    EXPECT_EQ(Load<UtmPayload>(KoordAt(1)).zone, 32);
}

TEST_F(LineDensifyingTest, AStraightLineOfTheMapIsBentInTheCoordinates) {
    ASSERT_TRUE(Densify(&ILinePoints::DensifyMapStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.3e6)));
    ASSERT_EQ(polyline->GetCount(), 3u);
    // cs2cs from +proj=utm +zone=32 to latitude and longitude, their means, and back
    EXPECT_NEAR(Load<UtmPayload>(KoordAt(1)).easting, 599972.7693, 0.002);  // metres
    EXPECT_NEAR(Load<UtmPayload>(KoordAt(1)).northing, 5299135.4400, 0.002);
    EXPECT_EQ(KoordAt(2).type, KOORD_UTM);
}

TEST_F(LineDensifyingTest, DegreesOnADegreeMapAreStraightAsTheyAre) {
    const IRef<ICoord> a = CoordOf(GeodezRecord(48, 9, 100.0));
    const IRef<ICoord> b = CoordOf(GeodezRecord(47, 12, 200.0));
    ASSERT_TRUE(lines->DensifyMapStraight(map.Get(), a.Get(), b.Get(), polyline.Get()));
    ASSERT_EQ(polyline->GetCount(), 2u);
    EXPECT_NE(At(polyline, 0).Get(), a.Get());
    EXPECT_NE(At(polyline, 1).Get(), b.Get());
    EXPECT_EQ(CountOf(a), 1u);
    EXPECT_EQ(Load<GeodezPayload>(KoordAt(0)).latitude, 48.0);
    EXPECT_EQ(Load<GeodezPayload>(KoordAt(1)).longitude, 12.0);
    EXPECT_EQ(At(polyline, 0)->GetHeight(), 100.0);
    EXPECT_EQ(At(polyline, 1)->GetHeight(), 200.0);
}

TEST_F(LineDensifyingTest, EntriesAreObjectsOfTheirOwn) {
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.3e6)));
    for (std::uint32_t i = 0; i < polyline->GetCount(); ++i) {
        EXPECT_EQ(CountOf(polyline->GetAt(i)), 1u);
        for (std::uint32_t j = 0; j < i; ++j)
            EXPECT_NE(polyline->GetAt(i), polyline->GetAt(j));
    }
    At(polyline, 1)->SetHeight(7.0);
    EXPECT_EQ(At(polyline, 0)->GetHeight(), 0.0);
    EXPECT_EQ(At(polyline, 2)->GetHeight(), 0.0);
}

TEST_F(LineDensifyingTest, EndsKeepTheirHeightsAndMiddlesHaveNone) {
    const IRef<ICoord> from = CoordOf(Utm32(5e5, 5.3e6));
    const IRef<ICoord> to = CoordOf(Utm32(7e5, 5.31e6));
    from->SetHeight(500.0);
    to->SetHeight(600.0);
    for (const Operation operation : {ON_MAP[0], ON_MAP[1], ON_MAP[3]}) {
        ASSERT_TRUE((lines.Get()->*operation)(map.Get(), from.Get(), to.Get(), polyline.Get()));
        const std::uint32_t last = polyline->GetCount() - 1;
        ASSERT_GT(last, 1u);
        EXPECT_EQ(At(polyline, 0)->GetHeight(), 500.0);
        EXPECT_EQ(At(polyline, last)->GetHeight(), 600.0);
        for (std::uint32_t i = 1; i < last; ++i)
            EXPECT_EQ(At(polyline, i)->GetHeight(), 0.0);
    }
}

TEST_F(LineDensifyingTest, AStraightLineOfEcefRunsThroughTheEarth) {
    const EcefPayload a{6378137.0, 0.0, 0.0};
    const EcefPayload b{0.0, 3189068.5, 5523628.0};
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Record(KOORD_ECEF, a), Record(KOORD_ECEF, b)));
    double lowest = 0.0;
    for (std::uint32_t i = 0; i < polyline->GetCount(); ++i)
        lowest = std::min(lowest, At(polyline, i)->GetHeight());
    // The middle is (3189068.5, 1594534.25, 2761814), 4510024 m from the centre. The ellipsoid is 6370000 m
    // from it there, within 8000 m.
    EXPECT_NEAR(lowest, 4510024.0 - 6370000.0, 9000.0);
}

TEST_F(LineDensifyingTest, PixelsAreStraightAsTheyAre) {
    ASSERT_TRUE(lines->SetPixelTolerance(0.0));
    for (const Operation operation : {ON_MAP[0], ON_MAP[1], ON_MAP[2]}) {
        ASSERT_TRUE(Densify(operation, LongPixel(3, 4), LongPixel(500, 600)));
        ASSERT_EQ(polyline->GetCount(), 2u);
        EXPECT_EQ(KoordAt(0).type, KOORD_LONGPIXEL);
        EXPECT_EQ(PixelOf(At(polyline, 1)).x, 500.0);
    }
}

TEST_F(LineDensifyingTest, EqualEndsAreAPolylineOfTwo) {
    for (const Operation operation : {ON_MAP[0], ON_MAP[1], ON_MAP[3]}) {
        ASSERT_TRUE(Densify(operation, Utm32(6e5, 5.3e6), Utm32(6e5, 5.3e6)));
        EXPECT_EQ(polyline->GetCount(), 2u);
    }
}

TEST_F(LineDensifyingTest, WhatIsStraightNeedsNoTolerance) {
    ASSERT_TRUE(lines->SetPixelTolerance(0.0));
    for (const Operation operation : {ON_MAP[0], ON_MAP[1]}) {
        // The middle of equal ends is that end, and its pixel the middle of theirs, bit for bit.
        ASSERT_TRUE(Densify(operation, Utm32(6e5, 5.3e6), Utm32(6e5, 5.3e6)));
        EXPECT_EQ(polyline->GetCount(), 2u);
    }
}

TEST_F(LineDensifyingTest, EndsOfTwoSystemsOrDatumsLeaveNothing) {
    for (const Operation operation : ON_MAP) {
        polyline->Add(lines.Get());
        if (operation != ON_MAP[3]) {  // a geodesic brings both ends to degrees
            EXPECT_FALSE(Densify(operation, Utm32(6e5, 5.3e6), GeodezRecord(48, 9)));
            EXPECT_EQ(polyline->GetCount(), 0u);
        }
        EXPECT_FALSE(Densify(operation, GeodezRecord(48, 9, 0.0, 3), GeodezRecord(48, 9)));
        EXPECT_EQ(polyline->GetCount(), 0u);
    }
}

TEST_F(LineDensifyingTest, ZonedMiddlesLieOnTheBorder) {
    // Along the west border of zone 32, 6 degrees east, from 46 to 54 north: the middle of the ends lies
    // inside the zone and moves onto the border.
    map = MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 200000.0, 6000000.0, 100.0, 100.0}));
    CKoord ends[2];
    for (int i = 0; i < 2; ++i) {
        const IRef<ICoord> coord = CoordOf(GeodezRecord(46.0 + 8.0 * i, 6.0 + 1e-7));
        ASSERT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UTM).Get()));
        ends[i] = KoordOf(coord);
    }
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraightZoned, ends[0], ends[1]));
    ASSERT_GT(polyline->GetCount(), 2u);
    for (std::uint32_t i = 0; i < polyline->GetCount(); ++i) {
        EXPECT_EQ(Load<UtmPayload>(KoordAt(i)).zone, 32);
        const IRef<ICoord> coord = At(polyline, i);
        ASSERT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_GEODEZ).Get()));
        EXPECT_NEAR(Load<GeodezPayload>(KoordAt(i)).longitude, 6.0, 1.1e-7);  // degrees
    }
}

TEST_F(LineDensifyingTest, ZonedPiecesAreHalvedUpToTheLimit) {
    // From the west border of zone 32 across its southern half into its middle: each middle jumps to a
    // border.
    ASSERT_TRUE(lines->SetPixelTolerance(0.0));
    map = MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 200000.0, 6000000.0, 100.0, 100.0}));
    ASSERT_TRUE(
        Densify(&ILinePoints::DensifyCoordStraightZoned, Utm32(280000.0, 5.1e6), Utm32(340000.0, 5.9e6)));
    EXPECT_EQ(polyline->GetCount(), 65u);
}

TEST_F(LineDensifyingTest, AMiddleOnTheCentralLineHasNoBorder) {
    EXPECT_FALSE(Densify(&ILinePoints::DensifyCoordStraightZoned, Utm32(4e5, 5.3e6), Utm32(6e5, 5.3e6)));
    EXPECT_EQ(polyline->GetCount(), 0u);
    EXPECT_FALSE(Densify(&ILinePoints::DensifyCoordStraightZoned, GeodezRecord(48, 9), GeodezRecord(47, 9)))
        << "no zones";
}

TEST_F(LineDensifyingTest, MapStraightMiddlesLieInTheArea) {
    // UTM ends at the northing of 84 degrees on its central meridian. Near the edge of a zone that northing
    // is reached some hundred metres further south, so the middle of these ends lies beyond.
    map = DegreeMap(6.0, 84.0, 10000.0);
    CKoord ends[2];
    for (int i = 0; i < 2; ++i) {
        const IRef<ICoord> coord = CoordOf(GeodezRecord(83.999, 6.1 + 0.9 * i));
        ASSERT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UTM).Get()));
        ends[i] = KoordOf(coord);
    }
    EXPECT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, ends[0], ends[1]));
    EXPECT_GT(polyline->GetCount(), 2u);
    EXPECT_FALSE(Densify(&ILinePoints::DensifyMapStraight, ends[0], ends[1]));
    EXPECT_EQ(polyline->GetCount(), 0u);
}

TEST_F(LineDensifyingTest, TransverseMercatorHasNoMiddles) {
    const tagKOORD tm = Record(KOORD_TM, TmPayload{9.0, 0.0, 500000.0, 0.0, 0.9996, 6e5, 5.3e6});
    for (const Operation operation : {ON_MAP[0], ON_MAP[1], ON_MAP[2]})
        EXPECT_FALSE(Densify(operation, tm, tm));
    EXPECT_FALSE(Across(tm, tm, 2, KOORD_GEODEZ));
    EXPECT_EQ(polyline->GetCount(), 0u);
    EXPECT_TRUE(Densify(&ILinePoints::DensifyGeodesic, tm, tm));
}

TEST_F(LineDensifyingTest, AnotherReferencesLineHasThirtyThreePoints) {
    ASSERT_TRUE(Across(GeodezRecord(48, 7), GeodezRecord(47, 11), 2, KOORD_UTM));
    ASSERT_EQ(polyline->GetCount(), 33u);
    EXPECT_EQ(Load<GeodezPayload>(KoordAt(0)).longitude, 7.0);
    EXPECT_EQ(Load<GeodezPayload>(KoordAt(32)).longitude, 11.0);
    // Every point lies on the straight line between the ends' eastings and northings.
    double easting[33], northing[33];
    for (std::uint32_t i = 0; i < 33; ++i) {
        const IRef<ICoord> coord = CoordOf(KoordAt(i));
        ASSERT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UTM).Get()));
        easting[i] = PayloadOf<UtmPayload>(coord).easting;
        northing[i] = PayloadOf<UtmPayload>(coord).northing;
    }
    for (std::uint32_t i = 1; i < 32; ++i) {
        // Metres; a conversion to and fro.
        EXPECT_NEAR(easting[i], easting[0] + i * (easting[32] - easting[0]) / 32.0, 1e-3);
        EXPECT_NEAR(northing[i], northing[0] + i * (northing[32] - northing[0]) / 32.0, 1e-3);
    }
}

TEST_F(LineDensifyingTest, ADifferenceOnOneAxisDividesAPiece) {
    // Along the equator the middles of degrees and of eastings both have the northing 0, along the central
    // meridian both have the easting 500000.
    ASSERT_TRUE(Across(Utm32(5e5, 0.0), Utm32(7e5, 0.0), 2, KOORD_GEODEZ));
    EXPECT_EQ(polyline->GetCount(), 33u);
    ASSERT_TRUE(Across(Utm32(5e5, 1e6), Utm32(5e5, 5e6), 2, KOORD_GEODEZ));
    EXPECT_EQ(polyline->GetCount(), 33u);
}

TEST_F(LineDensifyingTest, TheOwnReferencesLineIsItsEnds) {
    ASSERT_TRUE(Across(GeodezRecord(48, 7), GeodezRecord(47, 11), 2, KOORD_GEODEZ));
    EXPECT_EQ(polyline->GetCount(), 2u);
    ASSERT_TRUE(Across(Utm32(4e5, 5e6), Utm32(5e5, 5.1e6), 2, KOORD_UTM));
    EXPECT_EQ(polyline->GetCount(), 2u);
}

TEST_F(LineDensifyingTest, PixelsHaveNoOtherReference) {
    for (const auto& [a, b, system] : {std::tuple{FloatPixel(1, 2), FloatPixel(3, 4), KOORD_GEODEZ},
                                       std::tuple{GeodezRecord(1, 2), GeodezRecord(3, 4), KOORD_FLOATPIXEL},
                                       std::tuple{GeodezRecord(1, 2), GeodezRecord(3, 4), KOORD_LONGPIXEL},
                                       std::tuple{GeodezRecord(1, 2), GeodezRecord(3, 4, 0.0, 3), KOORD_UTM},
                                       std::tuple{GeodezRecord(1, 2), Utm32(5e5, 5e6), KOORD_UTM}}) {
        polyline->Add(lines.Get());
        EXPECT_FALSE(Across(a, b, 2, system));
        EXPECT_EQ(polyline->GetCount(), 0u);
    }
    const IRef<ICoord> coord = CoordOf(GeodezRecord(1, 2));
    for (const std::int32_t system : {23, 24, 99, -7}) {
        const auto reference = testing::MakeHostReference(2, system);
        EXPECT_FALSE(lines->DensifyInReference(coord.Get(), coord.Get(), reference.Get(), polyline.Get()));
    }
}

TEST_F(LineDensifyingTest, NumbersForNoReferenceAreTheLinesOwn) {
    const IRef<ICoord> a = CoordOf(GeodezRecord(48, 7));
    const IRef<ICoord> b = CoordOf(GeodezRecord(47, 11));
    const auto none = testing::MakeHostReference(NO_DATUM, NO_SYSTEM);
    ASSERT_TRUE(lines->DensifyInReference(a.Get(), b.Get(), none.Get(), polyline.Get()));
    EXPECT_EQ(polyline->GetCount(), 2u);
}

TEST_F(LineDensifyingTest, NullAndForeignObjectsLeaveThePolylineAlone) {
    const IRef<IUnknown> stranger = testing::MakeStranger();
    const IRef<ICoord> coord = CoordOf(Utm32(5e5, 5.3e6));
    const auto reference = ReferenceOf(2, KOORD_UTM);
    for (const Operation operation : ON_MAP) {
        const auto run = [&](IMapCoordOperations* m, ICoord* a, ICoord* b, IArray* out) {
            return (lines.Get()->*operation)(m, a, b, out);
        };
        for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
            EXPECT_FALSE(
                run(reinterpret_cast<IMapCoordOperations*>(other), coord.Get(), coord.Get(), polyline.Get()));
            EXPECT_FALSE(run(map.Get(), reinterpret_cast<ICoord*>(other), coord.Get(), polyline.Get()));
            EXPECT_FALSE(run(map.Get(), coord.Get(), reinterpret_cast<ICoord*>(other), polyline.Get()));
            EXPECT_FALSE(run(map.Get(), coord.Get(), coord.Get(), reinterpret_cast<IArray*>(other)));
        }
    }
    for (IUnknown* const other : {static_cast<IUnknown*>(nullptr), stranger.Get()}) {
        auto* const coordIn = reinterpret_cast<ICoord*>(other);
        auto* const referenceIn = reinterpret_cast<ICoordinateReference*>(other);
        auto* const arrayIn = reinterpret_cast<IArray*>(other);
        EXPECT_FALSE(lines->DensifyInReference(coordIn, coord.Get(), reference.Get(), polyline.Get()));
        EXPECT_FALSE(lines->DensifyInReference(coord.Get(), coordIn, reference.Get(), polyline.Get()));
        EXPECT_FALSE(lines->DensifyInReference(coord.Get(), coord.Get(), referenceIn, polyline.Get()));
        EXPECT_FALSE(lines->DensifyInReference(coord.Get(), coord.Get(), reference.Get(), arrayIn));
    }
    EXPECT_EQ(polyline->GetCount(), 1u);
    EXPECT_EQ(CountOf(coord), 1u);
    EXPECT_EQ(CountOf(stranger), 1u);
}

TEST_F(LineDensifyingTest, ACoordinateOfAHostHasNoRecord) {
    const IRef<ICoord> foreign(NewObject<testing::HostCoord>());
    const IRef<ICoord> coord = CoordOf(Utm32(5e5, 5.3e6));
    EXPECT_FALSE(lines->DensifyMapStraight(map.Get(), foreign.Get(), coord.Get(), polyline.Get()));
    EXPECT_EQ(polyline->GetCount(), 0u);
}

TEST_F(LineDensifyingTest, AnEmptyMapHasNoPixels) {
    map = IRef<IMapCoordOperations>(CreateClassMapCoordOperations());
    for (const Operation operation : ON_MAP) {
        EXPECT_FALSE(Densify(operation, GeodezRecord(48, 7), GeodezRecord(47, 11)));
        EXPECT_EQ(polyline->GetCount(), 0u);
    }
}

TEST_F(LineDensifyingTest, EndsWithoutNumbersEndTheWork) {
    for (const double bad : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e300}) {
        for (const Operation operation : ON_MAP) {
            Densify(operation, GeodezRecord(bad, 7), GeodezRecord(47, bad));
            EXPECT_LE(polyline->GetCount(), 129u);
            Densify(operation, Utm32(bad, 5.3e6), Utm32(5e5, bad));
            EXPECT_LE(polyline->GetCount(), 129u);
        }
        Across(Utm32(bad, 5.3e6), Utm32(5e5, bad), 3, KOORD_GK);
        EXPECT_LE(polyline->GetCount(), 33u);
    }
}

TEST_F(LineDensifyingTest, AnyRequestThatTheMapRefusesFailsTheLine) {
    const IRef<IMapCoordOperations> shown = map;
    const struct {
        Operation operation;
        CKoord a, b;
    } calls[] = {
        {&ILinePoints::DensifyMapStraight, CKoord(Utm32(5e5, 5.3e6)), CKoord(Utm32(7e5, 5.3e6))},
        {&ILinePoints::DensifyCoordStraight, CKoord(Utm32(5e5, 5.3e6)), CKoord(Utm32(7e5, 5.3e6))},
        {&ILinePoints::DensifyCoordStraightZoned, CKoord(Utm32(6e5, 5.3e6)), CKoord(Utm32(6e5, 5.4e6))},
        {&ILinePoints::DensifyGeodesic, CKoord(GeodezRecord(48, 7)), CKoord(GeodezRecord(49, 12))},
        {&ILinePoints::DensifyGeodesic, CKoord(FloatPixel(10, 20)), CKoord(FloatPixel(500, 30))}};
    for (const auto& [operation, a, b] : calls) {
        int nth = 0;
        bool hasFailed = true;
        while (hasFailed) {
            auto* const failing = NewObject<testing::RefusingMap>(shown, ++nth);
            map = IRef<IMapCoordOperations>(failing);
            polyline->Add(lines.Get());
            const bool isDone = Densify(operation, a, b);
            hasFailed = failing->HasRefused();
            EXPECT_EQ(isDone, !hasFailed) << nth;
            EXPECT_EQ(polyline->GetCount() == 0u, hasFailed) << nth;
        }
        EXPECT_GT(nth, 3);
    }
}

TEST_F(LineDensifyingTest, WithoutMemoryThePolylineIsEmptyOrTheExceptionPasses) {
    const IRef<ICoord> a = CoordOf(Utm32(5e5, 5.3e6));
    const IRef<ICoord> b = CoordOf(Utm32(7e5, 5.3e6));
    bool hasFailed = true;
    // Lets each allocation fail in turn, until none is left.
    for (int nth = 1; hasFailed; ++nth) {
        bool isDone = false;
        try {
            const testing::FailAllocation failure(nth);
            isDone = lines->DensifyCoordStraight(map.Get(), a.Get(), b.Get(), polyline.Get());
            hasFailed = failure.HasFailed();
        } catch (const std::bad_alloc&) {
            continue;
        }
        EXPECT_EQ(isDone, !hasFailed);
        if (!isDone && nth > 1) {
            EXPECT_LE(polyline->GetCount(), 1u);
        }
    }
    EXPECT_EQ(polyline->GetCount(), 3u);
    EXPECT_EQ(CountOf(a), 1u);
}

TEST_F(LineDensifyingTest, TheArgumentsMayBeTheResultsOwn) {
    ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, Utm32(5e5, 5.3e6), Utm32(7e5, 5.3e6)));
    // Both ends are held by nothing but the list, which is cleared first.
    auto* const first = static_cast<ICoord*>(At(polyline, 0).Get());
    auto* const last = static_cast<ICoord*>(At(polyline, 2).Get());
    ASSERT_TRUE(lines->DensifyCoordStraight(map.Get(), last, first, polyline.Get()));
    ASSERT_EQ(polyline->GetCount(), 3u);
    EXPECT_EQ(Load<UtmPayload>(KoordAt(0)).easting, 7e5);
}

// Random lines in degrees on sheets of several projections, each compared with the exact curve.
TEST_F(LineDensifyingTest, PolylinesFollowTheirCurves) {
    // Samples of the curve, spread over the pieces of the polyline.
    constexpr std::uint32_t SAMPLES = 1000;
    Random random(31);
    const IRef<IMapCoordOperations> sheets[] = {
        MapOf(testing::Map(MAP_UTM, MapUtmParams{'N', 32, 200000.0, 5800000.0, 100.0, 100.0})),
        MapOf(testing::WithReference(
            testing::Map(MAP_LAMBERT2, MapLambert2Params{46.0, 49.0, 13.33333333333333}),
            GeodezRecord(47.5, 13.33333333333333), 6000, 3600, 500000, 10.0))};
    for (const auto& sheet : sheets) {
        map = sheet;
        for (int round = 0; round < 10; ++round) {
            const GeodezPayload a{random.Between(46, 51), random.Between(6.5, 11.5), 0.0};
            const GeodezPayload b{random.Between(46, 51), random.Between(6.5, 11.5), 0.0};
            const tagKOORD ends[] = {GeodezRecord(a.latitude, a.longitude),
                                     GeodezRecord(b.latitude, b.longitude)};
            // Straight in degrees.
            ASSERT_TRUE(Densify(&ILinePoints::DensifyCoordStraight, ends[0], ends[1]));
            const auto pixels = PixelsOn(map, polyline);
            for (std::uint32_t k = 0; k <= SAMPLES; ++k) {
                const double t = static_cast<double>(k) / SAMPLES;
                const Pixel p = PixelOn(map, GeodezRecord(a.latitude + t * (b.latitude - a.latitude),
                                                          a.longitude + t * (b.longitude - a.longitude)));
                ASSERT_LE(DistanceToPolyline(p, pixels), 2.0 * 0.25);  // pixels: twice the tolerance
            }
            // Straight on the map: every point lies on the line between the ends' pixels, and between two
            // points the straight line of degrees stays near.
            ASSERT_TRUE(Densify(&ILinePoints::DensifyMapStraight, ends[0], ends[1]));
            const std::vector<Pixel> straight = {PixelOn(map, ends[0]), PixelOn(map, ends[1])};
            const std::uint32_t samplesOfAPiece = SAMPLES / (polyline->GetCount() - 1) + 1;
            for (std::uint32_t i = 0; i < polyline->GetCount(); ++i) {
                EXPECT_LE(DistanceToPolyline(PixelOn(map, KoordAt(i)), straight), 1e-4);  // pixels, 1 cm
                if (i == 0) continue;
                const auto from = Load<GeodezPayload>(KoordAt(i - 1));
                const auto to = Load<GeodezPayload>(KoordAt(i));
                for (std::uint32_t k = 1; k < samplesOfAPiece; ++k) {
                    const double t = static_cast<double>(k) / samplesOfAPiece;
                    const Pixel p =
                        PixelOn(map, GeodezRecord(from.latitude + t * (to.latitude - from.latitude),
                                                  from.longitude + t * (to.longitude - from.longitude)));
                    ASSERT_LE(DistanceToPolyline(p, straight), 2.0 * 0.25);
                }
            }
        }
    }
}

// UTM ends at 84 degrees north.
TEST_F(LineDensifyingTest, BothEndsNeedAPositionInTheReferenceOfTheLine) {
    const tagKOORD inside = GeodezRecord(83.0, 9.0);
    const tagKOORD outside = GeodezRecord(85.0, 9.0);
    EXPECT_TRUE(Across(inside, inside, DATUM_WGS84, KOORD_UTM));
    EXPECT_FALSE(Across(inside, outside, DATUM_WGS84, KOORD_UTM));
    EXPECT_EQ(polyline->GetCount(), 0u);
    EXPECT_FALSE(Across(outside, inside, DATUM_WGS84, KOORD_UTM));
    EXPECT_EQ(polyline->GetCount(), 0u);
}

}  // namespace
}  // namespace tessara
