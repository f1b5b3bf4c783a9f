// Lets allocations fail while the toolkit reads, names and draws. It throws std::bad_alloc, or refuses, or
// can do without; nothing else changes and nothing leaks.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>
#include <new>
#include <optional>
#include <string>
#include <vector>

#include "conversion/names.h"
#include "conversion/references.h"
#include "drawing/map_page.h"
#include "map/map_around.h"
#include "map/map_description.h"
#include "support/live_objects.h"
#include "support/sanitized.h"
#include "typed/text_writer.h"
#include "typed/typed_reader.h"

namespace tessara::toolkit {
namespace {

using testing::AllocatedBlocks;
using testing::FailAllocation;
using testing::LiveBlocks;

using Task = std::function<std::string()>;

// The answer, or none if memory runs out.
std::optional<std::string> Try(const Task& task) {
    try {
        return task();
    } catch (const std::bad_alloc&) {
        return std::nullopt;
    } catch (const DescriptionError&) {
        return "";
    }
}

// Every allocation fails in turn; of a task with many, `most` of them, evenly spread. `isRight` judges an
// answer that comes in spite of it, by the one with memory.
using Judgement = std::function<bool(const std::string& answer, const std::string& expected)>;

bool IsSameOrRefused(const std::string& answer, const std::string& expected) {
    return answer.empty() || answer == expected;
}

void ExpectFailuresNoticed(const Task& task, std::int64_t most = std::numeric_limits<std::int64_t>::max(),
                           const Judgement& isRight = IsSameOrRefused) {
    const std::string expected = Try(task).value();
    const std::int64_t before = AllocatedBlocks();
    ASSERT_EQ(Try(task), expected);
    const std::int64_t allocations = AllocatedBlocks() - before;
    ASSERT_GT(allocations, 0);
    const std::int64_t step = std::max<std::int64_t>(allocations / most, 1);
    std::int64_t thrown = 0;
    for (std::int64_t nth = 1; nth <= allocations; nth += step) {
        const std::int64_t blocks = LiveBlocks();
        {
            const FailAllocation failure(static_cast<int>(nth));
            const std::optional<std::string> answer = Try(task);
            EXPECT_TRUE(failure.HasFailed()) << nth;
            EXPECT_TRUE(!answer || isRight(*answer, expected)) << nth << ": " << *answer;
            thrown += answer ? 0 : 1;
        }
        ASSERT_EQ(LiveBlocks(), blocks) << "leak at allocation " << nth;
    }
    EXPECT_GT(thrown, 0);
}

// What was understood; empty for a refusal.
std::string Understood(const char* text) {
    const TypedResult result = TypedReader(Wanted{}).Read(text);
    if (!result.IsRead()) return "";
    const CKoord& record = result.readings.front().record;
    const TextWriter writer({.datum = DATUM_WGS84, .system = static_cast<std::int32_t>(record.type)}, {});
    const std::vector<std::string> texts = writer.Write(record, record);
    return texts.empty() ? "" : texts.front();
}

TEST(OutOfMemory, OfATypedReferenceIsNoticed) {
    ExpectFailuresNoticed([] { return Understood("32U PU 91602 34791 and a long text behind it"); });
}

TEST(OutOfMemory, OfTypedDegreesIsNoticed) {
    ExpectFailuresNoticed([] { return Understood("48 8 15.0 N 11 34 31.8 E"); });
}

TEST(OutOfMemory, OfNamesIsNoticed) {
    ExpectFailuresNoticed(
        [] { return SystemName(KOORD_PO_MILITARY) + DatumName(DATUM_WGS84) + " of a long text"; });
    ExpectFailuresNoticed(
        [] { return std::string(DatumByName("user-defined") ? "known" : "unknown to the table of datums"); });
}

TEST(OutOfMemory, OfAReferenceIsNoticed) {
    ExpectFailuresNoticed([] {
        const IRef<ICoordinateReference> made = MakeReference({.datum = DATUM_WGS84, .system = KOORD_UTM});
        return std::to_string(made->GetSystem()) + " of a text that isn't short";
    });
}

// The description is read before: the library that holds JSON needs memory even to free some.
void ExpectFailuresOfDrawingNoticed(const Surroundings& around) {
    const MapDescription description = ReadMapDescription(DescribeMapAround(around), nullptr);
    ExpectFailuresNoticed(
        [&description] {
            const MapPage page = DrawMapPage(description, 200.0);
            return page.problems.empty() ? page.svg : "";
        },
        testing::IS_SANITIZED ? 15 : 150,
        [](const std::string& answer, const std::string&) {
            return answer.empty() || answer.ends_with("</svg>\n");
        });
}

TEST(OutOfMemory, OfAMapOfATownIsNoticed) {
    ExpectFailuresOfDrawingNoticed({.latitude = 48.1, .longitude = 11.6, .width = 2000.0});
}

TEST(OutOfMemory, OfAMapOfAPoleIsNoticed) {
    ExpectFailuresOfDrawingNoticed({.latitude = 87.0, .longitude = 11.6, .width = 2e5});
}

TEST(OutOfMemory, OfAMapOfTheWorldIsNoticed) {
    ExpectFailuresOfDrawingNoticed({.latitude = 0.0, .longitude = 11.6, .width = 4e7});
}

}  // namespace
}  // namespace tessara::toolkit
