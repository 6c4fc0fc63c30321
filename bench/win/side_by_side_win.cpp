#include "side_by_side_win.h"

#include "win/shell_item_win.h"

namespace tessel::bench {

SideBySide::SideBySide(HWND frame, const std::wstring& root) : bare(frame) {
    panel.Create(frame);
    SetWindowPos(panel.hwnd(), nullptr, 0, 0, 500, 640, SWP_NOZORDER);
    SetWindowPos(bare.hwnd(), nullptr, 510, 0, 500, 640, SWP_NOZORDER);
    panel.NavigateToText(root + L"\\empty");
    bare.Navigate(win::PidlFromPath(root + L"\\empty").get());
}

}  // namespace tessel::bench
