#include "view/copy_name.h"

namespace tessel {

std::wstring FreeCopyName(std::wstring_view name, const std::function<bool(const std::wstring&)>& taken) {
    // The extension stays at the end; a leading dot (".profile") is part of the stem.
    const size_t dot = name.rfind(L'.');
    const bool hasExtension = dot != std::wstring_view::npos && dot > 0;
    const std::wstring stem(hasExtension ? name.substr(0, dot) : name);
    const std::wstring extension(hasExtension ? name.substr(dot) : std::wstring_view());
    std::wstring candidate;
    for (int n = 2; n <= 10000; ++n) {
        candidate = stem + L" (" + std::to_wstring(n) + L")" + extension;
        if (!taken(candidate)) break;
    }
    return candidate;
}

}  // namespace tessel
