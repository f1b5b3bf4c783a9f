#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "program/run_program.h"

using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::Tessara;

namespace {

std::vector<std::string> Words(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(word);
    return words;
}

// A place in each system that a position can be converted to.
const std::map<std::string, std::string> PLACES{
    {"UTM", "48 11"},      {"UTMREF", "48 11"}, {"GEODEZ", "48 11"},      {"GEOGRAD", "48 11"},
    {"GEOREF", "48 11"},   {"GK", "48 11"},     {"BMN", "48 14"},         {"OEM", "48 14"},
    {"CH", "47 8"},        {"ECEF", "48 11"},   {"GEODEZMIN", "48 11"},   {"GK6", "48 11"},
    {"GK-AT", "48 14"},    {"UPS", "-85 11"},   {"PO_MILITARY", "39 -8"}, {"TM", "48 1"},
    {"VDG", "48 11"},      {"BNG", "52 -1"},    {"ING", "53 -8"},         {"RD", "52 5"},
    {"LUREF", "49.6 6.1"},
};

}  // namespace

TEST(Systems, AreListedByNumberWithNameAndFields) {
    const Outcome outcome = Tessara({"systems"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(LinesOf(outcome.out),
              (std::vector<std::string>{
                  "0 LONGPIXEL x y",
                  "1 FLOATPIXEL x y",
                  "2 UTM zone hemisphere easting northing",
                  "3 UTMREF zone band square easting northing",
                  "4 GEODEZ latitude longitude",
                  "5 GEOGRAD latDegrees latMinutes latSeconds latHemisphere lonDegrees lonMinutes lonSeconds "
                  "lonHemisphere",
                  "6 GEOREF letters lonMinutes latMinutes",
                  "7 GK easting northing",
                  "8 BMN meridian easting northing",
                  "9 OEM meridian easting northing",
                  "10 CH easting northing",
                  "11 ECEF x y z",
                  "12 GEODEZMIN latDegrees latMinutes latHemisphere lonDegrees lonMinutes lonHemisphere",
                  "13 GK6 easting northing",
                  "14 GK-AT meridian easting northing",
                  "15 UPS hemisphere easting northing",
                  "16 PO_MILITARY easting northing",
                  "17 TM easting northing",
                  "18 VDG x y",
                  "19 BNG square easting northing fullEasting fullNorthing",
                  "20 ING square easting northing fullEasting fullNorthing",
                  "21 RD easting northing",
                  "22 LUREF easting northing",
              }));
}

TEST(Systems, ConvertToTheFieldsThatAreListed) {
    for (const std::string& line : LinesOf(Tessara({"systems"}).out)) {
        const std::vector<std::string> listed = Words(line);
        const std::string& system = listed.at(1);
        if (system == "LONGPIXEL" || system == "FLOATPIXEL") continue;
        ASSERT_TRUE(PLACES.contains(system)) << system;
        const Outcome outcome = Tessara({"convert", "--to", system}, PLACES.at(system));
        EXPECT_EQ(outcome.status, 0) << outcome.err;
        EXPECT_EQ(Words(outcome.out).size(), listed.size() - 2) << system << ": " << outcome.out;
    }
}

TEST(Datums, AreListedByNumberWithNameEllipsoidAndShift) {
    const Outcome outcome = Tessara({"datums"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    const std::vector<std::string> lines = LinesOf(outcome.out);
    ASSERT_EQ(lines.size(), 239u);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        EXPECT_EQ(Words(lines[i]).size(), 6u) << lines[i];
        EXPECT_EQ(Words(lines[i]).at(0), std::to_string(i));
    }
    EXPECT_EQ(lines[2], "2 WGS84 WGS84 0 0 0");
    EXPECT_EQ(lines[3], "3 GER BESSEL 604 21 415");
    EXPECT_EQ(lines[5], "5 WGS72 WGS72 0 0 4.5");
    EXPECT_EQ(lines[10], "10 KS42/83 KRASSOVSKY -6 -130 -120");
    EXPECT_EQ(lines[235], "235 USERDEF - 0 0 0");
    EXPECT_EQ(lines[238], "238 NTL INTERNATIONAL -262 75 25");
}

TEST(Datums, AreFoundByEllipsoidRegionCountryAndPartsOfNames) {
    const auto namesOf = [](const std::string& words) {
        std::string names;
        for (const std::string& line : LinesOf(Tessara({"datums", "--find", words}).out))
            names += Words(line).at(1) + ' ';
        return names;
    };
    EXPECT_EQ(namesOf("airy_1830"), "OGB_M OGB_A OGB_B OGB_C OGB_D ");
    EXPECT_EQ(namesOf("bessel austria"), "MGI ");
    EXPECT_EQ(namesOf("ethiopia adi_"), "ADI_M ADI_A ");
    EXPECT_EQ(LinesOf(Tessara({"datums", "--find", "ADI_A"}).out),
              std::vector<std::string>{
                  "16 ADI_A CLARKE_1880 -165 -11 206\tAdindan; Africa: Ethiopia; within 6 m (EPSG 1103)"});
    EXPECT_EQ(LinesOf(Tessara({"datums", "--describe"}).out).size(), 239u);
    const Outcome none = Tessara({"datums", "--find", "atlantis"});
    EXPECT_EQ(none.status, 1);
    EXPECT_EQ(none.out, "");
}

TEST(Datums, AreKnownToConvertByTheirNames) {
    std::vector<std::string> arguments{"convert"};
    for (const std::string& line : LinesOf(Tessara({"datums"}).out)) {
        arguments.emplace_back("--to");
        arguments.push_back("GEODEZ@" + Words(line).at(1));
    }
    const Outcome outcome = Tessara(arguments, "10 20");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(Words(outcome.out).size(), 2u * 239u);
}
