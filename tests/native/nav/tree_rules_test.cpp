#include "nav/tree_rules.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

constexpr TreeStyleBits kBits{0x400, 0x1000, 0x2, 0x4};

uint32_t StyleFor(const TreeOptions& options, bool dropDown = false, uint32_t from = 0x400 | 0x1000 | 0x2 | 0x4) {
    return ApplyStyle(from, TreeStyle(options, dropDown, kBits));
}

TEST(TreeRules, StyleFollowsTheOptions) {
    EXPECT_EQ(StyleFor({}), 0x2u | 0x4u) << "lines, no full row, no single expand";
    EXPECT_EQ(StyleFor({.single_expand = 1}), 0x400u | 0x2u | 0x4u);
    EXPECT_EQ(StyleFor({.single_expand = 1}, true), 0x2u | 0x4u) << "not in the drop-down form";
    EXPECT_EQ(StyleFor({.fullrowselect = 1}, false, 0), 0x1000u) << "full row shows no lines";
    EXPECT_EQ(StyleFor({.disable_line = 1}, false, 0), 0u);
    EXPECT_EQ(StyleFor({.fullrowselect = 1, .disable_line = 1}), 0x1000u);
    EXPECT_EQ(ApplyStyle(0x80000000u, TreeStyle({}, false, kBits)) & 0x80000000u, 0x80000000u) << "other bits stay";
}

TEST(TreeRules, ListingAndChildren) {
    EXPECT_TRUE(TreeEnumeration({}, false).browsableItems);
    EXPECT_FALSE(TreeEnumeration({.all_browsable = 0}, true).browsableItems);
    EXPECT_TRUE(TreeEnumeration({}, true).hidden);

    const TreeOptions check{};
    EXPECT_EQ(TreeChildren({.folder = true, .removable = true}, check), ChildrenAnswer::kSome) << "no media access";
    EXPECT_EQ(TreeChildren({.removable = true}, check), ChildrenAnswer::kSome);
    EXPECT_EQ(TreeChildren({.folder = false}, check), ChildrenAnswer::kNone);
    EXPECT_EQ(TreeChildren({.folder = true, .path = L"C:\\x", .pathIsDirectory = true}, check),
              ChildrenAnswer::kAskForSubFolders);
    EXPECT_EQ(TreeChildren({.folder = true, .path = L"\\\\server\\share", .pathIsDirectory = true}, check),
              ChildrenAnswer::kSome) << "network paths keep the button";
    EXPECT_EQ(TreeChildren({.folder = true, .path = L"C:\\x.zip", .pathIsDirectory = false}, check),
              ChildrenAnswer::kSome);
    EXPECT_EQ(TreeChildren({.folder = true}, check), ChildrenAnswer::kSome) << "no path: keeps the button";
    EXPECT_EQ(TreeChildren({.folder = true, .path = L"C:\\x", .pathIsDirectory = true}, {.auto_chk_subdir = 0}),
              ChildrenAnswer::kSome);
}

// A drag over a closed item opens it once the cursor rested for the delay; an open item and a
// moving cursor start over.
TEST(TreeRules, DragHoverOpensAClosedItemAfterTheDelayAtRest) {
    TreeHover hover{.mark = 1000};  // the drag entered at 1000
    EXPECT_FALSE(TreeHoverOpens(hover, false, 10, 10, 1000, 500)) << "the first check only looks";
    EXPECT_FALSE(TreeHoverOpens(hover, false, 10, 10, 1400, 500)) << "the delay counts from the mark";
    EXPECT_TRUE(TreeHoverOpens(hover, false, 10, 10, 1500, 500));
    EXPECT_FALSE(TreeHoverOpens(hover, false, 10, 10, 1600, 500)) << "the mark moved to the opening";

    TreeHover moving;
    TreeHoverOpens(moving, false, 1, 1, 0, 200);
    EXPECT_FALSE(TreeHoverOpens(moving, false, 2, 1, 5000, 200)) << "the cursor moved since the last check";
    EXPECT_TRUE(TreeHoverOpens(moving, false, 2, 1, 5001, 200)) << "the delay ran while it moved";

    TreeHover open;
    TreeHoverOpens(open, true, 5, 5, 0, 200);
    EXPECT_FALSE(TreeHoverOpens(open, true, 5, 5, 9000, 200)) << "open items are never toggled shut";
    EXPECT_FALSE(TreeHoverOpens(open, false, 5, 5, 9100, 200)) << "an open item restarted the delay";
    EXPECT_TRUE(TreeHoverOpens(open, false, 5, 5, 9200, 200));
}

}  // namespace
}  // namespace tessel
