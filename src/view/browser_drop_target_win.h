#pragma once
// The drop target in front of a browser view's list. A tab dragged onto the list opens its
// folder in this T-View and never reaches the shell's own drop handling (which would move the
// folder into the one shown); files go into the folder under the pointer or the one shown, by
// the same rules and with the same questions as every drop of files in the program; anything
// else goes on to the drop target the list had.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "win/com_ptr_win.h"

namespace tessel {

struct ListDropHooks {
    HWND owner = nullptr;  // of the questions and the right-button menu
    std::function<PCIDLIST_ABSOLUTE()> draggedTab;          // the folder of a tab being dragged; null: none
    std::function<void(PCIDLIST_ABSOLUTE)> openFolder;      // opens a tab's folder once the drop returned
    std::function<std::wstring(POINTL screen)> folderAt;    // where files dropped there go; "": not a folder
    std::function<void()> filesArrived;
};

class CMyBrowser_IDropTargetPlus : public IDropTarget {
public:
    CMyBrowser_IDropTargetPlus(win::ComPtr<IDropTarget> inner, ListDropHooks hooks);  // `inner` may be null
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;

private:
    enum class Kind { kNone, kTab, kFiles, kOther };
    virtual ~CMyBrowser_IDropTargetPlus() = default;
    DWORD FilesEffect(POINTL point, DWORD keys, DWORD allowed, std::wstring* target) const;
    HRESULT DropFiles(IDataObject* data, DWORD keys, POINTL point, DWORD* effect);

    std::atomic<ULONG> references_{1};
    win::ComPtr<IDropTarget> inner_;
    ListDropHooks hooks_;
    Kind kind_ = Kind::kNone;
    std::vector<std::wstring> files_;
    DWORD enterKeys_ = 0;
};

}  // namespace tessel
