#include "nav/folder_tree_win.h"

#include <shellapi.h>

#include <string>

#include "core/general_options.h"
#include "view/shell_browser_win.h"
#include "win/com_ptr_win.h"
#include "win/handles_win.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"

namespace tessel {
namespace {

constexpr UINT_PTR kKeyboardTimer = 1;
constexpr UINT_PTR kMouseTimer = 2;

// At most this many entries are read to find a sub-folder: a folder of 100,000 files would
// otherwise be read whole (the directories-only search is a hint the file system may ignore).
constexpr int kSubFolderProbeLimit = 1000;

// A local directory with at least one sub-folder; stops at the first, and answers yes when the
// limit is reached first (the button stays, opening the folder tells).
bool HasSubFolder(const std::wstring& path) {
    WIN32_FIND_DATAW data{};
    HANDLE find = FindFirstFileExW((path + L"\\*").c_str(), FindExInfoBasic, &data, FindExSearchLimitToDirectories,
                                   nullptr, 0);
    if (find == INVALID_HANDLE_VALUE) return false;
    bool found = false;
    int read = 0;
    do {
        const bool dots = data.cFileName[0] == L'.' &&
                          (data.cFileName[1] == 0 || (data.cFileName[1] == L'.' && data.cFileName[2] == 0));
        found = ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && !dots) || ++read >= kSubFolderProbeLimit;
    } while (!found && FindNextFileW(find, &data));
    FindClose(find);
    return found;
}

}  // namespace

CShellTree2::~CShellTree2() {
    if (tree_ && IsWindow(tree_)) win::Unsubclass(tree_);
}

PCIDLIST_ABSOLUTE CShellTree2::FolderOf(HWND tree, HTREEITEM item) {
    TVITEMW data{TVIF_PARAM, item};
    return item && TreeView_GetItem(tree, &data) ? reinterpret_cast<PCIDLIST_ABSOLUTE>(data.lParam) : nullptr;
}

void CShellTree2::Attach(HWND tree, Chosen chosen) {
    tree_ = tree;
    chosen_ = std::move(chosen);
    TreeView_SetImageList(tree_, win::SystemSmallIcons(), TVSIL_NORMAL);  // the system's list: not ours to free
    win::Subclass(tree_, &CShellTree2::TreeProc, this);
    ApplyOptions();
}

void CShellTree2::ApplyOptions() {
    const GeneralOptions& o = Options();
    options_ = {o.tree_single_expand, o.tree_fullrowselect, o.tree_disable_line, o.tree_all_browsable,
                o.tree_auto_chk_subdir};
    SHELLFLAGSTATE shell{};
    SHGetSettings(&shell, SSF_SHOWALLOBJECTS);
    listing_ = TreeEnumeration(options_, shell.fShowAllObjects != 0);
    if (!tree_) return;
    const DWORD style = static_cast<DWORD>(GetWindowLongW(tree_, GWL_STYLE));
    const DWORD wanted = ApplyStyle(style, TreeStyle(options_, false, {TVS_SINGLEEXPAND, TVS_FULLROWSELECT,
                                                                       TVS_HASLINES, TVS_LINESATROOT}));
    if (wanted != style) SetWindowLongW(tree_, GWL_STYLE, static_cast<LONG>(wanted));
    // Any colouring of the tree takes the file lists' font; off: the system's.
    HFONT font = o.useTreeColor && ProgramListFont() ? ProgramListFont() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(tree_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void CShellTree2::EnsureFilled() {
    if (!tree_ || TreeView_GetRoot(tree_)) return;
    PIDLIST_ABSOLUTE desktop = nullptr;
    if (SUCCEEDED(SHGetFolderLocation(nullptr, CSIDL_DESKTOP, nullptr, 0, &desktop))) {
        HTREEITEM root = Add(TVI_ROOT, desktop, nullptr);
        TreeView_Expand(tree_, root, TVE_EXPAND);
    }
}

// Names and icons come from the folder being opened, which is bound once for all its items
// (asking the shell about each item on its own binds its parent again every time); expand
// buttons are asked for when an item is first drawn.
HTREEITEM CShellTree2::Add(HTREEITEM parent, PIDLIST_ABSOLUTE folder, IShellFolder* parentFolder) {
    PCUITEMID_CHILD child = ILFindLastID(folder);
    win::ShellLook look = parentFolder && !ILIsEmpty(folder)
                              ? win::ShellLook{win::NameInFolder(parentFolder, child), win::IconInFolder(parentFolder, child)}
                              : win::LookOf(folder);
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    insert.item.pszText = look.name.data();
    insert.item.iImage = insert.item.iSelectedImage = look.icon;
    insert.item.cChildren = parent == TVI_ROOT ? 1 : I_CHILDRENCALLBACK;
    insert.item.lParam = reinterpret_cast<LPARAM>(folder);  // freed when the item is deleted
    HTREEITEM item = TreeView_InsertItem(tree_, &insert);
    if (!item) CoTaskMemFree(folder);
    return item;
}

void CShellTree2::DescribeItem(NMTVDISPINFOW& info) const {
    if (!(info.item.mask & TVIF_CHILDREN)) return;
    info.item.cChildren = ChildrenOf(reinterpret_cast<PCIDLIST_ABSOLUTE>(info.item.lParam));
    info.item.mask |= TVIF_DI_SETITEM;  // asked once per item
}

// Decided from the item's path where it has one: binding the parent of a deep folder costs a
// bind per level, and the tree asks this for every item it draws.
int CShellTree2::ChildrenOf(PCIDLIST_ABSOLUTE folder) const {
    const std::wstring path = win::FileSystemPathOf(folder);
    TreeItemFacts facts{true, false, path};
    if (!path.empty()) {
        const bool network = path.size() >= 2 && path[0] == L'\\' && path[1] == L'\\';
        const bool driveRoot = path.size() <= 3 && path.size() >= 2 && path[1] == L':';
        facts.removable = driveRoot && GetDriveTypeW((path.substr(0, 2) + L"\\").c_str()) == DRIVE_REMOVABLE;
        if (!facts.removable && !network && options_.auto_chk_subdir) {
            const DWORD kind = GetFileAttributesW(path.c_str());
            facts.pathIsDirectory = kind != INVALID_FILE_ATTRIBUTES && (kind & FILE_ATTRIBUTE_DIRECTORY);
        }
    }
    switch (TreeChildren(facts, options_)) {
    case ChildrenAnswer::kNone: return 0;
    case ChildrenAnswer::kSome: return 1;
    case ChildrenAnswer::kAskForSubFolders: return HasSubFolder(path) ? 1 : 0;
    }
    return 1;
}

void CShellTree2::Expand(HTREEITEM item) {
    if (TreeView_GetChild(tree_, item)) return;  // read already
    PCIDLIST_ABSOLUTE parent = FolderOf(tree_, item);
    win::ComPtr<IShellFolder> folder = win::BindFolder(parent);
    win::ComPtr<IEnumIDList> children;
    const SHCONTF flags = SHCONTF_FOLDERS | (listing_.browsableItems ? SHCONTF_NONFOLDERS : 0) |
                          (listing_.hidden ? SHCONTF_INCLUDEHIDDEN : 0);
    int added = 0;
    if (folder && folder->EnumObjects(tree_, flags, children.put()) == S_OK && children) {
        PITEMID_CHILD child = nullptr;
        while (children->Next(1, &child, nullptr) == S_OK) {
            // Of the other items only those the shell can browse into (archives and the like).
            SFGAOF attributes = SFGAO_FOLDER | SFGAO_BROWSABLE;
            PCUITEMID_CHILD one = child;
            const bool browsable = !listing_.browsableItems ||
                                   (SUCCEEDED(folder->GetAttributesOf(1, &one, &attributes)) &&
                                    (attributes & (SFGAO_FOLDER | SFGAO_BROWSABLE)));
            if (browsable)
                if (PIDLIST_ABSOLUTE full = ILCombine(parent, child)) added += Add(item, full, folder.get()) != nullptr;
            CoTaskMemFree(child);
        }
    }
    if (added == 0) {  // a folder that cannot be read shows no button
        TVITEMW none{TVIF_CHILDREN, item};
        TreeView_SetItem(tree_, &none);
    }
}

bool CShellTree2::SyncTo(PCIDLIST_ABSOLUTE folder) {
    if (!tree_ || !folder) return false;
    EnsureFilled();
    // One repaint for the whole walk: the tree redraws and sizes itself at every opened level.
    SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
    HTREEITEM item = TreeView_GetRoot(tree_);
    UINT depth = 0;
    for (PCUIDLIST_RELATIVE id = folder; id && id->mkid.cb; id = ILNext(id)) ++depth;
    // The prefixes of the folder, shortest first: the item of each is a child of the one before.
    for (UINT level = 1; item && level <= depth; ++level) {
        win::UniquePidl prefix = win::ClonePidl(folder);
        for (UINT cut = depth; cut > level; --cut) ILRemoveLastID(prefix.get());
        Expand(item);
        HTREEITEM found = nullptr;
        for (HTREEITEM child = TreeView_GetChild(tree_, item); child && !found; child = TreeView_GetNextSibling(tree_, child))
            if (win::IdenticalPidl(FolderOf(tree_, child), prefix.get())) found = child;
        // A parsed list may carry other bytes than the enumerated one for the same item.
        for (HTREEITEM child = TreeView_GetChild(tree_, item); child && !found; child = TreeView_GetNextSibling(tree_, child))
            if (win::SamePidl(FolderOf(tree_, child), prefix.get())) found = child;
        if (found) TreeView_Expand(tree_, item, TVE_EXPAND);
        item = found;
    }
    if (item) {
        TreeView_SelectItem(tree_, item);  // a selection by the program: no navigation
        TreeView_EnsureVisible(tree_, item);
    }
    SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
    SendMessageW(tree_, WM_HSCROLL, SB_LEFT, 0);  // names of a narrow tree start at its left edge
    InvalidateRect(tree_, nullptr, TRUE);
    return item != nullptr;
}

int CShellTree2::ChildCount(HTREEITEM item) const {
    int count = 0;
    for (HTREEITEM child = TreeView_GetChild(tree_, item); child; child = TreeView_GetNextSibling(tree_, child))
        ++count;
    return count;
}

void CShellTree2::Choose(bool byMouse) {
    KillTimer(tree_, byMouse ? kMouseTimer : kKeyboardTimer);
    HTREEITEM caret = TreeView_GetSelection(tree_);
    PCIDLIST_ABSOLUTE folder = FolderOf(tree_, caret);
    if (!folder || !chosen_) return;
    chosen_(folder);
    if (byMouse && Options().tree_expand_when_select) TreeView_Expand(tree_, caret, TVE_EXPAND);
}

LRESULT CShellTree2::TreeProc(HWND tree, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    auto* self = static_cast<CShellTree2*>(data);
    if (message == WM_TIMER && (wParam == kKeyboardTimer || wParam == kMouseTimer)) {
        self->Choose(wParam == kMouseTimer);
        return 0;
    }
    if (message == WM_NCDESTROY) {
        KillTimer(tree, kKeyboardTimer);
        KillTimer(tree, kMouseTimer);
    }
    return win::CallOriginal(tree, message, wParam, lParam);
}

bool CShellTree2::OnNotify(NMHDR* header) {
    if (!tree_ || header->hwndFrom != tree_) return false;
    auto* view = reinterpret_cast<NMTREEVIEWW*>(header);
    switch (header->code) {
    case TVN_ITEMEXPANDINGW:
        if (view->action == TVE_EXPAND) Expand(view->itemNew.hItem);
        break;
    case TVN_GETDISPINFOW:
        DescribeItem(*reinterpret_cast<NMTVDISPINFOW*>(header));
        break;
    case TVN_DELETEITEMW:
        CoTaskMemFree(reinterpret_cast<void*>(view->itemOld.lParam));
        break;
    case TVN_SELCHANGEDW:
        // Only the user's choice navigates, and walking with the keys only once they rest.
        if (view->action == TVC_BYKEYBOARD) SetTimer(tree_, kKeyboardTimer, kTreeKeyboardDelayMs, nullptr);
        if (view->action == TVC_BYMOUSE) SetTimer(tree_, kMouseTimer, kTreeMouseDelayMs, nullptr);
        break;
    }
    return true;
}

}  // namespace tessel
