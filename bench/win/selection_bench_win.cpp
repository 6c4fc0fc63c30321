// Selection benchmark in a folder of 100,000 files: select all and the status that follows, a
// click that clears the selection, clearing a filter, and Back restoring a selection of 20,000,
// Tessel's browser view beside a bare host of the same shell view where that is the floor. Then
// stopping a worker stuck in a slow file system.
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
#include "features/folder_walk.h"
#include "panel/view_panel_win.h"
#include "win/shell_item_win.h"

using namespace tessel;
using namespace tessel::bench;

namespace {

HWND ListOf(HWND host) {
    HWND view = FindWindowExW(host, nullptr, L"SHELLDLL_DefView", nullptr);
    return FindWindowExW(view ? view : host, nullptr, L"SysListView32", nullptr);
}

// What Ctrl+A, or a click on an empty place, does to the list.
void SelectAll(HWND list, bool selected) { ListView_SetItemState(list, -1, selected ? LVIS_SELECTED : 0, LVIS_SELECTED); }

// What a click on one row does to the list: every other row deselected, the row selected and focused.
void ClickRow(HWND list, int row) {
    SelectAll(list, false);
    ListView_SetItemState(list, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
}

// Serves the queue until the status text differs from `before`; answers the time taken and the
// longest single step that was not painting.
std::pair<double, double> UntilStatusChanges(CMyShellBrowser& browser, const std::wstring& before) {
    const double start = Now();
    double longest = 0;
    while (browser.StatusText() == before && Now() - start < 60000) {
        longest = std::max(longest, DrainUnpainted());
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 2, QS_ALLINPUT);
    }
    return {Now() - start, longest};
}

void Settle() {  // the status of what came before is worked out and shown
    const double start = Now();
    while (Now() - start < 400) {
        Drain();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    }
}

// Wine's list tells its parent of every row whose state changes: selecting or clearing 100,000
// rows takes it seconds, in the bare host as in Tessel. Tessel's own work is what follows once
// the list is done: the status, worked out in short steps.
template <typename Change>
void BenchSelectionChange(CMyShellBrowser& browser, HWND bareList, const char* what, const char* statusFigure,
                          const char* blockFigure, bool startSelected, Change change) {
    HWND list = browser.GetListControl();
    std::vector<double> own, bare, status;
    double longest = 0;
    for (int run = 0; run < 3; ++run) {
        SelectAll(list, startSelected);
        Settle();
        const std::wstring before = browser.StatusText();
        const double start = Now();
        change(list);
        own.push_back(Now() - start);
        const auto [took, step] = UntilStatusChanges(browser, before);
        status.push_back(took);
        longest = std::max(longest, step);
        SelectAll(bareList, startSelected);
        Drain();
        const double bareStart = Now();
        change(bareList);
        bare.push_back(Now() - bareStart);
    }
    std::printf("%s of 100000: the list takes %.0f ms in Tessel, %.0f ms in the bare host; then the status follows in "
                "%.0f ms, longest GUI step meanwhile %.1f ms (medians of 3)\n",
                what, Median(own), Median(bare), Median(status), longest);
    std::printf("%s: %.0f\n", statusFigure, Median(status));
    if (blockFigure) std::printf("%s: %.1f\n", blockFigure, longest);
    std::fflush(stdout);
}

void BenchFilterClear(CPloder& panel, CMyShellBrowser& browser, PCIDLIST_ABSOLUTE empty, PCIDLIST_ABSOLUTE folder) {
    HWND box = GetDlgItem(panel.hwnd(), kFilterBoxId);
    if (!panel.Filter()->switches.show_filter) panel.ToggleFilterBox();
    std::vector<double> clear, listing;
    for (int run = 0; run < 3; ++run) {
        SetWindowTextW(box, L"f0999*");
        panel.ApplyFilterText();
        Drain();
        double start = Now();
        SetWindowTextW(box, L"");
        panel.ApplyFilterText();
        UpdateWindow(panel.hwnd());
        Drain();
        clear.push_back(Now() - start);
        browser.NavigateTo(win::ClonePidl(empty), false, true);
        Drain();
        start = Now();
        browser.NavigateTo(win::ClonePidl(folder), false, true);
        UpdateWindow(panel.hwnd());
        Drain();
        listing.push_back(Now() - start);
    }
    panel.ToggleFilterBox();
    std::printf("clearing a filter in 100000 files: %.0f ms, listing the folder unfiltered %.0f ms (medians of 3)\n",
                Median(clear), Median(listing));
    std::printf("filter-clear-100000-ratio: %.2f\n", Median(clear) / Median(listing));
    std::fflush(stdout);
}

// Back into 20,000 files all selected when left, against Back with nothing to restore and the
// list's own selecting of every row: what is left is Tessel's own work of the restore.
void BenchBackRestore(CMyShellBrowser& browser, PCIDLIST_ABSOLUTE empty, const std::wstring& root) {
    win::UniquePidl folder = win::PidlFromPath(MakeFolder(root, 20000));
    std::vector<double> restoring, plain, listing;
    int restored = 0;
    for (int run = 0; run < 3; ++run) {
        for (bool remember : {true, false}) {
            ScopedOption option(Options().merke_markierte, remember ? 1 : 0);
            browser.NavigateTo(win::ClonePidl(folder.get()), false, true);
            SelectAll(browser.GetListControl(), true);
            Drain();
            browser.NavigateTo(win::ClonePidl(empty), false, true);
            Drain();
            const double start = Now();
            browser.GoBack();
            UpdateWindow(browser.hwnd());
            Drain();
            (remember ? restoring : plain).push_back(Now() - start);
            if (remember) restored = ListView_GetSelectedCount(browser.GetListControl());
        }
        SelectAll(browser.GetListControl(), false);
        Drain();
        const double start = Now();
        SelectAll(browser.GetListControl(), true);
        listing.push_back(Now() - start);
    }
    const double own = Median(restoring) - Median(plain) - Median(listing);
    std::printf("back into 20000 files: %.0f ms restoring all of them selected (%d restored), %.0f ms with nothing to "
                "restore; the list selects them all in %.0f ms itself (medians of 3)\n",
                Median(restoring), restored, Median(plain), Median(listing));
    std::printf("back-restore-selection-20000-ms: %.0f\n", std::max(0.0, own));
    std::fflush(stdout);
}

// A file system that answers after seconds (a dropped network drive); it outlives the walks
// left behind in it.
class SlowLister final : public IDirectoryLister {
public:
    std::unique_ptr<IDirectoryListing> Open(const std::wstring&) override {
        Sleep(3000);
        return nullptr;
    }
};

// The GUI thread stopping a folder-size walk that sits in such a file system.
void BenchWorkerStop() {
    static SlowLister slow;
    double longest = 0;
    for (int run = 0; run < 5; ++run) {
        FolderSizeWorker worker(slow);
        worker.Start(L"Z:\\slow", true, nullptr, 0);
        Sleep(50);  // inside the slow listing
        const double start = Now();
        worker.Stop();
        longest = std::max(longest, Now() - start);
    }
    std::printf("stopping a folder-size walk stuck in a slow file system: the GUI thread waits at most %.1f ms "
                "(5 stops)\n", longest);
    std::printf("worker-stop-ui-max-block-ms: %.1f\n", longest);
    std::fflush(stdout);
}

}  // namespace

// The folders are made under the folder named on the command line, else under the temporary folder.
int wmain(int argc, wchar_t** argv) {
    const std::wstring root = StartBench(argc, argv, L"");
    CreateDirectoryW((root + L"\\empty").c_str(), nullptr);
    HWND frame = MakeBenchFrame(1040, 680);
    {
        SideBySide views(frame, root);
        CPloder& panel = views.panel;
        bench::BareHost& bare = views.bare;
        CMyShellBrowser& browser = views.Browser();
        win::UniquePidl empty = win::PidlFromPath(root + L"\\empty");
        win::UniquePidl folder = win::PidlFromPath(MakeFolder(root, 100000));
        browser.NavigateTo(win::ClonePidl(folder.get()), false, true);
        bare.Navigate(folder.get());
        Drain();
        HWND bareList = ListOf(bare.hwnd());
        const std::wstring only = argc > 2 ? argv[2] : L"";  // "back" or "stop": that part alone
        if (only.empty()) {
            BenchSelectionChange(browser, bareList, "select all", "select-all-status-100000-ms",
                                 "select-all-100000-ui-max-block-ms",
                                 false, [](HWND list) { SelectAll(list, true); });
            BenchSelectionChange(browser, bareList, "a click clearing a selection", "clear-selection-100000-ms",
                                 nullptr, true, [](HWND list) { ClickRow(list, 1); });
            BenchFilterClear(panel, browser, empty.get(), folder.get());
        }
        if (only.empty() || only == L"back") BenchBackRestore(browser, empty.get(), root);
        if (only.empty() || only == L"stop") BenchWorkerStop();
    }
    DestroyWindow(frame);
    DestroySettings();
    OleUninitialize();
    return 0;
}
