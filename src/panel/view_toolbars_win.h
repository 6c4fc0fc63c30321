#pragma once
// The three toolbars of a T-View, made from the toolbar resources and carried by the panel's
// status bar. Their commands and tooltips go to the panel.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

#include "view/toolbar_choice_win.h"

namespace tessel {

// Command ids of a toolbar resource; 0 stands for a separator.
std::vector<int> LoadToolbarCommands(int resourceId);

// A button's tip from its command's text: "&Hidden files\tCtrl+H" becomes "Hidden files (Ctrl+H)".
std::wstring ButtonTip(int command);

class ViewToolbars {
public:
    ViewToolbars() = default;
    ~ViewToolbars();
    ViewToolbars(const ViewToolbars&) = delete;
    ViewToolbars& operator=(const ViewToolbars&) = delete;

    void Create(HWND panel, HWND statusBar);
    // Places the toolbars at the right end of the status bar and returns their width. The status
    // text keeps `textWidth`; what does not fit beside it goes behind the chevron button.
    int Place(HWND statusBar, int textWidth);
    // The commands behind the chevron, in the order of their bars.
    std::vector<int> HiddenCommands() const;
    HWND Chevron() const { return bars_[3]; }
    // The chevron's menu of the hidden buttons, below it; the chosen command or 0.
    int TrackHiddenMenu(HWND owner) const;
    // The bar that shows `command`, or null when it is behind the chevron.
    HWND BarOf(int command) const;
    int Height() const;
    void EnableHistory(bool back, bool forward);
    void Check(int command, bool checked);  // a switch button of any of the bars
    // The quick-links and programs buttons, hidden while their list is switched off.
    void ShowUserMenus(bool quickLinks, bool programs);
    HWND View() const { return bars_[0]; }
    HWND Extra() const { return bars_[1]; }
    HWND Modes() const { return bars_[2]; }
    // The main toolbar's buttons as the user arranges them (kept as "Toolbars" / "View").
    void Customise() { choice_.Customise(); }
    bool OnNotify(NMHDR* header, LRESULT& result) { return choice_.OnNotify(header, result); }

private:
    // bars_[index], images_[index]; `resourceId` names the pictures' drawing
    void Make(HWND panel, HWND statusBar, int index, int resourceId, const std::vector<int>& commands);
    void ShowMainButtons(int from, bool visible);  // the main toolbar's buttons from index `from` on
    bool UserWants(int command) const;
    HWND bars_[4] = {};  // main, extra, view modes, chevron
    bool wanted_[4] = {true, false, true, false};  // the extra toolbar starts hidden
    bool shown_[4] = {};
    HIMAGELIST images_[4] = {};
    int mainShown_ = 0;  // leading buttons of the main toolbar that have room
    bool mainHidden_ = false;  // buttons of the main toolbar are hidden for want of room
    bool quickLinksWanted_ = true;  // the user's lists are not switched off
    bool programsWanted_ = true;
    ToolbarChoice choice_;
};

}  // namespace tessel
