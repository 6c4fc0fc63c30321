#pragma once
// Paths joined from parts: a doubled backslash (a drive root's own, or one in a part) becomes
// one, except the two that begin a network path. Paths past the old limit in the form the file
// functions take them.
#include <string>
#include <string_view>

namespace tessel {

inline void CollapseBackslashes(std::wstring& path) {
    const size_t keep = path.starts_with(L"\\\\") && path.size() > 2 ? 2 : 0;
    size_t out = keep;
    for (size_t in = keep; in < path.size(); ++in)
        if (!(path[in] == L'\\' && out > keep && path[out - 1] == L'\\')) path[out++] = path[in];
    path.resize(out);
}

// A path of 248 characters or more (a folder's limit without it) as "\\?\C:\..." or
// "\\?\UNC\server\share\..."; shorter ones, relative ones and those in that form already
// stay as they are.
inline std::wstring LongPathForm(std::wstring_view path) {
    constexpr size_t kShortLimit = 248;
    if (path.size() < kShortLimit || path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\"))
        return std::wstring(path);
    if (path.size() > 2 && path[1] == L':' && path[2] == L'\\') return L"\\\\?\\" + std::wstring(path);
    if (path.starts_with(L"\\\\")) return L"\\\\?\\UNC\\" + std::wstring(path.substr(2));
    return std::wstring(path);
}

}  // namespace tessel
