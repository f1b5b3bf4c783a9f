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
        {IidOf<IUnknown>, "00000000-0000-0000-C000-000000000046"},
        {IidOf<IClassFactory>, "00000001-0000-0000-C000-000000000046"},
        {IidOf<IObjectManager>, "11815BAA-8A3A-4D45-9639-46E784AEC270"},
        {IidOf<ITessaraComponent>, "47D38CE0-BD40-4117-A738-7C3FBC8C3E4A"},
        {IidOf<ITessaraComponentInit>, "EC32B33F-4EC0-490B-93FB-39C25FF24F84"},
        {IidOf<ITypeInfoDesc>, "F0C06911-B2E4-4953-8766-4A298A2514FA"},
        {IidOf<ITerminator>, "BE5E3D60-D9C9-4003-AF90-9E8C98AFBA3A"},
        {IidOf<ICircleOnTangentPlane>, "07D17B1D-7E47-4421-96B2-3CE912714ED9"},
        {IidOf<ICoordGeographic>, "0A8D3EB2-ADE6-4399-B54D-313ABC81AB70"},
        {IidOf<ICoord>, "B0371A07-D1E1-4F35-A7E6-D6CB8B851B3B"},
        {IidOf<ICoordInternal>, "461B9FF0-EE7F-4BF5-ABE6-F9BB0EEDF512"},
        {IidOf<ICoordinateString>, "FFEFADFA-A9D9-4F9D-815F-29B95410DE17"},
        {IidOf<ICoordinateArea>, "BBC9C06E-DFB8-4A8F-95C1-535BC32A43EE"},
        {IidOf<ICoordinateAreaInternal>, "ECED2B61-F554-4CC5-BCDE-C00D5F18C476"},
        {IidOf<ICoordinateAverage>, "AFADCB18-85B8-4E45-81C5-0411952E6B5B"},
        {IidOf<ICoordinateChecker>, "4B68D48E-2688-462B-BF4C-B9F6D8DF0417"},
        {IidOf<ICoordCheckerUTMREF>, "08E3B2CA-C8D6-42E8-9E1C-90CA164EA4AA"},
        {IidOf<ICoordinateCompare>, "F410B044-E00F-429F-A09D-C21C31DC0B3F"},
        {IidOf<ICoordinateGrid>, "B22763C2-57F5-4FFD-B028-F82F84242609"},
        {IidOf<ICoordinateGridFactory>, "86915788-2BD0-49FC-ACD5-0367AE993045"},
        {IidOf<ICoordinateInit>, "CDFEF2F5-40D2-459B-9B42-9E291DE57ABF"},
        {IidOf<ICoordinateNeighbor>, "CB374C83-9347-48BF-83E2-A51F595DA72C"},
        {IidOf<ICoordinateReference>, "BA2B919A-E90A-4E1D-B032-E1B96D137DD8"},
        {IidOf<ICoordinateSystem>, "EFD18247-8544-48F7-9BF5-AC4C71EEB756"},
        {IidOf<IGeoDate>, "A3CC5B2B-FAA7-4564-B704-A4285730035F"},
        {IidOf<ICoordinateTransfer>, "390FAA7E-DBE5-4734-94FA-905C72130D32"},
        {IidOf<IEllipseOnTangentPlane>, "A59825D9-16A1-49F3-A0BF-DAC5C6804A11"},
        {IidOf<IEllipsoidOfRevolution>, "EC4DDAC3-5262-4775-B65D-8D6C3688C90A"},
        {IidOf<IVector>, "3C41A22E-B213-4CC6-89DB-0BA5F769AB4A"},
        {IidOf<ILineIntersectionParameters>, "C5B6DC61-BD05-425F-BDFB-0E5B6FDFC259"},
        {IidOf<IIntersectionResults>, "73D3361D-E2DC-42D3-A4E4-DDBA41154279"},
        {IidOf<ILinePoints>, "027100B5-A4DC-4004-9E06-2CE5710DCD8B"},
        {IidOf<IMapCoordCreatorFactory>, "B861988E-EF3B-4E77-8112-936BF1E5B332"},
        {IidOf<IMapCoordCreator>, "CBEE70FA-A9C5-45F1-A78F-E6B2CF1C6CA1"},
        {IidOf<IMapCoordOperations>, "B6573915-F3BD-404A-BB6F-2F47595B0086"},
        {IidOf<IMapCoordOperationsFactory>, "D0C0CA6B-7659-40D9-B7FF-BEEA27EC9A30"},
        {IidOf<IMapParamInternal>, "99D5DAA8-0930-49F1-8D0F-257F2D6566C1"},
        {IidOf<IProjection>, "E7697177-2DD8-48FB-87A7-0436D3B095D6"},
        {IidOf<IProjectionFactory>, "821CE8CD-1FE0-460C-AE06-69E91E97394E"},
        {IidOf<IReferencePoint>, "1458B637-049B-4DBF-B9A4-3ACB522F141D"},
        {IidOf<ITangentPlane>, "B74B889B-9FA1-4829-8F0C-698EFD49378D"},
        {IidOf<ITransformableMapPixel>, "53A5EC95-45B2-4496-8D63-76B88F97AB39"},
        {IidOf<ITransformableInternal>, "CE5B9B1D-C598-4F16-B13A-6C1E01006175"},
        {IidOf<IZoneCoordOperations>, "64B1999A-FA32-4F61-85A3-55796E0FD00F"},
        {IidOf<IArray>, "71562280-B94E-40E4-8A40-0AC853189111"},
        {IidOf<IFloatPoint>, "5FC9D1D6-3A2C-47F0-AE34-8C65C59406AB"},
        {IidOf<ITessaraString>, "FB8A0FB3-57DA-4B19-BAF4-C2AD58AC3B73"},
        {IidOf<IRect>, "BE741B91-24DD-44F0-AA80-6B652E6E48BD"},
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
