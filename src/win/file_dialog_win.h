#pragma once
// The system's open and save dialogs for one kind of file.
#include <windows.h>

#include <string>

namespace tessel::win {

// "name\0pattern\0", as the dialogs take a filter.
std::wstring FileFilter(const wchar_t* name, const wchar_t* pattern);
// A file chosen with the system's dialog; empty when cancelled.
std::wstring ChooseFile(HWND owner, bool save, const std::wstring& filter, const wchar_t* title,
                        const wchar_t* defaultName, const wchar_t* extension);

}  // namespace tessel::win
