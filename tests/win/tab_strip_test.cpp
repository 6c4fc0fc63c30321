// The tab strip of a T-View: opening, closing, moving and the strip's show rule.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "view/file_clipboard_win.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

std::wstring Label(CCBrowserTabView& tabs, int index) {
    wchar_t text[260] = {};
    TCITEMW item{TCIF_TEXT};
    item.pszText = text;
    item.cchTextMax = 260;
    SendMessageW(tabs.Strip(), TCM_GETITEMW, index, reinterpret_cast<LPARAM>(&item));
    return text;
}

// A tab the user closed comes back where it stood, with its history; moved or replaced tabs are
// not offered.
TEST(TabStrip, AClosedTabReopensWhereItStoodWithItsHistory) {
    ViewHost host(1);
    TempFolder a;
    CreateDirectoryW((a / L"inner").c_str(), nullptr);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    CCBrowserTabView& tabs = panel.Tabs();
    panel.NewTab();
    ASSERT_TRUE(panel.NavigateToText(a / L"inner"));
    panel.NewTab();
    tabs.Select(1);
    EXPECT_TRUE(tabs.CloseTab(2)) << "not by the user";
    EXPECT_TRUE(panel.ClosedTabLabels().empty());
    panel.CloseCurrentTab();
    EXPECT_EQ(tabs.Count(), 1);
    ASSERT_EQ(panel.ClosedTabLabels().size(), 1u);
    EXPECT_EQ(LowerCase(panel.ClosedTabLabels()[0]), LowerCase(a / L"inner"));

    panel.ReopenClosedTab();
    ASSERT_EQ(tabs.Count(), 2);
    EXPECT_EQ(tabs.Selected(), 1);
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(a / L"inner"));
    EXPECT_TRUE(panel.ClosedTabLabels().empty()) << "taken out of the list";
    panel.Active()->Execute(ID_VIEW_BACK);
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(a.path())) << "its history came with it";
    panel.ReopenClosedTab();  // nothing left: nothing happens
    EXPECT_EQ(tabs.Count(), 2);
}

TEST(TabStrip, OpenCloseAndTheStripShowsFromTwoTabs) {
    ViewHost host(1);
    TempFolder a;
    CreateDirectoryW((a / L"inner").c_str(), nullptr);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    CCBrowserTabView& tabs = panel.Tabs();
    EXPECT_EQ(tabs.Count(), 1);
    EXPECT_FALSE(IsWindowVisible(tabs.Strip())) << "show_tabs 2: hidden with one tab";
    EXPECT_FALSE(tabs.CloseTab(0)) << "the last tab stays";

    panel.NewTab();
    EXPECT_EQ(tabs.Count(), 2);
    EXPECT_EQ(tabs.Selected(), 1);
    EXPECT_TRUE(IsWindowVisible(tabs.Strip()));
    CMyShellBrowser* second = panel.Active();
    ASSERT_TRUE(panel.NavigateToText(a / L"inner"));
    EXPECT_EQ(Label(tabs, 1), L"inner") << "the label follows the tab's folder";
    EXPECT_NE(Label(tabs, 0), L"inner");

    tabs.Select(0);
    EXPECT_NE(panel.Active(), second);
    EXPECT_EQ(LowerCase(panel.Active()->CurrentPath()), LowerCase(a.path()));
    EXPECT_TRUE(IsWindowVisible(panel.Active()->hwnd()));
    EXPECT_FALSE(IsWindowVisible(second->hwnd()));

    EXPECT_TRUE(tabs.CloseTab(0));
    EXPECT_EQ(tabs.Count(), 1);
    EXPECT_EQ(panel.Active(), second) << "the right neighbour takes over";
    EXPECT_FALSE(IsWindowVisible(tabs.Strip()));
    EXPECT_TRUE(second->closed == false);
}

TEST(TabStrip, DuplicateMoveCycleAndCutLabels) {
    ViewHost host(1);
    TempFolder a;
    const std::wstring longName = a / std::wstring(120, L'n');
    CreateDirectoryW(longName.c_str(), nullptr);
    Options().show_tabs = 1;
    Options().tab_max_width = 60;
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(longName));
    CCBrowserTabView& tabs = panel.Tabs();
    EXPECT_TRUE(IsWindowVisible(tabs.Strip())) << "show_tabs 1: always shown";
    const std::wstring cut = Label(tabs, 0);
    EXPECT_LT(cut.size(), 30u);
    EXPECT_EQ(cut.substr(cut.size() - 4), L" ...");

    ASSERT_TRUE(panel.NavigateToText(a.path()));
    EXPECT_EQ(tabs.DuplicateTab(0), 1);
    EXPECT_EQ(tabs.Count(), 2);
    panel.NavigateToText(longName);
    tabs.MoveTab(1, 0);
    EXPECT_EQ(tabs.Selected(), 0);
    EXPECT_EQ(Label(tabs, 0), cut);
    panel.NextTab(1);
    EXPECT_EQ(tabs.Selected(), 1);
    panel.NextTab(1);
    EXPECT_EQ(tabs.Selected(), 0) << "round to the first";
    panel.NextTab(-1);
    EXPECT_EQ(tabs.Selected(), 1);

    // The width menu: a wider limit shows the whole name; "never shorten" too; both are kept.
    tabs.SetLabelWidth(300);
    EXPECT_GT(Label(tabs, 0).size(), cut.size());
    EXPECT_EQ(Settings().GetInt(L"Start", L"tab_max_width", 0), 300);
    Options().tab_max_width = 999;  // as if edited by hand
    tabs.SetLabelWidth(50);
    EXPECT_EQ(Label(tabs, 0), std::wstring(120, L'n'));
    EXPECT_EQ(Settings().GetInt(L"Start", L"tab_width_mode", 1), 0);
    Options().show_tabs = 2;
    Options().tab_max_width = 120;
    Options().tab_width_mode = 1;
}

// A stand-in for a tab folder's shell menu that counts what is asked of it.
class CountingMenu : public IContextMenu {
public:
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override {
        *object = riid == IID_IUnknown || riid == IID_IContextMenu ? this : nullptr;
        return *object ? S_OK : E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override { return E_NOTIMPL; }
    STDMETHODIMP InvokeCommand(CMINVOKECOMMANDINFO* info) override {
        invoked.push_back(static_cast<int>(reinterpret_cast<UINT_PTR>(info->lpVerb)));
        return S_OK;
    }
    STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, CHAR* name, UINT size) override {
        lstrcpynA(name, "properties", static_cast<int>(size));
        return S_OK;
    }
    std::vector<int> invoked;
};

TEST(TabStrip, EveryWidthItemSetsTheWidthAndTheFoldersMenuHasItsOwnIds) {
    ViewHost host(1);
    TempFolder a;
    ASSERT_TRUE(host.Panel().NavigateToText(a.path()));
    CCBrowserTabView& tabs = host.Panel().Tabs();
    CountingMenu shellMenu;
    for (UINT width = kTabWidthFirst; width <= kTabWidthLast; width += 10) {
        Options().tab_width_mode = 0;
        tabs.RunContextCommand(width, 0, &shellMenu);
        EXPECT_EQ(Options().tab_max_width, static_cast<int>(width));
        EXPECT_EQ(Options().tab_width_mode, 1);
    }
    tabs.RunContextCommand(kTabWidthUncut, 0, &shellMenu);
    EXPECT_EQ(Options().tab_width_mode, 0);
    EXPECT_TRUE(shellMenu.invoked.empty()) << "no width item runs a shell verb";
    tabs.RunContextCommand(kTabFirstShellId + 7, 0, &shellMenu);
    EXPECT_EQ(shellMenu.invoked, std::vector<int>{7});
    Options() = GeneralOptions{};
}

// The shell menu of a tab means the tab's folder, whatever its list has selected.
TEST(TabStrip, TheTabMenusVerbsActOnTheTabsFolder) {
    ViewHost host(1);
    TempFolder a;
    CreateDirectoryW((a / L"inner").c_str(), nullptr);
    WriteBytes(a / L"inner\\picked.txt", "x");
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a / L"inner"));
    ASSERT_TRUE(SelectByName(*panel.Active(), L"picked.txt"));
    CCBrowserTabView& tabs = panel.Tabs();

    win::ComPtr<IShellFolder> parent;
    PCUITEMID_CHILD last = nullptr;
    win::ComPtr<IContextMenu> menu;
    ASSERT_HRESULT_SUCCEEDED(SHBindToParent(tabs.Record(0)->folder.get(), IID_IShellFolder, parent.put_void(), &last));
    ASSERT_HRESULT_SUCCEEDED(parent->GetUIObjectOf(nullptr, 1, &last, IID_IContextMenu, nullptr, menu.put_void()));
    win::UniqueMenu popup(CreatePopupMenu());
    menu->QueryContextMenu(popup.get(), 0, kTabFirstShellId, kTabLastShellId, CMF_NORMAL);
    for (const char* wanted : {"copy", "cut"}) {
        UINT id = 0;
        for (int i = 0; i < GetMenuItemCount(popup.get()); ++i) {
            const UINT item = GetMenuItemID(popup.get(), i);
            if (item >= kTabFirstShellId && item != UINT(-1) && win::VerbOf(menu.get(), item - kTabFirstShellId) == wanted) id = item;
        }
        ASSERT_NE(id, 0u) << wanted;
        tabs.RunContextCommand(id, 0, menu.get());
        ClipboardFiles files;
        ASSERT_TRUE(ReadClipboardFiles(host.hwnd(), files));
        ASSERT_EQ(files.paths.size(), 1u);
        EXPECT_EQ(LowerCase(files.paths[0]), LowerCase(a / L"inner")) << wanted;
        EXPECT_EQ(files.effect, std::string(wanted) == "cut" ? DWORD(DROPEFFECT_MOVE) : DWORD(DROPEFFECT_COPY));
    }
}

// A tab whose browser view cannot be made (the sixteenth) goes again: the strip keeps showing
// the tab of the view that is on screen.
TEST(TabStrip, ATabWithoutABrowserViewIsNotShownSelected) {
    ViewHost host(1);
    TempFolder a;
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(a.path()));
    for (int i = 1; i < 15; ++i) panel.NewTab();
    CCBrowserTabView& tabs = panel.Tabs();
    ASSERT_EQ(tabs.Count(), 15);
    CMyShellBrowser* shown = panel.Active();

    std::jthread answer([](std::stop_token stop) {  // "Max=16" is a message box
        while (!stop.stop_requested()) {
            if (HWND box = FindWindowW(L"#32770", L"Tessel")) PostMessageW(box, WM_COMMAND, IDOK, 0);
            Sleep(20);
        }
    });
    panel.NewTab();
    answer.request_stop();
    answer.join();
    EXPECT_EQ(tabs.Count(), 15);
    ASSERT_GE(tabs.Selected(), 0);
    EXPECT_EQ(tabs.Record(tabs.Selected())->browser, shown);
    EXPECT_EQ(panel.Active(), shown);
    EXPECT_TRUE(IsWindowVisible(shown->hwnd()));
}

}  // namespace
}  // namespace tessel::testing
