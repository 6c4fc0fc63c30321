#include "nav/address_input_win.h"

#include <windows.h>
#include <shlobj.h>

#include "nav/typed_address.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

std::optional<std::wstring> EnvironmentValue(std::wstring_view name) {
    const std::wstring key(name);
    wchar_t value[kEnvironmentValueLimit + 1] = {};
    const DWORD length = GetEnvironmentVariableW(key.c_str(), value, kEnvironmentValueLimit + 1);
    if (length == 0 || length > kEnvironmentValueLimit) return std::nullopt;
    return std::wstring(value, length);
}

// A parsed list that names a folder whose parent can be bound.
bool IsFolder(PCIDLIST_ABSOLUTE pidl) {
    win::UniquePidl parent = win::ParentOf(pidl);
    win::ComPtr<IShellFolder> folder = parent ? win::BindFolder(parent.get()) : win::DesktopFolder();
    if (!folder) return false;
    if (ILIsEmpty(pidl)) return true;  // the desktop itself
    PCUITEMID_CHILD child = ILFindLastID(pidl);
    SFGAOF attributes = SFGAO_FOLDER;
    return SUCCEEDED(folder->GetAttributesOf(1, &child, &attributes)) && (attributes & SFGAO_FOLDER);
}

win::UniquePidl ParseWithDesktop(const std::wstring& text) {
    win::ComPtr<IShellFolder> desktop = win::DesktopFolder();
    PIDLIST_RELATIVE pidl = nullptr;
    std::wstring buffer = text;  // the parser may write into it
    if (!desktop || FAILED(desktop->ParseDisplayName(nullptr, nullptr, buffer.data(), nullptr, &pidl, nullptr)))
        return {};
    return win::UniquePidl(reinterpret_cast<PIDLIST_ABSOLUTE>(pidl));
}

}  // namespace

win::UniquePidl ResolveTypedAddress(const std::wstring& typed) {
    const TypedAddress plan = PlanTypedAddress(typed, &EnvironmentValue);
    if (!plan.shellPath.empty())
        if (win::UniquePidl pidl = win::PidlFromPath(plan.shellPath); pidl && IsFolder(pidl.get())) return pidl;
    for (const std::wstring& form : plan.parseForms)
        if (win::UniquePidl pidl = ParseWithDesktop(form)) return pidl;
    return {};
}

}  // namespace tessel
