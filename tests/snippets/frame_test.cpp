// The examples in the headers of handles, lists and other parts of the frame.
#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "snippets/header_example.h"
#include "support/lines.h"
#include "support/objects.h"
#include "support/space.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HeaderExample;

TEST_F(HeaderExample, Array) {
    const IRef<ICoord> munich = testing::Place(48.1375, 11.5755, 520.0);
    const IRef<ICoord> tokyo = testing::Place(35.6895, 139.6917, 40.0);
    std::vector<double> heights;

    const tessara::IRef line = tessara::CreateClassArray();
    line->Add(munich);
    line->Add(tokyo);
    for (std::uint32_t i = 0; i < line->GetCount(); ++i) {
        const tessara::IRef<tessara::ICoord> vertex(line->GetAt(i));
        if (vertex.IsValid()) heights.push_back(vertex->GetHeight());  // 520, then 40
    }

    EXPECT_EQ(heights, (std::vector{520.0, 40.0}));
    IsDone();
}

TEST_F(HeaderExample, FloatPoint) {
    const tessara::IRef corner = tessara::CreateClassFloatPoint();
    corner->SetX(7000.0);
    corner->SetY(6000.0);

    EXPECT_EQ(corner->GetX(), 7000.0);
    EXPECT_EQ(corner->GetY(), 6000.0);
    EXPECT_EQ(corner->GetZ(), 0.0);
    IsDone();
}

TEST_F(HeaderExample, Ref) {
    const IRef<ICoordinateCompare> compare(CreateClassCoordinateCompare());
    const IRef<ICoord> other(CreateClassCoord());

    const tessara::IRef coord = tessara::CreateClassCoord();     // the count is 1
    const tessara::IRef<tessara::ICoordInternal> record(coord);  // another interface, the count is 2
    if (!record.IsValid()) return;
    compare->CompareNorthSouth(coord, other);  // handles are passed directly

    EXPECT_EQ(testing::CountOf(coord), 2u);
    IsDone();
}

TEST_F(HeaderExample, Component) {
    const tessara::IRef<tessara::IObjectManager> manager(
        tessara::NewObject<tessara::host::ObjectManager>(tessara::CreateClassArray));
    tessara::ITessaraComponent* component = nullptr;
    tessara::GetTessaraComponent(manager, &component);
    component->Initialize();  // registers every class
    const tessara::IRef<tessara::ICoord> coord(tessara::CLSID_Coord, manager);
    component->Terminate();                             // unregisters them and ends the singletons
    tessara::GetTessaraComponent(nullptr, &component);  // drops the manager

    EXPECT_TRUE(coord.IsValid());
    // The library has dropped its references: the handle's is left.
    EXPECT_EQ(testing::CountOf(manager), 1u);
    IsDone();
}

TEST_F(HeaderExample, HostCoord) {
    const CKoord record = testing::Utm32(600000.0, 5300000.0);

    const tessara::IRef here = tessara::host::CoordOf(record);
    const tessara::IRef copy = tessara::host::Copy(here);
    const std::optional utm = tessara::LoadIf<tessara::UtmPayload>(tessara::host::RecordOf(copy));

    ASSERT_TRUE(utm.has_value());
    EXPECT_EQ(utm->easting, 600000.0);
    EXPECT_NE(copy.Get(), here.Get());
    IsDone();
}

TEST_F(HeaderExample, Vector) {
    tessara::Vector position{6378137.0, 0.0};
    position.Append(0.0);
    const std::uint32_t size = position.Size();  // 3

    EXPECT_EQ(size, 3u);
    EXPECT_EQ(position[2], 0.0);
    IsDone();
}

}  // namespace
}  // namespace tessara
