#pragma once
// A toolbar the user arranges with the common control's customise dialog (double-click on it,
// or the menu command). The chosen buttons are kept in section "Toolbars" of the settings under
// the toolbar's key and come back whenever a toolbar of that key is made; every toolbar of the
// key follows a change at once.
#include <windows.h>
#include <commctrl.h>

#include <string>
#include <vector>

namespace tessel {

class ToolbarChoice {
public:
    ToolbarChoice() = default;
    ~ToolbarChoice();
    ToolbarChoice(const ToolbarChoice&) = delete;
    ToolbarChoice& operator=(const ToolbarChoice&) = delete;

    // `bar` holds every button it can offer, in its own order; the kept choice is applied.
    // `changed` runs after the buttons changed (to lay the owner out again).
    void Attach(HWND bar, const wchar_t* key, void (*changed)(HWND bar) = nullptr);
    void Customise();
    // Answers the toolbar's notices that its parent receives; true when it was one of them.
    bool OnNotify(NMHDR* header, LRESULT& result);
    HWND Bar() const { return bar_; }

private:
    void Apply(const std::vector<int>& buttons);
    std::vector<int> Shown() const;
    void Save();

    HWND bar_ = nullptr;
    std::wstring key_;
    std::vector<TBBUTTON> palette_;  // every button it offers, as first made
    std::vector<int> defaults_;      // their own order, separators included
    void (*changed_)(HWND bar) = nullptr;
};

}  // namespace tessel
