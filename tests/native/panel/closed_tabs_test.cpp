#include "panel/closed_tabs.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

ClosedTab Tab(uint8_t id) {
    ClosedTab tab;
    tab.folder = {3, 0, id, 0, 0};  // one item of three bytes, then the end
    tab.label = std::wstring(1, static_cast<wchar_t>(L'a' + id));
    return tab;
}

}  // namespace

TEST(ClosedTabs, KeepsTheLastTenNewestFirstAndHandsEachBackOnce) {
    ClosedTabs tabs;
    for (uint8_t i = 0; i < 12; ++i) tabs.Remember(Tab(i));
    ASSERT_EQ(tabs.List().size(), ClosedTabs::kLimit);
    EXPECT_EQ(tabs.List().front().label, L"l") << "the newest first";
    EXPECT_EQ(tabs.List().back().label, L"c") << "the two oldest are forgotten";

    ClosedTab taken;
    ASSERT_TRUE(tabs.Take(2, taken));
    EXPECT_EQ(taken.label, L"j");
    EXPECT_EQ(tabs.List().size(), 9u);
    EXPECT_EQ(tabs.List()[2].label, L"i");
    EXPECT_FALSE(tabs.Take(9, taken));
}

TEST(ClosedTabs, ATabWithoutAFolderIsNotKept) {
    ClosedTabs tabs;
    ClosedTab broken = Tab(1);
    broken.folder = {9, 0, 1};  // an item longer than its bytes
    tabs.Remember(std::move(broken));
    tabs.Remember(ClosedTab{});
    EXPECT_TRUE(tabs.List().empty());
}

}  // namespace tessel
