#include "nav/address_popup_win.h"

#include <shlobj.h>

#include "win/com_ptr_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

constexpr UINT kFirstChild = 1;

}  // namespace

// Names come from the enumeration's own folder: no icon and no file-system access per item,
// so a folder of ten thousand sub-folders opens at once.
CAdressBarPopup::CAdressBarPopup(PCIDLIST_ABSOLUTE folder)
    : folder_(win::ClonePidl(folder)), menu_(CreatePopupMenu()) {
    win::ComPtr<IShellFolder> shellFolder = folder_ ? win::BindFolder(folder_.get()) : nullptr;
    win::ComPtr<IEnumIDList> items;
    SHELLSTATEW state{};
    SHGetSetSettings(&state, SSF_SHOWALLOBJECTS, FALSE);
    const SHCONTF flags = SHCONTF_FOLDERS | (state.fShowAllObjects ? SHCONTF_INCLUDEHIDDEN : 0);
    if (!menu_ || !shellFolder || shellFolder->EnumObjects(nullptr, flags, items.put()) != S_OK || !items) return;
    PITEMID_CHILD child = nullptr;
    while (items->Next(1, &child, nullptr) == S_OK) {
        const std::wstring name = win::NameInFolder(shellFolder.get(), child);
        const UINT id = kFirstChild + static_cast<UINT>(children_.size());
        children_.emplace_back(reinterpret_cast<PIDLIST_ABSOLUTE>(child));  // owned from here
        AppendMenuW(menu_.get(), MF_STRING, id, name.empty() ? L"?" : name.c_str());  // long menus scroll
    }
}

win::UniquePidl CAdressBarPopup::Child(size_t index) const {
    if (index >= children_.size()) return {};
    return win::UniquePidl(ILCombine(folder_.get(), reinterpret_cast<PCUIDLIST_RELATIVE>(children_[index].get())));
}

win::UniquePidl CAdressBarPopup::Track(HWND owner, POINT screen) {
    if (children_.empty()) return {};
    const UINT id = TrackPopupMenu(menu_.get(), TPM_RETURNCMD | TPM_LEFTALIGN, screen.x, screen.y, 0, owner, nullptr);
    return id >= kFirstChild ? Child(id - kFirstChild) : win::UniquePidl();
}

}  // namespace tessel
