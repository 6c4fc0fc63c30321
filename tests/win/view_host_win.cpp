#include "view_host_win.h"

#include <commctrl.h>
#include <shlobj.h>

#include "core/general_options.h"
#include "core/settings_store_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {

ViewHost::ViewHost(int panels) {
    WriteBytes(settingsFolder_ / L"Tessel.ini", "\xFF\xFE");
    CreateSettings(settingsFolder_ / L"Tessel.exe");
    Options() = GeneralOptions{};
    Options().audio_click = 0;
    WNDCLASSW wc{};
    wc.lpfnWndProc = DefWindowProcW;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = L"TesselTestHost";
    RegisterClassW(&wc);
    frame_ = CreateWindowExW(0, L"TesselTestHost", L"host", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, 0, 0, 1000, 700,
                             nullptr, nullptr, GetModuleHandleW(nullptr), nullptr);
    ShowWindow(frame_, SW_SHOW);
    for (int i = 0; i < panels; ++i) {
        panels_[i] = std::make_unique<CPloder>(i);
        panels_[i]->Create(frame_);
        SetWindowPos(panels_[i]->hwnd(), nullptr, i * 500, 0, 500, 650, SWP_NOZORDER);
        panels_[i]->SetPeers([this, panels](int index) { return index < panels ? panels_[index].get() : nullptr; });
    }
}

ViewHost::~ViewHost() {
    for (auto& panel : panels_) panel.reset();
    DestroyWindow(frame_);
    Pump(20);
    DestroySettings();
}

void Pump(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    do {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 5, QS_ALLINPUT);
    } while (GetTickCount() - start < milliseconds);
}

int ListCount(CMyShellBrowser& browser) {
    HWND list = browser.GetListControl();
    return list ? static_cast<int>(SendMessageW(list, LVM_GETITEMCOUNT, 0, 0)) : -1;
}

int RowOf(CMyShellBrowser& browser, const std::wstring& name) {
    LVFINDINFOW find{LVFI_STRING, name.c_str()};
    return static_cast<int>(SendMessageW(browser.GetListControl(), LVM_FINDITEMW, static_cast<WPARAM>(-1),
                                         reinterpret_cast<LPARAM>(&find)));
}

bool SelectByName(CMyShellBrowser& browser, const std::wstring& name) {
    HWND list = browser.GetListControl();
    const int index = RowOf(browser, name);
    if (index < 0) return false;
    ListView_SetItemState(list, -1, 0, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_SetItemState(list, index, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return true;
}

std::wstring SelectedName(CMyShellBrowser& browser) {
    HWND list = browser.GetListControl();
    const int index = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
    if (index < 0) return {};
    wchar_t text[MAX_PATH] = {};
    ListView_GetItemText(list, index, 0, text, MAX_PATH);
    return text;
}

win::ComPtr<IDataObject> ShellDataOf(const std::wstring& path) {
    win::UniquePidl pidl = win::PidlFromPath(path);
    win::ComPtr<IShellFolder> parent;
    PCUITEMID_CHILD last = nullptr;
    win::ComPtr<IDataObject> data;
    if (pidl && SUCCEEDED(SHBindToParent(pidl.get(), IID_IShellFolder, parent.put_void(), &last)))
        parent->GetUIObjectOf(nullptr, 1, &last, IID_IDataObject, nullptr, data.put_void());
    return data;
}

}  // namespace tessel::testing
