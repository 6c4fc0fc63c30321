#pragma once
// Two switches beside a T-View's filter box: show what does not match (`by_negativ`), and filter
// folders too (`by_dir_filter`). Their clicks go to the panel as commands.
#include <windows.h>
#include <commctrl.h>

#include "features/view_filter.h"

namespace tessel {

class FilterSwitchBar {
public:
    FilterSwitchBar() = default;
    ~FilterSwitchBar();
    FilterSwitchBar(const FilterSwitchBar&) = delete;
    FilterSwitchBar& operator=(const FilterSwitchBar&) = delete;

    bool Create(HWND panel);
    void Show(const FilterSwitches& switches);  // pressed as the switches are
    int Width() const;
    HWND hwnd() const { return bar_; }

    // ID_FILTER_INVERT or ID_FILTER_FOLDERS: the switch it stands for, or null.
    static int* SwitchOf(FilterSwitches& switches, int command);
    static const wchar_t* KeyOf(int command);  // its key in the T-View's section

private:
    HWND bar_ = nullptr;
    HIMAGELIST images_ = nullptr;
};

}  // namespace tessel
