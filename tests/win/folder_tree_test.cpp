// The folder tree: the desktop at the root, levels read when opened, the user's choice navigates.
#include <windows.h>
#include <shellapi.h>
#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "core/general_options.h"
#include "nav/folder_tree_drop_win.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

bool IdenticalTo(PCIDLIST_ABSOLUTE a, PCIDLIST_ABSOLUTE b) { return a && b && ILIsEqual(a, b); }

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
    // Walking with the keys navigates once, 700 ms after the last step.
    SetFocus(tree);
    const int index = panel.Active()->HistoryIndex();
    SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
    Pump(300);
    SendMessageW(tree, WM_KEYDOWN, VK_DOWN, 0);
    Pump(300);
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(a.path())) << "the keys have not rested yet";
    EXPECT_TRUE(PumpUntil([&] { return panel.Active()->HistoryIndex() != index; }, 2000));
    Pump(800);
    EXPECT_EQ(panel.Active()->HistoryIndex(), index + 1) << "one navigation for the whole walk";
    EXPECT_TRUE(IdenticalTo(panel.FolderTree().FolderOf(tree, TreeView_GetSelection(tree)), panel.Active()->Current()));
}

TEST(FolderTree, FollowsTheViewAndShowsButtonsOnlyWhereThereAreSubFolders) {
    ViewHost host(1);
    TempFolder a;
    std::wstring deep = a.path();
    for (int level = 0; level < 6; ++level) {
        deep += L"\\level" + std::to_wstring(level);
        CreateDirectoryW(deep.c_str(), nullptr);
    }
    CreateDirectoryW((a / L"empty").c_str(), nullptr);
    CPloder& panel = host.Panel();
    panel.SetTreeState(1, 3000);
    ASSERT_TRUE(panel.NavigateToText(deep));
    HWND tree = panel.FolderTree().hwnd();
    HTREEITEM selected = TreeView_GetSelection(tree);
    ASSERT_NE(selected, nullptr);
    EXPECT_TRUE(IdenticalTo(panel.FolderTree().FolderOf(tree, selected), panel.Active()->Current()))
        << "the tree walked down to the view's folder";
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(deep)) << "and did not navigate";

    // The deepest folder has no sub-folder, its parent has one: the buttons are decided when
    // drawn, by a look into each folder off the GUI thread.
    auto children = [&](HTREEITEM of) {
        TVITEMW item{TVIF_CHILDREN, of};
        TreeView_GetItem(tree, &item);
        return item.cChildren;
    };
    UpdateWindow(tree);
    EXPECT_TRUE(PumpUntil([&] { return children(selected) == 0; }, 3000)) << "the button goes once the answer is in";
    Pump(100);
    EXPECT_EQ(children(TreeView_GetParent(tree, selected)), 1);

    // F5 and changes from outside reach the levels the tree shows.
    ASSERT_TRUE(CreateDirectoryW((deep + L"\\made").c_str(), nullptr));
    panel.Active()->RefreshView();
    EXPECT_TRUE(PumpUntil([&] {
        UpdateWindow(tree);
        return children(TreeView_GetSelection(tree)) == 1;
    }, 3000)) << "F5: the button is back";
    const std::wstring above = deep.substr(0, deep.rfind(L'\\'));
    ASSERT_TRUE(panel.NavigateToText(above));
    HTREEITEM aboveItem = TreeView_GetSelection(tree);
    const int before = panel.FolderTree().ChildCount(aboveItem);
    Pump(200);  // the watch is set up
    ASSERT_TRUE(CreateDirectoryW((above + L"\\late").c_str(), nullptr));
    EXPECT_TRUE(PumpUntil([&] { return panel.FolderTree().ChildCount(aboveItem) == before + 1; }))
        << "a folder made from outside appears";
    ASSERT_TRUE(RemoveDirectoryW((above + L"\\late").c_str()));
    EXPECT_TRUE(PumpUntil([&] { return panel.FolderTree().ChildCount(aboveItem) == before; })) << "and goes";

    // A folder the shell removes on a level no view shows goes from the tree too.
    HTREEITEM top = aboveItem;
    for (int up = 0; up < 5; ++up) top = TreeView_GetParent(tree, top);
    ASSERT_TRUE(IdenticalTo(panel.FolderTree().FolderOf(tree, top), win::PidlFromPath(a.path()).get()));
    const int topChildren = panel.FolderTree().ChildCount(top);
    const std::wstring from = (a / L"empty") + L'\0';
    SHFILEOPSTRUCTW remove{};
    remove.wFunc = FO_DELETE;
    remove.pFrom = from.c_str();
    remove.fFlags = FOF_NO_UI;
    ASSERT_EQ(SHFileOperationW(&remove), 0);
    EXPECT_TRUE(PumpUntil([&] { return panel.FolderTree().ChildCount(top) == topChildren - 1; }));
}

POINTL ScreenPointOf(HWND tree, HTREEITEM item) {
    RECT r{};
    TreeView_GetItemRect(tree, item, &r, TRUE);
    POINT p{(r.left + r.right) / 2, (r.top + r.bottom) / 2};
    ClientToScreen(tree, &p);
    return {p.x, p.y};
}

// A drag resting on a closed folder opens it after the delay; files dropped on a folder are
// copied with Ctrl and moved without keys on the same drive; a folder never goes into itself.
TEST(FolderTree, DragsOpenFoldersAndDropsCopyOrMoveFilesIntoThem) {
    ViewHost host(1);
    TempFolder a, b;
    CreateDirectoryW((a / L"target").c_str(), nullptr);
    CreateDirectoryW((a / L"target\\inner").c_str(), nullptr);
    WriteBytes(b / L"copied.txt", "c");
    WriteBytes(b / L"moved.txt", "m");
    CPloder& panel = host.Panel();
    panel.SetTreeState(1, 3000);
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    HWND tree = panel.FolderTree().hwnd();
    HTREEITEM base = TreeView_GetSelection(tree);
    ASSERT_NE(base, nullptr);
    CShellTreeDropTarget* target = panel.FolderTree().DropTarget();
    ASSERT_NE(target, nullptr) << "the tree is a drop target";

    win::ComPtr<IDataObject> copied = ShellDataOf(b / L"copied.txt");
    ASSERT_TRUE(copied);
    const POINTL onBase = ScreenPointOf(tree, base);
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragEnter(copied.get(), 0, onBase, &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_MOVE)) << "the same drive: a move";
    EXPECT_EQ(TreeView_GetItemState(tree, base, TVIS_EXPANDED) & TVIS_EXPANDED, 0u);
    Sleep(600);  // tree_hover_time 0: half a second
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragOver(MK_CONTROL, onBase, &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY)) << "Ctrl copies";
    EXPECT_NE(TreeView_GetItemState(tree, base, TVIS_EXPANDED) & TVIS_EXPANDED, 0u) << "opened after resting";
    HTREEITEM folder = TreeView_GetChild(tree, base);
    ASSERT_NE(folder, nullptr);
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->Drop(copied.get(), MK_CONTROL, ScreenPointOf(tree, folder), &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_COPY));
    EXPECT_TRUE(FileExists(a / L"target\\copied.txt"));
    EXPECT_TRUE(FileExists(b / L"copied.txt")) << "a copy keeps the original";

    win::ComPtr<IDataObject> moved = ShellDataOf(b / L"moved.txt");
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragEnter(moved.get(), 0, ScreenPointOf(tree, folder), &effect);
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->Drop(moved.get(), 0, ScreenPointOf(tree, folder), &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE)) << "moved here: the source must not delete";
    EXPECT_TRUE(FileExists(a / L"target\\moved.txt"));
    EXPECT_FALSE(FileExists(b / L"moved.txt"));

    // A right-button drag asks: cancelled, nothing happens; "Copy here" copies what would move.
    WriteBytes(b / L"asked.txt", "r");
    win::ComPtr<IDataObject> asked = ShellDataOf(b / L"asked.txt");
    auto rightDrop = [&](std::vector<WPARAM> keys) {
        std::jthread chooser([keys, tree] {
            HWND menu = nullptr;
            for (int i = 0; i < 250 && !menu; ++i, Sleep(20))
                for (HWND w = FindWindowExW(nullptr, nullptr, L"#32768", nullptr); w && !menu;
                     w = FindWindowExW(nullptr, w, L"#32768", nullptr))
                    if (IsWindowVisible(w)) menu = w;
            if (!menu) return PostMessageW(tree, WM_CANCELMODE, 0, 0), void();
            for (WPARAM key : keys) PostMessageW(menu, WM_KEYDOWN, key, 0);
        });
        effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        target->DragEnter(asked.get(), MK_RBUTTON, ScreenPointOf(tree, folder), &effect);
        effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        target->Drop(asked.get(), 0, ScreenPointOf(tree, folder), &effect);
    };
    rightDrop({VK_ESCAPE});
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_FALSE(FileExists(a / L"target\\asked.txt"));
    EXPECT_TRUE(FileExists(b / L"asked.txt")) << "cancelled: nothing moved";
    rightDrop({VK_DOWN, VK_RETURN});
    EXPECT_TRUE(FileExists(a / L"target\\asked.txt"));
    EXPECT_TRUE(FileExists(b / L"asked.txt")) << "copied, although the keys alone would move";

    // The base folder dragged onto its own sub-folder is refused.
    win::ComPtr<IDataObject> itself = ShellDataOf(a.path());
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    target->DragEnter(itself.get(), 0, ScreenPointOf(tree, folder), &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    target->Drop(itself.get(), 0, ScreenPointOf(tree, folder), &effect);
    EXPECT_EQ(effect, static_cast<DWORD>(DROPEFFECT_NONE));
    EXPECT_FALSE(FileExists(a / L"target\\" + a.path().substr(a.path().find_last_of(L'\\') + 1)));
}

// With useTreeColor 1 every item the tree draws is asked of the colour rules; otherwise none.
TEST(FolderTree, ItemColoursAreAskedOnlyWithUseTreeColorOne) {
    ViewHost host(1);
    TempFolder a;
    CPloder& panel = host.Panel();
    panel.SetTreeState(1, 3000);
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    HWND tree = panel.FolderTree().hwnd();
    int asked = 0;
    panel.FolderTree().SetItemColors([&](PCIDLIST_ABSOLUTE folder, COLORREF& text, COLORREF&) {
        ++asked;
        text = RGB(200, 0, 0);
        return folder != nullptr;
    });
    {
        ScopedOption rulesOff(Options().useTreeColor, 2);
        RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
        EXPECT_EQ(asked, 0);
    }
    ScopedOption rulesOn(Options().useTreeColor, 1);
    RedrawWindow(tree, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    EXPECT_GT(asked, 3) << "each drawn item: the desktop, its folders and the way down";
}

}  // namespace
}  // namespace tessel::testing
