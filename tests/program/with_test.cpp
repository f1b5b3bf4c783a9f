// Convergence and scale beside the values of a grid.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

#include "program/run_program.h"

using tessara::testing::Convert;
using tessara::testing::ExpectUsageError;
using tessara::testing::Outcome;
using tessara::testing::Tessara;
using Json = nlohmann::json;

namespace {

// echo 48.1375 2.5755 | TransverseMercatorProj -s -l 0 -k 0.9996 -p 9, in zone 32 at 11.5755
constexpr double CONVERGENCE = 1.918680329454952;
constexpr double SCALE = 1.000051102525713;

}  // namespace

TEST(With, AddsConvergenceAndScaleToTheFieldsOfAGrid) {
    const Outcome outcome =
        Convert({"--to", "UTM", "--to", "GEODEZ", "--with", "convergence,scale"}, "48.1375 11.5755 520\n");
    EXPECT_EQ(outcome.status, 0) << outcome.err;
    std::istringstream line(outcome.out.substr(std::string("32 N 691602.6597 5334791.1445").size()));
    double convergence = 0.0, scale = 0.0;
    std::string rest;
    line >> convergence >> scale;
    std::getline(line, rest);
    // Half a unit of the last digit: 9 decimals, and 10.
    EXPECT_NEAR(convergence, CONVERGENCE, 0.6e-9);
    EXPECT_NEAR(scale, SCALE, 0.6e-10);
    EXPECT_EQ(rest, " 520.0000\t48.137500000 11.575500000 520.0000");
}

TEST(With, KnowsTheExactPositionOfAReferenceInWholeMetres) {
    const Outcome outcome =
        Convert({"--json", "--to", "UTMREF", "--with", "convergence"}, "48.1375 11.5755\n");
    const Json result = Json::parse(outcome.out)["results"][0];
    EXPECT_NEAR(result["convergence"].get<double>(), CONVERGENCE, 1e-10);
    EXPECT_FALSE(result.contains("scale"));
}

TEST(With, NamesThemAmongColumnsAndTexts) {
    const Outcome csv =
        Convert({"--input", "csv", "--to", "UTM", "--with", "scale"}, "lat,lon,scale\n48.1375,11.5755,7\n");
    EXPECT_EQ(csv.out.substr(0, csv.out.find('\n')),
              "zone,hemisphere,easting,northing,scale UTM@WGS84,scale");
    // echo 191602 5334791 | TransverseMercatorProj -r -s -l 0 -k 0.9996 -p 9: 1.000051099419331
    const Outcome texts =
        Convert({"--from", "UTM", "--to", "UTM", "--with", "scale"}, "N 5334791;32 691602;x\n");
    EXPECT_EQ(texts.out, "N 5334791.000;32 691602.000;1.0000510994;x\n");
}

TEST(With, WantsAGridAmongTheTargets) {
    ExpectUsageError(Convert({"--with", "scale"}, ""), "--with");
    ExpectUsageError(Convert({"--with", "scale", "--to", "GEODEZ"}, ""), "--with");
    ExpectUsageError(Convert({"--with", "area", "--to", "UTM"}, ""), "--with");
}
