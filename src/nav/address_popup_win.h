#pragma once
// The sub-folder list behind a segment's arrow: the folder's sub-folders as the shell lists
// them (folders only), shown in a small popup window at the segment; choosing one hands it back.
// The list asks for each row only when it draws it, so a folder of ten thousand sub-folders
// opens as fast as one of ten (a menu of that size takes Wine a third of a second to fill).
#include <windows.h>

#include <string>
#include <vector>

#include "win/handles_win.h"

namespace tessel {

class CAdressBarPopup {
public:
    // Reads the sub-folders of `folder` (folders only, hidden ones when the shell shows them).
    explicit CAdressBarPopup(PCIDLIST_ABSOLUTE folder);
    ~CAdressBarPopup();  // closes the window
    CAdressBarPopup(const CAdressBarPopup&) = delete;
    CAdressBarPopup& operator=(const CAdressBarPopup&) = delete;

    size_t Count() const { return children_.size(); }
    const std::wstring& Name(size_t index) const { return names_[index]; }
    win::UniquePidl Child(size_t index) const;  // absolute; none outside the list
    // Makes and shows the window below a screen point; false when there is nothing to list.
    bool Open(HWND owner, POINT screenPoint);
    HWND Window() const { return window_; }
    HWND List() const { return list_; }
    // Opens the window and runs until a folder is chosen (click, Enter) or the list is left
    // (Escape, a click elsewhere); the chosen folder, or none.
    win::UniquePidl Track(HWND owner, POINT screenPoint);

private:
    static LRESULT CALLBACK WindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnNotify(NMHDR* header);
    SIZE WantedSize() const;
    void Finish(int chosen);

    win::UniquePidl folder_;
    std::vector<win::UniquePidl> children_;  // relative to folder_, in the shell's order
    std::vector<std::wstring> names_;
    HWND window_ = nullptr;
    HWND list_ = nullptr;
    bool done_ = false;
    int chosen_ = -1;
};

}  // namespace tessel
