#include "nav/drop_target_win.h"

#include <shellapi.h>

#include "nav/drop_text.h"
#include "view/file_drop.h"
#include "view/file_clipboard_win.h"

namespace tessel {
namespace {

bool Offers(IDataObject* data, CLIPFORMAT format) {
    FORMATETC wanted{format, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    return data && data->QueryGetData(&wanted) == S_OK;
}

std::wstring TextOf(IDataObject* data) {
    FORMATETC wanted{CF_UNICODETEXT, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    if (!data || FAILED(data->GetData(&wanted, &medium))) return {};
    std::wstring text;
    if (const auto* chars = static_cast<const wchar_t*>(GlobalLock(medium.hGlobal))) {
        text.assign(chars, wcsnlen(chars, GlobalSize(medium.hGlobal) / sizeof(wchar_t)));
        GlobalUnlock(medium.hGlobal);
    }
    ReleaseStgMedium(&medium);
    return text;
}

}  // namespace

CIDropTargetPlus::CIDropTargetPlus(HWND owner) : owner_(owner) { ++live; }

STDMETHODIMP CIDropTargetPlus::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = riid == IID_IUnknown || riid == IID_IDropTarget ? static_cast<IDropTarget*>(this) : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) CIDropTargetPlus::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP CIDropTargetPlus::DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) {
    if (!dragImages_)  // made at the first drag, not with every strip at start
        CoCreateInstance(CLSID_DragDropHelper, nullptr, CLSCTX_INPROC_SERVER, IID_IDropTargetHelper,
                         dragImages_.put_void());
    enterKeys_ = keys;
    POINT at{point.x, point.y};
    if (dragImages_) dragImages_->DragEnter(owner_, data, &at, *effect);
    static const CLIPFORMAT url = static_cast<CLIPFORMAT>(RegisterClipboardFormatW(L"UniformResourceLocator"));
    offersUrl_ = Offers(data, url);
    *effect &= allowedEffect_;
    return S_OK;
}

STDMETHODIMP CIDropTargetPlus::DragOver(DWORD, POINTL point, DWORD* effect) {
    POINT at{point.x, point.y};
    if (dragImages_) dragImages_->DragOver(&at, *effect);
    *effect &= allowedEffect_;
    return S_OK;
}

STDMETHODIMP CIDropTargetPlus::DragLeave() {
    if (dragImages_) dragImages_->DragLeave();
    return S_OK;
}

STDMETHODIMP CIDropTargetPlus::Drop(IDataObject* data, DWORD keys, POINTL, DWORD* effect) {
    const std::wstring text = DropTextOf(data);
    if (dragImages_) dragImages_->DragLeave();
    const bool used = OnDropText(text, keys | enterKeys_);
    *effect = used ? OpeningEffect(*effect & allowedEffect_) : DROPEFFECT_NONE;
    return S_OK;
}

bool CIDropTargetPlus::OnDropText(const std::wstring&, DWORD) { return false; }

std::wstring CIDropTargetPlus::DropTextOf(IDataObject* data) {
    const std::vector<std::wstring> files = DroppedFilesOf(data);
    const std::wstring file = files.empty() ? std::wstring() : files.front().substr(0, MAX_PATH - 1);
    if (file.empty()) return TextOf(data);
    if (KindOfDroppedFile(file) == DroppedFileKind::kInternetShortcut) {
        wchar_t address[1025] = {};
        GetPrivateProfileStringW(L"InternetShortcut", L"URL", L"", address, 1025, file.c_str());
        return address;
    }
    return file;
}

std::vector<std::wstring> CIDropTargetPlus::DroppedFilesOf(IDataObject* data) { return DroppedFiles(data); }

STDMETHODIMP CIDropSource::QueryInterface(REFIID riid, void** object) {
    if (!object) return E_POINTER;
    *object = riid == IID_IUnknown || riid == IID_IDropSource ? static_cast<IDropSource*>(this) : nullptr;
    if (!*object) return E_NOINTERFACE;
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) CIDropSource::Release() {
    const ULONG left = --references_;
    if (left == 0) delete this;
    return left;
}

STDMETHODIMP CIDropSource::QueryContinueDrag(BOOL escapePressed, DWORD keys) {
    if (escapePressed) return DRAGDROP_S_CANCEL;
    if (!(keys & (MK_LBUTTON | MK_RBUTTON))) {
        dropped_ = true;
        return DRAGDROP_S_DROP;
    }
    return S_OK;
}

}  // namespace tessel
