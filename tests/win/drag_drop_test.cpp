// Drag and drop of the navigation aids: the drop source's rules, the text of a drop, a folder
// dropped on a tab strip, and a tab dropped on another T-View's strip.
#include <windows.h>

#include <gtest/gtest.h>

#include <commctrl.h>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "nav/tab_ctrl_win.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

TEST(DragDrop, SourceEndsOnEscapeAndOnReleasingEitherButton) {
    win::ComPtr<CIDropSource> source;
    *source.put() = new CIDropSource();
    EXPECT_EQ(source->QueryContinueDrag(TRUE, MK_LBUTTON), DRAGDROP_S_CANCEL);
    EXPECT_EQ(source->QueryContinueDrag(FALSE, MK_RBUTTON), S_OK) << "a right-button drag goes on";
    EXPECT_FALSE(source->Dropped());
    EXPECT_EQ(source->QueryContinueDrag(FALSE, 0), DRAGDROP_S_DROP) << "releasing the right button drops";
    EXPECT_TRUE(source->Dropped());
    EXPECT_EQ(source->GiveFeedback(DROPEFFECT_MOVE), DRAGDROP_S_USEDEFAULTCURSORS);
}

TEST(DragDrop, AnInternetShortcutDropsItsAddress) {
    TempFolder folder;
    WriteBytes(folder / L"site.url", "[InternetShortcut]\r\nURL=https://example.org/tessel\r\n");
    WriteBytes(folder / L"plain.txt", "x");
    win::ComPtr<IDataObject> url = ShellDataOf(folder / L"site.url");
    ASSERT_TRUE(url);
    EXPECT_EQ(CIDropTargetPlus::DropTextOf(url.get()), L"https://example.org/tessel");
    EXPECT_EQ(LowerCase(CIDropTargetPlus::DropTextOf(ShellDataOf(folder / L"plain.txt").get())),
              LowerCase(folder / L"plain.txt"));
    EXPECT_EQ(CIDropTargetPlus::DropTextOf(nullptr), L"");
}

TEST(DragDrop, FoldersOpenTabsAndTabsMoveBetweenViews) {
    ViewHost host(2);
    TempFolder a, b, c;
    ASSERT_TRUE(host.Panel(0).NavigateToText(a.path()));
    ASSERT_TRUE(host.Panel(1).NavigateToText(b.path()));
    CCBrowserTabView& left = host.Panel(0).Tabs();
    CCBrowserTabView& right = host.Panel(1).Tabs();

    // A folder from elsewhere dropped on the strip opens there; a file does not.
    win::ComPtr<IDataObject> folder = ShellDataOf(c.path());
    DWORD effect = DROPEFFECT_COPY;
    left.Control().Drop(folder.get(), 0, {0, 0}, &effect);
    EXPECT_EQ(left.Count(), 2);
    EXPECT_EQ(LowerCase(host.Panel(0).Active()->CurrentPath()), LowerCase(c.path()));
    WriteBytes(c / L"file.txt", "x");
    left.Control().Drop(ShellDataOf(c / L"file.txt").get(), 0, {0, 0}, &effect);
    EXPECT_EQ(left.Count(), 2);

    // The tab of c moves to the other T-View's strip, in front of its first tab, with where it has been.
    CreateDirectoryW((c / L"inner").c_str(), nullptr);
    ASSERT_TRUE(host.Panel(0).NavigateToText(c / L"inner"));
    CCBrowserTabCtrl::BeginTabDrag(left, 1, false);
    right.Control().DropTab(0, false);
    CCBrowserTabCtrl::EndTabDrag();
    EXPECT_EQ(left.Count(), 1);
    ASSERT_EQ(right.Count(), 2);
    EXPECT_EQ(right.Selected(), 0);
    EXPECT_EQ(LowerCase(host.Panel(1).Active()->CurrentPath()), LowerCase(c / L"inner"));
    host.Panel(1).Active()->GoBack();
    EXPECT_EQ(LowerCase(host.Panel(1).Active()->CurrentPath()), LowerCase(c.path())) << "the history came along";

    // Copied (the right-button menu's second command): both keep it; the last tab never leaves.
    CCBrowserTabCtrl::BeginTabDrag(left, 0, true);
    right.Control().DropTab(2, true);
    CCBrowserTabCtrl::EndTabDrag();
    EXPECT_EQ(left.Count(), 1);
    EXPECT_EQ(right.Count(), 3);
    CCBrowserTabCtrl::BeginTabDrag(left, 0, false);
    right.Control().DropTab(0, false);
    CCBrowserTabCtrl::EndTabDrag();
    EXPECT_EQ(left.Count(), 1) << "the last tab of a T-View stays";
    EXPECT_FALSE(CCBrowserTabCtrl::TabDragActive());

    // A full strip refuses the tab, and the source keeps it.
    left.InsertTab(win::PidlFromPath(c.path()));
    for (int i = 0; i < 20 && right.Count() < 15; ++i) right.Select(right.InsertTab(win::PidlFromPath(b.path())));
    ASSERT_EQ(right.Count(), 15);
    CCBrowserTabCtrl::BeginTabDrag(left, 1, false);
    {
        MessageAnswer limit;  // the strip says why it refuses
        EXPECT_FALSE(right.Control().DropTab(0, false));
        EXPECT_EQ(limit.Count(), 1);
    }
    CCBrowserTabCtrl::EndTabDrag();
    EXPECT_EQ(right.Count(), 15);
    EXPECT_EQ(left.Count(), 2) << "the dragged tab is still there";
}

// A tab dragged a little too low lands on the other T-View's list: it opens its folder there,
// and the folder stays where it is (the shell's own drop would have moved it into the one shown).
TEST(DragDrop, ATabDroppedOnAListOpensItsFolderThere) {
    ViewHost host(2);
    TempFolder a, b, c;
    ASSERT_TRUE(host.Panel(0).NavigateToText(a.path()));
    ASSERT_TRUE(host.Panel(1).NavigateToText(b.path()));
    CCBrowserTabView& left = host.Panel(0).Tabs();
    left.InsertTab(win::PidlFromPath(c.path()));
    IDropTarget* list = host.Browser(1).ListDropTarget();
    ASSERT_NE(list, nullptr) << "the list has the browser view's drop target";

    win::ComPtr<IDataObject> data = ShellDataOf(c.path());
    CCBrowserTabCtrl::BeginTabDrag(left, 1, false);
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
    list->DragEnter(data.get(), 0, {10, 10}, &effect);
    EXPECT_EQ(effect, DWORD(DROPEFFECT_LINK)) << "never a move";
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    list->Drop(data.get(), 0, {10, 10}, &effect);
    EXPECT_EQ(effect, DWORD(DROPEFFECT_COPY));
    CCBrowserTabCtrl::EndTabDrag();
    EXPECT_TRUE(PumpUntil([&] { return LowerCase(host.Browser(1).CurrentPath()) == LowerCase(c.path()); }));
    EXPECT_TRUE(FileExists(c.path())) << "the folder stays where it was";
    const std::wstring name = c.path().substr(c.path().find_last_of(L'\\') + 1);
    EXPECT_FALSE(FileExists(b / name));
    EXPECT_EQ(left.Count(), 2) << "the source keeps its tab";
}

// Files dropped on a list go into the folder row under the pointer, or else into the folder shown,
// by the keys' rules, and a move onto a name taken asks first.
TEST(DragDrop, FilesDroppedOnAListFollowTheDropRules) {
    ViewHost host(1);
    TempFolder from, to;
    CreateDirectoryW((to / L"inner").c_str(), nullptr);
    WriteBytes(from / L"x.txt", "new");
    WriteBytes(from / L"y.txt", "y");
    ASSERT_TRUE(host.Panel().NavigateToText(to.path()));
    CMyShellBrowser& browser = host.Browser();
    IDropTarget* list = browser.ListDropTarget();
    ASSERT_NE(list, nullptr);
    auto screenOf = [&](POINT client) {
        ClientToScreen(browser.GetListControl(), &client);
        return POINTL{client.x, client.y};
    };
    RECT area;
    GetClientRect(browser.GetListControl(), &area);
    const POINTL empty = screenOf({area.right - 5, area.bottom - 5});
    auto drop = [&](const std::wstring& file, DWORD keys, POINTL at) {
        win::ComPtr<IDataObject> data = ShellDataOf(file);
        DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        list->DragEnter(data.get(), keys, at, &effect);
        const DWORD offered = effect;
        effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
        list->Drop(data.get(), keys, at, &effect);
        return offered;
    };
    EXPECT_EQ(drop(from / L"x.txt", MK_CONTROL, empty), DWORD(DROPEFFECT_COPY)) << "Ctrl copies";
    EXPECT_EQ(ReadBytes(to / L"x.txt"), "new");
    EXPECT_TRUE(FileExists(from / L"x.txt"));
    WriteBytes(to / L"x.txt", "kept");
    {
        MessageAnswer no(IDNO);
        EXPECT_EQ(drop(from / L"x.txt", 0, empty), DWORD(DROPEFFECT_MOVE)) << "the same drive moves";
        EXPECT_EQ(no.Count(), 1) << "a move onto a name taken asks";
    }
    EXPECT_EQ(ReadBytes(to / L"x.txt"), "kept");
    EXPECT_TRUE(FileExists(from / L"x.txt"));

    ASSERT_TRUE(PumpUntil([&] { return SelectByName(browser, L"inner"); }));
    RECT row{LVIR_LABEL};
    const int index = static_cast<int>(SendMessageW(browser.GetListControl(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    SendMessageW(browser.GetListControl(), LVM_GETITEMRECT, index, reinterpret_cast<LPARAM>(&row));
    drop(from / L"y.txt", 0, screenOf({(row.left + row.right) / 2, (row.top + row.bottom) / 2}));
    EXPECT_TRUE(FileExists(to / L"inner\\y.txt")) << "dropped on a folder row: into that folder";
    EXPECT_FALSE(FileExists(from / L"y.txt"));
}

// A drop on a strip only opens what it names: the source is told link (or copy), never move,
// and none when nothing opened, so it never deletes what was dragged.
TEST(DragDrop, DropsOnAStripReportWhatWasDone) {
    ViewHost host(1);
    TempFolder a, b;
    WriteBytes(b / L"file.txt", "x");
    ASSERT_TRUE(host.Panel().NavigateToText(a.path()));
    CCBrowserTabCtrl& strip = host.Panel().Tabs().Control();
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_MOVE;
    strip.Drop(ShellDataOf(b / L"file.txt").get(), 0, {0, 0}, &effect);
    EXPECT_EQ(effect, DWORD(DROPEFFECT_NONE)) << "a file opens nothing";
    effect = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
    strip.Drop(ShellDataOf(b.path()).get(), 0, {0, 0}, &effect);
    EXPECT_EQ(effect, DWORD(DROPEFFECT_LINK));
    effect = DROPEFFECT_MOVE;
    strip.Drop(ShellDataOf(b.path()).get(), 0, {0, 0}, &effect);
    EXPECT_EQ(effect, DWORD(DROPEFFECT_NONE)) << "a source that only moves is not told it moved";
    EXPECT_EQ(host.Panel().Tabs().Count(), 3);
}

// The hover delay is the option loaded at start, not what the file says at the moment.
TEST(DragDrop, HoverOverATabUsesTheLoadedDelay) {
    ViewHost host(1);
    TempFolder a;
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    panel.NewTab();
    CCBrowserTabView& tabs = panel.Tabs();
    ASSERT_EQ(tabs.Selected(), 1);
    Settings().PutInt(L"Start", L"tabs_hover_time", 4);  // 3 s, written after the load
    Options().tabs_hover_time = 5;                        // 0.2 s: opens at once
    RECT tab;
    SendMessageW(tabs.Strip(), TCM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&tab));
    POINT centre{(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
    ClientToScreen(tabs.Strip(), &centre);
    win::ComPtr<IDataObject> data = ShellDataOf(a.path());
    DWORD effect = DROPEFFECT_COPY | DROPEFFECT_LINK;
    tabs.Control().DragEnter(data.get(), 0, {centre.x, centre.y}, &effect);
    EXPECT_EQ(tabs.Selected(), 0);
    tabs.Control().DragLeave();
}

}  // namespace
}  // namespace tessel::testing
