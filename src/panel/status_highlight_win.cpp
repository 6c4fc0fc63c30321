#include "panel/status_highlight_win.h"

#include <commctrl.h>

#include <string>

#include "win/subclass_win.h"

namespace tessel {

StatusHighlight::~StatusHighlight() {
    if (bar_ && IsWindow(bar_)) win::Unsubclass(bar_);
}

void StatusHighlight::Attach(HWND bar) {
    if (bar && win::Subclass(bar, &StatusHighlight::Proc, this)) bar_ = bar;
}

void StatusHighlight::SetLit(bool lit) {
    if (lit == lit_) return;
    lit_ = lit;
    if (bar_) InvalidateRect(bar_, nullptr, TRUE);
}

LRESULT StatusHighlight::Proc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* self = static_cast<StatusHighlight*>(data);
    if (message == WM_NCDESTROY) {
        win::Unsubclass(window);
        self->bar_ = nullptr;
        return win::CallOriginal(window, message, wParam, lParam);
    }
    const LRESULT result = win::CallOriginal(window, message, wParam, lParam);
    if (self->lit_ && message == WM_PAINT) self->PaintOver();
    return result;
}

void StatusHighlight::PaintOver() const {
    if (SendMessageW(bar_, SB_ISSIMPLE, 0, 0)) return;  // a menu help text is shown instead
    RECT part{};
    if (!SendMessageW(bar_, SB_GETRECT, 0, reinterpret_cast<LPARAM>(&part))) return;
    const int length = LOWORD(SendMessageW(bar_, SB_GETTEXTLENGTHW, 0, 0));
    std::wstring text(static_cast<size_t>(length) + 1, L'\0');
    SendMessageW(bar_, SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text.data()));
    text.resize(wcsnlen(text.c_str(), text.size()));
    HDC dc = GetDC(bar_);
    if (!dc) return;
    FillRect(dc, &part, GetSysColorBrush(COLOR_HIGHLIGHT));
    auto font = reinterpret_cast<HFONT>(SendMessageW(bar_, WM_GETFONT, 0, 0));
    HGDIOBJ old = SelectObject(dc, font ? font : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_HIGHLIGHTTEXT));
    InflateRect(&part, -GetSystemMetrics(SM_CXEDGE) * 2, 0);
    DrawTextW(dc, text.c_str(), static_cast<int>(text.size()), &part,
              DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(dc, old);
    ReleaseDC(bar_, dc);
}

}  // namespace tessel
