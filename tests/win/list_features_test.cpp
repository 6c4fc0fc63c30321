// The colour rules and the view filter in a real T-View: colours read back through the item
// query the list's drawing uses, backgrounds of the T-View in use, and the filter box.
#include <algorithm>
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "features/folder_size_worker_win.h"
#include "features/folder_walk.h"
#include "features/list_export_win.h"
#include "features/program_colours_win.h"
#include "features/rule_index.h"
#include "res/resource.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[MAX_PATH] = {};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = MAX_PATH;
    SendMessageW(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return text;
}

std::wstring ItemText(HWND list, int row) { return CellText(list, row, 0); }

bool Listed(CMyShellBrowser& browser, const std::wstring& name) {
    for (int i = 0; i < ListCount(browser); ++i)
        if (ItemText(browser.GetListControl(), i).rfind(name, 0) == 0) return true;
    return false;
}

struct Drawn {
    int colour;
    int flags;
};

// What the list is told for the item of that name, through message 1249.
Drawn DrawnAs(CMyShellBrowser& browser, const std::wstring& name) {
    HWND list = browser.GetListControl();
    for (int i = 0; i < ListCount(browser); ++i) {
        if (ItemText(list, i).rfind(name, 0) != 0) continue;
        int flags = 0;
        const int colour = static_cast<int>(SendMessageW(browser.hwnd(), kMsgQueryItem, i, reinterpret_cast<LPARAM>(&flags)));
        return {colour, flags};
    }
    return {-2, -2};
}

void MakeFiles(const TempFolder& folder) {
    for (const wchar_t* name : {L"setup.exe", L"readme.txt", L"txtnotes.doc", L"photo.JPG", L"plain.dat"})
        WriteBytes(folder / name, "x");
    CreateDirectoryW((folder / L"Docs").c_str(), nullptr);
    CreateDirectoryW((folder / L"x.zip").c_str(), nullptr);
    WriteBytes(folder / L"secret.dat", "x");
    SetFileAttributesW((folder / L"secret.dat").c_str(), FILE_ATTRIBUTE_HIDDEN);
}

// Hidden files are switched for every tab: the one shown lists again at once, the others when
// they show; the T-View's button shows the switch. (Wine's view never lists hidden files, so the
// switch is seen hiding a file that became hidden after it was listed.)
TEST(HiddenFiles, TheSwitchListsEveryTabAgainTheShownOneAtOnce) {
    ViewHost host(1);
    TempFolder files;
    MakeFiles(files);
    ScopedOption show(Options().show_hidden, 1);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(files.path()));
    CMyShellBrowser& first = host.Browser();
    DWORD flags = 0;
    EXPECT_EQ(first.GetViewFlags(&flags), S_OK);
    EXPECT_EQ(flags, static_cast<DWORD>(CDB2GVF_SHOWALLFILES)) << "a view that asks is told to list them";
    CMyShellBrowser* second = panel.GetOrCreateBrowser();
    ASSERT_TRUE(second);
    panel.Activate(second);
    ASSERT_TRUE(panel.NavigateToText(files.path()));
    ASSERT_GE(RowOf(first, L"plain.dat"), 0);
    ASSERT_GE(RowOf(*second, L"plain.dat"), 0);
    SetFileAttributesW((files / L"plain.dat").c_str(), FILE_ATTRIBUTE_HIDDEN);

    Options().show_hidden = 0;
    panel.HiddenFilesChanged();
    EXPECT_EQ(RowOf(*second, L"plain.dat"), -1) << "the tab shown lists again at once";
    EXPECT_FALSE(SendMessageW(panel.Toolbars().Modes(), TB_ISBUTTONCHECKED, ID_VIEW_HIDDEN_FILES, 0));
    EXPECT_GE(RowOf(first, L"plain.dat"), 0) << "a tab not shown waits";
    panel.Activate(&first);
    EXPECT_EQ(RowOf(first, L"plain.dat"), -1) << "and lists again when it shows";
    EXPECT_EQ(first.GetViewFlags(&flags), S_OK);
    EXPECT_EQ(flags, 0u);
}

TEST(ListColours, SchemeColoursStylesAndBackgrounds) {
    ViewHost host(1);
    TempFolder files;
    MakeFiles(files);
    ScopedOption hidden(Options().show_hidden, 1);
    ScopedOption on(Options().useColor, 1);
    Colours().Load(Settings());
    EXPECT_EQ(Settings().GetString(L"Filter2", L"9", L""), L"*=1=0000BB=-1=1=-1=0") << "scheme 0 written at first";
    ASSERT_TRUE(host.Panel().NavigateToText(files.path()));
    CMyShellBrowser& browser = host.Browser();
    EXPECT_EQ(DrawnAs(browser, L"setup.exe").colour, static_cast<int>(RGB(0xFF, 0, 0)));
    EXPECT_EQ(DrawnAs(browser, L"photo.JPG").colour, static_cast<int>(RGB(0xBB, 0, 0xBB))) << "case does not count";
    EXPECT_EQ(DrawnAs(browser, L"x.zip").colour, static_cast<int>(RGB(0, 0xAA, 0))) << "*.zip before #DIR";
    EXPECT_EQ(DrawnAs(browser, L"Docs").colour, static_cast<int>(RGB(0, 0x88, 0)));
    EXPECT_EQ(DrawnAs(browser, L"plain.dat").flags, kStyleBold);
    if (ListCount(browser) == 8) {  // the view lists hidden files
        const Drawn hidden = DrawnAs(browser, L"secret.dat");
        EXPECT_EQ(hidden.colour, static_cast<int>(RGB(0, 0, 0xBB))) << "#Hidden leaves the colour to '*'";
        EXPECT_EQ(hidden.flags, kStyleBold | kStyleItalic);
    }
    EXPECT_EQ(SendMessageW(browser.hwnd(), kMsgQueryItem, 999, 0), -1) << "no such item";

    Colours().WriteScheme(Settings(), 1);
    host.Panel().SetInUse(true);
    HWND list = browser.GetListControl();
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)), RGB(0x33, 0x33, 0x33));
    host.Panel().SetInUse(false);
    EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)), RGB(0x11, 0x11, 0x11));
    {
        ScopedOption off(Options().useColor, 0);
        host.Panel().SetInUse(true);
        EXPECT_EQ(static_cast<COLORREF>(SendMessageW(list, LVM_GETBKCOLOR, 0, 0)), GetSysColor(COLOR_WINDOW));
    }
    Pump(50);  // the list draws through the rules without trouble
}

TEST(ListColours, TreeTakesBackgroundAndLinesOnlyWithTreeColouringOne) {
    ViewHost host(1);
    Colours().WriteScheme(Settings(), 1);
    HWND tree = GetDlgItem(host.Panel().hwnd(), kTreeId);
    {
        ScopedOption on(Options().useTreeColor, 1);
        host.Panel().FolderTree().ApplyOptions();
        EXPECT_EQ(TreeView_GetBkColor(tree), RGB(0x11, 0x11, 0x11)) << "#BG";
        EXPECT_EQ(TreeView_GetLineColor(tree), RGB(0x44, 0xBB, 0xEE)) << "the '*' colour";
        COLORREF text = 0, back = CLR_NONE;
        TempFolder files;
        CreateDirectoryW((files / L"Docs").c_str(), nullptr);
        ASSERT_TRUE(TreeItemColours(win::PidlFromPath(files / L"Docs").get(), text, back));
        EXPECT_EQ(text, RGB(0xFF, 0xFF, 0x00)) << "#DIR of the scheme";
    }
    ScopedOption two(Options().useTreeColor, 2);
    host.Panel().FolderTree().ApplyOptions();
    EXPECT_EQ(TreeView_GetBkColor(tree), GetSysColor(COLOR_WINDOW));
    EXPECT_EQ(TreeView_GetLineColor(tree), GetSysColor(COLOR_3DDKSHADOW));
    Colours().WriteScheme(Settings(), 0);
}

TEST(ViewFilterBox, FiltersAfterAPauseAndRemembersTheText) {
    ViewHost host(1);
    TempFolder files;
    MakeFiles(files);
    CPloder& panel = host.Panel();
    ASSERT_TRUE(panel.NavigateToText(files.path()));
    CMyShellBrowser& browser = host.Browser();
    const int all = ListCount(browser);
    if (!panel.Filter()->switches.show_filter) panel.ToggleFilterBox();
    HWND box = GetDlgItem(panel.hwnd(), kFilterBoxId);
    SetWindowTextW(box, L"TXT");
    EXPECT_EQ(ListCount(browser), all) << "nothing happens while the typing goes on";
    // readme.txt and txtnotes.doc match "*txt*"; folders stay without by_dir_filter.
    EXPECT_TRUE(PumpUntil([&] { return ListCount(browser) == 4; }));
    EXPECT_EQ(Settings().GetString(L"T_View_0", L"by_filter", L""), L"1");
    EXPECT_EQ(Settings().GetString(L"Last-File-Filter", L"0", L""), L"TXT");

    SetWindowTextW(box, L"*.exe;*.jpg");
    EXPECT_TRUE(PumpUntil([&] { return Listed(browser, L"photo"); }));
    EXPECT_EQ(ListCount(browser), 4);
    EXPECT_TRUE(Listed(browser, L"setup") && !Listed(browser, L"readme"));
    // The switches beside the box: folders filtered too, then what does not match.
    HWND switches = FindWindowExW(panel.hwnd(), nullptr, TOOLBARCLASSNAMEW, nullptr);
    ASSERT_TRUE(switches && IsWindowVisible(switches));
    SendMessageW(panel.hwnd(), WM_COMMAND, ID_FILTER_FOLDERS, reinterpret_cast<LPARAM>(switches));
    EXPECT_EQ(ListCount(browser), 2) << "setup.exe and photo.JPG only";
    SendMessageW(panel.hwnd(), WM_COMMAND, ID_FILTER_INVERT, reinterpret_cast<LPARAM>(switches));
    EXPECT_EQ(ListCount(browser), 5) << "the three other files and both folders";
    EXPECT_TRUE(SendMessageW(switches, TB_ISBUTTONCHECKED, ID_FILTER_INVERT, 0));
    EXPECT_EQ(Settings().GetInt(L"T_View_0", L"by_negativ", 0), 1);
    EXPECT_EQ(Settings().GetInt(L"T_View_0", L"by_dir_filter", 0), 1);
    SendMessageW(panel.hwnd(), WM_COMMAND, ID_FILTER_INVERT, reinterpret_cast<LPARAM>(switches));
    SendMessageW(panel.hwnd(), WM_COMMAND, ID_FILTER_FOLDERS, reinterpret_cast<LPARAM>(switches));
    EXPECT_EQ(ListCount(browser), 4);
    EXPECT_FALSE(SendMessageW(switches, TB_ISBUTTONCHECKED, ID_FILTER_FOLDERS, 0));
    panel.ToggleFilterBox();
    EXPECT_EQ(ListCount(browser), all) << "a hidden filter box filters nothing";
    panel.ToggleFilterBox();
    EXPECT_EQ(ListCount(browser), 4);
    SetWindowTextW(box, L"");
    EXPECT_TRUE(PumpUntil([&] { return ListCount(browser) == all; }));
}

TEST(ListExport, FolderListWrittenAndParsedBackAndTargetsKept) {
    ViewHost host(1);
    TempFolder files;
    MakeFiles(files);
    WriteBytes(files / L"semi;colon & co.txt", "x");
    ASSERT_TRUE(host.Panel().NavigateToText(files.path()));
    CMyShellBrowser& browser = host.Browser();
    HWND list = browser.GetListControl();
    SendMessageW(list, LVM_SETCOLUMNWIDTH, 2, 5);  // hidden by being narrow
    const ExportTable table = browser.ListTable();
    ASSERT_GE(table.captions.size(), 3u);
    ASSERT_EQ(table.rows.size(), static_cast<size_t>(ListCount(browser)));
    for (size_t row = 0; row < table.rows.size(); ++row)
        EXPECT_EQ(table.rows[row][0], ItemText(list, static_cast<int>(row))) << "names as the list shows them, in its order";

    TempFolder out;
    const std::wstring csv = out / L"list.csv";
    WriteBytes(csv + L".new", "a user's own file");  // the writer's temporary names never meet it
    ASSERT_TRUE(WriteExportFile(csv, table, ExportType::kCsv));
    const std::string bytes = ReadBytes(csv);
    EXPECT_EQ(bytes.rfind("\xEF\xBB\xBF\"", 0), 0u);
    EXPECT_NE(bytes.find("\"semi;colon & co.txt\""), std::string::npos);
    const std::string hiddenCaption(table.captions[2].begin(), table.captions[2].end());
    EXPECT_EQ(bytes.substr(0, bytes.find('\r')).find(hiddenCaption), std::string::npos) << "a narrow column is left out";
    EXPECT_EQ(ReadBytes(csv + L".new"), "a user's own file");
    EXPECT_FALSE(AnyFileMatches(out / L"*.tmp")) << "no temporary file left behind";

    SetFileAttributesW(csv.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_FALSE(WriteExportFile(csv, table, ExportType::kHtml)) << "a read-only target is not replaced";
    EXPECT_EQ(ReadBytes(csv), bytes);
    EXPECT_FALSE(AnyFileMatches(out / L"*.tmp"));
    SetFileAttributesW(csv.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_FALSE(WriteExportFile(out / L"no\\such\\folder.txt", table, ExportType::kText));
}

// A name typed without its extension names an existing file once the type's extension is
// added: the export asks about that file, and "No" leaves it as it was.
TEST(ListExport, AnExistingFileIsReplacedOnlyAfterAQuestion) {
    ViewHost host(1);
    TempFolder out;
    WriteBytes(out / L"list.txt", "the user's list");
    Settings().PutInt(L"List", L"ExportIndex", 1);
    const ExportTable table{{L"Name"}, {100}, {{L"a.txt"}}};
    std::jthread user([&](std::stop_token stop) {
        int shown = 0;
        while (!stop.stop_requested() && shown < 2) {
            if (HWND dialog = FindWindowW(L"#32770", L"Export zu TXT,CSV,HTML oder XLS "); dialog && IsWindowVisible(dialog)) {
                Sleep(200);
                const std::wstring typed = out / L"list";
                SetDlgItemTextW(dialog, 0x47c, typed.c_str());  // the file name box
                SetDlgItemTextW(dialog, 0x480, typed.c_str());
                PostMessageW(dialog, WM_COMMAND, shown == 0 ? IDOK : IDCANCEL, 0);
                ++shown;
                while (IsWindow(dialog) && !stop.stop_requested()) Sleep(20);
            }
            Sleep(20);
        }
    });
    MessageAnswer no(IDNO);
    EXPECT_FALSE(ExportWithDialog(host.hwnd(), table));
    EXPECT_EQ(no.Count(), 1) << "asked about list.txt";
    EXPECT_NE(no.Text().find(L"list.txt"), std::wstring::npos);
    EXPECT_EQ(ReadBytes(out / L"list.txt"), "the user's list");
}

TEST(FolderSizes, MeasuredFoldersShowInTheSizeColumn) {
    ViewHost host(1);
    TempFolder files;
    CreateDirectoryW((files / L"big").c_str(), nullptr);
    CreateDirectoryW((files / L"big\\inner").c_str(), nullptr);
    CreateDirectoryW((files / L"empty").c_str(), nullptr);
    for (const wchar_t* name : {L"big\\a", L"big\\b", L"big\\c"}) WriteBytes(files / name, std::string(1000, 'x'));
    WriteBytes(files / L"big\\inner\\d", std::string(500, 'x'));
    WriteBytes(files / L"loose.txt", "x");
    FolderSizeSettings& settings = FolderSizeOptions();
    const FolderSizeSettings kept = settings;
    settings = {};
    settings.fld_size = 1;
    settings.block_no_focus = 0;
    ASSERT_TRUE(host.Panel().NavigateToText(files.path()));
    CMyShellBrowser& browser = host.Browser();
    HWND list = browser.GetListControl();
    ASSERT_TRUE(PumpUntil([&] { return !browser.FolderSizesRunning(); }));
    Pump(50);
    const int big = RowOf(browser, L"big"), empty = RowOf(browser, L"empty");
    ASSERT_GE(big, 0);
    ASSERT_GE(empty, 0);
    const std::wstring bigText = CellText(list, big, 1), emptyText = CellText(list, empty, 1);
    EXPECT_NE(bigText.find(L"500"), std::wstring::npos) << "3,500 bytes: " << std::string(bigText.begin(), bigText.end());
    EXPECT_NE(bigText.find(L"100 %  4 / 1"), std::wstring::npos);
    EXPECT_EQ(emptyText, L"0  0 %  0 / 0");
    EXPECT_NE(CellText(list, RowOf(browser, L"loose.txt"), 1), L"") << "files keep the view's own size";
    EXPECT_EQ(browser.FoldersMeasured(), 2);
    // What the list shows is what export and print get.
    const ExportTable table = browser.ListTable();
    const auto shown = std::find(table.columns.begin(), table.columns.end(), 1);
    ASSERT_NE(shown, table.columns.end());
    EXPECT_EQ(table.rows[static_cast<size_t>(big)][static_cast<size_t>(shown - table.columns.begin())], bigText);
    // And the column is wide enough to show it whole.
    HDC dc = GetDC(list);
    HGDIOBJ old = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
    SIZE extent{};
    GetTextExtentPoint32W(dc, bigText.c_str(), static_cast<int>(bigText.size()), &extent);
    SelectObject(dc, old);
    ReleaseDC(list, dc);
    EXPECT_GT(ListView_GetColumnWidth(list, 1), extent.cx);

    // A folder made from outside is measured on its own; the others keep their sizes.
    CreateDirectoryW((files / L"late").c_str(), nullptr);
    WriteBytes(files / L"late\\e", std::string(700, 'x'));
    ASSERT_TRUE(PumpUntil([&] { return RowOf(browser, L"late") >= 0 &&
                                       CellText(list, RowOf(browser, L"late"), 1).find(L"700") != std::wstring::npos; }));
    EXPECT_EQ(browser.FoldersMeasured(), 1);
    EXPECT_EQ(CellText(list, RowOf(browser, L"big"), 1).substr(0, 5), bigText.substr(0, 5));

    settings.fld_size = 0;
    ASSERT_TRUE(host.Panel().NavigateToText(files / L"big"));
    EXPECT_FALSE(browser.FolderSizesRunning());
    settings = kept;
}

// The walkers share the sub-folders: each is measured, with its own totals, and a stop in the
// middle of a walk ends it at once without telling it done.
TEST(FolderSizes, TheWorkerMeasuresEverySubFolderAndStops) {
    TempFolder files;
    for (int i = 0; i < 40; ++i) {
        const std::wstring name = L"d" + std::to_wstring(i);
        CreateDirectoryW((files / name).c_str(), nullptr);
        CreateDirectoryW((files / (name + L"\\inner")).c_str(), nullptr);
        WriteBytes(files / (name + L"\\inner\\f"), std::string(static_cast<size_t>(i) + 1, 'x'));
    }
    FolderSizeWorker worker;
    worker.Start(files.path(), true, nullptr, 0);
    ASSERT_TRUE(PumpUntil([&] { return !worker.Running(); }));
    for (int i = 0; i < 40; ++i) {
        FolderTotals totals;
        ASSERT_TRUE(worker.Cache().Find(L"D" + std::to_wstring(i), totals)) << i;
        EXPECT_EQ(totals.bytes, static_cast<uint64_t>(i) + 1) << i;
        EXPECT_EQ(totals.files, 1u) << i;
        EXPECT_EQ(totals.folders, 1u) << i;
    }

    FolderSizeWorker paused;
    paused.SetPaused(true);  // held inside the walk until stopped
    paused.Start(files.path(), true, nullptr, 0);
    Pump(50);
    paused.Stop();
    EXPECT_FALSE(paused.Running());
    FolderTotals totals;
    EXPECT_FALSE(paused.Cache().Find(L"D0", totals)) << "no walk went on while paused";
}

// A folder that takes long to read (a dropped network drive): the first look into it waits
// until the test lets it go.
class StuckLister final : public IDirectoryLister {
public:
    std::unique_ptr<IDirectoryListing> Open(const std::wstring&) override {
        SetEvent(entered.get());
        WaitForSingleObject(release.get(), 10000);
        SetEvent(left.get());
        return nullptr;
    }
    win::UniqueHandle entered{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    win::UniqueHandle release{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    win::UniqueHandle left{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

TEST(FolderSizes, AStuckWalkIsLeftBehindWithoutHoldingTheWindow) {
    StuckLister lister;
    {
        FolderSizeWorker worker(lister);
        worker.Cache().Store(L"OLD", FolderTotals{});
        worker.Start(L"Z:\\stuck", true, nullptr, 0);
        ASSERT_EQ(WaitForSingleObject(lister.entered.get(), 5000), WAIT_OBJECT_0);
        const int before = win::WorkerThread::LeftBehind();
        worker.Stop();
        // A stop that waited for the walk would come back only after the lister let it go.
        EXPECT_EQ(WaitForSingleObject(lister.left.get(), 0), static_cast<DWORD>(WAIT_TIMEOUT));
        EXPECT_EQ(win::WorkerThread::LeftBehind(), before + 1);
        FolderTotals totals;
        EXPECT_FALSE(worker.Cache().Find(L"OLD", totals)) << "a fresh cache: the stuck walk writes elsewhere";
        EXPECT_FALSE(worker.Running());
    }
    SetEvent(lister.release.get());  // the walk left behind ends on its own
    EXPECT_EQ(WaitForSingleObject(lister.left.get(), 5000), WAIT_OBJECT_0);
}

}  // namespace
}  // namespace tessel::testing
