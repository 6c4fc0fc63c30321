#pragma once
// The bare host of the navigation benchmark: the shell's folder view in a window with the
// least a browser must do, and nothing of Tessel's.
#include <windows.h>
#include <shlobj.h>

namespace tessel::bench {

class BareHost : public IShellBrowser {
public:
    explicit BareHost(HWND parent);
    ~BareHost();
    bool Navigate(PCIDLIST_ABSOLUTE folder);
    HWND hwnd() const { return window_; }

    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }  // lives on the stack of the benchmark
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP GetWindow(HWND* window) override {
        *window = window_;
        return S_OK;
    }
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP InsertMenusSB(HMENU, LPOLEMENUGROUPWIDTHS) override { return E_NOTIMPL; }
    STDMETHODIMP SetMenuSB(HMENU, HOLEMENU, HWND) override { return E_NOTIMPL; }
    STDMETHODIMP RemoveMenusSB(HMENU) override { return E_NOTIMPL; }
    STDMETHODIMP SetStatusTextSB(LPCWSTR) override { return S_OK; }
    STDMETHODIMP EnableModelessSB(BOOL) override { return S_OK; }
    STDMETHODIMP TranslateAcceleratorSB(MSG*, WORD) override { return S_FALSE; }
    STDMETHODIMP BrowseObject(PCUIDLIST_RELATIVE, UINT) override { return E_NOTIMPL; }
    STDMETHODIMP GetViewStateStream(DWORD, IStream**) override { return E_FAIL; }
    STDMETHODIMP GetControlWindow(UINT, HWND*) override { return E_NOTIMPL; }
    STDMETHODIMP SendControlMsg(UINT, UINT, WPARAM, LPARAM, LRESULT*) override { return E_NOTIMPL; }
    STDMETHODIMP QueryActiveShellView(IShellView** view) override;
    STDMETHODIMP OnViewWindowActive(IShellView*) override { return S_OK; }
    STDMETHODIMP SetToolbarItems(LPTBBUTTONSB, UINT, UINT) override { return S_OK; }

private:
    static LRESULT CALLBACK Procedure(HWND, UINT, WPARAM, LPARAM);
    HWND window_ = nullptr;
    IShellView* view_ = nullptr;
    HWND viewWindow_ = nullptr;
};

}  // namespace tessel::bench
