// The open and save-as dialogs of folder sets. The save dialog carries three choices of what
// goes into the file, remembered as "seitenansicht", "columns" and "wnd_placemant".
#include <windows.h>
#include <commdlg.h>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "frame/main_frame_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

constexpr int kPathBuffer = 520;

struct SaveChoice {
    const wchar_t* key;
    int control;
};
constexpr SaveChoice kChoices[3] = {
    {L"seitenansicht", IDC_SAVE_LAYOUT}, {L"columns", IDC_SAVE_COLUMNS}, {L"wnd_placemant", IDC_SAVE_PLACEMENT}};

UINT_PTR CALLBACK SaveHook(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        LocalizeDialog(dialog);
        for (const SaveChoice& choice : kChoices)
            CheckDlgButton(dialog, choice.control, Settings().GetInt(L"Start", choice.key, 1) ? BST_CHECKED : 0);
    } else if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == CDN_FILEOK) {
        for (const SaveChoice& choice : kChoices)
            Settings().PutInt(L"Start", choice.key, IsDlgButtonChecked(dialog, choice.control) == BST_CHECKED);
    }
    return 0;
}

// "Tessel Datei(*.tsf)" and its pattern, as the filter wants them: pairs ended by nulls.
const wchar_t kFilter[] = L"Tessel Datei(*.tsf)\0*.tsf\0";

}  // namespace

void CMainFrame::OpenFolderSetDialog() {
    wchar_t path[kPathBuffer] = {};
    OPENFILENAMEW open{sizeof(open)};
    open.hwndOwner = hwnd();
    open.lpstrFilter = kFilter;
    open.lpstrFile = path;
    open.nMaxFile = kPathBuffer;
    open.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST | OFN_EXPLORER;
    if (GetOpenFileNameW(&open)) LoadFolderSet(path, true);
}

void CMainFrame::SaveFolderSetDialog() {
    wchar_t path[kPathBuffer] = L"111.tsf";
    OPENFILENAMEW save{sizeof(save)};
    save.hwndOwner = hwnd();
    save.hInstance = GetModuleHandleW(nullptr);
    save.lpstrFilter = kFilter;
    save.lpstrFile = path;
    save.nMaxFile = kPathBuffer;
    save.lpstrDefExt = L"tsf";
    save.lpTemplateName = MAKEINTRESOURCEW(IDD_SAVE_SET_OPTIONS);
    save.lpfnHook = SaveHook;
    save.Flags = OFN_OVERWRITEPROMPT | OFN_PATHMUSTEXIST | OFN_EXPLORER | OFN_ENABLEHOOK | OFN_ENABLETEMPLATE;
    if (!GetSaveFileNameW(&save)) return;
    const auto on = [](const wchar_t* key) { return Settings().GetInt(L"Start", key, 1) != 0; };
    if (!SaveFolderSet(path, on(L"seitenansicht"), on(L"columns"), on(L"wnd_placemant")))
        MessageBoxW(hwnd(), (GetText(IDS_FOLDER_SET_UNWRITABLE) + L"\n" + path).c_str(), GetText(60000).c_str(),
                    MB_ICONWARNING);
}

}  // namespace tessel
