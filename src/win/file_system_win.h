#pragma once
// What the file system says about a path, asked the same way everywhere.
#include <string>

namespace tessel::win {

bool PathExists(const std::wstring& path);      // a file or a folder
bool IsDirectory(const std::wstring& path);
bool IsExistingFile(const std::wstring& path);  // a file, not a folder
// This executable's whole path, however long.
std::wstring ModulePath();
// Its folder, without the closing backslash.
std::wstring ModuleFolder();

}  // namespace tessel::win
