#include "nav/drop_target_win.h"

#include <shellapi.h>

#include "core/language_packs_win.h"
#include "nav/drop_text.h"
#include "res/resource.h"
#include "win/handles_win.h"

namespace tessel {
namespace {

constexpr UINT kDropMenuCancel = 100;

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

DWORD CIDropTargetPlus::OpeningEffect(DWORD allowed) {
    if (allowed & DROPEFFECT_LINK) return DROPEFFECT_LINK;
    return allowed & DROPEFFECT_COPY ? DROPEFFECT_COPY : DROPEFFECT_NONE;
}

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

std::vector<std::wstring> CIDropTargetPlus::DroppedFilesOf(IDataObject* data) {
    FORMATETC wanted{CF_HDROP, nullptr, DVASPECT_CONTENT, -1, TYMED_HGLOBAL};
    STGMEDIUM medium{};
    std::vector<std::wstring> files;
    if (!data || FAILED(data->GetData(&wanted, &medium))) return files;
    auto drop = static_cast<HDROP>(medium.hGlobal);
    const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
    for (UINT i = 0; i < count; ++i) {
        std::wstring name(DragQueryFileW(drop, i, nullptr, 0) + 1, L'\0');
        name.resize(DragQueryFileW(drop, i, name.data(), static_cast<UINT>(name.size())));
        if (!name.empty()) files.push_back(std::move(name));
    }
    ReleaseStgMedium(&medium);
    return files;
}

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

DWORD CIDropTargetPlus::AskFileDropEffect(HWND owner, POINTL screen, DWORD allowed, DWORD proposed) {
    win::UniqueMenu menu(CreatePopupMenu());
    if (!menu) return DROPEFFECT_NONE;
    AppendMenuW(menu.get(), MF_STRING | (allowed & DROPEFFECT_COPY ? 0 : MF_GRAYED), DROPEFFECT_COPY,
                GetText(IDS_DROP_COPY_HERE).c_str());
    AppendMenuW(menu.get(), MF_STRING | (allowed & DROPEFFECT_MOVE ? 0 : MF_GRAYED), DROPEFFECT_MOVE,
                GetText(IDS_DROP_MOVE_HERE).c_str());
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), MF_STRING, kDropMenuCancel, GetText(119).c_str());
    if (proposed == DROPEFFECT_COPY || proposed == DROPEFFECT_MOVE) SetMenuDefaultItem(menu.get(), proposed, FALSE);
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, owner, nullptr);
    return chosen == DROPEFFECT_COPY || chosen == DROPEFFECT_MOVE ? (chosen & allowed) : DROPEFFECT_NONE;
}

}  // namespace tessel
