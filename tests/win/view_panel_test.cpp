// The T-View panel: its children, its toolbars, the browser slots with their limit, the
// background menu's title, and the column memory streams of its browser views.
#include <algorithm>
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "features/folder_size_worker_win.h"
#include "res/resource.h"
#include "view/column_memory.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = {};
    GetClassNameW(window, name, 64);
    return name;
}

std::vector<int> ButtonCommands(HWND toolbar) {
    std::vector<int> commands;
    const int count = static_cast<int>(SendMessageW(toolbar, TB_BUTTONCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        TBBUTTON button{};
        SendMessageW(toolbar, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
        commands.push_back(button.idCommand);
    }
    return commands;
}

TEST(ViewPanel, ChildrenToolbarsAndSettings) {
    ViewHost host(1);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(host.Folder().path()));
    EXPECT_EQ(ClassOf(GetDlgItem(panel.hwnd(), kTreeId)), L"SysTreeView32");
    EXPECT_EQ(ClassOf(GetDlgItem(panel.hwnd(), kFilterBoxId)), L"Edit");
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(panel.hwnd(), kTreeId))) << "the tree shows only with show_tree";
    EXPECT_EQ(panel.SectionName(), L"T_View_0");
    EXPECT_EQ(panel.ColumnSection().rfind(L"Column_OS_", 0), 0u);

    const ViewToolbars& bars = panel.Toolbars();
    EXPECT_EQ(GetParent(bars.View()), panel.StatusBar()) << "the status bar carries the toolbars";
    EXPECT_EQ(ButtonCommands(bars.View()),
              (std::vector<int>{ID_VIEW_BACK, ID_VIEW_FORWARD, ID_VIEW_UP, ID_VIEW_REFRESH, ID_QUICK_LINKS_MENU,
                                ID_PROGRAMS_MENU, 0, ID_VIEW_NEW_FOLDER, ID_VIEW_CUT, ID_VIEW_COPY,
                                ID_VIEW_PASTE, ID_VIEW_DELETE, ID_VIEW_PROPERTIES, 0, ID_TRANSFER, ID_COPY_TO_VIEW,
                                ID_MOVE_TO_VIEW}));
    // Back and forward wait for a history and list it behind their arrows.
    EXPECT_FALSE(SendMessageW(bars.View(), TB_ISBUTTONENABLED, ID_VIEW_BACK, 0));
    EXPECT_TRUE(SendMessageW(bars.View(), TB_GETEXTENDEDSTYLE, 0, 0) & TBSTYLE_EX_DRAWDDARROWS);
    panel.Active()->Execute(ID_VIEW_UP);
    EXPECT_TRUE(SendMessageW(bars.View(), TB_ISBUTTONENABLED, ID_VIEW_BACK, 0));
    EXPECT_FALSE(SendMessageW(bars.View(), TB_ISBUTTONENABLED, ID_VIEW_FORWARD, 0));
    EXPECT_EQ(ButtonCommands(bars.Modes()), (std::vector<int>{ID_VIEW_MODES, ID_VIEW_FILTER_TOGGLE, ID_VIEW_HIDDEN_FILES}));
    EXPECT_TRUE(SendMessageW(bars.Modes(), TB_GETEXTENDEDSTYLE, 0, 0) & TBSTYLE_EX_DRAWDDARROWS);
    EXPECT_FALSE(IsWindowVisible(bars.Extra()));
    EXPECT_TRUE(IsWindowVisible(bars.View()));
    RECT bar;
    GetWindowRect(bars.View(), &bar);
    EXPECT_GT(bar.right - bar.left, 100);

    // A narrow T-View keeps room for its status text: the view-mode toolbar steps aside, then
    // the main toolbar gives up its last buttons, never its first; all come back with room.
    auto hidden = [&](int command) { return SendMessageW(bars.View(), TB_ISBUTTONHIDDEN, command, 0) != 0; };
    SetWindowPos(panel.hwnd(), nullptr, 0, 0, 300, 400, SWP_NOZORDER | SWP_NOMOVE);
    EXPECT_FALSE(IsWindowVisible(bars.Modes()));
    EXPECT_FALSE(hidden(ID_VIEW_BACK));
    EXPECT_TRUE(hidden(ID_MOVE_TO_VIEW));
    GetWindowRect(bars.View(), &bar);
    POINT left{bar.left, bar.top};
    ScreenToClient(panel.StatusBar(), &left);
    EXPECT_GE(left.x, 60) << "the status text keeps its room";
    EXPECT_TRUE(IsWindowVisible(bars.Chevron()));
    const std::vector<int> behind = bars.HiddenCommands();
    for (int command : {ID_MOVE_TO_VIEW, ID_VIEW_MODES, ID_VIEW_FILTER_TOGGLE})
        EXPECT_NE(std::find(behind.begin(), behind.end(), command), behind.end()) << command << " is behind the chevron";
    EXPECT_EQ(std::find(behind.begin(), behind.end(), ID_VIEW_BACK), behind.end());
    // A long status text takes the room it needs from the toolbars.
    SetWindowPos(panel.hwnd(), nullptr, 0, 0, 500, 400, SWP_NOZORDER | SWP_NOMOVE);
    const std::wstring text = L"12345 items (186 MB), 12 folders, 12333 files";
    panel.BrowserStatus(*panel.Active(), text);
    RECT part{};
    SendMessageW(panel.StatusBar(), SB_GETRECT, 0, reinterpret_cast<LPARAM>(&part));
    SIZE extent{};
    HDC dc = GetDC(panel.StatusBar());
    HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(panel.StatusBar(), WM_GETFONT, 0, 0)));
    GetTextExtentPoint32W(dc, text.c_str(), static_cast<int>(text.size()), &extent);
    SelectObject(dc, old);
    ReleaseDC(panel.StatusBar(), dc);
    EXPECT_GT(part.right - part.left, extent.cx) << "the whole text shows";
    SetWindowPos(panel.hwnd(), nullptr, 0, 0, 1400, 400, SWP_NOZORDER | SWP_NOMOVE);
    EXPECT_TRUE(IsWindowVisible(bars.Modes()));
    EXPECT_FALSE(hidden(ID_MOVE_TO_VIEW));
    EXPECT_FALSE(IsWindowVisible(bars.Chevron()));
    EXPECT_TRUE(bars.HiddenCommands().empty());

    // The filter toggle is written to the panel's section at once.
    SendMessageW(panel.hwnd(), WM_COMMAND, ID_VIEW_FILTER_TOGGLE, 0);
    EXPECT_TRUE(IsWindowVisible(GetDlgItem(panel.hwnd(), kFilterBoxId)));
    EXPECT_EQ(Settings().GetInt(L"T_View_0", L"show_filter", 0), 1);
}

TEST(ViewPanel, FifteenBrowsersThenMax16UntilOneIsClosed) {
    ViewHost host(1);
    CPloder& panel = host.Panel();
    std::vector<CMyShellBrowser*> browsers;
    for (int i = 0; i < 15; ++i) browsers.push_back(panel.GetOrCreateBrowser());
    EXPECT_EQ(panel.BrowserCount(), 15);

    std::atomic<bool> sawMessage{false};
    std::jthread answer([&](std::stop_token stop) {  // the refusal is a message box: read and close it
        while (!stop.stop_requested() && !sawMessage) {
            if (HWND box = FindWindowW(L"#32770", L"Tessel")) {
                wchar_t text[64] = {};
                if (GetDlgItemTextW(box, 0xFFFF, text, 64)) {  // none yet while the box is being made
                    sawMessage = std::wstring(text) == L"Max=16";
                    PostMessageW(box, WM_COMMAND, IDOK, 0);
                }
            }
            Sleep(20);
        }
    });
    EXPECT_EQ(panel.GetOrCreateBrowser(), nullptr);
    answer.request_stop();
    answer.join();
    EXPECT_TRUE(sawMessage);

    // A closed browser holds nothing that runs; its reused slot starts without history.
    TempFolder folder;
    CreateDirectoryW((folder / L"inner").c_str(), nullptr);
    CMyShellBrowser& closing = *browsers[6];
    ScopedOption sizes(FolderSizeOptions().fld_size, 1);
    ASSERT_TRUE(closing.NavigateToText(folder.path()));
    ASSERT_TRUE(closing.NavigateToText(folder / L"inner"));
    ASSERT_TRUE(closing.History().CanGoBack());
    HWND window = closing.hwnd();
    panel.CloseBrowser(&closing);
    EXPECT_EQ(closing.View(), nullptr);
    EXPECT_FALSE(closing.FolderSizesRunning());
    EXPECT_FALSE(KillTimer(window, 1005)) << "no status tick";
    CMyShellBrowser* reused = panel.GetOrCreateBrowser();
    EXPECT_EQ(reused, browsers[6]);
    EXPECT_EQ(reused->hwnd(), window) << "no new window";
    EXPECT_FALSE(reused->History().CanGoBack());
    EXPECT_EQ(reused->Current(), nullptr);
    EXPECT_EQ(panel.BrowserCount(), 15);
}

TEST(ViewPanel, BackgroundMenuEndsWithTheViewTitle) {
    ViewHost host(1);
    CPloder panel(2);  // the third T-View
    ASSERT_TRUE(panel.Create(host.hwnd()));
    SetWindowPos(panel.hwnd(), nullptr, 0, 0, 400, 300, SWP_NOZORDER);
    ASSERT_TRUE(panel.NavigateToText(host.Folder().path()));
    win::ComPtr<IContextMenu> shellMenu;
    win::UniqueMenu menu = panel.BuildBackgroundMenu(shellMenu);
    ASSERT_TRUE(menu);
    const int last = GetMenuItemCount(menu.get()) - 1;
    wchar_t text[64] = {};
    GetMenuStringW(menu.get(), last, text, 64, MF_BYPOSITION);
    EXPECT_EQ(std::wstring(text), L"T-View : 3");
    EXPECT_EQ(GetMenuItemID(menu.get(), last), static_cast<UINT>(ID_BACKGROUND_TITLE));
    EXPECT_TRUE(GetMenuState(menu.get(), last, MF_BYPOSITION) & MF_GRAYED);
    EXPECT_GT(last, 1) << "the shell's own background items come first";
}

// Wine's view never asks for its state stream, so the browser's side is driven directly.
// The T-View in use shows its status text on the highlight colour, the others do not, and
// neither does any with the option off; a new text keeps the highlight.
TEST(ViewPanel, StatusTextHighlightedWhileInUse) {
    ViewHost host(1);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(host.Folder().path()));
    const COLORREF highlight = GetSysColor(COLOR_HIGHLIGHT);
    auto shownColour = [&] {
        Pump(50);
        RECT part{};
        SendMessageW(panel.StatusBar(), SB_GETRECT, 0, reinterpret_cast<LPARAM>(&part));
        HDC dc = GetDC(panel.StatusBar());
        const COLORREF colour = GetPixel(dc, part.right - 3, (part.top + part.bottom) / 2);
        ReleaseDC(panel.StatusBar(), dc);
        return colour;
    };
    const int kept = Options().status_use_highlighted;
    Options().status_use_highlighted = 1;
    panel.SetInUse(true);
    EXPECT_EQ(shownColour(), highlight);
    SendMessageW(panel.StatusBar(), SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(L"new text"));
    EXPECT_EQ(shownColour(), highlight);
    panel.SetInUse(false);
    EXPECT_NE(shownColour(), highlight);
    Options().status_use_highlighted = 0;
    panel.SetInUse(true);
    EXPECT_NE(shownColour(), highlight);
    Options().status_use_highlighted = 1;
    panel.ApplyAddressBarMode();  // how a change on the options page reaches the panels
    EXPECT_EQ(shownColour(), highlight);
    Options().status_use_highlighted = kept;
}

TEST(ColumnMemoryStreams, WrittenStoredReadBackAndSharedByKind) {
    ViewHost host(1);
    TempFolder one, two;
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(one.path()));
    CMyShellBrowser& browser = *panel.Active();
    const std::wstring key = browser.ColumnKeyOf(browser.Current(), win::BindFolder(browser.Current()).get());
    ASSERT_EQ(key.rfind(L"Spatlen_", 0), 0u);

    win::ComPtr<IStream> out;
    ASSERT_EQ(browser.GetViewStateStream(STGM_WRITE, out.put()), S_OK);
    const uint8_t state[] = {1, 2, 0xFF, 4};
    ULONG written = 0;
    out->Write(state, sizeof(state), &written);
    out.reset();
    ASSERT_TRUE(panel.NavigateToText(two.path()));  // the memory is written at the next navigation
    std::vector<uint8_t> stored;
    ASSERT_TRUE(DecodeColumnValue(Settings().GetString(panel.ColumnSection(), key, L""), stored));
    EXPECT_EQ(stored, std::vector<uint8_t>(state, state + 4));
    EXPECT_EQ(browser.GetEncodedViewState(), EncodeColumnValue(stored)) << "folders of one kind share it";

    // Another folder of the same kind, in a browser view that loads the memory afresh.
    CMyShellBrowser* second = panel.GetOrCreateBrowser();
    panel.Activate(second);
    ASSERT_TRUE(panel.NavigateToText(two.path()));
    win::ComPtr<IStream> in;
    ASSERT_EQ(second->GetViewStateStream(STGM_READ, in.put()), S_OK);
    uint8_t back[8] = {};
    ULONG read = 0;
    in->Read(back, sizeof(back), &read);
    EXPECT_EQ(read, 4u);
    EXPECT_EQ(back[2], 0xFF);

    Options().spalten_speichern = 0;
    EXPECT_EQ(second->GetViewStateStream(STGM_READ, in.put()), E_FAIL) << "memory off";
    Options().spalten_speichern = 1;

    // An armed history entry takes the next write and the next read, once.
    second->Columns().ArmHistoryWrite(5);
    ASSERT_EQ(second->GetViewStateStream(STGM_WRITE, out.put()), S_OK);
    out->Write("\x09", 1, &written);
    out.reset();
    second->SaveColumnMemory();
    second->Columns().ArmHistoryRead(5);
    ASSERT_EQ(second->GetViewStateStream(STGM_READ, in.put()), S_OK);
    in->Read(back, sizeof(back), &read);
    EXPECT_EQ(read, 1u);
    EXPECT_EQ(back[0], 9);
    ASSERT_EQ(second->GetViewStateStream(STGM_READ, in.put()), S_OK) << "back to the column memory";
    in->Read(back, sizeof(back), &read);
    EXPECT_EQ(read, 4u);
}

}  // namespace
}  // namespace tessel::testing
