#pragma once
// The address bar's folder tree in its drop-down form: a popup below the bar's tree button
// holding a folder tree opened down to the shown folder. A click or Enter chooses a folder,
// Escape or a click elsewhere leaves it.
#include <windows.h>

#include "nav/folder_tree_win.h"
#include "win/handles_win.h"

namespace tessel {

class CAdressTreePopup {
public:
    CAdressTreePopup() = default;
    ~CAdressTreePopup();  // closes the window
    CAdressTreePopup(const CAdressTreePopup&) = delete;
    CAdressTreePopup& operator=(const CAdressTreePopup&) = delete;

    // Makes and shows the window at a screen rectangle's lower left, opened down to `folder`.
    bool Open(HWND owner, RECT below, PCIDLIST_ABSOLUTE folder);
    HWND Window() const { return window_; }
    CShellTree2& Tree() { return tree_; }
    // Opens the window and runs until a folder is chosen or the tree is left; the chosen folder.
    win::UniquePidl Track(HWND owner, RECT below, PCIDLIST_ABSOLUTE folder);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void Finish(PCIDLIST_ABSOLUTE chosen);

    CShellTree2 tree_;
    HWND window_ = nullptr;
    bool done_ = false;
    win::UniquePidl chosen_;
};

}  // namespace tessel
