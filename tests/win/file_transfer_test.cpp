// Files moved and copied between T-Views: a move never replaces a file without a question,
// rows of moved items are never handed to the shell again, and copy-to and move-to leave the
// user's clipboard alone.
#include <windows.h>

#include <gtest/gtest.h>

#include "res/resource.h"
#include "view/file_clipboard_win.h"
#include "view_host_win.h"

namespace tessel::testing {
namespace {

struct TwoFolders {
    TempFolder from, to;
    ViewHost host{2};
    CMyShellBrowser& Source() { return host.Browser(0); }
    CMyShellBrowser& Target() { return host.Browser(1); }
    TwoFolders() {
        EXPECT_TRUE(host.Panel(0).NavigateToText(from.path()));
        EXPECT_TRUE(host.Panel(1).NavigateToText(to.path()));
    }
    void Relist() {
        Source().Execute(ID_VIEW_REFRESH);
        Target().Execute(ID_VIEW_REFRESH);
    }
};

TEST(FileTransfer, AMoveOntoANameTakenAsksAndFollowsTheAnswer) {
    TwoFolders views;
    WriteBytes(views.from / L"same.txt", "moved");
    WriteBytes(views.from / L"other.txt", "other");
    WriteBytes(views.to / L"same.txt", "kept");
    views.Relist();
    auto cutBothAndPaste = [&] {
        ASSERT_TRUE(PutFilesOnClipboard(views.Source().hwnd(), {views.from / L"same.txt", views.from / L"other.txt"},
                                        DROPEFFECT_MOVE));
        views.Target().Execute(ID_VIEW_PASTE);
    };
    {
        MessageAnswer cancel(IDCANCEL);
        cutBothAndPaste();
        EXPECT_EQ(cancel.Count(), 1);
        EXPECT_NE(cancel.Text().find(L"same.txt"), std::wstring::npos) << "the question names the clashing file";
    }
    EXPECT_EQ(ReadBytes(views.to / L"same.txt"), "kept");
    EXPECT_TRUE(FileExists(views.from / L"other.txt")) << "cancel moves nothing";
    {
        MessageAnswer skip(IDNO);
        cutBothAndPaste();
        EXPECT_EQ(skip.Count(), 1);
    }
    EXPECT_EQ(ReadBytes(views.to / L"same.txt"), "kept");
    EXPECT_EQ(ReadBytes(views.from / L"same.txt"), "moved");
    EXPECT_EQ(ReadBytes(views.to / L"other.txt"), "other") << "no moves the others";
    {
        MessageAnswer replace(IDYES);
        ASSERT_TRUE(PutFilesOnClipboard(views.Source().hwnd(), {views.from / L"same.txt"}, DROPEFFECT_MOVE));
        views.Target().Execute(ID_VIEW_PASTE);
        EXPECT_EQ(replace.Count(), 1);
    }
    EXPECT_EQ(ReadBytes(views.to / L"same.txt"), "moved");
    EXPECT_FALSE(FileExists(views.from / L"same.txt"));
}

// The source list keeps showing moved rows until it is listed again; cutting them again must
// neither reach the shell for them nor put them on the clipboard.
TEST(FileTransfer, FiftyCutAndPasteMovesBetweenViews) {
    TwoFolders views;
    WriteBytes(views.from / L"wanderer.txt", "x");
    views.Relist();
    CMyShellBrowser* sides[2] = {&views.Source(), &views.Target()};
    const std::wstring folders[2] = {views.from.path(), views.to.path()};
    for (int round = 0; round < 50; ++round) {
        CMyShellBrowser& from = *sides[round % 2];
        CMyShellBrowser& to = *sides[1 - round % 2];
        ASSERT_TRUE(SelectByName(from, L"wanderer.txt")) << "round " << round;
        from.Execute(ID_VIEW_CUT);
        to.Execute(ID_VIEW_PASTE);
        ASSERT_TRUE(FileExists(folders[1 - round % 2] + L"\\wanderer.txt")) << "round " << round;
        // The moved row is still selected in the source until the disk is followed.
        from.Execute(ID_VIEW_CUT);
        ClipboardFiles held;
        ReadClipboardFiles(from.hwnd(), held);
        EXPECT_TRUE(held.paths.empty() || held.paths.front() != folders[round % 2] + L"\\wanderer.txt")
            << "a row of a moved item went on the clipboard";
        Pump(round % 5 == 0 ? 200 : 0);
        from.Execute(ID_VIEW_REFRESH);
    }
}

TEST(FileTransfer, CopyAndMoveToAViewLeaveTheClipboardAlone) {
    TwoFolders views;
    TempFolder elsewhere;
    WriteBytes(elsewhere / L"cut an hour ago.txt", "keep me");
    WriteBytes(views.from / L"chosen.txt", "go");
    views.Relist();
    ASSERT_TRUE(PutFilesOnClipboard(views.Source().hwnd(), {elsewhere / L"cut an hour ago.txt"}, DROPEFFECT_MOVE));
    CPloder& panel = views.host.Panel(0);

    panel.RunTransferCommand(ID_MOVE_TO_VIEW, ID_TRANSFER_VIEW_FIRST + 1);  // nothing selected
    EXPECT_TRUE(FileExists(elsewhere / L"cut an hour ago.txt")) << "an empty selection moves nothing";
    EXPECT_FALSE(FileExists(views.to / L"cut an hour ago.txt"));

    ASSERT_TRUE(SelectByName(views.Source(), L"chosen.txt"));
    panel.RunTransferCommand(ID_COPY_TO_VIEW, ID_TRANSFER_VIEW_FIRST + 1);
    EXPECT_EQ(ReadBytes(views.to / L"chosen.txt"), "go");
    EXPECT_TRUE(FileExists(views.from / L"chosen.txt"));
    DeleteFileW((views.to / L"chosen.txt").c_str());

    ASSERT_TRUE(SelectByName(views.Source(), L"chosen.txt"));
    panel.RunTransferCommand(ID_MOVE_TO_VIEW, ID_TRANSFER_VIEW_FIRST + 1);
    EXPECT_EQ(ReadBytes(views.to / L"chosen.txt"), "go");
    EXPECT_FALSE(FileExists(views.from / L"chosen.txt"));

    ClipboardFiles held;
    ASSERT_TRUE(ReadClipboardFiles(views.Source().hwnd(), held));
    EXPECT_EQ(held.paths, std::vector<std::wstring>{elsewhere / L"cut an hour ago.txt"});
    EXPECT_EQ(held.effect, static_cast<DWORD>(DROPEFFECT_MOVE));
    EXPECT_TRUE(FileExists(elsewhere / L"cut an hour ago.txt"));
}

}  // namespace
}  // namespace tessel::testing
