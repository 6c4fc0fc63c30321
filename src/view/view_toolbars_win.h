#pragma once
// The three toolbars of a T-View, made from the toolbar resources and carried by the panel's
// status bar. Their commands and tooltips go to the panel.
#include <windows.h>
#include <commctrl.h>

#include <vector>

#include "view/toolbar_choice_win.h"

namespace tessel {

// Command ids of a toolbar resource; 0 stands for a separator.
std::vector<int> LoadToolbarCommands(int resourceId);

class ViewToolbars {
public:
    ViewToolbars() = default;
    ~ViewToolbars();
    ViewToolbars(const ViewToolbars&) = delete;
    ViewToolbars& operator=(const ViewToolbars&) = delete;

    void Create(HWND panel, HWND statusBar);
    // Places the toolbars at the right end of the status bar and returns their width. When the
    // status text would get less than `textWidth`, the view-mode toolbar steps aside until there
    // is room again; the main toolbar always stays, giving up its last buttons when too wide.
    int Place(HWND statusBar, int textWidth);
    int Height() const;
    void EnableHistory(bool back, bool forward);
    // The quick-links and programs buttons, hidden while their list is switched off.
    void ShowUserMenus(bool quickLinks, bool programs);
    HWND View() const { return bars_[0]; }
    HWND Extra() const { return bars_[1]; }
    HWND Modes() const { return bars_[2]; }
    // The main toolbar's buttons as the user arranges them (kept as "Toolbars" / "View").
    void Customise() { choice_.Customise(); }
    bool OnNotify(NMHDR* header, LRESULT& result) { return choice_.OnNotify(header, result); }

private:
    void Make(HWND panel, HWND statusBar, int index, int resourceId);  // bars_[index], images_[index]
    int FitMainBar(int room);
    void ShowMainButtons(int from, bool visible);  // the main toolbar's buttons from index `from` on
    HWND bars_[3] = {};
    bool wanted_[3] = {true, false, true};  // the extra toolbar starts hidden
    HIMAGELIST images_[3] = {};
    bool mainHidden_ = false;  // buttons of the main toolbar are hidden for want of room
    bool quickLinksWanted_ = true;  // the user's lists are not switched off
    bool programsWanted_ = true;
    ToolbarChoice choice_;
};

}  // namespace tessel
