// A host whose platform defines these names globally, as Windows does. The library's names are in its
// namespace.
struct GUID {
    unsigned char bytes[3];
};
struct IUnknown;
struct IArray;
struct Rect;
using ResultCode = short;

#include "tessara/tessara.h"

#include <gtest/gtest.h>

#include "tessara/kernel.h"

namespace {

TEST(GlobalNames, StandBesideTheLibrarys) {
    EXPECT_EQ(sizeof(GUID), 3u);
    EXPECT_EQ(sizeof(tessara::GUID), 16u);
    const tessara::IRef<tessara::ITessaraString> text = tessara::NewObject<tessara::host::Text>();
    text->AssignText("32");
    EXPECT_STREQ(text->GetText(), "32");
    EXPECT_EQ(tessara::host::Systems().size(), 23u);
}

}  // namespace
