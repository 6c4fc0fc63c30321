// The options dialog's colour page driven as a user would: rows added, moved, deleted and
// switched off, each change written to the settings and in force at once.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/program_colours_win.h"
#include "frame/options_dialog_win.h"
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

TEST(OptionsDialog, ColourPageEditsTheRulesInPlace) {
    ViewHost host(1);
    Colours().Load(Settings());
    ASSERT_EQ(Colours().Table().count, 12);
    struct Seen {
        int rows = -1, afterNew = -1, afterDelete = -1;
        std::wstring newLine, firstAfterDown;
        bool recommendEnabled = true;
    } seen;
    std::jthread user([&seen, title = GetText(IDS_OPTIONS_TITLE)] {
        HWND dialog = WaitForDialog(title);
        if (!dialog) return;
        HWND list = nullptr;
        for (int i = 0; i < 100 && !list; ++i, Sleep(20))
            if (HWND page = FindWindowExW(dialog, nullptr, L"#32770", nullptr)) list = GetDlgItem(page, IDC_COLOUR_LIST);
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

}  // namespace
}  // namespace tessel::testing
