#include "systems/output_values.h"

#include <gtest/gtest.h>

#include "tessara/kernel/systems.h"

namespace tessara {
namespace {

// The fields of all types, by the type.
template <class Visit>
void ForEachField(const Visit& visit) {
    for (std::int32_t type = 0; type < KOORD_TYPE_COUNT; ++type) {
        for (const OutputField& field : System_Outputs(type))
            visit(type, field);
    }
}

TEST(OutputValues, AFieldIsWholeIfItKeepsNoFraction) {
    int whole = 0;
    int fractional = 0;
    ForEachField([&](std::int32_t type, const OutputField& field) {
        if (IsOfLetters(field)) return;
        tagKOORD record = MakeKoord(0, type);
        ASSERT_TRUE(SetOutputValue(&record, field, 7.5)) << field.name;
        const double kept = OutputValue(record, field);
        EXPECT_EQ(kept, IsWhole(field) ? 7.0 : 7.5) << type << ' ' << field.name;
        ++(IsWhole(field) ? whole : fractional);
    });
    EXPECT_GT(whole, 10);
    EXPECT_GT(fractional, 30);
}

}  // namespace
}  // namespace tessara
