#pragma once
// Comparing names without regard to case, as the file system does for the names it keeps.
#include <cwctype>
#include <string_view>

namespace tessel {

inline bool EqualNoCase(std::wstring_view a, std::wstring_view b) {
    if (a.size() != b.size()) return false;
    for (size_t i = 0; i < a.size(); ++i)
        if (std::towlower(a[i]) != std::towlower(b[i])) return false;
    return true;
}

}  // namespace tessel
