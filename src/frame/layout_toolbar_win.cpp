#include "frame/layout_toolbar_win.h"

#include "frame/view_layout.h"
#include "win/handles_win.h"
#include "win/image_strip_win.h"
#include "win/window_win.h"

namespace tessel {
namespace {

constexpr COLORREF kFrame = RGB(60, 72, 90);
constexpr COLORREF kViews[4] = {RGB(79, 163, 224), RGB(140, 203, 242), RGB(140, 203, 242), RGB(242, 177, 52)};

void FillBox(HDC dc, int left, int top, int right, int bottom, COLORREF color) {
    win::UniqueBrush brush(CreateSolidBrush(color));
    RECT rect{left, top, right, bottom};
    FillRect(dc, &rect, brush.get());
}

// One picture: a dark plate with the layout's views, one unit of gap between them.
void DrawLayout(HDC dc, int x0, int unit, int layout) {
    ViewLayout state;
    ApplyLayout(state, layout);
    ResetPositionsForButton(state, layout);
    FillBox(dc, x0 + unit, unit, x0 + 15 * unit, 15 * unit, kFrame);
    const Arrangement arrangement = Arrange(state, {2, 2, 14, 14}, 1);
    for (int v = 0; v < 4; ++v) {
        const RectI& r = arrangement.views[v];
        if (r.right > r.left && r.bottom > r.top)
            FillBox(dc, x0 + r.left * unit, r.top * unit, x0 + r.right * unit, r.bottom * unit, kViews[v]);
    }
}

HIMAGELIST DrawLayoutImages(int pixelSize) {
    const int unit = pixelSize >= 16 ? pixelSize / 16 : 1;
    return win::DrawImageStrip(kLayoutCount, unit * 16,
                               [&](HDC dc, int layout, int left) { DrawLayout(dc, left, unit, layout); });
}

}  // namespace

LayoutToolbar::~LayoutToolbar() {
    if (bar_ && IsWindow(bar_)) DestroyWindow(bar_);
    if (images_) ImageList_Destroy(images_);
}

bool LayoutToolbar::Create(HWND frame, int controlId) {
    bar_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                           WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NORESIZE | CCS_NODIVIDER |
                               CCS_NOPARENTALIGN,
                           0, 0, 0, 0, frame, reinterpret_cast<HMENU>(static_cast<INT_PTR>(controlId)),
                           GetModuleHandleW(nullptr), nullptr);
    if (!bar_) return false;
    SendMessageW(bar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    images_ = DrawLayoutImages(win::Scaled(frame, 16));
    SendMessageW(bar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images_));
    TBBUTTON buttons[kLayoutCount] = {};
    for (int i = 0; i < kLayoutCount; ++i) {
        buttons[i].iBitmap = i;
        buttons[i].idCommand = kFirstLayoutCommand + i;
        buttons[i].fsState = TBSTATE_ENABLED;
        buttons[i].fsStyle = BTNS_BUTTON | BTNS_CHECKGROUP;
    }
    SendMessageW(bar_, TB_ADDBUTTONSW, kLayoutCount, reinterpret_cast<LPARAM>(buttons));
    SendMessageW(bar_, TB_AUTOSIZE, 0, 0);
    choice_.Attach(bar_, L"Layout", [](HWND bar) { PostMessageW(GetParent(bar), WM_SIZE, 0, 0); });
    return true;
}

// Every other layout is released by name: the user may have parted the group with separators, and a
// group only releases its neighbours.
void LayoutToolbar::Check(int layout) {
    if (!bar_) return;
    for (int i = 0; i < kLayoutCount; ++i)
        SendMessageW(bar_, TB_CHECKBUTTON, kFirstLayoutCommand + i, MAKELONG(i == layout, 0));
}

int LayoutToolbar::Height() const {
    return bar_ ? HIWORD(static_cast<DWORD>(SendMessageW(bar_, TB_GETBUTTONSIZE, 0, 0))) : 0;
}

}  // namespace tessel
