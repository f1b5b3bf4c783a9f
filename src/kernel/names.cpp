#include "tessara/kernel/names.h"

#include <array>

namespace tessara {
namespace {

constexpr std::array<NameRow, 22> PROJECTIONS{{
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
}};

constexpr std::array<NameRow, 18> MAP_TYPES{{
    {0, "UNKNOWN"},
    {1, "UTM"},
    {2, "GAUKRU"},
    {3, "LAMBERT2"},
    {4, "EQUALARC"},
    {5, "NONE"},
    {6, "MERCATOR"},
    {7, "BMN"},
    {8, "CH"},
    {9, "AZYL"},
    {10, "GAUKRU6"},
    {11, "UPS"},
    {12, "TM"},
    {14, "LAMBERTFR"},
    {15, "STEREOGR_NL"},
    {16, "LAMBERTCC"},
    {17, "WAGNER-IV"},
    {13, "VAN_DER_GRINTEN"},
}};

const char* Find(std::span<const NameRow> table, std::int32_t number) {
    for (const NameRow& row : table) {
        if (row.number == static_cast<std::uint32_t>(number)) return row.name;
    }
    return nullptr;
}

}  // namespace

std::span<const NameRow> Projection_Names() {
    return PROJECTIONS;
}

std::span<const NameRow> MapType_Names() {
    return MAP_TYPES;
}

const char* Projection_Name(std::int32_t projection) {
    return Find(PROJECTIONS, projection);
}

const char* MapType_Name(std::int32_t mapType) {
    return Find(MAP_TYPES, mapType);
}

}  // namespace tessara
