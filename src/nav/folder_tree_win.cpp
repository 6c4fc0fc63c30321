#include "nav/folder_tree_win.h"

#include <shellapi.h>

#include "win/com_ptr_win.h"
#include "win/handles_win.h"
#include "win/shell_item_win.h"

namespace tessel {
namespace {

PCIDLIST_ABSOLUTE FolderOf(HWND tree, HTREEITEM item) {
    TVITEMW data{TVIF_PARAM, item};
    return TreeView_GetItem(tree, &data) ? reinterpret_cast<PCIDLIST_ABSOLUTE>(data.lParam) : nullptr;
}

}  // namespace

void CShellTree2::Attach(HWND tree, Chosen chosen) {
    tree_ = tree;
    chosen_ = std::move(chosen);
    TreeView_SetImageList(tree_, win::SystemSmallIcons(), TVSIL_NORMAL);  // the system's list: not ours to free
}

void CShellTree2::EnsureFilled() {
    if (!tree_ || TreeView_GetRoot(tree_)) return;
    PIDLIST_ABSOLUTE desktop = nullptr;
    if (SUCCEEDED(SHGetFolderLocation(nullptr, CSIDL_DESKTOP, nullptr, 0, &desktop))) {
        HTREEITEM root = Add(TVI_ROOT, desktop);
        TreeView_Expand(tree_, root, TVE_EXPAND);
    }
}

HTREEITEM CShellTree2::Add(HTREEITEM parent, PIDLIST_ABSOLUTE folder) {
    SHFILEINFOW info{};
    SHGetFileInfoW(reinterpret_cast<LPCWSTR>(folder), 0, &info, sizeof(info),
                   SHGFI_PIDL | SHGFI_DISPLAYNAME | SHGFI_SYSICONINDEX | SHGFI_SMALLICON);
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    insert.item.pszText = info.szDisplayName;
    insert.item.iImage = insert.item.iSelectedImage = info.iIcon;
    insert.item.cChildren = 1;  // a button until the level is read
    insert.item.lParam = reinterpret_cast<LPARAM>(folder);  // freed when the item is deleted
    HTREEITEM item = TreeView_InsertItem(tree_, &insert);
    if (!item) CoTaskMemFree(folder);
    return item;
}

void CShellTree2::Expand(HTREEITEM item) {
    if (TreeView_GetChild(tree_, item)) return;  // read already
    PCIDLIST_ABSOLUTE parent = FolderOf(tree_, item);
    win::ComPtr<IShellFolder> folder = win::BindFolder(parent);
    win::ComPtr<IEnumIDList> children;
    if (!folder || folder->EnumObjects(tree_, SHCONTF_FOLDERS, children.put()) != S_OK) {
        TVITEMW none{TVIF_CHILDREN, item};
        TreeView_SetItem(tree_, &none);
        return;
    }
    PITEMID_CHILD child = nullptr;
    int added = 0;
    while (children->Next(1, &child, nullptr) == S_OK) {
        if (PIDLIST_ABSOLUTE full = ILCombine(parent, child)) added += Add(item, full) != nullptr;
        CoTaskMemFree(child);
    }
    if (added == 0) {
        TVITEMW none{TVIF_CHILDREN, item};
        TreeView_SetItem(tree_, &none);
    }
}

int CShellTree2::ChildCount(HTREEITEM item) const {
    int count = 0;
    for (HTREEITEM child = TreeView_GetChild(tree_, item); child; child = TreeView_GetNextSibling(tree_, child))
        ++count;
    return count;
}

bool CShellTree2::OnNotify(NMHDR* header) {
    if (!tree_ || header->hwndFrom != tree_) return false;
    auto* view = reinterpret_cast<NMTREEVIEWW*>(header);
    switch (header->code) {
    case TVN_ITEMEXPANDINGW:
        if (view->action == TVE_EXPAND) Expand(view->itemNew.hItem);
        break;
    case TVN_DELETEITEMW:
        CoTaskMemFree(reinterpret_cast<void*>(view->itemOld.lParam));
        break;
    case TVN_SELCHANGEDW:
        // Only the user's choice navigates, not a selection made by the program.
        if (view->action != TVC_UNKNOWN && chosen_) chosen_(reinterpret_cast<PCIDLIST_ABSOLUTE>(view->itemNew.lParam));
        break;
    }
    return true;
}

}  // namespace tessel
