#include "panel/filter_switch_bar_win.h"

#include <commctrl.h>

#include "res/resource.h"
#include "panel/toolbar_images_win.h"
#include "win/window_win.h"

namespace tessel {

FilterSwitchBar::~FilterSwitchBar() {
    if (bar_ && IsWindow(bar_)) DestroyWindow(bar_);
    if (images_) ImageList_Destroy(images_);
}

bool FilterSwitchBar::Create(HWND panel) {
    bar_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"",
                           WS_CHILD | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_NORESIZE | CCS_NODIVIDER |
                               CCS_NOPARENTALIGN,
                           0, 0, 0, 0, panel, nullptr, GetModuleHandleW(nullptr), nullptr);
    if (!bar_) return false;
    SendMessageW(bar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    images_ = DrawToolbarImages({ID_FILTER_INVERT, ID_FILTER_FOLDERS}, win::Scaled(panel, 16));
    SendMessageW(bar_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(images_));
    TBBUTTON buttons[2] = {};
    for (int i = 0; i < 2; ++i) {
        buttons[i].iBitmap = i;
        buttons[i].idCommand = i == 0 ? ID_FILTER_INVERT : ID_FILTER_FOLDERS;
        buttons[i].fsState = TBSTATE_ENABLED;
        buttons[i].fsStyle = BTNS_CHECK;
    }
    SendMessageW(bar_, TB_ADDBUTTONSW, 2, reinterpret_cast<LPARAM>(buttons));
    SendMessageW(bar_, TB_AUTOSIZE, 0, 0);
    return true;
}

void FilterSwitchBar::Show(const FilterSwitches& switches) {
    if (!bar_) return;
    SendMessageW(bar_, TB_CHECKBUTTON, ID_FILTER_INVERT, MAKELONG(switches.by_negativ != 0, 0));
    SendMessageW(bar_, TB_CHECKBUTTON, ID_FILTER_FOLDERS, MAKELONG(switches.by_dir_filter != 0, 0));
}

int FilterSwitchBar::Width() const {
    SIZE size{};
    if (bar_) SendMessageW(bar_, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size.cx;
}

int* FilterSwitchBar::SwitchOf(FilterSwitches& switches, int command) {
    if (command == ID_FILTER_INVERT) return &switches.by_negativ;
    if (command == ID_FILTER_FOLDERS) return &switches.by_dir_filter;
    return nullptr;
}

const wchar_t* FilterSwitchBar::KeyOf(int command) {
    return command == ID_FILTER_INVERT ? L"by_negativ" : L"by_dir_filter";
}

}  // namespace tessel
