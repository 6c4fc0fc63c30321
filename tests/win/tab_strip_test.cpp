// The tab strip of a T-View: opening, closing, moving and the strip's show rule.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include "core/general_options.h"
#include "core/settings_store_win.h"
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

}  // namespace
}  // namespace tessel::testing
