#pragma once
// Small registry reads and writes of string and number values under one key path.
#include <windows.h>

#include <string>

namespace tessel::win {

bool SetRegString(HKEY root, const std::wstring& path, const wchar_t* name, const std::wstring& value);
bool SetRegNumber(HKEY root, const std::wstring& path, const wchar_t* name, DWORD value);
// False when the key or value is missing or is not a string.
bool GetRegString(HKEY root, const std::wstring& path, const wchar_t* name, std::wstring& value);
bool RegKeyExists(HKEY root, const std::wstring& path);
// The key with everything below it; true when it is gone afterwards (also when it never was).
bool DeleteRegTree(HKEY root, const std::wstring& path);

}  // namespace tessel::win
