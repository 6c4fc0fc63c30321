// Back and forward under Wine's shell view: view mode and selection come back, the history menus
// list the right entries, a jump during a jump is refused, a vanished folder keeps the view, and
// a transfer hands folder, history and selection to another T-View.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "res/resource.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

class History : public ::testing::Test {
protected:
    void SetUp() override {
        for (const wchar_t* name : {L"one", L"two", L"three"}) {
            CreateDirectoryW((files_ / name).c_str(), nullptr);
            WriteBytes(files_ / (std::wstring(name) + L"\\a.txt"), "a");
            WriteBytes(files_ / (std::wstring(name) + L"\\b.txt"), "b");
        }
    }
    bool Go(const wchar_t* name, int panel = 0) { return host_.Panel(panel).NavigateToText(files_ / name); }
    std::wstring Shown(int panel = 0) { return LowerCase(host_.Browser(panel).CurrentPath()); }
    std::wstring Expected(const wchar_t* name) { return LowerCase(files_ / name); }
    UINT ViewMode(int panel = 0) {
        FOLDERSETTINGS settings = host_.Browser(panel).CurrentSettings();
        return settings.ViewMode;
    }
    // "one" left in list mode with one file selected, "two" shown in the given mode.
    CMyShellBrowser& LeaveOne(const wchar_t* selected, int twoMode) {
        EXPECT_TRUE(Go(L"one"));
        CMyShellBrowser& browser = host_.Browser();
        browser.Execute(ID_VIEW_MODE_LIST);
        EXPECT_TRUE(SelectByName(browser, selected));
        EXPECT_TRUE(Go(L"two"));
        browser.Execute(twoMode);
        return browser;
    }
    static std::vector<std::wstring> MenuTexts(HMENU menu, std::vector<UINT>* ids = nullptr) {
        std::vector<std::wstring> texts;
        for (int i = 0; i < GetMenuItemCount(menu); ++i) {
            wchar_t text[MAX_PATH] = {};
            GetMenuStringW(menu, i, text, MAX_PATH, MF_BYPOSITION);
            texts.push_back(LowerCase(text));
            if (ids) ids->push_back(GetMenuItemID(menu, i));
        }
        return texts;
    }

    TempFolder files_;
    ViewHost host_{2};
};

TEST_F(History, BackAndForwardRestoreFolderViewModeAndSelection) {
    CMyShellBrowser& browser = LeaveOne(L"b.txt", ID_VIEW_MODE_ICONS);
    ASSERT_TRUE(Go(L"three"));
    EXPECT_EQ(browser.HistoryIndex(), 2);
    EXPECT_FALSE(browser.History().CanGoForward());

    browser.Execute(ID_VIEW_BACK);
    EXPECT_EQ(Shown(), Expected(L"two"));
    browser.Execute(ID_VIEW_BACK);
    EXPECT_EQ(Shown(), Expected(L"one"));
    EXPECT_EQ(ViewMode(), static_cast<UINT>(FVM_LIST)) << "the view mode the folder was left in";
    EXPECT_EQ(SelectedName(browser), L"b.txt");
    browser.Execute(ID_VIEW_BACK);  // at the first entry: nothing
    EXPECT_EQ(Shown(), Expected(L"one"));

    // The mouse's forward button and Alt+Right in the list go forward too.
    SendMessageW(browser.GetListControl(), WM_XBUTTONUP, MAKEWPARAM(0, XBUTTON2), 0);
    EXPECT_EQ(Shown(), Expected(L"two"));
    EXPECT_EQ(ViewMode(), static_cast<UINT>(FVM_ICON));
    BYTE keys[256] = {};
    GetKeyboardState(keys);
    keys[VK_MENU] = 0x80;
    SetKeyboardState(keys);
    SendMessageW(browser.GetListControl(), WM_SYSKEYDOWN, VK_RIGHT, 1 << 29);
    keys[VK_MENU] = 0;
    SetKeyboardState(keys);
    EXPECT_EQ(Shown(), Expected(L"three"));

    // Back, then a new navigation: no forward any more.
    browser.GoBack();
    ASSERT_TRUE(Go(L"one"));
    EXPECT_FALSE(browser.History().CanGoForward());
    EXPECT_EQ(browser.HistoryIndex(), 2);
}

TEST_F(History, OptionsDecideWhatAJumpRestores) {
    CMyShellBrowser& browser = LeaveOne(L"a.txt", ID_VIEW_MODE_DETAILS);
    {
        ScopedOption view(Options().merke_ansicht, 0);
        ScopedOption selection(Options().merke_markierte, 0);
        browser.GoBack();
        EXPECT_EQ(Shown(), Expected(L"one"));
        EXPECT_EQ(ViewMode(), static_cast<UINT>(FVM_DETAILS)) << "the current view mode stays";
        EXPECT_EQ(SelectedName(browser), L"");
    }
    // Left with a.txt selected again; a different filter text forbids the selection.
    ASSERT_TRUE(SelectByName(browser, L"a.txt"));
    browser.GoForward();
    HWND filterBox = GetDlgItem(host_.Panel().hwnd(), kFilterBoxId);
    SetWindowTextW(filterBox, L"*.txt");
    browser.GoBack();
    EXPECT_EQ(Shown(), Expected(L"one"));
    EXPECT_EQ(SelectedName(browser), L"") << "the filter changed since the entry was left";
}

TEST_F(History, MenusListTheEntriesAndClearEmptiesThem) {
    ASSERT_TRUE(Go(L"one"));
    ASSERT_TRUE(Go(L"two"));
    ASSERT_TRUE(Go(L"three"));
    CMyShellBrowser& browser = host_.Browser();
    browser.GoBack();
    std::vector<UINT> ids;
    win::UniqueMenu back = browser.BuildHistoryMenu(false);
    EXPECT_EQ(MenuTexts(back.get(), &ids),
              (std::vector<std::wstring>{Expected(L"one"), L"", LowerCase(GetText(19))}));
    EXPECT_EQ(ids, (std::vector<UINT>{1, 0, 65535}));
    ids.clear();
    win::UniqueMenu forward = browser.BuildHistoryMenu(true);
    EXPECT_EQ(MenuTexts(forward.get(), &ids)[0], Expected(L"three"));
    EXPECT_EQ(ids[0], 3u);

    browser.RunHistoryCommand(1);  // the item of entry 0
    EXPECT_EQ(Shown(), Expected(L"one"));
    EXPECT_EQ(GetMenuItemCount(browser.BuildHistoryMenu(false).get()), 0) << "nothing behind: no clear item either";
    browser.RunHistoryCommand(65535);
    EXPECT_FALSE(browser.History().CanGoForward());
    EXPECT_EQ(browser.History().Count(), 0u);
    EXPECT_EQ(Shown(), Expected(L"one")) << "clearing keeps the folder";
}

TEST_F(History, AJumpDuringAJumpIsRefusedAndAVanishedFolderKeepsTheView) {
    ASSERT_TRUE(Go(L"one"));
    ASSERT_TRUE(Go(L"two"));
    CMyShellBrowser& browser = host_.Browser();
    {
        HistoryJumpGuard running;  // as if another view were jumping
        EXPECT_EQ(browser.GoToEntry(0), 0);
    }
    EXPECT_EQ(Shown(), Expected(L"two"));

    DeleteFileW((files_ / L"one\\a.txt").c_str());
    DeleteFileW((files_ / L"one\\b.txt").c_str());
    ASSERT_TRUE(RemoveDirectoryW((files_ / L"one").c_str()));
    EXPECT_EQ(browser.GoToEntry(0), 1);
    EXPECT_EQ(Shown(), Expected(L"two")) << "the folder is gone: the view stays";
    EXPECT_EQ(browser.HistoryIndex(), 0) << "the index follows the request";
    EXPECT_TRUE(browser.History().CanGoForward());
}

TEST_F(History, ATransferCarriesFolderHistoryAndSelectionAndOutlivesTheSource) {
    ASSERT_TRUE(Go(L"one"));
    ASSERT_TRUE(Go(L"two"));
    CMyShellBrowser& source = host_.Browser(0);
    source.Execute(ID_VIEW_MODE_LIST);
    ASSERT_TRUE(SelectByName(source, L"b.txt"));
    ASSERT_TRUE(Go(L"three", 1));
    CMyShellBrowser& target = host_.Browser(1);
    const StreamBytes columns{0x10, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12};
    source.Columns().Replace(L"KindOfTest") = columns;

    source.TransferTo(target, true, true, true);
    ASSERT_TRUE(target.Columns().Find(L"KindOfTest")) << "the columns go along";
    EXPECT_EQ(*target.Columns().Find(L"KindOfTest"), columns);
    EXPECT_EQ(Shown(1), Expected(L"two"));
    EXPECT_EQ(ViewMode(1), static_cast<UINT>(FVM_LIST));
    EXPECT_EQ(SelectedName(target), L"b.txt");
    EXPECT_EQ(target.HistoryIndex(), 1);

    // The source's tab closes; the target's copy of the history stays whole.
    host_.Panel(0).CloseBrowser(&source);
    target.GoBack();
    EXPECT_EQ(Shown(1), Expected(L"one"));
    target.GoForward();
    EXPECT_EQ(Shown(1), Expected(L"two"));
    EXPECT_EQ(SelectedName(target), L"b.txt") << "the copied entry's selection";
}

TEST_F(History, ATransferWithoutHistoryOnlyMovesTheFolder) {
    ASSERT_TRUE(Go(L"one"));
    ASSERT_TRUE(Go(L"two"));
    ASSERT_TRUE(Go(L"three", 1));
    CMyShellBrowser& target = host_.Browser(1);
    host_.Browser(0).TransferTo(target, false, false, false);
    EXPECT_EQ(Shown(1), Expected(L"two"));
    target.GoBack();
    EXPECT_EQ(Shown(1), Expected(L"three")) << "the target's own history is kept";
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

TEST_F(History, TheTransferMenuKeepsItsChoicesAndServesCopyAndMoveToo) {
    ASSERT_TRUE(Go(L"one"));
    ASSERT_TRUE(Go(L"two", 1));
    CPloder& source = host_.Panel(0);
    std::vector<UINT> ids;
    win::UniqueMenu menu = source.BuildTransferMenu(ID_TRANSFER);
    const std::vector<std::wstring> texts = MenuTexts(menu.get(), &ids);
    EXPECT_EQ(ids, (std::vector<UINT>{45054, 45055, 45056, 45057, 0, 32833, 32834, 32835, 32836}));
    EXPECT_EQ(texts[2], LowerCase(GetText(282)));
    EXPECT_TRUE(GetMenuState(menu.get(), 45056, MF_BYCOMMAND) & MF_CHECKED) << "each choice starts ticked";
    EXPECT_TRUE(GetMenuState(menu.get(), 32833, MF_BYCOMMAND) & MF_GRAYED) << "not to itself";
    EXPECT_FALSE(GetMenuState(menu.get(), 32834, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_TRUE(GetMenuState(menu.get(), 32835, MF_BYCOMMAND) & MF_GRAYED) << "no such T-View here";
    ShowWindow(host_.Panel(1).hwnd(), SW_HIDE);  // as a layout without it does
    EXPECT_TRUE(GetMenuState(source.BuildTransferMenu(ID_TRANSFER).get(), 32834, MF_BYCOMMAND) & MF_GRAYED);
    ShowWindow(host_.Panel(1).hwnd(), SW_SHOW);

    source.RunTransferCommand(ID_TRANSFER, 45056);  // history off, written at once
    EXPECT_EQ(Settings().GetInt(L"Transfer", L"hystori", -1), 0);
    EXPECT_FALSE(GetMenuState(source.BuildTransferMenu(ID_TRANSFER).get(), 45056, MF_BYCOMMAND) & MF_CHECKED);
    source.RunTransferCommand(ID_TRANSFER, 32834);
    EXPECT_EQ(Shown(1), Expected(L"one"));
    host_.Browser(1).GoBack();
    EXPECT_EQ(Shown(1), Expected(L"two")) << "without the history the target keeps its own";

    // Copy-to and move-to: the files themselves go to the other T-View's folder.
    EXPECT_EQ(GetMenuItemCount(source.BuildTransferMenu(ID_COPY_TO_VIEW).get()), 4);
    DeleteFileW((files_ / L"two\\a.txt").c_str());
    DeleteFileW((files_ / L"two\\b.txt").c_str());
    ASSERT_TRUE(SelectByName(host_.Browser(0), L"a.txt"));
    source.RunTransferCommand(ID_COPY_TO_VIEW, 32834);
    EXPECT_NE(GetFileAttributesW((files_ / L"two\\a.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(GetFileAttributesW((files_ / L"one\\a.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    ASSERT_TRUE(SelectByName(host_.Browser(0), L"b.txt"));
    source.RunTransferCommand(ID_MOVE_TO_VIEW, 32834);
    EXPECT_NE(GetFileAttributesW((files_ / L"two\\b.txt").c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(GetFileAttributesW((files_ / L"one\\b.txt").c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace tessel::testing
