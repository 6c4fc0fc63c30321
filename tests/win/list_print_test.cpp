// The print preview of a list: pages counted for the paper, turned, landscape kept in the
// settings, a damaged paper setting replaced, and no printer answered with a message.
#include <windows.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/fill_in.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "features/list_print_win.h"
#include "res/resource.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

ExportTable Rows(int count) {
    ExportTable table;
    table.captions = {L"Name", L"Size"};
    table.widths = {200, 80};
    for (int i = 0; i < count; ++i) table.rows.push_back({L"file <" + std::to_wstring(i) + L"> & \"x\"", L"1 KB"});
    return table;
}

TEST(ListPrint, DamagedPaperSettingsGiveA4WithTwentyMillimetreMargins) {
    ViewHost host(1);
    Settings().PutString(L"Druck", L"Papier", L"12;x");
    Settings().PutString(L"Druck", L"Raender", L"9000;9000;9000;9000");
    const PaperSetup damaged = LoadPaperSetup();
    EXPECT_EQ(damaged.width, 21000);
    EXPECT_EQ(damaged.margins.left, 2000) << "margins that leave no room are not taken";
    PaperSetup letter;
    letter.width = 21590;
    letter.height = 27940;
    letter.landscape = true;
    SavePaperSetup(letter);
    const PaperSetup read = LoadPaperSetup();
    EXPECT_EQ(read.width, 21590);
    EXPECT_TRUE(read.landscape);
    EXPECT_EQ(read.PageWidth(), 27940);
    SavePaperSetup(PaperSetup{});
}

TEST(ListPrint, PagesAreDrawnForAnyListEmptyOrHostile) {
    HDC dc = CreateCompatibleDC(nullptr);
    SetMapMode(dc, MM_ANISOTROPIC);
    SetWindowExtEx(dc, 21000, 29700, nullptr);
    SetViewportExtEx(dc, 210, 297, nullptr);
    EXPECT_EQ(DrawListPage(dc, Rows(0), L"C:\\", PaperSetup{}, 0), 1);
    EXPECT_EQ(DrawListPage(dc, ExportTable{}, L"", PaperSetup{}, 0), 1);
    const int pages = DrawListPage(dc, Rows(200), L"C:\\", PaperSetup{}, 0);
    EXPECT_GE(pages, 3);
    EXPECT_EQ(DrawListPage(dc, Rows(200), L"C:\\", PaperSetup{}, pages + 5), pages) << "a page beyond the end draws no rows";
    DeleteDC(dc);
}

HWND WaitForOwnedDialog(HWND owner, HWND except = nullptr, int tries = 100) {
    for (int i = 0; i < tries; ++i, Sleep(20))
        for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
            if (d != except && IsWindowVisible(d) && (!owner || GetWindow(d, GW_OWNER) == owner)) return d;
    return nullptr;
}

TEST(ListPrint, ThePreviewTurnsPagesKeepsLandscapeAndSaysWhenNoPrinterIsThere) {
    ViewHost host(1);
    SavePaperSetup(PaperSetup{});
    struct Seen {
        std::wstring first, second, landscape;
        bool previousAtStart = true, previousLater = false, printAnswered = false;
    } seen;
    std::jthread user([&] {
        HWND dialog = WaitForOwnedDialog(host.hwnd());
        if (!dialog) return;
        auto click = [&](int id) { SendMessageW(GetDlgItem(dialog, id), BM_CLICK, 0, 0); };
        seen.first = GetWindowTextString(GetDlgItem(dialog, IDC_PP_PAGE));
        seen.previousAtStart = IsWindowEnabled(GetDlgItem(dialog, IDC_PP_PREVIOUS));
        click(IDC_PP_NEXT);
        seen.second = GetWindowTextString(GetDlgItem(dialog, IDC_PP_PAGE));
        seen.previousLater = IsWindowEnabled(GetDlgItem(dialog, IDC_PP_PREVIOUS));
        click(IDC_PP_LANDSCAPE);
        seen.landscape = GetWindowTextString(GetDlgItem(dialog, IDC_PP_PAGE));
        PostMessageW(GetDlgItem(dialog, IDC_PP_PRINT), BM_CLICK, 0, 0);
        // Without a printer a message says so; with one the system's dialog asks. Either is closed.
        for (int round = 0; round < 4; ++round) {  // the system may add a word of its own
            HWND asked = WaitForOwnedDialog(nullptr, dialog);  // the system's word may have no owner
            if (!asked) break;
            seen.printAnswered = true;
            PostMessageW(asked, WM_COMMAND, IDCANCEL, 0);
            PostMessageW(asked, WM_COMMAND, IDOK, 0);
            for (int i = 0; i < 100 && IsWindow(asked); ++i) Sleep(20);
        }
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    CPrintPreview::Run(host.hwnd(), Rows(200), L"C:\\Test");
    user.join();
    const int portrait = ListPageCount(Rows(200), PaperSetup{});
    EXPECT_EQ(seen.first, FillIn(GetText(62373), {L"1", std::to_wstring(portrait)}));
    EXPECT_FALSE(seen.previousAtStart);
    EXPECT_EQ(seen.second, FillIn(GetText(62373), {L"2", std::to_wstring(portrait)}));
    EXPECT_TRUE(seen.previousLater);
    PaperSetup across;
    across.landscape = true;
    EXPECT_GT(ListPageCount(Rows(200), across), portrait) << "fewer rows fit across";
    EXPECT_EQ(seen.landscape, FillIn(GetText(62373), {L"2", std::to_wstring(ListPageCount(Rows(200), across))}));
    EXPECT_EQ(Settings().GetInt(L"Druck", L"Quer", 0), 1) << "landscape is kept";
    EXPECT_TRUE(seen.printAnswered);
    SavePaperSetup(PaperSetup{});
}

// The preview opens on the whole page; the list chooses a share of the real size, and
// Ctrl+wheel steps to the next share from what is shown.
TEST(ListPrint, ThePreviewZoomsByItsListAndByCtrlWheel) {
    ViewHost host(1);
    struct Seen {
        LRESULT atStart = -1, afterWheel = -1, afterWheelDown = -1;
        bool closeInside = false;
    } seen;
    std::jthread user([&] {
        HWND dialog = WaitForOwnedDialog(host.hwnd());
        if (!dialog) return;
        HWND zoom = GetDlgItem(dialog, IDC_PP_ZOOM);
        seen.atStart = SendMessageW(zoom, CB_GETCURSEL, 0, 0);
        SendMessageW(zoom, CB_SETCURSEL, 5, 0);  // 100 %
        SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDC_PP_ZOOM, CBN_SELCHANGE), reinterpret_cast<LPARAM>(zoom));
        SendMessageW(dialog, WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, WHEEL_DELTA), 0);
        seen.afterWheel = SendMessageW(zoom, CB_GETCURSEL, 0, 0);
        SendMessageW(dialog, WM_MOUSEWHEEL, MAKEWPARAM(MK_CONTROL, static_cast<WORD>(-2 * WHEEL_DELTA)), 0);
        seen.afterWheelDown = SendMessageW(zoom, CB_GETCURSEL, 0, 0);
        SendMessageW(dialog, WM_MOUSEWHEEL, MAKEWPARAM(0, static_cast<WORD>(-WHEEL_DELTA)), 0);  // scrolls, no crash
        SetWindowPos(dialog, nullptr, 0, 0, 900, 520, SWP_NOMOVE | SWP_NOZORDER);  // smaller than the resource
        RECT client{}, close{};
        GetClientRect(dialog, &client);
        GetWindowRect(GetDlgItem(dialog, IDOK), &close);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&close), 2);
        seen.closeInside = close.bottom <= client.bottom && close.right <= client.right;
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
    });
    CPrintPreview::Run(host.hwnd(), Rows(200), L"C:\\Test");
    user.join();
    EXPECT_EQ(seen.atStart, 0) << "the whole page";
    EXPECT_EQ(seen.afterWheel, 6) << "150 %";
    EXPECT_EQ(seen.afterWheelDown, 5) << "one step down from 150 %, whatever the wheel's size: 100 %";
    EXPECT_TRUE(seen.closeInside) << "a smaller dialog keeps its bottom row in view";
}

}  // namespace
}  // namespace tessel::testing
