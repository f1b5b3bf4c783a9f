#include "objects/coord.h"

#include <gtest/gtest.h>

#include <climits>
#include <cmath>

#include "numerics/special_values.h"
#include "records/default_koord.h"
#include "support/live_objects.h"
#include "support/reference_file.h"
#include "support/zoned_records.h"
#include "tessara/coordinate_init.h"
#include "tessara/kernel/convert.h"
#include "tessara/zone_coord_operations.h"

namespace tessara {
namespace {

using testing::AustrianRecord;
using testing::CountOf;
using testing::HeldPosition;
using testing::MakeHostReference;
using testing::SameRecord;
using testing::StripRecord;
using testing::UtmRecord;

constexpr double UNTOUCHED = 1e99;

CKoord LongPixel(std::int32_t datum, std::int32_t x, std::int32_t y) {
    return Record(KOORD_LONGPIXEL, LongPixelPayload{x, y}, datum);
}

CKoord FloatPixel(std::int32_t datum, double x, double y) {
    return Record(KOORD_FLOATPIXEL, FloatPixelPayload{x, y}, datum);
}

CKoord Geodez(std::int32_t datum, double latitude, double longitude, double height = 0.0) {
    return GeodezRecord(latitude, longitude, height, datum);
}

IRef<ICoordGeographic> MakeGeographic(double latitude, double longitude, double height = 0.0) {
    IRef<ICoordGeographic> geographic(CreateClassCoordGeographic());
    geographic->Set(longitude, latitude, height);
    return geographic;
}

class CoordTest : public testing::BalancedTest {
  protected:
    // Record and height, bit by bit.
    void ExpectUnchanged(const IRef<ICoord>& coord, const CKoord& before) {
        EXPECT_TRUE(SameRecord(KoordOf(coord), before));
        EXPECT_EQ(KoordOf(coord).GetHeight(), before.GetHeight());
    }

    IRef<IUnknown> stranger = testing::MakeStranger();
};

// A new coordinate.

TEST_F(CoordTest, StartsEmptyAtZeroOnWgs84) {
    const IRef<ICoord> coord(CreateClassCoord());
    double x = UNTOUCHED;
    double y = UNTOUCHED;
    EXPECT_FALSE(coord->GetPixel(&x, &y));
    EXPECT_EQ(x, UNTOUCHED);
    const auto geographic = MakeGeographic(1.0, 2.0, 3.0);
    EXPECT_FALSE(coord->GetGeographic(geographic.Get()));
    EXPECT_EQ(geographic->GetLatitude(), 1.0);
    EXPECT_TRUE(SameRecord(KoordOf(coord), MakeKoord(2, 4)));
    EXPECT_EQ(coord->GetHeight(), 0.0);
    EXPECT_FALSE(HeldPosition(coord));
}

TEST_F(CoordTest, HasOneIdentityAndTwoFaces) {
    const IRef<ICoord> coord(CreateClassCoord());
    const IRef<ICoordInternal> internal(coord);
    ASSERT_TRUE(internal.IsValid());
    EXPECT_EQ(IRef<IUnknown>(internal).Get(), IRef<IUnknown>(coord).Get());
    EXPECT_EQ(IRef<ICoord>(internal).Get(), coord.Get());
    EXPECT_EQ(CountOf(coord), 2u);
}

// Pixels.

TEST_F(CoordTest, SetPixelMakesAFloatPixelOnTheOldDatum) {
    const IRef<ICoord> coord = EmptyCoord(3, KOORD_UTM);
    coord->SetHeight(12.5);
    EXPECT_TRUE(coord->SetPixel(1.5, -2.5));
    EXPECT_EQ(KoordOf(coord).datum, 3u);
    EXPECT_EQ(KoordOf(coord).type, 1u);
    double x = UNTOUCHED;
    double y = UNTOUCHED;
    EXPECT_TRUE(coord->GetPixel(&x, &y)) << "it is valid now";
    EXPECT_EQ(x, 1.5);
    EXPECT_EQ(y, -2.5);
    EXPECT_EQ(coord->GetHeight(), 12.5);
}

TEST_F(CoordTest, SetPixelTakesAnything) {
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(coord->SetPixel(NOT_A_NUMBER, -INFINITE));
    double x = UNTOUCHED;
    double y = UNTOUCHED;
    EXPECT_TRUE(coord->GetPixel(&x, &y));
    EXPECT_TRUE(std::isnan(x));
    EXPECT_EQ(y, -INFINITE);
}

TEST_F(CoordTest, GetPixelGivesWholePixelsAsDoubles) {
    const IRef<ICoord> coord = CoordOf(LongPixel(2, INT_MIN, INT_MAX));
    double x = UNTOUCHED;
    double y = UNTOUCHED;
    EXPECT_TRUE(coord->GetPixel(&x, &y));
    EXPECT_EQ(x, -2147483648.0);
    EXPECT_EQ(y, 2147483647.0);
}

TEST_F(CoordTest, GetPixelIsForPixelsOnly) {
    for (std::int32_t system = -1; system <= 24; ++system) {
        if (system == KOORD_LONGPIXEL || system == KOORD_FLOATPIXEL) continue;
        double x = UNTOUCHED;
        double y = UNTOUCHED;
        EXPECT_FALSE(CoordOf(CKoord(MakeKoord(2, system)))->GetPixel(&x, &y)) << system;
        EXPECT_EQ(x, UNTOUCHED);
        EXPECT_EQ(y, UNTOUCHED);
    }
}

TEST_F(CoordTest, GetPixelRefusesNull) {
    const IRef<ICoord> coord = CoordOf(FloatPixel(2, 1.0, 2.0));
    double value = UNTOUCHED;
    EXPECT_FALSE(coord->GetPixel(nullptr, &value));
    EXPECT_FALSE(coord->GetPixel(&value, nullptr));
    EXPECT_FALSE(coord->GetPixel(nullptr, nullptr));
    EXPECT_EQ(value, UNTOUCHED);
}

// Heights.

TEST_F(CoordTest, HasAHeightWithOrWithoutAPosition) {
    const IRef<ICoord> empty(CreateClassCoord());
    EXPECT_TRUE(empty->SetHeight(12.5));
    EXPECT_EQ(empty->GetHeight(), 12.5);
    EXPECT_EQ(PayloadOf<GeodezPayload>(empty).height, 12.5);
    EXPECT_FALSE(HeldPosition(empty));

    const IRef<ICoord> utm = CoordOf(UtmRecord(2, 'N', 32, 5e5, 0.0));
    EXPECT_TRUE(utm->SetHeight(-INFINITE));
    EXPECT_EQ(utm->GetHeight(), -INFINITE);
    EXPECT_TRUE(utm->SetHeight(NOT_A_NUMBER));
    EXPECT_TRUE(std::isnan(utm->GetHeight()));
}

TEST_F(CoordTest, WithoutAPositionTheHeightIsZeroInEverySystem) {
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        for (std::int32_t system = 0; system <= KOORD_LUREF; ++system)
            EXPECT_EQ(EmptyCoord(datum, system)->GetHeight(), 0.0) << datum << ' ' << system;
    }
}

// Out to WGS84 degrees.

TEST_F(CoordTest, GetGeographicGivesAWgs84PositionAsItStands) {
    // Nothing is tested or wrapped on this road.
    for (const auto& [latitude, longitude] : {std::pair{48.2, 16.37}, {-91.0, 361.0}, {1e300, -INFINITE}}) {
        const auto geographic = MakeGeographic(7.0, 7.0, 7.0);
        EXPECT_TRUE(CoordOf(Geodez(2, latitude, longitude, 171.5))->GetGeographic(geographic.Get()));
        EXPECT_EQ(geographic->GetLatitude(), latitude);
        EXPECT_EQ(geographic->GetLongitude(), longitude);
        EXPECT_EQ(geographic->GetHeight(), 171.5);
        EXPECT_EQ(CountOf(geographic), 1u);
    }
}

// The figures are exact to a nanometre; the inverse series is good for 1.2e-11 degrees of latitude, which is
// up to ten times as much in longitude where UTM ends.
constexpr double DEGREES_TOLERANCE = 1e-10;

TEST_F(CoordTest, GetGeographicConverts) {
    for (const auto& row : testing::ReadReferenceFile("kernel/utm.txt")) {
        const std::string zone = row.Text(2);
        CKoord utm = UtmRecord(2, zone.back() == 'n' ? 'N' : 'S', static_cast<std::int16_t>(std::stoi(zone)),
                               row.Number(3), row.Number(4));
        utm.SetHeight(171.5);
        const auto geographic = MakeGeographic(7.0, 7.0, 7.0);
        EXPECT_TRUE(CoordOf(utm)->GetGeographic(geographic.Get())) << row.place;
        EXPECT_NEAR(geographic->GetLatitude(), row.Number(0), DEGREES_TOLERANCE) << row.place;
        EXPECT_NEAR(geographic->GetLongitude(), row.Number(1), DEGREES_TOLERANCE) << row.place;
        EXPECT_EQ(geographic->GetHeight(), 171.5) << "of the coordinate, not of the conversion";
    }
}

TEST_F(CoordTest, TheHeightCrossesADatumUnchanged) {
    const auto geographic = MakeGeographic(7.0, 7.0, 7.0);
    EXPECT_TRUE(CoordOf(Geodez(3, 50.0, 9.0, 171.5))->GetGeographic(geographic.Get()));
    EXPECT_EQ(geographic->GetHeight(), 171.5);
    EXPECT_NE(geographic->GetLatitude(), 50.0);
    EXPECT_NE(geographic->GetLongitude(), 9.0);
}

TEST_F(CoordTest, GetGeographicFailsAndWritesNothing) {
    const auto geographic = MakeGeographic(1.0, 2.0, 3.0);
    const CKoord hopeless[] = {
        LongPixel(2, 1, 2),
        FloatPixel(2, 1.0, 2.0),
        UtmRecord(2, 'N', 61, 5e5, 0.0),
        UtmRecord(239, 'N', 32, 5e5, 0.0),
        Geodez(999, 1.0, 2.0),
        AustrianRecord(6, KOORD_BMN, 29, 4e5, 2e5),
        CKoord(MakeKoord(2, 24)),
    };
    for (const CKoord& record : hopeless) {
        const IRef<ICoord> coord = CoordOf(record);
        EXPECT_FALSE(coord->GetGeographic(geographic.Get())) << record.type;
        ExpectUnchanged(coord, record);
    }
    EXPECT_EQ(geographic->GetLongitude(), 2.0);
    EXPECT_EQ(geographic->GetLatitude(), 1.0);
    EXPECT_EQ(geographic->GetHeight(), 3.0);
}

TEST_F(CoordTest, GetGeographicIsForGeographicObjectsOnly) {
    const IRef<ICoord> coord = CoordOf(Geodez(2, 1.0, 2.0));
    EXPECT_FALSE(coord->GetGeographic(nullptr));
    EXPECT_FALSE(coord->GetGeographic(testing::Disguised<ICoordGeographic>(stranger)));
    EXPECT_EQ(CountOf(stranger), 1u);
}

TEST_F(CoordTest, GetGeographicEndsOnAnyRecord) {
    TmPayload flat{};  // scale 0
    flat.easting = 1.0;
    const CKoord records[] = {
        Record(KOORD_TM, flat, 2),
        UtmRecord(2, 'N', 32, 1e300, 0.0),
        UtmRecord(2, 'N', 32, NOT_A_NUMBER, INFINITE),
        StripRecord(3, KOORD_GK, NOT_A_NUMBER, 0.0),
        Geodez(3, NOT_A_NUMBER, INFINITE),
    };
    for (const CKoord& record : records)
        (void)CoordOf(record)->GetGeographic(MakeGeographic(0.0, 0.0).Get());
}

// In from WGS84 degrees.

TEST_F(CoordTest, SetGeographicTakesAWgs84PositionAsItStands) {
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_TRUE(coord->SetGeographic(MakeGeographic(-91.0, 361.0, 171.5).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), Geodez(2, -91.0, 361.0, 171.5)));
    EXPECT_EQ(coord->GetHeight(), 171.5);
    EXPECT_TRUE(HeldPosition(coord));
}

TEST_F(CoordTest, SetGeographicConverts) {
    for (const auto& row : testing::ReadReferenceFile("kernel/utm.txt")) {
        const IRef<ICoord> coord = EmptyCoord(2, KOORD_UTM);
        EXPECT_TRUE(coord->SetGeographic(MakeGeographic(row.Number(0), row.Number(1), 171.5).Get()));
        const auto utm = PayloadOf<UtmPayload>(coord);
        const std::string zone = row.Text(2);
        EXPECT_EQ(utm.hemisphere, zone.back() == 'n' ? 'N' : 'S') << row.place;
        EXPECT_EQ(utm.zone, std::stoi(zone)) << row.place;
        EXPECT_NEAR(utm.easting, row.Number(3), 5e-6) << row.place << " (metres, the accuracy of the series)";
        EXPECT_NEAR(utm.northing, row.Number(4), 5e-6) << row.place;
        EXPECT_EQ(coord->GetHeight(), 171.5);
        EXPECT_TRUE(HeldPosition(coord));
    }
}

TEST_F(CoordTest, SetGeographicFindsTheNaturalZone) {
    const auto wanting = [](CKoord record, std::size_t offset, std::int16_t wanted) {
        std::memcpy(record.payload + offset, &wanted, sizeof wanted);
        return record;
    };
    // Wanted before: a zone or meridian that is legal and isn't the natural one at 9.2 or 13.0 degrees east.
    const struct {
        CKoord record;
        double latitude, longitude;
        std::int32_t zone;
    } rows[] = {
        {wanting(UtmRecord(2, 'N', 40, 5e5, 0.0), 2, 40), 50.0, 9.2, 32},
        {wanting(StripRecord(3, KOORD_GK, 4.5e6, 5e6), 2, 12), 50.0, 9.2, 3},
        {wanting(StripRecord(3, KOORD_GK, 4.5e6, 5e6), 2, 0), 50.0, 9.2, 3},
        {wanting(StripRecord(3, KOORD_GK6, 4.5e6, 5e6), 2, 15), 50.0, 9.2, 2},
        {wanting(AustrianRecord(6, KOORD_BMN, 34, 5e5, 2e5), 0, 34), 47.0, 13.0, 31},
        {wanting(AustrianRecord(6, KOORD_OEM, 34, 5e5, 2e5), 0, 34), 47.0, 13.0, 31},
        {wanting(AustrianRecord(6, KOORD_GKAT, 34, 5e5, 2e5), 0, 34), 47.0, 13.0, 31},
    };
    const IRef<IZoneCoordOperations> zones(CreateClassZoneCoordOperations());
    for (const auto& row : rows) {
        const IRef<ICoord> coord = CoordOf(row.record);
        EXPECT_TRUE(coord->SetGeographic(MakeGeographic(row.latitude, row.longitude).Get()))
            << row.record.type;
        EXPECT_EQ(zones->GetZoneNumber(coord.Get()), row.zone) << row.record.type;
    }
}

TEST_F(CoordTest, SetGeographicKeepsTheParametersOfAFreeProjection) {
    TmPayload tm{};
    tm.originLongitude = 9.0;
    tm.originLatitude = 0.0;
    tm.falseEasting = 100.0;
    tm.falseNorthing = 200.0;
    tm.scale = 1.0;
    const IRef<ICoord> coord = CoordOf(Record(KOORD_TM, tm, 2));
    EXPECT_TRUE(coord->SetGeographic(MakeGeographic(0.0, 9.0).Get()));
    const auto result = PayloadOf<TmPayload>(coord);
    EXPECT_EQ(result.originLongitude, 9.0);
    EXPECT_EQ(result.falseEasting, 100.0);
    EXPECT_EQ(result.falseNorthing, 200.0);
    EXPECT_EQ(result.scale, 1.0);
    EXPECT_NEAR(result.easting, 100.0, 1e-8) << "metres: the origin, up to the rounding of the series";
    EXPECT_NEAR(result.northing, 200.0, 1e-8);
}

TEST_F(CoordTest, SetGeographicThatFailsLeavesTheCoordinateEmpty) {
    const struct {
        CKoord record;
        double latitude, longitude;
    } rows[] = {
        {UtmRecord(2, 'N', 32, 5e5, 0.0), 84.5, 9.0},  // north of UTM
        {AustrianRecord(6, KOORD_BMN, 31, 5e5, 2e5), 52.5, 13.0},
        {LongPixel(2, 1, 2), 50.0, 9.0},
        {FloatPixel(2, 1.0, 2.0), 50.0, 9.0},
        {Geodez(999, 1.0, 2.0), 50.0, 9.0},
        {CKoord(MakeKoord(2, KOORD_LAMBERTCC)), 50.0, 9.0},
        {UtmRecord(2, 'N', 32, 5e5, 0.0), NOT_A_NUMBER, 9.0},
        {UtmRecord(2, 'N', 32, 5e5, 0.0), 50.0, INFINITE},
    };
    for (const auto& row : rows) {
        const IRef<ICoord> coord = CoordOf(row.record);
        EXPECT_FALSE(coord->SetGeographic(MakeGeographic(row.latitude, row.longitude).Get()))
            << row.record.type;
        EXPECT_EQ(KoordOf(coord).datum, row.record.datum);
        EXPECT_EQ(KoordOf(coord).type, row.record.type);
        EXPECT_FALSE(HeldPosition(coord)) << row.record.type;
    }
}

TEST_F(CoordTest, SetGeographicOfNothingLeavesTheRecordWithoutAPosition) {
    for (ICoordGeographic* wrong :
         {static_cast<ICoordGeographic*>(nullptr), testing::Disguised<ICoordGeographic>(stranger)}) {
        const IRef<ICoord> coord = CoordOf(UtmRecord(2, 'N', 32, 5e5, 1.0));
        EXPECT_FALSE(coord->SetGeographic(wrong));
        ExpectUnchanged(coord, UtmRecord(2, 'N', 32, 5e5, 1.0));
        EXPECT_FALSE(HeldPosition(coord));
    }
    EXPECT_EQ(CountOf(stranger), 1u);
}

// The reference.

TEST_F(CoordTest, TellsItsReferenceWithOrWithoutAPosition) {
    const IRef<ICoord> coords[] = {EmptyCoord(3, KOORD_BNG), CoordOf(CKoord(MakeKoord(3, KOORD_BNG)))};
    for (const auto& coord : coords) {
        const auto reference = ReferenceOf(5, 5);
        EXPECT_TRUE(coord->GetReference(reference.Get()));
        EXPECT_EQ(reference->GetDatum(), 3);
        EXPECT_EQ(reference->GetSystem(), KOORD_BNG);
        EXPECT_EQ(CountOf(reference), 1u);
    }
}

TEST_F(CoordTest, TellsNoReferenceThatNoneTakes) {
    const auto reference = ReferenceOf(5, 5);
    EXPECT_FALSE(CoordOf(CKoord(MakeKoord(500, KOORD_UTM)))->GetReference(reference.Get()));
    EXPECT_EQ(reference->GetDatum(), 5);
    EXPECT_EQ(reference->GetSystem(), 5);
    EXPECT_FALSE(CoordOf(CKoord(MakeKoord(3, 24)))->GetReference(reference.Get()));
    EXPECT_EQ(reference->GetDatum(), 3) << "the datum comes first";
    EXPECT_EQ(reference->GetSystem(), 5);
    EXPECT_TRUE(CoordOf(CKoord(MakeKoord(999, -1)))->GetReference(reference.Get()));
    EXPECT_EQ(reference->GetDatum(), 999);
    EXPECT_EQ(reference->GetSystem(), -1);
}

TEST_F(CoordTest, TellsItsReferenceToReferencesOnly) {
    const IRef<ICoord> coord = EmptyCoord(3, KOORD_BNG);
    EXPECT_FALSE(coord->GetReference(nullptr));
    EXPECT_FALSE(coord->GetReference(testing::Disguised<ICoordinateReference>(stranger)));
    EXPECT_FALSE(coord->GetReference(MakeHostReference(2, 4).Get())) << "one that takes no numbers";
    EXPECT_EQ(CountOf(stranger), 1u);
}

// Into another reference: nothing to do, or nothing to do it with.

TEST_F(CoordTest, SetReferenceToTheSameChangesNothing) {
    CKoord utm = UtmRecord(3, 'n', 77, NOT_A_NUMBER, -1.0);
    utm.SetHeight(12.5);
    const IRef<ICoord> coord = CoordOf(utm);
    EXPECT_TRUE(coord->SetReference(ReferenceOf(3, KOORD_UTM).Get()));
    ExpectUnchanged(coord, utm);
    EXPECT_TRUE(HeldPosition(coord));

    const IRef<ICoord> empty(CreateClassCoord());
    EXPECT_TRUE(empty->SetReference(ReferenceOf(2, KOORD_GEODEZ).Get()));
    EXPECT_FALSE(HeldPosition(empty));
}

TEST_F(CoordTest, SetReferenceToNothingFails) {
    const CKoord utm = UtmRecord(3, 'N', 32, 5e5, 1.0);
    const IRef<ICoord> coord = CoordOf(utm);
    EXPECT_FALSE(coord->SetReference(nullptr));
    EXPECT_FALSE(coord->SetReference(testing::Disguised<ICoordinateReference>(stranger)));
    ExpectUnchanged(coord, utm);
    EXPECT_TRUE(HeldPosition(coord));
    EXPECT_EQ(CountOf(stranger), 1u);
}

// Pixels into pixels.

TEST_F(CoordTest, AWholePixelBecomesAFractionalOne) {
    const IRef<ICoord> coord = CoordOf(LongPixel(2, 10, INT_MIN));
    EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_FLOATPIXEL).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(coord), FloatPixel(2, 10.0, -2147483648.0)));
    EXPECT_TRUE(HeldPosition(coord));
}

TEST_F(CoordTest, AFractionalPixelIsRoundedHalfAwayFromZero) {
    const struct {
        double value;
        std::int32_t rounded;
    } rows[] = {
        {2.5, 3},
        {-2.5, -3},
        {0.0, 0},
        {-0.0, 0},
        {0.5, 1},
        {-0.5, -1},
        {0.49, 0},
        {-0.49, 0},
        {2.4999, 2},
        {1.5, 2},
        {-1.5, -2},
        {7.0, 7},
        {2147483647.0, INT_MAX},
        {-2147483648.0, INT_MIN},
        // What no integer holds.
        {2147483647.5, INT_MIN},
        {-2147483648.5, INT_MIN},
        {1e300, INT_MIN},
        {NOT_A_NUMBER, INT_MIN},
        {INFINITE, INT_MIN},
        {-INFINITE, INT_MIN},
    };
    for (const auto& row : rows) {
        const IRef<ICoord> coord = CoordOf(FloatPixel(2, row.value, -7.25));
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_LONGPIXEL).Get()));
        EXPECT_TRUE(SameRecord(KoordOf(coord), LongPixel(2, row.rounded, -7))) << row.value;
        const IRef<ICoord> turned = CoordOf(FloatPixel(2, -7.25, row.value));
        EXPECT_TRUE(turned->SetReference(ReferenceOf(3, KOORD_LONGPIXEL).Get())) << "also onto another datum";
        EXPECT_TRUE(SameRecord(KoordOf(turned), LongPixel(3, -7, row.rounded))) << row.value;
    }
}

TEST_F(CoordTest, APixelGoesToAnotherDatumAsItIs) {
    const IRef<ICoord> whole = CoordOf(LongPixel(2, 10, -7));
    EXPECT_TRUE(whole->SetReference(ReferenceOf(3, KOORD_LONGPIXEL).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(whole), LongPixel(3, 10, -7)));
    const IRef<ICoord> extreme = CoordOf(LongPixel(2, INT_MAX, INT_MIN));
    EXPECT_TRUE(extreme->SetReference(ReferenceOf(3, KOORD_LONGPIXEL).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(extreme), LongPixel(3, INT_MAX, INT_MIN)));
    const IRef<ICoord> fractional = CoordOf(FloatPixel(2, 2.5, -1e300));
    EXPECT_TRUE(fractional->SetReference(ReferenceOf(3, KOORD_FLOATPIXEL).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(fractional), FloatPixel(3, 2.5, -1e300)));
    const IRef<ICoord> both = CoordOf(LongPixel(2, 10, -7));
    EXPECT_TRUE(both->SetReference(ReferenceOf(3, KOORD_FLOATPIXEL).Get()));
    EXPECT_TRUE(SameRecord(KoordOf(both), FloatPixel(3, 10.0, -7.0)));
}

TEST_F(CoordTest, APixelThatChangesItsFormLosesItsHeight) {
    const IRef<ICoord> coord = CoordOf(LongPixel(2, 10, -7));
    coord->SetHeight(12.5);
    EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_FLOATPIXEL).Get()));
    EXPECT_EQ(coord->GetHeight(), 0.0);
}

// Between pixels and the world.

TEST_F(CoordTest, NoPositionCrossesFromTheWorldToPixels) {
    for (const std::int32_t pixel : {KOORD_LONGPIXEL, KOORD_FLOATPIXEL}) {
        const IRef<ICoord> coord = CoordOf(UtmRecord(3, 'N', 32, 5e5, 1.0));
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, pixel).Get()));
        EXPECT_TRUE(SameRecord(KoordOf(coord), MakeKoord(2, pixel))) << "the default pixel";
        EXPECT_FALSE(HeldPosition(coord));
    }
}

TEST_F(CoordTest, NoPositionCrossesFromPixelsToTheWorld) {
    for (const CKoord& pixel : {LongPixel(3, 10, 20), FloatPixel(3, 10.0, 20.0)}) {
        const IRef<ICoord> coord = CoordOf(pixel);
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UTM).Get()));
        EXPECT_TRUE(SameRecord(KoordOf(coord), UtmRecord(2, 'N', 30, 5e5, 0.0)));
        EXPECT_FALSE(HeldPosition(coord));
    }
}

TEST_F(CoordTest, APixelIsLostToASystemWithoutADefaultToo) {
    const IRef<ICoord> coord = CoordOf(FloatPixel(3, 10.0, 20.0));
    EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_LAMBERTCC).Get()));
    EXPECT_EQ(KoordOf(coord).type, 23u);
    EXPECT_EQ(BytesAs<FloatPixelPayload>(KoordOf(coord)).x, 10.0) << "relabelled only";
    EXPECT_FALSE(HeldPosition(coord));
}

// Without a position.

TEST_F(CoordTest, AnEmptyCoordinateTakesAnyReferenceAndItsDefaultRecord) {
    for (std::int32_t system = 0; system <= 22; ++system) {
        for (const std::int32_t datum : {3, 999}) {
            const IRef<ICoord> coord(CreateClassCoord());
            coord->SetHeight(12.5);
            EXPECT_TRUE(coord->SetReference(ReferenceOf(datum, system).Get())) << system;
            CKoord expected;
            ASSERT_TRUE(DefaultKoord(datum, system, &expected));
            ExpectUnchanged(coord, expected);
            EXPECT_FALSE(HeldPosition(coord)) << system;
        }
    }
}

TEST_F(CoordTest, AnEmptyCoordinateIsRelabelledWhereThereIsNoDefault) {
    const struct {
        std::int32_t datum, system;
    } rows[] = {{3, 23}, {3, -1}, {999, -1}, {500, KOORD_UTM}, {-1, KOORD_UTM}, {2, 24}, {2, INT_MAX}};
    for (const auto& row : rows) {
        const IRef<ICoord> coord = EmptyCoord(2, KOORD_CH);
        coord->SetHeight(12.5);
        EXPECT_TRUE(coord->SetReference(MakeHostReference(row.datum, row.system).Get()));
        EXPECT_EQ(KoordOf(coord).datum, static_cast<std::uint32_t>(row.datum));
        EXPECT_EQ(KoordOf(coord).type, static_cast<std::uint32_t>(row.system));
        EXPECT_EQ(BytesAs<GridPayload>(KoordOf(coord)).easting, 600000.0) << "the payload stays";
        EXPECT_EQ(coord->GetHeight(), 12.5);
        EXPECT_FALSE(HeldPosition(coord));
    }
}

// With a position.

TEST_F(CoordTest, APositionIsConverted) {
    for (const auto& row : testing::ReadReferenceFile("kernel/utm.txt")) {
        const IRef<ICoord> coord = CoordOf(Geodez(2, row.Number(0), row.Number(1), 171.5));
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_UTM).Get())) << row.place;
        const auto utm = PayloadOf<UtmPayload>(coord);
        EXPECT_EQ(utm.zone, std::stoi(row.Text(2))) << row.place;
        EXPECT_NEAR(utm.easting, row.Number(3), 5e-6) << row.place << " (metres, the accuracy of the series)";
        EXPECT_NEAR(utm.northing, row.Number(4), 5e-6) << row.place;
        EXPECT_EQ(utm.wantedZone, -1000) << "the default of the system";
        EXPECT_EQ(coord->GetHeight(), 171.5);

        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_GEODEZ).Get())) << row.place;
        const auto back = PayloadOf<GeodezPayload>(coord);
        EXPECT_NEAR(back.latitude, row.Number(0), DEGREES_TOLERANCE) << row.place;
        EXPECT_NEAR(back.longitude, row.Number(1), DEGREES_TOLERANCE) << row.place;
        EXPECT_EQ(back.height, 171.5) << "the height is in the payload again";
        EXPECT_TRUE(HeldPosition(coord));
    }
}

TEST_F(CoordTest, APositionChangesItsDatumButNotItsHeight) {
    const CKoord start = Geodez(2, 50.0, 9.0, 171.5);
    const IRef<ICoord> coord = CoordOf(start);
    EXPECT_TRUE(coord->SetReference(ReferenceOf(3, KOORD_GEODEZ).Get()));
    tagKOORD shifted = MakeKoord(3, KOORD_GEODEZ);
    ASSERT_EQ(KoordConvert(&start, &shifted), KOORD_OK);
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, Load<GeodezPayload>(shifted).latitude);
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).longitude, Load<GeodezPayload>(shifted).longitude);
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).height, 171.5);
    EXPECT_EQ(coord->GetHeight(), 171.5);
}

TEST_F(CoordTest, TheParametersOfAFreeProjectionAreItsDefaults) {
    const IRef<ICoord> coord = CoordOf(Geodez(2, 0.0, 0.0));
    EXPECT_TRUE(coord->SetReference(ReferenceOf(2, KOORD_TM).Get()));
    const auto tm = PayloadOf<TmPayload>(coord);
    EXPECT_EQ(tm.scale, 1.0);
    EXPECT_EQ(tm.originLongitude, 0.0);
    EXPECT_NEAR(tm.easting, 0.0, 1e-8) << "metres: the origin, up to the rounding of the series";
    EXPECT_NEAR(tm.northing, 0.0, 1e-8);
}

TEST_F(CoordTest, AHeightOutlivesAFormWithoutRoomForIt) {
    const IRef<ICoord> coord = CoordOf(Geodez(2, 50.0, 9.0, 171.5));
    for (const std::int32_t system : {KOORD_GEOGRAD, KOORD_GK, KOORD_GEODEZMIN, KOORD_UTM, KOORD_GEODEZ}) {
        EXPECT_TRUE(coord->SetReference(ReferenceOf(2, system).Get())) << system;
        EXPECT_EQ(coord->GetHeight(), 171.5) << system;
    }
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).height, 171.5);
}

// The default record of ECEF is the earth's centre at the height 0.0; x, y and z alone would make that a
// height of 6356 km below the pole.
TEST_F(CoordTest, TheCentreOfTheEarthLeavesWithTheHeightItWasGiven) {
    const IRef<ICoord> coord = EmptyCoord(3, KOORD_ECEF);
    EXPECT_TRUE(IRef<ICoordinateInit>(CreateClassCoordinateInit())->InitCoord(coord.Get()));
    EXPECT_TRUE(coord->SetReference(ReferenceOf(3, KOORD_GEODEZ).Get()));
    EXPECT_EQ(PayloadOf<GeodezPayload>(coord).latitude, 90.0);
    EXPECT_EQ(coord->GetHeight(), 0.0);
}

TEST_F(CoordTest, SetReferenceThatFailsChangesNothing) {
    CKoord northOfUtm = Geodez(2, 84.5, 9.0, 171.5);
    CKoord anywhere = UtmRecord(2, 'N', 32, 5e5, 6e6);  // 54 degrees north
    anywhere.SetHeight(12.5);
    const struct {
        CKoord record;
        std::int32_t datum, system;
    } rows[] = {
        {northOfUtm, 2, KOORD_UTM},
        {anywhere, 6, KOORD_BMN},  // north of Austria
        {anywhere, 2, KOORD_LAMBERTCC},
        {anywhere, 2, -1},
        {anywhere, 2, 24},
        {anywhere, 999, KOORD_GEODEZ},
        {anywhere, 500, KOORD_GEODEZ},
        {UtmRecord(2, 'N', 61, 5e5, 5e6), 2, KOORD_GEODEZ},
        {AustrianRecord(6, KOORD_BMN, 29, 5e5, 2e5), 2, KOORD_GEODEZ},
        {CKoord(MakeKoord(999, KOORD_GEODEZ)), 2, KOORD_GEODEZ},
        {CKoord(MakeKoord(2, -1)), 2, KOORD_GEODEZ},
    };
    for (const auto& row : rows) {
        const IRef<ICoord> coord = CoordOf(row.record);
        EXPECT_FALSE(coord->SetReference(MakeHostReference(row.datum, row.system).Get()))
            << row.datum << ' ' << row.system;
        ExpectUnchanged(coord, row.record);
        EXPECT_TRUE(HeldPosition(coord));
    }
}

// The record.

TEST_F(CoordTest, SetKoordTakesRecordAndHeightAndMakesItValid) {
    CKoord utm = UtmRecord(3, 'S', 5, -1.0, NOT_A_NUMBER);
    utm.SetHeight(12.5);
    auto* const fresh = NewObject<Coord>();
    const IRef<ICoord> coord(static_cast<ICoord*>(fresh));
    EXPECT_TRUE(fresh->SetKoord(&utm));
    ExpectUnchanged(coord, utm);
    EXPECT_TRUE(HeldPosition(coord));
}

TEST_F(CoordTest, SetKoordOfNullFails) {
    const IRef<ICoord> coord(CreateClassCoord());
    EXPECT_FALSE(IRef<ICoordInternal>(coord)->SetKoord(nullptr));
    ExpectUnchanged(coord, CKoord());
    EXPECT_FALSE(HeldPosition(coord));
}

TEST_F(CoordTest, GetKoordGivesTheRecordOfAnEmptyCoordinateToo) {
    const IRef<ICoordInternal> coord(EmptyCoord(3, KOORD_UTM));
    CKoord koord;
    EXPECT_TRUE(coord->GetKoord(&koord));
    EXPECT_TRUE(SameRecord(koord, UtmRecord(3, 'N', 30, 5e5, 0.0)));
    EXPECT_FALSE(coord->GetKoord(nullptr));
}

// Arguments of count 0 are deleted at the end of the operation and not earlier.
TEST_F(CoordTest, TakesArgumentsOfCountZero) {
    const IRef<ICoord> coord = CoordOf(Geodez(2, 50.0, 9.0));
    EXPECT_TRUE(coord->GetGeographic(CreateClassCoordGeographic()));
    EXPECT_TRUE(coord->SetGeographic(CreateClassCoordGeographic()));
    EXPECT_TRUE(coord->GetReference(CreateClassCoordinateReference()));
    EXPECT_FALSE(coord->SetReference(CreateClassCoordinateReference())) << "no datum, no system";
}

}  // namespace
}  // namespace tessara
