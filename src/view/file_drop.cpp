#include "view/file_drop.h"

#include <cwctype>

#include "core/text_case.h"

namespace tessel {
namespace {

// "C:" of a drive path, "\\server\share" of a network path, "" when neither.
std::wstring_view VolumeOf(std::wstring_view path) {
    if (path.size() >= 2 && path[1] == L':') return path.substr(0, 2);
    if (path.size() < 3 || path[0] != L'\\' || path[1] != L'\\') return {};
    const size_t server = path.find(L'\\', 2);
    if (server == std::wstring_view::npos) return path;
    const size_t share = path.find(L'\\', server + 1);
    return path.substr(0, share);
}

std::wstring_view WithoutTrailingSlash(std::wstring_view path) {
    while (path.size() > 3 && (path.back() == L'\\' || path.back() == L'/')) path.remove_suffix(1);
    return path;
}

}  // namespace

uint32_t FileDropEffect(uint32_t keys, bool sameVolume, uint32_t allowed) {
    uint32_t wanted = sameVolume ? kDropMove : kDropCopy;
    if (keys & kKeyControl) wanted = kDropCopy;
    else if (keys & kKeyShift) wanted = kDropMove;
    if (allowed & wanted) return wanted;
    if (!(keys & (kKeyControl | kKeyShift))) return allowed & (kDropCopy | kDropMove) & ~wanted;  // the other one
    return 0;
}

bool SameVolume(std::wstring_view a, std::wstring_view b) {
    const std::wstring_view va = VolumeOf(a), vb = VolumeOf(b);
    return !va.empty() && EqualNoCase(va, vb);
}

bool DropsIntoItself(const std::vector<std::wstring>& dropped, std::wstring_view target) {
    target = WithoutTrailingSlash(target);
    for (const std::wstring& item : dropped) {
        const std::wstring_view source = WithoutTrailingSlash(item);
        if (source.empty() || target.size() < source.size()) continue;
        if (!EqualNoCase(target.substr(0, source.size()), source)) continue;
        if (target.size() == source.size() || target[source.size()] == L'\\' || source.back() == L'\\') return true;
    }
    return false;
}

}  // namespace tessel
