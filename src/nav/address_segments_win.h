#pragma once
// The segmented address bar: one toolbar button per step of the folder's path (the desktop
// first), each with its icon, its name and an arrow that lists its sub-folders, and an edit
// button at the right end that lets the user type a path.
#include <windows.h>

#include <string>
#include <vector>

#include "win/handles_win.h"

namespace tessel {

inline constexpr int kSegmentsOverflowId = 110;  // "«": the segments that have no room
inline constexpr int kFirstSegmentId = 111;
inline constexpr int kEditPathId = 1123;

class CComboBoxVista {
public:
    CComboBoxVista() = default;
    ~CComboBoxVista();
    CComboBoxVista(const CComboBoxVista&) = delete;
    CComboBoxVista& operator=(const CComboBoxVista&) = delete;

    bool Create(HWND parent);
    void SetPath(PCIDLIST_ABSOLUTE folder);
    void Show(bool shown);
    // Places the segments in the rectangle, the edit button at its right end.
    void Place(const RECT& area);
    int SegmentCount() const { return static_cast<int>(segments_.size()); }
    PCIDLIST_ABSOLUTE Segment(int index) const;  // absolute; null outside the range
    std::wstring SegmentText(int index) const;
    std::wstring Tooltip(int command) const;
    bool SegmentShown(int index) const;
    bool Overflows() const;  // segments below the desktop gave way, behind "«"
    HWND Segments() const { return segmentBar_; }
    HWND EditButton() const { return editBar_; }

private:
    void FitSegments(int width);
    HWND segmentBar_ = nullptr;
    HWND editBar_ = nullptr;
    std::vector<win::UniquePidl> segments_;  // segment 0 is the desktop
    std::vector<std::wstring> texts_;
};

}  // namespace tessel
