#pragma once
// Paths joined from parts: a doubled backslash (a drive root's own, or one in a part) becomes
// one, except the two that begin a network path.
#include <string>

namespace tessel {

inline void CollapseBackslashes(std::wstring& path) {
    const size_t keep = path.starts_with(L"\\\\") && path.size() > 2 ? 2 : 0;
    size_t out = keep;
    for (size_t in = keep; in < path.size(); ++in)
        if (!(path[in] == L'\\' && out > keep && path[out - 1] == L'\\')) path[out++] = path[in];
    path.resize(out);
}

}  // namespace tessel
