// Operations on lists and texts of a host that take nothing more and throw std::length_error.
#include <gtest/gtest.h>

#include <stdexcept>

#include "faults/operation.h"
#include "support/live_objects.h"

namespace tessara::testing::full_hosts_test {
namespace {

class FullList : public IArray {
  public:
    using Faces = FaceList<IArray>;

    void Add(IUnknown*) override { throw std::length_error("full"); }
    void RemoveAt(std::uint32_t) override {}
    std::uint32_t GetCount() override { return 0; }
    IUnknown* GetAt(std::uint32_t) override { return nullptr; }
    void Clear() override {}

  protected:
    ~FullList() = default;
};

class FullText : public host::Text {
  public:
    bool Assign(IUnknown*) override { return false; }
    void AssignText(const char*) override { throw std::length_error("full"); }

  protected:
    ~FullText() override = default;
};

class FullHosts : public BalancedTest {
  protected:
    // Every operation that fails does so by its result.
    static int CountFailures(OperationTable operations) {
        int failures = 0;
        for (const FaultyOperation& operation : operations) {
            PreparedScene scene(operation);
            for (auto* list : {&scene.list, &scene.list2, &scene.list3, &scene.list4})
                *list = IRef<IArray>(NewObject<FullList>());
            for (auto* text :
                 {&scene.text, &scene.text2, &scene.text3, &scene.text4, &scene.text5, &scene.text6})
                *text = IRef<ITessaraString>(NewObject<FullText>());
            try {
                failures += operation.call(scene) ? 0 : 1;
            } catch (const std::length_error&) {
                EXPECT_EQ(operation.outOfMemory, OutOfMemory::MAY_THROW) << operation.name << " throws";
            }
        }
        return failures;
    }
};

TEST_F(FullHosts, FailOperationsOnTexts) {
    EXPECT_GT(CountFailures(TextOperations()), 0);
    CountFailures(FrameOperations());
    CountFailures(ObjectOperations());
    CountFailures(MapOperations());
}

TEST_F(FullHosts, FailOperationsOnLists) {
    EXPECT_GT(CountFailures(GeometryOperations()), 0);
    EXPECT_GT(CountFailures(AreaOperations()), 0);
}

}  // namespace
}  // namespace tessara::testing::full_hosts_test
