// The browser view under Wine's shell view: navigation in all its forms, failures that keep
// the view, the status worker, and the clipboard between two T-Views.
#include <windows.h>
#include <commctrl.h>
#include <shellapi.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/path_text.h"
#include "res/resource.h"
#include "view/dir_watch_win.h"
#include "view/file_clipboard_win.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

class BrowserView : public ::testing::Test {
protected:
    void SetUp() override {
        CreateDirectoryW((files_ / L"sub").c_str(), nullptr);
        CreateDirectoryW((files_ / L"Ordner \u2713 \u65E5\u672C").c_str(), nullptr);
        WriteBytes(files_ / L"a.txt", "aaaa");
        WriteBytes(files_ / L"b.txt", std::string(2048, 'b'));
        WriteBytes(files_ / L"sub\\inner.txt", "x");
    }
    bool Go(const std::wstring& path, int panel = 0) { return host_.Panel(panel).NavigateToText(path); }
    std::wstring Shown(int panel = 0) { return LowerCase(host_.Browser(panel).CurrentPath()); }

    TempFolder files_;
    ViewHost host_{2};
};

TEST_F(BrowserView, NavigatesByTextDefaultCommandUpAndBackspace) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    EXPECT_EQ(ListCount(browser), 4);
    wchar_t panelText[MAX_PATH] = {};
    GetWindowTextW(host_.Panel().hwnd(), panelText, MAX_PATH);
    EXPECT_EQ(LowerCase(panelText), LowerCase(files_.path()));

    // A double-click on a folder arrives as the default command; the host goes in.
    ASSERT_TRUE(SelectByName(browser, L"sub"));
    EXPECT_EQ(browser.OnDefaultCommand(browser.View()), S_OK);
    EXPECT_EQ(Shown(), LowerCase(files_ / L"sub"));
    // On a file the view is left to open it.
    ASSERT_TRUE(SelectByName(browser, L"inner.txt"));
    EXPECT_EQ(browser.OnDefaultCommand(browser.View()), S_FALSE);

    // Up selects the folder just left.
    ListView_SetItemState(browser.GetListControl(), -1, 0, LVIS_SELECTED);
    browser.Execute(ID_VIEW_UP);
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    EXPECT_EQ(SelectedName(browser), L"sub");

    // Backspace in the list reaches the browser as a parent request.
    ASSERT_TRUE(Go(files_ / L"sub"));
    SetFocus(browser.GetListControl());
    SendMessageW(browser.GetListControl(), WM_KEYDOWN, VK_BACK, 0);
    Pump(50);
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    EXPECT_EQ(GetFocus(), browser.GetListControl()) << "the view has the keyboard focus after navigating";
}

TEST_F(BrowserView, SameFolderRefreshesAndTextFormsAreAccepted) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    const int index = browser.HistoryIndex();
    ASSERT_TRUE(Go(files_.path()));
    EXPECT_EQ(browser.HistoryIndex(), index) << "the folder already shown is refreshed, not entered again";

    std::wstring url = L"file:///" + files_.path() + L"/sub";
    for (wchar_t& c : url)
        if (c == L'\\') c = L'/';
    ASSERT_TRUE(Go(url));
    EXPECT_EQ(Shown(), LowerCase(files_ / L"sub"));
    EXPECT_EQ(browser.HistoryIndex(), index + 1);

    const std::wstring unicode = files_ / L"Ordner \u2713 \u65E5\u672C";
    ASSERT_TRUE(Go(L"  \"" + unicode + L"\" "));
    EXPECT_EQ(Shown(), LowerCase(unicode));
}

TEST_F(BrowserView, BadLocationsKeepTheViewAndADeletedFolderDoesNotCrash) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    IShellView* before = browser.View();
    EXPECT_FALSE(Go(files_ / L"gone"));
    EXPECT_FALSE(Go(L"Q:\\no medium here"));
    EXPECT_FALSE(Go(L"C:\\" + std::wstring(300, L'x')));
    EXPECT_FALSE(Go(L""));
    EXPECT_EQ(browser.View(), before);
    EXPECT_EQ(Shown(), LowerCase(files_.path()));

    // A folder removed from outside while shown: F5 shows the nearest folder above that exists
    // and says why; so does the view on its own when it sees the folder go.
    CreateDirectoryW((files_ / L"sub\\deeper").c_str(), nullptr);
    ASSERT_TRUE(Go(files_ / L"sub\\deeper"));
    ASSERT_TRUE(MoveFileW((files_ / L"sub").c_str(), (files_ / L"moved").c_str()));
    browser.RefreshView();
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    EXPECT_EQ(ListCount(browser), 4);
    EXPECT_NE(browser.StatusText().find(L"deeper"), std::wstring::npos);
    ASSERT_TRUE(PumpUntil([&] { return browser.StatusText().find(L"4 ") != std::wstring::npos; }));
    EXPECT_NE(browser.StatusText().find(L"deeper"), std::wstring::npos) << "the reason stays with the counts";

    ASSERT_TRUE(Go(files_ / L"moved"));
    Pump(200);
    const std::wstring moved = files_ / L"moved";
    std::wstring from = moved + L'\0';
    SHFILEOPSTRUCTW remove{};
    remove.wFunc = FO_DELETE;
    remove.pFrom = from.c_str();
    remove.fFlags = FOF_NO_UI;
    ASSERT_EQ(SHFileOperationW(&remove), 0);
    EXPECT_TRUE(PumpUntil([&] { return Shown() == LowerCase(files_.path()); })) << "left without F5";
    EXPECT_EQ(GetFileAttributesW(moved.c_str()), INVALID_FILE_ATTRIBUTES) << "the watch held nothing back";
}

TEST_F(BrowserView, StatusCountsSizesAndFreeSpace) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    ASSERT_TRUE(PumpUntil([&] { return !browser.StatusText().empty(); }));
    EXPECT_NE(browser.StatusText().find(L"4 "), std::wstring::npos) << std::string(browser.StatusText().begin(), browser.StatusText().end());
    EXPECT_NE(browser.StatusText().find(L"(2.00 KB)"), std::wstring::npos);
    EXPECT_EQ(browser.FreeSpaceText().rfind(L"Frei:", 0), 0u);

    ASSERT_TRUE(SelectByName(browser, L"a.txt"));
    browser.RequestStatus();
    ASSERT_TRUE(PumpUntil([&] { return browser.StatusText().find(L"(4 Byte)") != std::wstring::npos; }))
        << std::string(browser.StatusText().begin(), browser.StatusText().end());
    wchar_t part[256] = {};
    SendMessageW(host_.Panel().StatusBar(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(part));
    EXPECT_EQ(std::wstring(part), browser.StatusText());
    wchar_t tip[256] = {};
    SendMessageW(host_.Panel().StatusBar(), SB_GETTIPTEXTW, MAKEWPARAM(0, 256), reinterpret_cast<LPARAM>(tip));
    EXPECT_EQ(std::wstring(tip), browser.StatusText()) << "a text cut by the toolbars shows whole as the tip";

    // Totals count what the list lists: with a filter, all or nothing selected, b.txt is not in.
    CPloder& panel = host_.Panel();
    if (!panel.Filter()->switches.show_filter) panel.ToggleFilterBox();
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"a*");
    panel.ApplyFilterText();
    ASSERT_EQ(ListCount(browser), 3);
    for (bool all : {false, true}) {
        ListView_SetItemState(browser.GetListControl(), -1, all ? LVIS_SELECTED : 0, LVIS_SELECTED);
        browser.RequestStatus();
        EXPECT_TRUE(PumpUntil([&] { return browser.StatusText().rfind(L"3 ", 0) == 0 &&
                                           browser.StatusText().find(L"(4 Byte)") != std::wstring::npos; }))
            << std::string(browser.StatusText().begin(), browser.StatusText().end());
    }
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"");
    panel.ApplyFilterText();
    panel.ToggleFilterBox();
}

// A click on the header as the mouse makes it: the header tells the list, the list its view.
void ClickColumn(HWND list, int column) {
    HWND header = ListView_GetHeader(list);
    RECT box{};
    Header_GetItemRect(header, column, &box);
    const LPARAM at = MAKELPARAM((box.left + box.right) / 2, (box.top + box.bottom) / 2);
    SendMessageW(header, WM_LBUTTONDOWN, MK_LBUTTON, at);
    SendMessageW(header, WM_LBUTTONUP, 0, at);
}

// A long listing shows its progress in the status bar while the GUI thread is busy with it; here
// sooner than after half a second.
TEST_F(BrowserView, ALongListingSaysSoWhileItRuns) {
    CreateDirectoryW((files_ / L"many").c_str(), nullptr);
    for (int i = 0; i < 300; ++i) WriteBytes(files_ / (L"many\\f" + std::to_wstring(i)), "");
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    browser.Listing().firstMs = 0;
    ASSERT_TRUE(Go(files_ / L"many"));
    wchar_t part[256] = {};
    SendMessageW(host_.Panel().StatusBar(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(part));
    EXPECT_NE(std::wstring(part).find(L"256"), std::wstring::npos) << "the count at the last notice";
    EXPECT_NE(std::wstring(part).find(L"many"), std::wstring::npos);
    ASSERT_TRUE(PumpUntil([&] { return browser.StatusText().find(L"300") != std::wstring::npos; }));
}

// Without a column memory the columns take the width of what they show, dates included.
TEST_F(BrowserView, ColumnsNoMemorySizesFitTheirTexts) {
    ASSERT_TRUE(Go(files_.path()));
    HWND list = host_.Browser().GetListControl();
    ASSERT_TRUE(list);
    const int columns = Header_GetItemCount(ListView_GetHeader(list));
    ASSERT_GE(columns, 3);
    const auto cut = [&] {
        HDC dc = GetDC(list);
        HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
        std::wstring first;
        for (int column = 1; column < columns && first.empty(); ++column)
            for (int row = 0; row < ListView_GetItemCount(list); ++row) {
                wchar_t text[260] = {};
                ListView_GetItemText(list, row, column, text, 260);
                SIZE extent{};
                GetTextExtentPoint32W(dc, text, lstrlenW(text), &extent);
                if (extent.cx + 8 > ListView_GetColumnWidth(list, column)) first = text;
            }
        SelectObject(dc, old);
        ReleaseDC(list, dc);
        return first;
    };
    ListView_SetColumnWidth(list, 3, 20);  // as a narrow default would leave the date
    ASSERT_FALSE(cut().empty());
    ASSERT_TRUE(Go(files_ / L"sub"));
    list = host_.Browser().GetListControl();
    EXPECT_TRUE(PumpUntil([&] { return cut().empty(); }, 3000)) << "cut: " << std::string(cut().begin(), cut().end());
}

TEST_F(BrowserView, SortColumnAndDirectionSurviveFilteringAndRefreshes) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    auto largestFirst = [&] { return RowOf(browser, L"b.txt") < RowOf(browser, L"a.txt"); };
    ASSERT_FALSE(largestFirst());
    ClickColumn(browser.GetListControl(), 1);  // size, ascending
    ClickColumn(browser.GetListControl(), 1);  // descending
    ASSERT_TRUE(largestFirst());

    CPloder& panel = host_.Panel();
    if (!panel.Filter()->switches.show_filter) panel.ToggleFilterBox();
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"*.txt");
    panel.ApplyFilterText();
    EXPECT_TRUE(largestFirst()) << "filtered";
    browser.RefreshView();
    EXPECT_TRUE(largestFirst()) << "refreshed";
    browser.RefreshView();
    EXPECT_TRUE(largestFirst()) << "refreshed twice";
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"");
    panel.ApplyFilterText();
    EXPECT_TRUE(largestFirst()) << "filter cleared";
    ClickColumn(browser.GetListControl(), 1);
    EXPECT_FALSE(largestFirst()) << "the next click still turns the order";
    panel.ToggleFilterBox();
}

TEST_F(BrowserView, CopyAndCutPasteBetweenTwoViews) {
    TempFolder target;
    ASSERT_TRUE(Go(files_.path(), 0));
    ASSERT_TRUE(Go(target.path(), 1));
    CMyShellBrowser& source = host_.Browser(0);
    CMyShellBrowser& destination = host_.Browser(1);

    ASSERT_TRUE(SelectByName(source, L"a.txt"));
    SendMessageW(source.GetListControl(), WM_KEYDOWN, 'C', 0);  // without Ctrl: nothing
    source.Execute(ID_VIEW_COPY);
    destination.Execute(ID_VIEW_PASTE);
    EXPECT_EQ(ReadBytes(target / L"a.txt"), "aaaa");
    EXPECT_TRUE(FileExists(files_ / L"a.txt"));
    EXPECT_EQ(ListCount(destination), 1);

    ASSERT_TRUE(SelectByName(source, L"b.txt"));
    source.Execute(ID_VIEW_CUT);
    ClipboardFiles onClipboard;
    ASSERT_TRUE(ReadClipboardFiles(nullptr, onClipboard));
    EXPECT_EQ(onClipboard.effect, static_cast<DWORD>(DROPEFFECT_MOVE));
    destination.Execute(ID_VIEW_PASTE);
    EXPECT_TRUE(FileExists(target / L"b.txt"));
    EXPECT_FALSE(FileExists(files_ / L"b.txt"));

    // Files put on the clipboard by another program, with no drop effect: a copy.
    WriteBytes(files_ / L"c.txt", "c");
    const std::wstring list = files_ / L"c.txt" + std::wstring(2, L'\0');
    HGLOBAL block = GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, sizeof(DROPFILES) + list.size() * sizeof(wchar_t));
    auto* drop = static_cast<DROPFILES*>(GlobalLock(block));
    drop->pFiles = sizeof(DROPFILES);
    drop->fWide = TRUE;
    memcpy(drop + 1, list.data(), list.size() * sizeof(wchar_t));
    GlobalUnlock(block);
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    SetClipboardData(CF_HDROP, block);
    CloseClipboard();
    destination.Execute(ID_VIEW_PASTE);
    EXPECT_TRUE(FileExists(target / L"c.txt"));
    EXPECT_TRUE(FileExists(files_ / L"c.txt"));

    // A copy into the folder it came from gets a new name instead of failing.
    ASSERT_TRUE(SelectByName(source, L"a.txt"));
    source.Execute(ID_VIEW_COPY);
    source.Execute(ID_VIEW_PASTE);
    EXPECT_EQ(ListCount(source), 5);
}

TEST_F(BrowserView, DelayedStepsRunLater) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    browser.DelayedReselect(win::PidlFromPath(files_ / L"b.txt"), 10);
    EXPECT_EQ(SelectedName(browser), L"");
    EXPECT_TRUE(PumpUntil([&] { return SelectedName(browser) == L"b.txt"; }));
    IShellView* before = browser.View();
    browser.DelayedRenavigate(10);
    EXPECT_TRUE(PumpUntil([&] { return browser.View() != before; })) << "a fresh view of the same folder";
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    SetFocus(host_.hwnd());
    browser.DelayedFocus(10);
    EXPECT_TRUE(PumpUntil([&] { return GetFocus() == browser.GetListControl(); }));
}

TEST_F(BrowserView, MouseOptionsOfTheList) {
    ASSERT_TRUE(Go(files_ / L"sub"));
    CMyShellBrowser& browser = host_.Browser();
    HWND list = browser.GetListControl();
    RECT client;
    GetClientRect(list, &client);
    const LPARAM empty = MAKELPARAM(client.right - 5, client.bottom - 5);
    SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, empty);
    EXPECT_EQ(Shown(), LowerCase(files_ / L"sub")) << "off: a double-click on empty space does nothing";
    Options().lmouse_dblclk = 1;
    SendMessageW(list, WM_LBUTTONDBLCLK, MK_LBUTTON, empty);
    EXPECT_EQ(Shown(), LowerCase(files_.path())) << "on: it goes up";

    // Beside the name in the details view: a click there clears the selection.
    Options().only_label_or_icon_clk = 1;
    list = browser.GetListControl();
    ASSERT_TRUE(SelectByName(browser, L"a.txt"));
    RECT row{LVIR_BOUNDS};
    const int index = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    ListView_GetItemRect(list, index, &row, LVIR_BOUNDS);
    SendMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(row.right - 3, (row.top + row.bottom) / 2));
    EXPECT_EQ(SelectedName(browser), L"");
}

TEST(ClickSound, IsAShortWaveOfOurOwn) {
    HMODULE module = GetModuleHandleW(nullptr);
    HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(IDR_CLICK_SOUND), L"WAVE");
    ASSERT_NE(found, nullptr);
    const auto* bytes = static_cast<const char*>(LockResource(LoadResource(module, found)));
    const DWORD size = SizeofResource(module, found);
    ASSERT_GT(size, 44u);
    EXPECT_EQ(std::string(bytes, 4), "RIFF");
    EXPECT_EQ(std::string(bytes + 8, 8), "WAVEfmt ");
    EXPECT_LT(size, 4000u) << "a click, not a song";
}

TEST_F(BrowserView, NewFolderGetsAFreeName) {
    Options().m_lang_id = 0;
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    browser.Execute(ID_VIEW_NEW_FOLDER);
    SendMessageW(browser.GetListControl(), WM_KEYDOWN, VK_ESCAPE, 0);
    browser.Execute(ID_VIEW_NEW_FOLDER);
    SendMessageW(browser.GetListControl(), WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(ListCount(browser), 6);
}

// A shell notice arrives as the registration asked: wParam points to the two item identifier
// lists, lParam is the event. A create makes the free space and the status follow.
TEST_F(BrowserView, ShellChangeNoticesReachTheStatusWithTheirPaths) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    ASSERT_TRUE(PumpUntil([&] { return !browser.StatusText().empty(); }));
    const std::wstring before = browser.StatusText();
    WriteBytes(files_ / L"new.txt", std::string(100000, 'n'));  // the total size shows it
    if (ShellMissesOutsideChanges()) {
        EXPECT_TRUE(PumpUntil([&] { return browser.StatusText() != before; })) << "the view follows the disk";
    }
    Pump(600);
    const int runs = browser.StatusRuns();
    Pump(300);
    ASSERT_EQ(browser.StatusRuns(), runs) << "nothing asks for the status now";

    win::UniquePidl created = win::PidlFromPath(files_ / L"new.txt");
    PCIDLIST_ABSOLUTE items[2] = {created.get(), nullptr};
    SendMessageW(browser.hwnd(), kMsgShellChange, reinterpret_cast<WPARAM>(items), SHCNE_CREATE);
    EXPECT_EQ(browser.LastShellChange().event, SHCNE_CREATE);
    EXPECT_EQ(LowerCase(browser.LastShellChange().first), LowerCase(files_ / L"new.txt"));
    EXPECT_TRUE(PumpUntil([&] { return browser.StatusRuns() > runs; })) << "the free-space timer ran";

    win::UniquePidl old = win::PidlFromPath(files_ / L"a.txt");
    PCIDLIST_ABSOLUTE renamed[2] = {old.get(), created.get()};
    SendMessageW(browser.hwnd(), kMsgShellChange, reinterpret_cast<WPARAM>(renamed), SHCNE_RENAMEITEM);
    EXPECT_EQ(LowerCase(PathForFolderSizes(browser.LastShellChange())), LowerCase(files_ / L"new.txt"));
}

// Navigations asked for while a view is being made (the view calls back for every item it
// lists) are dropped: the running navigation records the folder its view shows.
class InterferingBrowser : public CMyShellBrowser {
public:
    using CMyShellBrowser::CMyShellBrowser;
    STDMETHODIMP IncludeObject(IShellView* view, PCUITEMID_CHILD item) override {
        if (!interfere.empty()) {
            const std::wstring other = std::exchange(interfere, L"");
            nested = NavigateTo(win::PidlFromPath(other), false, true);
            refreshed = RefreshView();
        }
        return CMyShellBrowser::IncludeObject(view, item);
    }
    std::wstring interfere;
    int nested = -1;
    HRESULT refreshed = S_OK;
};

TEST_F(BrowserView, NavigationsAskedForDuringANavigationAreDropped) {
    TempFolder other;
    auto* browser = new InterferingBrowser(host_.Panel(1), L"Column_Test", nullptr);
    win::ComPtr<InterferingBrowser> held;
    *held.put() = browser;
    ASSERT_TRUE(browser->Create(host_.Panel(1).hwnd()));
    for (const std::wstring& folder : {files_ / L"sub", files_.path()}) {
        browser->interfere = other.path();
        ASSERT_EQ(browser->NavigateTo(win::PidlFromPath(folder), false, true), 1);
        EXPECT_TRUE(browser->interfere.empty()) << "the view asked about its items while it was made";
        EXPECT_EQ(browser->nested, 0);
        EXPECT_NE(browser->refreshed, S_OK);
        EXPECT_EQ(LowerCase(browser->CurrentPath()), LowerCase(folder));
    }
    EXPECT_EQ(ListCount(*browser), 4) << "the view shows the folder recorded";
    DestroyWindow(browser->hwnd());
}

TEST_F(BrowserView, OnlyListsOfThisViewAreUsedAndTheListFontIsOwned) {
    ASSERT_TRUE(Go(files_.path()));
    CMyShellBrowser& browser = host_.Browser();
    HWND own = browser.GetListControl();
    ASSERT_TRUE(own && IsChild(browser.ViewWindow(), own));

    // The program's list font is a copy: the list's own font goes with its view.
    auto listFont = reinterpret_cast<HFONT>(SendMessageW(own, WM_GETFONT, 0, 0));
    ASSERT_NE(ProgramListFont(), nullptr);
    EXPECT_NE(ProgramListFont(), listFont);
    LOGFONTW copy{}, original{};
    EXPECT_TRUE(GetObjectW(ProgramListFont(), sizeof(copy), &copy));
    if (listFont && GetObjectW(listFont, sizeof(original), &original)) {
        EXPECT_STREQ(copy.lfFaceName, original.lfFaceName);
    }

    // Without a list of its own the view has none, whatever lists other windows have.
    HWND stranger = CreateWindowExW(0, WC_LISTVIEWW, L"", WS_POPUP | WS_VISIBLE, 0, 0, 50, 50, nullptr, nullptr,
                                    GetModuleHandleW(nullptr), nullptr);
    ASSERT_NE(stranger, nullptr);
    DestroyWindow(own);
    EXPECT_EQ(browser.GetListControl(), nullptr);
    DestroyWindow(stranger);
    ASSERT_TRUE(Go(files_ / L"sub")) << "the next navigation makes a new view with its list";
    EXPECT_NE(browser.GetListControl(), nullptr);
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

// Items past the old 260 characters in a folder just below it are worked with; what the shell
// refuses (a folder past it, a copy to it) is said.
TEST(LongPaths, ItemsPastTheOldLimitAreWorkedWithAndRefusalsAreSaid) {
    TempFolder files;
    std::wstring deep = files.path() + L"\\" + std::wstring(100, L'd');
    ASSERT_TRUE(CreateDirectoryW(deep.c_str(), nullptr));
    deep += L"\\" + std::wstring(240 - deep.size(), L'e');
    ASSERT_TRUE(CreateDirectoryW(LongPathForm(deep).c_str(), nullptr));
    const std::wstring inside = deep + L"\\" + std::wstring(30, L'i') + L".txt";
    WriteBytes(LongPathForm(inside), "x");
    ASSERT_GE(inside.size(), 260u);
    ViewHost host(1);
    ASSERT_TRUE(host.Panel().NavigateToText(deep));
    CMyShellBrowser& browser = host.Browser();
    ASSERT_TRUE(SelectByName(browser, std::wstring(30, L'i') + L".txt"));
    EXPECT_EQ(LowerCase(browser.ExpandCommand(L"%sel_file%")), L"\"" + LowerCase(inside) + L"\"");

    browser.Execute(ID_VIEW_NEW_FOLDER);
    const std::wstring made = deep + L"\\" + GetText(IDS_NEW_FOLDER_NAME);
    EXPECT_NE(GetFileAttributesW(LongPathForm(made).c_str()), INVALID_FILE_ATTRIBUTES) << "a new folder past the limit";
    const int follows = browser.DiskFollows();
    WriteBytes(LongPathForm(deep + L"\\later.txt"), "y");
    EXPECT_TRUE(PumpUntil([&] { return browser.DiskFollows() > follows; })) << "the folder is watched";

    const std::wstring name = std::wstring(30, L'n') + L".txt";
    WriteBytes(files / name, "z");
    {
        MessageAnswer answer;
        EXPECT_FALSE(browser.TakeFiles({{files / name}, DROPEFFECT_COPY}));
        EXPECT_TRUE(PumpUntil([&] { return answer.Count() > 0; }));
        EXPECT_NE(answer.Text().find(name), std::wstring::npos) << "the refusal names the path";
    }
    // Typed: the shell opens no folder past the limit, and the status says that.
    const std::wstring beyond = deep + L"\\" + std::wstring(30, L'b');
    ASSERT_TRUE(CreateDirectoryW(LongPathForm(beyond).c_str(), nullptr));
    EXPECT_FALSE(host.Panel().NavigateToTyped(beyond));
    wchar_t status[1024] = {};
    SendMessageW(host.Panel().StatusBar(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(status));
    EXPECT_NE(std::wstring(status).find(L"260"), std::wstring::npos);
}

}  // namespace
}  // namespace tessel::testing
