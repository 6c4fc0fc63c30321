#include "nav/folder_tree_drop_win.h"

#include <shlobj.h>

#include "view/file_drop.h"
#include "nav/folder_tree_win.h"
#include "nav/tab_ctrl_win.h"
#include "view/file_clipboard_win.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"

namespace tessel {

CShellTreeDropTarget::CShellTreeDropTarget(HWND tree, unsigned hoverDelayMs)
    : CIDropTargetPlus(tree), tree_(tree), delayMs_(hoverDelayMs) {}

void CShellTreeDropTarget::Detach() {
    tree_ = nullptr;
    files_.clear();
}

HTREEITEM CShellTreeDropTarget::ItemAt(POINTL screen) const {
    TVHITTESTINFO hit{{screen.x, screen.y}};
    ScreenToClient(tree_, &hit.pt);
    const HTREEITEM item = TreeView_HitTest(tree_, &hit);
    return hit.flags & (TVHT_ONITEM | TVHT_ONITEMBUTTON | TVHT_ONITEMINDENT | TVHT_ONITEMRIGHT) ? item : nullptr;
}

std::wstring CShellTreeDropTarget::FolderPathOf(HTREEITEM item) const {
    const std::wstring path = win::FileSystemPathOf(CShellTree2::FolderOf(tree_, item));
    return !path.empty() && win::IsDirectory(path) ? path : std::wstring();
}

// Files only, never a tab being dragged (its folder would be moved), never a folder into itself.
DWORD CShellTreeDropTarget::EffectOn(HTREEITEM item, DWORD keys, DWORD allowed) const {
    if (!item || files_.empty() || CCBrowserTabCtrl::TabDragActive()) return DROPEFFECT_NONE;
    const std::wstring target = FolderPathOf(item);
    if (target.empty() || DropsIntoItself(files_, target)) return DROPEFFECT_NONE;
    return FileDropEffect(keys, SameVolume(files_.front(), target), allowed);
}

void CShellTreeDropTarget::Highlight(HTREEITEM item) {
    if (tree_) TreeView_SelectDropTarget(tree_, item);
}

STDMETHODIMP CShellTreeDropTarget::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    files_ = DroppedFilesOf(data);
    hover_ = {};
    hover_.mark = GetTickCount();
    const DWORD allowed = *effect;
    CIDropTargetPlus::DragEnter(data, keys, point, effect);
    *effect = allowed;
    return DragOver(keys, point, effect);
}

STDMETHODIMP CShellTreeDropTarget::DragOver(DWORD keys, POINTL point, DWORD* effect) {
    const DWORD allowed = *effect;
    CIDropTargetPlus::DragOver(keys, point, effect);
    if (!tree_) return *effect = DROPEFFECT_NONE, S_OK;
    const HTREEITEM item = ItemAt(point);
    if (item) {
        const bool open = TreeView_GetItemState(tree_, item, TVIS_EXPANDED) & TVIS_EXPANDED;
        if (TreeHoverOpens(hover_, open, point.x, point.y, GetTickCount(), delayMs_))
            TreeView_Expand(tree_, item, TVE_EXPAND);
    }
    *effect = EffectOn(item, keys, allowed);
    Highlight(*effect ? item : nullptr);
    return S_OK;
}

STDMETHODIMP CShellTreeDropTarget::DragLeave() {
    Highlight(nullptr);
    files_.clear();
    return CIDropTargetPlus::DragLeave();
}

// A move is carried out here, so the drop reports no effect for it and tells the source in the
// data object instead (the shell's optimised move): the source must not delete what is gone.
STDMETHODIMP CShellTreeDropTarget::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    const HTREEITEM item = tree_ ? ItemAt(point) : nullptr;
    DWORD chosen = EffectOn(item, keys, *effect);
    // A right-button drag asks what to do, as every drop target of files does.
    if (chosen && (enterKeys_ & MK_RBUTTON))
        chosen = AskFileDropEffect(tree_, point, *effect & (DROPEFFECT_COPY | DROPEFFECT_MOVE), chosen);
    const std::wstring target = chosen ? FolderPathOf(item) : std::wstring();
    ClipboardFiles files{files_, chosen};
    DragLeave();
    *effect = DROPEFFECT_NONE;
    if (!chosen || !CopyOrMoveFiles(tree_, files, target)) return S_OK;
    if (chosen == DROPEFFECT_MOVE) TellMovePerformed(data);
    *effect = chosen == DROPEFFECT_COPY ? DROPEFFECT_COPY : DROPEFFECT_NONE;
    return S_OK;
}

}  // namespace tessel
