#pragma once
// OLE drag and drop of the navigation aids: the drop-target base, which turns whatever is
// dropped into one text for its hook, and the drop source of a dragged tab.
#include <windows.h>
#include <ole2.h>
#include <shlobj.h>

#include <atomic>
#include <string>
#include <vector>

#include "win/com_ptr_win.h"

namespace tessel {

class CIDropTargetPlus : public IDropTarget {
public:
    explicit CIDropTargetPlus(HWND owner);
    static inline int live = 0;  // drop targets in the program, for the leak tests
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override;
    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    // Receives the dropped item as text; true when it was used. The base does nothing with it.
    virtual bool OnDropText(const std::wstring& text, DWORD keys);

    // The text a data object stands for: the first file (a ".url" file's address instead of its
    // path), or the text it offers.
    static std::wstring DropTextOf(IDataObject* data);
    // Every file of a file drop, in order; empty when the data offers none.
    static std::vector<std::wstring> DroppedFilesOf(IDataObject* data);

protected:
    virtual ~CIDropTargetPlus() { --live; }
    HWND owner_;
    DWORD allowedEffect_ = DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK;
    DWORD enterKeys_ = 0;
    bool offersUrl_ = false;

private:
    std::atomic<ULONG> references_{1};
    win::ComPtr<IDropTargetHelper> dragImages_;
};

class CIDropSource : public IDropSource {
public:
    CIDropSource() = default;
    STDMETHODIMP QueryInterface(REFIID riid, void** object) override;
    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }
    STDMETHODIMP_(ULONG) Release() override;
    // Escape cancels; releasing the last held button, left or right, drops.
    STDMETHODIMP QueryContinueDrag(BOOL escapePressed, DWORD keys) override;
    STDMETHODIMP GiveFeedback(DWORD) override { return DRAGDROP_S_USEDEFAULTCURSORS; }
    bool Dropped() const { return dropped_; }

private:
    virtual ~CIDropSource() = default;
    std::atomic<ULONG> references_{1};
    bool dropped_ = false;
};

}  // namespace tessel
