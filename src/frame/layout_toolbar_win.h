#pragma once
// The layout toolbar: twelve buttons whose pictures are the layouts themselves, drawn from the
// same arrangement the frame uses, at the screen's scale.
#include <windows.h>
#include <commctrl.h>

#include "view/toolbar_choice_win.h"

namespace tessel {

class LayoutToolbar {
public:
    LayoutToolbar() = default;
    ~LayoutToolbar();
    LayoutToolbar(const LayoutToolbar&) = delete;
    LayoutToolbar& operator=(const LayoutToolbar&) = delete;

    bool Create(HWND frame, int controlId);
    void Check(int layout);  // the current layout's button shows pressed
    HWND hwnd() const { return bar_; }
    int Height() const;
    // The buttons as the user arranges them (kept as "Toolbars" / "Layout").
    void Customise() { choice_.Customise(); }
    bool OnNotify(NMHDR* header, LRESULT& result) { return choice_.OnNotify(header, result); }

private:
    HWND bar_ = nullptr;
    HIMAGELIST images_ = nullptr;
    ToolbarChoice choice_;
};

}  // namespace tessel
