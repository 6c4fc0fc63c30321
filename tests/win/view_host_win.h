#pragma once
// A top-level window holding one or two T-View panels, with settings of their own in a
// temporary folder, for tests that drive the browser views directly.
#include <windows.h>

#include <memory>
#include <string>

#include "support_win.h"
#include "panel/view_panel_win.h"
#include "win/com_ptr_win.h"

namespace tessel::testing {

class ViewHost {
public:
    explicit ViewHost(int panels = 1);
    ~ViewHost();
    CPloder& Panel(int index = 0) { return *panels_[index]; }
    CMyShellBrowser& Browser(int index = 0) { return *panels_[index]->Active(); }
    const TempFolder& Folder() const { return settingsFolder_; }
    HWND hwnd() const { return frame_; }

private:
    TempFolder settingsFolder_;
    HWND frame_ = nullptr;
    std::unique_ptr<CPloder> panels_[2];
};

// Serves the message queue for a while, so timers, posted results and painting happen.
void Pump(DWORD milliseconds);
// Pumps until the condition holds or the time is up; answers the condition.
template <typename Condition>
bool PumpUntil(Condition condition, DWORD timeoutMs = 5000) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > timeoutMs) return false;
        Pump(10);
    }
    return true;
}
int ListCount(CMyShellBrowser& browser);
int RowOf(CMyShellBrowser& browser, const std::wstring& name);  // -1 when not listed
// Selects the list entry with this name (and nothing else); false when it is not listed.
bool SelectByName(CMyShellBrowser& browser, const std::wstring& name);
std::wstring SelectedName(CMyShellBrowser& browser);

// The shell's data object for one file or folder, as a drag from a folder view carries it.
win::ComPtr<IDataObject> ShellDataOf(const std::wstring& path);

}  // namespace tessel::testing
