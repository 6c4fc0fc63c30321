#include "nav/drop_text.h"

#include <cwctype>

namespace tessel {

DroppedFileKind KindOfDroppedFile(std::wstring_view name) {
    if (name.size() < 4) return DroppedFileKind::kPlain;
    std::wstring ending(name.substr(name.size() - 4));
    for (wchar_t& c : ending) c = static_cast<wchar_t>(std::towlower(c));
    if (ending == L".url") return DroppedFileKind::kInternetShortcut;
    if (ending == L".lnk") return DroppedFileKind::kShellLink;
    return DroppedFileKind::kPlain;
}

}  // namespace tessel
