// The examples of array.h and float_point.h.
#include <gtest/gtest.h>

#include <vector>

#include "snippets/header_example.h"
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

}  // namespace
}  // namespace tessara
