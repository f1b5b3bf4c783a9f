#include "tessara/kernel/lettered_grids.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <random>
#include <string>

#include "kernel/angles.h"
#include "numerics/special_values.h"
#include "support/reference_file.h"
#include "tessara/kernel/constants.h"

namespace tessara::lettered_grids_test {
namespace {

using testing::ReadReferenceFile;
using testing::ReferenceRow;
using testing::Sexagesimal;

// Far below the 1e-5 m to which grids are compared; the inverse adds the 1.3e-6 m of its series.
constexpr double METRES = 1e-6;
constexpr double DEGREES = 2e-11;  // of latitude: 2.2e-6 m

// One of the two grids, on the datum of its country.
struct Grid {
    KoordStatus (*from)(const double[2], LetterGridPayload*, const TmConstants*);
    KoordStatus (*to)(const LetterGridPayload*, double[2], const TmConstants*, const TmConstants*);
    TmConstants forward, inverse;
    TmParams projection;

    Grid(std::int32_t datum, const TmParams& params, decltype(from) fromGeodetic, decltype(to) toGeodetic)
        : from(fromGeodetic), to(toGeodetic), projection(params) {
        EXPECT_EQ(TM_LoadForwardConstants(datum, &forward), KOORD_OK);
        EXPECT_EQ(TM_LoadInverseConstants(datum, &inverse), KOORD_OK);
    }

    KoordStatus Forward(double lat, double lon, LetterGridPayload* payload) const {
        const double latLon[2] = {lat, lon};
        return from(latLon, payload, &forward);
    }

    KoordStatus Inverse(const LetterGridPayload& payload, double latLon[2]) const {
        return to(&payload, latLon, &forward, &inverse);
    }

    // The position of a grid value, by the projection alone.
    void Position(double easting, double northing, double latLon[2]) const {
        TM_InverseParam(easting, northing, &projection, latLon, &forward, &inverse);
    }

    // The payload of a grid value.
    LetterGridPayload At(double easting, double northing) const {
        double latLon[2];
        Position(easting, northing, latLon);
        LetterGridPayload payload{};
        EXPECT_EQ(Forward(latLon[0], latLon[1], &payload), KOORD_OK) << easting << ' ' << northing;
        return payload;
    }
};

Grid British() {
    return {98, {-2.0, 49.0, 400000.0, -100000.0, 0.9996012717}, BNG_FromGeodetic, BNG_ToGeodetic};
}

Grid Irish() {
    return {97, {-8.0, 53.5, 200000.0, 250000.0, 1.000035}, ING_FromGeodetic, ING_ToGeodetic};
}

std::string Letters(const LetterGridPayload& payload) {
    return {payload.square, payload.subSquare};
}

LetterGridPayload Address(const std::string& letters, double easting, double northing) {
    LetterGridPayload payload{};
    payload.square = letters[0];
    payload.subSquare = letters[1];
    payload.easting = easting;
    payload.northing = northing;
    return payload;
}

LetterGridPayload FullValues(double easting, double northing) {
    LetterGridPayload payload{};
    payload.fullEasting = easting;
    payload.fullNorthing = northing;
    return payload;
}

void ExpectSamePosition(const Grid& grid, const LetterGridPayload& payload, double easting, double northing) {
    double expected[2];
    grid.Position(easting, northing, expected);
    double latLon[2];
    EXPECT_EQ(grid.Inverse(payload, latLon), KOORD_OK);
    EXPECT_EQ(latLon[0], expected[0]);
    EXPECT_EQ(latLon[1], expected[1]);
}

void ExpectRefused(const Grid& grid, const std::string& letters) {
    double latLon[2] = {1.0, 2.0};
    EXPECT_EQ(grid.Inverse(Address(letters, 1.0, 1.0), latLon), KOORD_ERR_GRID_RANGE) << letters;
    EXPECT_EQ(latLon[0], 1.0);
    EXPECT_EQ(latLon[1], 2.0);
}

// Of a latitude the projection sees the tangent of its half, which a whole turn further is the same.
TEST(BritishGrid, ALatitudeAWholeTurnFurtherIsTheSame) {
    LetterGridPayload payload{};
    LetterGridPayload turned{};
    EXPECT_EQ(British().Forward(52.0, -1.0, &payload), KOORD_OK);
    EXPECT_EQ(British().Forward(52.0 + 360.0, -1.0, &turned), KOORD_OK);
    EXPECT_EQ(Letters(turned), Letters(payload));
    EXPECT_NEAR(turned.fullEasting, payload.fullEasting, METRES);
    EXPECT_NEAR(turned.fullNorthing, payload.fullNorthing, METRES);
    EXPECT_EQ(British().Forward(52.0 + 180.0, -1.0, &turned), KOORD_ERR_GRID_RANGE);
}

// The water tower at Caister, worked example of the Ordnance Survey's guide: published to the millimetre and
// to 1e-4 seconds.
TEST(BritishGrid, GivesTheWorkedExampleCaister) {
    const double lat = Sexagesimal(52, 39, 27.2531);
    const double lon = Sexagesimal(1, 43, 4.5177);
    LetterGridPayload payload{};
    EXPECT_EQ(British().Forward(lat, lon, &payload), KOORD_OK);
    EXPECT_NEAR(payload.fullEasting, 651409.903, 0.001);
    EXPECT_NEAR(payload.fullNorthing, 313177.270, 0.001);
    EXPECT_EQ(Letters(payload), "TG");
    EXPECT_EQ(payload.easting, 51409.0);
    EXPECT_EQ(payload.northing, 13177.0);

    double latLon[2];
    EXPECT_EQ(British().Inverse(FullValues(651409.903, 313177.270), latLon), KOORD_OK);
    EXPECT_NEAR(latLon[0], lat, 1e-4 / 3600.0);
    EXPECT_NEAR(latLon[1], lon, 1e-4 / 3600.0);
}

void ExpectProjsFigures(const Grid& grid, const char* file) {
    for (const ReferenceRow& row : ReadReferenceFile(file)) {
        SCOPED_TRACE(row.place);
        LetterGridPayload payload{};
        EXPECT_EQ(grid.Forward(row.Number(0), row.Number(1), &payload), KOORD_OK);
        EXPECT_NEAR(payload.fullEasting, row.Number(2), METRES);
        EXPECT_NEAR(payload.fullNorthing, row.Number(3), METRES);

        double latLon[2];
        EXPECT_EQ(grid.Inverse(payload, latLon), KOORD_OK);
        EXPECT_NEAR(latLon[0], row.Number(0), DEGREES);
        EXPECT_NEAR(latLon[1], row.Number(1), 2 * DEGREES);  // a degree of longitude is shorter
    }
}

TEST(BritishGrid, AgreesWithProj) {
    ExpectProjsFigures(British(), "kernel/british_grid.txt");
}

TEST(IrishGrid, AgreesWithProj) {
    ExpectProjsFigures(Irish(), "kernel/irish_grid.txt");
}

TEST(IrishGrid, HasItsOriginInIN) {
    LetterGridPayload payload{};
    EXPECT_EQ(Irish().Forward(53.5, -8.0, &payload), KOORD_OK);
    EXPECT_EQ(payload.square, 'I');
    EXPECT_NEAR(payload.fullEasting, 200000.0, 1e-8);  // tan of a quarter turn isn't 1 to the last bit
    EXPECT_NEAR(payload.fullNorthing, 250000.0, 1e-8);
}

// The Ordnance Survey's diagram of the 100 km squares, from the north.
TEST(BritishGrid, LettersEverySquareAsTheDiagramDoes) {
    const std::string rows[13] = {"HLHMHNHOHPJLJM", "HQHRHSHTHUJQJR", "HVHWHXHYHZJVJW", "NANBNCNDNEOAOB",
                                  "NFNGNHNJNKOFOG", "NLNMNNNONPOLOM", "NQNRNSNTNUOQOR", "NVNWNXNYNZOVOW",
                                  "SASBSCSDSETATB", "SFSGSHSJSKTFTG", "SLSMSNSOSPTLTM", "SQSRSSSTSUTQTR",
                                  "SVSWSXSYSZTVTW"};
    const Grid grid = British();
    for (std::size_t north = 0; north < 13; ++north) {
        for (std::size_t east = 0; east < 7; ++east) {
            const std::string letters = rows[12 - north].substr(2 * east, 2);
            const double easting = static_cast<double>(east) * 100000.0 + 12345.5;
            const double northing = static_cast<double>(north) * 100000.0 + 67890.5;
            const LetterGridPayload payload = grid.At(easting, northing);
            EXPECT_EQ(Letters(payload), letters);
            EXPECT_EQ(payload.easting, 12345.0);
            EXPECT_EQ(payload.northing, 67890.0);
            ExpectSamePosition(grid, Address(letters, 12345.5, 67890.5), easting, northing);
        }
    }
}

// The Ordnance Survey Ireland's diagram of the 100 km squares, from the north.
TEST(IrishGrid, LettersEverySquareAsTheDiagramDoes) {
    const std::string rows[5] = {"ABCDE", "FGHJK", "LMNOP", "QRSTU", "VWXYZ"};
    const Grid grid = Irish();
    for (std::size_t north = 0; north < 5; ++north) {
        for (std::size_t east = 0; east < 5; ++east) {
            const std::string letters = {'I', rows[4 - north][east]};
            const double easting = static_cast<double>(east) * 100000.0 + 12345.5;
            const double northing = static_cast<double>(north) * 100000.0 + 67890.5;
            const LetterGridPayload payload = grid.At(easting, northing);
            EXPECT_EQ(Letters(payload), letters);
            EXPECT_EQ(payload.easting, 12345.0);
            EXPECT_EQ(payload.northing, 67890.0);
            ExpectSamePosition(grid, Address(letters, 12345.5, 67890.5), easting, northing);
        }
    }
}

TEST(LetteredGridFromGeodetic, CutsTheMetresAndKeepsTheFractionsInTheFullValues) {
    const LetterGridPayload payload = British().At(651409.987, 313177.012);
    EXPECT_EQ(payload.easting, 51409.0);
    EXPECT_EQ(payload.northing, 13177.0);
    EXPECT_NEAR(payload.fullEasting, 651409.987, 2 * METRES);
    EXPECT_NEAR(payload.fullNorthing, 313177.012, 2 * METRES);
}

TEST(LetteredGridFromGeodetic, PutsTheUpperLimitIntoTheLastSquare) {
    for (const double off : {-0.00009, 0.0, 0.00009}) {
        const LetterGridPayload british = British().At(700000.0 + off, 1300000.0 + off);
        EXPECT_EQ(Letters(british), "JM");
        EXPECT_EQ(british.easting, 99999.0);
        EXPECT_EQ(british.northing, 99999.0);
        EXPECT_EQ(british.fullEasting, 700000.0);
        EXPECT_EQ(british.fullNorthing, 1300000.0);

        const LetterGridPayload irish = Irish().At(500000.0 + off, 500000.0 + off);
        EXPECT_EQ(Letters(irish), "IE");
        EXPECT_EQ(irish.easting, 99999.0);
        EXPECT_EQ(irish.northing, 99999.0);
        EXPECT_EQ(irish.fullEasting, 500000.0);
        EXPECT_EQ(irish.fullNorthing, 500000.0);
    }
}

TEST(LetteredGridFromGeodetic, SnapsOntoTheLowerLimit) {
    for (const double off : {-0.00009, 0.0, 0.00009}) {
        const LetterGridPayload british = British().At(off, off);
        EXPECT_EQ(Letters(british), "SV");
        EXPECT_EQ(british.fullEasting, 0.0);
        EXPECT_EQ(british.fullNorthing, 0.0);

        const LetterGridPayload irish = Irish().At(off, off);
        EXPECT_EQ(Letters(irish), "IV");
        EXPECT_EQ(irish.fullEasting, 0.0);
        EXPECT_EQ(irish.fullNorthing, 0.0);
    }
}

TEST(LetteredGridFromGeodetic, DoesNotSnapFartherInside) {
    const LetterGridPayload low = British().At(0.00012, 0.00012);
    EXPECT_NEAR(low.fullEasting, 0.00012, 2 * METRES);
    EXPECT_NEAR(low.fullNorthing, 0.00012, 2 * METRES);
    const LetterGridPayload high = British().At(700000.0 - 0.00012, 1300000.0 - 0.00012);
    EXPECT_NEAR(high.fullEasting, 700000.0 - 0.00012, 2 * METRES);
    EXPECT_NEAR(high.fullNorthing, 1300000.0 - 0.00012, 2 * METRES);
    EXPECT_EQ(high.easting, 99999.0);
}

TEST(LetteredGridFromGeodetic, FailsOutsideAndLeavesThePayload) {
    const struct {
        Grid grid;
        double east, north;
    } limits[] = {{British(), 700000.0, 1300000.0}, {Irish(), 500000.0, 500000.0}};
    for (const auto& [grid, east, north] : limits) {
        const double outside[][2] = {
            {-0.001, 1000.0}, {1000.0, -0.001}, {east + 0.001, 1000.0}, {1000.0, north + 0.001}};
        for (const auto& value : outside) {
            double latLon[2];
            grid.Position(value[0], value[1], latLon);
            LetterGridPayload payload;
            std::memset(&payload, 0x5A, sizeof payload);
            const LetterGridPayload before = payload;
            EXPECT_EQ(grid.Forward(latLon[0], latLon[1], &payload), KOORD_ERR_GRID_RANGE);
            EXPECT_EQ(std::memcmp(&payload, &before, sizeof payload), 0);
        }
    }
}

TEST(LetteredGridFromGeodetic, FailsForWhatIsNoPosition) {
    const double outside[][2] = {{NOT_A_NUMBER, -2.0}, {52.0, NOT_A_NUMBER}, {INFINITE, -2.0},
                                 {52.0, -INFINITE},    {1e300, 1e300},       {90.0, -2.0}};
    for (const Grid& grid : {British(), Irish()}) {
        for (const auto& latLon : outside) {
            LetterGridPayload payload = Address("XX", 1.0, 2.0);
            EXPECT_EQ(grid.Forward(latLon[0], latLon[1], &payload), KOORD_ERR_GRID_RANGE);
            EXPECT_EQ(Letters(payload), "XX");
            EXPECT_EQ(payload.easting, 1.0);
        }
    }
}

// Longitude differences of more than 90 degrees are outside the projection's method.
TEST(LetteredGridFromGeodetic, TakesAPositionOppositeTheGridForOneInIt) {
    LetterGridPayload payload{};
    EXPECT_EQ(British().Forward(-55.0, 178.0, &payload), KOORD_OK);
    EXPECT_EQ(Letters(payload), "NY");
}

TEST(LetteredGridToGeodetic, AcceptsLettersOfEitherCase) {
    ExpectSamePosition(British(), Address("tg", 51409.0, 13177.0), 651409.0, 313177.0);
    ExpectSamePosition(British(), Address("tG", 51409.0, 13177.0), 651409.0, 313177.0);
    ExpectSamePosition(Irish(), Address("io", 15904.0, 34671.0), 315904.0, 234671.0);
    ExpectSamePosition(Irish(), Address("Io", 15904.0, 34671.0), 315904.0, 234671.0);
}

TEST(LetteredGridToGeodetic, RefusesEveryOtherByte) {
    const std::string britishSquares = "STNOHJstnohj";
    const std::string subSquares = "VWXYZQRSTULMNOPFGHJKABCDEvwxyzqrstulmnopfghjkabcde";
    const Grid british = British();
    const Grid irish = Irish();
    for (int byte = 1; byte < 256; ++byte) {
        const char letter = static_cast<char>(byte);
        if (britishSquares.find(letter) == std::string::npos) ExpectRefused(british, {letter, 'A'});
        if (letter != 'I' && letter != 'i') ExpectRefused(irish, {letter, 'A'});
        if (subSquares.find(letter) == std::string::npos) {
            ExpectRefused(british, {'T', letter});
            ExpectRefused(irish, {'I', letter});
        }
    }
}

TEST(LetteredGridToGeodetic, TakesFullValuesWithinAMetreForTheAddress) {
    LetterGridPayload payload = Address("TG", 51409.0, 13177.0);
    payload.fullEasting = 651409.903;
    payload.fullNorthing = 313176.001;
    ExpectSamePosition(British(), payload, 651409.903, 313176.001);

    payload = Address("IO", 15904.0, 34671.0);
    payload.fullEasting = 315904.5;
    payload.fullNorthing = 234671.25;
    ExpectSamePosition(Irish(), payload, 315904.5, 234671.25);
}

TEST(LetteredGridToGeodetic, IgnoresFullValuesAMetreOffAndMoreOnEachAxisOfItsOwn) {
    LetterGridPayload payload = Address("TG", 51409.0, 13177.0);
    payload.fullEasting = 651410.0;
    payload.fullNorthing = 313177.5;
    ExpectSamePosition(British(), payload, 651409.0, 313177.5);
    payload.fullEasting = 651408.5;
    payload.fullNorthing = 313176.0;
    ExpectSamePosition(British(), payload, 651408.5, 313177.0);
    payload.fullEasting = NOT_A_NUMBER;
    payload.fullNorthing = INFINITE;
    ExpectSamePosition(British(), payload, 651409.0, 313177.0);
}

// The full value of the upper limit lies a whole metre from the 99999 of the address: too far to be taken for
// it.
TEST(LetteredGridToGeodetic, ReadsTheUpperLimitAMetreInside) {
    ExpectSamePosition(British(), British().At(700000.0, 1300000.0), 699999.0, 1299999.0);
    ExpectSamePosition(Irish(), Irish().At(500000.0, 500000.0), 499999.0, 499999.0);
}

TEST(LetteredGridToGeodetic, UsesTheFullValuesWhenEitherLetterIsZero) {
    for (const std::string& letters : {std::string(2, '\0'), std::string("T\0", 2), std::string("\0G", 2)}) {
        LetterGridPayload payload = Address(letters, 11.0, 22.0);
        payload.fullEasting = 651409.903;
        payload.fullNorthing = 313177.270;
        ExpectSamePosition(British(), payload, 651409.903, 313177.270);
        ExpectSamePosition(Irish(), payload, 651410.0, 313177.0);
    }
}

TEST(LetteredGridToGeodetic, RoundsIrishFullValuesWithoutLettersAsAHalfUp) {
    ExpectSamePosition(Irish(), FullValues(315904.5, 234671.49), 315905.0, 234671.0);
    ExpectSamePosition(Irish(), FullValues(-0.4, 0.4), 0.0, 0.0);
    ExpectSamePosition(Irish(), FullValues(-1.6, -0.6), -1.0,
                       0.0);  // cut toward zero after the half is added
    ExpectSamePosition(British(), FullValues(315904.5, 234671.49), 315904.5, 234671.49);
}

TEST(LetteredGridToGeodetic, DoesNotRefusePositionsOutsideTheGrid) {
    ExpectSamePosition(British(), FullValues(-50000.0, 1400000.0), -50000.0, 1400000.0);
    ExpectSamePosition(British(), Address("SV", -1000.0, 250000.0), -1000.0, 250000.0);
}

TEST(LetteredGrid, FailsForConstantsWithoutADatumAndChangesNothing) {
    for (Grid grid : {British(), Irish()}) {
        LetterGridPayload payload = FullValues(200000.0, 250000.0);
        const LetterGridPayload before = payload;
        for (const std::int32_t datum : {-1, DATUM_COUNT, INT32_MIN, INT32_MAX}) {
            grid.forward.datum = grid.inverse.datum = datum;
            EXPECT_EQ(grid.Forward(53.5, -8.0, &payload), KOORD_ERR_DATUM) << datum;
            EXPECT_EQ(std::memcmp(&payload, &before, sizeof payload), 0);
            double latLon[2] = {1.0, 2.0};
            EXPECT_EQ(grid.Inverse(payload, latLon), KOORD_ERR_DATUM) << datum;
            EXPECT_EQ(latLon[0], 1.0);
            EXPECT_EQ(latLon[1], 2.0);
        }
    }
}

TEST(LetteredGridToGeodetic, EndsWithAnyPayload) {
    std::mt19937_64 random(1936);
    for (const Grid& grid : {British(), Irish()}) {
        for (int i = 0; i < 20000; ++i) {
            std::uint64_t words[5];
            for (std::uint64_t& word : words)
                word = random();
            LetterGridPayload payload;
            static_assert(sizeof payload == sizeof words);
            std::memcpy(&payload, words, sizeof payload);
            if (i % 2 == 0) payload.square = '\0';
            double latLon[2] = {1.0, 2.0};
            const KoordStatus status = grid.Inverse(payload, latLon);
            EXPECT_TRUE(status == KOORD_OK || status == KOORD_ERR_GRID_RANGE);
            EXPECT_FALSE(std::fabs(latLon[0]) > 90.0 + 1e-9);
        }
        double latLon[2];
        for (const double value : {NOT_A_NUMBER, INFINITE, -INFINITE, 1e300, -1e300, 6e8})
            EXPECT_EQ(grid.Inverse(FullValues(value, value), latLon), KOORD_OK);
    }
}

}  // namespace
}  // namespace tessara::lettered_grids_test
