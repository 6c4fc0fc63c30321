#include "win/file_system_win.h"

#include <windows.h>

namespace tessel::win {
namespace {

DWORD AttributesOf(const std::wstring& path) { return GetFileAttributesW(path.c_str()); }

}  // namespace

bool PathExists(const std::wstring& path) { return AttributesOf(path) != INVALID_FILE_ATTRIBUTES; }

bool IsDirectory(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool IsExistingFile(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring ModulePath() {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) return {};
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);  // cut: ask again with more room
        if (path.size() > 32768) return {};
    }
}

std::wstring ModuleFolder() {
    const std::wstring path = ModulePath();
    const size_t slash = path.rfind(L'\\');
    return slash == std::wstring::npos ? std::wstring() : path.substr(0, slash);
}

}  // namespace tessel::win
