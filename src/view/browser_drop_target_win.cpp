#include "view/browser_drop_target_win.h"

#include "view/file_clipboard_win.h"
#include "view/file_drop.h"

namespace tessel {

CMyBrowser_IDropTargetPlus::CMyBrowser_IDropTargetPlus(win::ComPtr<IDropTarget> inner, ListDropHooks hooks)
    : inner_(std::move(inner)), hooks_(std::move(hooks)) {}

STDMETHODIMP CMyBrowser_IDropTargetPlus::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    if (riid == IID_IUnknown || riid == IID_IDropTarget) {
        *object = static_cast<IDropTarget*>(this);
        AddRef();
        return S_OK;
    }
    *object = nullptr;
    return E_NOINTERFACE;
}

STDMETHODIMP_(ULONG) CMyBrowser_IDropTargetPlus::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

DWORD CMyBrowser_IDropTargetPlus::FilesEffect(POINTL point, DWORD keys, DWORD allowed, std::wstring* target) const {
    const std::wstring folder = hooks_.folderAt ? hooks_.folderAt(point) : std::wstring();
    if (target) *target = folder;
    if (folder.empty() || files_.empty() || DropsIntoItself(files_, folder)) return DROPEFFECT_NONE;
    return FileDropEffect(keys, SameVolume(files_.front(), folder), allowed);
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    enterKeys_ = keys;
    files_.clear();
    if (hooks_.draggedTab && hooks_.draggedTab()) {
        kind_ = Kind::kTab;
        return *effect = OpeningEffect(*effect), S_OK;
    }
    files_ = DroppedFiles(data);
    if (!files_.empty()) {
        kind_ = Kind::kFiles;
        return *effect = FilesEffect(point, keys, *effect, nullptr), S_OK;
    }
    kind_ = Kind::kOther;
    if (inner_) return inner_->DragEnter(data, keys, point, effect);
    return *effect = DROPEFFECT_NONE, S_OK;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragOver(DWORD keys, POINTL point, DWORD* effect) {
    switch (kind_) {
    case Kind::kTab: *effect = OpeningEffect(*effect); return S_OK;
    case Kind::kFiles: *effect = FilesEffect(point, keys, *effect, nullptr); return S_OK;
    case Kind::kOther:
        if (inner_) return inner_->DragOver(keys, point, effect);
        [[fallthrough]];
    default: *effect = DROPEFFECT_NONE; return S_OK;
    }
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragLeave() {
    if (kind_ == Kind::kOther && inner_) inner_->DragLeave();
    kind_ = Kind::kNone;
    files_.clear();
    return S_OK;
}

// A move is carried out here, so the drop reports no effect for it and tells the source in the
// data object instead: the source must not delete what is already gone.
HRESULT CMyBrowser_IDropTargetPlus::DropFiles(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    std::wstring target;
    DWORD chosen = FilesEffect(point, keys, *effect, &target);
    if (chosen && (enterKeys_ & MK_RBUTTON))
        chosen = AskFileDropEffect(hooks_.owner, point, *effect & (DROPEFFECT_COPY | DROPEFFECT_MOVE), chosen);
    const ClipboardFiles files{files_, chosen};
    files_.clear();
    *effect = DROPEFFECT_NONE;
    if (!chosen || !CopyOrMoveFiles(hooks_.owner, files, target)) return S_OK;
    if (chosen == DROPEFFECT_MOVE) TellMovePerformed(data);
    *effect = chosen == DROPEFFECT_COPY ? DROPEFFECT_COPY : DROPEFFECT_NONE;
    if (hooks_.filesArrived) hooks_.filesArrived();
    return S_OK;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    const Kind kind = std::exchange(kind_, Kind::kNone);
    if (kind == Kind::kFiles) return DropFiles(data, keys, point, effect);
    if (kind != Kind::kTab) {
        if (inner_) return inner_->Drop(data, keys, point, effect);
        return *effect = DROPEFFECT_NONE, S_OK;
    }
    const PCIDLIST_ABSOLUTE folder = hooks_.draggedTab ? hooks_.draggedTab() : nullptr;
    *effect = folder ? OpeningEffect(*effect) : DROPEFFECT_NONE;
    if (folder && hooks_.openFolder) hooks_.openFolder(folder);
    return S_OK;
}

}  // namespace tessel
