#pragma once
// The status bar of the T-View in use shows its text part highlighted, so that the eye finds the
// view the keys act on. The highlight is painted over the control's own drawing: where the bar is
// drawn by the visual style, its background colour message is ignored.
#include <windows.h>

namespace tessel {

class StatusHighlight {
public:
    StatusHighlight() = default;
    ~StatusHighlight();
    StatusHighlight(const StatusHighlight&) = delete;
    StatusHighlight& operator=(const StatusHighlight&) = delete;

    void Attach(HWND bar);
    void SetLit(bool lit);  // repaints when the state changes
    bool Lit() const { return lit_; }

private:
    static LRESULT Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, void* data);
    void PaintOver() const;

    HWND bar_ = nullptr;
    bool lit_ = false;
};

}  // namespace tessel
