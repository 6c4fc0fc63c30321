// Navigation benchmark: Tessel's browser view against a bare host of the same shell view,
// alternating, into folders of 1,000, 10,000 and 100,000 files, also with colours and a filter
// on. Then the folder-size worker on a tree, the export of the largest list, and the status worker in the largest folder with
// almost everything selected, watching how long the GUI thread is held.
#include <windows.h>
#include <commctrl.h>
#include <ole2.h>
#include <shlobj.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "bench_support_win.h"
#include "side_by_side_win.h"
#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "features/folder_size_worker_win.h"
#include "features/list_export_win.h"
#include "features/program_colours_win.h"
#include "nav/address_popup_win.h"
#include "panel/view_panel_win.h"
#include "win/shell_item_win.h"

using namespace tessel;
using namespace tessel::bench;

namespace {

template <typename Navigate>
double TimeNavigation(Navigate navigate, HWND window) {
    const double start = Now();
    navigate();
    UpdateWindow(window);
    Drain();
    return Now() - start;
}

struct Pair {
    std::vector<double> tessel, host;
};

// Alternating navigations of the browser and the bare host from the empty folder into `folder`.
Pair NavigatePairs(CMyShellBrowser& browser, CPloder& panel, bench::BareHost& bare, PCIDLIST_ABSOLUTE empty,
                   PCIDLIST_ABSOLUTE folder, int runs) {
    Pair times;
    for (int run = -1; run < runs; ++run) {  // run -1 warms the caches
        browser.NavigateTo(win::ClonePidl(empty), false, true);
        Drain();
        const double t = TimeNavigation([&] { browser.NavigateTo(win::ClonePidl(folder), false, true); }, panel.hwnd());
        bare.Navigate(empty);
        Drain();
        const double b = TimeNavigation([&] { bare.Navigate(folder); }, bare.hwnd());
        if (run >= 0) {
            times.tessel.push_back(t);
            times.host.push_back(b);
        }
    }
    return times;
}

// Colours of scheme 0 drawn and a filter of every listed file on, then the export of the list.
void BenchListFeatures(CMyShellBrowser& browser, CPloder& panel, bench::BareHost& bare, PCIDLIST_ABSOLUTE empty,
                       const std::wstring& root) {
    win::UniquePidl folder = win::PidlFromPath(MakeFolder(root, 100000));
    Colours().Load(Settings());
    ScopedOption colours(Options().useColor, 1);
    if (!panel.Filter()->switches.show_filter) panel.ToggleFilterBox();
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"*.txt");
    panel.ApplyFilterText();
    const Pair times = NavigatePairs(browser, panel, bare, empty, folder.get(), 5);
    std::printf("navigate into 100000 files with colours and a filter: Tessel %.1f ms, bare host %.1f ms\n",
                Median(times.tessel), Median(times.host));
    std::printf("navigate-100000-colour-filter-ratio: %.2f\n", Median(times.tessel) / Median(times.host));

    browser.NavigateTo(win::ClonePidl(folder.get()), false, true);
    Drain();
    const std::wstring target = root + L"\\export-100000.csv";
    const double start = Now();
    const ExportTable table = browser.ListTable();
    const bool written = WriteExportFile(target, table, ExportType::kCsv);
    const double took = Now() - start;
    std::printf("export of %zu rows to CSV: %.0f ms%s\n", table.rows.size(), took, written ? "" : " (not written)");
    std::printf("export-100000-ms: %.0f\n", took);
    DeleteFileW(target.c_str());
    SetWindowTextW(GetDlgItem(panel.hwnd(), kFilterBoxId), L"");
    panel.ApplyFilterText();
    panel.ToggleFilterBox();
}

// Back then forward between an empty folder and one of 1,000 files, against the same two
// navigations made directly.
void BenchBackForward(CMyShellBrowser& browser, HWND window, PCIDLIST_ABSOLUTE empty, PCIDLIST_ABSOLUTE files) {
    std::vector<double> history, direct;
    for (int run = -1; run < 20; ++run) {  // run -1 warms the caches
        browser.NavigateTo(win::ClonePidl(empty), false, true);
        browser.NavigateTo(win::ClonePidl(files), false, true);
        Drain();
        const double jumps = TimeNavigation([&] {
            browser.GoBack();
            UpdateWindow(window);
            browser.GoForward();
        }, window);
        const double straight = TimeNavigation([&] {
            browser.NavigateTo(win::ClonePidl(empty), false, true);
            UpdateWindow(window);
            browser.NavigateTo(win::ClonePidl(files), false, true);
        }, window);
        if (run >= 0) {
            history.push_back(jumps);
            direct.push_back(straight);
        }
    }
    std::printf("back then forward with 1000 files: %.1f ms, the same two navigations made directly %.1f ms (medians of 20)\n",
                Median(history), Median(direct));
    std::printf("back-forward-1000-ms: %.1f\n", Median(history));
    std::printf("back-forward-1000-ratio: %.2f\n", Median(history) / Median(direct));
}

// The sub-folder popup of a folder with 10,000 sub-folders, read, opened and drawn as a
// segment's arrow opens it.
void BenchPopup(HWND owner, const std::wstring& root) {
    win::UniquePidl folder = win::PidlFromPath(root + L"\\folders-10000");
    if (!folder) return;
    std::vector<double> times;
    size_t count = 0;
    for (int run = -1; run < 5; ++run) {
        const double start = Now();
        CAdressBarPopup popup(folder.get());
        count = popup.Count();
        popup.Open(owner, {40, 40});
        UpdateWindow(popup.Window());
        if (run >= 0) times.push_back(Now() - start);
    }
    std::printf("sub-folder popup of %zu folders: %.1f ms (median of 5)\n", count, Median(times));
    std::printf("addressbar-popup-10000-ms: %.1f\n", Median(times));
}

// The tree following a navigation twelve levels deep, every level still unread: the desktop is
// filled again, then each level down is read, opened and the folder selected.
void BenchTreeSync(CShellTree2& tree, const std::wstring& root) {
    std::wstring deep = root + L"\\deep";
    for (int level = 1; level <= 12; ++level) deep += L"\\level" + std::to_wstring(level);  // made by the script
    win::UniquePidl folder = win::PidlFromPath(deep);
    std::vector<double> times;
    bool found = false;
    for (int run = -1; run < 9; ++run) {
        TreeView_DeleteAllItems(tree.hwnd());
        Drain();
        const double start = Now();
        found = tree.SyncTo(folder.get());
        UpdateWindow(tree.hwnd());
        if (run >= 0) times.push_back(Now() - start);
    }
    std::printf("tree following a folder 12 levels below the data folder%s: %.1f ms (median of 9)\n",
                found ? "" : " (NOT FOUND)", Median(times));
    std::printf("tree-sync-depth-12-ms: %.1f\n", Median(times));
}

// The system's walk of a tree, as plainly as it can be written: the baseline of the worker.
uint64_t BareWalk(const std::wstring& folder) {
    uint64_t bytes = 0;
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileExW((folder + L"\\*.*").c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr,
                                   FIND_FIRST_EX_LARGE_FETCH);
    if (find == INVALID_HANDLE_VALUE) return 0;
    do {
        if (data.cFileName[0] == L'.' && (!data.cFileName[1] || (data.cFileName[1] == L'.' && !data.cFileName[2])))
            continue;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && !(data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT))
            bytes += BareWalk(folder + L"\\" + data.cFileName);
        else
            bytes += (static_cast<uint64_t>(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
    } while (FindNextFileW(find, &data));
    FindClose(find);
    return bytes;
}

// The folder-size worker of a browser view listing a tree of 100,000 files in 10,000 folders,
// against the bare walk in the same run, alternating; the GUI thread's longest step meanwhile.
void BenchFolderSizes(CMyShellBrowser& browser, const std::wstring& root) {
    const std::wstring tree = root + L"\\tree-100000";
    FolderSizeSettings& settings = FolderSizeOptions();
    std::vector<double> worker, bare;
    double longest = 0;
    for (int run = -1; run < 5; ++run) {
        settings.fld_size = 0;
        browser.NavigateTo(win::PidlFromPath(root + L"\\empty"), false, true);
        Drain();
        settings.fld_size = 1;
        settings.block_no_focus = 0;
        double start = Now();
        browser.NavigateTo(win::PidlFromPath(tree), false, true);
        Drain();  // the navigation's own painting is not the worker's
        do {
            const double step = Drain();
            if (run >= 0) longest = std::max(longest, step);
            MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
        } while (browser.FolderSizesRunning() && Now() - start < 300000);
        const double w = Now() - start;
        start = Now();
        BareWalk(tree);
        const double b = Now() - start;
        if (run >= 0) {
            worker.push_back(w);
            bare.push_back(b);
        }
    }
    settings.fld_size = 0;
    std::printf("folder sizes of 100,000 files in 10,000 folders: worker %.0f ms (navigation included), bare walk %.0f ms, "
                "longest GUI step %.1f ms (medians of 5)\n", Median(worker), Median(bare), longest);
    std::printf("folder-size-walk-ratio: %.2f\n", Median(worker) / Median(bare));
    std::printf("folder-size-ui-max-block-ms: %.1f\n", longest);
}

// The status worker with 99,999 of 100,000 selected, then back and forward and the popup.
int BenchStatusAndHistory(CMyShellBrowser& browser, HWND window, PCIDLIST_ABSOLUTE empty, const std::wstring& root) {
    int status = 0;
    // Everything but the first entry selected: the worker reads each selected name.
    HWND list = browser.GetListControl();
    ListView_SetItemState(list, -1, LVIS_SELECTED, LVIS_SELECTED);
    ListView_SetItemState(list, 0, 0, LVIS_SELECTED);
    Drain();
    const std::wstring before = browser.StatusText();
    browser.RequestStatus();
    double longest = 0;
    const double start = Now();
    while (browser.StatusText() == before && Now() - start < 120000) {
        longest = std::max(longest, Drain());
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
    std::printf("status of 99,999 selected of 100,000: %.0f ms, longest GUI message %.1f ms\n", Now() - start,
                longest);
    std::printf("status-100000-ms: %.0f\n", Now() - start);
    std::printf("status-100000-ui-max-block-ms: %.1f\n", longest);
    status = browser.StatusText() == before ? 1 : 0;

    BenchBackForward(browser, window, empty, win::PidlFromPath(MakeFolder(root, 1000)).get());
    BenchPopup(window, root);
    return status;
}

}  // namespace

// The folders are made under the folder named on the command line (the script makes them from the
// host side, which is much faster), else under the temporary folder. A second argument "tree",
// "popup", "status", "lists" or "sizes" runs only that part.
int wmain(int argc, wchar_t** argv) {
    const std::wstring root = StartBench(argc, argv, L"");
    CreateDirectoryW((root + L"\\empty").c_str(), nullptr);
    HWND frame = MakeBenchFrame(1040, 680);
    int status = 0;
    {
        SideBySide views(frame, root);
        CPloder& panel = views.panel;
        bench::BareHost& bare = views.bare;
        CMyShellBrowser& browser = views.Browser();
        win::UniquePidl empty = win::PidlFromPath(root + L"\\empty");

        const std::wstring only = argc > 2 ? argv[2] : L"";
        for (int files : {1000, 10000, 100000}) {
            if (!only.empty()) break;
            const double madeStart = Now();
            win::UniquePidl folder = win::PidlFromPath(MakeFolder(root, files));
            std::printf("folder of %d files ready in %.0f ms\n", files, Now() - madeStart);
            const int runs = files == 100000 ? 5 : 20;
            const Pair times = NavigatePairs(browser, panel, bare, empty.get(), folder.get(), runs);
            const std::vector<double>& tessel = times.tessel;
            const std::vector<double>& host = times.host;
            std::printf("navigate into %d files: Tessel %.1f ms, bare host %.1f ms (medians of %d)\n", files,
                        Median(tessel), Median(host), runs);
            std::printf("navigate-%d-ms: %.1f\n", files, Median(tessel));
            std::printf("navigate-%d-ratio: %.2f\n", files, Median(tessel) / Median(host));
        }
        if (only.empty() || only == L"sizes") BenchFolderSizes(browser, root);
        if (only.empty() || only == L"lists") BenchListFeatures(browser, panel, bare, empty.get(), root);
        if (only == L"status") browser.NavigateTo(win::PidlFromPath(MakeFolder(root, 100000)), false, true);
        if (only.empty() || only == L"status") status = BenchStatusAndHistory(browser, panel.hwnd(), empty.get(), root);
        if (only == L"popup") BenchPopup(frame, root);
        if (only.empty() || only == L"tree") {
            panel.SetTreeState(1, 3000);
            BenchTreeSync(panel.FolderTree(), root);
            panel.SetTreeState(0, 3000);
        }
    }
    DestroyWindow(frame);
    DestroySettings();
    OleUninitialize();
    return status;
}
