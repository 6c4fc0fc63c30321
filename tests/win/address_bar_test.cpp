// The address bar on real controls: typed input in all its forms and its failures, the classic
// drop-down of the hierarchy, the segments with their names, tooltips and sub-folder popups,
// the style switch that keeps the segmented bar, drive buttons and the modes without a bar.
#include <windows.h>
#include <commctrl.h>
#include <shlobj.h>

#include <gtest/gtest.h>

#include <vector>

#include "core/general_options.h"
#include "nav/address_bar_win.h"
#include "nav/address_input_win.h"
#include "nav/address_popup_win.h"
#include "view_host_win.h"
#include "win/shell_item_win.h"

namespace tessel::testing {
namespace {

class AddressBar : public ::testing::Test {
protected:
    void SetUp() override {
        CreateDirectoryW((files_ / L"deep").c_str(), nullptr);
        CreateDirectoryW((files_ / L"deep\\er").c_str(), nullptr);
        CreateDirectoryW((files_ / L"other").c_str(), nullptr);
        WriteBytes(files_ / L"file.txt", "x");
        ASSERT_TRUE(host_.Panel().NavigateToText(files_ / L"deep"));
        ASSERT_TRUE(PumpUntil([&] { return Bar() != nullptr; })) << "made right after the panel";
    }
    CAdressBar* Bar() { return host_.Panel().AddressBar(); }
    std::wstring Shown() { return LowerCase(host_.Browser().CurrentPath()); }
    bool Type(const std::wstring& text) {
        SetWindowTextW(Bar()->Edit(), text.c_str());
        return Bar()->SubmitTypedText();
    }

    TempFolder files_;
    ViewHost host_{1};
};

TEST_F(AddressBar, TypedPathsVariablesAndBadInputLeaveTheViewWhereItWas) {
    EXPECT_EQ(LowerCase(GetWindowTextString(Bar()->Edit())), LowerCase(files_ / L"deep")) << "the edit shows the path";
    EXPECT_TRUE(Type(L"  " + files_ / L"other  "));
    EXPECT_EQ(Shown(), LowerCase(files_ / L"other"));

    SetEnvironmentVariableW(L"TESSEL_TEST_FOLDER", (files_ / L"deep\\er").c_str());
    EXPECT_TRUE(Type(L"x%TESSEL_TEST_FOLDER%\\ignored"));
    EXPECT_EQ(Shown(), LowerCase(files_ / L"deep\\er"));

    for (const std::wstring& bad : {files_ / L"gone", std::wstring(L"%NO_SUCH_VARIABLE%"), files_ / L"file.txt",
                                    std::wstring(10000, L'q'), std::wstring(L"Q:")}) {
        EXPECT_FALSE(Type(bad)) << "typed: " << std::string(bad.begin(), bad.begin() + std::min<size_t>(bad.size(), 40));
        EXPECT_EQ(Shown(), LowerCase(files_ / L"deep\\er"));
    }
    // Typed and entered: the status says why, the text stays selected, Escape brings the folder back.
    HWND edit = Bar()->Edit();
    SetWindowTextW(edit, (files_ / L"gone").c_str());
    SendMessageW(edit, WM_KEYDOWN, VK_RETURN, 0);
    wchar_t status[512] = {};
    SendMessageW(host_.Panel().StatusBar(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(status));
    EXPECT_NE(std::wstring(status).find(files_ / L"gone"), std::wstring::npos);
    DWORD from = 1, to = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    EXPECT_EQ(from, 0u);
    EXPECT_EQ(to, static_cast<DWORD>(GetWindowTextLengthW(edit)));
    SendMessageW(edit, WM_KEYDOWN, VK_ESCAPE, 0);
    EXPECT_EQ(LowerCase(GetWindowTextString(edit)), LowerCase(files_ / L"deep\\er"));

    // A bare drive letter is its root.
    EXPECT_TRUE(Type(L"c"));
    EXPECT_EQ(Shown(), L"c:\\");
    EXPECT_TRUE(ResolveTypedAddress(L"c:"));
}

TEST_F(AddressBar, TheClassicDropDownListsTheHierarchyAndAPickNavigates) {
    HWND combo = Bar()->Combo();
    EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 1) << "until the list opens only the folder";
    SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    Bar()->OpenHierarchy();  // as the opening list asks
    SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
    const int count = static_cast<int>(SendMessageW(combo, CB_GETCOUNT, 0, 0));
    EXPECT_GE(count, 4) << "desktop, computer, drive, ... down to the folder";
    EXPECT_EQ(SendMessageW(combo, CB_GETCURSEL, 0, 0), count - 1);
    {
        ScopedOption flat(Options().adress_tree, 0);
        Bar()->SetPath(host_.Browser().Current());
        Bar()->OpenHierarchy();
        EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 1) << "without the hierarchy only the folder";
    }
    Bar()->SetPath(host_.Browser().Current());
    Bar()->OpenHierarchy();
    // Picking the item above the folder, as the open list reports it.
    SendMessageW(combo, CB_SHOWDROPDOWN, TRUE, 0);
    SendMessageW(combo, CB_SETCURSEL, count - 2, 0);
    SendMessageW(Bar()->hwnd(), WM_COMMAND, MAKEWPARAM(kAddressComboId, CBN_SELENDOK), reinterpret_cast<LPARAM>(combo));
    SendMessageW(combo, CB_SHOWDROPDOWN, FALSE, 0);
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    // The same notice with the list closed (arrow keys) does not navigate.
    SendMessageW(combo, CB_SETCURSEL, 0, 0);
    SendMessageW(Bar()->hwnd(), WM_COMMAND, MAKEWPARAM(kAddressComboId, CBN_SELENDOK), reinterpret_cast<LPARAM>(combo));
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
}

TEST_F(AddressBar, SegmentsNameTheirFoldersAndTheStyleSwitchKeepsTheBar) {
    ScopedOption segmented(Options().adresbar_style, 1);
    host_.Panel().ApplyAddressBarMode();
    CComboBoxVista* segments = Bar()->Segmented();
    ASSERT_NE(segments, nullptr);
    EXPECT_FALSE(IsWindowVisible(Bar()->Combo()));
    const int count = segments->SegmentCount();
    EXPECT_EQ(count + 1, static_cast<int>(SendMessageW(segments->Segments(), TB_BUTTONCOUNT, 0, 0))) << "and \u00AB";
    EXPECT_EQ(LowerCase(segments->SegmentText(count - 1)), L"deep") << "from the third on: the name in the parent";
    EXPECT_TRUE(SendMessageW(segments->Segments(), TB_ISBUTTONHIDDEN, kFirstSegmentId, 0))
        << "every T-View's path starts below the desktop";
    // A bar too narrow for the path keeps the folder shown and offers the others under "«".
    RECT area{0, 0, 120, 24};
    segments->Place(area);
    EXPECT_TRUE(segments->Overflows());
    EXPECT_FALSE(segments->SegmentShown(1));
    EXPECT_TRUE(segments->SegmentShown(count - 1));
    segments->Place({0, 0, 4000, 24});
    EXPECT_FALSE(segments->Overflows()) << "with room, every segment below the desktop shows";
    EXPECT_TRUE(segments->SegmentShown(1));
    host_.Panel().ApplyAddressBarMode();  // laid out as the panel lays it out
    EXPECT_EQ(LowerCase(segments->Tooltip(kFirstSegmentId + count - 1)), LowerCase(files_ / L"deep"));
    EXPECT_EQ(segments->Tooltip(kEditPathId), L"Edit Path ;)");
    TBBUTTONINFOW info{sizeof(info), TBIF_STYLE};
    SendMessageW(segments->Segments(), TB_GETBUTTONINFOW, kFirstSegmentId, reinterpret_cast<LPARAM>(&info));
    EXPECT_TRUE(info.fsStyle & BTNS_DROPDOWN);

    Bar()->Command(kFirstSegmentId + count - 2, segments->Segments());  // the parent's segment
    EXPECT_EQ(Shown(), LowerCase(files_.path()));
    EXPECT_EQ(segments->SegmentCount(), count - 1);

    // The desktop itself is one segment.
    host_.Panel().NavigateTo(win::SpecialFolder(CSIDL_DESKTOP));
    EXPECT_EQ(segments->SegmentCount(), 1);
    EXPECT_FALSE(SendMessageW(segments->Segments(), TB_ISBUTTONHIDDEN, kFirstSegmentId, 0)) << "shown as itself";

    Options().adresbar_style = 0;
    host_.Panel().ApplyAddressBarMode();
    EXPECT_TRUE(IsWindowVisible(Bar()->Combo()));
    Options().adresbar_style = 1;
    host_.Panel().ApplyAddressBarMode();
    EXPECT_EQ(Bar()->Segmented(), segments) << "the same segmented bar comes back";

    // The 14th drive button has the edit button's id: from the drive toolbar it is a drive.
    Bar()->Command(kFirstDriveId + 13, Bar()->Drives());
    EXPECT_FALSE(IsWindowVisible(Bar()->Combo())) << "the path editor stays closed";
    // The edit button gives way to the edit field.
    Bar()->Command(kEditPathId, segments->Segments());
    EXPECT_TRUE(IsWindowVisible(Bar()->Combo()));
}

TEST_F(AddressBar, APopupListsSubFoldersOnlyAndAVanishedFolderListsNothing) {
    CAdressBarPopup popup(win::PidlFromPath(files_.path()).get());
    EXPECT_EQ(popup.Count(), 2u) << "deep and other; the file is not listed";
    win::UniquePidl first = popup.Child(0);
    ASSERT_TRUE(first);
    EXPECT_EQ(LowerCase(win::FileSystemPathOf(first.get())).rfind(LowerCase(files_.path()), 0), 0u);
    EXPECT_FALSE(popup.Child(5));

    win::UniquePidl other = win::PidlFromPath(files_ / L"other");
    ASSERT_TRUE(RemoveDirectoryW((files_ / L"other").c_str()));
    CAdressBarPopup gone(other.get());
    EXPECT_EQ(gone.Count(), 0u);
    host_.Panel().NavigateTo(std::move(other));  // a segment whose folder was deleted meanwhile
    EXPECT_EQ(Shown(), LowerCase(files_ / L"deep"));
}

// The popup is a list window at the segment: the keys walk it and Enter chooses, Escape and a
// click elsewhere leave it with nothing chosen.
TEST_F(AddressBar, APopupIsChosenFromWithTheKeysAndLeftWithEscape) {
    static std::vector<WPARAM> keys;
    auto press = [](std::vector<WPARAM> sequence) {
        keys = std::move(sequence);
        SetTimer(nullptr, 0, 100, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            HWND window = FindWindowW(L"TesselFolderPopup", nullptr);
            HWND list = window ? FindWindowExW(window, nullptr, WC_LISTVIEWW, nullptr) : nullptr;
            for (WPARAM key : keys) {
                SendMessageW(list, WM_KEYDOWN, key, 0);  // the list moves its focus
                PostMessageW(list, WM_KEYDOWN, key, 0);  // the popup's loop sees Enter and Escape
            }
        });
    };
    CAdressBarPopup popup(win::PidlFromPath(files_.path()).get());
    ASSERT_EQ(popup.Count(), 2u);
    press({VK_DOWN, VK_RETURN});
    win::UniquePidl chosen = popup.Track(host_.hwnd(), {100, 100});
    ASSERT_TRUE(chosen);
    EXPECT_TRUE(ILIsEqual(chosen.get(), popup.Child(1).get())) << "the second sub-folder";
    EXPECT_EQ(FindWindowW(L"TesselFolderPopup", nullptr), nullptr) << "the window is gone";

    press({VK_ESCAPE});
    EXPECT_FALSE(popup.Track(host_.hwnd(), {100, 100}));

    ASSERT_TRUE(popup.Open(host_.hwnd(), {100, 100}));
    EXPECT_EQ(ListView_GetItemCount(popup.List()), 2);
    RECT place;
    GetWindowRect(popup.Window(), &place);
    EXPECT_EQ(place.top, 100) << "below the point";
}

// The classic bar's own button opens the folder tree below it at the shown folder; the keys
// walk it and Enter goes there. The segmented bar has no such button.
TEST_F(AddressBar, TheTreeButtonOpensAFolderTreeToChooseFrom) {
    HWND tools = Bar()->Tools();
    ASSERT_NE(tools, nullptr);
    EXPECT_FALSE(SendMessageW(tools, TB_ISBUTTONHIDDEN, kTreeDropDownId, 0)) << "classic: the tree button shows";
    SetTimer(nullptr, 0, 300, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        HWND window = FindWindowW(L"TesselTreePopup", nullptr);
        HWND tree = window ? FindWindowExW(window, nullptr, WC_TREEVIEWW, nullptr) : nullptr;
        SendMessageW(tree, WM_KEYDOWN, VK_UP, 0);    // "deep" is the first sub-folder: up is its parent
        PostMessageW(tree, WM_KEYDOWN, VK_RETURN, 0);
    });
    Bar()->OpenTreeDropDown();
    EXPECT_EQ(Shown(), LowerCase(files_.path())) << "the folder chosen in the tree";
    EXPECT_EQ(FindWindowW(L"TesselTreePopup", nullptr), nullptr);

    Options().adresbar_style = 1;
    host_.Panel().ApplyAddressBarMode();
    EXPECT_TRUE(SendMessageW(tools, TB_ISBUTTONHIDDEN, kTreeDropDownId, 0));
    Options().adresbar_style = 0;
    host_.Panel().ApplyAddressBarMode();
}

TEST_F(AddressBar, DriveButtonsAndTheModesWithoutABar) {
    HWND drives = Bar()->Drives();
    const int count = static_cast<int>(SendMessageW(drives, TB_BUTTONCOUNT, 0, 0));
    ASSERT_GE(count, 1);
    TBBUTTON first{};
    SendMessageW(drives, TB_GETBUTTON, 0, reinterpret_cast<LPARAM>(&first));
    EXPECT_EQ(first.idCommand, kFirstDriveId);
    SendMessageW(Bar()->hwnd(), WM_COMMAND, MAKEWPARAM(kFirstDriveId, BN_CLICKED), reinterpret_cast<LPARAM>(drives));
    EXPECT_EQ(Shown().size(), 3u) << "a drive's root: " << std::string(Shown().begin(), Shown().end());

    {
        ScopedOption none(Options().address_bar_mod, -1);
        host_.Panel().ApplyAddressBarMode();
        EXPECT_EQ(Bar(), nullptr);
        RECT view{};
        GetWindowRect(host_.Browser().hwnd(), &view);
        RECT panel{};
        GetWindowRect(host_.Panel().hwnd(), &panel);
        EXPECT_EQ(view.top, panel.top) << "the view fills the space";
    }
    host_.Panel().ApplyAddressBarMode();
    ASSERT_NE(Bar(), nullptr);
    EXPECT_EQ(LowerCase(GetWindowTextString(Bar()->Edit())), Shown()) << "a new bar shows the folder at once";
}

}  // namespace
}  // namespace tessel::testing
