#include "core/help_anchor.h"

namespace tessel {

std::wstring SafeHelpAnchor(std::wstring_view anchor) {
    if (anchor.size() < 2 || anchor.size() > 64 || anchor.front() != L'#') return {};
    for (wchar_t c : anchor.substr(1)) {
        const bool plain = (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || (c >= L'0' && c <= L'9') ||
                           c == L'_' || c == L'-' || c == L'.';
        if (!plain) return {};
    }
    return std::wstring(anchor);
}

}  // namespace tessel
