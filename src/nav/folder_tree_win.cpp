#include "nav/folder_tree_win.h"

#include <shellapi.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/general_options.h"
#include "features/program_colours_win.h"
#include "view/shell_browser_win.h"
#include "win/com_ptr_win.h"
#include "win/handles_win.h"
#include "win/shell_item_win.h"
#include "win/subclass_win.h"
#include "nav/folder_tree_drop_win.h"
#include "nav/sub_folder_probe_win.h"
#include "nav/tab_label.h"

namespace tessel {
namespace {

constexpr UINT_PTR kKeyboardTimer = 1;
constexpr UINT_PTR kMouseTimer = 2;
constexpr UINT kMsgTreeShellChange = WM_APP + 0x151;
constexpr LONG kFolderEvents = SHCNE_MKDIR | SHCNE_RMDIR | SHCNE_RENAMEFOLDER;

}  // namespace

CShellTree2::~CShellTree2() {
    StopShellChanges();
    probe_.reset();  // no answers after this
    if (tree_ && IsWindow(tree_)) {
        StopDrops();
        win::Unsubclass(tree_);
    }
}

void CShellTree2::StopDrops() {
    if (!dropTarget_) return;
    RevokeDragDrop(tree_);
    dropTarget_->Detach();
    dropTarget_.reset();
}

// What the tree keeps of each item; owned by the item and freed when it is deleted.
struct CShellTree2::ItemData {
    win::UniquePidl folder;
    std::wstring path;  // known when the item was made from its folder's enumeration
};

CShellTree2::ItemData* CShellTree2::DataOf(HWND tree, HTREEITEM item) {
    TVITEMW data{TVIF_PARAM, item};
    return item && TreeView_GetItem(tree, &data) ? reinterpret_cast<ItemData*>(data.lParam) : nullptr;
}

// Names start at the tree's left edge unless the selected one would then be cut off: a narrow
// tree following a deep folder shows the end of the path. The thumb's position is sent, not
// SB_LEFT, which Wine's tree ignores.
void CShellTree2::ShowSelection() {
    HTREEITEM selected = tree_ ? TreeView_GetSelection(tree_) : nullptr;
    if (selected) TreeView_EnsureVisible(tree_, selected);
    RECT text{}, client{};
    GetClientRect(tree_, &client);
    const bool fits = !selected || !TreeView_GetItemRect(tree_, selected, &text, TRUE) ||
                      text.right + GetScrollPos(tree_, SB_HORZ) <= client.right;
    if (fits) SendMessageW(tree_, WM_HSCROLL, MAKEWPARAM(SB_THUMBPOSITION, 0), 0);
}

PCIDLIST_ABSOLUTE CShellTree2::FolderOf(HWND tree, HTREEITEM item) {
    const ItemData* data = DataOf(tree, item);
    return data ? data->folder.get() : nullptr;
}

void CShellTree2::Attach(HWND tree, Chosen chosen, bool dropDown) {
    tree_ = tree;
    dropDown_ = dropDown;
    chosen_ = std::move(chosen);
    TreeView_SetImageList(tree_, win::SystemSmallIcons(), TVSIL_NORMAL);  // the system's list: not ours to free
    win::Subclass(tree_, &CShellTree2::TreeProc, this);
    if (!itemColors_) itemColors_ = TreeItemColours;
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
    const DWORD wanted = ApplyStyle(style, TreeStyle(options_, dropDown_, {TVS_SINGLEEXPAND, TVS_FULLROWSELECT,
                                                                       TVS_HASLINES, TVS_LINESATROOT}));
    if (wanted != style) SetWindowLongW(tree_, GWL_STYLE, static_cast<LONG>(wanted));
    // Any colouring of the tree takes the file lists' font; off: the system's.
    HFONT font = o.useTreeColor && ProgramListFont() ? ProgramListFont() : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    SendMessageW(tree_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    TreeView_SetBkColor(tree_, TreeBackground());
    TreeView_SetLineColor(tree_, TreeLineColour());
}

// A tree becomes a drop target when first shown: most trees of a start never are.
void CShellTree2::EnsureFilled() {
    if (!tree_) return;
    if (!dropTarget_) {
        *dropTarget_.put() = new CShellTreeDropTarget(tree_, HoverDelayMs(Options().tree_hover_time));
        if (FAILED(RegisterDragDrop(tree_, dropTarget_.get()))) dropTarget_.reset();
    }
    if (TreeView_GetRoot(tree_)) return;
    FollowShellChanges();
    PIDLIST_ABSOLUTE desktop = nullptr;
    if (FAILED(SHGetFolderLocation(nullptr, CSIDL_DESKTOP, nullptr, 0, &desktop))) return;
    RedrawHold hold(tree_);
    HTREEITEM root = Add(TVI_ROOT, win::UniquePidl(desktop), nullptr);
    if (root) {
        Expand(root, win::DesktopFolder());
        ShowOpen(root);
    }
}

// Opened by its state: an expand message makes the tree size and scroll itself, 20-40 ms a
// level under Wine; the hold's end lays the tree out once.
void CShellTree2::ShowOpen(HTREEITEM item) {
    TreeView_SetItemState(tree_, item, TVIS_EXPANDED, TVIS_EXPANDED);
}

CShellTree2::RedrawHold::RedrawHold(HWND tree) : tree_(tree) {
    if (tree_) SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
}

CShellTree2::RedrawHold::~RedrawHold() {
    if (tree_) SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
}

// Names and icons come from the folder being opened, which is bound once for all its items
// (asking the shell about each item on its own binds its parent again every time); expand
// buttons are asked for when an item is first drawn.
HTREEITEM CShellTree2::Add(HTREEITEM parent, win::UniquePidl folder, IShellFolder* parentFolder,
                           const WIN32_FIND_DATAW* found) {
    auto data = std::make_unique<ItemData>();
    PCUITEMID_CHILD child = ILFindLastID(folder.get());
    win::ShellLook look;
    int openIcon = -1;
    const ItemData* above = parent == TVI_ROOT ? nullptr : DataOf(tree_, parent);
    if (!parentFolder || ILIsEmpty(folder.get())) {
        look = win::LookOf(folder.get());
    } else if (found && win::IsPlainDirectory(found->dwFileAttributes)) {  // no shell call: it would read the folder
        look = {found->cFileName, win::PlainFolderIcon(false)};
        openIcon = win::PlainFolderIcon(true);
        data->path = above && !above->path.empty()
                         ? above->path + (above->path.back() == L'\\' ? L"" : L"\\") + found->cFileName
                         : win::NameInFolder(parentFolder, child, SHGDN_FORPARSING);
    } else {
        look = {win::NameInFolder(parentFolder, child), win::IconInFolder(parentFolder, child)};
    }
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = TVI_LAST;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN;
    insert.item.pszText = look.name.data();
    insert.item.iImage = look.icon;
    insert.item.iSelectedImage = openIcon >= 0 ? openIcon : look.icon;
    insert.item.cChildren = parent == TVI_ROOT ? 1 : I_CHILDRENCALLBACK;
    data->folder = std::move(folder);
    insert.item.lParam = reinterpret_cast<LPARAM>(data.get());
    HTREEITEM item = TreeView_InsertItem(tree_, &insert);
    if (item) data.release();  // the item's now: freed when it is deleted
    return item;
}

void CShellTree2::DescribeItem(NMTVDISPINFOW& info) {
    if (!(info.item.mask & TVIF_CHILDREN)) return;
    info.item.cChildren = ChildrenOf(info.item.hItem, *reinterpret_cast<const ItemData*>(info.item.lParam));
    info.item.mask |= TVIF_DI_SETITEM;  // asked once per item
}

// Decided from the item's path where it has one: binding the parent of a deep folder costs a
// bind per level, and the tree asks this for every item it draws. Whether a local folder has
// sub-folders is found out by the probe; the button shows until it answers no.
int CShellTree2::ChildrenOf(HTREEITEM item, const ItemData& data) {
    std::wstring path = data.path.empty() ? win::FileSystemPathOf(data.folder.get()) : data.path;
    TreeItemFacts facts{true, false, path, true};
    if (!path.empty()) {
        const bool driveRoot = path.size() <= 3 && path.size() >= 2 && path[1] == L':';
        facts.removable = driveRoot && GetDriveTypeW((path.substr(0, 2) + L"\\").c_str()) == DRIVE_REMOVABLE;
    }
    switch (TreeChildren(facts, options_)) {
    case ChildrenAnswer::kNone: return 0;
    case ChildrenAnswer::kSome: return 1;
    case ChildrenAnswer::kAskForSubFolders: break;
    }
    if (!probe_) probe_ = std::make_unique<SubFolderProbe>(tree_);
    const uint64_t ticket = ++lastTicket_;
    asked_[item] = ticket;
    probe_->Ask(ticket, reinterpret_cast<LPARAM>(item), std::move(path));
    return 1;
}

void CShellTree2::TakeAnswer(WPARAM answer, LPARAM tag) {
    auto item = reinterpret_cast<HTREEITEM>(tag);
    const auto asked = asked_.find(item);
    if (asked == asked_.end() || asked->second != answer >> 1) return;  // the item went meanwhile
    asked_.erase(asked);
    if (answer & 1) return;
    TVITEMW none{TVIF_CHILDREN, item};
    TreeView_SetItem(tree_, &none);
}

// The sub-folders of the item's folder (and what else the shell can browse into, as the options
// say), each with what the file system said of it when that travels in its identifier.
void CShellTree2::ForEachChild(HTREEITEM item, IShellFolder* folder,
                               const std::function<void(win::UniquePidl, const WIN32_FIND_DATAW*)>& take) const {
    PCIDLIST_ABSOLUTE parent = FolderOf(tree_, item);
    win::ComPtr<IEnumIDList> children;
    const SHCONTF flags = SHCONTF_FOLDERS | (listing_.browsableItems ? SHCONTF_NONFOLDERS : 0) |
                          (listing_.hidden ? SHCONTF_INCLUDEHIDDEN : 0);
    if (!folder || folder->EnumObjects(tree_, flags, children.put()) != S_OK || !children) return;
    PITEMID_CHILD child = nullptr;
    while (children->Next(1, &child, nullptr) == S_OK) {
        // What the file system says travels in the item's identifier: read without a disk access.
        WIN32_FIND_DATAW found{};
        const bool known = SUCCEEDED(SHGetDataFromIDListW(folder, child, SHGDFIL_FINDDATA, &found, sizeof(found)));
        const bool directory = known && (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY);
        // Of the other items only those the shell can browse into (archives and the like).
        SFGAOF attributes = SFGAO_FOLDER | SFGAO_BROWSABLE;
        PCUITEMID_CHILD one = child;
        const bool browsable = !listing_.browsableItems || directory ||
                               (SUCCEEDED(folder->GetAttributesOf(1, &one, &attributes)) &&
                                (attributes & (SFGAO_FOLDER | SFGAO_BROWSABLE)));
        if (browsable)
            if (win::UniquePidl full{ILCombine(parent, child)}) take(std::move(full), known ? &found : nullptr);
        CoTaskMemFree(child);
    }
}

void CShellTree2::Expand(HTREEITEM item, win::ComPtr<IShellFolder> folder) {
    if (TreeView_GetChild(tree_, item)) return;  // read already
    if (!folder) folder = win::BindFolder(FolderOf(tree_, item));
    int added = 0;
    ForEachChild(item, folder.get(), [&](win::UniquePidl full, const WIN32_FIND_DATAW* found) {
        added += Add(item, std::move(full), folder.get(), found) != nullptr;
    });
    if (added == 0) {  // a folder that cannot be read shows no button
        TVITEMW none{TVIF_CHILDREN, item};
        TreeView_SetItem(tree_, &none);
    }
}

namespace {

// What tells two children of one folder apart across two readings: the file name where the file
// system gave one (the rest of the identifier changes with the folder's time), else the bytes.
std::wstring ChildKey(PCIDLIST_ABSOLUTE full, const WIN32_FIND_DATAW* found) {
    if (found && found->cFileName[0]) {
        std::wstring name = found->cFileName;
        CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
        return L"N" + name;
    }
    PCUITEMID_CHILD last = ILFindLastID(full);
    return L"B" + std::wstring(reinterpret_cast<const wchar_t*>(last), (last->mkid.cb + 1) / 2);
}

}  // namespace

void CShellTree2::AskChildrenAgain(HTREEITEM item) {
    TVITEMW ask{TVIF_CHILDREN, item};
    ask.cChildren = I_CHILDRENCALLBACK;
    TreeView_SetItem(tree_, &ask);
}

// The item's level as the folder holds it now: new children are added at the end, gone ones
// removed, the others (and what is open below them) stay.
void CShellTree2::RereadLevel(HTREEITEM item) {
    if (!TreeView_GetChild(tree_, item)) return AskChildrenAgain(item);
    win::ComPtr<IShellFolder> folder = win::BindFolder(FolderOf(tree_, item));
    if (!folder) return;
    std::map<std::wstring, std::pair<win::UniquePidl, std::optional<WIN32_FIND_DATAW>>> now;
    ForEachChild(item, folder.get(), [&](win::UniquePidl full, const WIN32_FIND_DATAW* found) {
        std::wstring key = ChildKey(full.get(), found);
        now.emplace(std::move(key), std::make_pair(std::move(full), found ? std::optional(*found) : std::nullopt));
    });
    RedrawHold hold(tree_);
    for (HTREEITEM child = TreeView_GetChild(tree_, item); child;) {
        HTREEITEM next = TreeView_GetNextSibling(tree_, child);
        const ItemData* data = DataOf(tree_, child);
        WIN32_FIND_DATAW found{};
        PCUITEMID_CHILD last = data ? ILFindLastID(data->folder.get()) : nullptr;
        const bool known = last && SUCCEEDED(SHGetDataFromIDListW(folder.get(), last, SHGDFIL_FINDDATA, &found,
                                                                  sizeof(found)));
        const auto kept = data ? now.find(ChildKey(data->folder.get(), known ? &found : nullptr)) : now.end();
        if (kept == now.end()) {
            TreeView_DeleteItem(tree_, child);
        } else {
            now.erase(kept);
            if (!TreeView_GetChild(tree_, child)) AskChildrenAgain(child);
        }
        child = next;
    }
    for (auto& [key, entry] : now) Add(item, std::move(entry.first), folder.get(), entry.second ? &*entry.second : nullptr);
}

void CShellTree2::Refresh() {
    if (!tree_ || !TreeView_GetRoot(tree_)) return;
    std::vector<HTREEITEM> levels{TreeView_GetRoot(tree_)};
    while (!levels.empty()) {
        HTREEITEM item = levels.back();
        levels.pop_back();
        RereadLevel(item);
        for (HTREEITEM child = TreeView_GetChild(tree_, item); child; child = TreeView_GetNextSibling(tree_, child))
            if (TreeView_GetChild(tree_, child)) levels.push_back(child);
    }
}

// Folders made, removed or renamed through the shell anywhere: the levels the tree has read
// follow (the view's own watcher tells of other programs' changes in the folder it shows).
void CShellTree2::FollowShellChanges() {
    if (notifyId_ || dropDown_) return;
    PIDLIST_ABSOLUTE desktop = nullptr;
    if (FAILED(SHGetFolderLocation(nullptr, CSIDL_DESKTOP, nullptr, 0, &desktop))) return;
    SHChangeNotifyEntry entry{desktop, TRUE};
    notifyId_ = SHChangeNotifyRegister(tree_, SHCNRF_InterruptLevel | SHCNRF_ShellLevel, kFolderEvents,
                                       kMsgTreeShellChange, 1, &entry);
    CoTaskMemFree(desktop);
}

void CShellTree2::StopShellChanges() {
    if (notifyId_) SHChangeNotifyDeregister(notifyId_);
    notifyId_ = 0;
}

// The old delivery form: wParam points to the notice's two item identifier lists.
void CShellTree2::OnShellChange(WPARAM wParam, LPARAM lParam) {
    const auto* items = reinterpret_cast<const PCIDLIST_ABSOLUTE*>(wParam);
    if (!items || !(lParam & kFolderEvents)) return;
    for (int i = 0; i < ((lParam & SHCNE_RENAMEFOLDER) ? 2 : 1); ++i)
        if (items[i] && !ILIsEmpty(items[i]))
            if (win::UniquePidl parent = win::ParentOf(items[i])) Reread(parent.get());
}

void CShellTree2::Reread(PCIDLIST_ABSOLUTE folder) {
    if (!tree_ || !folder) return;
    if (HTREEITEM item = WalkTo(folder, false)) RereadLevel(item);
}

// The child of `item` that is `folder`, compared byte for byte first: a parsed list may carry
// other bytes than the enumerated one for the same item.
HTREEITEM CShellTree2::ChildFor(HTREEITEM item, PCIDLIST_ABSOLUTE folder) const {
    for (HTREEITEM child = TreeView_GetChild(tree_, item); child; child = TreeView_GetNextSibling(tree_, child))
        if (win::IdenticalPidl(FolderOf(tree_, child), folder)) return child;
    for (HTREEITEM child = TreeView_GetChild(tree_, item); child; child = TreeView_GetNextSibling(tree_, child))
        if (win::SamePidl(FolderOf(tree_, child), folder)) return child;
    return nullptr;
}

// Each level is bound from the one above (binding a deep folder from the desktop costs a bind
// per level) and opened by its state: an expand message makes the tree size and scroll itself
// at every level, 20-40 ms each under Wine.
HTREEITEM CShellTree2::WalkTo(PCIDLIST_ABSOLUTE folder, bool readLevels) {
    RedrawHold hold(tree_);
    if (readLevels) EnsureFilled();
    HTREEITEM item = TreeView_GetRoot(tree_);
    win::ComPtr<IShellFolder> bound = win::DesktopFolder();
    UINT depth = 0;
    for (PCUIDLIST_RELATIVE id = folder; id && id->mkid.cb; id = ILNext(id)) ++depth;
    // The prefixes of the folder, shortest first: the item of each is a child of the one before.
    for (UINT level = 1; item && level <= depth; ++level) {
        win::UniquePidl prefix = win::ClonePidl(folder);
        for (UINT cut = depth; cut > level; --cut) ILRemoveLastID(prefix.get());
        if (readLevels) Expand(item, bound);
        HTREEITEM found = ChildFor(item, prefix.get());
        if (found && readLevels) {
            ShowOpen(item);
            win::ComPtr<IShellFolder> next;
            if (bound && level < depth &&
                FAILED(bound->BindToObject(ILFindLastID(FolderOf(tree_, found)), nullptr, IID_IShellFolder,
                                           next.put_void())))
                next.reset();
            bound = next;  // null: the next level binds from the desktop
        }
        item = found;
    }
    return item;
}

// The window counts as hidden for the whole walk (its own redraw switch only holds off the
// tree's layout): opening levels, selecting and scrolling a shown tree each cost a round trip
// to the display under Wine, about 100 ms for a walk 20 levels deep. It is drawn once at the end.
bool CShellTree2::SyncTo(PCIDLIST_ABSOLUTE folder) {
    if (!tree_ || !folder) return false;
    const bool shown = GetWindowLongW(tree_, GWL_STYLE) & WS_VISIBLE;
    if (shown) DefWindowProcW(tree_, WM_SETREDRAW, FALSE, 0);
    HTREEITEM item = WalkTo(folder);
    if (item) TreeView_SelectItem(tree_, item);  // a selection by the program: no navigation
    ShowSelection();
    if (shown) DefWindowProcW(tree_, WM_SETREDRAW, TRUE, 0);
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
    if (message == kMsgSubFolderAnswer) {
        self->TakeAnswer(wParam, lParam);
        return 0;
    }
    if (message == kMsgTreeShellChange) {
        self->OnShellChange(wParam, lParam);
        return 0;
    }
    if (message == WM_NCDESTROY) {
        self->StopShellChanges();
        self->StopDrops();
        KillTimer(tree, kKeyboardTimer);
        KillTimer(tree, kMouseTimer);
    }
    return win::CallOriginal(tree, message, wParam, lParam);
}

void CShellTree2::SetItemColors(ItemColors colors) {
    itemColors_ = std::move(colors);
    if (tree_) InvalidateRect(tree_, nullptr, TRUE);
}

// With useTreeColor 1 each drawn item asks the colour rules for its colours.
LRESULT CShellTree2::CustomDraw(NMTVCUSTOMDRAW& draw) const {
    if (Options().useTreeColor != 1 || !itemColors_) return CDRF_DODEFAULT;
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || (draw.nmcd.uItemState & CDIS_SELECTED)) return CDRF_DODEFAULT;
    const auto* data = reinterpret_cast<const ItemData*>(draw.nmcd.lItemlParam);
    COLORREF text = CLR_NONE, back = CLR_NONE;
    if (!data || !itemColors_(data->folder.get(), text, back)) return CDRF_DODEFAULT;
    if (text != CLR_NONE) draw.clrText = text;
    if (back != CLR_NONE) draw.clrTextBk = back;
    return CDRF_DODEFAULT;
}

bool CShellTree2::OnNotify(NMHDR* header, LRESULT& result) {
    if (!tree_ || header->hwndFrom != tree_) return false;
    auto* view = reinterpret_cast<NMTREEVIEWW*>(header);
    result = 0;
    switch (header->code) {
    case NM_CUSTOMDRAW:
        result = CustomDraw(*reinterpret_cast<NMTVCUSTOMDRAW*>(header));
        break;
    case TVN_ITEMEXPANDINGW:
        if (view->action == TVE_EXPAND) Expand(view->itemNew.hItem);
        break;
    case TVN_GETDISPINFOW:
        DescribeItem(*reinterpret_cast<NMTVDISPINFOW*>(header));
        break;
    case TVN_DELETEITEMW:
        asked_.erase(view->itemOld.hItem);
        delete reinterpret_cast<ItemData*>(view->itemOld.lParam);
        break;
    case TVN_SELCHANGEDW:
        // Only the user's choice navigates, and walking with the keys only once they rest.
        // In the drop-down form the keys only walk; Enter chooses.
        if (view->action == TVC_BYKEYBOARD && !dropDown_) SetTimer(tree_, kKeyboardTimer, kTreeKeyboardDelayMs, nullptr);
        if (view->action == TVC_BYMOUSE) SetTimer(tree_, kMouseTimer, kTreeMouseDelayMs, nullptr);
        break;
    }
    return true;
}

}  // namespace tessel
