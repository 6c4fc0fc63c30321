#pragma once
// A T-View beside a bare host of the same shell view in a benchmark's frame, both showing the
// empty folder of the benchmark data at first.
#include <windows.h>

#include <string>

#include "bare_host_win.h"
#include "panel/view_panel_win.h"

namespace tessel::bench {

struct SideBySide {
    SideBySide(HWND frame, const std::wstring& root);
    CMyShellBrowser& Browser() { return *panel.Active(); }
    CPloder panel{0};
    BareHost bare;
};

}  // namespace tessel::bench
