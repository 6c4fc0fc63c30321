// Toolbars the user arranges: the kept choice comes back, every toolbar of the same key
// follows a change, a reset brings the own order back, and the common control's dialog opens.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <thread>

#include "core/settings_store_win.h"
#include "view/toolbar_choice_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

// A toolbar with buttons 101, 102, a separator and 103, answered by its ToolbarChoice.
class Bar {
public:
    explicit Bar(HWND parent) {
        bar_ = CreateWindowExW(0, TOOLBARCLASSNAMEW, L"", WS_CHILD | WS_VISIBLE | TBSTYLE_FLAT, 0, 0, 300, 30, parent,
                               nullptr, GetModuleHandleW(nullptr), nullptr);
        SendMessageW(bar_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        TBBUTTON buttons[4] = {};
        const int ids[4] = {101, 102, 0, 103};
        for (int i = 0; i < 4; ++i) {
            buttons[i].idCommand = ids[i];
            buttons[i].fsState = TBSTATE_ENABLED;
            buttons[i].fsStyle = ids[i] ? BTNS_BUTTON : BTNS_SEP;
            buttons[i].iBitmap = ids[i] ? I_IMAGENONE : 6;
        }
        SendMessageW(bar_, TB_ADDBUTTONSW, 4, reinterpret_cast<LPARAM>(buttons));
    }
    ~Bar() { DestroyWindow(bar_); }
    std::vector<int> Ids() const {
        std::vector<int> ids;
        for (int i = 0; i < static_cast<int>(SendMessageW(bar_, TB_BUTTONCOUNT, 0, 0)); ++i) {
            TBBUTTON button{};
            SendMessageW(bar_, TB_GETBUTTON, i, reinterpret_cast<LPARAM>(&button));
            ids.push_back(button.fsStyle & BTNS_SEP ? 0 : button.idCommand);
        }
        return ids;
    }
    LRESULT Notice(UINT code) {
        NMTOOLBARW notice{};
        notice.hdr = {bar_, 0, code};
        LRESULT result = 0;
        choice.OnNotify(&notice.hdr, result);
        return result;
    }
    HWND bar_;
    ToolbarChoice choice;
};

TEST(ToolbarChoice, TheKeptChoiceComesBackAndEveryToolbarOfItsKeyFollows) {
    ViewHost host(1);
    Settings().PutString(L"Toolbars", L"Test", L"103,0,101,999");
    Bar first(host.hwnd()), second(host.hwnd());
    first.choice.Attach(first.bar_, L"Test");
    second.choice.Attach(second.bar_, L"Test");
    EXPECT_EQ(first.Ids(), (std::vector<int>{103, 0, 101})) << "the unknown 999 is left out";
    EXPECT_TRUE(GetWindowLongPtrW(first.bar_, GWL_STYLE) & CCS_ADJUSTABLE) << "a double-click opens the dialog";

    SendMessageW(first.bar_, TB_MOVEBUTTON, 2, 0);  // the user drags 101 to the front
    EXPECT_EQ(first.Notice(TBN_TOOLBARCHANGE), 0);
    EXPECT_EQ(Settings().GetString(L"Toolbars", L"Test", L""), L"101,103,0");
    EXPECT_EQ(second.Ids(), (std::vector<int>{101, 103, 0})) << "the other T-Views follow at once";

    EXPECT_EQ(first.Notice(TBN_RESET), TRUE);
    first.Notice(TBN_TOOLBARCHANGE);
    EXPECT_EQ(first.Ids(), (std::vector<int>{101, 102, 0, 103}));
    EXPECT_EQ(Settings().GetString(L"Toolbars", L"Test", L"x"), L"") << "the own order needs no entry";

    // The dialog offers every button of the palette, one by one, and nothing beyond.
    NMTOOLBARW ask{};
    ask.hdr = {first.bar_, 0, static_cast<UINT>(TBN_GETBUTTONINFOW)};
    wchar_t text[80] = {};
    ask.pszText = text;
    ask.cchText = 80;
    LRESULT result = 0;
    ask.iItem = 2;
    ASSERT_TRUE(first.choice.OnNotify(&ask.hdr, result));
    EXPECT_EQ(result, TRUE);
    EXPECT_EQ(ask.tbButton.idCommand, 103);
    ask.iItem = 3;
    first.choice.OnNotify(&ask.hdr, result);
    EXPECT_EQ(result, FALSE);
}

TEST(ToolbarChoice, TheCommonControlsDialogOpensAndCloses) {
    ViewHost host(1);
    Bar bar(host.hwnd());
    bar.choice.Attach(bar.bar_, L"Test2");
    std::jthread user([&] {
        for (int i = 0; i < 250; ++i, Sleep(20))
            for (HWND d = FindWindowW(L"#32770", nullptr); d; d = FindWindowExW(nullptr, d, L"#32770", nullptr))
                if (IsWindowVisible(d) && GetWindow(d, GW_OWNER) == host.hwnd()) {
                    PostMessageW(d, WM_COMMAND, IDCANCEL, 0);
                    return;
                }
    });
    bar.choice.Customise();  // returns when the dialog is closed
    user.join();
    EXPECT_EQ(bar.Ids(), (std::vector<int>{101, 102, 0, 103}));
}

}  // namespace
}  // namespace tessel::testing
