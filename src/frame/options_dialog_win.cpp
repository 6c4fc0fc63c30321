#include "frame/options_dialog_win.h"

#include <memory>
#include <vector>

#include "core/language_packs_win.h"
#include "features/colour_page_win.h"
#include "frame/option_pages.h"
#include "frame/switches_page_win.h"
#include "nav/lists_page_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

// Every page of the dialog, in the order of the page list.
std::vector<std::unique_ptr<IOptionsPage>> MakePages(IOptionHost* host) {
    std::vector<std::unique_ptr<IOptionsPage>> pages;
    for (const OptionPageTable& table : OptionPageTables()) pages.push_back(std::make_unique<CSwitchesPage>(table, host));
    pages.push_back(std::make_unique<CFarbenOpt>());
    pages.push_back(std::make_unique<CListsOpt>());
    return pages;
}

struct DialogState {
    std::vector<std::unique_ptr<IOptionsPage>> pages;
    std::vector<HWND> windows;
    int shown = -1;
    int first = 0;
    bool rebuild = false;  // closed to be built again in the new language
};

INT_PTR CALLBACK PageProcedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(page, DWLP_USER, lParam);
        LocalizeDialog(page);
        reinterpret_cast<IOptionsPage*>(lParam)->Init(page);
        return TRUE;
    }
    auto* handler = reinterpret_cast<IOptionsPage*>(GetWindowLongPtrW(page, DWLP_USER));
    if (!handler) return FALSE;
    if (message == WM_COMMAND) return handler->Command(page, LOWORD(wParam), HIWORD(wParam));
    if (message == WM_NOTIFY) {
        LRESULT result = 0;
        if (!handler->Notify(page, reinterpret_cast<NMHDR*>(lParam), result)) return FALSE;
        SetWindowLongPtrW(page, DWLP_MSGRESULT, result);
        return TRUE;
    }
    return FALSE;
}

void ShowPage(HWND dialog, DialogState& state, int index) {
    if (index < 0 || index >= static_cast<int>(state.pages.size()) || index == state.shown) return;
    if (state.shown >= 0) ShowWindow(state.windows[state.shown], SW_HIDE);
    HWND& window = state.windows[index];
    if (!window) {
        window = CreateDialogParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(state.pages[index]->DialogId()), dialog,
                                    PageProcedure, reinterpret_cast<LPARAM>(state.pages[index].get()));
        RECT area{};
        GetWindowRect(GetDlgItem(dialog, IDC_OPTIONS_AREA), &area);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&area), 2);
        SetWindowPos(window, nullptr, area.left, area.top, area.right - area.left, area.bottom - area.top, SWP_NOZORDER);
    }
    ShowWindow(window, SW_SHOW);
    state.shown = index;
    SendDlgItemMessageW(dialog, IDC_OPTIONS_PAGES, LB_SETCURSEL, index, 0);
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* state = reinterpret_cast<DialogState*>(GetWindowLongPtrW(dialog, DWLP_USER));
    switch (message) {
    case WM_INITDIALOG:
        state = reinterpret_cast<DialogState*>(lParam);
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        LocalizeDialog(dialog);
        for (const auto& page : state->pages)
            SendDlgItemMessageW(dialog, IDC_OPTIONS_PAGES, LB_ADDSTRING, 0,
                                reinterpret_cast<LPARAM>(GetText(page->TitleId()).c_str()));
        ShowPage(dialog, *state, state->first);
        return TRUE;
    case WM_COMMAND:
        if (LOWORD(wParam) == IDC_OPTIONS_PAGES && HIWORD(wParam) == LBN_SELCHANGE)
            ShowPage(dialog, *state, static_cast<int>(SendDlgItemMessageW(dialog, IDC_OPTIONS_PAGES, LB_GETCURSEL, 0, 0)));
        if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDOK);
        return TRUE;
    case kMsgOptionsRebuild:
        state->rebuild = true;
        state->first = state->shown;
        EndDialog(dialog, IDOK);
        return TRUE;
    }
    return FALSE;
}

}  // namespace

int COptionenWnd::PageIndex(int titleId) {
    const auto pages = MakePages(nullptr);
    for (size_t i = 0; i < pages.size(); ++i)
        if (pages[i]->TitleId() == titleId) return static_cast<int>(i);
    return -1;
}

// A language change closes the dialog and opens it again on the same page, every text new.
void COptionenWnd::Run(HWND owner, int firstPage, IOptionHost* host) {
    for (bool again = true; again;) {
        DialogState state;
        state.pages = MakePages(host);
        state.windows.assign(state.pages.size(), nullptr);
        state.first = firstPage;
        DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_OPTIONS), owner, DialogProcedure,
                        reinterpret_cast<LPARAM>(&state));
        again = state.rebuild;
        firstPage = state.first;
    }
}

}  // namespace tessel
