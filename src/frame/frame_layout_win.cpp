// The main frame's arrangement of its four T-Views: the layout toolbar on top, the status bar
// at the bottom, and between them the views as the three splitters divide the space. The bars
// are the frame's own client area: dragging one moves its splitter.
#include <windows.h>
#include <commctrl.h>
#include <uxtheme.h>
#include <windowsx.h>

#include "core/language_packs_win.h"
#include "frame/main_frame_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

RECT ToRect(const RectI& r) { return {r.left, r.top, r.right, r.bottom}; }
bool IsEmpty(const RectI& r) { return r.right <= r.left || r.bottom <= r.top; }
constexpr int kTreeBar = 3;  // after the three splitters of the views
constexpr int kPreviewBar = 4;

}  // namespace

int CMainFrame::BarWidth() const { return win::Scaled(hwnd(), designMode_ == 0 ? 6 : 4); }

void CMainFrame::ApplyDesignMode() {
    for (auto& panel : panels_) {
        HWND window = panel->hwnd();
        LONG_PTR ex = GetWindowLongPtrW(window, GWL_EXSTYLE);
        ex &= ~(WS_EX_DLGMODALFRAME | WS_EX_STATICEDGE);
        ex |= designMode_ == 0 ? WS_EX_DLGMODALFRAME : WS_EX_STATICEDGE;
        SetWindowLongPtrW(window, GWL_EXSTYLE, ex);
        SetWindowPos(window, nullptr, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_FRAMECHANGED);
        SetWindowTheme(window, designMode_ == 2 ? L"explorer" : L"", nullptr);
    }
}

void CMainFrame::SetLayout(int layout, bool fromButton) {
    if (layout < 0 || layout >= kLayoutCount) return;
    ApplyLayout(layout_, layout);
    if (fromButton) ResetPositionsForButton(layout_, layout);
    for (int i = 0; i < kViewCount; ++i)
        if (panels_[i]) ShowWindow(panels_[i]->hwnd(), layout_.visible[i] ? SW_SHOWNA : SW_HIDE);
    layoutToolbar_.Check(layout);
    Layout();
    if (!layout_.visible[focusedView_ - 1]) FocusView(1);
    StateChanged();
}

void CMainFrame::SetTreeMode(int mode, bool reloadViews) {
    if (mode < 0 || mode > 2) mode = 0;
    treeMode_ = mode;
    sharedTree_ = mode == 2;
    if (reloadViews)
        for (auto& panel : panels_) panel->ReloadTreeState();  // each T-View looks at its own tree again
    Layout();
    ShowFocusedLocation();
}

void CMainFrame::FocusView(int number) {
    if (number < 1 || number > kViewCount || !panels_[number - 1] || !layout_.visible[number - 1]) return;
    UseView(number);
    SetFocus(panels_[number - 1]->hwnd());
}

void CMainFrame::UseView(int number) {
    if (number < 1 || number > kViewCount || !panels_[number - 1]) return;
    focusedView_ = number;
    for (int i = 0; i < kViewCount; ++i)
        if (panels_[i]) panels_[i]->SetInUse(i + 1 == focusedView_);
    ShowFocusedLocation();
    UpdatePreview();
}

void CMainFrame::Layout() {
    if (!panels_[kViewCount - 1]) return;  // still being created
    RECT client;
    GetClientRect(hwnd(), &client);
    laidOut_ = {client.right, client.bottom};
    if (layoutToolbar_.hwnd()) {
        const int height = layoutToolbar_.Height() + win::Scaled(hwnd(), 2);
        SetWindowPos(layoutToolbar_.hwnd(), nullptr, 0, 0, client.right, height, SWP_NOZORDER | SWP_NOACTIVATE);
        client.top += height;
    }
    if (addressBar_) {
        const int height = addressBar_->Height();
        SetWindowPos(addressBar_->hwnd(), nullptr, 0, client.top, client.right, height,
                     SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
        client.top += height;
    }
    if (statusBar_ && IsWindowVisible(statusBar_)) {
        SendMessageW(statusBar_, WM_SIZE, 0, 0);
        RECT bar;
        GetWindowRect(statusBar_, &bar);
        client.bottom -= bar.bottom - bar.top;
        const int width = client.right;
        int parts[4] = {width / 2, width * 5 / 8, width * 3 / 4, -1};
        SendMessageW(statusBar_, SB_SETPARTS, 4, reinterpret_cast<LPARAM>(parts));
    }
    // The frame-wide tree takes the left part at its splitter position (SPT).
    treeBar_ = treeArea_ = {};
    const bool tree = treeMode_ == 1 && frameTree_.hwnd();
    if (frameTree_.hwnd()) ShowWindow(frameTree_.hwnd(), tree ? SW_SHOWNA : SW_HIDE);
    if (tree) {
        frameTree_.EnsureFilled();
        treeArea_ = {client.left, client.top, client.right, client.bottom};
        const int width = PixelFromPosition(ValidPosition(layoutExtras_.treeSplitter, 2000), client.right - client.left);
        SetWindowPos(frameTree_.hwnd(), nullptr, client.left, client.top, width, client.bottom - client.top,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        treeBar_ = {client.left + width, client.top, client.left + width + BarWidth(), client.bottom};
        client.left = treeBar_.right;
    }
    // The preview takes the right part; its bar's position (VorschauPos) is where the views end.
    previewBar_ = previewArea_ = {};
    if (PreviewShown()) {
        previewArea_ = {client.left, client.top, client.right, client.bottom};
        const int views = PixelFromPosition(ValidPosition(layoutExtras_.previewPosition, 7500), client.right - client.left);
        previewBar_ = {client.left + views, client.top, client.left + views + BarWidth(), client.bottom};
        SetWindowPos(preview_->hwnd(), nullptr, previewBar_.right, client.top, std::max<int>(client.right - previewBar_.right, 0),
                     client.bottom - client.top, SWP_NOZORDER | SWP_NOACTIVATE);
        client.right = previewBar_.left;
    }
    arranged_ = Arrange(layout_, {client.left, client.top, client.right, client.bottom}, BarWidth());
    HDWP batch = BeginDeferWindowPos(kViewCount);
    for (int i = 0; i < kViewCount && batch; ++i) {
        if (!layout_.visible[i]) continue;
        const RectI& r = arranged_.views[i];
        batch = DeferWindowPos(batch, panels_[i]->hwnd(), nullptr, r.left, r.top, r.right - r.left, r.bottom - r.top,
                               SWP_NOZORDER | SWP_NOACTIVATE);
    }
    if (batch) EndDeferWindowPos(batch);
    InvalidateRect(hwnd(), nullptr, TRUE);  // the bars are the frame's own background
}

int CMainFrame::BarAt(POINT point) const {
    RECT tree = ToRect(treeBar_);
    if (!IsEmpty(treeBar_) && PtInRect(&tree, point)) return kTreeBar;
    RECT preview = ToRect(previewBar_);
    if (!IsEmpty(previewBar_) && PtInRect(&preview, point)) return kPreviewBar;
    for (int i = 0; i < 3; ++i) {
        RECT bar = ToRect(arranged_.bars[i]);
        if (!IsEmpty(arranged_.bars[i]) && PtInRect(&bar, point)) return i;
    }
    return -1;
}

bool CMainFrame::OnSetCursor() {
    POINT point;
    GetCursorPos(&point);
    ScreenToClient(hwnd(), &point);
    const int bar = draggedBar_ >= 0 ? draggedBar_ : BarAt(point);
    if (bar < 0) return false;
    const bool vertical = bar >= kTreeBar || layout_.splitters[bar].vertical;
    SetCursor(LoadCursorW(nullptr, vertical ? IDC_SIZEWE : IDC_SIZENS));
    return true;
}

void CMainFrame::StartBarDrag(LPARAM lParam) {
    draggedBar_ = BarAt({GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
    if (draggedBar_ >= 0) SetCapture(hwnd());
}

void CMainFrame::DragBar(LPARAM lParam) {
    if (draggedBar_ < 0) return;
    if (draggedBar_ >= kTreeBar) {  // the tree's and the preview's bars keep their place in ten-thousandths
        const bool tree = draggedBar_ == kTreeBar;
        const RectI& area = tree ? treeArea_ : previewArea_;
        int& position = tree ? layoutExtras_.treeSplitter : layoutExtras_.previewPosition;
        position = PositionFromPixel(GET_X_LPARAM(lParam) - area.left - BarWidth() / 2, area.right - area.left);
        Layout();
        UpdateWindow(hwnd());
        return;
    }
    const RectI& area = arranged_.areas[draggedBar_];
    const bool vertical = layout_.splitters[draggedBar_].vertical;
    const int pixel = vertical ? GET_X_LPARAM(lParam) - area.left : GET_Y_LPARAM(lParam) - area.top;
    MoveBar(layout_, draggedBar_, pixel - BarWidth() / 2);
    Layout();
    UpdateWindow(hwnd());
}

void CMainFrame::EndBarDrag() {
    if (draggedBar_ < 0) return;
    draggedBar_ = -1;
    if (GetCapture() == hwnd()) ReleaseCapture();
    StateChanged();
}

LRESULT CMainFrame::OnNotify(NMHDR* header) {
    if (LRESULT result = 0; frameTree_.OnNotify(header, result)) return result;
    if (LRESULT result = 0; layoutToolbar_.OnNotify(header, result)) return result;
    if (header->code == TTN_GETDISPINFOW && IsLayoutCommand(static_cast<int>(header->idFrom))) {
        static std::wstring tip;  // read by the tooltip right after this message
        tip = GetText(static_cast<int>(header->idFrom));
        const size_t tab = tip.find(L'\t');  // the menu text's shortcut goes in brackets
        if (tab != std::wstring::npos) tip = tip.substr(0, tab) + L" (" + tip.substr(tab + 1) + L")";
        reinterpret_cast<NMTTDISPINFOW*>(header)->lpszText = tip.data();
    }
    return 0;
}

}  // namespace tessel
