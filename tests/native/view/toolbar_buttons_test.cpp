// The kept toolbar choice read back against what the toolbar offers.
#include "view/toolbar_buttons.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

const std::vector<int> kOffered = {100, 200, 300, 400};

TEST(ToolbarButtons, TheKeptOrderComesBackWithItsSeparators) {
    EXPECT_EQ(ParseToolbarButtons(L"300,0,100,200", kOffered), (std::vector<int>{300, 0, 100, 200}));
    EXPECT_EQ(ParseToolbarButtons(FormatToolbarButtons({400, 0, 100}), kOffered), (std::vector<int>{400, 0, 100}));
    EXPECT_EQ(FormatToolbarButtons({}), L"");
}

TEST(ToolbarButtons, DamagedOrForeignEntriesAreLeftOut) {
    EXPECT_EQ(ParseToolbarButtons(L"0,0,100,0,0,999,200,100,0", kOffered), (std::vector<int>{100, 0, 200}))
        << "separators never at an end nor twice; unknown and repeated ids dropped";
    EXPECT_EQ(ParseToolbarButtons(L" 200 ,x,-1,300abc,,1234567", kOffered), (std::vector<int>{200}));
    EXPECT_TRUE(ParseToolbarButtons(L"", kOffered).empty());
    EXPECT_TRUE(ParseToolbarButtons(L"garbage", kOffered).empty()) << "nothing usable: the toolbar's own order";
    EXPECT_TRUE(ParseToolbarButtons(L"0,0", kOffered).empty());
}

}  // namespace
}  // namespace tessel
