#pragma once
// The drop target in front of a browser view's list. A tab dragged onto the list opens its
// folder in this T-View and never reaches the shell's own drop handling (which would move the
// folder into the one shown); everything else goes on to the drop target the list had.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <atomic>
#include <functional>

#include "win/com_ptr_win.h"

namespace tessel {

class CMyBrowser_IDropTargetPlus : public IDropTarget {
public:
    // `draggedTab` names the folder of a tab being dragged (null when none); `openFolder` opens
    // a folder in the browser view once the drop has returned. `inner` may be null.
    CMyBrowser_IDropTargetPlus(win::ComPtr<IDropTarget> inner, std::function<PCIDLIST_ABSOLUTE()> draggedTab,
                               std::function<void(PCIDLIST_ABSOLUTE)> openFolder);
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;

private:
    virtual ~CMyBrowser_IDropTargetPlus() = default;
    static DWORD OpeningEffect(DWORD allowed);  // a link where allowed, else a copy: never a move

    std::atomic<ULONG> references_{1};
    win::ComPtr<IDropTarget> inner_;
    std::function<PCIDLIST_ABSOLUTE()> draggedTab_;
    std::function<void(PCIDLIST_ABSOLUTE)> openFolder_;
    bool tab_ = false;  // the drag in progress is a tab's
};

}  // namespace tessel
