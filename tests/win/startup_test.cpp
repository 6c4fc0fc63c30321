// The real executable, started from a folder of its own with a settings file beside it.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <functional>

#include "core/settings_store_win.h"
#include "res/resource.h"
#include "support_win.h"

namespace tessel {
namespace {

using testing::AnyFileMatches;
using testing::FileExists;
using testing::LowerCase;
using testing::MessageAnswer;
using testing::ReadBytes;
using testing::TempFolder;
using testing::TesselProcess;
using testing::ReadUnicodeText;
using testing::WriteBytes;
using testing::WriteUnicodeText;

class Startup : public ::testing::Test {
protected:
    void SetUp() override {
        exe_ = folder_ / L"tessel.exe";
        ASSERT_TRUE(CopyFileW((testing::TestBinFolder() + L"\\tessel.exe").c_str(), exe_.c_str(), FALSE));
        WriteBytes(Ini(), "\xFF\xFE");
    }
    std::wstring Ini() const { return folder_ / L"Tessel.ini"; }
    int IniInt(const wchar_t* key, int def) { return CMyProfStr(exe_).GetInt(L"Start", key, def); }

    TempFolder folder_;
    std::wstring exe_;
};

TEST_F(Startup, HelpRequestOpensNoWindowAndTouchesNoSettings) {
    TesselProcess help(exe_, L"-help#Options");
    EXPECT_EQ(help.WaitForExit(), 1);
    EXPECT_EQ(ReadBytes(Ini()), "\xFF\xFE");
}

// Paths after the fourth go to T-View 1 one after the other: a last one that cannot be shown
// leaves the one before it there.
TEST_F(Startup, LaterPathsFollowInViewOneAndAFailingLastKeepsTheOneBefore) {
    TempFolder one, two, five;
    const std::wstring line = L"\"" + one.path() + L"\" \"" + two.path() + L"\" \"" + two.path() + L"\" \"" +
                              two.path() + L"\" \"" + five.path() + L"\" \"C:\\gone\\away\"";
    TesselProcess tessel(exe_, line);
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(five.path()));
    EXPECT_EQ(LowerCase(tessel.PanelText(4)), LowerCase(two.path()));
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

TEST_F(Startup, PathsGoToTheViewsAndEmptyViewsShowComputer) {
    TempFolder a, b;
    TesselProcess tessel(exe_, L"\"" + a.path() + L"\" \"" + b.path() + L"\" \"C:\\does\\not\\exist\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(a.path()));
    EXPECT_EQ(LowerCase(tessel.PanelText(2)), LowerCase(b.path()));
    const std::wstring computer = tessel.PanelText(4);
    EXPECT_FALSE(computer.empty());
    EXPECT_EQ(tessel.PanelText(3), computer) << "a folder that does not exist falls back to Computer";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_TRUE(FileExists(folder_ / L"start.tsf")) << "the last state is kept at exit";
    RectI placement;
    EXPECT_TRUE(CMyProfStr(exe_).GetRect(L"Start", L"WinRC", placement));
}

TEST_F(Startup, AWindowMaximizedAtExitComesBackMaximizedWithItsNormalRectangleKept) {
    RectI normal;
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        ShowWindow(tessel.Frame(), SW_MAXIMIZE);
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    EXPECT_EQ(IniInt(L"WinMax", -1), 1);
    ASSERT_TRUE(CMyProfStr(exe_).GetRect(L"Start", L"WinRC", normal));
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_TRUE(IsZoomed(tessel.Frame()));
        ShowWindow(tessel.Frame(), SW_RESTORE);
        RECT restored{};
        GetWindowRect(tessel.Frame(), &restored);
        EXPECT_EQ(restored.right - restored.left, normal.right - normal.left) << "restoring gives the kept size";
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    EXPECT_EQ(IniInt(L"WinMax", -1), 0);
}

// A settings file that cannot be read as text is kept as "<name>.bad", the user is told once, and
// Tessel starts with its defaults in a fresh file.
TEST_F(Startup, AnUnreadableSettingsFileIsKeptAsideAndTheUserToldOnce) {
    const std::string damaged("\x00\x01[Start]\x00m_lang_id=1", 20);
    WriteBytes(folder_ / L"Tessel.ini", damaged);
    {
        MessageAnswer ok;
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_EQ(ok.Count(), 1);
        const std::wstring told = ok.Text();
        EXPECT_NE(LowerCase(told).find(L"tessel.ini.bad"), std::wstring::npos) << "the message names the kept file";
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    EXPECT_EQ(ReadBytes(folder_ / L"Tessel.ini.bad"), damaged) << "the user's bytes are kept";
    EXPECT_TRUE(ReadBytes(folder_ / L"Tessel.ini").starts_with("\xFF\xFE")) << "a fresh file with the defaults";
    MessageAnswer none;
    TesselProcess again(exe_, L"");
    ASSERT_TRUE(again.WaitForWindow());
    EXPECT_EQ(again.CloseAndWait(), 0);
    EXPECT_EQ(none.Count(), 0) << "told once";
}

TEST_F(Startup, InstancesNumberThemselvesAndBothRun) {
    TesselProcess first(exe_, L"");
    ASSERT_TRUE(first.WaitForWindow());
    EXPECT_EQ(IniInt(L"Tessel_Id", -1), 0);
    TesselProcess second(exe_, L"");
    ASSERT_TRUE(second.WaitForWindow());
    EXPECT_EQ(IniInt(L"Tessel_Id", -1), 1);
    EXPECT_EQ(second.CloseAndWait(), 0);
    EXPECT_EQ(first.CloseAndWait(), 0);
}

TEST_F(Startup, CrashWhileLoadingTheLastStateIsClearedAtTheNextStart) {
    WriteBytes(Ini(), "[Start]\r\nStartCrash=1\r\n");
    WriteBytes(folder_ / L"start.tsf", "a last state that crashed the loader");
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_FALSE(FileExists(folder_ / L"start.tsf"));
    EXPECT_EQ(IniInt(L"StartCrash", -1), 0);
    EXPECT_FALSE(tessel.PanelText(1).empty());
    EXPECT_EQ(tessel.PanelText(1), tessel.PanelText(4)) << "all views on Computer";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

TEST_F(Startup, QuitAndRestartBringsLayoutSplittersAndFoldersBack) {
    TempFolder a, b;
    RECT firstView{};
    {
        TesselProcess tessel(exe_, L"\"" + a.path() + L"\" \"" + b.path() + L"\"");
        ASSERT_TRUE(tessel.WaitForWindow());
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST + 3, 0);  // 1 and 2 side by side
        RECT one, two;
        GetWindowRect(GetDlgItem(tessel.Frame(), 1001), &one);
        GetWindowRect(GetDlgItem(tessel.Frame(), 1002), &two);
        POINT bar{(one.right + two.left) / 2, (one.top + one.bottom) / 2};
        ScreenToClient(tessel.Frame(), &bar);
        SendMessageW(tessel.Frame(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(bar.x, bar.y));
        SendMessageW(tessel.Frame(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(bar.x - 150, bar.y));
        SendMessageW(tessel.Frame(), WM_LBUTTONUP, 0, MAKELPARAM(bar.x - 150, bar.y));
        GetWindowRect(GetDlgItem(tessel.Frame(), 1001), &firstView);
        SetForegroundWindow(tessel.Frame());
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_FOCUS_VIEW_1, 0);
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_TAB_NEW, 0);  // a second tab in T-View 1
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    const std::string saved = ReadBytes(folder_ / L"start.tsf");
    ASSERT_GT(saved.size(), 2u);
    EXPECT_EQ(saved.substr(0, 2), "\xFF\xFE");
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(a.path()));
        EXPECT_EQ(LowerCase(tessel.PanelText(2)), LowerCase(b.path()));
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(tessel.Frame(), 1003))) << "the layout came back";
        EXPECT_TRUE(IsWindowVisible(GetDlgItem(tessel.Frame(), 1002)));
        RECT one;
        GetWindowRect(GetDlgItem(tessel.Frame(), 1001), &one);
        EXPECT_NEAR(one.right - one.left, firstView.right - firstView.left, 3) << "the splitter came back";
        HWND strip = GetDlgItem(GetDlgItem(tessel.Frame(), 1001), 1000);
        EXPECT_EQ(SendMessageW(strip, TCM_GETITEMCOUNT, 0, 0), 2) << "both tabs came back";
        EXPECT_EQ(SendMessageW(strip, TCM_GETCURSEL, 0, 0), 1) << "with the selected one";
        // A last state that cannot be replaced stays as it was.
        HANDLE held = CreateFileW((folder_ / L"start.tsf").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(held, INVALID_HANDLE_VALUE);
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST, 0);
        EXPECT_EQ(tessel.CloseAndWait(), 0);
        CloseHandle(held);
    }
    EXPECT_EQ(ReadBytes(folder_ / L"start.tsf"), saved);
    EXPECT_FALSE(AnyFileMatches(folder_ / L"start.tsf.*.tmp")) << "no half-written file left behind";
}

// The T-View a last state names keeps the focus through the start and is saved again at exit.
TEST_F(Startup, TheFocusOfTheLastStateComesBack) {
    TempFolder a, b, c;
    std::wstring state = L"Tessel Version=4.19\r\nViewMode=0\r\n";
    const std::wstring folders[3] = {a.path(), b.path(), c.path()};
    for (int v = 1; v <= 3; ++v)
        state += L"Folder" + std::to_wstring(v) + L"=" + folders[v - 1] + L"\r\n";
    state += L"Focus=3\r\n\r\n";
    WriteUnicodeText(folder_ / L"start.tsf", state);
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_EQ(LowerCase(tessel.PanelText(3)), LowerCase(c.path()));
        Sleep(500);  // the posted focus notices of the views are served
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    const std::wstring text = ReadUnicodeText(folder_ / L"start.tsf");
    EXPECT_NE(text.find(L"\r\nFocus=3\r\n"), std::wstring::npos);
}

// A file named on the command line that is not a folder set (a text file, an empty file) is
// not taken for one: the user is told, and the T-Views show the Computer folder.
TEST_F(Startup, AFileThatIsNotAFolderSetFailsToOpen) {
    for (const char* content : {"just some text\r\n", ""}) {
        const std::wstring file = folder_ / L"notes.txt";
        WriteBytes(file, content);
        MessageAnswer answer;
        TesselProcess tessel(exe_, L"\"" + file + L"\"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_NE(LowerCase(answer.Text()).find(L"notes.txt"), std::wstring::npos) << "the file is named in the message";
        EXPECT_EQ(tessel.PanelText(1), tessel.PanelText(4)) << "every T-View shows the Computer folder";
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
}

// A last state edited by hand and saved as UTF-8 without a mark keeps its names.
TEST_F(Startup, AHandEditedUtf8LastStateKeepsItsNames) {
    TempFolder parent;
    const std::wstring folder = parent / L"Gr\u00FC\u00DFe \u2713 \u65E5\u672C";
    ASSERT_TRUE(CreateDirectoryW(folder.c_str(), nullptr));
    const std::wstring line = L"Tessel Version=4.19\r\nFolder1=" + folder + L"\r\n";
    std::string utf8(WideCharToMultiByte(CP_UTF8, 0, line.c_str(), -1, nullptr, 0, nullptr, nullptr), '\0');
    WideCharToMultiByte(CP_UTF8, 0, line.c_str(), -1, utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr);
    utf8.pop_back();  // the terminating zero
    WriteBytes(folder_ / L"start.tsf", utf8);
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(folder));
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

// Each T-View takes its tree state from the folder set, and the next save writes what the
// T-Views show.
TEST_F(Startup, TreeStatesOfTheLastStateComeBackAndAreSavedAgain) {
    TempFolder a, b;
    const std::wstring state = L"Tessel Version=4.19\r\nViewMode=0\r\nFolder1=" + a.path() + L"\r\nFolder2=" +
                               b.path() + L"\r\nTree2=1\r\nTree2split=4000\r\nFocus=1\r\n";
    WriteUnicodeText(folder_ / L"start.tsf", state);
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        HWND panel = GetDlgItem(tessel.Frame(), 1002);
        HWND tree = GetDlgItem(panel, 4567);
        EXPECT_TRUE(IsWindowVisible(tree));
        EXPECT_FALSE(IsWindowVisible(GetDlgItem(GetDlgItem(tessel.Frame(), 1001), 4567)));
        RECT panelRect, treeRect;
        GetClientRect(panel, &panelRect);
        GetWindowRect(tree, &treeRect);
        EXPECT_NEAR(treeRect.right - treeRect.left, panelRect.right * 4 / 10, 3) << "Tree2split is its width";
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    const std::wstring text = ReadUnicodeText(folder_ / L"start.tsf");
    EXPECT_NE(text.find(L"\r\nTree2=1\r\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"\r\nTree2split=4000\r\n"), std::wstring::npos);
    EXPECT_NE(text.find(L"\r\nTree1=0\r\n"), std::wstring::npos);
}

// The browse forms load the last state first and then open their folder in T-View 1, also when
// T-View 1 is not in use and so opens only as the window shows.
TEST_F(Startup, BrowseFormsLoadTheLastStateFirst) {
    TempFolder kept, one, browsed;
    const std::wstring state = L"Tessel Version=4.19\r\nViewMode=0\r\nFolder1=" + one.path() + L"\r\nFolder2=" +
                               kept.path() + L"\r\n";
    for (const std::wstring& line : {L"\"/Browse\" \"" + browsed.path() + L"\"", L"/e,/root > " + browsed.path()}) {
        for (const wchar_t* focus : {L"Focus=1\r\n", L"Focus=2\r\n"}) {
            WriteUnicodeText(folder_ / L"start.tsf", state + focus);
            TesselProcess tessel(exe_, line);
            ASSERT_TRUE(tessel.WaitForWindow());
            EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(browsed.path())) << (line[0] == L'/' ? "/e" : "/Browse");
            EXPECT_EQ(LowerCase(tessel.PanelText(2)), LowerCase(kept.path())) << "the last state came first";
            EXPECT_EQ(tessel.CloseAndWait(), 0);
        }
    }
}

// A T-View not in use whose last folders are all gone shows Computer, like any empty T-View;
// the crash-start guard lasts until it is made.
TEST_F(Startup, ALastStateViewWithOnlyGoneFoldersShowsComputer) {
    TempFolder one;
    WriteUnicodeText(folder_ / L"start.tsf", L"Tessel Version=4.19\r\nViewMode=0\r\nFolder1=" + one.path() +
                                                 L"\r\nFolder2_0=C:\\gone\\first\r\nFolder2_1=C:\\gone\\second\r\n"
                                                 L"CurSel2_1=1\r\nFocus=1\r\n");
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_EQ(LowerCase(tessel.PanelText(1)), LowerCase(one.path()));
    EXPECT_FALSE(tessel.PanelText(2).empty());
    EXPECT_EQ(tessel.PanelText(2), tessel.PanelText(4)) << "both show Computer";
    EXPECT_EQ(IniInt(L"StartCrash", -1), 0) << "the crash-start guard ends once the later T-Views are made";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

// The start-mode commands set "Als" to their id minus 32960 at once; any mode but 5 neither
// loads nor keeps the last state.
TEST_F(Startup, StartModeCommandsAreWrittenAtOnce) {
    {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_START_MODE_FIRST + 3, 0);
        EXPECT_EQ(IniInt(L"Als", 5), 3);
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_START_MODE_FIRST, 0);
        EXPECT_EQ(IniInt(L"Als", 5), 0);
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    EXPECT_FALSE(FileExists(folder_ / L"start.tsf")) << "not kept in a start mode other than 5";
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_START_MODE_LAST_STATE, 0);
    EXPECT_EQ(IniInt(L"Als", 0), 5);
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_TRUE(FileExists(folder_ / L"start.tsf"));
}

// A dialog of this process (the About box here, a copy's progress in use) is open when the
// window closes: Tessel waits hidden in the notification area and ends once the dialog is gone;
// asked from the tray icon, it can end at once, with exit code 1.
// Captions are string ids in the resources: a shown dialog must show texts, not numbers.
bool ShowsTexts(HWND dialog) {
    bool texts = true;
    const auto check = [&texts](HWND window) {
        wchar_t caption[128] = {};
        GetWindowTextW(window, caption, 128);
        texts = texts && !(caption[0] >= L'0' && caption[0] <= L'9' && wcsspn(caption, L"0123456789") == wcslen(caption));
    };
    check(dialog);
    EnumChildWindows(
        dialog,
        [](HWND child, LPARAM data) -> BOOL {
            (*reinterpret_cast<decltype(check)*>(data))(child);
            return TRUE;
        },
        reinterpret_cast<LPARAM>(&check));
    return texts;
}

// The first visible top-level window whose process and class fit.
HWND FindWindowOf(const std::function<bool(HWND window, DWORD process, const std::wstring& className)>& fits) {
    struct Search {
        const std::function<bool(HWND, DWORD, const std::wstring&)>& fits;
        HWND found = nullptr;
    } search{fits};
    EnumWindows(
        [](HWND window, LPARAM data) -> BOOL {
            auto* s = reinterpret_cast<Search*>(data);
            DWORD process = 0;
            GetWindowThreadProcessId(window, &process);
            wchar_t name[64] = {};
            GetClassNameW(window, name, 64);
            if (!IsWindowVisible(window) || !s->fits(window, process, name)) return TRUE;
            s->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND OwnDialog(HWND frame) {
    DWORD own = 0;
    GetWindowThreadProcessId(frame, &own);
    return FindWindowOf([own](HWND, DWORD process, const std::wstring& name) { return process == own && name == L"#32770"; });
}

TEST_F(Startup, ClosingWithAnOpenDialogWaitsHiddenUntilItIsGone) {
    for (bool forced : {false, true}) {
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        PostMessageW(tessel.Frame(), WM_COMMAND, ID_APP_ABOUT, 0);
        HWND about = nullptr;
        for (int i = 0; i < 250 && !about; ++i, Sleep(20)) about = OwnDialog(tessel.Frame());
        ASSERT_NE(about, nullptr);
        EXPECT_TRUE(ShowsTexts(about)) << "the About box is localized";
        // An edit of another process gives its text only to a sent WM_GETTEXT.
        wchar_t named[MAX_PATH] = {};
        SendMessageW(GetDlgItem(about, IDC_ABOUT_SETTINGS), WM_GETTEXT, MAX_PATH, reinterpret_cast<LPARAM>(named));
        EXPECT_EQ(LowerCase(named), LowerCase(folder_ / L"tessel.ini")) << "and names the settings file";
        PostMessageW(tessel.Frame(), WM_CLOSE, 0, 0);
        EXPECT_EQ(tessel.WaitForExit(1500), -1) << "still running while the dialog is open";
        EXPECT_FALSE(IsWindowVisible(tessel.Frame())) << "parked out of sight";
        EXPECT_TRUE(FileExists(folder_ / L"start.tsf")) << "the last state is saved when it parks";
        if (!forced) {
            PostMessageW(about, WM_COMMAND, IDOK, 0);
            EXPECT_EQ(tessel.WaitForExit(5000), 0) << "ends within the timer's second";
            continue;
        }
        // Two clicks on the tray icon ask one question, not one inside the other.
        PostMessageW(tessel.Frame(), WM_APP + 1, 0, WM_LBUTTONUP);
        PostMessageW(tessel.Frame(), WM_APP + 1, 0, WM_RBUTTONUP);
        Sleep(700);
        int questions = 0;
        for (HWND box = FindWindowW(L"#32770", L"Tessel"); box; box = FindWindowExW(nullptr, box, L"#32770", L"Tessel"))
            questions += IsWindowVisible(box) ? 1 : 0;
        EXPECT_EQ(questions, 1);
        MessageAnswer cancel(IDCANCEL);  // Cancel ends at once
        EXPECT_EQ(tessel.WaitForExit(5000), 1);
    }
}

// The last state is written shortly after a change, before Windows ends the session, and at an
// exit from the notification area, where the whole window is hidden.
TEST_F(Startup, TheLastStateIsKeptAfterChangesAtSessionEndAndFromTheTray) {
    WritePrivateProfileStringW(L"Start", L"tray_icon", L"1", Ini().c_str());
    TempFolder a, b;
    const std::wstring state = folder_ / L"start.tsf";
    auto saved = [&] { return FileExists(state) ? ReadUnicodeText(state) : std::wstring(); };
    auto holdsBoth = [&](const std::wstring& text) {
        return LowerCase(text).find(L"folder1=" + LowerCase(a.path())) != std::wstring::npos &&
               LowerCase(text).find(L"folder2=" + LowerCase(b.path())) != std::wstring::npos;
    };
    TesselProcess tessel(exe_, L"\"" + a.path() + L"\" \"" + b.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());

    SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST + 3, 0);
    bool written = false;
    for (int i = 0; i < 200 && !written; ++i, Sleep(50)) written = saved().find(L"ViewMode=3") != std::wstring::npos;
    EXPECT_TRUE(written) << "a changed layout is saved within seconds, without an exit";
    EXPECT_TRUE(holdsBoth(saved()));

    DeleteFileW(state.c_str());
    DWORD_PTR answer = 0;
    ASSERT_TRUE(SendMessageTimeoutW(tessel.Frame(), WM_QUERYENDSESSION, 0, 0, SMTO_ABORTIFHUNG, 5000, &answer));
    EXPECT_EQ(answer, TRUE) << "Tessel lets the session end";
    EXPECT_TRUE(holdsBoth(saved())) << "the state is on disk before Windows may end the process";
    WritePrivateProfileStringW(L"Start", L"WinRC", nullptr, Ini().c_str());
    SendMessageTimeoutW(tessel.Frame(), WM_ENDSESSION, TRUE, 0, SMTO_ABORTIFHUNG, 5000, &answer);
    RectI placement;
    EXPECT_TRUE(CMyProfStr(exe_).GetRect(L"Start", L"WinRC", placement)) << "the placement is kept too";

    ShowWindow(tessel.Frame(), SW_MINIMIZE);
    for (int i = 0; i < 50 && IsWindowVisible(tessel.Frame()); ++i) Sleep(20);
    ASSERT_FALSE(IsWindowVisible(tessel.Frame()));
    DeleteFileW(state.c_str());
    PostMessageW(tessel.Frame(), WM_COMMAND, ID_APP_EXIT, 0);  // the tray menu's Exit
    EXPECT_EQ(tessel.WaitForExit(), 0);
    EXPECT_TRUE(holdsBoth(saved())) << "an exit from the tray keeps the T-Views";
}

// With no favorites folder known, opening it asks for one with the system's folder browser.
TEST_F(Startup, OpeningTheFavoritesFolderWithNoneKnownAsksForOne) {
    wchar_t appData[MAX_PATH] = {};
    SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, 0, appData);
    if (FileExists(std::wstring(appData) + L"\\Tessel\\Favoriten")) GTEST_SKIP() << "a favorites folder exists here";
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    DWORD own = 0;
    GetWindowThreadProcessId(tessel.Frame(), &own);
    PostMessageW(tessel.Frame(), WM_COMMAND, ID_FAV_OPEN_IN_VIEW, 0);
    auto titled = [own](HWND window, DWORD process, const std::wstring& name) {
        if (process != own || name != L"#32770") return false;
        for (HWND child = GetWindow(window, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (testing::GetWindowTextString(child) == L"Verzeichnisauswahl / Select a directory:") return true;
        return false;
    };
    HWND browser = nullptr;
    for (int i = 0; i < 250 && !browser; ++i, Sleep(20)) browser = FindWindowOf(titled);
    ASSERT_NE(browser, nullptr) << "the folder browser shows with its title";
    PostMessageW(browser, WM_COMMAND, IDCANCEL, 0);
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_EQ(CMyProfStr(exe_).GetString(L"Favoriten", L"Ordner", L""), L"") << "nothing chosen, nothing stored";
}

// With tray_icon a minimised window waits in the notification area; a click brings it back,
// and its menu opens it, or ends Tessel.
TEST_F(Startup, MinimisedIntoTheNotificationAreaAndBack) {
    WritePrivateProfileStringW(L"Start", L"tray_icon", L"1", (folder_ / L"Tessel.ini").c_str());
    WritePrivateProfileStringW(L"Start", L"m_lang_id", L"1", (folder_ / L"Tessel.ini").c_str());
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    ShowWindow(tessel.Frame(), SW_MINIMIZE);
    for (int i = 0; i < 50 && IsWindowVisible(tessel.Frame()); ++i) Sleep(20);
    EXPECT_FALSE(IsWindowVisible(tessel.Frame())) << "not in the taskbar while minimised";
    PostMessageW(tessel.Frame(), WM_APP + 1, 0, WM_LBUTTONUP);
    for (int i = 0; i < 50 && !IsWindowVisible(tessel.Frame()); ++i) Sleep(20);
    EXPECT_TRUE(IsWindowVisible(tessel.Frame()));
    EXPECT_FALSE(IsIconic(tessel.Frame())) << "restored, not just shown";

    // The right button opens the icon's menu; the window stays out of sight meanwhile.
    ShowWindow(tessel.Frame(), SW_MINIMIZE);
    for (int i = 0; i < 50 && IsWindowVisible(tessel.Frame()); ++i) Sleep(20);
    PostMessageW(tessel.Frame(), WM_APP + 1, 0, WM_RBUTTONUP);
    HWND menu = nullptr;
    for (int i = 0; i < 100 && !menu; ++i, Sleep(20)) {
        menu = FindWindowW(L"#32768", nullptr);
        if (menu && !IsWindowVisible(menu)) menu = nullptr;
    }
    EXPECT_NE(menu, nullptr) << "the icon's menu shows";
    EXPECT_FALSE(IsWindowVisible(tessel.Frame()));
    SendMessageW(tessel.Frame(), WM_CANCELMODE, 0, 0);  // the menu closes with nothing chosen
    for (int i = 0; i < 50 && menu && IsWindowVisible(menu); ++i) Sleep(20);
    EXPECT_FALSE(IsWindowVisible(tessel.Frame())) << "closing the menu leaves the window where it was";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

// "New window" hands the arrangement to a further instance through "start2.tsf".
TEST_F(Startup, AFurtherInstanceOpensWithTheSameFolders) {
    TempFolder a, b;
    TesselProcess first(exe_, L"\"" + a.path() + L"\" \"" + b.path() + L"\"");
    ASSERT_TRUE(first.WaitForWindow());
    DWORD firstId = 0;
    GetWindowThreadProcessId(first.Frame(), &firstId);
    PostMessageW(first.Frame(), WM_COMMAND, ID_FILE_NEW_INSTANCE, 0);
    HWND frame = nullptr;
    for (int i = 0; i < 500 && !frame; ++i, Sleep(20))
        frame = FindWindowOf([firstId](HWND, DWORD process, const std::wstring& name) {
            return process != firstId && name == L"TesselMainFrame";
        });
    ASSERT_NE(frame, nullptr) << "a second main window";
    EXPECT_TRUE(FileExists(folder_ / L"start2.tsf"));
    wchar_t text[1024] = {};
    GetWindowTextW(GetDlgItem(frame, 1002), text, 1024);
    EXPECT_EQ(LowerCase(text), LowerCase(b.path()));
    DWORD secondId = 0;
    GetWindowThreadProcessId(frame, &secondId);
    HANDLE second = OpenProcess(SYNCHRONIZE, FALSE, secondId);
    PostMessageW(frame, WM_CLOSE, 0, 0);
    EXPECT_EQ(WaitForSingleObject(second, 20000), WAIT_OBJECT_0);
    CloseHandle(second);
    EXPECT_EQ(first.CloseAndWait(), 0);
}

HWND Descendant(HWND parent, int id) {  // a control anywhere inside a dialog and its template
    struct Search {
        int id;
        HWND found = nullptr;
    } search{id};
    EnumChildWindows(
        parent,
        [](HWND window, LPARAM data) -> BOOL {
            auto* s = reinterpret_cast<Search*>(data);
            if (GetDlgCtrlID(window) != s->id) return TRUE;
            s->found = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}

// The save-as dialog offers the three choices as the settings keep them; the choices made are
// kept, and the file holds what they say.
TEST_F(Startup, SaveAsOffersAndKeepsTheThreeChoices) {
    WritePrivateProfileStringW(L"Start", L"columns", L"0", Ini().c_str());
    TempFolder a;
    TesselProcess tessel(exe_, L"\"" + a.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    PostMessageW(tessel.Frame(), WM_COMMAND, ID_FILE_SAVE_SET, 0);
    HWND dialog = nullptr;
    for (int i = 0; i < 250 && !dialog; ++i, Sleep(20)) dialog = OwnDialog(tessel.Frame());
    ASSERT_NE(dialog, nullptr);
    Sleep(300);
    // Wine's dialog leaves the file name box empty whatever name it is given, so "111.tsf" cannot
    // be read back here; the box itself takes the name typed.
    HWND name = Descendant(dialog, 0x47C);
    ASSERT_NE(name, nullptr);
    HWND layout = Descendant(dialog, IDC_SAVE_LAYOUT), columns = Descendant(dialog, IDC_SAVE_COLUMNS),
         placement = Descendant(dialog, IDC_SAVE_PLACEMENT);
    ASSERT_TRUE(layout && columns && placement);
    EXPECT_TRUE(ShowsTexts(dialog)) << "the choices are localized";
    EXPECT_EQ(SendMessageW(layout, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageW(columns, BM_GETCHECK, 0, 0), BST_UNCHECKED) << "as the settings keep it";
    SendMessageW(placement, BM_SETCHECK, BST_UNCHECKED, 0);
    const std::wstring target = a / L"work";
    SetWindowTextW(name, target.c_str());
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    for (int i = 0; i < 250 && !FileExists(target + L".tsf"); ++i) Sleep(20);
    ASSERT_TRUE(FileExists(target + L".tsf")) << "the extension is added";
    EXPECT_EQ(IniInt(L"wnd_placemant", 1), 0) << "the choice is kept";
    EXPECT_EQ(IniInt(L"seitenansicht", 0), 1);
    const std::wstring written = ReadUnicodeText(target + L".tsf");
    EXPECT_NE(written.find(L"\r\nSP0="), std::wstring::npos) << "with the layout block";
    EXPECT_EQ(written.find(L"windowplacement="), std::wstring::npos) << "without the placement";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

TEST_F(Startup, HugeAndOddCommandLinesStartNormally) {
    std::wstring huge(30000, L'"');
    for (size_t i = 0; i < huge.size(); i += 7) huge[i] = L'\x263A';
    TesselProcess tessel(exe_, huge);
    ASSERT_TRUE(tessel.WaitForWindow());
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    WriteBytes(folder_ / L"damaged.tsf", std::string(5000, '\0'));
    MessageAnswer answer;  // a damaged file is not a folder set: the user is told
    TesselProcess named(exe_, L"\"" + (folder_ / L"damaged.tsf") + L"\"");
    ASSERT_TRUE(named.WaitForWindow());
    EXPECT_EQ(named.CloseAndWait(), 0);
}

}  // namespace
}  // namespace tessel
