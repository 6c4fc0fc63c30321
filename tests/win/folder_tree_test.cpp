// The folder tree: the desktop at the root, levels read when opened, the user's choice navigates.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "view_host_win.h"

namespace tessel::testing {
namespace {

TEST(FolderTree, OpensLevelsLazilyAndOnlyTheUsersChoiceNavigates) {
    ViewHost host(1);
    TempFolder a;
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    HWND tree = panel.FolderTree().hwnd();
    EXPECT_EQ(TreeView_GetRoot(tree), nullptr) << "a hidden tree reads nothing";
    panel.FolderTree().EnsureFilled();
    HTREEITEM root = TreeView_GetRoot(tree);
    ASSERT_NE(root, nullptr);
    EXPECT_GT(panel.FolderTree().ChildCount(root), 0) << "the desktop's folders are read at once";
    HTREEITEM first = TreeView_GetChild(tree, root);
    EXPECT_EQ(panel.FolderTree().ChildCount(first), 0) << "deeper levels wait until opened";
    TreeView_Expand(tree, first, TVE_EXPAND);
    EXPECT_GT(panel.FolderTree().ChildCount(first), 0);

    TreeView_SelectItem(tree, first);  // by the program: no navigation
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(a.path()));
    SetFocus(tree);
    SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);  // by the user
    EXPECT_NE(LowerCase(panel.Active()->CurrentPath()), LowerCase(a.path()));
}

}  // namespace
}  // namespace tessel::testing
