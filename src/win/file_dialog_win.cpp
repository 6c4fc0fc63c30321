#include "win/file_dialog_win.h"

#include <commdlg.h>

#include <cwchar>

namespace tessel::win {

std::wstring FileFilter(const wchar_t* name, const wchar_t* pattern) {
    std::wstring filter = name;
    filter += L'\0';
    filter += pattern;
    filter += L'\0';
    return filter;
}

std::wstring ChooseFile(HWND owner, bool save, const std::wstring& filter, const wchar_t* title,
                        const wchar_t* defaultName, const wchar_t* extension) {
    wchar_t path[MAX_PATH * 2] = {};
    if (defaultName) wcsncpy(path, defaultName, MAX_PATH);
    OPENFILENAMEW dialog{sizeof(dialog)};
    dialog.hwndOwner = owner;
    dialog.lpstrFilter = filter.c_str();
    dialog.lpstrFile = path;
    dialog.nMaxFile = MAX_PATH * 2;
    dialog.lpstrTitle = title;
    dialog.lpstrDefExt = extension;
    dialog.Flags = OFN_EXPLORER | OFN_PATHMUSTEXIST | OFN_NOCHANGEDIR | (save ? OFN_OVERWRITEPROMPT : OFN_FILEMUSTEXIST);
    const BOOL chosen = save ? GetSaveFileNameW(&dialog) : GetOpenFileNameW(&dialog);
    return chosen ? path : L"";
}

}  // namespace tessel::win
