// Shell context menus fill and draw their sub-menus from the owner's menu messages: those reach
// the shell menu while the popup is shown, and only then.
#include <windows.h>
#include <shobjidl.h>

#include <gtest/gtest.h>

#include <vector>

#include "win/shell_menu_win.h"
#include "win/subclass_win.h"

namespace tessel::testing {
namespace {

// A shell menu that keeps the messages it is handed and closes the popup on the first one.
class RecordingMenu : public IContextMenu3 {
public:
    std::vector<UINT> messages;
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override {
        if (riid == IID_IUnknown || riid == IID_IContextMenu || riid == IID_IContextMenu2 || riid == IID_IContextMenu3) {
            *object = static_cast<IContextMenu3*>(this);
            return S_OK;
        }
        *object = nullptr;
        return E_NOINTERFACE;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return 2; }
    STDMETHODIMP_(ULONG) Release() override { return 1; }
    STDMETHODIMP QueryContextMenu(HMENU, UINT, UINT, UINT, UINT) override { return S_OK; }
    STDMETHODIMP InvokeCommand(CMINVOKECOMMANDINFO*) override { return S_OK; }
    STDMETHODIMP GetCommandString(UINT_PTR, UINT, UINT*, LPSTR, UINT) override { return E_NOTIMPL; }
    STDMETHODIMP HandleMenuMsg(UINT message, WPARAM wParam, LPARAM lParam) override {
        LRESULT ignored;
        return HandleMenuMsg2(message, wParam, lParam, &ignored);
    }
    STDMETHODIMP HandleMenuMsg2(UINT message, WPARAM, LPARAM, LRESULT* result) override {
        messages.push_back(message);
        if (result) *result = 0;
        EndMenu();
        return S_OK;
    }
};

TEST(ShellMenu, TheShellMenuGetsTheMenuMessagesWhileShownOnly) {
    HWND owner = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
    ASSERT_TRUE(owner);
    SetForegroundWindow(owner);
    HMENU popup = CreatePopupMenu();
    HMENU sub = CreatePopupMenu();
    AppendMenuW(popup, MF_POPUP, reinterpret_cast<UINT_PTR>(sub), L"New");
    AppendMenuW(popup, MF_STRING, 1, L"Open");
    // Whatever happens, the popup ends after two seconds.
    SetTimer(nullptr, 0, 2000, [](HWND, UINT, UINT_PTR, DWORD) { EndMenu(); });
    RecordingMenu shell;
    const int subclassed = win::SubclassedCount();
    EXPECT_EQ(win::TrackShellMenu(popup, 0, {10, 10}, owner, &shell), 0u);
    ASSERT_FALSE(shell.messages.empty());
    EXPECT_EQ(shell.messages.front(), static_cast<UINT>(WM_INITMENUPOPUP));
    const size_t seen = shell.messages.size();
    SendMessageW(owner, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(sub), 0);
    EXPECT_EQ(shell.messages.size(), seen) << "nothing reaches it once the popup is gone";
    EXPECT_EQ(win::SubclassedCount(), subclassed);
    DestroyMenu(popup);
    DestroyWindow(owner);
}

}  // namespace
}  // namespace tessel::testing
