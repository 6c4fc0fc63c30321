// The main window's preview pane: shown and hidden by its command, and fed the focused item of
// the T-View in use whenever that changes.
#include "frame/main_frame_win.h"
#include "res/resource.h"

namespace tessel {

void CMainFrame::TogglePreview() {
    if (!preview_) {
        auto pane = std::make_unique<CPreviewPane>();
        if (!pane->Create(hwnd(), IDC_FRAME_PREVIEW)) return;
        preview_ = std::move(pane);
    }
    const bool show = !PreviewShown();
    ShowWindow(preview_->hwnd(), show ? SW_SHOWNA : SW_HIDE);
    layoutExtras_.preview = show ? 1 : 0;
    Layout();
    if (show) UpdatePreview();
    else preview_->ShowItem(nullptr);  // nothing is read for a hidden pane
}

void CMainFrame::UpdatePreview() {
    if (!PreviewShown() || focusedView_ < 1 || focusedView_ > kViewCount || !panels_[focusedView_ - 1]) return;
    CMyShellBrowser* browser = panels_[focusedView_ - 1]->Active();
    win::UniquePidl item = browser ? browser->FocusedItem() : win::UniquePidl();
    preview_->ShowItem(item.get());
}

}  // namespace tessel
