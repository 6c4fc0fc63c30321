#include "view/browser_drop_target_win.h"

namespace tessel {

CMyBrowser_IDropTargetPlus::CMyBrowser_IDropTargetPlus(win::ComPtr<IDropTarget> inner,
                                                       std::function<PCIDLIST_ABSOLUTE()> draggedTab,
                                                       std::function<void(PCIDLIST_ABSOLUTE)> openFolder)
    : inner_(std::move(inner)), draggedTab_(std::move(draggedTab)), openFolder_(std::move(openFolder)) {}

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

DWORD CMyBrowser_IDropTargetPlus::OpeningEffect(DWORD allowed) {
    return (allowed & DROPEFFECT_LINK) ? DROPEFFECT_LINK : (allowed & DROPEFFECT_COPY) ? DROPEFFECT_COPY : DROPEFFECT_NONE;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    tab_ = draggedTab_ && draggedTab_() != nullptr;
    if (tab_) return *effect = OpeningEffect(*effect), S_OK;
    if (inner_) return inner_->DragEnter(data, keys, point, effect);
    return *effect = DROPEFFECT_NONE, S_OK;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragOver(DWORD keys, POINTL point, DWORD* effect) {
    if (tab_) return *effect = OpeningEffect(*effect), S_OK;
    if (inner_) return inner_->DragOver(keys, point, effect);
    return *effect = DROPEFFECT_NONE, S_OK;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::DragLeave() {
    if (!tab_ && inner_) inner_->DragLeave();
    tab_ = false;
    return S_OK;
}

STDMETHODIMP CMyBrowser_IDropTargetPlus::Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    if (!tab_) {
        if (inner_) return inner_->Drop(data, keys, point, effect);
        return *effect = DROPEFFECT_NONE, S_OK;
    }
    tab_ = false;
    const PCIDLIST_ABSOLUTE folder = draggedTab_ ? draggedTab_() : nullptr;
    *effect = folder ? OpeningEffect(*effect) : DROPEFFECT_NONE;
    if (folder && openFolder_) openFolder_(folder);
    return S_OK;
}

}  // namespace tessel
