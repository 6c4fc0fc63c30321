#pragma once
// The address bar of a T-View: the classic combo box with an edit field and a drop-down of the
// folder's hierarchy, or the segmented bar; drive buttons at the right. Whatever the user picks
// or types goes to the bar's owner, which navigates its view.
#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "nav/address_segments_win.h"
#include "win/handles_win.h"
#include "win/window_win.h"

namespace tessel {

inline constexpr int kAddressComboId = 100;
inline constexpr int kTreeDropDownId = 111;  // the bar's own toolbar: the folder tree drop-down
inline constexpr int kFirstDriveId = 1110;
inline constexpr int kLastDriveId = 1139;

class CAdressBar : public win::Window {
public:
    // `navigate` receives a chosen folder; `typed` the text entered (false: it led nowhere).
    using Navigate = std::function<void(win::UniquePidl folder)>;
    using Typed = std::function<bool(const std::wstring& text)>;
    CAdressBar(Navigate navigate, Typed typed);
    ~CAdressBar() override;
    bool Create(HWND parent, int id);

    void SetPath(PCIDLIST_ABSOLUTE folder);
    void SetStyle(int style);  // 0 classic, 1 segmented (made once, kept when switched off)
    void SetActive(bool active);
    int Height() const;

    // The parts, for the panel's layout and for the tests.
    // The box and its edit field, made now if they were not yet.
    HWND Combo();
    HWND Edit();
    HWND Drives() const { return drives_; }
    HWND Tools() const { return tools_; }
    CComboBoxVista* Segmented() const { return segments_.get(); }
    bool Active() const { return active_; }
    // Carries out a command of the bar (a segment, a drive, the edit button).
    void Command(int id, HWND from);  // a button of the drive toolbar or of the segmented bar
    // Opens a segment's sub-folder list at its button; returns what was chosen and navigated to.
    void OpenSegmentPopup(int index);
    void ShowHiddenSegments();
    // Enter in the edit field.
    bool SubmitTypedText();
    // The drop-down's folder hierarchy, made when the list opens.
    void OpenHierarchy();
    // The folder tree below the bar, opened down to the shown folder; a choice navigates.
    void OpenTreeDropDown();

protected:
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    void Layout();
    bool MakeCombo();
    HWND EditIfMade() const;
    void FillDrives();
    void MakeTools();
    void FillHierarchy();
    void InsertHierarchyItems(bool indented);
    void PutItem(UINT message, size_t index, bool indented);
    void ShowSegmentsAgain();
    std::wstring FolderText() const;
    void ShowFolderText();
    LRESULT OnNotify(NMHDR* header);
    static LRESULT EditProc(HWND, UINT, WPARAM, LPARAM, void* data);

    Navigate navigate_;
    Typed typed_;
    HWND combo_ = nullptr;
    HWND drives_ = nullptr;
    HWND tools_ = nullptr;  // the bar's own toolbar: button 111, the tree drop-down
    std::unique_ptr<CComboBoxVista> segments_;
    int style_ = 0;
    bool editing_ = false;  // the segmented bar gave way to the edit field
    bool active_ = false;
    bool completing_ = false;  // the shell's completion is attached to the edit
    win::UniquePidl shown_;
    std::vector<win::UniquePidl> hierarchy_;  // the drop-down's folders, by item index
    std::vector<std::wstring> driveTexts_;
};

}  // namespace tessel
