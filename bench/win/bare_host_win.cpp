#include "bare_host_win.h"

namespace tessel::bench {

BareHost::BareHost(HWND parent) {
    WNDCLASSW wc{};
    wc.lpfnWndProc = Procedure;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.lpszClassName = L"TesselBareHost";
    RegisterClassW(&wc);
    window_ = CreateWindowExW(0, L"TesselBareHost", L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0, 500, 600,
                              parent, nullptr, GetModuleHandleW(nullptr), this);
}

BareHost::~BareHost() {
    if (view_) {
        view_->DestroyViewWindow();
        view_->Release();
    }
    DestroyWindow(window_);
}

LRESULT CALLBACK BareHost::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    auto* self = reinterpret_cast<BareHost*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (message == WM_USER + 7 && self) return reinterpret_cast<LRESULT>(static_cast<IShellBrowser*>(self));
    return DefWindowProcW(window, message, wParam, lParam);
}

STDMETHODIMP BareHost::QueryInterface(REFIID riid, void** object) {
    if (riid == IID_IUnknown || riid == IID_IOleWindow || riid == IID_IShellBrowser) {
        *object = static_cast<IShellBrowser*>(this);
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP BareHost::QueryActiveShellView(IShellView** view) {
    *view = view_;
    if (view_) view_->AddRef();
    return view_ ? S_OK : E_FAIL;
}

bool BareHost::Navigate(PCIDLIST_ABSOLUTE folderList) {
    IShellFolder* desktop = nullptr;
    IShellFolder* folder = nullptr;
    SHGetDesktopFolder(&desktop);
    HRESULT hr = desktop->BindToObject(folderList, nullptr, IID_IShellFolder, reinterpret_cast<void**>(&folder));
    desktop->Release();
    if (FAILED(hr)) return false;
    IShellView* view = nullptr;
    hr = folder->CreateViewObject(window_, IID_IShellView, reinterpret_cast<void**>(&view));
    folder->Release();
    if (FAILED(hr)) return false;
    FOLDERSETTINGS settings{FVM_DETAILS, FWF_SHOWSELALWAYS};
    RECT client;
    GetClientRect(window_, &client);
    HWND viewWindow = nullptr;
    if (FAILED(view->CreateViewWindow(view_, &settings, this, &client, &viewWindow))) {
        view->Release();
        return false;
    }
    if (view_) {
        view_->DestroyViewWindow();
        view_->Release();
    }
    view_ = view;
    viewWindow_ = viewWindow;
    view_->UIActivate(SVUIA_ACTIVATE_FOCUS);
    return true;
}

}  // namespace tessel::bench
