#pragma once
// The tab strip's mouse and drop-target behaviour: dragging a tab within its strip or onto
// another T-View's strip, opening a dragged-over tab after the hover delay, and opening a tab
// for a folder dropped on the strip.
#include "nav/drop_target_win.h"

namespace tessel {

class CCBrowserTabView;

class CCBrowserTabCtrl : public CIDropTargetPlus {
public:
    explicit CCBrowserTabCtrl(CCBrowserTabView& view);
    void Detach();  // the strip is going: no more calls into it

    void OnButtonDown(POINT client, bool right);
    void OnMouseMove(POINT client);
    void OnButtonUp();

    STDMETHODIMP DragEnter(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragOver(DWORD keys, POINTL point, DWORD* effect) override;
    STDMETHODIMP DragLeave() override;
    STDMETHODIMP Drop(IDataObject* data, DWORD keys, POINTL point, DWORD* effect) override;
    bool OnDropText(const std::wstring& text, DWORD keys) override;

    // Carries out a tab drop on tab `target` of this strip; command 2 of the right-button menu
    // copies, everything else moves.
    bool DropTab(int target, bool copy);  // false when the tab did not arrive
    static bool TabDragActive();
    static PCIDLIST_ABSOLUTE DraggedTabFolder();  // the folder of the tab being dragged; null when none
    // The program-wide state of one tab drag: begun when the drag loop starts, ended after it.
    static void BeginTabDrag(CCBrowserTabView& source, int index, bool rightButton);
    static void EndTabDrag();

private:
    void StartDrag();
    void Hover(POINT client);
    void ShowTip(int target);
    int TabAtScreen(POINTL point) const;

    CCBrowserTabView* view_;
    int pressed_ = -1;
    POINT pressPoint_{32333, 32333};
    bool pressedRight_ = false;
    DWORD hoverMark_ = 0;
};

}  // namespace tessel
