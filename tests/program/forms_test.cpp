// Files of records: CSV, JSON lines and GeoJSON, read and written.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>

#include "program/files.h"
#include "program/run_program.h"

using tessara::testing::Convert;
using tessara::testing::ExpectDone;
using tessara::testing::ExpectUsageError;
using tessara::testing::LinesOf;
using tessara::testing::Outcome;
using tessara::testing::RunProgram;
using tessara::testing::ScratchDirectory;
using tessara::testing::Tessara;
using OrderedJson = nlohmann::ordered_json;

namespace {

// echo 48.1375 11.5755 | GeoConvert -u -p 4
constexpr const char* MUNICH_FIELDS = "32,N,691602.6597,5334791.1445";
// The digits of a reference are those of the grid values: 691602 is 91602 in the sixth column of zone 32, P,
// and 5334791 is 34791 in the square row U.
constexpr const char* MUNICH_NORTH = "U U 34791.000";
constexpr const char* MUNICH_EAST = "32 P 91602.000";

constexpr const char* COLLECTION = "{\"type\":\"FeatureCollection\",\"features\":[\n";

// A point of GeoJSON with some properties.
std::string PointFeature(const std::string& coordinates, const std::string& properties) {
    return R"({"type":"Feature","geometry":{"type":"Point","coordinates":[)" + coordinates +
           R"(]},"properties":)" + properties + "}";
}

std::string Features(const std::string& features) {
    return COLLECTION + features + "\n]}\n";
}

}  // namespace

TEST(Csv, PutsTheFieldsWhereThePositionWas) {
    ExpectDone(Convert({"--input", "csv", "--to", "UTM"},
                       "id,latitude,longitude,height,name\n"
                       "7,48.1375,11.5755,520.5,town hall\n"),
               std::string("id,zone,hemisphere,easting,northing,height,name\n7,") + MUNICH_FIELDS +
                   ",520.5,town hall\n");
}

TEST(Csv, NamesTheFieldsOfSeveralTargetsByTheTargets) {
    const Outcome outcome =
        Convert({"--input", "csv", "--to", "CH@CH1903", "--to", "GEODEZ"}, "lat,lon\n47,8\n");
    EXPECT_EQ(LinesOf(outcome.out).at(0),
              "easting CH@CH1903,northing CH@CH1903,latitude GEODEZ@WGS84,longitude GEODEZ@WGS84");
}

TEST(Csv, KeepsAColumnThatIsCalledLikeAField) {
    ExpectDone(
        Convert({"--input", "csv", "--to", "UTM"}, "lat,lon,zone\n48.1375,11.5755,old town\n"),
        std::string("zone UTM@WGS84,hemisphere,easting,northing,zone\n") + MUNICH_FIELDS + ",old town\n");
}

TEST(Csv, KeepsQuotedSeparatorsQuotesAndLineEnds) {
    const std::string rest = ",\"a,b\",\"say \"\"x\"\"\",\"two\r\nlines\",\n";
    ExpectDone(Convert({"--input", "csv"}, "latitude,longitude,a,b,c,d\r\n48,11" + rest),
               "latitude,longitude,a,b,c,d\n48.000000000,11.000000000" + rest);
}

TEST(Csv, ReadsQuotedPositionsBlanksAndAByteOrderMark) {
    ExpectDone(Convert({"--input", "csv"}, "\xEF\xBB\xBF\"Latitude\";LON\n\n\"48\"; 11 \r\n"),
               "latitude;longitude\n48.000000000;11.000000000\n");
}

TEST(Csv, TakesTheColumnsThatAreNamed) {
    ExpectDone(Convert({"--input", "csv", "--columns", "y,x,z", "--to", "ECEF"},
                       "x,y,z,latitude\n11.5755,48.1375,520,kept\n"),
               // echo 11.5755 48.1375 520 | cs2cs -f %.4f +proj=longlat +datum=WGS84 +to +proj=geocent
               // +datum=WGS84. The names x and y become free, z stays the height's.
               "x,y,z ECEF@WGS84,z,latitude\n"
               "4177951.7880,855748.7081,4727480.1959,520,kept\n");
}

TEST(Csv, CountsTheLinesOfABadRecordFromItsFirst) {
    const Outcome outcome = Convert({"--input", "csv"},
                                    "name,latitude,longitude\n"
                                    "\"a\nb\",48,11\n"
                                    "c,48\n"
                                    "\"d\ne\",91,11\n"
                                    "f,48,x\n"
                                    "g,48,11,5\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "name,latitude,longitude\n\"a\nb\",48.000000000,11.000000000\n");
    EXPECT_EQ(LinesOf(outcome.err),
              (std::vector<std::string>{"-:4: expected 3 columns, as in the header, found 2",
                                        "-:5: latitude '91' is outside -90..90", "-:7: 'x' is not a number",
                                        "-:8: expected 3 columns, as in the header, found 4"}));
}

TEST(Csv, SaysWhatToDoWhereItFindsNoPositions) {
    const Outcome degrees = Convert({"--input", "csv"}, "a,b\n1,2\n");
    EXPECT_EQ(degrees.err,
              "-:1: missing columns 'latitude' and 'longitude'; name the columns with --columns\n");
    EXPECT_EQ(degrees.status, 1);
    EXPECT_EQ(degrees.out, "");
    const Outcome named = Convert({"--input", "csv", "--columns", "a,c"}, "a,b\n1,2\n");
    EXPECT_EQ(named.err, "-:1: missing columns 'a' and 'c'\n");
    const Outcome height = Convert({"--input", "csv", "--columns", "a,b,c"}, "a,b\n1,2\n");
    EXPECT_EQ(height.err, "-:1: missing column 'c'\n");
}

TEST(Csv, ReportsAQuoteThatIsntClosed) {
    const Outcome outcome = Convert({"--input", "csv"}, "latitude,longitude,a\n48,11,\"x\n48,11,y\n");
    EXPECT_EQ(outcome.err, "-:2: unclosed quote\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Csv, ReportsAHeaderWhoseQuoteIsntClosed) {
    const Outcome outcome = Convert({"--input", "csv"}, "latitude,\"longitude\n48,11\n");
    EXPECT_EQ(outcome.err, "-:1: unclosed quote\n");
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.status, 1);
}

// 2^20 bytes are the most that a record may have.
TEST(Csv, GoesOnBehindARecordThatNeverEnds) {
    std::string input = "latitude,longitude,a\n1,1,\"x\n";
    while (input.size() < (std::size_t{3} << 19))
        input += "48,11,y\n";
    const Outcome outcome = Convert({"--input", "csv"}, input);
    EXPECT_EQ(outcome.err, "-:2: unclosed quote\n");
    EXPECT_GT(LinesOf(outcome.out).size(), 50000u) << "8 bytes a line, in half of 2^20 bytes";
}

TEST(Csv, GivesColumnsWithoutANameOrWithOneThatIsTakenTheirNumber) {
    ExpectDone(Convert({"--input", "csv"}, "latitude,longitude,,a,a\n48,11,x,y,z\n"),
               "latitude,longitude,3,a,a 5\n48.000000000,11.000000000,x,y,z\n");
}

// A search of each column among all others would take minutes.
TEST(Csv, TakesVeryManyColumns) {
    std::string header = "lat,lon";
    std::string row = "48,11";
    for (int i = 0; i < 300000; ++i) {
        header += i % 2 == 0 ? ",a" : ",";
        row += ",1";
    }
    const Outcome outcome = Convert({"--input", "csv"}, header + "\n" + row + "\n");
    EXPECT_EQ(outcome.err, "");
    ASSERT_EQ(LinesOf(outcome.out).size(), 2u);
    EXPECT_EQ(LinesOf(outcome.out)[1], "48.000000000,11.000000000" + row.substr(5));
    EXPECT_EQ(LinesOf(outcome.out)[0].substr(0, 31), "latitude,longitude,a,4,a 5,6,a ");
}

TEST(Csv, WritesTheHeaderOfAFileWithoutRecords) {
    ExpectDone(Convert({"--input", "csv", "--to", "UTM"}, "name,lat,lon\n"),
               "name,zone,hemisphere,easting,northing\n");
    ExpectDone(Convert({"--input", "csv"}, ""), "");
}

// The columns by their places, counted from 1: there is no header then, in and out.
TEST(Csv, MayHaveNoHeader) {
    ExpectDone(
        Convert({"--input", "csv", "--columns", "3,2", "--to", "UTM"}, "7,11.5755,48.1375,town hall\n"),
        std::string("7,") + MUNICH_FIELDS + ",town hall\n");
    ExpectDone(Convert({"--input", "csv", "--columns", "2,3", "--output", "jsonl"}, "7,48,11\n"),
               "{\"1\":\"7\",\"latitude\":48.0,\"longitude\":11.0}\n");
    ExpectDone(Convert({"--from", "UTM", "--to", "UTMREF", "--columns", "2,3"}, "a;N 5334791;32 691602;b\n"),
               std::string("a;") + MUNICH_NORTH + ";" + MUNICH_EAST + ";b\n");
    const Outcome few = Convert({"--input", "csv", "--columns", "2,3"}, "7,48,11\n7,48\n");
    EXPECT_EQ(few.err, "-:2: missing column of the position; found 2 columns\n");
}

// Commas are text there, and tabs need quotes.
TEST(Tsv, HasTabsOnly) {
    ExpectDone(Convert({"--input", "tsv"}, "n\tlat\tlon\na,b;c\t48\t11\n"),
               "n\tlatitude\tlongitude\na,b;c\t48.000000000\t11.000000000\n");
    ExpectDone(Convert({"--input", "csv", "--output", "tsv"}, "n,lat,lon\n\"a\tb\",48,11\n"),
               "n\tlatitude\tlongitude\n\"a\tb\"\t48.000000000\t11.000000000\n");
}

TEST(Csv, HasTextsInColumnsNorthAndEast) {
    ExpectDone(Convert({"--input", "csv", "--from", "UTM", "--to", "UTMREF"},
                       "id,east,north\n7,32 691602,N 5334791\n"),
               std::string("id,north,east\n7,") + MUNICH_NORTH + "," + MUNICH_EAST + "\n");
}

TEST(Csv, JobsKeepTheOrderOfTheRecords) {
    std::string input = "n,e,i\n";
    for (int i = 0; i < 10000; ++i)
        input += (i % 1000 == 7 ? "no," : "N 5334791,") + ("32 " + std::to_string(500000 + i)) + "," +
                 std::to_string(i) + "\n";
    const std::vector<std::string> arguments{"--input", "csv", "--from", "UTM", "--columns", "n,e"};
    const Outcome one = Convert(arguments, input);
    std::vector<std::string> withJobs = arguments;
    withJobs.insert(withJobs.end(), {"--jobs", "3"});
    const Outcome three = Convert(withJobs, input);
    EXPECT_EQ(LinesOf(one.out).size(), 1u + 10000u - 10u);
    EXPECT_EQ(three.out, one.out);
    EXPECT_EQ(three.err, one.err);
}

TEST(JsonLines, KeepOtherMembersAsTheyAre) {
    const Outcome outcome = Convert({"--input", "jsonl", "--to", "UTM"},
                                    R"({"id":7,"lat":48.1375,"lon":"11.5755","tags":["a",null,{"b":1.5}]})");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const OrderedJson json = OrderedJson::parse(outcome.out);
    std::vector<std::string> names;
    for (const auto& member : json.items())
        names.push_back(member.key());
    EXPECT_EQ(names, (std::vector<std::string>{"id", "zone", "hemisphere", "easting", "northing", "tags"}));
    EXPECT_EQ(json["id"], 7);
    EXPECT_EQ(json["zone"], 32);
    EXPECT_NEAR(json["easting"].get<double>(), 691602.6597, 0.00006);  // GeoConvert wrote 4 decimals
    EXPECT_EQ(json["tags"].dump(), R"(["a",null,{"b":1.5}])");
}

TEST(JsonLines, HaveTextsInMembersNorthAndEast) {
    ExpectDone(
        Convert({"--input", "jsonl", "--from", "UTM", "--to", "UTMREF"},
                "\n{\"north\":\"N 5334791\",\"east\":\"32 691602\",\"id\":7}\n"),
        std::string("{\"north\":\"") + MUNICH_NORTH + "\",\"east\":\"" + MUNICH_EAST + "\",\"id\":7}\n");
}

TEST(JsonLines, MayHaveTextsThatAreNumbers) {
    // A typed grid value is a number like any other: 600000, 200000 is Bern, the origin of the Swiss grid.
    ExpectDone(Convert({"--input", "jsonl", "--from", "CH@CH1903", "--to", "CH"},
                       R"({"north":200000,"east":600000.0})"),
               "{\"north\":\"200000.000\",\"east\":\"600000.000\"}\n");
}

TEST(JsonLines, ReportEachBadLine) {
    const Outcome outcome = Convert({"--input", "jsonl"},
                                    "{\"lat\":1,\"lon\":2}\n"
                                    "{\"lat\":1,\n"
                                    "[1,2]\n"
                                    "{\"lat\":1}\n"
                                    "{\"lat\":true,\"lon\":2}\n"
                                    "{\"lat\":null,\"lon\":2}\n"
                                    "{\"lat\":1e999,\"lon\":2}\n"
                                    "{\"lat\":-90.5,\"lon\":2}\n");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(LinesOf(outcome.out).size(), 1u);
    const std::vector<std::string> lines = LinesOf(outcome.err);
    ASSERT_EQ(lines.size(), 7u);
    EXPECT_EQ(lines[0].find("-:2: invalid JSON at byte "), 0u) << lines[0];
    EXPECT_EQ(lines[1], "-:3: expected a JSON object");
    EXPECT_EQ(lines[2], "-:4: missing members 'latitude' and 'longitude'; name the members with --columns");
    EXPECT_EQ(lines[3], "-:5: 'true' is not a number");
    EXPECT_EQ(lines[4], "-:6: '' is not a number");
    EXPECT_EQ(lines[5], "-:7: number too large before byte 13");
    EXPECT_EQ(lines[6], "-:8: latitude '-90.5' is outside -90..90");
}

TEST(JsonLines, RefuseNestingWithoutEnd) {
    const std::string deep = std::string(100000, '[') + std::string(100000, ']');
    const Outcome outcome = Convert({"--input", "jsonl"}, R"({"lat":1,"lon":2,"x":)" + deep + "}\n");
    EXPECT_EQ(outcome.err, "-:1: nested too deeply\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(JsonLines, RefuseMembersWithoutEnd) {
    std::string members = R"("lat":1,"lon":2)";
    for (int i = 0; i < 9998; ++i)
        members += ",\"" + std::to_string(i) + "\":0";
    EXPECT_EQ(Convert({"--input", "jsonl"}, "{" + members + "}\n").err, "");
    EXPECT_EQ(Convert({"--input", "jsonl"}, "{" + members + ",\"x\":0}\n").err,
              "-:1: more than 10000 members\n");
    // Each object has its own.
    EXPECT_EQ(Convert({"--input", "jsonl"},
                      R"({"a":{)" + members + R"(},"b":{)" + members + R"(},"lat":1,"lon":2})")
                  .err,
              "");
}

TEST(GeoJson, IsWrittenWithLongitudeFirstAndTheOtherColumnsAsProperties) {
    ExpectDone(Convert({"--input", "csv", "--output", "geojson"},
                       "id,latitude,longitude,height\n7,48.1375,11.5755,520.5\n8,-1,-190,\n"),
               Features(PointFeature("11.5755,48.1375,520.5", R"({"id":"7"})") + ",\n" +
                        PointFeature("170.0,-1.0", R"({"id":"8"})")));
}

TEST(GeoJson, HasTheResultsForTargetsAmongTheProperties) {
    const Outcome outcome =
        Convert({"--input", "csv", "--output", "geojson", "--to", "UTM"}, "lat,lon,id\n48.1375,11.5755,7\n");
    const OrderedJson feature = OrderedJson::parse(outcome.out)["features"][0];
    EXPECT_EQ(feature["geometry"]["coordinates"], OrderedJson::parse("[11.5755,48.1375]"));
    EXPECT_EQ(feature["properties"]["zone"], 32);
    EXPECT_EQ(feature["properties"]["hemisphere"], "N");
    // echo 48.1375 11.5755 | cs2cs -f %.4f EPSG:4326 EPSG:32632: 691602.6597 5334791.1445. Metres: half a
    // unit of the last digit, and the accuracy of the series.
    EXPECT_NEAR(feature["properties"]["northing"].get<double>(), 5334791.1445, 0.00006);
    EXPECT_EQ(feature["properties"]["id"], "7");
}

TEST(GeoJson, StandsOnWgs84WhateverTheDatumOfThePositions) {
    const Outcome lines = Convert({"--from", "GER"}, "48 11\n");
    const Outcome points = Convert({"--from", "GER", "--output", "geojson"}, "48 11\n");
    const OrderedJson coordinates = OrderedJson::parse(points.out)["features"][0]["geometry"]["coordinates"];
    double latitude = 0.0, longitude = 0.0;
    std::istringstream(lines.out) >> latitude >> longitude;
    EXPECT_NE(latitude, 48.0);
    EXPECT_EQ(coordinates, (OrderedJson{longitude, latitude}));
}

TEST(GeoJson, HasThePointsOfTexts) {
    const Outcome outcome = Convert({"--from", "UTM", "--to", "UTMREF", "--output", "geojson"},
                                    "N 5334791.1445\t32 691602.6597\ttown hall\n");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const OrderedJson feature = OrderedJson::parse(outcome.out)["features"][0];
    const OrderedJson& coordinates = feature["geometry"]["coordinates"];
    EXPECT_NEAR(coordinates[0].get<double>(), 11.5755, 2e-9);  // degrees; 0.05 mm are 7e-10 of longitude
    EXPECT_NEAR(coordinates[1].get<double>(), 48.1375, 2e-9);
    EXPECT_EQ(feature["properties"]["3"], "town hall");
    EXPECT_TRUE(feature["properties"].contains("north"));
}

TEST(GeoJson, KeepsPropertiesAndIds) {
    const std::string kept = R"("properties":{"name":"A","deep":{"x":[1]}},"id":5})";
    const std::string start =
        R"({"type":"Feature","geometry":{"type":"Point","coordinates":[11.5,48.25,3.0]},)";
    ExpectDone(
        Convert({"--input", "geojson"}, R"({"features":[)" + start + R"("bbox":[11.5,48.25,11.5,48.25],)" +
                                            kept + R"(],"type":"FeatureCollection","name":"sites"})"),
        Features(start + kept));
}

TEST(GeoJson, BecomesColumnsWithTheHeight) {
    ExpectDone(Convert({"--input", "geojson", "--output", "csv", "--to", "UTM"},
                       Features(PointFeature("11.5755,48.1375,520.5", R"({"name":"A","n":1})") + "," +
                                PointFeature("11.5755,48.1375", R"({"n":null})"))),
               std::string("zone,hemisphere,easting,northing,height,name,n\n") + MUNICH_FIELDS +
                   ",520.5,A,1\n" + MUNICH_FIELDS + ",,,\n");
}

TEST(GeoJson, ReportsFeaturesWithoutPositions) {
    const Outcome outcome = Convert(
        {"--input", "geojson", "--output", "lines"},
        Features(PointFeature("11,48", "{}") + R"(,{"type":"Feature","geometry":null,"properties":null})" +
                 R"(,{"type":"Feature","geometry":{"type":"Circle","coordinates":[1,2]}})" + "," +
                 PointFeature("11", "{}") + "," + PointFeature("11,91", "{}") + "," +
                 PointFeature("\"11\",48", "{}") + "," + PointFeature("11,48", "[1]") + ",17,[]," +
                 PointFeature("12,49,5", "null") +
                 R"(,{"type":"Feature","geometry":{"type":"LineString","coordinates":[[1,2],[3,94]]}})" +
                 R"(,{"type":"Feature","geometry":{"type":"Polygon","coordinates":[[1,2],[3,4]]}})" +
                 R"(,{"type":"Feature","geometry":{"type":"LineString"}})" +
                 R"(,{"type":"Feature","geometry":{"type":"Point","coordinates":[[1,2]]}})"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "48.000000000 11.000000000\n49.000000000 12.000000000 5.0000\n");
    EXPECT_EQ(LinesOf(outcome.err),
              (std::vector<std::string>{
                  "-: feature 2: missing geometry", "-: feature 3: unknown geometry type 'Circle'",
                  "-: feature 4: missing longitude and latitude",
                  "-: feature 5: latitude '91' is outside -90..90", "-: feature 6: '\"11\"' is not a number",
                  "-: feature 7: invalid 'properties': expected an object",
                  "-: feature 8: expected a GeoJSON feature", "-: feature 9: expected a GeoJSON feature",
                  "-: feature 11: position 2: latitude '94' is outside -90..90",
                  "-: feature 12: invalid nesting of the coordinates of a Polygon",
                  "-: feature 13: invalid nesting of the coordinates of a LineString",
                  "-: feature 14: missing longitude and latitude"}));
}

// In the members of JSON results nest as the positions do; lines and rows have one position each.
TEST(GeoJson, HasEveryKindOfGeometry) {
    const auto feature = [](const std::string& geometry) {
        return R"({"type":"Feature","geometry":)" + geometry + R"(,"properties":{"n":1}})";
    };
    const std::string polygon =
        R"({"type":"Polygon","coordinates":[[[0.0,1.0],[2.0,3.0,4.5],[0.0,1.0]],[[5.0,6.0]]]})";
    const std::string multi = R"({"type":"MultiPolygon","coordinates":[[[[7.0,8.0]]],[]]})";
    const std::string collection = R"({"type":"GeometryCollection","geometries":[)" + polygon +
                                   R"(,{"type":)" + R"("Point","coordinates":[9.0,10.0]},)" + multi + "]}";
    const std::string input = Features(feature(collection) + ",\n" + feature(multi));
    ExpectDone(Convert({"--input", "geojson"}, input), input);

    const Outcome named = Convert({"--input", "geojson", "--to", "GEODEZ"}, input);
    const OrderedJson first = OrderedJson::parse(named.out)["features"][0]["properties"];
    EXPECT_EQ(first["latitude"], OrderedJson::parse("[[[1.0,3.0,1.0],[6.0]],10.0,[[[8.0]],[]]]"));
    EXPECT_EQ(first["longitude"], OrderedJson::parse("[[[0.0,2.0,0.0],[5.0]],9.0,[[[7.0]],[]]]"));

    ExpectDone(Convert({"--input", "geojson", "--output", "csv"}, Features(feature(polygon))),
               "latitude,longitude,height,n\n1.000000000,0.000000000,,1\n3.000000000,2.000000000,4.5,1\n"
               "1.000000000,0.000000000,,1\n6.000000000,5.000000000,,1\n");
    ExpectDone(Convert({"--input", "geojson", "--output", "jsonl"}, Features(feature(polygon))),
               R"({"latitude":[[1.0,3.0,1.0],[6.0]],"longitude":[[0.0,2.0,0.0],[5.0]],)"
               R"("height":[[null,4.5,null],[null]],"n":1})"
               "\n");
}

TEST(GeoJson, MayBeAFeatureOrAGeometryAlone) {
    ExpectDone(Convert({"--input", "geojson"}, PointFeature("11.0,48.0", R"({"a":1})")),
               Features(PointFeature("11.0,48.0", R"({"a":1})")));
    ExpectDone(Convert({"--input", "geojson", "--output", "lines"},
                       R"({"coordinates":[[11,48],[12,49,7]],"type":"MultiPoint"})"),
               "48.000000000 11.000000000\n49.000000000 12.000000000 7.0000\n");
    const Outcome without = Convert({"--input", "geojson"}, R"({"type":"Feature","geometry":null})");
    EXPECT_EQ(without.err, "-: feature 1: missing geometry\n");
    EXPECT_EQ(without.status, 1);
}

// A property that the second feature only has is the user's own in all of them.
TEST(GeoJson, NamesTheResultsOnceForAllFeatures) {
    const Outcome outcome =
        Convert({"--input", "geojson", "--to", "UTM"},
                Features(PointFeature("11.5755,48.1375", R"({"n":1})") + "," +
                         PointFeature("11.5755,48.1375", R"({"zone":"old town","zone UTM@WGS84":2})")));
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    const OrderedJson features = OrderedJson::parse(outcome.out)["features"];
    for (const OrderedJson& feature : features) {
        EXPECT_EQ(feature["properties"]["zone UTM@WGS84 UTM@WGS84"], 32);
        EXPECT_EQ(feature["properties"]["hemisphere"], "N");
    }
    EXPECT_FALSE(features[0]["properties"].contains("zone"));
    EXPECT_EQ(features[1]["properties"]["zone"], "old town");
}

// The same from a pipe, which can't be wound back.
TEST(GeoJson, NamesTheResultsOfAPipeOnce) {
    const ScratchDirectory files;
    const std::string text =
        Features(PointFeature("11.5,48.5", "{}") + "," + PointFeature("12,49", R"({"zone":7})"));
    const std::string file = files.File("a.geojson", text);
    const Outcome piped = RunProgram(
        "/bin/sh", {"-c", "cat '" + file + "' | " TESSARA_PROGRAM " convert --input geojson --to UTM"});
    ExpectDone(Convert({"--to", "UTM", file}, ""), piped.out);
    EXPECT_NE(piped.out.find("zone UTM@WGS84"), std::string::npos);
}

// 2^64 is no integer of 64 bits, and the last one is no double. Nothing of a property is touched but blanks.
TEST(GeoJson, PassesNumbersThroughUnchanged) {
    const std::string kept =
        R"({"id":18446744073709551616,"tenth":0.1000000000000000055511151231257827,"e":1E5,"deep":[{"a":1.0}]})";
    ExpectDone(Convert({"--input", "geojson"}, Features(PointFeature("11.0,48.0", kept))),
               Features(PointFeature("11.0,48.0", kept)));
    ExpectDone(Convert({"--input", "jsonl"},
                       "{\"lat\":1,\"lon\":2,\"id\":18446744073709551616,\"x\":[ 1, \"a b\" ]}\n"),
               "{\"latitude\":1.0,\"longitude\":2.0,\"id\":18446744073709551616,\"x\":[1,\"a b\"]}\n");
    ExpectDone(Convert({"--input", "jsonl", "--output", "csv"},
                       "{\"lat\":1,\"lon\":2,\"id\":18446744073709551616}\n"),
               "latitude,longitude,id\n1.000000000,2.000000000,18446744073709551616\n");
}

TEST(GeoJson, WritesNoCollectionForAFileThatHoldsNone) {
    for (const char* text : {"[]", "{", "{\"type\":\"FeatureCollection\"}", ""})
        EXPECT_EQ(Convert({"--input", "geojson"}, text).out, "") << text;
}

TEST(GeoJson, RefusesAnotherReferenceSystem) {
    const auto withCrs = [](const std::string& name) {
        return R"({"type":"FeatureCollection","crs":{"type":"name","properties":{"name":")" + name +
               R"("}},"features":[)" + PointFeature("11,48", "{}") + "]}";
    };
    ExpectDone(Convert({"--input", "geojson", "--output", "lines"}, withCrs("urn:ogc:def:crs:OGC:1.3:CRS84")),
               "48.000000000 11.000000000\n");
    const Outcome outcome =
        Convert({"--input", "geojson", "--output", "lines"}, withCrs("urn:ogc:def:crs:EPSG::31468"));
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "-: feature 1: unsupported 'crs'; GeoJSON must be on WGS84\n");
}

// Features are written while the file is being read.
TEST(GeoJson, ReportsAnotherReferenceSystemBehindTheFeatures) {
    const Outcome outcome =
        Convert({"--input", "geojson", "--output", "lines"},
                R"({"type":"FeatureCollection","features":[)" + PointFeature("11,48", "{}") +
                    R"(],"crs":{"type":"name","properties":{"name":"urn:ogc:def:crs:EPSG::31468"}}})");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err,
              "-: unsupported 'crs' after features, which were read as WGS84; GeoJSON must be on WGS84\n");
}

TEST(GeoJson, ReportsFilesThatAreNoCollection) {
    for (const std::string text : {"[]", "{}", "7", R"({"type":"FeatureCollection"})",
                                   R"({"type":"FeatureCollection","features":null})",
                                   R"({"type":"FeatureCollection","features":{"a":{"type":"Feature"}}})"}) {
        const Outcome outcome = Convert({"--input", "geojson", "--output", "csv"}, text);
        EXPECT_EQ(outcome.err, "-: expected a GeoJSON FeatureCollection, Feature or geometry\n") << text;
        EXPECT_EQ(outcome.status, 1) << text;
    }
    EXPECT_EQ(Convert({"--input", "geojson"}, "").err, "-: invalid JSON at byte 1\n");
}

TEST(GeoJson, TellWhereANumberIsTooLarge) {
    const std::string start = R"({"type":"FeatureCollection","features":[{"type":"Feature",)"
                              R"("geometry":{"type":"Point","coordinates":[1,)";
    const std::string number = "1e999";
    const Outcome outcome = Convert({"--input", "geojson"}, start + number + "]}}]}");
    EXPECT_EQ(outcome.err,
              "-: number too large before byte " + std::to_string(start.size() + number.size() + 1) + "\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(GeoJson, WritesWhatStandsBeforeTheEndOfABrokenFile) {
    const std::string whole = Features(PointFeature("11.0,48.0", "{}"));
    const Outcome outcome = Convert({"--input", "geojson"}, whole.substr(0, whole.size() - 4));
    EXPECT_EQ(outcome.out, whole);
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err.find("-: invalid JSON at byte "), 0u) << outcome.err;
}

TEST(GeoJson, IsACollectionWithoutAnyPositionToo) {
    const Outcome outcome = Convert({"--output", "geojson"}, "# nothing\n");
    EXPECT_EQ(OrderedJson::parse(outcome.out),
              (OrderedJson{{"type", "FeatureCollection"}, {"features", OrderedJson::array()}}));
}

TEST(CsvOfOtherForms, HasAColumnForEveryMemberOfTheFile) {
    ExpectDone(Convert({"--input", "jsonl", "--output", "csv"},
                       "{\"lat\":1,\"lon\":2,\"a\":true}\n"
                       "{\"lat\":3,\"lon\":4}\n"
                       "{\"lat\":5,\"lon\":6,\"b\":1}\n"),
               "latitude,longitude,a,b\n1.000000000,2.000000000,true,\n3.000000000,4.000000000,,\n"
               "5.000000000,6.000000000,,1\n");
}

TEST(CsvOfOtherForms, ReportsAMemberThatTheFirstFileHasnt) {
    const ScratchDirectory files;
    const std::string first = files.File("a.jsonl", "{\"lat\":1,\"lon\":2,\"a\":true}\n");
    const std::string second =
        files.File("b.jsonl", "{\"lat\":3,\"lon\":4}\n{\"lat\":5,\"lon\":6,\"b\":1}\n");
    const Outcome outcome = Convert({"--output", "csv", first, second}, "");
    EXPECT_EQ(outcome.out, "latitude,longitude,a\n1.000000000,2.000000000,true\n3.000000000,4.000000000,\n");
    EXPECT_EQ(outcome.err, second + ":2: no column for 'b', which the first file does not have\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(Forms, MayBeLinesOnEitherSide) {
    ExpectDone(Convert({"--output", "csv", "--to", "UTM"}, "48.1375 11.5755 520 # Munich\n\n"),
               std::string("zone,hemisphere,easting,northing,height\n") + MUNICH_FIELDS + ",520\n");
    ExpectDone(Convert({"--input", "csv", "--output", "lines"}, "lat,lon,height\n48,11,5\n"),
               "48.000000000 11.000000000 5.0000\n");
    ExpectDone(Convert({"--input", "csv", "--output", "lines", "--from", "UTM", "--to", "UTMREF"},
                       "north,east,id\nN 5334791,32 691602,7\n"),
               std::string(MUNICH_NORTH) + "\t" + MUNICH_EAST + "\n");
}

TEST(Forms, SurviveAnyBytes) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i)
        bytes += static_cast<char>(i * 7919 % 256);
    for (const char* form : {"csv", "jsonl", "geojson"}) {
        EXPECT_EQ(Convert({"--input", form}, bytes).status, 1) << form;
        EXPECT_EQ(Convert({"--input", form, "--from", form[0] == 'g' ? "WGS84" : "UTM"}, bytes).status, 1);
        EXPECT_EQ(Convert({"--input", form}, std::string(1 << 20, '"')).status, 1) << form;
        EXPECT_EQ(Convert({"--input", form}, std::string(1 << 20, '[')).status, 1) << form;
    }
}

TEST(Forms, BytesThatAreNoUtf8AreReplacedInJson) {
    const Outcome outcome =
        Convert({"--input", "csv", "--output", "jsonl"}, "lat,lon,n\xF6\n48,11,K\xF6ln\n");
    ASSERT_EQ(outcome.status, 0) << outcome.err;
    EXPECT_EQ(OrderedJson::parse(outcome.out)["n\xEF\xBF\xBD"], "K\xEF\xBF\xBDln");
}

TEST(FormFiles, AreToldByTheEndingsOfTheirNames) {
    const ScratchDirectory files;
    const std::string object = "{\"lat\":48,\"lon\":11}\n";
    const std::string point = Features(PointFeature("11,48", "{}"));
    for (const std::string& file :
         {files.File("a.csv", "lat,lon\n48,11\n"), files.File("a.jsonl", object),
          files.File("b.CSV", "lat,lon\n48,11\n"), files.File("a.tsv", "lat\tlon\n48\t11\n"),
          files.File("a.ndjson", object), files.File("a.geojson", point), files.File("a.json", point),
          files.File("a.txt", "48 11\n"), files.File("csv", "48 11\n")})
        ExpectDone(Convert({"--output", "lines", file}, ""), "48.000000000 11.000000000\n");
}

TEST(FormFiles, AreWrittenInTheFormOfTheFirst) {
    const ScratchDirectory files;
    const std::string csv = files.File("a.csv", "lat,lon\n48,11\n");
    const std::string geojson = files.File("b.geojson", Features(PointFeature("12,49", "{}")));
    ExpectDone(Convert({csv, geojson}, ""),
               "latitude,longitude\n48.000000000,11.000000000\n49.000000000,12.000000000\n");
    ExpectDone(Convert({geojson, csv}, ""),
               Features(PointFeature("12.0,49.0", "{}") + ",\n" + PointFeature("11.0,48.0", "{}")));
}

TEST(FormFiles, InputNamesTheFormWhateverTheEnding) {
    const ScratchDirectory files;
    ExpectDone(Convert({"--input", "lines", files.File("a.csv", "48 11\n")}, ""),
               "48.000000000 11.000000000\n");
}

TEST(FormFiles, RejectsHaveTheFormOfTheInput) {
    const ScratchDirectory files;
    Convert({"--input", "csv", "--rejects", files.Path("csv")}, "lat,lon,n\n48,11,a\n91,11,\"b\nc\"\n");
    EXPECT_EQ(files.Contents("csv"), "lat,lon,n\n91,11,\"b\nc\"\n");
    Convert({"--input", "jsonl", "--rejects", files.Path("jsonl")},
            "{\"lat\":1,\"lon\":2}\n{\"lat\": 1}\nx\n");
    EXPECT_EQ(files.Contents("jsonl"), "{\"lat\": 1}\nx\n");
    Convert({"--input", "jsonl", "--columns", "lat,lon", "--rejects", files.Path("named")},
            "{\"lat\":1,\"lon\":2}\n{\"lat\": 1}\n");
    EXPECT_EQ(files.Contents("named"), "{\"lat\": 1}\n");
    const std::string bad = PointFeature("11,91", R"({"a":1})");
    Convert({"--input", "geojson", "--rejects", files.Path("geojson")},
            Features(PointFeature("11,48", "{}") + "," + bad));
    EXPECT_EQ(files.Contents("geojson"), Features(bad));
    Convert({"--rejects", files.Path("lines")}, "48 11\n91 11 # x\nabc\n");
    EXPECT_EQ(files.Contents("lines"), "91 11 # x\nabc\n");
}

TEST(FormFiles, RejectsDontOverwriteAFileThatIsRead) {
    const ScratchDirectory files;
    const std::string file = files.File("a.csv", "lat,lon\n48,11\n");
    const Outcome outcome = Convert({"--rejects", file, file}, "");
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.err, file + ": cannot write rejects to an input file\n");
    EXPECT_EQ(files.Contents("a.csv"), "lat,lon\n48,11\n");
}

TEST(FormFiles, ThatCantBeReadAreReported) {
    const ScratchDirectory files;
    const Outcome outcome = Convert({files.Path("missing.csv"), files.File("a.csv", "lat,lon\n48,11\n")}, "");
    EXPECT_EQ(outcome.err, files.Path("missing.csv") + ": cannot read the file: No such file or directory\n");
    EXPECT_EQ(outcome.out, "latitude,longitude\n48.000000000,11.000000000\n");
    EXPECT_EQ(outcome.status, 1);
}

TEST(FormFiles, WhatDoesntGoTogetherIsWrongUsage) {
    const ScratchDirectory files;
    const std::string geojson = files.Path("a.geojson");
    ExpectUsageError(Convert({"--from", "GER", geojson}, ""), "GeoJSON is in degrees on WGS84; omit --from");
    ExpectUsageError(Convert({"--from", "UTM", geojson}, ""), "GeoJSON is in degrees on WGS84; omit --from");
    ExpectUsageError(Convert({"--json", "--output", "csv"}, ""), "use --output jsonl");
    ExpectUsageError(Convert({"--columns", "a,b"}, ""), "use --input csv");
    ExpectUsageError(Convert({"--input", "csv", "--from", "UTM", "--columns", "a,b,c"}, ""), "NORTH,EAST");
    ExpectUsageError(Convert({"--rejects", files.Path("r"), geojson, files.Path("a.csv")}, ""),
                     "convert each format separately");
    ExpectUsageError(Convert({"--input", "xml"}, ""), "--input");
    ExpectUsageError(Convert({"--output", "shape"}, ""), "--output");
    EXPECT_FALSE(std::filesystem::exists(files.Path("r")));
}
