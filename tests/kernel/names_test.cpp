#include "tessara/kernel/names.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace tessara::names_test {
namespace {

using Names = std::vector<std::pair<std::uint32_t, std::string>>;

Names InOrder(std::span<const NameRow> table) {
    Names names;
    for (const NameRow& row : table)
        names.emplace_back(row.number, row.name);
    return names;
}

const Names PROJECTIONS = {
    {0, "UNKNOWN"},      {1, "NONE"},
    {2, "UTM"},          {3, "GAUKRU"},
    {4, "LAMBERT2"},     {5, "LAMBERTFR"},
    {6, "EQUALARC"},     {7, "POLYNOM"},
    {8, "MERCATOR"},     {9, "BMN"},
    {10, "CH"},          {11, "AZYL"},
    {12, "DD"},          {13, "GAUKRU6"},
    {14, "UPS"},         {15, "TM"},
    {16, "PO_MILITARY"}, {18, "STEREOGR_NL"},
    {19, "LAMBERTCC"},   {20, "LUREF"},
    {21, "WAGNER-IV"},   {17, "VAN_DER_GRINTEN"},
};

const Names MAP_TYPES = {
    {0, "UNKNOWN"},    {1, "UTM"},        {2, "GAUKRU"},
    {3, "LAMBERT2"},   {4, "EQUALARC"},   {5, "NONE"},
    {6, "MERCATOR"},   {7, "BMN"},        {8, "CH"},
    {9, "AZYL"},       {10, "GAUKRU6"},   {11, "UPS"},
    {12, "TM"},        {14, "LAMBERTFR"}, {15, "STEREOGR_NL"},
    {16, "LAMBERTCC"}, {17, "WAGNER-IV"}, {13, "VAN_DER_GRINTEN"},
};

const Names COORDINATE_TYPES = {
    {0, "LONGPIXEL"},  {1, "FLOATPIXEL"}, {2, "UTM"},    {3, "UTMREF"}, {4, "GEODEZ"},       {5, "GEOGRAD"},
    {6, "GEOREF"},     {7, "GK"},         {8, "BMN"},    {9, "OEM"},    {10, "CH"},          {11, "ECEF"},
    {12, "GEODEZMIN"}, {13, "GK6"},       {14, "GK-AT"}, {15, "UPS"},   {16, "PO_MILITARY"}, {17, "TM"},
    {18, "VDG"},       {19, "BNG"},       {20, "ING"},   {21, "RD"},    {22, "LUREF"},
};

TEST(Names, StandInTheOrderOfTheVocabulary) {
    EXPECT_EQ(InOrder(Projection_Names()), PROJECTIONS);
    EXPECT_EQ(InOrder(MapType_Names()), MAP_TYPES);
    EXPECT_EQ(InOrder(CoordinateType_Names()), COORDINATE_TYPES);
}

TEST(Names, AreFoundByNumber) {
    for (const auto& [number, name] : PROJECTIONS)
        EXPECT_EQ(Projection_Name(static_cast<std::int32_t>(number)), name);
    for (const auto& [number, name] : MAP_TYPES)
        EXPECT_EQ(MapType_Name(static_cast<std::int32_t>(number)), name);
    for (const auto& [number, name] : COORDINATE_TYPES)
        EXPECT_EQ(CoordinateType_Name(static_cast<std::int32_t>(number)), name);
}

TEST(Names, AreNullForNumbersWithoutOne) {
    for (const std::int32_t number : {-1, INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(Projection_Name(number), nullptr);
        EXPECT_EQ(MapType_Name(number), nullptr);
        EXPECT_EQ(CoordinateType_Name(number), nullptr);
    }
    EXPECT_EQ(Projection_Name(22), nullptr);
    EXPECT_EQ(MapType_Name(18), nullptr);
    EXPECT_EQ(CoordinateType_Name(23), nullptr);
}

}  // namespace
}  // namespace tessara::names_test
