#include "view/name_clash.h"

#include <algorithm>

#include "core/text_case.h"

namespace tessel {
namespace {

std::wstring NameOf(const std::wstring& path) {
    const size_t slash = path.find_last_of(L"\\/");
    return slash == std::wstring::npos ? path : path.substr(slash + 1);
}

std::wstring Joined(std::wstring_view folder, const std::wstring& name) {
    std::wstring path(folder);
    if (!path.empty() && path.back() != L'\\') path += L'\\';
    return path + name;
}

}  // namespace

std::vector<std::wstring> NameClashes(const std::vector<std::wstring>& sources, std::wstring_view targetFolder,
                                      const std::function<bool(const std::wstring&)>& exists) {
    std::vector<std::wstring> clashes;
    for (const std::wstring& source : sources) {
        const std::wstring target = Joined(targetFolder, NameOf(source));
        if (!EqualNoCase(target, source) && exists(target)) clashes.push_back(source);
    }
    return clashes;
}

std::vector<std::wstring> SourcesToMove(const std::vector<std::wstring>& sources,
                                        const std::vector<std::wstring>& clashes, ClashAnswer answer) {
    if (answer == ClashAnswer::Cancel) return {};
    if (answer == ClashAnswer::Replace) return sources;
    std::vector<std::wstring> kept;
    for (const std::wstring& source : sources)
        if (std::find(clashes.begin(), clashes.end(), source) == clashes.end()) kept.push_back(source);
    return kept;
}

std::wstring ClashList(const std::vector<std::wstring>& clashes, size_t shown) {
    std::wstring text;
    for (size_t i = 0; i < clashes.size() && i < shown; ++i) text += NameOf(clashes[i]) + L"\n";
    if (clashes.size() > shown) text += L"\u2026\n";
    return text;
}

}  // namespace tessel
