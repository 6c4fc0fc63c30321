#include "nav/favorite_dialogs_win.h"

#include <ctime>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "nav/favorites_folder.h"
#include "res/resource.h"
#include "win/window_win.h"

namespace tessel {
namespace {

std::wstring ItemText(HWND dialog, int id) { return win::WindowText(GetDlgItem(dialog, id)); }

bool Checked(HWND dialog, int id) { return IsDlgButtonChecked(dialog, id) == BST_CHECKED; }

// The dialog's answer object travels in its user data from WM_INITDIALOG on.
template <typename Data>
Data* DataOf(HWND dialog, UINT message, LPARAM lParam) {
    if (message == WM_INITDIALOG) SetWindowLongPtrW(dialog, DWLP_USER, lParam);
    return reinterpret_cast<Data*>(GetWindowLongPtrW(dialog, DWLP_USER));
}

INT_PTR CALLBACK FavoriteProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* choice = DataOf<FavoriteChoice>(dialog, message, lParam);
    if (message == WM_INITDIALOG) {
        LocalizeDialog(dialog);
        SetDlgItemTextW(dialog, IDC_FAV_NAME, choice->name.c_str());
        CheckDlgButton(dialog, IDC_FAV_VIEWS, choice->views ? BST_CHECKED : BST_UNCHECKED);
        CheckDlgButton(dialog, IDC_FAV_COLUMNS, choice->columns ? BST_CHECKED : BST_UNCHECKED);
        CheckDlgButton(dialog, IDC_FAV_PLACEMENT, choice->placement ? BST_CHECKED : BST_UNCHECKED);
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    if (LOWORD(wParam) == IDOK) {
        choice->name = ItemText(dialog, IDC_FAV_NAME);
        if (choice->name.empty()) return TRUE;  // a favorite needs a name
        choice->views = Checked(dialog, IDC_FAV_VIEWS);
        choice->columns = Checked(dialog, IDC_FAV_COLUMNS);
        choice->placement = Checked(dialog, IDC_FAV_PLACEMENT);
    }
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

struct InputData {
    const std::wstring* title;
    std::wstring* text;
};

INT_PTR CALLBACK InputProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* data = DataOf<InputData>(dialog, message, lParam);
    if (message == WM_INITDIALOG) {
        LocalizeDialog(dialog);
        if (!data->title->empty()) SetWindowTextW(dialog, data->title->c_str());
        SetDlgItemTextW(dialog, IDC_INPUT_TEXT, data->text->c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    if (LOWORD(wParam) == IDOK) *data->text = ItemText(dialog, IDC_INPUT_TEXT);
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

struct SearchData {
    std::wstring* name;
    SearchFavorite* search;
};

INT_PTR CALLBACK SearchProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* data = DataOf<SearchData>(dialog, message, lParam);
    if (message == WM_INITDIALOG) {
        LocalizeDialog(dialog);
        SetDlgItemTextW(dialog, IDC_SEARCH_NAME, data->name->c_str());
        SetDlgItemTextW(dialog, IDC_SEARCH_FOLDER, data->search->folder.c_str());
        SetDlgItemTextW(dialog, IDC_SEARCH_FILTER, data->search->filter.c_str());
        return TRUE;
    }
    if (message != WM_COMMAND || (LOWORD(wParam) != IDOK && LOWORD(wParam) != IDCANCEL)) return FALSE;
    if (LOWORD(wParam) == IDOK) {
        const std::wstring name = ItemText(dialog, IDC_SEARCH_NAME);
        const std::wstring folder = ItemText(dialog, IDC_SEARCH_FOLDER);
        if (name.empty() || folder.empty()) return TRUE;  // both are needed
        *data->name = name;
        data->search->folder = folder;
        data->search->filter = ItemText(dialog, IDC_SEARCH_FILTER);
    }
    EndDialog(dialog, LOWORD(wParam));
    return TRUE;
}

}  // namespace

bool CFavDlg::Show(HWND owner, FavoriteChoice& choice) {
    const std::time_t now = std::time(nullptr);
    std::tm local{};
    localtime_s(&local, &now);
    choice.name = DefaultFavoriteName(local);
    choice.views = Settings().GetInt(L"FAV", L"seitenansicht", 1) != 0;
    choice.columns = Settings().GetInt(L"FAV", L"columns", 0) != 0;
    choice.placement = Settings().GetInt(L"FAV", L"wnd_placemant", 0) != 0;
    if (DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_FAVORITE_ADD), owner, FavoriteProcedure,
                        reinterpret_cast<LPARAM>(&choice)) != IDOK)
        return false;
    Settings().PutInt(L"FAV", L"seitenansicht", choice.views ? 1 : 0);
    Settings().PutInt(L"FAV", L"columns", choice.columns ? 1 : 0);
    Settings().PutInt(L"FAV", L"wnd_placemant", choice.placement ? 1 : 0);
    return true;
}

bool CInputDlg::Show(HWND owner, const std::wstring& title, std::wstring& text) {
    InputData data{&title, &text};
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_INPUT_NAME), owner, InputProcedure,
                           reinterpret_cast<LPARAM>(&data)) == IDOK;
}

bool CAddFavSearch::Show(HWND owner, std::wstring& name, SearchFavorite& search) {
    SearchData data{&name, &search};
    return DialogBoxParamW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDD_SEARCH_FAVORITE), owner, SearchProcedure,
                           reinterpret_cast<LPARAM>(&data)) == IDOK;
}

}  // namespace tessel
