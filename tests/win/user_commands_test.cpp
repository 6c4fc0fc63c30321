// Quick-links, program entries and associations carried out by a T-View: placeholders filled in
// from its list, folders opened in it, programs started with the selection.
#include <windows.h>
#include <commctrl.h>

#include <gtest/gtest.h>

#include <algorithm>

#include <thread>

#include "core/settings_store_win.h"
#include "features/quick_links.h"
#include "res/resource.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

class UserCommands : public ::testing::Test {
protected:
    void SetUp() override {
        CreateDirectoryW((files_ / L"sub").c_str(), nullptr);
        WriteBytes(files_ / L"a b.txt", "a");
        WriteBytes(files_ / L"c.zzz", "c");
        ASSERT_TRUE(host_.Panel().NavigateToText(files_.path()));
    }
    // What a started command wrote, once it is there.
    std::string Output() {
        PumpUntil([&] { return FileExists(output_) && !ReadBytes(output_).empty(); }, 10000);
        Pump(200);
        return FileExists(output_) ? ReadBytes(output_) : std::string();
    }

    TempFolder files_, outside_;
    std::wstring output_ = outside_ / L"out.txt";
    ViewHost host_;
};

TEST_F(UserCommands, ProgramsGetTheSelectionAndFoldersOpenInTheView) {
    CMyShellBrowser& browser = host_.Browser();
    ASSERT_TRUE(SelectByName(browser, L"a b.txt"));
    EXPECT_TRUE(browser.RunUserCommand(L"cmd.exe /c echo %sel_files%>\"" + output_ + L"\""));
    const std::wstring expected = L"\"" + LowerCase(files_ / L"a b.txt") + L"\"\r\n";
    const std::string written = Output();
    EXPECT_EQ(LowerCase(std::wstring(written.begin(), written.end())), expected) << "one quoted path per selected item";

    // Every row of the list, walked by its index: the view answers no question for all at once.
    DeleteFileW(output_.c_str());
    EXPECT_TRUE(browser.RunUserCommand(L"cmd.exe /c echo %all_files%>\"" + output_ + L"\""));
    const std::string all = Output();
    const std::wstring allText = LowerCase(std::wstring(all.begin(), all.end()));
    EXPECT_NE(allText.find(L"\"" + LowerCase(files_ / L"a b.txt") + L"\""), std::wstring::npos) << all;
    EXPECT_NE(allText.find(L"\"" + LowerCase(files_ / L"c.zzz") + L"\""), std::wstring::npos);
    EXPECT_EQ(std::count(all.begin(), all.end(), '"'), 2 * ListCount(browser)) << "one quoted path per row";

    EXPECT_TRUE(browser.RunUserCommand(L"\"%curdir%\\sub\""));
    EXPECT_EQ(LowerCase(browser.CurrentPath()), LowerCase(files_ / L"sub")) << "a folder opens in the view";
    EXPECT_FALSE(browser.RunUserCommand(L"Z:\\no\\such\\program.exe"));
    EXPECT_EQ(LowerCase(browser.CurrentPath()), LowerCase(files_ / L"sub"));
}

TEST_F(UserCommands, AssociatedTypesOpenWithTheirProgram) {
    CMyShellBrowser& browser = host_.Browser();
    ASSERT_TRUE(SelectByName(browser, L"c.zzz"));
    WriteQuickLinks(Settings(), kAssociationSection, {{L"*.zzz", L"cmd.exe /c copy %sel_file% \"" + output_ + L"\""}});
    EXPECT_EQ(browser.OnDefaultCommand(browser.View()), S_OK) << "the program opens the file, not the view";
    EXPECT_EQ(Output(), "c");
    ASSERT_TRUE(SelectByName(browser, L"a b.txt"));
    EXPECT_EQ(browser.OnDefaultCommand(browser.View()), S_FALSE) << "other types are left to the view";
}

// The quick-links menu opened from its button and an entry chosen with the keys, as a user would.
TEST_F(UserCommands, TheQuickLinksMenuOpensAndItsChoiceGoesThere) {
    WriteQuickLinks(Settings(), kQuickLinksSection, {{L"Outside", outside_.path()}, {L"Sub", files_ / L"sub"}});
    HWND panel = host_.Panel().hwnd();
    std::jthread user([panel] {
        for (int i = 0; i < 250 && !FindWindowW(L"#32768", nullptr); ++i) Sleep(20);
        Sleep(100);
        for (WPARAM key : {VK_DOWN, VK_DOWN, VK_RETURN}) {
            PostMessageW(panel, WM_KEYDOWN, key, 0);
            Sleep(50);
        }
    });
    RECT button{};
    HWND bar = host_.Panel().Toolbars().View();
    SendMessageW(bar, TB_GETRECT, ID_QUICK_LINKS_MENU, reinterpret_cast<LPARAM>(&button));
    POINT at{button.left, button.bottom};
    ClientToScreen(bar, &at);
    host_.Panel().ShowUserMenu(ID_QUICK_LINKS_MENU, at);
    user.join();
    EXPECT_EQ(LowerCase(host_.Browser().CurrentPath()), LowerCase(files_ / L"sub")) << "the second entry was chosen";
}

TEST_F(UserCommands, SwitchedOffListsHideTheirButtons) {
    HWND modes = host_.Panel().Toolbars().View();
    ASSERT_NE(modes, nullptr);
    EXPECT_FALSE(SendMessageW(modes, TB_ISBUTTONHIDDEN, ID_PROGRAMS_MENU, 0));
    Settings().PutInt(L"Programs_State", L"Disable", 1);
    host_.Panel().RefreshUserMenuButtons();
    EXPECT_TRUE(SendMessageW(modes, TB_ISBUTTONHIDDEN, ID_PROGRAMS_MENU, 0));
    EXPECT_FALSE(SendMessageW(modes, TB_ISBUTTONHIDDEN, ID_QUICK_LINKS_MENU, 0));
}

}  // namespace
}  // namespace tessel::testing
