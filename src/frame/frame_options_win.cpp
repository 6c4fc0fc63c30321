// The main window's side of the options: the values it keeps itself, and what it redoes in the
// open window after a page changed an option.
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "frame/main_frame_win.h"
#include "frame/option_pages.h"
#include "nav/tab_view_win.h"
#include "res/resource.h"
#include "win/shell_item_win.h"

namespace tessel {

bool CMainFrame::HeldOption(std::wstring_view key, int& value) {
    if (key == L"tree_mode") value = treeMode_;
    else if (key == L"designe_mode") value = designMode_;
    else return false;
    return true;
}

void CMainFrame::ApplyOptions(unsigned effects) {
    if (effects & kEffectLanguage) ShowLanguage();
    if (effects & kEffectAddress) ApplyAddressBars();
    if (effects & kEffectTree) {
        for (auto& panel : panels_) panel->FolderTree().ApplyOptions();
        frameTree_.ApplyOptions();
    }
    if (effects & kEffectTreeMode) SetTreeMode(Settings().GetInt(L"Start", L"tree_mode", treeMode_));
    if (effects & kEffectTabs) CCBrowserTabView::RelabelAll();
    if (effects & kEffectStatusBar) ShowStatusBar(Options().StatusBar != 0);
    if (effects & kEffectDesign) {
        designMode_ = Settings().GetInt(L"Start", L"designe_mode", 0);
        if (designMode_ < 0 || designMode_ > 2) designMode_ = 0;
        ApplyDesignMode();
        Layout();
    }
    if (effects & kEffectTitle) ShowTitle();
    if ((effects & kEffectPreview) && preview_) preview_->Reread();
    if (effects & kEffectColours) ApplyColours();  // refreshes the lists too
    else if (effects & kEffectViews) OnCommand(ID_VIEW_REFRESH_ALL, 0);
}

// With title_info the title names the folder of the T-View in use.
void CMainFrame::ShowTitle() {
    std::wstring title = L"Tessel";
    if (Options().title_info && focusedView_ >= 1 && focusedView_ <= kViewCount && panels_[focusedView_ - 1])
        if (CMyShellBrowser* browser = panels_[focusedView_ - 1]->Active(); browser && browser->Current())
            title = win::LocationNameOf(browser->Current()) + L" - Tessel";
    wchar_t shown[512] = {};
    GetWindowTextW(hwnd(), shown, 512);
    if (title != shown) SetWindowTextW(hwnd(), title.c_str());
}

// With mousewheel_focus a turn of the wheel over another T-View makes it the one in use and
// scrolls it, instead of the list that has the focus.
bool CMainFrame::RouteWheel(MSG& message) {
    if (message.message != WM_MOUSEWHEEL || !Options().mousewheel_focus) return false;
    const POINT at{static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))};
    HWND under = WindowFromPoint(at);
    for (int i = 0; i < kViewCount; ++i) {
        if (!panels_[i] || !under || !IsChild(panels_[i]->hwnd(), under) || i + 1 == focusedView_) continue;
        FocusView(i + 1);
        message.hwnd = under;
        return false;  // the wheel still scrolls, now where the mouse is
    }
    return false;
}

}  // namespace tessel
