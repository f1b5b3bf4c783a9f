// The examples in the headers of areas and grids.
#include <gtest/gtest.h>

#include <vector>

#include "snippets/header_example.h"
#include "support/lines.h"
#include "support/map_objects.h"
#include "support/space.h"
#include "tessara/tessara.h"

namespace tessara {
namespace {

using testing::HeaderExample;

TEST_F(HeaderExample, CoordinateArea) {
    const IRef<IArray> first = testing::PixelLine({{0.0, 0.0}, {100.0, 0.0}, {100.0, 100.0}, {0.0, 100.0}});
    const IRef<IArray> second =
        testing::PixelLine({{50.0, 0.0}, {150.0, 0.0}, {150.0, 100.0}, {50.0, 100.0}});

    const tessara::IRef areas = tessara::CreateClassCoordinateArea();
    const tessara::IRef neither = tessara::CreateClassArray();
    const tessara::IRef onlySecond = tessara::CreateClassArray();
    const tessara::IRef onlyFirst = tessara::CreateClassArray();
    const tessara::IRef both = tessara::CreateClassArray();
    const std::int32_t relation = areas->Overlay(first, second, neither, onlySecond, onlyFirst, both);
    // OVERLAY_CROSSING; one part each in `onlySecond`, `onlyFirst` and `both`, none in `neither`

    EXPECT_EQ(relation, OVERLAY_CROSSING);
    EXPECT_EQ(neither->GetCount(), 0u);
    EXPECT_EQ(onlySecond->GetCount(), 1u);
    EXPECT_EQ(onlyFirst->GetCount(), 1u);
    EXPECT_EQ(both->GetCount(), 1u);
    IsDone();
}

TEST_F(HeaderExample, CoordinateGrid) {
    const IRef<IMapCoordOperations> map = testing::DegreeMap(10.0, 50.0, 100.0);
    const IRef<ICoord> northWest = testing::Place(49.9, 10.1), northEast = testing::Place(49.9, 11.9);
    const IRef<ICoord> southEast = testing::Place(49.1, 11.9), southWest = testing::Place(49.1, 10.1);
    std::vector<double> columns;

    const tessara::IRef factory = tessara::CreateClassCoordinateGridFactory();
    const tessara::IRef grid = factory->CreateGeodezGrid(map, tessara::DATUM_WGS84, 0.5, 0.5);
    const tessara::IRef lines = tessara::CreateClassArray();
    if (!grid->SetWindow(northWest, northEast, southEast, southWest) || !grid->GetEastLinePixels(lines))
        return;
    for (std::uint32_t i = 0; i < lines->GetCount(); ++i) {
        const tessara::IRef<tessara::IArray> line(lines->GetAt(i));
        const tessara::IRef<tessara::IFloatPoint> start(line->GetAt(0));
        columns.push_back(start->GetX());  // 50, 100, 150
    }

    // 10.5, 11 and 11.5 degrees.
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_NEAR(columns[0], 50.0, 1e-9);
    EXPECT_NEAR(columns[1], 100.0, 1e-9);
    EXPECT_NEAR(columns[2], 150.0, 1e-9);
    IsDone();
}

TEST_F(HeaderExample, CoordinateGridFactory) {
    const IRef<IMapCoordOperations> map = testing::MapOf(testing::MunichSheet());

    const tessara::IRef factory = tessara::CreateClassCoordinateGridFactory();
    const tessara::IRef grid = factory->CreateUtmGrid(map, tessara::DATUM_WGS84, 1000.0, 1000.0);
    if (!grid.IsValid()) return;
    const double step = grid->GetEastStep();  // 1000

    EXPECT_EQ(step, 1000.0);
    IsDone();
}

}  // namespace
}  // namespace tessara
