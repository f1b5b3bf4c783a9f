#include "tessara/guid.h"

#include <gtest/gtest.h>

#include <cstring>

#include "support/objects.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::TextOf;

TEST(Guid, TextGoesToItsFourPartsInOrder) {
    constexpr GUID id = ParseGuid("01234567-89AB-CDEF-0246-8ACE13579BDF");
    EXPECT_EQ(id.Data1, 0x01234567u);
    EXPECT_EQ(id.Data2, 0x89AB);
    EXPECT_EQ(id.Data3, 0xCDEF);
    const std::uint8_t data4[8] = {0x02, 0x46, 0x8A, 0xCE, 0x13, 0x57, 0x9B, 0xDF};
    EXPECT_EQ(std::memcmp(id.Data4, data4, sizeof data4), 0);
}

TEST(Guid, IsEqualByItsBytes) {
    const GUID id = IID_IUnknown;
    EXPECT_TRUE(id == IID_IUnknown);
    GUID other = id;
    other.Data4[7] ^= 1;
    EXPECT_FALSE(id == other);
    other = id;
    other.Data1 ^= 0x80000000u;
    EXPECT_FALSE(id == other);
}

TEST(Guid, InterfacesHaveTheirPublishedIds) {
    const struct {
        const GUID& id;
        const char* text;
    } rows[] = {
        {IID_IUnknown, "00000000-0000-0000-C000-000000000046"},
        {IID_IClassFactory, "00000001-0000-0000-C000-000000000046"},
        {IID_IObjectManager, "11815BAA-8A3A-4D45-9639-46E784AEC270"},
        {IID_ITessaraComponent, "47D38CE0-BD40-4117-A738-7C3FBC8C3E4A"},
        {IID_ITessaraComponentInit, "EC32B33F-4EC0-490B-93FB-39C25FF24F84"},
        {IID_ITypeInfoDesc, "F0C06911-B2E4-4953-8766-4A298A2514FA"},
        {IID_ITerminator, "BE5E3D60-D9C9-4003-AF90-9E8C98AFBA3A"},
        {IID_ICoordGeographic, "0A8D3EB2-ADE6-4399-B54D-313ABC81AB70"},
        {IID_ICoord, "B0371A07-D1E1-4F35-A7E6-D6CB8B851B3B"},
        {IID_ICoordInternal, "461B9FF0-EE7F-4BF5-ABE6-F9BB0EEDF512"},
        {IID_ICoordinateInit, "CDFEF2F5-40D2-459B-9B42-9E291DE57ABF"},
        {IID_ICoordinateReference, "BA2B919A-E90A-4E1D-B032-E1B96D137DD8"},
        {IID_ICoordinateSystem, "EFD18247-8544-48F7-9BF5-AC4C71EEB756"},
        {IID_IGeoDate, "A3CC5B2B-FAA7-4564-B704-A4285730035F"},
        {IID_IZoneCoordOperations, "64B1999A-FA32-4F61-85A3-55796E0FD00F"},
        {IID_IArray, "71562280-B94E-40E4-8A40-0AC853189111"},
        {IID_IFloatPoint, "5FC9D1D6-3A2C-47F0-AE34-8C65C59406AB"},
        {IID_ITessaraString, "FB8A0FB3-57DA-4B19-BAF4-C2AD58AC3B73"},
        {IID_IRect, "BE741B91-24DD-44F0-AA80-6B652E6E48BD"},
        {CLSID_HostArray, "F952C76B-DD15-4938-BA49-872AE81AB89D"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(TextOf(row.id), row.text);
}

TEST(Guid, AnInterfaceKnowsItsOwnId) {
    EXPECT_EQ(&IidOf<IUnknown>, &IID_IUnknown);
    EXPECT_EQ(&IidOf<ICoord>, &IID_ICoord);
    EXPECT_EQ(&IidOf<ICoordInternal>, &IID_ICoordInternal);
    EXPECT_EQ(&IidOf<ITessaraString>, &IID_ITessaraString);
    EXPECT_EQ(&IidOf<IRect>, &IID_IRect);
}

}  // namespace
}  // namespace tessara
