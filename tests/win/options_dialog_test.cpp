// The options dialog's pages driven as a user would: colour rules added, moved, deleted and
// switched off, the user's lists edited, each change written to the settings at once.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/program_colours_win.h"
#include "frame/options_dialog_win.h"
#include "nav/quick_links.h"
#include "res/resource.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

HWND WaitForDialog(const std::wstring& title) {
    for (int i = 0; i < 500; ++i) {
        if (HWND dialog = FindWindowW(L"#32770", title.c_str())) return dialog;
        Sleep(20);
    }
    return nullptr;
}

// The options dialog once it shows, and the control `id` of the page it shows; null when none.
HWND OptionsPageControl(HWND& dialog, int id) {
    dialog = WaitForDialog(GetText(IDS_OPTIONS_TITLE));
    HWND control = nullptr;
    for (int i = 0; dialog && i < 100 && !control; ++i, Sleep(20))
        if (HWND page = FindWindowExW(dialog, nullptr, L"#32770", nullptr)) control = GetDlgItem(page, id);
    return control;
}

TEST(OptionsDialog, ColourPageEditsTheRulesInPlace) {
    ViewHost host(1);
    Colours().Load(Settings());
    ASSERT_EQ(Colours().Table().count, 12);
    struct Seen {
        int rows = -1, afterNew = -1, afterDelete = -1;
        std::wstring newLine, firstAfterDown;
        bool recommendEnabled = true;
    } seen;
    std::jthread user([&seen] {
        HWND dialog = nullptr;
        HWND list = OptionsPageControl(dialog, IDC_COLOUR_LIST);
        if (!list) return;
        HWND page = GetParent(list);
        const auto click = [&](int id) { SendMessageW(GetDlgItem(page, id), BM_CLICK, 0, 0); };
        seen.rows = ListView_GetItemCount(list);
        seen.recommendEnabled = IsWindowEnabled(GetDlgItem(page, ID_COLOUR_RECOMMEND));
        click(ID_COLOUR_NEW);
        seen.afterNew = ListView_GetItemCount(list);
        seen.newLine = Settings().GetString(L"Filter2", L"12", L"");
        ListView_SetItemState(list, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        click(ID_COLOUR_DOWN);
        seen.firstAfterDown = Settings().GetString(L"Filter2", L"1", L"");
        ListView_SetItemState(list, 12, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
        click(ID_COLOUR_DELETE);
        seen.afterDelete = ListView_GetItemCount(list);
        ListView_SetCheckState(list, 0, FALSE);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    COptionenWnd::Run(host.hwnd());
    user.join();
    EXPECT_EQ(seen.rows, 12);
    EXPECT_FALSE(seen.recommendEnabled) << "no page for proposals is set";
    EXPECT_EQ(seen.afterNew, 13);
    EXPECT_EQ(seen.newLine.rfind(GetText(79) + L"=1=", 0), 0u) << std::string(seen.newLine.begin(), seen.newLine.end());
    EXPECT_EQ(seen.newLine.substr(seen.newLine.size() - 12), L"=-1=-1=-1=-1");
    EXPECT_EQ(seen.firstAfterDown.rfind(L"#Hidden=", 0), 0u) << "the first rule moved one place down";
    EXPECT_EQ(seen.afterDelete, 12);
    EXPECT_EQ(Settings().GetString(L"Filter2", L"12", L"x"), L"") << "the deleted row's key is emptied";
    EXPECT_EQ(Colours().Table().count, 12);
    EXPECT_EQ(Colours().Table().slots[0].enabled, 0) << "the check box switched the first rule off";
    EXPECT_EQ(Settings().GetString(L"Filter2", L"0", L"").find(L"=0="), Settings().GetString(L"Filter2", L"0", L"").find(L'='));
}

TEST(OptionsDialog, ListsPageEditsProgramsQuickLinksAndAssociations) {
    ViewHost host(1);
    WriteQuickLinks(Settings(), kProgramsSection, {{L"Edit", L"notepad.exe %sel_file%"}});
    struct Seen {
        int rows = -1;
        std::wstring nameField, afterAdd, afterUp, quickLinks;
    } seen;
    std::jthread user([&seen] {
        HWND dialog = nullptr;
        HWND list = OptionsPageControl(dialog, IDC_LISTS_ENTRIES);
        if (!list) return;
        HWND page = GetParent(list);
        const auto click = [&](int id) { SendMessageW(GetDlgItem(page, id), BM_CLICK, 0, 0); };
        const auto type = [&](int id, const wchar_t* text) { SetDlgItemTextW(page, id, text); };
        seen.rows = ListView_GetItemCount(list);
        seen.nameField = GetWindowTextString(GetDlgItem(page, IDC_LISTS_NAME));
        type(IDC_LISTS_NAME, L"Dir");
        type(IDC_LISTS_TARGET, L"cmd.exe /k dir %curdir%");
        click(IDC_LISTS_ADD);  // after the selected entry
        seen.afterAdd = Settings().GetSection(kProgramsSection);
        click(IDC_LISTS_UP);
        seen.afterUp = Settings().GetSection(kProgramsSection);
        click(IDC_LISTS_DISABLE);
        HWND which = GetDlgItem(page, IDC_LISTS_WHICH);
        SendMessageW(which, CB_SETCURSEL, 1, 0);
        SendMessageW(page, WM_COMMAND, MAKEWPARAM(IDC_LISTS_WHICH, CBN_SELCHANGE), reinterpret_cast<LPARAM>(which));
        type(IDC_LISTS_NAME, L"Temp");
        type(IDC_LISTS_TARGET, L"%appdata%");
        click(IDC_LISTS_ADD);
        seen.quickLinks = Settings().GetSection(kQuickLinksSection);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    COptionenWnd::Run(host.hwnd(), 1);
    user.join();
    EXPECT_EQ(seen.rows, 1);
    EXPECT_EQ(seen.nameField, L"Edit") << "the selected entry is shown for changing";
    EXPECT_EQ(seen.afterAdd, L"Edit=notepad.exe %sel_file%\nDir=cmd.exe /k dir %curdir%\n");
    EXPECT_EQ(seen.afterUp, L"Dir=cmd.exe /k dir %curdir%\nEdit=notepad.exe %sel_file%\n");
    EXPECT_TRUE(QuickLinksDisabled(Settings(), kProgramsSection));
    EXPECT_EQ(seen.quickLinks, L"Temp=%appdata%\n");
}

}  // namespace
}  // namespace tessel::testing
