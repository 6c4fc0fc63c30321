// The twelve layouts and the T-View focus keys, in the real program.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <vector>

#include "res/resource.h"
#include "support_win.h"

namespace tessel::testing {
namespace {

class Layouts : public ::testing::Test {
protected:
    void SetUp() override {
        exe_ = folder_ / L"tessel.exe";
        ASSERT_TRUE(CopyFileW((TestBinFolder() + L"\\tessel.exe").c_str(), exe_.c_str(), FALSE));
        WriteBytes(folder_ / L"Tessel.ini", "\xFF\xFE");
    }
    HWND View(TesselProcess& tessel, int number) { return GetDlgItem(tessel.Frame(), 1000 + number); }
    // Keys go to the foreground window: wait until the frame is it and has given a view the focus.
    static void BringToFront(TesselProcess& tessel) {
        const DWORD until = GetTickCount() + 3000;
        GUITHREADINFO gui{sizeof(gui)};
        do {
            SetForegroundWindow(tessel.Frame());
            Sleep(50);
        } while ((GetForegroundWindow() != tessel.Frame() ||
                  !GetGUIThreadInfo(GetWindowThreadProcessId(tessel.Frame(), nullptr), &gui) || !gui.hwndFocus) &&
                 GetTickCount() < until);
    }
    RECT Place(TesselProcess& tessel, int number) {
        RECT r;
        GetWindowRect(View(tessel, number), &r);
        return r;
    }
    TempFolder folder_;
    std::wstring exe_;
};

TEST_F(Layouts, EachCommandShowsItsViewsAndBackToFourKeepsTheFolders) {
    TesselProcess tessel(exe_, L"\"" + folder_.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    const std::wstring before = tessel.PanelText(1);
    const bool shown[12][4] = {{1, 1, 1, 1}, {1, 0, 1, 1}, {1, 1, 1, 0}, {1, 1, 0, 0}, {1, 0, 1, 0}, {1, 1, 1, 1},
                               {1, 1, 1, 1}, {1, 1, 1, 0}, {1, 1, 1, 0}, {1, 0, 1, 1}, {1, 1, 1, 0}, {1, 0, 0, 0}};
    HWND layouts = GetDlgItem(tessel.Frame(), IDC_LAYOUT_TOOLBAR);
    for (int layout = 0; layout < 12; ++layout) {
        SendMessageW(layouts, TB_CHECKBUTTON, ID_LAYOUT_FIRST + (layout + 5) % 12, TRUE);  // a stray press
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST + layout, 0);
        for (int v = 0; v < 4; ++v)
            EXPECT_EQ(IsWindowVisible(View(tessel, v + 1)) != FALSE, shown[layout][v]) << layout << " " << v;
        for (int other = 0; other < 12; ++other)
            EXPECT_EQ(SendMessageW(layouts, TB_ISBUTTONCHECKED, ID_LAYOUT_FIRST + other, 0) != 0, other == layout)
                << "only layout " << layout << " is pressed";
    }
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST + 5, 0);  // four columns
    for (int v = 1; v < 4; ++v) EXPECT_LT(Place(tessel, v).right, Place(tessel, v + 1).left + 1);
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_LAYOUT_FIRST, 0);
    for (int v = 1; v <= 4; ++v) EXPECT_TRUE(IsWindowVisible(View(tessel, v)));

    // Dragging the bar between T-Views 1 and 2 moves it, and only that splitter.
    const RECT one = Place(tessel, 1), two = Place(tessel, 2), three = Place(tessel, 3);
    POINT bar{(one.right + two.left) / 2, (one.top + one.bottom) / 2};
    ScreenToClient(tessel.Frame(), &bar);
    SendMessageW(tessel.Frame(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(bar.x, bar.y));
    SendMessageW(tessel.Frame(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(bar.x - 100, bar.y));
    SendMessageW(tessel.Frame(), WM_LBUTTONUP, 0, MAKELPARAM(bar.x - 100, bar.y));
    EXPECT_NEAR(Place(tessel, 1).right, one.right - 100, 4);
    EXPECT_EQ(Place(tessel, 3).right, three.right) << "T-Views 3 and 4 have a splitter of their own";
    EXPECT_EQ(tessel.PanelText(1), before) << "hiding a T-View keeps its folder";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

TEST_F(Layouts, KeysReachLayoutsAndViews) {
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    BringToFront(tessel);
    // The keys, then up to 3 s for what they should bring (the first keys after a cold start of
    // Wine's server take their time).
    auto press = [&](std::initializer_list<WORD> keys, auto brought) {
        std::vector<INPUT> inputs;
        for (WORD key : keys) inputs.push_back({INPUT_KEYBOARD, {.ki = {key, 0, 0, 0, 0}}});
        for (auto it = keys.end(); it != keys.begin();) inputs.push_back({INPUT_KEYBOARD, {.ki = {*--it, 0, KEYEVENTF_KEYUP, 0, 0}}});
        SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
        const DWORD until = GetTickCount() + 3000;
        while (!brought() && GetTickCount() < until) Sleep(50);
        return brought();
    };
    EXPECT_TRUE(press({VK_CONTROL, VK_MENU, VK_OEM_PLUS}, [&] { return !IsWindowVisible(View(tessel, 2)); }))
        << "the single view";
    EXPECT_TRUE(press({VK_CONTROL, VK_MENU, '1'}, [&] { return IsWindowVisible(View(tessel, 4)) != FALSE; }));
    GUITHREADINFO gui{sizeof(gui)};
    EXPECT_TRUE(press({VK_CONTROL, '3'}, [&] {
        return GetGUIThreadInfo(GetWindowThreadProcessId(tessel.Frame(), nullptr), &gui) && gui.hwndFocus &&
               IsChild(View(tessel, 3), gui.hwndFocus);
    })) << "Ctrl+3 puts the focus into T-View 3";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

TEST_F(Layouts, TreeModeOneShowsTheFrameWideTreeBesideTheViews) {
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    HWND tree = GetDlgItem(tessel.Frame(), IDC_FRAME_TREE);
    ASSERT_NE(tree, nullptr);
    EXPECT_FALSE(IsWindowVisible(tree)) << "tree_mode 0";
    const RECT before = Place(tessel, 1);
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_TREE_MODE_0 + 1, 0);
    EXPECT_TRUE(IsWindowVisible(tree));
    RECT treeRect;
    GetWindowRect(tree, &treeRect);
    EXPECT_LE(treeRect.right, Place(tessel, 1).left);
    EXPECT_LT(Place(tessel, 1).right - Place(tessel, 1).left, before.right - before.left);
    // The tree may list the desktop's folders a moment later on a busy machine.
    for (int i = 0; i < 250 && TreeView_GetCount(tree) <= 1; ++i) Sleep(20);
    EXPECT_GT(TreeView_GetCount(tree), 1u) << "the desktop and its folders";
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_TREE_MODE_2, 0);
    EXPECT_FALSE(IsWindowVisible(tree));
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_NE(ReadBytes(folder_ / L"Tessel.ini").find(std::string("t\0r\0e\0e\0_\0m\0o\0d\0e\0=\0002", 21)),
              std::string::npos) << "the mode is kept";
}

// The frame-wide tree walks to the folder of the T-View in use, and follows when another takes
// the focus. Depth of the selected item: the desktop is 1.
TEST_F(Layouts, TheFrameWideTreeFollowsTheViewInUse) {
    TesselProcess tessel(exe_, L"\"" + folder_.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    HWND tree = GetDlgItem(tessel.Frame(), IDC_FRAME_TREE);
    auto selectedDepth = [&] {
        int depth = 0;
        for (auto item = TreeView_GetSelection(tree); item; item = TreeView_GetParent(tree, item)) ++depth;
        return depth;
    };
    PIDLIST_ABSOLUTE folder = nullptr;
    ASSERT_EQ(SHParseDisplayName(folder_.path().c_str(), nullptr, &folder, 0, nullptr), S_OK);
    int levels = 1;
    for (PCUIDLIST_RELATIVE id = folder; id->mkid.cb; id = ILNext(id)) ++levels;
    CoTaskMemFree(folder);
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_TREE_MODE_0 + 1, 0);
    EXPECT_EQ(selectedDepth(), levels) << "T-View 1 shows the folder";
    BringToFront(tessel);
    INPUT keys[4] = {{INPUT_KEYBOARD, {.ki = {VK_CONTROL, 0, 0, 0, 0}}}, {INPUT_KEYBOARD, {.ki = {'2', 0, 0, 0, 0}}},
                     {INPUT_KEYBOARD, {.ki = {'2', 0, KEYEVENTF_KEYUP, 0, 0}}},
                     {INPUT_KEYBOARD, {.ki = {VK_CONTROL, 0, KEYEVENTF_KEYUP, 0, 0}}}};
    SendInput(4, keys, sizeof(INPUT));
    const DWORD until = GetTickCount() + 3000;
    while (selectedDepth() != 2 && GetTickCount() < until) Sleep(50);
    EXPECT_EQ(selectedDepth(), 2) << "T-View 2 shows My Computer, just below the desktop";
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

// A click anywhere in a T-View puts it in use, not only one into its list: here into the address
// bar of T-View 2, and the frame-wide tree follows it.
TEST_F(Layouts, AClickIntoAnotherViewsAddressBarPutsThatViewInUse) {
    TesselProcess tessel(exe_, L"\"" + folder_.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_TREE_MODE_0 + 1, 0);
    HWND tree = GetDlgItem(tessel.Frame(), IDC_FRAME_TREE);
    auto selectedDepth = [&] {
        int depth = 0;
        for (auto item = TreeView_GetSelection(tree); item; item = TreeView_GetParent(tree, item)) ++depth;
        return depth;
    };
    ASSERT_GT(selectedDepth(), 2) << "T-View 1 shows the folder";
    HWND edit = nullptr;
    // T-View 2 may still be building its address bar when the window first shows.
    for (const DWORD shown = GetTickCount() + 3000; !edit && GetTickCount() < shown; Sleep(edit ? 0 : 50))
        EnumChildWindows(View(tessel, 2), [](HWND child, LPARAM found) {
            wchar_t name[16] = {};
            GetClassNameW(child, name, 16);
            if (_wcsicmp(name, L"Edit") != 0 || !IsWindowVisible(child)) return TRUE;
            *reinterpret_cast<HWND*>(found) = child;
            return FALSE;
        }, reinterpret_cast<LPARAM>(&edit));
    ASSERT_TRUE(edit) << "T-View 2's address bar";
    BringToFront(tessel);
    RECT box{};
    GetWindowRect(edit, &box);
    const int width = GetSystemMetrics(SM_CXSCREEN) - 1, height = GetSystemMetrics(SM_CYSCREEN) - 1;
    INPUT click[2] = {};
    for (INPUT& input : click) {
        input.type = INPUT_MOUSE;
        input.mi.dx = ((box.left + box.right) / 2) * 65535 / width;
        input.mi.dy = ((box.top + box.bottom) / 2) * 65535 / height;
    }
    click[0].mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_LEFTDOWN;
    click[1].mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_LEFTUP;
    SendInput(2, click, sizeof(INPUT));
    const DWORD until = GetTickCount() + 3000;
    while (selectedDepth() != 2 && GetTickCount() < until) Sleep(50);
    EXPECT_EQ(selectedDepth(), 2) << "T-View 2 is in use: the tree shows its My Computer";

    // Ctrl+H in the address box is the box's own key; in a list it switches hidden files.
    const auto press = [](WORD key) {
        INPUT keys[4] = {{INPUT_KEYBOARD, {.ki = {VK_CONTROL, 0, 0, 0, 0}}}, {INPUT_KEYBOARD, {.ki = {key, 0, 0, 0, 0}}},
                         {INPUT_KEYBOARD, {.ki = {key, 0, KEYEVENTF_KEYUP, 0, 0}}},
                         {INPUT_KEYBOARD, {.ki = {VK_CONTROL, 0, KEYEVENTF_KEYUP, 0, 0}}}};
        SendInput(4, keys, sizeof(INPUT));
        Sleep(400);
    };
    const std::wstring ini = folder_ / L"Tessel.ini";
    press('H');
    EXPECT_EQ(GetPrivateProfileIntW(L"Start", L"show_hidden", -1, ini.c_str()), -1) << "typed into the box";
    press('2');  // the list of T-View 2
    press('H');
    EXPECT_EQ(GetPrivateProfileIntW(L"Start", L"show_hidden", -1, ini.c_str()), 1);
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

// The tree mode kept in "Start" counts only for start modes other than the last state, which
// brings its own.
TEST_F(Layouts, TheKeptTreeModeCountsOnlyWithoutTheLastState) {
    const std::wstring ini = folder_ / L"Tessel.ini";
    WritePrivateProfileStringW(L"Start", L"tree_mode", L"1", ini.c_str());
    for (const wchar_t* mode : {L"5", L"0"}) {
        WritePrivateProfileStringW(L"Start", L"Als", mode, ini.c_str());
        TesselProcess tessel(exe_, L"");
        ASSERT_TRUE(tessel.WaitForWindow());
        HWND tree = GetDlgItem(tessel.Frame(), IDC_FRAME_TREE);
        EXPECT_EQ(IsWindowVisible(tree) != FALSE, std::wstring(mode) == L"0") << "Als=" << static_cast<char>(mode[0]);
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

// The address-bar modes from the Options menu: one bar per T-View, one in the frame, none;
// each written at once.
// Found among the top-level windows of the process that owns `frame`.
HWND MagnifierOf(HWND frame) {
    for (HWND window = FindWindowW(L"TesselMagnifier", nullptr); window;
         window = FindWindowExW(nullptr, window, L"TesselMagnifier", nullptr))
        if (GetWindow(window, GW_OWNER) == frame) return window;
    return nullptr;
}

TEST_F(Layouts, TheMagnifierFollowsTheMenuKeepsItsZoomAndClosesByItsWindow) {
    WriteUnicodeText(folder_ / L"Tessel.ini", L"[Lupe]\r\nZoom=99\r\n");  // out of range: the largest
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_VIEW_MAGNIFIER, 0);
    HWND magnifier = MagnifierOf(tessel.Frame());
    ASSERT_NE(magnifier, nullptr);
    EXPECT_TRUE(IsWindowVisible(magnifier));
    EXPECT_TRUE(GetWindowLongW(magnifier, GWL_EXSTYLE) & WS_EX_TOPMOST);
    EXPECT_EQ(GetWindowTextString(magnifier).substr(GetWindowTextString(magnifier).size() - 3), L" 8x");
    SendMessageW(magnifier, WM_MOUSEWHEEL, MAKEWPARAM(0, -WHEEL_DELTA), 0);
    SendMessageW(magnifier, WM_CHAR, L'-', 0);
    EXPECT_EQ(GetWindowTextString(magnifier).substr(GetWindowTextString(magnifier).size() - 3), L" 6x");
    SendMessageW(magnifier, WM_CLOSE, 0, 0);
    for (int i = 0; i < 100 && IsWindow(magnifier); ++i) Sleep(20);
    EXPECT_FALSE(IsWindow(magnifier)) << "closing its window turns the magnifier off";
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_VIEW_MAGNIFIER, 0);
    magnifier = MagnifierOf(tessel.Frame());
    ASSERT_NE(magnifier, nullptr);
    EXPECT_EQ(GetWindowTextString(magnifier).substr(GetWindowTextString(magnifier).size() - 3), L" 6x");
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_VIEW_MAGNIFIER, 0);
    EXPECT_FALSE(IsWindow(magnifier));
    EXPECT_EQ(tessel.CloseAndWait(), 0);
}

TEST_F(Layouts, AddressBarModesFromTheMenuAreAppliedAndKept) {
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    HWND panel = View(tessel, 1);
    auto panelBar = [&] { return FindWindowExW(panel, nullptr, L"TesselAddressBar", nullptr); };
    ASSERT_NE(panelBar(), nullptr) << "every T-View has its bar at first";
    HWND box = nullptr;  // made and shown just after the window shows
    for (int i = 0; i < 100 && !(box && IsWindowVisible(box)); ++i, Sleep(20))
        box = FindWindowExW(panelBar(), nullptr, WC_COMBOBOXEXW, nullptr);
    EXPECT_TRUE(box && IsWindowVisible(box));
    EXPECT_EQ(GetDlgItem(tessel.Frame(), IDC_FRAME_ADDRESS_BAR), nullptr);

    SendMessageW(tessel.Frame(), WM_COMMAND, ID_ADDRESS_MODE_FRAME, 0);
    EXPECT_EQ(panelBar(), nullptr);
    HWND frameBar = GetDlgItem(tessel.Frame(), IDC_FRAME_ADDRESS_BAR);
    ASSERT_NE(frameBar, nullptr);
    EXPECT_TRUE(IsWindowVisible(frameBar));
    RECT bar, view;
    GetWindowRect(frameBar, &bar);
    GetWindowRect(panel, &view);
    EXPECT_LE(bar.bottom, view.top) << "the frame's bar sits above the views";

    SendMessageW(tessel.Frame(), WM_COMMAND, ID_ADDRESS_MODE_NONE, 0);
    EXPECT_EQ(GetDlgItem(tessel.Frame(), IDC_FRAME_ADDRESS_BAR), nullptr);
    EXPECT_EQ(panelBar(), nullptr);
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_ADDRESS_STYLE_SEGMENTS, 0);
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_ADDRESS_TREE, 0);

    // The two placeholder commands show their sentence in English and in German.
    for (int command : {ID_ADDRESS_PLACEHOLDER_1, ID_ADDRESS_PLACEHOLDER_2}) {
        PostMessageW(tessel.Frame(), WM_COMMAND, command, 0);
        HWND box = nullptr;
        for (int i = 0; i < 100 && !box; ++i, Sleep(50)) {
            box = FindWindowW(L"#32770", L"Tessel");
            if (box && GetWindow(box, GW_OWNER) != tessel.Frame()) box = nullptr;
        }
        ASSERT_NE(box, nullptr) << command;
        wchar_t text[256] = {};
        for (int i = 0; i < 100 && !GetDlgItemTextW(box, 0xFFFF, text, 256); ++i) Sleep(20);  // still being made
        EXPECT_STREQ(text, L"Wildcard for the next version / Vista addressbar and + + + \n\n"
                           L"Platzhalter f\u00FCr die n\u00E4chste Version / Vista-Adressleiste und + + + ");
        PostMessageW(box, WM_COMMAND, IDOK, 0);
        for (int i = 0; i < 100 && IsWindow(box); ++i) Sleep(50);
    }
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    const std::string ini = ReadBytes(folder_ / L"Tessel.ini");
    auto has = [&](const std::string& line) {
        std::string wide;
        for (char c : line) wide += std::string{c, '\0'};
        return ini.find(wide) != std::string::npos;
    };
    EXPECT_TRUE(has("address_bar_mod=-1"));
    EXPECT_TRUE(has("adresbar_style=1"));
    EXPECT_TRUE(has("adress_tree=0"));
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

// The options dialog of the running program, once it shows.
HWND OptionsDialogOf(HWND frame) {
    for (int i = 0; i < 150; ++i, Sleep(20))
        for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
            if (GetWindow(d, GW_OWNER) == frame && GetDlgItem(d, IDC_OPTIONS_PAGES)) return d;
    return nullptr;
}

HWND ShownPage(HWND dialog) {
    for (HWND p = FindWindowExW(dialog, nullptr, L"#32770", nullptr); p; p = FindWindowExW(dialog, p, L"#32770", nullptr))
        if (IsWindowVisible(p)) return p;
    return nullptr;
}

// A check box of the general page, found by its text: the page makes its controls itself.
HWND CheckNamed(HWND page, const std::wstring& text) {
    for (HWND c = FindWindowExW(page, nullptr, L"Button", nullptr); c; c = FindWindowExW(page, c, L"Button", nullptr)) {
        wchar_t shown[200] = {};
        GetWindowTextW(c, shown, 200);
        if (text == shown) return c;
    }
    return nullptr;
}

TEST_F(Layouts, OptionsFromTheDialogChangeTheOpenWindowAtOnce) {
    const std::wstring ini = folder_ / L"Tessel.ini";
    WritePrivateProfileStringW(L"Start", L"m_lang_id", L"1", ini.c_str());
    WritePrivateProfileStringW(L"Start", L"title_info", L"1", ini.c_str());
    TesselProcess tessel(exe_, L"\"" + folder_.path() + L"\"");
    ASSERT_TRUE(tessel.WaitForWindow());
    auto title = [&] {
        wchar_t text[512] = {};
        GetWindowTextW(tessel.Frame(), text, 512);
        return std::wstring(text);
    };
    for (int i = 0; i < 100 && title() == L"Tessel"; ++i) Sleep(20);
    EXPECT_EQ(title(), folder_.path() + L" - Tessel") << "the title names the folder in use";
    HWND status = GetDlgItem(tessel.Frame(), 59393);
    EXPECT_TRUE(IsWindowVisible(status));

    PostMessageW(tessel.Frame(), WM_COMMAND, ID_OPTIONS_DIALOG, 0);
    HWND dialog = OptionsDialogOf(tessel.Frame());
    ASSERT_NE(dialog, nullptr);
    HWND page = nullptr;
    for (int i = 0; i < 100 && !page; ++i, Sleep(20)) page = ShownPage(dialog);
    ASSERT_NE(page, nullptr);
    SendMessageW(CheckNamed(page, L"Show the folder in use in the window title"), BM_CLICK, 0, 0);
    SendMessageW(CheckNamed(page, L"Status bar"), BM_CLICK, 0, 0);
    EXPECT_EQ(title(), L"Tessel");
    EXPECT_FALSE(IsWindowVisible(status)) << "the status bar went at once";
    PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    for (int i = 0; i < 100 && IsWindow(dialog); ++i) Sleep(20);
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_EQ(GetPrivateProfileIntW(L"Start", L"title_info", -1, ini.c_str()), 0);
    EXPECT_EQ(GetPrivateProfileIntW(L"Start", L"StatusBar", -1, ini.c_str()), 0);
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

// The preview pane and its width travel with the last state, as with any folder set.
TEST_F(Layouts, ThePreviewPaneComesBackWithTheLastState) {
    auto pane = [](TesselProcess& tessel) { return GetDlgItem(tessel.Frame(), IDC_FRAME_PREVIEW); };
    {
        TesselProcess tessel(exe_, L"\"" + folder_.path() + L"\"");
        ASSERT_TRUE(tessel.WaitForWindow());
        EXPECT_EQ(pane(tessel), nullptr) << "nothing is made before it is asked for";
        SendMessageW(tessel.Frame(), WM_COMMAND, ID_VIEW_PREVIEW, 0);
        ASSERT_NE(pane(tessel), nullptr);
        EXPECT_TRUE(IsWindowVisible(pane(tessel)));
        RECT view, preview;
        GetWindowRect(View(tessel, 1), &view);
        GetWindowRect(pane(tessel), &preview);
        EXPECT_LE(view.right, preview.left) << "the pane is beside the T-Views";
        EXPECT_EQ(tessel.CloseAndWait(), 0);
    }
    std::string state = ReadBytes(folder_ / L"start.tsf");
    std::string narrow;
    for (size_t i = 2; i < state.size(); i += 2) narrow += state[i];
    EXPECT_NE(narrow.find("Vorschau=1"), std::string::npos);
    EXPECT_NE(narrow.find("VorschauPos=7500"), std::string::npos);
    TesselProcess again(exe_, L"");
    ASSERT_TRUE(again.WaitForWindow());
    HWND shown = nullptr;
    for (int i = 0; i < 100 && !(shown && IsWindowVisible(shown)); ++i, Sleep(20)) shown = pane(again);
    EXPECT_TRUE(shown && IsWindowVisible(shown)) << "the loaded state asked for the pane";
    EXPECT_EQ(again.CloseAndWait(), 0);
}

}  // namespace
}  // namespace tessel::testing

namespace tessel::testing {
namespace {

// A language with only a file beside the program is chosen from the Language menu like the others.
TEST_F(Layouts, ALanguageFromAFileBesideTheProgramIsChosenFromTheMenu) {
    WriteBytes(folder_ / L"Tessel-FR.lng", "62226=Fran\xC3\xA7" "ais\n62004=&Options (fr)\n");
    TesselProcess tessel(exe_, L"");
    ASSERT_TRUE(tessel.WaitForWindow());
    SendMessageW(tessel.Frame(), WM_COMMAND, ID_LANGUAGE_FILE_FIRST + 2, 0);
    EXPECT_EQ(tessel.CloseAndWait(), 0);
    EXPECT_EQ(GetPrivateProfileIntW(L"Start", L"m_lang_id", -1, (folder_ / L"Tessel.ini").c_str()), 2);
}

}  // namespace
}  // namespace tessel::testing
