// The options dialog's pages driven as a user would: colour rules added, moved, deleted and
// switched off, the user's lists edited, each change written to the settings at once.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/user_text_file_win.h"
#include "features/program_colours_win.h"
#include "frame/option_pages.h"
#include "frame/options_dialog_win.h"
#include "frame/switches_page_win.h"
#include "features/quick_links.h"
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
        int rows = -1, afterNew = -1, afterDelete = -1, newSelected = -1;
        bool naming = false;
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
        seen.newSelected = ListView_GetNextItem(list, -1, LVNI_SELECTED);
        seen.naming = ListView_GetEditControl(list) != nullptr;
        SendMessageW(list, LVM_CANCELEDITLABEL, 0, 0);
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
    COptionenWnd::Run(host.hwnd(), COptionenWnd::PageIndex(IDS_PAGE_COLOURS));
    user.join();
    EXPECT_EQ(seen.rows, 12);
    EXPECT_FALSE(seen.recommendEnabled) << "no page for proposals is set";
    EXPECT_EQ(seen.afterNew, 13);
    EXPECT_EQ(seen.newSelected, 12) << "the new rule comes last, selected";
    EXPECT_TRUE(seen.naming) << "and its pattern is being edited";
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
        std::wstring nameField, afterAdd, afterUp, quickLinks, refusedAdd;
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
        type(IDC_LISTS_NAME, L"a=b");  // would read back as the name "a"
        click(IDC_LISTS_ADD);
        seen.refusedAdd = Settings().GetSection(kQuickLinksSection);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    MessageAnswer refusal;
    COptionenWnd::Run(host.hwnd(), COptionenWnd::PageIndex(IDS_PAGE_LISTS));
    user.join();
    EXPECT_EQ(seen.rows, 1);
    EXPECT_EQ(seen.nameField, L"Edit") << "the selected entry is shown for changing";
    EXPECT_EQ(seen.afterAdd, L"Edit=notepad.exe %sel_file%\nDir=cmd.exe /k dir %curdir%\n");
    EXPECT_EQ(seen.afterUp, L"Dir=cmd.exe /k dir %curdir%\nEdit=notepad.exe %sel_file%\n");
    EXPECT_TRUE(QuickLinksDisabled(Settings(), kProgramsSection));
    EXPECT_EQ(seen.quickLinks, L"Temp=%appdata%\n");
    EXPECT_EQ(seen.refusedAdd, seen.quickLinks) << "an entry that would not read back is refused";
    EXPECT_EQ(refusal.Count(), 1) << "and the page says why";
}


// An import reads its file first and says why it got nothing; the pages then leave their lists.
TEST(ImportFile, AFileThatGivesNothingIsNamedWhy) {
    TempFolder folder;
    std::wstring text = L"x";
    EXPECT_EQ(ReadUserTextFile(folder / L"missing.ini", 1024, text), UserFileProblem::kUnreadable);
    EXPECT_TRUE(text.empty());
    EXPECT_EQ(ReadUserTextFile(folder.path(), 1024, text), UserFileProblem::kUnreadable) << "a folder";
    WriteBytes(folder / L"empty.ini", "");
    EXPECT_EQ(ReadUserTextFile(folder / L"empty.ini", 1024, text), UserFileProblem::kEmpty);
    WriteBytes(folder / L"blank.ini", "\xFF\xFE \0\r\0\n\0");
    EXPECT_EQ(ReadUserTextFile(folder / L"blank.ini", 1024, text), UserFileProblem::kEmpty);
    WriteBytes(folder / L"large.ini", std::string(2000, 'a'));
    EXPECT_EQ(ReadUserTextFile(folder / L"large.ini", 1024, text), UserFileProblem::kTooLarge);
    WriteBytes(folder / L"rules.ini", "*.txt\tFF0000\r\n");
    EXPECT_EQ(ReadUserTextFile(folder / L"rules.ini", 1024, text), UserFileProblem::kNone);
    EXPECT_EQ(text, L"*.txt\tFF0000\r\n");
}

// The window's side as the pages see it: it holds the tree mode and records what it was asked
// to redo.
struct RecordingHost : IOptionHost {
    unsigned effects = 0;
    bool HeldOption(std::wstring_view key, int& value) override {
        if (key != L"tree_mode") return false;
        value = 1;
        return true;
    }
    void ApplyOptions(unsigned asked) override { effects |= asked; }
};

// Puts a settings section back as it was when the test is over.
class SectionKeeper {
public:
    explicit SectionKeeper(const wchar_t* section) : section_(section), lines_(Settings().GetSection(section)) {}
    ~SectionKeeper() { Settings().PutSection(section_, lines_); }

private:
    const wchar_t* section_;
    std::wstring lines_;
};

int ControlOf(int pageTitle, const wchar_t* key) {
    for (const OptionPageTable& page : OptionPageTables())
        if (page.titleId == pageTitle)
            for (size_t i = 0; i < page.items.size(); ++i)
                if (std::wstring_view(page.items[i].key) == key) return CSwitchesPage::ControlId(i);
    return -1;
}

void ShowPageNamed(HWND dialog, int title) {
    HWND list = GetDlgItem(dialog, IDC_OPTIONS_PAGES);
    SendMessageW(list, LB_SETCURSEL, COptionenWnd::PageIndex(title), 0);
    SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_OPTIONS_PAGES, LBN_SELCHANGE), reinterpret_cast<LPARAM>(list));
}

void Choose(HWND box, int value) {
    const int count = static_cast<int>(SendMessageW(box, CB_GETCOUNT, 0, 0));
    for (int i = 0; i < count; ++i)
        if (SendMessageW(box, CB_GETITEMDATA, i, 0) == value) SendMessageW(box, CB_SETCURSEL, i, 0);
    SendMessageW(GetParent(box), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(box), CBN_SELCHANGE), reinterpret_cast<LPARAM>(box));
}

int Chosen(HWND box) {
    const LRESULT at = SendMessageW(box, CB_GETCURSEL, 0, 0);
    return at < 0 ? -99 : static_cast<int>(SendMessageW(box, CB_GETITEMDATA, at, 0));
}

TEST(OptionsDialog, SwitchPagesShowClampedValuesAndWriteEachChangeAtOnce) {
    ViewHost host(1);
    SectionKeeper keep(L"Start");
    GeneralOptions& options = Options();
    ScopedOption width(options.tab_max_width, 5000), tabs(options.show_tabs, 2), ask(options.close_ask, 0);
    RecordingHost window;
    struct Seen {
        std::wstring widthShown;
        int treeModeShown = -1, tabsAfter = -1, widthAfter = -1, askAfter = -1;
        unsigned tabEffects = 0;
    } seen;
    std::jthread user([&] {
        HWND dialog = nullptr;
        HWND widthField = OptionsPageControl(dialog, ControlOf(62202, L"tab_max_width"));
        if (!widthField) return;
        HWND page = GetParent(widthField);
        seen.widthShown = GetWindowTextString(widthField);
        Choose(GetDlgItem(page, ControlOf(62202, L"show_tabs")), 1);
        seen.tabsAfter = options.show_tabs;
        SetWindowTextW(widthField, L"1");  // on the way to 150: not in range, not kept
        SetWindowTextW(widthField, L"150");
        seen.widthAfter = Settings().GetInt(L"Start", L"tab_max_width", -1);
        seen.tabEffects = window.effects;
        ShowPageNamed(dialog, 62203);
        HWND treePage = nullptr;
        for (int i = 0; i < 50 && !treePage; ++i, Sleep(20))
            for (HWND p = FindWindowExW(dialog, nullptr, L"#32770", nullptr); p; p = FindWindowExW(dialog, p, L"#32770", nullptr))
                if (IsWindowVisible(p) && GetDlgItem(p, ControlOf(62203, L"tree_mode"))) treePage = p;
        if (treePage) seen.treeModeShown = Chosen(GetDlgItem(treePage, ControlOf(62203, L"tree_mode")));
        ShowPageNamed(dialog, 62200);
        for (HWND p = FindWindowExW(dialog, nullptr, L"#32770", nullptr); p; p = FindWindowExW(dialog, p, L"#32770", nullptr))
            if (IsWindowVisible(p)) SendMessageW(GetDlgItem(p, ControlOf(62200, L"close_ask")), BM_CLICK, 0, 0);
        seen.askAfter = Settings().GetInt(L"Start", L"close_ask", -1);
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    COptionenWnd::Run(host.hwnd(), COptionenWnd::PageIndex(62202), &window);
    user.join();
    EXPECT_EQ(seen.widthShown, L"300") << "a width beyond the range shows clamped";
    EXPECT_EQ(seen.tabsAfter, 1);
    EXPECT_EQ(Settings().GetInt(L"Start", L"show_tabs", -1), 1);
    EXPECT_EQ(seen.widthAfter, 150);
    EXPECT_EQ(options.tab_max_width, 150);
    EXPECT_TRUE(seen.tabEffects & kEffectTabs) << "the strips are laid out again";
    EXPECT_EQ(seen.treeModeShown, 1) << "the tree mode comes from the window";
    EXPECT_EQ(seen.askAfter, 1);
    EXPECT_EQ(options.close_ask, 1);
}

TEST(OptionsDialog, ALanguageChangeBuildsTheDialogAgainInThatLanguage) {
    ViewHost host(1);
    SectionKeeper keep(L"Start");
    ScopedOption language(Options().m_lang_id, 1);
    RecordingHost window;
    std::wstring englishTitle = GetText(IDS_OPTIONS_TITLE), germanTitle;
    HWND first = nullptr, second = nullptr;
    std::jthread user([&] {
        HWND box = OptionsPageControl(first, ControlOf(62200, L"m_lang_id"));
        if (!box) return;
        Choose(box, 0);
        for (int i = 0; i < 200 && !second; ++i, Sleep(20))
            for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
                if (d != first && IsWindowVisible(d) && GetDlgItem(d, IDC_OPTIONS_PAGES)) second = d;
        if (!second) return;
        germanTitle = GetWindowTextString(second);
        PostMessageW(second, WM_COMMAND, IDOK, 0);
    });
    COptionenWnd::Run(host.hwnd(), 0, &window);
    user.join();
    ASSERT_NE(second, nullptr) << "the dialog opened again";
    EXPECT_EQ(Settings().GetInt(L"Start", L"m_lang_id", -1), 0);
    EXPECT_TRUE(window.effects & kEffectLanguage);
    EXPECT_NE(germanTitle, englishTitle);
    EXPECT_EQ(germanTitle, GetText(IDS_OPTIONS_TITLE));
}

}  // namespace
}  // namespace tessel::testing
