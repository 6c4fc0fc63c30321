// The directory watcher and the view that follows changes made by other programs.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <vector>

#include "view/dir_change_records.h"
#include "view/dir_watch_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

constexpr UINT kChangeMessage = WM_APP + 7;

// Runs a command line in another process, as another program changes a folder.
void RunElsewhere(const std::wstring& command) {
    std::wstring line = L"cmd.exe /c " + command;
    STARTUPINFOW startup{sizeof(startup)};
    startup.dwFlags = STARTF_USESHOWWINDOW;
    PROCESS_INFORMATION process{};
    ASSERT_TRUE(CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr, nullptr,
                               &startup, &process));
    WaitForSingleObject(process.hProcess, 20000);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

// A message-only window that keeps the changes it is sent.
class ChangeSink {
public:
    ChangeSink() {
        WNDCLASSW wc{};
        wc.lpfnWndProc = &Proc;
        wc.hInstance = GetModuleHandleW(nullptr);
        wc.lpszClassName = L"TesselChangeSink";
        RegisterClassW(&wc);
        window_ = CreateWindowExW(0, wc.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, wc.hInstance, nullptr);
        SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    }
    ~ChangeSink() { DestroyWindow(window_); }
    HWND hwnd() const { return window_; }
    std::vector<DirChange> changes;

private:
    static LRESULT CALLBACK Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        auto* self = reinterpret_cast<ChangeSink*>(GetWindowLongPtrW(window, GWLP_USERDATA));
        if (message == kChangeMessage && self) {
            self->changes.push_back(*reinterpret_cast<const DirChange*>(wParam));
            return 0;
        }
        return DefWindowProcW(window, message, wParam, lParam);
    }
    HWND window_ = nullptr;
};

TEST(DirWatch, ReportsRenamesAndOnlyTheLatestFolder) {
    TempFolder first, second;
    WriteBytes(first / L"old.txt", "x");
    ChangeSink sink;
    CMyReadDirectoryChanges watcher;
    ASSERT_EQ(watcher.Start(first.path(), sink.hwnd(), kChangeMessage, 0), 1);
    ASSERT_TRUE(PumpUntil([&] { return watcher.Running(); }));
    Pump(50);
    ASSERT_TRUE(MoveFileW((first / L"old.txt").c_str(), (first / L"new.txt").c_str()));
    ASSERT_TRUE(PumpUntil([&] { return sink.changes.size() >= 2; }));
    EXPECT_EQ(sink.changes[0].action, static_cast<uint32_t>(kActionRenamedOld));
    EXPECT_EQ(sink.changes[1].action, static_cast<uint32_t>(kActionRenamedNew));
    EXPECT_EQ(sink.changes[1].oldName, L"old.txt");
    EXPECT_EQ(LowerCase(sink.changes[1].fullPath), LowerCase(first / L"new.txt"));

    // A new start replaces the watch at once: the first folder is no longer heard.
    ASSERT_EQ(watcher.Start(second.path(), sink.hwnd(), kChangeMessage, 0), 1);
    Pump(50);
    sink.changes.clear();
    WriteBytes(first / L"unheard.txt", "x");
    WriteBytes(second / L"heard.txt", "x");
    ASSERT_TRUE(PumpUntil([&] { return !sink.changes.empty(); }));
    Pump(100);
    for (const DirChange& change : sink.changes) EXPECT_EQ(change.name, L"heard.txt");

    watcher.Stop();
    EXPECT_FALSE(watcher.Running());
    EXPECT_EQ(watcher.Start(first / L"new.txt", sink.hwnd(), kChangeMessage, 0), 1);
    EXPECT_FALSE(watcher.Running()) << "a file is not watched";
}

// The view lists files another process makes, keeping the selection; a burst of changes is
// listed a few times, not once per change.
TEST(DirWatch, TheViewFollowsAnotherProgramsChanges) {
    if (!ShellMissesOutsideChanges()) GTEST_SKIP() << "the shell reports outside changes itself";
    TempFolder files;
    WriteBytes(files / L"a.txt", "a");
    WriteBytes(files / L"b.txt", "b");
    ViewHost host;
    ASSERT_TRUE(host.Panel().NavigateToText(files.path()));
    CMyShellBrowser& browser = host.Browser();
    ASSERT_EQ(ListCount(browser), 2);
    ASSERT_TRUE(SelectByName(browser, L"b.txt"));
    Pump(100);

    RunElsewhere(L"mkdir \"" + (files / L"made elsewhere") + L"\" && echo x> \"" + (files / L"c.txt") + L"\"");
    EXPECT_TRUE(PumpUntil([&] { return ListCount(browser) == 4; })) << ListCount(browser);
    EXPECT_EQ(SelectedName(browser), L"b.txt");

    const int follows = browser.DiskFollows();
    RunElsewhere(L"for /L %i in (1,1,300) do @echo x> \"" + files.path() + L"\\burst%i.txt\"");
    EXPECT_TRUE(PumpUntil([&] { return ListCount(browser) == 304; }, 15000)) << ListCount(browser);
    EXPECT_EQ(SelectedName(browser), L"b.txt");
    EXPECT_LT(browser.DiskFollows() - follows, 30) << "300 changes are listed a few times";
    HWND list = browser.GetListControl();
    ListView_EnsureVisible(list, 200, FALSE);
    const int top = ListView_GetTopIndex(list);
    ASSERT_GT(top, 100);
    RunElsewhere(L"del \"" + (files / L"a.txt") + L"\"");
    EXPECT_TRUE(PumpUntil([&] { return ListCount(browser) == 303; })) << ListCount(browser);
    EXPECT_NEAR(ListView_GetTopIndex(browser.GetListControl()), top, 1) << "the list stays where it was scrolled to";

    // A hidden view waits until it shows.
    Pump(2200);  // the burst is over: the next change is due at once
    browser.SetActive(false);
    const int hiddenFollows = browser.DiskFollows();
    RunElsewhere(L"del \"" + (files / L"b.txt") + L"\"");
    Pump(800);
    EXPECT_EQ(browser.DiskFollows(), hiddenFollows);
    EXPECT_EQ(ListCount(browser), 303);
    browser.SetActive(true);
    EXPECT_EQ(ListCount(browser), 302) << "listed again as it shows";
}

}  // namespace
}  // namespace tessel::testing
