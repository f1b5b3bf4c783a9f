#include "conversion/datum_descriptions.h"

#include <gtest/gtest.h>

#include <fstream>
#include <map>
#include <sstream>
#include <string>

#include "support/paths.h"
#include "tessara/kernel/constants.h"

namespace tessara::toolkit {
namespace {

// Number of a datum, and the code of its translation in a registry.
std::map<std::int32_t, std::string> RegistryCodes() {
    std::map<std::int32_t, std::string> codes;
    std::ifstream file(tessara::testing::SourceDir() + "/tests/data/kernel/datum_registry.txt");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        std::istringstream words(line);
        std::int32_t number = 0;
        std::string name, authority, code;
        if (words >> number >> name >> authority >> code) codes[number] = authority + " " + code;
    }
    EXPECT_GT(codes.size(), 200u);
    return codes;
}

TEST(DatumDescriptions, NameTheRegistrysTranslations) {
    const auto codes = RegistryCodes();
    for (std::int32_t datum = 0; datum < DATUM_COUNT; ++datum) {
        const DatumDescription* const description = DescribeDatum(datum);
        ASSERT_NE(description, nullptr) << datum;
        const auto found = codes.find(datum);
        EXPECT_EQ(description->code, found != codes.end() ? found->second : "") << datum;
        EXPECT_STRNE(description->name, "") << datum;
        EXPECT_TRUE(*description->code != '\0' || description->accuracy == 0.0) << datum;
    }
    EXPECT_EQ(DescribeDatum(-1), nullptr);
    EXPECT_EQ(DescribeDatum(DATUM_COUNT), nullptr);
}

TEST(DatumDescriptions, SayHowWellADatumFitsOrThatNobodyDoes) {
    // EPSG 1103: Adindan to WGS 84 (4), Ethiopia, 6 m.
    EXPECT_EQ(DatumLine(16), "Adindan; Africa: Ethiopia; within 6 m (EPSG 1103)");
    EXPECT_EQ(DatumLine(6), "MGI; Europe: Austria; no accuracy is registered");
    EXPECT_EQ(DatumLine(999), "");
}

TEST(DatumDescriptions, AreFoundByNameEllipsoidRegionAndCountry) {
    EXPECT_TRUE(MatchesDatum(16, "adi"));
    EXPECT_TRUE(MatchesDatum(16, "Adindan"));
    EXPECT_TRUE(MatchesDatum(16, "clarke"));
    EXPECT_TRUE(MatchesDatum(16, "AFRICA ethiopia"));
    EXPECT_FALSE(MatchesDatum(16, "asia"));
    EXPECT_FALSE(MatchesDatum(16, "africa bessel"));
    EXPECT_TRUE(MatchesDatum(3, "bessel germany"));
    EXPECT_TRUE(MatchesDatum(3, ""));
    EXPECT_FALSE(MatchesDatum(DATUM_COUNT, ""));
}

}  // namespace
}  // namespace tessara::toolkit
